#include "app/dialogs/frame_picture.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace mdlPLM {
namespace {

using namespace std::string_literals;

enum class SizeForm { Plain, Groups };

Bytes SizeBytes(std::uint32_t size, SizeForm form) {
    const unsigned bits = form == SizeForm::Plain ? 8 : 7;
    Bytes bytes;
    for (unsigned i = 4; i-- > 0;)
        bytes.push_back(static_cast<char>((size >> (i * bits)) & ((1U << bits) - 1)));
    return bytes;
}

Bytes Frame(BytesView identifier, BytesView content, SizeForm form, char formatFlags = '\0') {
    Bytes frame(identifier);
    frame += SizeBytes(static_cast<std::uint32_t>(content.size()), form);
    frame.push_back('\0');
    frame.push_back(formatFlags);
    return frame.append(content);
}

/// Encoding, MIME type, picture type and description of a front cover; the data follow.
const Bytes FrontCover = "\0image/jpeg\0\3\0"s;

/// Data without a NUL in it, so that no place inside looks like padding.
Bytes Data(std::size_t size) { return Bytes(size, '\x55'); }

Bytes Picture(std::size_t size, SizeForm form) {
    return Frame("APIC", FrontCover + Data(size), form);
}

TEST(PicturesIn, TakesAFramesPictureApart) {
    const Bytes text = Picture(20, SizeForm::Plain);
    const auto pictures = PicturesIn(text);
    ASSERT_EQ(pictures.size(), 1U);
    EXPECT_EQ(pictures[0].MimeType, "image/jpeg");
    EXPECT_EQ(pictures[0].Type, 3);
    EXPECT_EQ(pictures[0].Data, Data(20));
}

TEST(PicturesIn, NothingIsFoundWhereNothingIs) {
    EXPECT_TRUE(PicturesIn("").empty());
    EXPECT_TRUE(PicturesIn(Bytes(3000, '\0')).empty());
    EXPECT_TRUE(PicturesIn("APIC").empty());
    EXPECT_TRUE(PicturesIn(Frame("TXXX", "\0abc"s, SizeForm::Plain)).empty());
}

TEST(PicturesIn, SkipsOverFramesThatMerelyNameAPicture) {
    const Bytes mention = Frame("TXXX", "\0APIC\0\0\0\x0E\0\0\0"s + FrontCover, SizeForm::Plain);
    const Bytes text = mention + Picture(300, SizeForm::Plain);
    const auto pictures = PicturesIn(text);
    ASSERT_EQ(pictures.size(), 1U);
    EXPECT_EQ(pictures[0].Data, Data(300));
}

TEST(PicturesIn, UnderstandsBothFormsOfSize) {
    for (SizeForm form : {SizeForm::Plain, SizeForm::Groups}) {
        for (std::size_t size : {100U, 128U, 300U, 20000U, 70000U}) {
            for (const Bytes& behind :
                 {Bytes(), Bytes(40000, '\0'), Bytes("\xFF\xFB\x90\x64") + Bytes(6, '\1'),
                  Frame("PRIV", Data(200), form) + Bytes(100, '\0')}) {
                const Bytes text = Frame("TLEN", "\0001234"s, form) + Picture(size, form) + behind;
                const auto pictures = PicturesIn(text);
                ASSERT_EQ(pictures.size(), 1U);
                // More may follow (a decoder stops by itself), but never less.
                ASSERT_GE(pictures[0].Data.size(), size);
                EXPECT_EQ(pictures[0].Data.substr(0, size), Data(size));
            }
        }
    }
}

TEST(PicturesIn, FramesBeforeThePictureMayBeLarge) {
    for (SizeForm form : {SizeForm::Plain, SizeForm::Groups}) {
        const Bytes text = Frame("PRIV", Bytes(5000, '\0'), form) + Picture(900, form) +
                           Picture(300, form) + Bytes(10, '\0');
        const auto pictures = PicturesIn(text);
        ASSERT_EQ(pictures.size(), 2U);
        EXPECT_EQ(pictures[0].Data, Data(900));
        EXPECT_EQ(pictures[1].Data.substr(0, 300), Data(300));
    }
}

TEST(PicturesIn, WhatIsLeftOfACutFrameIsSteppedOver) {
    const Bytes text = "half of a comment, then " + Picture(50, SizeForm::Plain);
    ASSERT_EQ(PicturesIn(text).size(), 1U);
    EXPECT_EQ(PicturesIn(text)[0].Data, Data(50));
}

TEST(PicturesIn, SizesThatCannotBeAreNotBelieved) {
    for (const Bytes& size :
         {"\xFF\xFF\xFF\xFF"s, "\x7F\x7F\x7F\x7F"s, "\x80\0\0\0"s, "\0\0\x7F\xFF"s}) {
        const Bytes hostile = Bytes("APIC").append(size).append(2, '\0') + FrontCover + "x";
        EXPECT_TRUE(PicturesIn(hostile).empty());
        const Bytes text = hostile + Picture(33, SizeForm::Plain);
        const auto pictures = PicturesIn(text);
        ASSERT_EQ(pictures.size(), 1U);
        EXPECT_EQ(pictures[0].Data, Data(33));
    }
}

TEST(PicturesIn, EveryTruncationIsHarmless) {
    const Bytes text = Frame("PRIV", Data(20), SizeForm::Plain) +
                       Frame("APIC", "\1image/png\0\3\xFF\xFEx\0y\0\0\0data"s, SizeForm::Plain);
    for (std::size_t length = 0; length <= text.size(); ++length) {
        for (const FramePicture& picture : PicturesIn(BytesView(text).substr(0, length)))
            EXPECT_LE(picture.Data.size(), length);
    }
    ASSERT_EQ(PicturesIn(text).size(), 1U);
    EXPECT_EQ(PicturesIn(text)[0].Data, "data");
}

TEST(PicturesIn, ReadsDescriptionsInEveryEncoding) {
    struct Case {
        Bytes Content;
        const char* Data;
    };
    const Case cases[] = {
        {"\0image/png\0\4back\0DATA"s, "DATA"},
        {"\3image/png\0\4b\xC3\xA5\0DATA"s, "DATA"},
        {"\1image/png\0\4\xFF\xFE\1\0\0\1\0\0DATA"s, "DATA"},
        {"\2image/png\0\4\0b\0\0DATA"s, "DATA"},
        {"\0image/png\0\4\0"s, ""},
        {"\0\0\4\0DATA"s, "DATA"},
    };
    for (const Case& c : cases) {
        const Bytes text = Frame("APIC", c.Content, SizeForm::Plain);
        const auto pictures = PicturesIn(text);
        ASSERT_EQ(pictures.size(), 1U);
        EXPECT_EQ(pictures[0].Type, 4);
        EXPECT_EQ(pictures[0].Data, c.Data);
    }
}

TEST(PicturesIn, ContentsThatHoldNoPictureGiveNone) {
    for (const Bytes& content : {Bytes(), "\0"s, "\7image/png\0\3\0x"s, "\0image/png"s,
                                 "\0image/png\0"s, "\0image/png\0\3"s, "\0image/png\0\3no end"s,
                                 "\0im\1age\0\3\0x"s, "\1image/png\0\3x\0y"s}) {
        EXPECT_TRUE(PicturesIn(Frame("APIC", content, SizeForm::Plain)).empty());
    }
}

TEST(PicturesIn, ALengthBeforeTheContentIsSteppedOver) {
    const Bytes content = SizeBytes(34, SizeForm::Groups) + FrontCover + Data(20);
    const Bytes text = Frame("APIC", content, SizeForm::Groups, '\1');
    ASSERT_EQ(PicturesIn(text).size(), 1U);
    EXPECT_EQ(PicturesIn(text)[0].Data, Data(20));
    // The flag means nothing when no length is there.
    const Bytes without = Frame("APIC", FrontCover + Data(20), SizeForm::Groups, '\1');
    ASSERT_EQ(PicturesIn(without).size(), 1U);
    EXPECT_EQ(PicturesIn(without)[0].Data, Data(20));
}

TEST(PictureTypeName, NamesEveryTypeOfTheStandard) {
    EXPECT_STREQ(PictureTypeName(0), "Other");
    EXPECT_STREQ(PictureTypeName(3), "Front cover");
    EXPECT_STREQ(PictureTypeName(20), "Publisher logotype");
    EXPECT_STREQ(PictureTypeName(21), "Other");
    EXPECT_STREQ(PictureTypeName(-1), "Other");
}

TEST(WithoutUnsynchronisation, DropsTheZeroBehindEach0xFF) {
    EXPECT_EQ(WithoutUnsynchronisation("\xFF\0\xE0\xFF\0\0\1\0"s), "\xFF\xE0\xFF\0\1\0"s);
    EXPECT_EQ(WithoutUnsynchronisation("\xFF"), "\xFF");
    EXPECT_EQ(WithoutUnsynchronisation(""), "");
}

}  // namespace
}  // namespace mdlPLM
