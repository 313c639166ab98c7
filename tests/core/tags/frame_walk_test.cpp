#include "core/tags/frame_walk.h"

#include <gtest/gtest.h>

#include "core/tags/id3v2_writer.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

using test::Frame;
using test::LikeJpeg;
using test::Noise;
using test::Nul;
using test::Nuls;
using test::Picture;
using test::PlainSizeFrame;
using test::TenBytes;
using test::TextFrame;

std::vector<std::size_t> Starts(const Bytes& tagText) {
    std::vector<std::size_t> starts;
    for (const WalkedFrame& frame : WalkFrames(tagText)) starts.push_back(frame.Start);
    return starts;
}

using Positions = std::vector<std::size_t>;

TEST(WalkFrames, GoesFromFrameToFrameUpToThePadding) {
    const Bytes title = TextFrame("TIT2", "A title");
    EXPECT_EQ(Starts(title + Picture + title + Nuls(50) + TenBytes),
              (Positions{0, title.size(), title.size() + Picture.size()}));
    EXPECT_EQ(Starts(title + TenBytes), Positions{0});
    EXPECT_EQ(Starts(title), Positions{0});
    EXPECT_EQ(Starts(""), Positions{});
    EXPECT_EQ(Starts(Nuls(100)), Positions{});
    EXPECT_EQ(Starts("TIT2"), Positions{});
}

TEST(WalkFrames, TakesSizesInEitherForm) {
    const Bytes longText = PlainSizeFrame("COMM", Nul + "eng" + Nul + Bytes(400, 'c'));
    const Bytes title = TextFrame("TIT2", "A title");
    const std::vector<WalkedFrame> frames = WalkFrames(longText + title + Nuls(20) + TenBytes);
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_FALSE(frames[0].SevenBitSize);
    EXPECT_EQ(frames[0].Length, longText.size());
    EXPECT_TRUE(frames[1].SevenBitSize);
}

TEST(WalkFrames, EndsWhereAFrameLeadsNowhere) {
    const Bytes broken = Bytes("TPE1") + Nuls(3) + "\x20" + Nuls(2) + "abc";
    EXPECT_EQ(Starts(TextFrame("TIT2", "A title") + broken), Positions{0});
    EXPECT_EQ(Starts("APIC\x7F\x7F\x7F\x7F" + Noise(300)), Positions{});
    EXPECT_EQ(Starts("tit2" + TextFrame("TIT2", "x").substr(4)), Positions{});
}

TEST(WalkFrames, PassesAnEmptyFrame) {
    const Bytes empty = Frame("TXXX", "");
    EXPECT_EQ(Starts(empty + TextFrame("TIT2", "a") + Nuls(10)), (Positions{0, 10}));
}

// Three frames of which the middle one is `middle`: its text is that of a peer.
std::vector<WalkedFrame> Between(const Bytes& middle) {
    return WalkFrames(TextFrame("TIT2", "A title") + middle + TextFrame("TPE1", "An artist") +
                      Nuls(30) + TenBytes);
}

void ExpectPassed(const std::vector<WalkedFrame>& frames, const Bytes& middle, bool sevenBit) {
    ASSERT_EQ(frames.size(), 3U);
    EXPECT_EQ(frames[1].Length, middle.size());
    EXPECT_EQ(frames[1].SevenBitSize, sevenBit);
}

// A plain size of 0x0230; in 7-bit groups it is 0x0130.
Bytes PlainWith(const Bytes& whereSevenBitsLead) {
    Bytes content = Noise(0x230);
    content.replace(0x130, whereSevenBitsLead.size(), whereSevenBitsLead);
    return PlainSizeFrame("PRIV", content);
}

TEST(WalkFrames, APlainSizeIsSeenWhereverItsSevenBitReadingLeads) {
    for (const Bytes& bytes : {Nul, Nuls(40), Bytes("\xFF"), TenBytes, TextFrame("TIT2", "inside"),
                               Bytes("TIT2"), Bytes("ABCD EFGH IJ")}) {
        const Bytes middle = PlainWith(bytes);
        ExpectPassed(Between(middle), middle, false);
    }
}

TEST(WalkFrames, ASevenBitSizeIsSeenWhereverItsPlainReadingLeads) {
    const Bytes middle = Frame("PRIV", Noise(300));
    const Bytes filler = PlainSizeFrame("TXXX", Noise(100));
    const Bytes text = TextFrame("TIT2", "A title") + middle + filler + filler + Nuls(500);
    const std::vector<WalkedFrame> frames = WalkFrames(text + TenBytes);
    ASSERT_EQ(frames.size(), 4U);
    EXPECT_EQ(frames[1].Length, middle.size());
    EXPECT_TRUE(frames[1].SevenBitSize);
}

TEST(WalkFrames, PassesFramesOfZerosOfAnySize) {
    for (std::size_t size = 1; size < 3000; size += 37) {
        const Bytes plain = PlainSizeFrame("GEOB", Nuls(size));
        ExpectPassed(Between(plain), plain, size < 256);
        const Bytes sevenBit = Frame("GEOB", Nuls(size));
        ExpectPassed(Between(sevenBit), sevenBit, true);
    }
}

TEST(WalkFrames, PassesPicturesOfAnySize) {
    for (std::uint32_t seed = 1; seed <= 250; ++seed) {
        const Bytes start = Nul + "image/jpeg" + Nul + "\x03" + Nul;
        const Bytes picture = PlainSizeFrame("APIC", start + LikeJpeg(200 + 97 * seed, seed));
        ExpectPassed(Between(picture), picture, false);
        const Bytes sevenBit = Frame("APIC", start + LikeJpeg(200 + 97 * seed, seed));
        ExpectPassed(Between(sevenBit), sevenBit, true);
    }
}

TEST(WalkFrames, PassesFramesInBothFormsInOneTag) {
    const Bytes tagText = Frame("COMM", Nul + "eng" + Nul + Bytes(300, 'c')) +
                          PlainSizeFrame("APIC", LikeJpeg(5000)) + Frame("USLT", Noise(700)) +
                          PlainSizeFrame("GEOB", Nuls(600)) + TextFrame("TIT2", "A title");
    const std::vector<WalkedFrame> frames = WalkFrames(tagText + Nuls(50) + TenBytes);
    ASSERT_EQ(frames.size(), 5U);
    std::vector<bool> forms;
    for (const WalkedFrame& frame : frames) forms.push_back(frame.SevenBitSize);
    EXPECT_EQ(forms, (std::vector<bool>{true, false, true, false, true}));
}

// The last frame has none behind it that would tell; what a save hands on stands there too.
TEST(WalkFrames, TheLastFrameEndsWhereOnlyPaddingFollows) {
    for (const Bytes& end : {Bytes(), Nuls(100), TenBytes, Nuls(100) + TenBytes,
                             Nuls(100) + TenBytes + Nuls(100) + TenBytes}) {
        const Bytes plain = PlainWith(Nul);
        EXPECT_EQ(WalkFrames(plain + end).at(0).Length, plain.size());
        const Bytes sevenBit = Frame("PRIV", Noise(300));
        EXPECT_EQ(WalkFrames(sevenBit + end).at(0).Length, sevenBit.size());
    }
}

TEST(WalkFrames, PaddingIsNoPartOfAFrameThatMayEndBeforeIt) {
    const Bytes comment = Frame("COMM", Nul + "eng" + Nul + Bytes(295, 'c'));
    EXPECT_EQ(WalkFrames(comment + Nuls(2000) + TenBytes).at(0).Length, comment.size());
}

TEST(WalkFrames, AWholeTagInsideAFrameIsPassed) {
    const Bytes inner = test::WholeTag(TextFrame("TIT2", "x") + TextFrame("TPE1", "y"), 100);
    const Bytes middle = PlainSizeFrame("GEOB", Noise(150) + inner + inner + inner);
    ExpectPassed(Between(middle), middle, false);
}

TEST(WalkTag, TellsWhetherItEndsCleanly) {
    const Bytes title = TextFrame("TIT2", "A title");
    EXPECT_TRUE(WalkTag(title + Nuls(100) + TenBytes).EndsCleanly);
    EXPECT_TRUE(WalkTag(title).EndsCleanly);
    EXPECT_TRUE(WalkTag("").EndsCleanly);
    EXPECT_FALSE(WalkTag(title + Nuls(5) + Noise(300)).EndsCleanly);
    EXPECT_FALSE(WalkTag(Noise(300)).EndsCleanly);
}

// Every place leads to two others, and all of them to the end.
TEST(WalkTag, TakesNoLongerThanATagHasPlaces) {
    Bytes tagText;
    while (tagText.size() < 2'000'000) tagText += "AAAA" + Bytes("\0\0\5\0\0\0", 6);
    EXPECT_EQ(WalkTag(tagText + Nuls(2000)).Frames.size(), 2'000'000U / 650 + 1);
}

}  // namespace
}  // namespace mdlPLM
