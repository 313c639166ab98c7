#include "core/tags/standard/sizes.h"

#include <gtest/gtest.h>

#include "core/tags/standard/unsynchronisation.h"
#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::B;

TEST(StandardSizes, ArePlainOrOfSevenBitsAByte) {
    EXPECT_EQ(PlainNumber(B("\x01\x02\x03\x04")), 0x01020304U);
    EXPECT_EQ(PlainNumber(B("\x80\x00\x01")), 0x800001U);
    EXPECT_EQ(SevenBitNumber(B("\0\0\x02\x01")), 257U);
    EXPECT_EQ(SevenBitNumber(B("\x7F\x7F\x7F\x7F")), (1U << 28) - 1);
    EXPECT_TRUE(IsSevenBit(B("\x7F\0\0\x7F")));
    EXPECT_FALSE(IsSevenBit(B("\0\0\0\x80")));
}

TEST(StandardSizes, AreReadAsTheyWereWritten) {
    for (const std::size_t size : {0U, 1U, 127U, 128U, 255U, 256U, 70000U, (1U << 28) - 1}) {
        EXPECT_EQ(PlainNumber(test::Plain(size)), size);
        EXPECT_EQ(SevenBitNumber(test::SevenBit(size)), size);
        EXPECT_TRUE(IsSevenBit(test::SevenBit(size)));
    }
}

TEST(StandardUnsynchronisation, IsTakenAway) {
    EXPECT_EQ(Resynchronised(B("a\xFF\0\xE0z\xFF\0\0\xFF\0")), B("a\xFF\xE0z\xFF\0\xFF"));
    EXPECT_EQ(Resynchronised(B("\xFF\x01\xFF")), B("\xFF\x01\xFF"));
    EXPECT_EQ(Resynchronised(""), "");
}

TEST(StandardUnsynchronisation, IsTheMirrorOfItself) {
    for (const Bytes& bytes : {B("\xFF\xFB\x90\x64"), B("\xFF\0\xFF\xFF\xE0"), B("\xFF"), B("abc"),
                               B("\xFF\xFF\xFF\0\0\xFF\xDF")}) {
        const Bytes done = test::Unsynchronised(bytes);
        EXPECT_TRUE(CanBeUnsynchronised(done));
        EXPECT_EQ(Resynchronised(done), bytes);
    }
}

TEST(StandardUnsynchronisation, IsNotBelievedWhereSyncStands) {
    EXPECT_FALSE(CanBeUnsynchronised(B("a\xFF\xE0")));
    EXPECT_TRUE(CanBeUnsynchronised(B("a\xFF\xDF\xFF")));
    EXPECT_TRUE(CanBeUnsynchronised(""));
    EXPECT_TRUE(CanBeUnsynchronised("abc"));
}

}  // namespace
}  // namespace mdlPLM::standard
