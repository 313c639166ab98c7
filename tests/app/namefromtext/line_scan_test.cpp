#include "app/namefromtext/line_scan.h"

#include <gtest/gtest.h>

#include "core/text/code_page.h"

namespace mdlPLM {
namespace {

constexpr TextView Default = u"%track - %artist - %title.mp3";

struct Scan {
    ScanChoices Choices;
    Settings Values;
    ReplacementList Replacements;

    Scan() {
        Choices.InPattern = Default;
        Choices.OutPattern = Default;
    }
    [[nodiscard]] std::vector<Text> operator()(TextView text) const {
        return ScanLines(Text(text), Choices, Values, Replacements);
    }
    [[nodiscard]] Text One(TextView line) const {
        const std::vector<Text> names = (*this)(line);
        EXPECT_EQ(names.size(), 1U);
        return names.empty() ? Text() : names.front();
    }
};

using Names = std::vector<Text>;

struct LineCase {
    const char* Shows;
    TextView In;
    TextView Line;
    TextView Name;  // by the out-pattern [%track][%artist][%title][%album][%year]
};

class ScannedLine : public testing::TestWithParam<LineCase> {};

TEST_P(ScannedLine, GivesItsFields) {
    Scan scan;
    scan.Choices.InPattern = GetParam().In;
    scan.Choices.OutPattern = u"[%track][%artist][%title][%album][%year]";
    EXPECT_EQ(ToUtf8(scan.One(GetParam().Line)), ToUtf8(GetParam().Name)) << GetParam().Shows;
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, ScannedLine,
    testing::Values(
        LineCase{"the usual pattern", Default, u"07 - Abba - Waterloo",
                 u"[07][Abba][Waterloo][][]"},
        LineCase{"a line with the extension", Default, u"07 - Abba - Waterloo.mp3",
                 u"[07][Abba][Waterloo][][]"},
        LineCase{"placeholders in any case", u"%TRACK. %Title.mp3", u"07. Waterloo",
                 u"[07][][Waterloo][][]"},
        LineCase{"no literal at the end: the last field is empty", u"%track. %title",
                 u"07. Waterloo", u"[07][][][][]"},
        LineCase{"one literal at the end: empty too", u"%track. %title.", u"07. Waterloo",
                 u"[07][][][][]"},
        LineCase{"two literals at the end: one separates", u"%track. %title..", u"07. Water.loo",
                 u"[07][][Water][][]"},
        LineCase{"a literal in front is not used", u"Track %track. %title.mp3", u"07. Waterloo",
                 u"[07][][Waterloo][][]"},
        LineCase{"a separator that is missing", Default, u"Waterloo", u"[Waterloo][][][][]"},
        LineCase{"the second separator is missing", Default, u"07 - Waterloo",
                 u"[07][Waterloo][][][]"},
        LineCase{"a separator at the cursor: the field is empty", Default, u"07 -  - Waterloo",
                 u"[07][][Waterloo][][]"},
        LineCase{"separators keep their case", u"%artist BY %title.mp3", u"Abba by Waterloo",
                 u"[][Abba by Waterloo][][][]"},
        LineCase{"fields are trimmed", Default, u"  07   -   Abba   -   Waterloo  ",
                 u"[07][Abba][Waterloo][][]"},
        LineCase{"in the pattern's order", u"%title (%album) by %artist.mp3",
                 u"Waterloo (Gold) by Abba", u"[][Abba][Waterloo][Gold][]"},
        LineCase{"other placeholders are literal", u"%track %year %title.mp3", u"07 %year Waterloo",
                 u"[07][][Waterloo][][]"},
        LineCase{"no placeholders", u"just text", u"07 - Waterloo", u"[][][][][]"},
        LineCase{"an empty pattern", u"", u"07 - Waterloo", u"[][][][][]"},
        LineCase{"a track of one character", Default, u"7 - Abba - Waterloo",
                 u"[07][Abba][Waterloo][][]"},
        LineCase{"any one character", Default, u"A - Abba - Waterloo", u"[0A][Abba][Waterloo][][]"},
        LineCase{"tabs as separators", u"%track\t%title\t\t", u"07\tWaterloo\t3 12",
                 u"[07][][Waterloo][][]"},
        LineCase{"placeholders side by side", u"%track%title.mp3", u"07Waterloo",
                 u"[][][07Waterloo][][]"}));

TEST(LineScan, ALineWithTheUsualPatterns) {
    EXPECT_EQ(Scan().One(u"7 - Artist - Song"), u"07 - Artist - Song.mp3");
}

TEST(LineScan, BlankLinesGiveNoName) {
    EXPECT_EQ(Scan()(u"\r\n   \r\n01 - A - B\r\n\r\n"), Names{u"01 - A - B.mp3"});
    EXPECT_EQ(Scan()(u"   "), Names{});
}

TEST(LineScan, FieldsThatAreAllEmptyGiveUntitled) {
    Scan scan;
    scan.Choices.OutPattern = u"%title";
    EXPECT_EQ(scan(u"just a line"), Names{u"Untitled.mp3"});
    scan.Choices.OutPattern = u"  ";
    EXPECT_EQ(scan(u"just a line"), Names{u"Untitled.mp3"});
}

TEST(LineScan, ANameOfNothingButForbiddenCharactersIsLeftOut) {
    Scan scan;
    scan.Choices.OutPattern = u"?:?";
    EXPECT_EQ(scan(u"just a line"), Names{});
}

TEST(LineScan, LineFeedsAloneMakeOneSingleLine) {
    EXPECT_EQ(Scan()(u"01 - A - B\n02 - A - C\n"), Names{u"01 - A - B02 - A - C.mp3"});
    EXPECT_EQ(Scan()(u"01 - A - B\r02 - A - C\r\n03 - A - D"),
              (Names{u"01 - A - B02 - A - C.mp3", u"03 - A - D.mp3"}));
}

TEST(LineScan, ForbiddenCharactersAreReplacedInTheName) {
    EXPECT_EQ(Scan().One(u"1 - AC/DC - \"Who\" <is> it?|*:\\x"),
              u"01 - AC DC - Who  is  it    x.mp3");
}

TEST(LineScan, GenreAndCommentStayAsTheyStand) {
    Scan scan;
    scan.Choices.OutPattern = u"%genre %comment %TITLE %title.mp3";
    EXPECT_EQ(scan.One(u"1 - A - B"), u"%genre %comment %TITLE B.mp3");
}

TEST(LineScan, CharactersAreIgnoredAtBothEnds) {
    Scan scan;
    scan.Choices.chkIgnoreFirst = scan.Choices.chkIgnoreLast = true;
    const auto cut = [&](TextView first, TextView last) {
        scan.Choices.txtIgnoreFirst = first;
        scan.Choices.txtIgnoreLast = last;
        return scan.One(u"01 - A - Song");
    };
    EXPECT_EQ(cut(u"1", u"0"), u"01 - A - Song.mp3");
    EXPECT_EQ(cut(u"3", u"0"), u"- A - Song - .mp3");
    EXPECT_EQ(cut(u"2.9", u"1.9"), u"01 - A - Son.mp3");
    EXPECT_EQ(cut(u"1", u"13"), u"01 - A - Song.mp3");
    EXPECT_EQ(cut(u"1", u"12"), u"00 -  - .mp3");
    EXPECT_EQ(cut(u"99", u"1"), u" -  - .mp3");
}

TEST(LineScan, UntickedIgnoreBoxesAreNotRead) {
    Scan scan;
    scan.Choices.txtIgnoreFirst = u"5";
    scan.Choices.txtIgnoreLast = u"5";
    EXPECT_EQ(scan.One(u"01 - A - Song"), u"01 - A - Song.mp3");
}

struct IgnoreCase {
    TextView First;
    TextView Last;
    bool Faulty;
};

class IgnoreBoxes : public testing::TestWithParam<IgnoreCase> {};

TEST_P(IgnoreBoxes, AreReportedBeforeTheScan) {
    ScanChoices choices;
    choices.txtIgnoreFirst = GetParam().First;
    choices.txtIgnoreLast = GetParam().Last;
    EXPECT_FALSE(FaultOfIgnoreBoxes(choices).has_value());
    choices.chkIgnoreFirst = choices.chkIgnoreLast = true;
    EXPECT_EQ(FaultOfIgnoreBoxes(choices).has_value(), GetParam().Faulty);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, IgnoreBoxes,
    testing::Values(IgnoreCase{u"1", u"0", false}, IgnoreCase{u" 12 ", u"3.5", false},
                    IgnoreCase{u"0", u"0", true}, IgnoreCase{u"-1", u"0", true},
                    IgnoreCase{u"0.9", u"0", true}, IgnoreCase{u"1", u"-1", true},
                    IgnoreCase{u"", u"0", true}, IgnoreCase{u"1", u"", true},
                    IgnoreCase{u"two", u"0", true}, IgnoreCase{u"1", u"2x", true}));

TEST(LineScan, BoxesFillWhatThePatternLacks) {
    Scan scan;
    scan.Choices.InPattern = u"%track. %title.mp3";
    scan.Choices.OutPattern = u"%track-%artist-%album-%title.mp3";
    scan.Choices.txtArtist = u"Abba";
    scan.Choices.txtAlbum = u"Gold";
    EXPECT_EQ(scan(u"1. A\r\n2. B"), (Names{u"01-Abba-Gold-A.mp3", u"02-Abba-Gold-B.mp3"}));
    scan.Choices.InPattern = Default;
    EXPECT_EQ(scan(u"1 - Kim - A"), Names{u"01-Kim-Gold-A.mp3"});
}

TEST(LineScan, TheYearComesFromItsBoxOrNotAtAll) {
    Scan scan;
    scan.Choices.OutPattern = u"%title (%year).mp3";
    scan.Choices.txtYear = u"1998";
    EXPECT_EQ(scan.One(u"1 - A - B"), u"B ().mp3");
    scan.Choices.chkYear4All = true;
    EXPECT_EQ(scan.One(u"1 - A - B"), u"B (1998).mp3");
}

TEST(LineScan, FixFilenamesFixesTheFields) {
    Scan scan;
    scan.Choices.chkConvert = true;
    EXPECT_EQ(scan.One(u"1 - the_band - a  song"), u"01 - The Band - A Song.mp3");
    scan.Choices.chkConvert = false;
    EXPECT_EQ(scan.One(u"1 - the_band - a  song"), u"01 - the_band - a  song.mp3");
}

TEST(LineScan, ValuesForAllAreTakenAsTheyStand) {
    Scan scan;
    scan.Choices.chkConvert = true;
    scan.Choices.chkArtist4All = scan.Choices.chkAlbum4All = true;
    scan.Choices.txtArtist = u"the_BAND";
    scan.Choices.txtAlbum = u" the_RECORD ";
    scan.Choices.OutPattern = u"%artist[%album]%title.mp3";
    EXPECT_EQ(scan.One(u"1 - Kim - a song"), u"the_BAND[ the_RECORD ]A Song.mp3");
}

// Were the fixed value kept, each line would fix it once more.
TEST(LineScan, BoxesStartAgainOnEveryLine) {
    Scan scan;
    scan.Choices.chkConvert = true;
    scan.Choices.InPattern = u"%track. %title.mp3";
    scan.Choices.txtArtist = u"aa";
    scan.Values.bReplace = true;
    scan.Values.Change = 0;
    scan.Replacements = {{u"a", u"aa"}};
    EXPECT_EQ(scan(u"1. x\r\n2. y"), (Names{u"01 - aaaa - x.mp3", u"02 - aaaa - y.mp3"}));
}

TEST(LineScan, CharactersAreRemovedWhenTheirOptionIsOn) {
    Scan scan;
    scan.Values.strSettings = u"^~";
    EXPECT_EQ(scan.One(u"1 - A^ - B~"), u"01 - A^ - B~.mp3");
    scan.Values.bRemoveChars = true;
    EXPECT_EQ(scan.One(u"1 - A^ - B~"), u"01 - A - B.mp3");
}

TEST(LineScan, SettingsAndReplacementsAreThoseOfItsStart) {
    Scan scan;
    scan.Choices.chkConvert = true;
    scan.Values.bReplace = true;
    scan.Replacements = {{u"Waterloo", u"SOS"}};
    LineScan steps(u"1 - abba - waterloo", scan.Choices, scan.Values, scan.Replacements);
    scan.Values.Change = static_cast<int>(CaseOption::Upper);
    scan.Replacements.clear();
    Names names;
    steps.Step(1, names);
    EXPECT_EQ(names, Names{u"01 - Abba - SOS.mp3"});
}

TEST(LineScan, StepsGiveTheSameNames) {
    Text text;
    for (int i = 10; i < 60; ++i)
        text += NumberText(static_cast<long long>(i)) + u" - A - B\r\n\r\n";
    const Scan scan;
    Names names;
    LineScan steps(text, scan.Choices, scan.Values, scan.Replacements);
    std::size_t count = 1;
    while (steps.Step(7, names)) ++count;
    EXPECT_EQ(count, 15U);
    EXPECT_EQ(names.size(), 50U);
    EXPECT_EQ(names, scan(text));
    EXPECT_EQ(steps.Done(), steps.Total());
    EXPECT_FALSE(steps.Step(7, names));
    EXPECT_EQ(names.size(), 50U);
}

TEST(LineScan, TextsBeyondSixteenBitsAreScannedToTheirEnd) {
    Text text(40000, u' ');
    text += u"\r\n01 - A - B\r\n" + Text(40000, u'x') + u" - A - C";
    const Names names = Scan()(text);
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(names[0], u"01 - A - B.mp3");
    EXPECT_EQ(names[1], Text(40000, u'x') + u" - A - C.mp3");
}

TEST(LineScan, BinaryRubbishGivesNamesAndNoHarm) {
    Bytes bytes;
    for (int i = 0; i < 70000; ++i) bytes.push_back(static_cast<char>(i * 7 + i / 251));
    for (const Text& name : Scan()(FromCodePage(bytes)))
        EXPECT_EQ(name.find_first_of(u"\\/:?\"<>|*\r\n"), Text::npos);
}

}  // namespace
}  // namespace mdlPLM
