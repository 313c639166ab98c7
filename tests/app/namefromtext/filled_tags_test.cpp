#include "app/namefromtext/filled_tags.h"

#include <gtest/gtest.h>

#include "core/text/code_page.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

constexpr TextView NewName = u"07 - Abba - Waterloo.mp3";

Bytes Padded(BytesView text, int width = 30) { return PadString(text, width, BytesView("\0", 1)); }

struct Filling {
    RunTagChoices Choices;
    Settings Values;
    ID3v1Tag V1;
    Bytes V2Frames;

    Filling() {
        Choices.OutPattern = u"%track - %artist - %title.mp3";
        V1.Genre = NoGenre;
    }
    void GiveAllForAll() {
        Choices.chkArtist4All = Choices.chkAlbum4All = Choices.chkYear4All = true;
        Choices.chkGenre4All = Choices.chkRelease4All = true;
        Choices.txtArtist = u"Box Artist";
        Choices.txtAlbum = u"Box Album";
        Choices.txtYear = u"1998";
        Choices.cmbGenre = u"Pop";
        Choices.txtReleaseDate = u"12 March 1998";
    }
    void GiveOwn() {
        V1.Tag = "TAG";
        V1.Title = Padded(BytesView("Own Title\0junk", 14));
        V1.Artist = Padded("Own Artist ");
        V1.Album = Padded("Own Album");
        V1.Year = "1974";
        V1.Comment = Padded("Own Comment");
        V1.Track = 3;
        V1.Genre = 17;
        V2Frames = test::TextFrame("TIT2", "Own Title") + test::TextFrame("TPE1", "Own Artist") +
                   test::TextFrame("TALB", "Own Album") + test::TextFrame("TYER", "1974") +
                   test::CommentFrame("", "Own Comment") + test::TextFrame("TRCK", "3/12") +
                   test::TextFrame("TCON", "(17)");
    }
    [[nodiscard]] ID3v1Tag First(TextView name = NewName) const {
        return FillID3v1(V1, name, Choices, Values);
    }
    [[nodiscard]] ID3v2Tag Second(TextView name = NewName) const {
        const Bytes header = test::TagHeader(V2Frames.size());
        const ID3v2Tag tag = ParseID3v2(header, V2Frames, ID3v2Parts::FieldsAndText);
        return FillID3v2({tag, header, V2Frames}, name, Choices, Values);
    }
};

TEST(FillID3v1, AnEmptyRecordIsFilledFromTheNewName) {
    const ID3v1Tag tag = Filling().First();
    EXPECT_EQ(tag.Tag, "TAG");
    EXPECT_EQ(tag.Title, Padded("Waterloo"));
    EXPECT_EQ(tag.Artist, Padded("Abba"));
    EXPECT_EQ(tag.Album, Padded(""));
    EXPECT_EQ(tag.Year, Padded("", 4));
    EXPECT_EQ(tag.Comment, Padded(""));
    EXPECT_EQ(tag.Track, 7);
    EXPECT_EQ(tag.Genre, NoGenre);
}

TEST(FillID3v1, TheFilesOwnValuesStayByteForByte) {
    for (const bool optimized : {false, true}) {
        Filling filling;
        filling.GiveOwn();
        filling.Values.bOptimizedID3v1 = optimized;
        const ID3v1Tag tag = filling.First();
        EXPECT_EQ(RenderID3v1(tag), RenderID3v1(filling.V1));
    }
}

TEST(FillID3v1, BoxesForAllComeBeforeTheFilesOwnValues) {
    Filling filling;
    filling.GiveOwn();
    filling.GiveAllForAll();
    const ID3v1Tag tag = filling.First();
    EXPECT_EQ(tag.Title, filling.V1.Title);
    EXPECT_EQ(tag.Artist, Padded("Box Artist"));
    EXPECT_EQ(tag.Album, Padded("Box Album"));
    EXPECT_EQ(tag.Year, "1998");
    EXPECT_EQ(tag.Comment, Padded("12 March 1998"));
    EXPECT_EQ(tag.Track, 3);
    EXPECT_EQ(tag.Genre, 13);
}

TEST(FillID3v1, AnUntickedBoxIsNotRead) {
    Filling filling;
    filling.GiveOwn();
    filling.GiveAllForAll();
    filling.Choices.chkArtist4All = false;
    EXPECT_EQ(filling.First().Artist, filling.V1.Artist);
}

TEST(FillID3v1, AnEmptyBoxForAllEmptiesTheField) {
    Filling filling;
    filling.GiveOwn();
    filling.Choices.chkArtist4All = filling.Choices.chkGenre4All = true;
    EXPECT_EQ(filling.First().Artist, Padded(""));
    EXPECT_EQ(filling.First().Genre, NoGenre);
}

TEST(FillID3v1, AFieldOfBlanksIsNotEmpty) {
    Filling filling;
    filling.V1.Artist = Bytes(30, ' ');
    EXPECT_EQ(filling.First().Artist, Bytes(30, ' '));
}

TEST(FillID3v1, TextsAreCutToTheirFields) {
    Filling filling;
    filling.GiveAllForAll();
    filling.Choices.txtArtist = Text(40, u'a');
    filling.Choices.txtYear = u"19982001";
    const ID3v1Tag tag = filling.First();
    EXPECT_EQ(tag.Artist, Bytes(30, 'a'));
    EXPECT_EQ(tag.Year, "1998");
    EXPECT_EQ(tag.Album, Padded("Box Album"));
}

TEST(FillID3v1, ALongArtistContinuesBehindTheAlbumInTheOptimizedLayout) {
    Filling filling;
    filling.GiveOwn();
    filling.Values.bOptimizedID3v1 = true;
    filling.Choices.chkArtist4All = true;
    filling.Choices.txtArtist = Text(30, u'a') + u"bcd";
    ID3v1Tag tag = filling.First();
    EXPECT_EQ(tag.Artist, Bytes(30, 'a'));
    EXPECT_EQ(tag.Album, Padded(BytesView("Own Album\0bcd", 13)));
    EXPECT_EQ(tag.Title, filling.V1.Title);
    EXPECT_EQ(tag.Comment, filling.V1.Comment);
    filling.V1 = tag;
    filling.Choices.txtArtist = u"Short";
    tag = filling.First();
    EXPECT_EQ(tag.Artist, Padded("Short"));
    EXPECT_EQ(tag.Album, Padded("Own Album"));
}

TEST(FillID3v1, ALongTitleKeepsItsEndBehindANewComment) {
    Filling filling;
    LayOutID3v1(filling.V1, {Text(30, u't') + u"end", u"A", u"B", u"1998", u"Old"}, true);
    filling.Values.bOptimizedID3v1 = true;
    filling.Choices.chkRelease4All = true;
    filling.Choices.txtReleaseDate = u"May";
    EXPECT_EQ(filling.First().Title, Bytes(30, 't'));
    EXPECT_EQ(filling.First().Comment, Padded(BytesView("May\0end", 7)));
}

struct TrackCase {
    TextView Name;
    int Track;
    const char* Second;
};

class TrackOfNewName : public testing::TestWithParam<TrackCase> {};

TEST_P(TrackOfNewName, IsANumber) {
    const Filling filling;
    EXPECT_EQ(static_cast<unsigned char>(filling.First(GetParam().Name).Track), GetParam().Track);
    EXPECT_EQ(filling.Second(GetParam().Name).Track, GetParam().Second);
}

INSTANTIATE_TEST_SUITE_P(
    Names, TrackOfNewName,
    testing::Values(TrackCase{u"07 - A - B.mp3", 7, "7"}, TrackCase{u"255 - A - B.mp3", 255, "255"},
                    TrackCase{u"256 - A - B.mp3", 0, "256"}, TrackCase{u"00 - A - B.mp3", 0, "0"},
                    TrackCase{u"A1 - A - B.mp3", 0, ""}, TrackCase{u"no track.mp3", 0, ""}));

TEST(FillID3v1, AGenreOfTheNewNameIsItsNumber) {
    Filling filling;
    filling.Choices.OutPattern = u"%title (%genre).mp3";
    EXPECT_EQ(filling.First(u"Waterloo (Pop).mp3").Genre, 13);
    EXPECT_EQ(filling.First(u"Waterloo (Polka rock).mp3").Genre, 0);
    filling.V1.Genre = 17;
    EXPECT_EQ(filling.First(u"Waterloo (Pop).mp3").Genre, 17);
}

TEST(FillID3v2, AnEmptyRecordIsFilledFromTheNewName) {
    const ID3v2Tag tag = Filling().Second();
    EXPECT_EQ(tag.Title, "Waterloo");
    EXPECT_EQ(tag.Artist, "Abba");
    EXPECT_EQ(tag.Album, "");
    EXPECT_EQ(tag.Year, "");
    EXPECT_EQ(tag.Comments, "");
    EXPECT_EQ(tag.Track, "7");
    EXPECT_EQ(tag.Genre, "");
}

TEST(FillID3v2, TheFilesOwnValuesStay) {
    Filling filling;
    filling.GiveOwn();
    filling.V2Frames += test::TextFrame("TCOM", "Own Composer") + test::Frame("USLT", "some words");
    const ID3v2Tag tag = filling.Second();
    EXPECT_EQ(tag.Title, "Own Title");
    EXPECT_EQ(tag.Artist, "Own Artist");
    EXPECT_EQ(tag.Album, "Own Album");
    EXPECT_EQ(tag.Year, "1974");
    EXPECT_EQ(tag.Comments, "Own Comment");
    EXPECT_EQ(tag.Track, "3/12");
    EXPECT_EQ(tag.Genre, "(17)Rock");
    EXPECT_EQ(tag.Composer, "Own Composer");
    EXPECT_EQ(tag.OtherFrames, test::Frame("USLT", "some words"));
}

TEST(FillID3v2, BoxesForAllComeBeforeTheFilesOwnValues) {
    Filling filling;
    filling.GiveOwn();
    filling.GiveAllForAll();
    const ID3v2Tag tag = filling.Second();
    EXPECT_EQ(tag.Title, "Own Title");
    EXPECT_EQ(tag.Artist, "Box Artist");
    EXPECT_EQ(tag.Album, "Box Album");
    EXPECT_EQ(tag.Year, "1998");
    EXPECT_EQ(tag.Comments, "12 March 1998");
    EXPECT_EQ(tag.Track, "3/12");
    EXPECT_EQ(tag.Genre, "(13)Pop");
}

TEST(FillID3v2, AFieldOfBlanksIsEmpty) {
    Filling filling;
    filling.V2Frames = test::TextFrame("TPE1", "   ") + test::TextFrame("TIT2", " ") +
                       test::TextFrame("TRCK", "  ");
    const ID3v2Tag tag = filling.Second();
    EXPECT_EQ(tag.Artist, "Abba");
    EXPECT_EQ(tag.Title, "Waterloo");
    EXPECT_EQ(tag.Track, "7");
    EXPECT_EQ(tag.Genre, "");
}

TEST(FillID3v2, AGenreThatTheTableLacksKeepsItsName) {
    Filling filling;
    filling.V2Frames = test::TextFrame("TCON", "(17)Polka rock");
    EXPECT_EQ(filling.Second().Genre, "(0)Polka rock");
}

TEST(FillID3v2, OtherFramesGoWhenTheyAreNotWanted) {
    Filling filling;
    filling.GiveOwn();
    filling.V2Frames += test::Frame("USLT", "some words");
    filling.Values.bRemHiddenID3 = true;
    EXPECT_EQ(filling.Second().OtherFrames, "");
}

// Frames whose text the reader does not give as it is meant: in UTF-16, as a plain genre, with a
// NUL at the end.
struct OddFrames : Filling {
    const Bytes Album = test::Frame("TALB", Bytes("\x01\xFE\xFF\0G\0o", 7));
    const Bytes Genre = test::TextFrame("TCON", "Rock");
    const Bytes Composer = test::TextFrame("TCOM", test::Nul + "Someone" + test::Nul);
    OddFrames() { V2Frames = Album + Genre + Composer; }
};

TEST(FillID3v2, FramesThatCannotBeShownAreHandedOn) {
    OddFrames filling;
    ID3v2Tag tag = filling.Second();
    EXPECT_EQ(tag.OtherFrames, filling.V2Frames);
    EXPECT_EQ(tag.Album + tag.Genre + tag.Composer, "");
    filling.Values.bRemHiddenID3 = true;
    filling.V2Frames += test::Frame("USLT", "some words");
    tag = filling.Second();
    EXPECT_EQ(tag.OtherFrames, filling.Album + filling.Genre + filling.Composer);
}

TEST(FillID3v2, FramesThatCannotBeShownGiveWayToANewValue) {
    OddFrames filling;
    filling.GiveAllForAll();
    const ID3v2Tag tag = filling.Second();
    EXPECT_EQ(tag.Album, "Box Album");
    EXPECT_EQ(tag.Genre, "(13)Pop");
    EXPECT_EQ(tag.OtherFrames, filling.Composer);
}

TEST(FillID3v2, AnEmptyTextOfTheFileGivesWayToTheNewName) {
    Filling filling;
    filling.V2Frames = test::TextFrame("TIT2", "Ended" + test::Nul);
    const ID3v2Tag tag = filling.Second();
    EXPECT_EQ(tag.Title, "Waterloo");
    EXPECT_EQ(tag.OtherFrames, "");
}

TEST(FillID3v2, ADescribedCommentStaysWhole) {
    Filling filling;
    filling.V2Frames = test::CommentFrame("about", "a comment");
    EXPECT_EQ(filling.Second().OtherFrames, filling.V2Frames);
    filling.Choices.chkRelease4All = true;
    filling.Choices.txtReleaseDate = u"May";
    EXPECT_EQ(filling.Second().OtherFrames, "");
    EXPECT_EQ(filling.Second().Comments, "May");
}

ID3v2Tag FillHardTag(const test::HardTag& tag, const Filling& filling) {
    const Bytes header = tag.Whole.substr(0, 10);
    const Bytes text = tag.Whole.substr(10);
    return FillID3v2({ParseID3v2(header, text, ID3v2Parts::FieldsAndText), header, text}, NewName,
                     filling.Choices, filling.Values);
}

TEST(FillID3v2, TheFilesOwnValuesStayInTagsThatAreHardToWalk) {
    for (const test::HardTag& tag : test::HardTags()) {
        SCOPED_TRACE(tag.What);
        Filling filling;
        const ID3v2Tag kept = FillHardTag(tag, filling);
        EXPECT_EQ(kept.Title + kept.Artist + kept.Year, "Old titleOld artist1999");
        EXPECT_EQ(kept.OtherFrames, tag.Kept + test::HardAlbum + test::Nuls(50));
        filling.Values.bRemHiddenID3 = true;
        const ID3v2Tag alone = FillHardTag(tag, filling);
        EXPECT_EQ(alone.Title + alone.Artist + alone.Year, "Old titleOld artist1999");
        EXPECT_EQ(alone.OtherFrames, test::HardAlbum);
    }
}

TEST(FillID3v2, ANewValueStandsOnceInTagsThatAreHardToWalk) {
    for (const test::HardTag& tag : test::HardTags()) {
        SCOPED_TRACE(tag.What);
        Filling filling;
        filling.GiveAllForAll();
        const ID3v2Tag filled = FillHardTag(tag, filling);
        EXPECT_EQ(filled.Artist + filled.Album, "Box ArtistBox Album");
        EXPECT_EQ(filled.OtherFrames, tag.Kept + test::Nuls(50));
    }
}

TEST(FillID3v2, AFieldWhoseFrameIsNotFoundIsWritten) {
    Filling filling;
    filling.Values.bRemHiddenID3 = true;
    filling.V2Frames = test::Nuls(20) + test::TextFrame("TALB", "Own Album") + "rubbish behind it";
    const ID3v2Tag tag = filling.Second();
    EXPECT_EQ(tag.Album, "Own Album");
    EXPECT_EQ(tag.OtherFrames, "");
}

TEST(FillID3v2, TextsOfAnyLengthAreTakenInTheCodePage) {
    Filling filling;
    filling.GiveAllForAll();
    filling.Choices.txtArtist = Text(300, u'\u00E5') + u"\u041A\u20AC";
    EXPECT_EQ(filling.Second().Artist, Bytes(300, '\xE5') + "?\x80");
}

}  // namespace
}  // namespace mdlPLM
