#include "core/text/surrogates.h"

#include <gtest/gtest.h>

#include "core/text/code_page.h"

namespace mdlPLM {
namespace {

constexpr char16_t High = 0xD83D;
constexpr char16_t Low = 0xDE00;

TEST(Surrogates, APairIsAHighHalfBeforeALowOne) {
    EXPECT_TRUE(IsPairAt(Text{u'a', High, Low}, 1));
    EXPECT_FALSE(IsPairAt(Text{u'a', High, Low}, 0));
    EXPECT_FALSE(IsPairAt(Text{Low, High}, 0));
    EXPECT_FALSE(IsPairAt(Text{High}, 0));
    EXPECT_FALSE(IsPairAt({}, 0));
    EXPECT_TRUE(IsHighSurrogate(0xDBFF) && IsLowSurrogate(0xDFFF));
    EXPECT_FALSE(IsHighSurrogate(0xDC00) || IsLowSurrogate(0xE000));
}

TEST(Surrogates, TheFirstCharacterHasBothItsHalves) {
    EXPECT_EQ(FirstCharacter(Text{High, Low, u'a'}), (Text{High, Low}));
    EXPECT_EQ(FirstCharacter(Text{High, u'a'}), Text{High});
    EXPECT_EQ(FirstCharacter(u"ab"), u"a");
    EXPECT_EQ(FirstCharacter({}), u"");
}

TEST(HeldBytes, StandAlone) {
    const Text held = FromUtf8("a\xFF");
    EXPECT_EQ(held, (Text{u'a', HeldByte(0xFF)}));
    EXPECT_FALSE(IsHeldByteAt(held, 0));
    EXPECT_TRUE(IsHeldByteAt(held, 1));
    EXPECT_TRUE(IsHeldByteAt(Text{HeldByte(0x80)}, 0));
    EXPECT_FALSE(IsHeldByteAt(Text{High, HeldByte(0x80)}, 1));
    EXPECT_FALSE(IsHeldByteAt(Text{HeldByte(0x7F)}, 0));
    EXPECT_FALSE(IsHeldByteAt(Text{0xDD00}, 0));
}

}  // namespace
}  // namespace mdlPLM
