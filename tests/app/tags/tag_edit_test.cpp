#include "app/tags/tag_edit.h"

#include <gtest/gtest.h>

#include "core/tags/id3v2_writer.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

using test::Frame;
using test::Noise;
using test::Nul;
using test::Nuls;
using test::TextFrame;

BoxChanges Change(TagBox box, Text text) {
    BoxChanges changes;
    changes[IndexOf(box)] = std::move(text);
    return changes;
}

Bytes Padded(BytesView text, char pad = '\0') { return PadString(text, 30, Bytes(1, pad)); }

// A trailer as another program pads it: with blanks.
ID3v1Tag BlankPadded() {
    ID3v1Tag tag;
    tag.Tag = "TAG";
    tag.Title = Padded("Old title", ' ');
    tag.Artist = Padded("Old artist", ' ');
    tag.Album = Padded("Old album", ' ');
    tag.Year = "99  ";
    tag.Comment = Padded("Old note", ' ');
    tag.Track = 5;
    tag.Genre = 17;
    return tag;
}

constexpr V1Style Keep{false, UnchangedFields::KeepBytes};
constexpr V1Style KeepOptimized{true, UnchangedFields::KeepBytes};
constexpr V1Style Anew{false, UnchangedFields::LayOutAnew};

const Text Long45 = u"abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHI";

TEST(TagBoxTable, EveryRowStandsAtItsBox) {
    TagBoxes boxes;
    for (std::size_t i = 0; i < TagBoxCount; ++i) {
        EXPECT_EQ(IndexOf(TagBoxTable[i].Box), i);
        EXPECT_EQ(TagBoxTable[i].Frame.empty(), TagBoxTable[i].Version == TagVersion::V1);
        Text& text = boxes.*TagBoxTable[i].Value;
        EXPECT_EQ(text, u"") << "two rows for one box: " << TagBoxTable[i].Name;
        text = u"x";
    }
}

TEST(ShowBoxes, TicksTheTagsThatTheFileHas) {
    FileTags tags;
    EXPECT_FALSE(ShowBoxes(tags, false).chkID3v1 || ShowBoxes(tags, false).chkID3v2);
    tags.V1.Tag = "TAG";
    EXPECT_TRUE(ShowBoxes(tags, false).chkID3v1);
    EXPECT_FALSE(ShowBoxes(tags, false).chkID3v2);
    tags.V2.ID = "ID3";
    EXPECT_TRUE(ShowBoxes(tags, false).chkID3v2);
}

TEST(ShowBoxes, ShowsTheFieldsOfBothTags) {
    FileTags tags;
    tags.V1 = BlankPadded();
    tags.V2.ID = "ID3";
    for (const KnownFrame& frame : KnownFrames)
        tags.V2.*frame.Field = "\xE9 of " + Bytes(frame.Identifier);
    const TagBoxes boxes = ShowBoxes(tags, false);
    EXPECT_EQ(boxes.txtTitle, u"Old title");
    EXPECT_EQ(boxes.txtArtist, u"Old artist");
    EXPECT_EQ(boxes.txtAlbum, u"Old album");
    EXPECT_EQ(boxes.txtYear, u"99");
    EXPECT_EQ(boxes.cmbGenre, u"Rock");
    EXPECT_EQ(boxes.txtTrackNr, u"5");
    EXPECT_EQ(boxes.txtComments, u"Old note");
    EXPECT_EQ(boxes.txtV2Title, u"\u00E9 of TIT2");
    EXPECT_EQ(boxes.txtV2Artist, u"\u00E9 of TPE1");
    EXPECT_EQ(boxes.txtV2Album, u"\u00E9 of TALB");
    EXPECT_EQ(boxes.txtV2Year, u"\u00E9 of TYER");
    EXPECT_EQ(boxes.cmbV2Genre, u"\u00E9 of TCON");
    EXPECT_EQ(boxes.txtV2Track, u"\u00E9 of TRCK");
    EXPECT_EQ(boxes.txtV2Comments, u"\u00E9 of COMM");
    EXPECT_EQ(boxes.txtV2Composer, u"\u00E9 of TCOM");
    EXPECT_EQ(boxes.txtV2OrigArtist, u"\u00E9 of TOPE");
    EXPECT_EQ(boxes.txtV2Copyright, u"\u00E9 of TCOP");
    EXPECT_EQ(boxes.txtV2Encoder, u"\u00E9 of TENC");
    EXPECT_EQ(boxes.txtV2URL, u"\u00E9 of WXXX");
}

TEST(ShowBoxes, AGenreWithoutANameAndTrackZeroShowAsNothing) {
    FileTags tags;
    tags.V1 = BlankPadded();
    tags.V1.Track = '\0';
    for (const char genre : {'\xFF', '\x94', '\xC8'}) {
        tags.V1.Genre = genre;
        EXPECT_EQ(ShowBoxes(tags, false).cmbGenre, u"");
    }
    EXPECT_EQ(ShowBoxes(tags, false).txtTrackNr, u"");
    tags.V1.Track = '\xFF';
    EXPECT_EQ(ShowBoxes(tags, false).txtTrackNr, u"255");
}

TEST(ShowBoxes, OptimizedTextsAreShownWhole) {
    FileTags tags;
    LayOutID3v1(tags.V1, {Long45, Long45, u"Album", {}, u"Note"}, true);
    tags.V1.Tag = "TAG";
    EXPECT_EQ(ShowBoxes(tags, true).txtTitle, Long45);
    EXPECT_EQ(ShowBoxes(tags, true).txtArtist, Long45);
    EXPECT_EQ(ShowBoxes(tags, false).txtTitle, Left(Long45, 30));
    EXPECT_EQ(ShowBoxes(tags, false).txtComments, u"Note");
}

TEST(TrackByte, IsANumberFrom1To255) {
    EXPECT_EQ(TrackByte(u"1"), 1);
    EXPECT_EQ(TrackByte(u"07"), 7);
    EXPECT_EQ(TrackByte(u"255"), '\xFF');
    for (const TextView text : {u"", u"0", u"256", u"99999999999999999999", u"abc"})
        EXPECT_EQ(TrackByte(text), '\0') << text.size();
}

TEST(TrackByte, AStarMakesItNoTrack) {
    for (const TextView text : {u"*", u"1*", u"*7"}) EXPECT_EQ(TrackByte(text), '\0');
}

TEST(EditedV1, WhatIsNotChangedKeepsItsBytes) {
    const ID3v1Tag old = BlankPadded();
    EXPECT_EQ(RenderID3v1(EditedV1(old, {}, Keep)), RenderID3v1(old));
    EXPECT_EQ(RenderID3v1(EditedV1(old, {}, KeepOptimized)), RenderID3v1(old));
    ID3v1Tag expected = old;
    expected.Album = Padded("New");
    EXPECT_EQ(RenderID3v1(EditedV1(old, Change(TagBox::txtAlbum, u"New"), Keep)),
              RenderID3v1(expected));
}

TEST(EditedV1, LaidOutAnewUnusedBytesAreNulNeverBlanks) {
    ID3v1Tag expected;
    LayOutID3v1(expected, {u"Old title", u"Old artist", u"Old album", u"99", u"Old note"}, false);
    expected.Track = 5;
    expected.Genre = 17;
    EXPECT_EQ(RenderID3v1(EditedV1(BlankPadded(), {}, Anew)), RenderID3v1(expected));
}

TEST(EditedV1, BytesThatNoBoxShowsAreKept) {
    ID3v1Tag old = BlankPadded();
    old.Comment = Padded("Note" + Nul + "more of the title");
    old.Title = Padded("A" + Nul + "B");
    const ID3v1Tag saved = EditedV1(old, {}, Anew);
    EXPECT_EQ(saved.Comment, old.Comment);
    EXPECT_EQ(saved.Title, old.Title);
    EXPECT_EQ(saved.Artist, Padded("Old artist"));
    EXPECT_EQ(EditedV1(old, Change(TagBox::txtComments, u"New"), Anew).Comment, Padded("New"));
}

TEST(EditedV1, FieldsThatShareATextAreKeptTogether) {
    ID3v1Tag old = BlankPadded();
    old.Comment = Padded("Note" + Nul + "more" + Nul + "hidden");
    const ID3v1Tag saved = EditedV1(old, {}, {true, UnchangedFields::LayOutAnew});
    EXPECT_EQ(saved.Comment, old.Comment);
    EXPECT_EQ(saved.Title, old.Title);
    EXPECT_EQ(saved.Artist, Padded("Old artist"));
}

TEST(EditedV1, ANewTitleGoesOnBehindTheFilesOwnComment) {
    const ID3v1Tag saved = EditedV1(BlankPadded(), Change(TagBox::txtTitle, Long45), KeepOptimized);
    EXPECT_EQ(saved.Title, "abcdefghijklmnopqrstuvwxyz0123");
    EXPECT_EQ(saved.Comment, Padded("Old note" + Nul + "456789ABCDEFGHI"));
    EXPECT_EQ(saved.Album, Padded("Old album", ' '));
    EXPECT_EQ(saved.Artist, Padded("Old artist", ' '));
}

TEST(EditedV1, ANewCommentKeepsTheWholeOptimizedTitle) {
    ID3v1Tag old = BlankPadded();
    LayOutID3v1(old, {Long45, Long45, u"Album", u"1999", u"Note"}, true);
    const ID3v1Tag saved = EditedV1(old, Change(TagBox::txtComments, u"Other note"), KeepOptimized);
    EXPECT_EQ(ShowID3v1(saved, true).Title, Long45);
    EXPECT_EQ(ShowID3v1(saved, true).Comment, u"Other note");
    EXPECT_EQ(ShowID3v1(saved, true).Artist, Long45);
    EXPECT_EQ(saved.Album, old.Album);
}

TEST(EditedV1, AShortNewTitleTakesTheOldContinuationAway) {
    ID3v1Tag old = BlankPadded();
    LayOutID3v1(old, {Long45, {}, {}, {}, u"Note"}, true);
    const ID3v1Tag saved = EditedV1(old, Change(TagBox::txtTitle, u"Short"), KeepOptimized);
    EXPECT_EQ(ShowID3v1(saved, true).Title, u"Short");
    EXPECT_EQ(saved.Comment, Padded("Note"));
}

TEST(EditedV1, APlainNewTitleLeavesTheCommentsBytes) {
    ID3v1Tag old = BlankPadded();
    LayOutID3v1(old, {Long45, {}, {}, {}, u"Note"}, true);
    const ID3v1Tag saved = EditedV1(old, Change(TagBox::txtTitle, u"Short"), Keep);
    EXPECT_EQ(saved.Title, Padded("Short"));
    EXPECT_EQ(saved.Comment, old.Comment);
}

TEST(EditedV1, TrackAndGenreChangeOnlyWhenTheirBoxesDo) {
    ID3v1Tag old = BlankPadded();
    old.Genre = '\xC8';
    EXPECT_EQ(EditedV1(old, {}, Anew).Genre, '\xC8');
    EXPECT_EQ(EditedV1(old, {}, Anew).Track, 5);
    EXPECT_EQ(EditedV1(old, Change(TagBox::cmbGenre, u"Jazz"), Anew).Genre, 8);
    EXPECT_EQ(EditedV1(old, Change(TagBox::cmbGenre, u""), Anew).Genre, NoGenre);
    EXPECT_EQ(EditedV1(old, Change(TagBox::cmbGenre, u"Blue Grass"), Anew).Genre, 0);
    EXPECT_EQ(EditedV1(old, Change(TagBox::txtTrackNr, u"12"), Anew).Track, 12);
    EXPECT_EQ(EditedV1(old, Change(TagBox::txtTrackNr, u""), Anew).Track, '\0');
}

TEST(EditedV1, AFileWithoutATrailerGetsAnEmptyOneWithoutGenre) {
    const ID3v1Tag none = ParseID3v1("");
    const Bytes trailer = RenderID3v1(EditedV1(none, {}, Keep));
    EXPECT_EQ(trailer, "TAG" + Nuls(124) + "\xFF");
}

// --- ID3v2 ---

struct Tag {
    Bytes Header;
    Bytes Text;
    ID3v2Tag Record;
};
Tag MakeTag(const Bytes& tagText, char flags = '\0') {
    const Bytes header = test::TagHeader(tagText.size(), 3, flags);
    return {header, tagText, ParseID3v2(header, tagText, ID3v2Parts::FieldsAndText)};
}

ID3v2Tag Edit(const Tag& tag, const BoxChanges& changes, HandOn which = HandOn::NotWhole,
              HiddenFrames hidden = HiddenFrames::Keep) {
    return EditedV2(tag.Record, HoldFrames({tag.Header, tag.Text}, which), changes, hidden);
}

const Bytes Utf16Title = Frame("TIT2", "\1\xFF\xFE" + Bytes("a\0b\0", 4));
const Bytes Utf8Artist = Frame("TPE1", "\3\xC3\xA9lite");
const Bytes Picture = Frame("APIC", Nul + "image/png" + Nuls(2) + Noise(900));
const Bytes Lyrics = Frame("USLT", Nul + "eng" + Nul + "COMMON PEOPLE");
const Bytes Private = Frame("PRIV", "owner" + Nul + Noise(50));
const Bytes Ten = "\xFF\xFB\x90\x64" + Bytes("audio!");

TEST(EditedV2, WithoutChangesTheRecordIsTheFiles) {
    const Tag tag =
        MakeTag(TextFrame("TIT2", "Title") + TextFrame("TALB", "Album") + Picture + Nuls(30) + Ten);
    const ID3v2Tag saved = Edit(tag, {});
    EXPECT_EQ(saved.Title, "Title");
    EXPECT_EQ(saved.Album, "Album");
    EXPECT_EQ(saved.OtherFrames, Picture + Nuls(30) + Ten);
}

TEST(EditedV2, AChangedBoxReplacesItsField) {
    const Tag tag = MakeTag(TextFrame("TIT2", "Title") + TextFrame("TALB", "Album") + Nuls(30));
    BoxChanges changes = Change(TagBox::txtV2Title, u"N\u00E9w \u4E2D");
    changes[IndexOf(TagBox::txtV2Album)] = u"";
    const ID3v2Tag saved = Edit(tag, changes);
    EXPECT_EQ(saved.Title, "N\xE9w ?");
    EXPECT_EQ(saved.Album, "");
    EXPECT_EQ(saved.OtherFrames, "");
}

TEST(EditedV2, EveryBoxHasItsFrame) {
    BoxChanges changes;
    for (const TagBoxRow& row : TagBoxTable)
        if (row.Version == TagVersion::V2) changes[IndexOf(row.Box)] = FromAscii(row.Name);
    const ID3v2Tag saved = Edit(MakeTag(""), changes);
    EXPECT_EQ(saved.Title + saved.Artist + saved.Album + saved.Year,
              "txtV2TitletxtV2ArtisttxtV2AlbumtxtV2Year");
    EXPECT_EQ(saved.Genre + saved.Track + saved.Comments, "cmbV2GenretxtV2TracktxtV2Comments");
    EXPECT_EQ(saved.Composer + saved.OrigArtist + saved.Copyright,
              "txtV2ComposertxtV2OrigArtisttxtV2Copyright");
    EXPECT_EQ(saved.Encoder + saved.URL, "txtV2EncodertxtV2URL");
}

TEST(EditedV2, WhatNoBoxShowsIsHandedOnByteForByte) {
    const Bytes frames = Utf16Title + Picture + Utf8Artist + Lyrics + Private;
    const Tag tag = MakeTag(frames + TextFrame("TALB", "Album") + Nuls(30) + Ten);
    const ID3v2Tag saved = Edit(tag, Change(TagBox::txtV2Album, u"New album"));
    EXPECT_EQ(BuildFrames(saved), BuildFrame("TALB", "New album") + frames + Nuls(30) + Ten);
}

TEST(EditedV2, ANewTextTakesTheUnshownFramesPlace) {
    const Tag tag = MakeTag(Utf16Title + Picture + Utf8Artist + Nuls(30));
    const ID3v2Tag saved = Edit(tag, Change(TagBox::txtV2Title, u"New"));
    EXPECT_EQ(BuildFrames(saved), BuildFrame("TIT2", "New") + Picture + Utf8Artist + Nuls(30));
}

TEST(EditedV2, ANewCommentBesideLyricsThatLookLikeOneLeavesThemWhole) {
    const Tag tag = MakeTag(Lyrics + test::CommentFrame("", "old") + Nuls(30));
    const ID3v2Tag saved = Edit(tag, Change(TagBox::txtV2Comments, u"new"));
    EXPECT_EQ(BuildFrames(saved), BuildFrame("COMM", "new") + Lyrics + Nuls(30));
}

TEST(EditedV2, ACommentsLanguageAndDescriptionStayUntilItsTextChanges) {
    const Bytes comment = Frame("COMM", Nul + "deu" + "was" + Nul + "Text");
    const Tag tag = MakeTag(comment + Nuls(30));
    EXPECT_EQ(BuildFrames(Edit(tag, Change(TagBox::txtV2Title, u"T"))),
              BuildFrame("TIT2", "T") + comment);
    EXPECT_EQ(BuildFrames(Edit(tag, Change(TagBox::txtV2Comments, u"new"))),
              BuildFrame("COMM", "new"));
}

TEST(EditedV2, AGenreByNumberStaysInABatchAndBecomesANameForOneFile) {
    const Bytes genre = TextFrame("TCON", "(17)");
    const Tag tag = MakeTag(genre + Nuls(30));
    EXPECT_EQ(BuildFrames(Edit(tag, {}, HandOn::NotWhole)), genre);
    EXPECT_EQ(BuildFrames(Edit(tag, {}, HandOn::NotWholeNoName)), BuildFrame("TCON", "Rock"));
}

TEST(EditedV2, APlainTextGenreStays) {
    const Bytes genre = TextFrame("TCON", "Rock");
    const Tag tag = MakeTag(genre + Nuls(30));
    for (const HandOn which : {HandOn::NotWhole, HandOn::NotWholeNoName})
        EXPECT_EQ(BuildFrames(Edit(tag, {}, which)), genre);
    EXPECT_EQ(BuildFrames(Edit(tag, Change(TagBox::cmbV2Genre, u"Jazz"))),
              BuildFrame("TCON", "Jazz"));
}

TEST(EditedV2, DroppingHiddenFramesKeepsTheKnownOnesThatNoBoxShows) {
    const Bytes second = test::CommentFrame("", "second");
    const Tag tag = MakeTag(Utf16Title + Picture + test::CommentFrame("", "first") + second +
                            Private + Nuls(30) + Ten);
    const ID3v2Tag saved = Edit(tag, {}, HandOn::NotWhole, HiddenFrames::Drop);
    EXPECT_EQ(BuildFrames(saved), BuildFrame("COMM", "first") + Utf16Title);
    const ID3v2Tag replaced =
        Edit(tag, Change(TagBox::txtV2Title, u"x"), HandOn::NotWhole, HiddenFrames::Drop);
    EXPECT_EQ(replaced.OtherFrames, "");
}

// The inserted NUL ends the text for the reader, and then it is not what the box shows.
TEST(EditedV2, ATextThatUnsynchronisationChangedIsHandedOnAsItWasBefore) {
    const Bytes title = TextFrame("TIT2", "\xFF\xE4h");
    const Bytes picture = test::PlainSizeFrame("APIC", test::LikeJpeg(900));
    const Tag tag = MakeTag(test::Unsynchronised(title + picture + TextFrame("TPE1", "Artist")),
                            test::UnsynchronisedFlag);
    EXPECT_EQ(BuildFrames(Edit(tag, {})), BuildFrame("TPE1", "Artist") + title + picture);
    EXPECT_EQ(BuildFrames(Edit(tag, Change(TagBox::txtV2Title, u"New"))),
              BuildFrame("TIT2", "New") + BuildFrame("TPE1", "Artist") + picture);
    EXPECT_EQ(BuildFrames(Edit(tag, {}, HandOn::NotWhole, HiddenFrames::Drop)),
              BuildFrame("TPE1", "Artist") + title);
}

TEST(EditedV2, DroppingHiddenFramesWritesTheTextOfAFrameThatIsNotFound) {
    const Tag tag = MakeTag(Picture + Nuls(20) + TextFrame("TIT2", "A title") + "rubbish");
    EXPECT_EQ(BuildFrames(Edit(tag, {}, HandOn::NotWhole, HiddenFrames::Drop)),
              BuildFrame("TIT2", "A title"));
    EXPECT_EQ(BuildFrames(
                  Edit(tag, Change(TagBox::txtV2Title, u""), HandOn::NotWhole, HiddenFrames::Drop)),
              "");
}

TEST(ChangesBetween, NamesWhatDiffers) {
    TagBoxes shown;
    shown.txtTitle = u"a";
    TagBoxes now = shown;
    now.txtV2URL = u"b";
    now.chkID3v1 = true;
    const BoxChanges changes = ChangesBetween(shown, now);
    for (std::size_t i = 0; i < TagBoxCount; ++i)
        EXPECT_EQ(changes[i].has_value(), i == IndexOf(TagBox::txtV2URL));
    EXPECT_EQ(changes[IndexOf(TagBox::txtV2URL)], u"b");
}

}  // namespace
}  // namespace mdlPLM
