// Which of its sources each field of a new name comes from.
#include <gtest/gtest.h>

#include "core/names/fix_file_name.h"

namespace mdlPLM {
namespace {

using Sources = std::array<FieldSource, NameFields.size()>;
constexpr FieldSource None = FieldSource::None;
constexpr FieldSource V1 = FieldSource::V1;
constexpr FieldSource V2 = FieldSource::V2;
constexpr FieldSource Pattern = FieldSource::Pattern;

struct Gathering {
    Settings Values;
    ReplacementList Replacements;
    FileTags Tags;

    Gathering() {
        Tags.Exists = true;
        Tags.V1.Genre = NoGenre;
    }
    [[nodiscard]] GatheredFields Of(TextView path, TextView inPattern) const {
        return GatherFields(path, Tags, {Values, Replacements, inPattern});
    }
};

TEST(GatherFields, WithoutTagsEverythingIsFromThePattern) {
    const GatheredFields fields =
        Gathering().Of(u"/m/07 - Abba - Waterloo.mp3", u"%track - %artist - %title.mp3");
    EXPECT_EQ(fields.Values.Artist, u"Abba");
    EXPECT_EQ(fields.Values.Title, u"Waterloo");
    EXPECT_EQ(fields.Values.Track, u"07");
    EXPECT_EQ(fields.Sources, (Sources{Pattern, Pattern, None, Pattern, None, None, None}));
}

TEST(GatherFields, TheFirstTagThatHasAFieldIsItsSource) {
    Gathering gathering;
    gathering.Tags.V1.Tag = "TAG";
    gathering.Tags.V1.Artist = PadString("One", 30, " ");
    gathering.Tags.V1.Album = PadString("First", 30, BytesView("\0", 1));
    gathering.Tags.V2.ID = "ID3";
    gathering.Tags.V2.Artist = "Two";
    gathering.Tags.V2.Track = "3";
    const GatheredFields fields = gathering.Of(u"/m/x - Song.mp3", u"%artist - %title.mp3");
    EXPECT_EQ(fields.Values.Artist, u"Two");
    EXPECT_EQ(fields.Values.Album, u"First");
    EXPECT_EQ(fields.Values.Title, u"Song");
    EXPECT_EQ(fields.Values.Track, u"03");
    EXPECT_EQ(fields.Values.Genre, u"Unknown");
    EXPECT_EQ(fields.Sources, (Sources{V2, Pattern, V1, V2, None, V1, None}));
}

TEST(GatherFields, TagsThatTheSettingsForbidAreNoSource) {
    Gathering gathering;
    gathering.Values.bID3 = false;
    gathering.Tags.V2.ID = "ID3";
    gathering.Tags.V2.Artist = "Two";
    const GatheredFields fields = gathering.Of(u"/m/Abba - Song.mp3", u"%artist - %title.mp3");
    EXPECT_EQ(fields.Values.Artist, u"Abba");
    EXPECT_EQ(fields.Sources[0], Pattern);
}

TEST(GatherFields, AnArtistOutOfATitleIsFromThePattern) {
    Gathering gathering;
    gathering.Tags.V2.ID = "ID3";
    const GatheredFields fields = gathering.Of(u"/m/Abba - Waterloo.mp3", u"%title.mp3");
    EXPECT_EQ(fields.Values.Artist, u"Abba");
    EXPECT_EQ(fields.Values.Title, u"Waterloo");
    EXPECT_EQ(fields.Sources[0], Pattern);
    EXPECT_EQ(fields.Sources[1], Pattern);
}

}  // namespace
}  // namespace mdlPLM
