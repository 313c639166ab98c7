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

TEST(LanguageTest, ATextIsLookedUpLikeALiteral) {
    const Language upper([](const char* own) {
        return std::string_view(own) == "Disk full" ? Text(u"DISK FULL") : Text(u"other");
    });
    EXPECT_EQ(upper(TextView(u"Disk full")), u"DISK FULL");
    EXPECT_EQ(upper(u"Rock"), u"other");
    EXPECT_EQ(Language()(u"%1 \u00E5", {u"\u20AC"}), u"\u20AC \u00E5");
}

}  // namespace
}  // namespace mdlPLM
