#include "core/tags/id3v2.h"

#include <gtest/gtest.h>

#include "core/tags/frames.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

using test::CommentFrame;
using test::Frame;
using test::Nul;
using test::TagHeader;
using test::TextFrame;

const Bytes TenBytes = "\xFF\xFB\x90\x64" + Bytes("audio!");

ID3v2Tag Parsed(const Bytes& tagText) {
    return ParseID3v2(TagHeader(tagText.size()), tagText, ID3v2Parts::Everything);
}

TEST(ID3v2Size, FourSevenBitGroupsWhateverTheirTopBits) {
    EXPECT_EQ(DecodeSize(Bytes("\0\0\0\0", 4)), 0);
    EXPECT_EQ(DecodeSize(Bytes("\0\0\1\x49", 4)), 201);
    EXPECT_EQ(DecodeSize("\x7F\x7F\x7F\x7F"), (1 << 28) - 1);
    EXPECT_EQ(DecodeSize(Bytes("\0\0\0\xC8", 4)), 200);
    EXPECT_EQ(DecodeSize("\xFF\xFF\xFF\xFF"), 255LL * (2097152 + 16384 + 128 + 1));
}

TEST(ID3v2Size, MissingBytesCountAsZero) {
    EXPECT_EQ(DecodeSize(""), 0);
    EXPECT_EQ(DecodeSize(Bytes("\0\1", 2)), 16384);
    EXPECT_EQ(DecodeSize(Bytes("\0\0\0\5extra", 9)), 5);
}

TEST(ID3v2Frame, TextStandsBehindTheEncodingByte) {
    EXPECT_EQ(GetFrameText(TextFrame("TIT2", "abc") + TextFrame("TPE1", "def"), "TIT2"), "abc");
    EXPECT_EQ(GetFrameText(TextFrame("TIT2", "abc") + TextFrame("TPE1", "def"), "TPE1"), "def");
    EXPECT_EQ(GetFrameText(TextFrame("TIT2", "abc"), "TALB"), "");
    EXPECT_EQ(GetFrameText(TextFrame("tit2", "abc"), "TIT2"), "");
    EXPECT_EQ(GetFrameText(Frame("TIT2", "\3abc"), "TIT2"), "abc");
}

TEST(ID3v2Frame, ASizeOfOneOrNoneGivesNoText) {
    EXPECT_EQ(GetFrameText(Frame("TIT2", Nul) + "rest", "TIT2"), "");
    EXPECT_EQ(GetFrameText(Frame("TIT2", "") + "rest", "TIT2"), "");
}

TEST(ID3v2Frame, ACommentOfSizeFiveOrLessGivesNoText) {
    for (std::size_t size = 0; size <= 5; ++size)
        EXPECT_EQ(GetFrameText(Frame("COMM", Bytes(size, 'x')) + "rest", "COMM"), "") << size;
    EXPECT_EQ(GetFrameText(Frame("COMM", "xxxxxy") + "rest", "COMM"), "y");
}

TEST(ID3v2Frame, ACommentBehindADescriptionComesWhole) {
    EXPECT_EQ(GetFrameText(CommentFrame("", "note"), "COMM"), "note");
    EXPECT_EQ(GetFrameText(CommentFrame("what", "a note") + "rest", "COMM"), "a note");
}

TEST(ID3v2Frame, OnlyWhatFollowsTheLastNulCounts) {
    EXPECT_EQ(GetFrameText(TextFrame("TIT2", "abc" + Nul), "TIT2"), "");
    EXPECT_EQ(GetFrameText(TextFrame("TIT2", "abc" + Nul + "de" + Nul + "f"), "TIT2"), "f");
    EXPECT_EQ(GetFrameText(TextFrame("WXXX", Nul + "http://x"), "WXXX"), "http://x");
}

TEST(ID3v2Frame, TheFirstMatchWinsEvenInsideAnotherFrame) {
    const Bytes text =
        TextFrame("TXXX", "x" + TextFrame("TIT2", "hidden")) + TextFrame("TIT2", "real");
    EXPECT_EQ(GetFrameText(text, "TIT2"), "hidden");
}

TEST(ID3v2Frame, ATagThatEndsInsideAFrameGivesWhatIsThere) {
    const Bytes frame = TextFrame("TIT2", "abcdef");
    EXPECT_EQ(GetFrameText(frame.substr(0, 14), "TIT2"), "abc");
    for (std::size_t length = 0; length <= 11; ++length)
        EXPECT_EQ(GetFrameText(frame.substr(0, length), "TIT2"), "") << length;
}

TEST(ID3v2Frame, IsCutOutWithHeaderAndContent) {
    const Bytes title = TextFrame("TIT2", "abc");
    const Bytes comment = CommentFrame("", "note");
    const Bytes artist = TextFrame("TPE1", "def");
    EXPECT_EQ(RemoveFrame(title + comment + artist, "COMM"), title + artist);
    EXPECT_EQ(RemoveFrame(title + comment + artist, "TIT2"), comment + artist);
    EXPECT_EQ(RemoveFrame(title, "TIT2"), "");
    EXPECT_EQ(RemoveFrame(title + title + artist, "TIT2"), title + artist);
}

TEST(ID3v2Frame, CuttingAFrameThatIsNotThereOrIsEmptyChangesNothing) {
    const Bytes title = TextFrame("TIT2", "abc");
    EXPECT_EQ(RemoveFrame(title, "TPE1"), title);
    EXPECT_EQ(RemoveFrame(Frame("TIT2", "") + title, "TIT2"), Frame("TIT2", "") + title);
    EXPECT_EQ(RemoveFrame("TIT2", "TIT2"), "TIT2");
}

TEST(ID3v2Frame, CuttingAFrameThatClaimsMoreThanThereIsEndsAtTheEnd) {
    const Bytes title = TextFrame("TIT2", "abc");
    EXPECT_EQ(RemoveFrame(title + "TPE1\x7F\x7F\x7F\x7F", "TPE1"), title);
    EXPECT_EQ(RemoveFrame(title + "TPE1\xFF\xFF\xFF\xFF" + Bytes(500, 'x'), "TPE1"), title);
}

TEST(ID3v2Genre, ReferencesAreResolved) {
    struct Case {
        const char* Raw;
        const char* Name;
    };
    const Case cases[] = {
        {"(17)", "Rock"},
        {"(17)Rock", "Rock"},
        {"(17)rock", "Rock"},
        {"(17)Hardrock", "Hardrock"},
        {"(17)  Hardrock ", "Hardrock"},
        {"(17) ", "Rock"},
        {"(0)", "Blues"},
        {"(017)", "Rock"},
        {"(200)", "Unknown"},
        {"(255)", "Unknown"},
        {"(256)", "Unknown"},
        {"(273)", "Unknown"},
        {"(99999999999999999999999)", "Unknown"},
        {"(200)unknown", "Unknown"},
        {"()", ""},
        {"()Rock", ""},
        {"(abc)", ""},
        {"(1 7)", ""},
        {"(-1)", ""},
        {"(abc)Rock", "Rock"},
        {"(RX)", ""},
        {"(4)(5)", "(5)"},
        {"x17)", "Rock"},
        {"17)", "Hip-Hop"},  // by position: what stands from the second character on
        {"7)", ""},
        {"(17", ""},
        {"17", ""},
        {"Rock", ""},
        {"", ""},
        {"(", ""},
        {")", ""},
    };
    for (const Case& c : cases) EXPECT_EQ(ResolveGenre(c.Raw), c.Name) << c.Raw;
}

TEST(ID3v2Tag, TwelveFieldsAreRead) {
    Bytes text;
    for (const KnownFrame& frame : KnownFrames) {
        const Bytes value = "value of " + Bytes(frame.Identifier);
        if (frame.Identifier == "COMM")
            text += CommentFrame("", value);
        else if (frame.Identifier == "WXXX")
            text += TextFrame("WXXX", Nul + value);
        else if (frame.Identifier == "TCON")
            text += TextFrame("TCON", "(17)" + value);
        else
            text += TextFrame(frame.Identifier, value);
    }
    const ID3v2Tag tag = Parsed(text);
    EXPECT_TRUE(tag.Present());
    EXPECT_EQ(tag.Version, "3.0");
    for (const KnownFrame& frame : KnownFrames)
        EXPECT_EQ(tag.*frame.Field, "value of " + Bytes(frame.Identifier));
    EXPECT_EQ(tag.OtherFrames, "");
}

TEST(ID3v2Tag, VersionIsMajorAndRevision) {
    EXPECT_EQ(ParseID3v2("ID3" + Bytes("\4\0\0\0\0\0\0", 7), "", ID3v2Parts::Everything).Version,
              "4.0");
    EXPECT_EQ(ParseID3v2("ID3\xFF\x0C" + Bytes(5, '\0'), "", ID3v2Parts::Everything).Version,
              "255.12");
}

TEST(ID3v2Tag, WithoutKnownFramesTheWholeTextIsOtherFrames) {
    const Bytes text = Frame("PRIV", "owner" + Nul + "data") + Bytes(20, '\0') + TenBytes;
    const ID3v2Tag tag = Parsed(text);
    for (const KnownFrame& frame : KnownFrames) EXPECT_EQ(tag.*frame.Field, "");
    EXPECT_EQ(tag.OtherFrames, text);
}

TEST(ID3v2Tag, OtherFramesKeepPaddingAndTheTenBytesBehindTheTag) {
    const Bytes picture = Frame("APIC", "picture");
    const ID3v2Tag tag = Parsed(TextFrame("TIT2", "a") + picture + TextFrame("TALB", "b") +
                                Bytes(5, '\0') + TenBytes);
    EXPECT_EQ(tag.Title, "a");
    EXPECT_EQ(tag.Album, "b");
    EXPECT_EQ(tag.OtherFrames, picture + Bytes(5, '\0') + TenBytes);
}

TEST(ID3v2Tag, OtherFramesAreEmptyWhenOnlyNulsAreLeft) {
    EXPECT_EQ(Parsed(TextFrame("TIT2", "a") + Bytes(500, '\0')).OtherFrames, "");
    EXPECT_EQ(Parsed(Bytes(10, '\0')).OtherFrames, "");
}

TEST(ID3v2Tag, OfTheSameFrameTwiceTheSecondIsAnotherFrame) {
    const ID3v2Tag tag = Parsed(CommentFrame("", "one") + CommentFrame("x", "two"));
    EXPECT_EQ(tag.Comments, "one");
    EXPECT_EQ(tag.OtherFrames, CommentFrame("x", "two"));
}

TEST(ID3v2Tag, ATagOfVersionTwoHasNoFieldsAndKeepsItsText) {
    const Bytes text = Bytes("TT2") + Bytes("\0\0\4\0abc", 7) + "TP1" + Bytes("\0\0\4\0def", 7);
    const ID3v2Tag tag = ParseID3v2(TagHeader(text.size(), 2), text, ID3v2Parts::Everything);
    EXPECT_EQ(tag.Version, "2.0");
    EXPECT_EQ(tag.Title + tag.Artist, "");
    EXPECT_EQ(tag.OtherFrames, text);
}

TEST(ID3v2Tag, ForANewNameOnlyItsFieldsAreWorkedOut) {
    const Bytes text = TextFrame("TIT2", "a") + TextFrame("TCON", "(17)") +
                       TextFrame("TCOM", "composer") + Frame("PRIV", "data");
    const ID3v2Tag tag = ParseID3v2(TagHeader(text.size()), text, ID3v2Parts::NameFields);
    EXPECT_EQ(tag.Title, "a");
    EXPECT_EQ(tag.Genre, "Rock");
    EXPECT_EQ(tag.Composer, "");
    EXPECT_EQ(tag.OtherFrames, "");
}

TEST(ID3v2Tag, NoID3IsAnEmptyRecord) {
    const ID3v2Tag tag =
        ParseID3v2("id3" + Bytes(7, '\0'), TextFrame("TIT2", "a"), ID3v2Parts::Everything);
    EXPECT_FALSE(tag.Present());
    EXPECT_EQ(tag.ID, Bytes(3, '\0'));
    EXPECT_EQ(tag.Title + tag.Version + tag.OtherFrames, "");
}

}  // namespace
}  // namespace mdlPLM
