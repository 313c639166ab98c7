#include "core/tags/id3v1.h"

#include <gtest/gtest.h>

namespace mdlPLM {
namespace {

const Bytes Nul(1, '\0');

Bytes Padded(BytesView text, int width) { return PadString(text, width, Nul); }

// A trailer from its parts; `last` are the 30 bytes of the comment area.
Bytes Trailer(BytesView title, BytesView last, char genre) {
    return "TAG" + Padded(title, 30) + Padded("The Artist", 30) + Padded("The Album", 30) + "1999" +
           Padded(last, 30) + genre;
}

TEST(PadString, CutsAndPads) {
    EXPECT_EQ(PadString("abc", 5, "xy"), "abcxx");
    EXPECT_EQ(PadString("abc", 3, "x"), "abc");
    EXPECT_EQ(PadString("abc", 2, "x"), "ab");
    EXPECT_EQ(PadString("", 2, Nul), Bytes(2, '\0'));
}

TEST(PadString, ANegativeLengthIsZeroAndAnEmptyPadAddsNothing) {
    EXPECT_EQ(PadString("abc", -1, "x"), "");
    EXPECT_EQ(PadString("abc", 0, "x"), "");
    EXPECT_EQ(PadString("abc", 5, ""), "abc");
    EXPECT_EQ(PadString("abc", 2, ""), "ab");
}

TEST(FieldText, TheContinuationIsPutBehindBeforeTrimming) {
    EXPECT_EQ(FieldText(BytesView(" a \0x", 5), "b "), "a b");
    EXPECT_EQ(FieldText("a", ""), "a");
}

TEST(Continuation, StandsBetweenTheFirstTwoNuls) {
    EXPECT_EQ(Continuation(BytesView("Gold\0 rest\0x", 12)), " rest");
    EXPECT_EQ(Continuation(BytesView("\0rest", 5)), "rest");
    EXPECT_EQ(Continuation("Gold"), "");
    EXPECT_EQ(Continuation(BytesView("Gold\0", 5)), "");
    EXPECT_EQ(UpToNul(BytesView(" Gold\0rest", 10)), " Gold");
    EXPECT_EQ(UpToNul("Gold"), "Gold");
}

TEST(FieldText, EndsAtTheFirstNulAndIsTrimmed) {
    EXPECT_EQ(FieldText(Bytes("  a b \0 tail", 12)), "a b");
    EXPECT_EQ(FieldText("\ta"), "\ta");
    EXPECT_EQ(FieldText(Bytes("\0abc", 4)), "");
    EXPECT_EQ(FieldText("    "), "");
}

TEST(ID3v1, ReadsTheV10Layout) {
    const ID3v1Tag tag = ParseID3v1(Trailer("Title", "A comment that fills thirty ch", 17));
    EXPECT_TRUE(tag.Present());
    EXPECT_EQ(tag.Title, Padded("Title", 30));
    EXPECT_EQ(tag.Artist, Padded("The Artist", 30));
    EXPECT_EQ(tag.Album, Padded("The Album", 30));
    EXPECT_EQ(tag.Year, "1999");
    EXPECT_EQ(tag.Comment, "A comment that fills thirty ch");
    EXPECT_EQ(tag.Track, '\0');
    EXPECT_EQ(tag.Genre, 17);
}

TEST(ID3v1, ReadsTheTrackOfTheV11Layout) {
    const Bytes comment = "A comment that fills twentye" + Nul + "\x0C";
    const Bytes trailer = Trailer("Title", comment, '\xFF');
    const ID3v1Tag tag = ParseID3v1(trailer);
    EXPECT_EQ(tag.Track, 12);
    EXPECT_EQ(tag.Comment, "A comment that fills twentye" + Nul + Nul);
    EXPECT_EQ(tag.Genre, NoGenre);
    EXPECT_TRUE(HasTrackByte(trailer));
    EXPECT_EQ(RenderID3v1(tag), trailer);
}

TEST(ID3v1, TrackZeroIsNoTrackAndIsWrittenBackInTheV10Layout) {
    const Bytes trailer = Trailer("Title", "comment", '\0');
    const ID3v1Tag tag = ParseID3v1(trailer);
    EXPECT_EQ(tag.Track, '\0');
    EXPECT_TRUE(HasTrackByte(trailer));
    EXPECT_EQ(RenderID3v1(tag), trailer);
}

TEST(ID3v1, EveryTrailerSurvivesReadingAndWriting) {
    for (int zero = 0; zero < 2; ++zero)
        for (int track = 0; track < 256; ++track) {
            Bytes trailer = Trailer(Bytes(30, '\xE9'), Bytes(30, 'c'), static_cast<char>(track));
            trailer[125] = zero == 0 ? '\0' : 'x';
            trailer[126] = static_cast<char>(track);
            EXPECT_EQ(RenderID3v1(ParseID3v1(trailer)), trailer) << zero << ' ' << track;
        }
}

TEST(ID3v1, NoTrailerIsARecordWithGenre255) {
    for (const Bytes& bytes : {Bytes(128, 'x'), "tag" + Bytes(125, ' '), Bytes("TAG"), Bytes()}) {
        const ID3v1Tag tag = ParseID3v1(bytes);
        EXPECT_FALSE(tag.Present());
        EXPECT_EQ(tag.Tag, Bytes(3, '\0'));
        EXPECT_EQ(tag.Title, Bytes(30, '\0'));
        EXPECT_EQ(tag.Genre, NoGenre);
        EXPECT_FALSE(HasTrackByte(bytes) && tag.Present());
    }
}

TEST(ID3v1, AFreshRecordIsAllNul) {
    const ID3v1Tag tag;
    EXPECT_EQ(tag.Tag + tag.Title + tag.Artist + tag.Album + tag.Year + tag.Comment,
              Bytes(127, '\0'));
    EXPECT_EQ(tag.Genre, '\0');
}

TEST(ID3v1, FieldsOfAnyWidthAreWrittenAtTheirWidth) {
    ID3v1Tag tag;
    tag.Title = Bytes(40, 't');
    tag.Artist = "a";
    tag.Year = "";
    const Bytes trailer = RenderID3v1(tag);
    ASSERT_EQ(trailer.size(), ID3v1Size);
    EXPECT_EQ(trailer.substr(0, 63), "TAG" + Bytes(30, 't') + Padded("a", 30));
    EXPECT_EQ(trailer.substr(63), Bytes(65, '\0'));
}

ID3v1Tag LaidOut(const ID3v1Texts& texts, bool optimized) {
    ID3v1Tag tag;
    LayOutID3v1(tag, texts, optimized);
    return tag;
}

const Text Long45 = u"abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHI";

TEST(ID3v1Layout, PlainCutsEveryFieldAndTrimsTitleAndArtistOnly) {
    const ID3v1Tag tag =
        LaidOut({Text(u" ") + Long45, u" art ", u" alb ", u"19999", u" com "}, false);
    EXPECT_EQ(tag.Title, "abcdefghijklmnopqrstuvwxyz0123");
    EXPECT_EQ(tag.Artist, Padded("art", 30));
    EXPECT_EQ(tag.Album, Padded(" alb ", 30));
    EXPECT_EQ(tag.Year, "1999");
    EXPECT_EQ(tag.Comment, Padded(" com ", 30));
}

TEST(ID3v1Layout, OptimizedContinuesTheTitleInAnEmptyComment) {
    const ID3v1Tag tag = LaidOut({Long45, {}, {}, {}, {}}, true);
    EXPECT_EQ(tag.Title, "abcdefghijklmnopqrstuvwxyz0123");
    EXPECT_EQ(tag.Comment, Padded(Nul + "456789ABCDEFGHI", 30));
    EXPECT_EQ(tag.Album, Bytes(30, '\0'));
    EXPECT_EQ(tag.Year, Bytes(4, '\0'));
}

TEST(ID3v1Layout, OptimizedContinuesTheArtistBehindTheAlbum) {
    const ID3v1Tag tag = LaidOut({{}, Long45, u" The Album ", {}, {}}, true);
    EXPECT_EQ(tag.Artist, "abcdefghijklmnopqrstuvwxyz0123");
    EXPECT_EQ(tag.Album, Padded("The Album" + Nul + "456789ABCDEFGHI", 30));
}

TEST(ID3v1Layout, OptimizedTextIsShownWhole) {
    const ID3v1Texts texts{Long45, Long45 + u"JK", u"The Album", u"2001", u"A comment"};
    const ID3v1Texts shown = ShowID3v1(LaidOut(texts, true), true);
    EXPECT_EQ(shown.Title, texts.Title);
    EXPECT_EQ(shown.Artist, texts.Artist);
    EXPECT_EQ(shown.Album, texts.Album);
    EXPECT_EQ(shown.Year, texts.Year);
    EXPECT_EQ(shown.Comment, texts.Comment);
}

TEST(ID3v1Layout, WithATrackTheContinuationKeeps28Characters) {
    ID3v1Tag tag = LaidOut({Text(59, u't'), {}, {}, {}, {}}, true);
    tag.Track = 3;
    const ID3v1Texts shown = ShowID3v1(ParseID3v1(RenderID3v1(tag)), true);
    EXPECT_EQ(shown.Title, Text(57, u't'));
}

TEST(ID3v1Layout, BothBoxesEmptyLeave59Characters) {
    const Text title(59, u't');
    EXPECT_EQ(ShowID3v1(LaidOut({title, title, {}, {}, {}}, true), true).Title, title);
    EXPECT_EQ(ShowID3v1(LaidOut({title, title, {}, {}, {}}, true), true).Artist, title);
    EXPECT_EQ(ShowID3v1(LaidOut({title + u"x", {}, {}, {}, {}}, true), true).Title, title);
}

TEST(ID3v1Layout, ContinuationIsAppendedBeforeTrimming) {
    ID3v1Tag tag;
    tag.Title = PadString("Two ", 30, " ");
    tag.Comment = Padded("note" + Nul + "words " + Nul + "rest", 30);
    EXPECT_EQ(ShowID3v1(tag, true).Title, Text(u"Two") + Text(27, u' ') + u"words");
    EXPECT_EQ(ShowID3v1(tag, true).Comment, u"note");
    EXPECT_EQ(ShowID3v1(tag, false).Title, u"Two");
}

TEST(ID3v1Layout, AFieldWithoutRoomBehindItsNulHasNoContinuation) {
    ID3v1Tag tag;
    tag.Title = Bytes(30, 't');
    tag.Comment = Bytes(30, 'c');
    EXPECT_EQ(ShowID3v1(tag, true).Title, Text(30, u't'));
    tag.Comment[29] = '\0';
    EXPECT_EQ(ShowID3v1(tag, true).Title, Text(30, u't'));
    EXPECT_EQ(ShowID3v1(tag, true).Comment, Text(29, u'c'));
    tag.Comment[28] = '\0';
    tag.Comment[29] = 'x';
    EXPECT_EQ(ShowID3v1(tag, true).Title, Text(30, u't') + u"x");
}

TEST(ID3v1Layout, CharactersOutsideTheCodePageBecomeQuestionMarks) {
    const ID3v1Tag tag = LaidOut({u"\u00E5\u4E2D\U0001F600", {}, {}, {}, {}}, false);
    EXPECT_EQ(tag.Title, Padded("\xE5??", 30));
    EXPECT_EQ(ShowID3v1(tag, false).Title, u"\u00E5??");
}

TEST(ID3v1Layout, EntryLimitsOfTheOptimizedLayout) {
    EXPECT_EQ(OptimizedArtistLimit(0), 59);
    EXPECT_EQ(OptimizedArtistLimit(29), 30);
    EXPECT_EQ(OptimizedArtistLimit(30), 29);
    EXPECT_EQ(OptimizedArtistLimit(70), 0);
    EXPECT_EQ(OptimizedTitleLimit(0, false), 59);
    EXPECT_EQ(OptimizedTitleLimit(0, true), 57);
    EXPECT_EQ(OptimizedTitleLimit(10, false), 49);
    EXPECT_EQ(OptimizedTitleLimit(10, true), 47);
    EXPECT_EQ(OptimizedTitleLimit(28, true), 30);
    EXPECT_EQ(OptimizedTitleLimit(30, false), 30);
    EXPECT_EQ(OptimizedTitleLimit(70, true), 30);
}

}  // namespace
}  // namespace mdlPLM
