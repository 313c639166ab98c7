#include "app/tags/tag_fix.h"

#include <gtest/gtest.h>

namespace mdlPLM {
namespace {

class Fix : public testing::Test {
protected:
    TagBoxes Fixed(const TagBoxes& boxes, const FixScope& scope) const {
        return FixedBoxes(boxes, scope, {settings_, replacements_, pattern_});
    }
    [[nodiscard]] FixScope Both() const { return {path_, true, true, {}}; }

    Settings settings_;
    ReplacementList replacements_;
    Text pattern_ = u"%track - %artist - %title.mp3";
    Text path_ = u"/music/07 - Abba - Waterloo.mp3";
};

TEST_F(Fix, CleansTheTextFieldsOfBothVersions) {
    TagBoxes boxes;
    for (const TagBoxRow& row : TagBoxTable) boxes.*row.Value = u"some_text  here";
    const TagBoxes fixed = Fixed(boxes, Both());
    for (const TagBoxRow& row : TagBoxTable) {
        if (!row.KeptByFix.empty()) continue;
        EXPECT_EQ(fixed.*row.Value, row.Cleaned ? u"Some Text Here" : u"some_text  here")
            << row.Name;
    }
}

TEST_F(Fix, CleansTitleArtistAlbumCommentAndTheFurtherTexts) {
    Bytes cleaned;
    for (const TagBoxRow& row : TagBoxTable)
        if (row.Cleaned) cleaned += row.Name + Bytes(" ");
    EXPECT_EQ(cleaned,
              "txtTitle txtArtist txtAlbum txtComments txtV2Title txtV2Artist txtV2Album "
              "txtV2Comments txtV2Composer txtV2OrigArtist txtV2Copyright txtV2Encoder ");
}

TEST_F(Fix, FillsEmptyFieldsFromTheFileName) {
    const TagBoxes fixed = Fixed({}, Both());
    EXPECT_EQ(fixed.txtTitle, u"Waterloo");
    EXPECT_EQ(fixed.txtArtist, u"Abba");
    EXPECT_EQ(fixed.txtTrackNr, u"07");
    EXPECT_EQ(fixed.txtV2Title, u"Waterloo");
    EXPECT_EQ(fixed.txtV2Artist, u"Abba");
    EXPECT_EQ(fixed.txtV2Track, u"07");
    // The pattern has neither.
    EXPECT_EQ(fixed.txtAlbum + fixed.txtV2Album + fixed.txtYear + fixed.cmbGenre, u"");
}

TEST_F(Fix, FillsAlbumYearAndGenreWhereThePatternHasThem) {
    pattern_ = u"%album - %year - %genre.mp3";
    path_ = u"/music/Arrival - 1976 - Pop.mp3";
    const TagBoxes fixed = Fixed({}, Both());
    EXPECT_EQ(fixed.txtAlbum, u"Arrival");
    EXPECT_EQ(fixed.txtYear, u"1976");
    EXPECT_EQ(fixed.cmbGenre, u"Pop");
    EXPECT_EQ(fixed.txtV2Album, u"Arrival");
    EXPECT_EQ(fixed.txtV2Year, u"1976");
    EXPECT_EQ(fixed.cmbV2Genre, u"Pop");
}

TEST_F(Fix, ACommentIsNeverTakenFromTheName) {
    pattern_ = u"%comment - %title.mp3";
    path_ = u"/music/Nice - Waterloo.mp3";
    EXPECT_EQ(Fixed({}, Both()).txtComments, u"");
    EXPECT_EQ(Fixed({}, Both()).txtV2Comments, u"");
}

TEST_F(Fix, WhatIsNotEmptyIsNotTakenFromTheName) {
    TagBoxes boxes;
    boxes.txtTitle = u"Fernando";
    EXPECT_EQ(Fixed(boxes, Both()).txtTitle, u"Fernando");
    EXPECT_EQ(Fixed(boxes, Both()).txtV2Title, u"Waterloo");
}

TEST_F(Fix, ATextThatIsEmptyOnlyAfterCleaningIsTakenFromTheName) {
    TagBoxes boxes;
    boxes.txtV2Title = u"   ";
    EXPECT_EQ(Fixed(boxes, Both()).txtV2Title, u"Waterloo");
}

TEST_F(Fix, YearsAndTracksKeepOnlyTheirCharacters) {
    TagBoxes boxes;
    boxes.txtYear = u"c.1976*";
    boxes.txtTrackNr = u"no 7";
    boxes.txtV2Year = u"in 1976/77";
    boxes.txtV2Track = u"track 7/12";
    const TagBoxes fixed = Fixed(boxes, Both());
    EXPECT_EQ(fixed.txtYear, u"1976");
    EXPECT_EQ(fixed.txtTrackNr, u"7");
    EXPECT_EQ(fixed.txtV2Year, u"1976/77");
    EXPECT_EQ(fixed.txtV2Track, u"7/12");
}

TEST_F(Fix, OnlyTheVersionsInScopeAreFixed) {
    const TagBoxes first = Fixed({}, {path_, true, false, {}});
    EXPECT_EQ(first.txtTitle, u"Waterloo");
    EXPECT_EQ(first.txtV2Title, u"");
    const TagBoxes second = Fixed({}, {path_, false, true, {}});
    EXPECT_EQ(second.txtTitle, u"");
    EXPECT_EQ(second.txtV2Title, u"Waterloo");
}

TEST_F(Fix, UntouchableBoxesAreLeftAlone) {
    FixScope scope = Both();
    scope.Untouchable[IndexOf(TagBox::txtV2Title)] = true;
    scope.Untouchable[IndexOf(TagBox::txtArtist)] = true;
    TagBoxes boxes;
    boxes.txtArtist = u"some_one";
    const TagBoxes fixed = Fixed(boxes, scope);
    EXPECT_EQ(fixed.txtV2Title, u"");
    EXPECT_EQ(fixed.txtArtist, u"some_one");
    EXPECT_EQ(fixed.txtTitle, u"Waterloo");
}

TEST_F(Fix, FixingTwiceChangesNothingMore) {
    TagBoxes boxes;
    boxes.txtTitle = u"some_title";
    boxes.txtV2Year = u"in 1976";
    const TagBoxes once = Fixed(boxes, Both());
    const TagBoxes twice = Fixed(once, Both());
    for (const TagBoxRow& row : TagBoxTable)
        EXPECT_EQ(once.*row.Value, twice.*row.Value) << row.Name;
}

}  // namespace
}  // namespace mdlPLM
