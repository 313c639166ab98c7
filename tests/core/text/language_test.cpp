#include "core/text/language.h"

#include <gtest/gtest.h>

namespace mdlPLM {
namespace {

TEST(LanguageTest, WithoutOneTextsAreAsTheyAreWritten) {
    EXPECT_EQ(Language()("%1 done, %2 failed", {u"12", u"3"}), u"12 done, 3 failed");
    EXPECT_EQ(Language()("nothing"), u"nothing");
}

TEST(LanguageTest, ValuesGoWhereTheTranslationWantsThem) {
    const Language swapped([](const char*) { return Text(u"%2 before %1"); });
    EXPECT_EQ(swapped("%1 and %2", {u"a", u"b"}), u"b before a");
}

TEST(LanguageTest, ValuesAreNeverFilledThemselves) {
    EXPECT_EQ(Language()("%1: %2", {u"%2", u"100%1"}), u"%2: 100%1");
}

TEST(LanguageTest, PercentSignsOfTheTextStay) {
    EXPECT_EQ(Language()("100%, %1, %0, %x, %9 and %", {u"a"}), u"100%, a, %0, %x, %9 and %");
}

}  // namespace
}  // namespace mdlPLM
