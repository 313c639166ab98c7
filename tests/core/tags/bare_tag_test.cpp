#include "core/tags/bare_tag.h"

#include <gtest/gtest.h>

#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

using test::ExtendedFlag;
using test::Frame;
using test::LikeJpeg;
using test::Nul;
using test::Nuls;
using test::PlainSizeFrame;
using test::TextFrame;
using test::Unsynchronised;
using test::UnsynchronisedFlag;

constexpr char BothFlags = '\xC0';

const Bytes TenBytes = "\xFF\xFB\x90\x64" + Bytes("audio!");
const Bytes Title = TextFrame("TIT2", "A title");
const Bytes Wide = Frame("TPE1", "\1\xFF\xFE" + Bytes("a\0\xFF\0", 4));
const Bytes Picture = PlainSizeFrame("APIC", Nul + "image/jpeg" + Nuls(3) + LikeJpeg(3000));
const Bytes Frames = Title + Wide + Picture + TextFrame("TALB", "Album") + Nuls(40);

// Of a tag with these flags that holds `inner`; its own text when nothing is done to it.
Bytes Bare(char major, char flags, const Bytes& inner) {
    const Bytes text = inner + TenBytes;
    const Bytes bare =
        BareTagText({test::TagHeader(inner.size(), major, flags), text}).value_or(text);
    if (bare.size() < TenBytes.size()) return "too short";
    EXPECT_EQ(bare.substr(bare.size() - TenBytes.size()), TenBytes);
    return bare.substr(0, bare.size() - TenBytes.size());
}

TEST(BareTagText, WithoutFlagsThereIsNothingToDo) {
    for (const char major : {'\3', '\4'})
        EXPECT_FALSE(BareTagText({test::TagHeader(Frames.size(), major), Frames}).has_value());
    EXPECT_FALSE(BareTagText({{}, Unsynchronised(Frames)}).has_value());
}

TEST(BareTagText, LeavesOtherVersionsAlone) {
    const Bytes inner = test::ExtendedHeader + Unsynchronised(Frames);
    for (const char major : {'\2', '\5', '\xFF'}) EXPECT_EQ(Bare(major, '\xFF', inner), inner);
}

TEST(BareTagText, HasNoExtendedHeader) {
    const Bytes withChecksum = Bytes("\0\0\0\x0A\x80\0\0\0\0\x28", 10) + "\x12\x34TI";
    EXPECT_EQ(Bare(3, ExtendedFlag, test::ExtendedHeader + Frames), Frames);
    EXPECT_EQ(Bare(3, ExtendedFlag, withChecksum + Frames), Frames);
    EXPECT_EQ(Bare(4, ExtendedFlag, Bytes("\0\0\0\6\1\0", 6) + Frames), Frames);
}

TEST(BareTagText, AnExtendedHeaderThatCountsItsSizeOtherwiseIsSeen) {
    EXPECT_EQ(Bare(3, ExtendedFlag, Bytes("\0\0\0\6\0\0", 6) + Frames), Frames);
    EXPECT_EQ(Bare(4, ExtendedFlag, Bytes("\0\0\0\2\1\0", 6) + Frames), Frames);
}

TEST(BareTagText, AFlagWithoutAnExtendedHeaderTakesNothing) {
    for (const char major : {'\3', '\4'}) EXPECT_EQ(Bare(major, ExtendedFlag, Frames), Frames);
    EXPECT_EQ(Bare(3, ExtendedFlag, test::ExtendedHeader), test::ExtendedHeader);
    EXPECT_EQ(Bare(3, ExtendedFlag, Nuls(3)), Nuls(3));
    EXPECT_EQ(Bare(3, ExtendedFlag, ""), "");
}

TEST(BareTagText, OfVersion3IsSynchronisedAsAWhole) {
    const Bytes picture = PlainSizeFrame("APIC", "\xFF\xD8\xFF" + Nuls(2) + Bytes(300, 'x'));
    const Bytes frames = Title + Wide + picture + TextFrame("TALB", "Album") + Nuls(40);
    EXPECT_EQ(Bare(3, UnsynchronisedFlag, Unsynchronised(frames)), frames);
    EXPECT_EQ(Bare(3, BothFlags, Unsynchronised(test::ExtendedHeader + frames)), frames);
    EXPECT_EQ(Bare(3, UnsynchronisedFlag, Unsynchronised(Frames)), Frames);
}

TEST(BareTagText, SizesThatCountTheInsertedNulsAreMadeRight) {
    const auto written = [](BytesView identifier, const Bytes& content) {
        return PlainSizeFrame(identifier, Unsynchronised(content));
    };
    const Bytes picture = LikeJpeg(3000);
    const Bytes wide = Wide.substr(10);
    const Bytes inner = Title + written("TPE1", wide) + written("APIC", picture) +
                        TextFrame("TALB", "Album") + Nuls(40);
    const Bytes bare =
        Title + Wide + PlainSizeFrame("APIC", picture) + TextFrame("TALB", "Album") + Nuls(40);
    EXPECT_EQ(Bare(3, UnsynchronisedFlag, inner), bare);
    EXPECT_EQ(Bare(3, BothFlags, test::ExtendedHeader + inner), bare);
}

TEST(BareTagText, ATagThatHoldsASyncIsNotUnsynchronised) {
    EXPECT_EQ(Bare(3, UnsynchronisedFlag, Frames), Frames);
    EXPECT_EQ(Bare(4, UnsynchronisedFlag, Title + Wide), Title + Wide);
}

// ID3v2.4.0: each frame by itself, its size is that of what is written.
Bytes FrameOfVersion4(BytesView identifier, const Bytes& flags, const Bytes& content) {
    return Bytes(identifier) + test::SevenBitSize(content.size()) + flags + content;
}

TEST(BareTagText, OfVersion4IsSynchronisedFrameByFrame) {
    const Bytes content = LikeJpeg(3000);
    const Bytes picture = FrameOfVersion4("APIC", Nuls(2), content);
    const Bytes flags{"\0\2", 2};
    const Bytes inner = Title + FrameOfVersion4("TPE1", flags, Unsynchronised(Wide.substr(10))) +
                        FrameOfVersion4("APIC", flags, Unsynchronised(content)) + Nuls(40);
    for (const char tagFlags : {UnsynchronisedFlag, '\0'})
        EXPECT_EQ(Bare(4, tagFlags, inner), Title + Wide + picture + Nuls(40));
    const Bytes withoutOwn = Title + FrameOfVersion4("APIC", Nuls(2), Unsynchronised(content));
    EXPECT_EQ(Bare(4, UnsynchronisedFlag, withoutOwn), Title + picture);
    EXPECT_EQ(Bare(4, '\0', withoutOwn), withoutOwn);
}

// Without the flag nobody would look for the length.
TEST(BareTagText, OfVersion4LosesTheLengthBeforeUnsynchronisedContents) {
    const Bytes length = test::SevenBitSize(9);
    const Bytes inner = FrameOfVersion4("TPE1", Bytes("\0\3", 2), length + Nul + "An artist");
    EXPECT_EQ(Bare(4, UnsynchronisedFlag, inner), TextFrame("TPE1", "An artist"));
    const Bytes packed = FrameOfVersion4("TPE1", Bytes("\0\x0B", 2), length + "\xFF" + Nul + "z");
    EXPECT_EQ(Bare(4, UnsynchronisedFlag, packed),
              FrameOfVersion4("TPE1", Bytes("\0\x09", 2), length + "\xFFz"));
    const Bytes counted = FrameOfVersion4("TPE1", Bytes("\0\1", 2), length + Nul + "An artist");
    EXPECT_EQ(Bare(4, '\0', counted), counted);
}

TEST(BareTagText, WhatStandsBehindTheTagStays) {
    const Bytes behind = "\xFF" + Nul + "\xFF" + Nul + "ABCDEF";
    const Bytes inner = Unsynchronised(Wide);
    const Bytes header = test::TagHeader(inner.size(), 3, UnsynchronisedFlag);
    EXPECT_EQ(BareTagText({header, inner + behind}), Wide + behind);
    EXPECT_EQ(BareTagText({header, inner.substr(0, 14)}), Wide.substr(0, 13));
}

}  // namespace
}  // namespace mdlPLM
