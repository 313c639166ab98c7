#include "core/names/name_fields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/names/patterns.h"
#include "core/tags/frames.h"

namespace mdlPLM {
namespace {

TEST(NameFields, EveryRowHasPlacesOfItsOwn) {
    FieldValues values;
    ID3v2Tag v2;
    TagBoxes boxes;
    for (const NameField& field : NameFields) {
        SCOPED_TRACE(testing::PrintToString(Text(field.Word())));
        EXPECT_EQ(field.Placeholder.front(), u'%');
        for (Text* const text :
             {&(values.*field.Value), &(boxes.*field.V1Box), &(boxes.*field.V2Box)}) {
            EXPECT_EQ(*text, u"");
            *text = u"x";
        }
        EXPECT_EQ(v2.*field.V2, "");
        v2.*field.V2 = "x";
        EXPECT_NE(field.V1.Text == nullptr, field.V1.Number == nullptr);
        EXPECT_EQ(field.V1.Number == nullptr, field.V1.TextOfNumber == nullptr);
        EXPECT_EQ(&FieldOf(field.Value), &field);
        EXPECT_EQ(FieldOfBox(field.V1Box), &field);
        EXPECT_EQ(FieldOfBox(field.V2Box), &field);
    }
    EXPECT_EQ(FieldOfBox(&TagBoxes::txtV2Composer), nullptr);
}

// Else the shorter placeholder would be found in the longer one.
TEST(NameFields, NoPlaceholderBeginsWithAnother) {
    for (const NameField& field : NameFields)
        for (const NameField& other : NameFields)
            EXPECT_EQ(StartsWith(field.Placeholder, other.Placeholder), &field == &other);
}

TEST(NameFields, AreTheFramesThatNamesNeed) {
    std::size_t needed = 0;
    for (const KnownFrame& frame : KnownFrames) {
        if (!frame.InNames) continue;
        ++needed;
        EXPECT_TRUE(std::any_of(NameFields.begin(), NameFields.end(), [&](const NameField& field) {
            return field.V2 == frame.Field;
        })) << frame.Identifier;
    }
    EXPECT_EQ(needed, NameFields.size());
}

TEST(NameFields, TheTrailersNumbersAreSaidInWords) {
    EXPECT_EQ(TrackInName('\0'), "");
    EXPECT_EQ(TrackInName('\xFF'), "255");
    EXPECT_EQ(GenreInName('\x11'), "Rock");
    EXPECT_EQ(GenreInName(NoGenre), "Unknown");
}

// A table with one row more than the seven.
class EightFields : public testing::Test {
protected:
    [[nodiscard]] static std::vector<NameField> Rows() {
        std::vector<NameField> rows(NameFields.begin(), NameFields.end());
        rows.push_back({.Placeholder = u"%mood", .Value = &FieldValues::Comment});
        return rows;
    }
    [[nodiscard]] Text Read(TextView name, TextView word, TextView pattern) const {
        return rules_.FromPath(name, word, pattern, settings_);
    }

    const std::vector<NameField> rows_ = Rows();
    const PatternRules rules_{rows_};
    const Settings settings_;
};

constexpr TextView AllSeven = u"%track - %artist - %title - %album - %year - %genre - %comment.mp3";
constexpr TextView AllSevenName = u"01 - Abba - Waterloo - Gold - 1992 - Pop - Nice.mp3";

TEST_F(EightFields, APatternWithAllSevenStillHasNoFirstField) {
    for (const NameField& field : NameFields)
        EXPECT_EQ(Read(AllSevenName, field.Word(), AllSeven),
                  GetFieldFromPath(AllSevenName, field.Word(), AllSeven, settings_));
    EXPECT_EQ(Read(AllSevenName, u"track", AllSeven), u"");
    EXPECT_EQ(Read(AllSevenName, u"artist", AllSeven), u"01");
}

TEST_F(EightFields, TheEighthIsReadWhereverItStands) {
    EXPECT_EQ(Read(u"calm - Abba - Song.mp3", u"mood", u"%mood - %artist - %title.mp3"), u"calm");
    EXPECT_EQ(Read(u"Abba - Song - calm.mp3", u"mood", u"%artist - %title - %mood.mp3"), u"calm");
    EXPECT_EQ(Read(u"calm - Abba - Song.mp3", u"artist", u"%mood - %artist - %title.mp3"), u"Abba");
    EXPECT_EQ(GetFieldFromPath(u"calm - Song.mp3", u"mood", u"%mood - %title.mp3", settings_), u"");
}

TEST_F(EightFields, SevenPlaceholdersWithTheEighthAmongThemLoseNothing) {
    const TextView pattern = u"%artist - %title - %album - %year - %genre - %comment - %mood.mp3";
    const TextView name = u"Abba - Waterloo - Gold - 1992 - Pop - Nice - calm.mp3";
    EXPECT_EQ(Read(name, u"artist", pattern), u"Abba");
    EXPECT_EQ(Read(name, u"year", pattern), u"1992");
    EXPECT_EQ(Read(name, u"mood", pattern), u"calm");
}

TEST_F(EightFields, BesideAllSevenTheEighthKeepsItsValue) {
    const Text pattern = u"%mood - " + Text(AllSeven);
    const Text name = u"calm - " + Text(AllSevenName);
    EXPECT_EQ(Read(name, u"mood", pattern), u"calm");
    EXPECT_EQ(Read(name, u"track", pattern), u"");
    EXPECT_EQ(Read(name, u"artist", pattern), u"01");
}

TEST_F(EightFields, TheEighthIsFilledIn) {
    FieldValues values;
    values.Title = u"Song";
    values.Comment = u"calm";
    EXPECT_EQ(rules_.Filled(u"%title (%mood).mp3", values), u"Song (calm).mp3");
    EXPECT_EQ(PatternRules(NameFields).Filled(u"%title (%mood).mp3", values), u"Song (%mood).mp3");
}

}  // namespace
}  // namespace mdlPLM
