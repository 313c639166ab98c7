#include "core/text/text.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/text/code_page.h"
#include "core/text/letter_case.h"

namespace mdlPLM {
namespace {

TEST(Text, LengthsAndPositionsAreClamped) {
    EXPECT_EQ(Left(u"abc", -1), u"");
    EXPECT_EQ(Left(u"abc", 2), u"ab");
    EXPECT_EQ(Left(u"abc", 9), u"abc");
    EXPECT_EQ(Right(u"abc", 2), u"bc");
    EXPECT_EQ(Right(u"abc", 9), u"abc");
    EXPECT_EQ(Mid(u"abc", 2), u"bc");
    EXPECT_EQ(Mid(u"abc", 4), u"");
    EXPECT_EQ(Mid(u"abc", 2, 1), u"b");
    EXPECT_EQ(Mid(u"abc", 0, 2), u"ab");
    EXPECT_EQ(Mid(u"abc", 2, -5), u"");
}

TEST(Text, PositionsAreOneBasedAndZeroMeansNotFound) {
    EXPECT_EQ(InStr(u"abcabc", u"c"), 3);
    EXPECT_EQ(InStr(4, u"abcabc", u"c"), 6);
    EXPECT_EQ(InStr(7, u"abcabc", u"c"), 0);
    EXPECT_EQ(InStr(2, u"abc", u""), 2);
    EXPECT_EQ(InStr(9, u"abc", u""), 0);
    EXPECT_EQ(InStrRev(u"a.b.c", u"."), 4);
    EXPECT_EQ(InStrRev(u"abc", u"."), 0);
}

TEST(Text, TrimRemovesBlanksOnly) {
    EXPECT_EQ(Trim(u"  a b  "), u"a b");
    EXPECT_EQ(Trim(u"\t a \n"), u"\t a \n");
    EXPECT_EQ(Trim(u"   "), u"");
}

TEST(Text, ReplaceNeverLooksIntoWhatItPut) {
    EXPECT_EQ(Replace(u"aaa", u"a", u"aa"), u"aaaaaa");
    EXPECT_EQ(Replace(u"a.b.c.d", u".", u" ", 2), u"a b c.d");
    EXPECT_EQ(Replace(u"abc", u"", u"x"), u"abc");
    EXPECT_EQ(Collapse(u"a     b", u"  ", u" "), u"a b");
}

TEST(Text, NumbersAreWrittenWithoutGroupingAndWithADot) {
    EXPECT_EQ(NumberText(1234567LL), u"1234567");
    EXPECT_EQ(NumberText(12.50, 2), u"12.5");
    EXPECT_EQ(NumberText(1234.0, 2), u"1234");
    EXPECT_EQ(NumberText(0.0, 2), u"0");
    EXPECT_EQ(NumberText(-0.001, 2), u"0");
}

TEST(Text, IntegerPartReadsTheNumberInFront) {
    EXPECT_EQ(IntegerPart(u"7.9x"), 7);
    EXPECT_EQ(IntegerPart(u"  12"), 12);
    EXPECT_EQ(IntegerPart(u"abc"), 0);
    EXPECT_EQ(IntegerPart(u"-3"), -3);
    EXPECT_TRUE(IsNumber(u" 2.5 "));
    EXPECT_FALSE(IsNumber(u"2x"));
    EXPECT_FALSE(IsNumber(u""));
    EXPECT_FALSE(IsNumber(u"."));
}

TEST(Text, IntegerPartEndsWhereItsRangeDoes) {
    constexpr long long Highest = std::numeric_limits<long long>::max();
    constexpr long long Lowest = std::numeric_limits<long long>::min();
    EXPECT_EQ(IntegerPart(u"9223372036854775807"), Highest);
    EXPECT_EQ(IntegerPart(u"9223372036854775808"), Highest);
    EXPECT_EQ(IntegerPart(u"99999999999999999999999.5"), Highest);
    EXPECT_EQ(IntegerPart(u"-9223372036854775808"), Lowest);
    EXPECT_EQ(IntegerPart(u"-9223372036854775809"), Lowest);
    EXPECT_EQ(IntegerPart(u"-99999999999999999999999"), Lowest);
    EXPECT_EQ(IntegerPart(u"9223372036854775799"), 9223372036854775799);
    EXPECT_EQ(IntegerPart(u"-9223372036854775799"), -9223372036854775799);
    EXPECT_EQ(Mid(u"abc", static_cast<Pos>(Lowest)), u"abc");
}

TEST(Text, AllDigits) {
    EXPECT_TRUE(IsAllDigits(u"0123456789"));
    EXPECT_FALSE(IsAllDigits(u""));
    EXPECT_FALSE(IsAllDigits(u"1 "));
    EXPECT_FALSE(IsAllDigits(u"\u0661"));
    EXPECT_TRUE(IsAllDigits(BytesView("42")));
    EXPECT_FALSE(IsAllDigits(BytesView("\xB2")));
}

TEST(LetterCase, MapsOneCharacterToOne) {
    EXPECT_EQ(UCase(u"abc\u00E5\u00E4\u00F6\u00E9\u00FF"), u"ABC\u00C5\u00C4\u00D6\u00C9\u0178");
    EXPECT_EQ(LCase(u"ABC\u00C5\u00C4\u00D6\u0178"), u"abc\u00E5\u00E4\u00F6\u00FF");
    EXPECT_EQ(UCase(u"\u00DF\u00B5"), u"\u00DF\u00B5");
    EXPECT_EQ(LCase(u"\u0130"), u"i");
    EXPECT_TRUE(EqualIgnoringCase(u"\u00C5bc", u"\u00E5BC"));
    EXPECT_FALSE(EqualIgnoringCase(u"abc", u"abcd"));
}

TEST(CodePage, EveryByteSurvivesBothWays) {
    Bytes all;
    for (int i = 0; i < 256; ++i) all.push_back(static_cast<char>(i));
    EXPECT_EQ(ToCodePage(FromCodePage(all)), all);
    EXPECT_EQ(FromCodePage("\x80\x81\x9F"), u"\u20AC\u0081\u0178");
}

TEST(CodePage, CharactersOutsideBecomeQuestionMarks) {
    EXPECT_EQ(ToCodePage(u"a\u4E2Db"), "a?b");
    EXPECT_EQ(ToCodePage(u"\U0001F600"), "?");
}

TEST(Utf8, AnyBytesSurviveBothWays) {
    const Bytes samples[] = {"plain",
                             "\xC3\xA5",
                             "\xE9t\xE9",
                             "\xF0\x9F\x98\x80",
                             "\xED\xA0\x80",
                             "\xC0\xAF",
                             "\xF0\x9F\x92\x80\x80",
                             "\xFF\xFE",
                             "\xE2\x82"};
    for (const Bytes& sample : samples) EXPECT_EQ(ToUtf8(FromUtf8(sample)), sample);
    EXPECT_EQ(FromUtf8("\xE9"), Text(1, 0xDCE9));
    EXPECT_TRUE(IsValidUtf8("\xC3\xA5"));
    EXPECT_FALSE(IsValidUtf8("\xE9"));
}

TEST(Utf8, HalfOfASurrogatePairThatStandsForNoByteIsAQuestionMark) {
    EXPECT_EQ(ToUtf8(Text{0xD83D, u'a', 0xDFFF}), "?a?");
    EXPECT_EQ(ToUtf8(Text{0xD83D, 0xDC80}), "\xF0\x9F\x92\x80");
}

TEST(Utf8, TextFilesAreUtf8OrTheCodePage) {
    EXPECT_EQ(FromTextFile("\xEF\xBB\xBF\xC3\xA5"), u"\u00E5");
    EXPECT_EQ(FromTextFile("\xE5\x80"), u"\u00E5\u20AC");
}

}  // namespace
}  // namespace mdlPLM
