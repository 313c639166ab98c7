#include "core/tags/id3v2_writer.h"

#include <gtest/gtest.h>

#include "core/tags/frames.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

using test::Nul;
using test::Nuls;

TEST(BuildFrame, ATextFrameHoldsItsTextBehindOneByte) {
    EXPECT_EQ(BuildFrame("TIT2", "abc"), "TIT2" + Nuls(3) + "\4" + Nuls(3) + "abc");
}

TEST(BuildFrame, NoTextNoFrame) {
    for (const KnownFrame& frame : KnownFrames) EXPECT_EQ(BuildFrame(frame.Identifier, ""), "");
}

TEST(BuildFrame, ACommentHasALanguageAndAnEmptyDescription) {
    EXPECT_EQ(BuildFrame("COMM", "abc"), "COMM" + Nuls(3) + "\x08" + Nuls(3) + "eng" + Nul + "abc");
}

TEST(BuildFrame, AnAddressHasAnEmptyDescription) {
    EXPECT_EQ(BuildFrame("WXXX", "http://a"), "WXXX" + Nuls(3) + "\x0A" + Nuls(4) + "http://a");
}

TEST(BuildFrame, TheEncoderGoesWhenTheAudioIsAltered) {
    EXPECT_EQ(BuildFrame("TENC", "me"), "TENC" + Nuls(3) + "\3@" + Nuls(2) + "me");
}

TEST(BuildFrame, SizesAreSevenBitGroups) {
    EXPECT_EQ(BuildFrame("TIT2", Bytes(126, 'x')).substr(4, 4), Nuls(3) + "\x7F");
    EXPECT_EQ(BuildFrame("TIT2", Bytes(127, 'x')).substr(4, 4), Nuls(2) + "\1" + Nul);
    EXPECT_EQ(BuildFrame("TIT2", Bytes(200, 'x')).substr(4, 4), Nuls(2) + "\x01\x49");
    EXPECT_EQ(BuildFrame("TIT2", Bytes(16383, 'x')).substr(4, 4), Nul + "\1" + Nuls(2));
    EXPECT_EQ(BuildFrame("TIT2", Bytes(2097151, 'x')).substr(4, 4), "\1" + Nuls(3));
}

TEST(BuildFrame, EveryFrameReadsBackAsItsText) {
    for (const KnownFrame& frame : KnownFrames)
        for (const std::size_t length : {1U, 126U, 127U, 128U, 300U, 20000U}) {
            const Bytes text(length, 't');
            const Bytes built = BuildFrame(frame.Identifier, text);
            EXPECT_EQ(GetFrameText(built, frame.Identifier), text) << frame.Identifier << length;
            EXPECT_EQ(RemoveFrame(built + "rest", frame.Identifier), "rest");
        }
}

TEST(BuildTagHeader, DeclaresVersion230AndTheSize) {
    EXPECT_EQ(BuildTagHeader(0), "ID3\3" + Nuls(6));
    EXPECT_EQ(BuildTagHeader(42), "ID3\3" + Nuls(5) + "*");
    EXPECT_EQ(BuildTagHeader(201), "ID3\3" + Nuls(4) + "\x01\x49");
}

TEST(BuildTagHeader, EverySizeReadsBack) {
    for (const std::int64_t size :
         {std::int64_t{127}, std::int64_t{128}, std::int64_t{1} << 21, std::int64_t{1} << 28,
          (std::int64_t{1} << 28) + 12345, (std::int64_t{1} << 29) - 1})
        EXPECT_EQ(DecodeSize(BuildTagHeader(size).substr(6)), size);
}

TEST(BuildFrames, FramesStandInTheirOrderAndOtherFramesBehindThem) {
    ID3v2Tag tag;
    for (const KnownFrame& frame : KnownFrames) tag.*frame.Field = Bytes(frame.Identifier);
    tag.OtherFrames = "other frames";
    Bytes expected;
    for (const char* identifier : {"TIT2", "TALB", "TPE1", "TRCK", "TYER", "TCON", "COMM", "TENC",
                                   "TCOP", "TOPE", "TCOM", "WXXX"})
        expected += BuildFrame(identifier, identifier);
    EXPECT_EQ(BuildFrames(tag), expected + "other frames");
}

TEST(BuildFrames, TheGenreIsItsNameAndReadsBackAsNone) {
    ID3v2Tag tag;
    tag.Genre = "Rock";
    const Bytes frames = BuildFrames(tag);
    EXPECT_EQ(frames, BuildFrame("TCON", "Rock"));
    EXPECT_EQ(ParseID3v2(BuildTagHeader(0), frames, ID3v2Parts::Everything).Genre, "");
}

TEST(BuildFrames, AnEmptyRecordHasNone) { EXPECT_EQ(BuildFrames(ID3v2Tag()), ""); }

TEST(BuildFrames, WhatIsReadFromThemIsTheRecord) {
    ID3v2Tag tag;
    for (const KnownFrame& frame : KnownFrames)
        tag.*frame.Field = "\xE5 text of " + Bytes(frame.Identifier.substr(1));
    tag.Genre = "(17)Hardrock";
    tag.OtherFrames = test::Frame("PRIV", "x");
    const ID3v2Tag read = ParseID3v2(BuildTagHeader(0), BuildFrames(tag), ID3v2Parts::Everything);
    EXPECT_EQ(read.Genre, "Hardrock");
    tag.Genre = read.Genre;
    for (const KnownFrame& frame : KnownFrames) EXPECT_EQ(read.*frame.Field, tag.*frame.Field);
    EXPECT_EQ(read.OtherFrames, tag.OtherFrames);
}

}  // namespace
}  // namespace mdlPLM
