#include "core/tags/standard/frame_body.h"

#include <gtest/gtest.h>

#include "core/tags/standard/inflate.h"
#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::B;

Frame FrameOf(TagForm form, const Bytes& flags, const Bytes& body) {
    Frame frame;
    frame.Id = "TIT2";
    frame.Form = form;
    frame.Flags = {flags[0], flags[1]};
    frame.Body = body;
    return frame;
}

Bytes ContentOfBody(TagForm form, const Bytes& flags, const Bytes& body) {
    const Content content = ContentOf(FrameOf(form, flags, body));
    return content.Readable ? Bytes(content.View) : "unreadable";
}

const Bytes Hello = B("\0hello hello hello");

TEST(StandardFrameBody, PlainContentIsAViewIntoTheTag) {
    const Bytes body = Hello;
    const Content content = ContentOf(FrameOf(TagForm::V23, B("\x60\0"), body));
    EXPECT_EQ(content.View.data(), body.data());
    EXPECT_EQ(content.View, body);
}

TEST(StandardFrameBody, CompressedContentIsRead) {
    const Bytes compressed = test::Deflated(Hello);
    const Bytes plainSize = test::Plain(Hello.size());
    const Bytes sevenBitSize = test::SevenBit(Hello.size());
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\x80"), plainSize + compressed), Hello);
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\xA0"), plainSize + "g" + compressed), Hello);
    EXPECT_EQ(ContentOfBody(TagForm::V24, B("\0\x09"), sevenBitSize + compressed), Hello);
    EXPECT_EQ(ContentOfBody(TagForm::V24, B("\0\x49"), "g" + sevenBitSize + compressed), Hello);
    EXPECT_EQ(ContentOfBody(TagForm::V24, B("\0\x08"), compressed), Hello);
}

TEST(StandardFrameBody, GroupAndDataLengthStandBeforeTheContent) {
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\x20"), "g" + Hello), Hello);
    EXPECT_EQ(ContentOfBody(TagForm::V24, B("\0\x40"), "g" + Hello), Hello);
    EXPECT_EQ(ContentOfBody(TagForm::V24, B("\0\x01"), test::SevenBit(18) + Hello), Hello);
    EXPECT_EQ(ContentOfBody(TagForm::V24, B("\0\x41"), "g" + test::SevenBit(18) + Hello), Hello);
}

TEST(StandardFrameBody, EncryptedContentIsNotRead) {
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\x40"), "m" + Hello), "unreadable");
    EXPECT_EQ(ContentOfBody(TagForm::V24, B("\0\x04"), "m" + Hello), "unreadable");
}

TEST(StandardFrameBody, UnsynchronisedContentIsRead) {
    const Bytes content = B("\1\xFF\xFE\xFF\0b\0");
    const Bytes plain = B("\1\xFF\xFE\xFF\0\0b\0");
    Frame frame = FrameOf(TagForm::V24, B("\0\x02"), plain);
    frame.Unsynchronised = true;
    // The bytes cannot be unsynchronised: FE follows FF.
    EXPECT_EQ(ContentOf(frame).View, frame.Body);
    const Bytes body = test::Unsynchronised(content);
    frame.Body = body;
    EXPECT_EQ(ContentOf(frame).View, content);
}

TEST(StandardFrameBody, DataLengthTellsThatNothingWasUnsynchronised) {
    const Bytes content = B("\0a\xFF\0b");
    const Bytes body = test::SevenBit(content.size()) + content;
    Frame frame = FrameOf(TagForm::V24, B("\0\x03"), body);
    frame.Unsynchronised = true;
    EXPECT_EQ(ContentOf(frame).View, content);
}

TEST(StandardFrameBody, DamagedContentIsNotRead) {
    const Bytes compressed = test::Plain(18) + test::Deflated(Hello);
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\x80"), compressed.substr(0, 12)), "unreadable");
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\x80"), B("\0\0")), "unreadable");
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\x80"), ""), "unreadable");
    EXPECT_EQ(ContentOfBody(TagForm::V24, B("\0\x49"), "g"), "unreadable");
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\x20"), ""), "unreadable");
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\x80"), test::Plain(5) + "no zlib"), "unreadable");
}

TEST(StandardFrameBody, AContentIsNeverBlownUp) {
    const Bytes bomb = test::Deflated(Bytes(8'000'000, 'x'));
    ASSERT_LT(bomb.size(), 20'000U);
    EXPECT_EQ(ContentOfBody(TagForm::V23, B("\0\x80"), test::Plain(8'000'000) + bomb),
              "unreadable");
    EXPECT_EQ(
        ContentOfBody(TagForm::V23, B("\0\x80"), test::Plain(0xFFFFFFFF) + test::Deflated(Hello)),
        Hello);
}

TEST(StandardFrameBody, InflatesUpToALimit) {
    const Bytes text(50'000, 'a');
    EXPECT_EQ(Inflated(test::Deflated(text), 50'000), text);
    EXPECT_EQ(Inflated(test::Deflated(text), 49'999), std::nullopt);
    EXPECT_EQ(Inflated("", 100), std::nullopt);
}

// --- carrying over ---

Bytes Carried(const Frame& frame, TagForm form) {
    const CarriedFrame carried = CarryOver(frame, form);
    return Bytes(carried.Flags.data(), 2) + Bytes(carried.View());
}

TEST(StandardFrameBody, IsCarriedOverAsItIs) {
    for (const TagForm form : {TagForm::V23, TagForm::V24})
        for (const Bytes& flags : {B("\0\0"), B("\xFF\xF0"), B("\x40\x80")})
            EXPECT_EQ(Carried(FrameOf(form, flags, "any bytes"), form), flags + "any bytes");
    const Bytes plain = B("\0a\xFF\0\0");
    Frame frame = FrameOf(TagForm::V24, B("\0\x02"), plain);
    frame.Unsynchronised = true;
    EXPECT_EQ(Carried(frame, TagForm::V24), B("\0\x02\0a\xFF\0\0"));
}

TEST(StandardFrameBody, WhatOnlyTheTagSaidIsPutRight) {
    const Bytes plain = B("\0a\xFF\0\0");
    Frame frame = FrameOf(TagForm::V24, B("\x10\0"), plain);
    frame.Unsynchronised = true;
    EXPECT_EQ(Carried(frame, TagForm::V24), B("\x10\0\0a\xFF\0"));
    const Bytes body = test::SevenBit(4) + B("\0a\xFF\0\0");
    Frame counted = FrameOf(TagForm::V24, B("\x10\x01"), body);
    counted.Unsynchronised = true;
    EXPECT_EQ(Carried(counted, TagForm::V24), B("\x10\x01\0\0\0\x04\0a\xFF\0"));
}

TEST(StandardFrameBody, PicturesOfTheFirstVersionGetAMimeType) {
    const Bytes jpeg = B("\1JPG\3\xFF\xFE\0\0data");
    Frame frame = FrameOf(TagForm::V22, B("\0\0"), jpeg);
    frame.Id = "APIC";
    EXPECT_EQ(Carried(frame, TagForm::V23), B("\0\0\1image/jpeg\0\3\xFF\xFE\0\0data"));
    for (const auto& [format, mime] : {std::pair("PNG", "image/png"), std::pair("-->", "-->"),
                                       std::pair("GIF", "image/gif"), std::pair("a?b", "image/")}) {
        const Bytes body = B("\0") + format + B("\0\0data");
        frame.Body = body;
        EXPECT_EQ(Carried(frame, TagForm::V23), B("\0\0\0") + mime + B("\0\0\0data"));
    }
}

TEST(StandardFrameBody, LinksOfTheFirstVersionGetALongIdentifier) {
    const Bytes link = B("TT2http://a\0");
    Frame frame = FrameOf(TagForm::V22, B("\0\0"), link);
    frame.Id = "LINK";
    EXPECT_EQ(Carried(frame, TagForm::V23), B("\0\0TIT2http://a\0"));
}

TEST(StandardFrameBody, FramesOfTheLastVersionLoseWhatTheUsualOneHasNot) {
    const Bytes compressed = "g" + test::SevenBit(Hello.size()) + test::Deflated(Hello);
    EXPECT_EQ(Carried(FrameOf(TagForm::V24, B("\x20\x49"), compressed), TagForm::V23),
              B("\x40\x20g") + Hello);
    const Bytes counted = test::SevenBit(Hello.size()) + Hello;
    EXPECT_EQ(Carried(FrameOf(TagForm::V24, B("\x70\x01"), counted), TagForm::V23),
              B("\xE0\0") + Hello);
    EXPECT_EQ(Carried(FrameOf(TagForm::V24, B("\0\x05"), counted), TagForm::V23),
              B("\0\x05") + counted);
}

}  // namespace
}  // namespace mdlPLM::standard
