#include <gtest/gtest.h>

#include "core/names/fixing_rules.h"
#include "core/text/code_page.h"

namespace mdlPLM {
namespace {

Settings Nothing() {
    Settings settings;
    settings.bScoreToSpace = settings.b20toSpace = settings.bSpaces = false;
    settings.bParentheses = settings.bReplace = settings.bMisses = settings.bRemoveChars = false;
    settings.Change = 0;
    return settings;
}

struct OptionCase {
    bool Settings::*Option;
    TextView In;
    TextView On;
    TextView Off;
};

class FixTextOption : public testing::TestWithParam<OptionCase> {};

TEST_P(FixTextOption, WorksWhenOn) {
    const OptionCase& c = GetParam();
    Settings settings = Nothing();
    settings.strSettings = u"^~";
    EXPECT_EQ(ToUtf8(FixText(c.In, settings, {})), ToUtf8(c.Off));
    settings.*c.Option = true;
    EXPECT_EQ(ToUtf8(FixText(c.In, settings, {})), ToUtf8(c.On));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, FixTextOption,
    testing::Values(OptionCase{&Settings::bParentheses, u" ( live ) ", u"live", u"( live )"},
                    OptionCase{&Settings::bParentheses, u"()", u"", u"()"},
                    OptionCase{&Settings::bParentheses, u"((a))", u"(a)", u"((a))"},
                    OptionCase{&Settings::bParentheses, u"(a", u"(a", u"(a"},
                    OptionCase{&Settings::bParentheses, u"a)", u"a)", u"a)"},
                    OptionCase{&Settings::bParentheses, u"(", u"(", u"("},
                    OptionCase{&Settings::bRemoveChars, u"a^b~", u"ab", u"a^b~"},
                    OptionCase{&Settings::b20toSpace, u"a%20b", u"a b", u"a%20b"},
                    OptionCase{&Settings::bScoreToSpace, u"a_b", u"a b", u"a_b"},
                    OptionCase{&Settings::bSpaces, u"a    b", u"a b", u"a    b"},
                    OptionCase{&Settings::bMisses, u"() - a", u"a", u"() - a"},
                    OptionCase{&Settings::bMisses, u"a - ()", u"a", u"a - ()"},
                    OptionCase{&Settings::bMisses, u"() - () - a", u"() - a", u"() - () - a"},
                    OptionCase{&Settings::bMisses, u"a .MP3", u"a.mp3", u"a .MP3"},
                    OptionCase{&Settings::bMisses, u"a - .mp3", u"a.mp3", u"a - .mp3"},
                    OptionCase{&Settings::bMisses, u"a -.mp3", u"a.mp3", u"a -.mp3"},
                    OptionCase{&Settings::bMisses, u"a.mp3", u"a.mp3", u"a.mp3"},
                    OptionCase{&Settings::bMisses, u"a.b.c", u"a.b.c", u"a.b.c"},
                    OptionCase{&Settings::bMisses, u"a-b", u"a-b", u"a-b"},
                    OptionCase{&Settings::bMisses, u"- a", u"- a", u"- a"}));

TEST(FixText, BlanksAtTheEndsAlwaysGo) { EXPECT_EQ(FixText(u"  a  ", Nothing(), {}), u"a"); }

TEST(FixText, CharactersThatFileNamesCannotHoldStay) {
    EXPECT_EQ(FixText(u"AC/DC: what? -- <a>", Nothing(), {}), u"AC/DC: what? -- <a>");
}

TEST(FixText, CaseOptions) {
    const auto cased = [](int change) {
        Settings settings = Nothing();
        settings.Change = change;
        return FixText(u"the WINNER takes", settings, {});
    };
    EXPECT_EQ(cased(0), u"the WINNER takes");
    EXPECT_EQ(cased(1), u"The Winner Takes");
    EXPECT_EQ(cased(2), u"The winner takes");
    EXPECT_EQ(cased(3), u"THE WINNER TAKES");
    EXPECT_EQ(cased(4), u"the winner takes");
}

TEST(FixText, TheReplacementListWorksOnTheWholeText) {
    Settings settings = Nothing();
    const ReplacementList list = {{u"mp3", u"x"}, {u"&", u" and "}};
    EXPECT_EQ(FixText(u"a & b.mp3", settings, list), u"a & b.mp3");
    settings.bReplace = true;
    EXPECT_EQ(FixText(u"a & b.mp3", settings, list), u"a  and  b.x");
    settings.bSpaces = true;
    EXPECT_EQ(FixText(u"a & b.mp3", settings, list), u"a and b.x");
}

TEST(FixText, ParenthesesGoBeforeTheCaseIsChanged) {
    Settings settings;
    settings.bParentheses = true;
    EXPECT_EQ(FixText(u"(dancing_queen)", settings, {}), u"Dancing Queen");
}

TEST(FixText, TheRulesStandInTheirOrder) {
    const std::vector<BytesView> order = {"trim",
                                          "outer parentheses",
                                          "remove characters",
                                          "%20 to space",
                                          "underscore to space",
                                          "multiple spaces",
                                          "empty parentheses",
                                          "space before .mp3",
                                          "dash before .mp3",
                                          "trim again",
                                          "word capitals",
                                          "first letter",
                                          "upper case",
                                          "lower case",
                                          "replacement list",
                                          "multiple spaces again"};
    std::vector<BytesView> names;
    for (const Rule& rule : TagTextRules()) names.emplace_back(rule.Name);
    EXPECT_EQ(names, order);
}

TEST(FixText, TextsWithNothingInThemStayEmpty) {
    EXPECT_EQ(FixText(u"", Settings(), {}), u"");
    EXPECT_EQ(FixText(u"   ", Settings(), {}), u"");
}

}  // namespace
}  // namespace mdlPLM
