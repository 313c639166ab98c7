#include "core/names/fixing_rules.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text/code_page.h"

namespace mdlPLM {
namespace {

// Everything off, so that a case shows one rule alone.
Settings Nothing() {
    Settings settings;
    settings.bID3 = settings.bExtension = settings.bLowExtension = false;
    settings.bScoreToSpace = settings.b20toSpace = settings.bSpaces = false;
    settings.bParentheses = settings.bReplace = settings.bMisses = settings.bRemoveChars = false;
    settings.Change = 0;
    return settings;
}

Settings With(bool Settings::*option) {
    Settings settings = Nothing();
    settings.*option = true;
    return settings;
}

Settings WithCase(CaseOption option) {
    Settings settings = Nothing();
    settings.Change = static_cast<int>(option);
    return settings;
}

Text Rename(TextView name, const Settings& settings, const ReplacementList& list = {}) {
    return ApplyRules(FileNameRules(), Text(name), {settings, list});
}

Text ByRule(const char* ruleName, TextView text, const Settings& settings,
            const ReplacementList& list = {}) {
    for (const Rule& rule : FileNameRules())
        if (BytesView(rule.Name) == ruleName) return rule.Apply(Text(text), {settings, list});
    ADD_FAILURE() << "no rule " << ruleName;
    return {};
}

TEST(RemoveChars, RemovesOrKeepsTheListedOnes) {
    EXPECT_EQ(RemoveChars(u"a^b`c^", u"^`", RemoveMode::Remove), u"abc");
    EXPECT_EQ(RemoveChars(u"1a2b1", u"0123456789", RemoveMode::KeepOnly), u"121");
    EXPECT_EQ(RemoveChars(u"abc", u"", RemoveMode::Remove), u"abc");
    EXPECT_EQ(RemoveChars(u"abc", u"", RemoveMode::KeepOnly), u"");
    EXPECT_EQ(RemoveChars(u"", u"abc", RemoveMode::Remove), u"");
    EXPECT_EQ(RemoveChars(u"a\u00E9\uFFFFz", u"\u00E9\uFFFF", RemoveMode::Remove), u"az");
}

// One character to the user, two places in the text.
TEST(RemoveChars, TakeCharactersBeyondTheBasicPlaneWhole) {
    const Text note = u"\U0001F3B5";    // D83C DFB5
    const Text guitar = u"\U0001F3B8";  // D83C DFB8
    const Text mask = u"\U0001F7B5";    // D83D DFB5
    EXPECT_EQ(RemoveChars(u"a" + note + guitar + mask + u"b", note, RemoveMode::Remove),
              u"a" + guitar + mask + u"b");
    EXPECT_EQ(RemoveChars(note + u"a" + guitar, guitar + u"x", RemoveMode::KeepOnly), guitar);
    EXPECT_EQ(RemoveChars(note + guitar, guitar + note, RemoveMode::Remove), u"");
}

// What stands for a byte in no encoding is one half of no pair.
TEST(RemoveChars, TakeBytesInNoEncodingByThemselves) {
    const Text byte = FromUtf8("\xB5");
    const Text note = u"\U0001F3B5";
    EXPECT_EQ(RemoveChars(note + byte + u"a", byte, RemoveMode::Remove), note + u"a");
    EXPECT_EQ(RemoveChars(note + byte, note, RemoveMode::Remove), byte);
}

TEST(FirstLetter, TheFirstCharacterIsRaisedAsItStands) {
    // Their small letters have another capital, or none: dotted I, sharp S, ohm, kelvin, angstrom,
    // theta symbol.
    for (const char16_t c : Text(u"\u0130\u1E9E\u2126\u212A\u212B\u03F4"))
        EXPECT_EQ(FirstLetterUpper(Text(1, c) + u"AB"), Text(1, c) + u"ab") << int{c};
    EXPECT_EQ(FirstLetterUpper(u"\u00E5BC"), u"\u00C5bc");
    EXPECT_EQ(FirstLetterUpper(u"ABC"), u"Abc");
    EXPECT_EQ(FirstLetterUpper(u""), u"");
    Settings settings = WithCase(CaseOption::FirstLetter);
    EXPECT_EQ(FixText(u"\u212AELVIN", settings, {}), u"\u212Aelvin");
}

struct RuleCase {
    const char* Rule;
    TextView In;
    TextView Out;
};

class MissesRule : public testing::TestWithParam<RuleCase> {};

TEST_P(MissesRule, MendsTheNameWhenOnAndLeavesItWhenOff) {
    const auto& [rule, in, out] = GetParam();
    EXPECT_EQ(ToUtf8(ByRule(rule, in, With(&Settings::bMisses))), ToUtf8(out));
    EXPECT_EQ(ByRule(rule, in, Nothing()), in);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, MissesRule,
    testing::Values(
        RuleCase{"dots in the name", u"a.b.c.mp3", u"a b c.mp3"},
        RuleCase{"dots in the name", u"a.mp3", u"a.mp3"},
        RuleCase{"dots in the name", u"no dot", u"no dot"},
        RuleCase{"dots in the name", u"...", u"  ."},
        RuleCase{"empty parentheses", u"() - a() - b", u"a() - b"},
        RuleCase{"empty parentheses", u"a - () - ()", u"a"},
        RuleCase{"empty parentheses", u"a - () b - ()", u"a b - ()"},
        RuleCase{"empty parentheses", u"a () b", u"a () b"},
        RuleCase{"unspaced dash", u"a -b", u"a - b"},
        RuleCase{"unspaced dash", u"a -b -c", u"a - b -c"},
        RuleCase{"unspaced dash", u"a- b", u"a - b"},
        RuleCase{"unspaced dash", u"a- b- c", u"a - b- c"},
        RuleCase{"unspaced dash", u"a-b-c-d", u"a - b - c-d"},
        RuleCase{"unspaced dash", u"a - b-c", u"a - b-c"}, RuleCase{"unspaced dash", u"ab", u"ab"},
        RuleCase{"space before .mp3", u"a .mp3", u"a.mp3"},
        RuleCase{"space before .mp3", u"  a   .MP3", u"a.mp3"},
        RuleCase{"space before .mp3", u"a.mp3", u"a.mp3"},
        RuleCase{"space before .mp3", u"a .ogg", u"a .ogg"},
        RuleCase{"space before .mp3", u" .mp3", u".mp3"}, RuleCase{"leading dash", u" - a", u"a"},
        RuleCase{"leading dash", u"- a", u"a"}, RuleCase{"leading dash", u" - - a", u"a"},
        RuleCase{"leading dash", u"-a", u"-a"}, RuleCase{"leading dash", u" -a", u" -a"},
        RuleCase{"dash before .mp3", u"a - .mp3", u"a.mp3"},
        RuleCase{"dash before .mp3", u"a  - .Mp3", u"a.mp3"},
        RuleCase{"dash before .mp3", u"a -.mp3", u"a.mp3"},
        RuleCase{"dash before .mp3", u"a -.MP3", u"a.mp3"},
        RuleCase{"dash before .mp3", u"a-.mp3", u"a-.mp3"},
        RuleCase{"dash before .mp3", u" -.mp3", u".mp3"}, RuleCase{"trim", u"  a b ", u"a b"}));

TEST(FileNameRules, WhatTheFirstDashEndLeavesTheSecondTakes) {
    EXPECT_EQ(ByRule("dash before .mp3", u"a - - .mp3", With(&Settings::bMisses)), u"a.mp3");
}

TEST(FileNameRules, TheRulesStandInTheirOrder) {
    const std::vector<BytesView> order = {"remove characters",
                                          "illegal characters",
                                          "%20 to space",
                                          "underscore to space",
                                          "multiple spaces",
                                          "multiple dashes",
                                          "dots in the name",
                                          "empty parentheses",
                                          "unspaced dash",
                                          "space before .mp3",
                                          "leading dash",
                                          "dash before .mp3",
                                          "trim",
                                          "word capitals",
                                          "upper case",
                                          "lower case",
                                          "replacement list",
                                          "extension",
                                          "control characters"};
    std::vector<BytesView> names;
    for (const Rule& rule : FileNameRules()) names.emplace_back(rule.Name);
    EXPECT_EQ(names, order);
}

TEST(FileNameRules, IllegalCharactersGoWhateverTheSettings) {
    EXPECT_EQ(Rename(u"a\\b/c:d<e>f|g*h", Nothing()), u"a b c d e f g h");
    EXPECT_EQ(Rename(u"what?\"why\"", Nothing()), u"whatwhy");
}

TEST(FileNameRules, ControlCharactersBecomeBlanksAtTheEnd) {
    const Settings nothing = Nothing();
    Text all;
    for (char16_t c = 0; c < 0x20; ++c) all += c;
    all += u'\x7F';
    EXPECT_EQ(Rename(u"a" + all + u"b", nothing), u"a" + Text(33, u' ') + u"b");
    EXPECT_EQ(Rename(u"a\u0080\u00A0b", nothing), u"a\u0080\u00A0b");
    EXPECT_EQ(Rename(u"\tA\r\nB", With(&Settings::bSpaces)), u" A B");
    EXPECT_EQ(Rename(u"\tA\r\nB\n", With(&Settings::bMisses)), u"A  B");
    Settings usual;
    EXPECT_EQ(Rename(u"\nwhat\r\n now\x7F?.mp3", usual), u"what Now .mp3");
    // From a replacement and from the extension, too.
    EXPECT_EQ(Rename(u"axb", With(&Settings::bReplace), {{u"x", u"\n"}}), u"a b");
    usual.Extension = u"m\tp3";
    EXPECT_EQ(Rename(u"a.mp3", usual), u"A.m p3");
}

TEST(FileNameRules, BlanksAreCollapsedAndTrimmedAgainOnlyWhereTheyStandForControlCharacters) {
    const Settings usual;
    EXPECT_EQ(Rename(u"Mr. Blue Sky.mp3", usual), u"Mr  Blue Sky.mp3");
    Settings settings;
    settings.bReplace = true;
    EXPECT_EQ(Rename(u"xA.mp3", settings, {{u"X", u" "}}), u" a.mp3");
}

TEST(FileNameRules, DashesCollapseWhateverTheSettings) {
    EXPECT_EQ(Rename(u"a-----b", Nothing()), u"a-b");
    EXPECT_EQ(Rename(u"a - - - b", Nothing()), u"a - b");
    EXPECT_EQ(Rename(u"a -- - b", Nothing()), u"a - b");
    EXPECT_EQ(Rename(u"a -  - b", Nothing()), u"a -  - b");
}

TEST(FileNameRules, SpacesAndUnderscores) {
    EXPECT_EQ(Rename(u"a%20b_c  d", Nothing()), u"a%20b_c  d");
    EXPECT_EQ(Rename(u"a%20b_c  d", With(&Settings::b20toSpace)), u"a b_c  d");
    EXPECT_EQ(Rename(u"a%20b_c  d", With(&Settings::bScoreToSpace)), u"a%20b c  d");
    EXPECT_EQ(Rename(u"a%20b_c     d", With(&Settings::bSpaces)), u"a%20b_c d");
}

TEST(FileNameRules, ChosenCharactersAreRemovedFirst) {
    Settings settings = With(&Settings::bRemoveChars);
    settings.strSettings = u"^~:";
    EXPECT_EQ(Rename(u"a^b~c:d", settings), u"abcd");
    settings.bRemoveChars = false;
    EXPECT_EQ(Rename(u"a^b~c:d", settings), u"a^b~c d");
}

TEST(FileNameRules, ADoubleDashBecomesASpacedDash) {
    EXPECT_EQ(Rename(u"Abba--Waterloo.mp3", With(&Settings::bMisses)), u"Abba - Waterloo.mp3");
}

TEST(FileNameRules, DotsBeforeTheLastBecomeBlanks) {
    EXPECT_EQ(Rename(u"a.b.c.mp3", With(&Settings::bMisses)), u"a b c.mp3");
}

TEST(FileNameRules, NamesLeftWithNothingButSeparatorsAreTidied) {
    EXPECT_EQ(Rename(u" - Abba - .mp3", With(&Settings::bMisses)), u"Abba.mp3");
    EXPECT_EQ(Rename(u"01 - () - Waterloo.mp3", With(&Settings::bMisses)), u"01 - Waterloo.mp3");
}

struct CaseCase {
    TextView In;
    TextView Out;
};

class WordCapitals : public testing::TestWithParam<CaseCase> {};

TEST_P(WordCapitals, RaiseTheFirstLetterOfEveryWord) {
    EXPECT_EQ(ToUtf8(Rename(GetParam().In, WithCase(CaseOption::WordCapitals))),
              ToUtf8(GetParam().Out));
}

INSTANTIATE_TEST_SUITE_P(
    Names, WordCapitals,
    testing::Values(CaseCase{u"abba - waterloo.mp3", u"Abba - Waterloo.Mp3"},
                    CaseCase{u"ABBA - WATERLOO.MP3", u"Abba - Waterloo.Mp3"},
                    CaseCase{u"abba (live)", u"Abba (Live)"},
                    CaseCase{u"abba(live)", u"Abba(live)"}, CaseCase{u"a+b-c.d e", u"A+B-C.D E"},
                    CaseCase{u"don't stop", u"Don't Stop"},
                    CaseCase{u"rock'n'roll", u"Rock'n'roll"}, CaseCase{u"a 2pac b", u"A 2pac B"},
                    CaseCase{u"a @home", u"A @home"},
                    CaseCase{u"\u00E9t\u00E9 \u00F6ver \u00E5", u"\u00C9t\u00E9 \u00D6ver \u00C5"},
                    CaseCase{u"a (!x y", u"A (!X Y"}, CaseCase{u"a !!!", u"A !!!"},
                    CaseCase{u"a ", u"A "}, CaseCase{u" abba", u" Abba"},
                    CaseCase{u"-abba", u"-Abba"}, CaseCase{u".abba", u".Abba"},
                    CaseCase{u"+abba x", u"+Abba X"}, CaseCase{u"'abba", u"'abba"},
                    CaseCase{u"a \u00FF", u"A \u0178"}, CaseCase{u"a \u017Eb c", u"A \u017EB C"},
                    CaseCase{u"a - - b", u"A - B"}, CaseCase{u"x", u"X"}, CaseCase{u"", u""},
                    CaseCase{u" ", u" "}));

TEST(FileNameRules, OtherCaseOptions) {
    EXPECT_EQ(Rename(u"aBc \u00E5.Mp3", WithCase(CaseOption::None)), u"aBc \u00E5.Mp3");
    EXPECT_EQ(Rename(u"aBc \u00E5.Mp3", WithCase(CaseOption::FirstLetter)), u"aBc \u00E5.Mp3");
    EXPECT_EQ(Rename(u"aBc \u00E5.Mp3", WithCase(CaseOption::Upper)), u"ABC \u00C5.MP3");
    EXPECT_EQ(Rename(u"aBc \u00C5.Mp3", WithCase(CaseOption::Lower)), u"abc \u00E5.mp3");
}

TEST(FileNameRules, ReplacementsTouchTheNameAndNotTheExtension) {
    const ReplacementList list = {{u"mp3", u"ogg"}, {u"b", u"cc"}, {u"c", u""}, {u"", u"!"}};
    EXPECT_EQ(Rename(u"mp3 bab.mp3", With(&Settings::bReplace), list), u"ogg a.mp3");
    EXPECT_EQ(Rename(u"mp3 bab.mp3", Nothing(), list), u"mp3 bab.mp3");
    EXPECT_EQ(Rename(u"B mp3", With(&Settings::bReplace), list), u"B ogg");
}

TEST(FileNameRules, ReplacementsCanLeaveBlanksThatCollapse) {
    const ReplacementList list = {{u"feat", u""}};
    Settings settings = With(&Settings::bReplace);
    EXPECT_EQ(Rename(u"a feat b.mp3", settings, list), u"a  b.mp3");
    settings.bSpaces = true;
    EXPECT_EQ(Rename(u"a feat b.mp3", settings, list), u"a b.mp3");
}

struct ExtensionCase {
    TextView In;
    bool Change;
    bool Lower;
    TextView Extension;
    TextView Out;
};

class ExtensionRule : public testing::TestWithParam<ExtensionCase> {};

TEST_P(ExtensionRule, EndsTheName) {
    const ExtensionCase& c = GetParam();
    Settings settings = Nothing();
    settings.bExtension = c.Change;
    settings.bLowExtension = c.Lower;
    settings.Extension = c.Extension;
    EXPECT_EQ(Rename(c.In, settings), c.Out);
}

INSTANTIATE_TEST_SUITE_P(Names, ExtensionRule,
                         testing::Values(ExtensionCase{u"a.B.MP2", true, false, u"mp3", u"a.B.mp3"},
                                         ExtensionCase{u"A.MP3", false, true, u"mp3", u"A.mp3"},
                                         ExtensionCase{u"A.MP2", true, true, u"Mp3", u"A.mp3"},
                                         ExtensionCase{u"A.MP2", true, false, u"", u"A."},
                                         ExtensionCase{u"Abba", true, false, u"mp3", u"Abbamp3"},
                                         ExtensionCase{u"Abba", true, true, u"MP3", u"Abbamp3"},
                                         ExtensionCase{u"ABBA", false, true, u"mp3", u"ABBA"},
                                         ExtensionCase{u"A.MP3", false, false, u"x", u"A.MP3"},
                                         ExtensionCase{u"", true, true, u"mp3", u"mp3"}));

}  // namespace
}  // namespace mdlPLM
