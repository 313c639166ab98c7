#include "app/namefromtext/pre_scan.h"

#include <gtest/gtest.h>

#include "core/text/code_page.h"

namespace mdlPLM {
namespace {

struct TagCase {
    const char* Shows;
    TextView Source;
    TextView Key;
    TextView Value;
};

class TagOfText : public testing::TestWithParam<TagCase> {};

TEST_P(TagOfText, IsWhatFollowsTheKey) {
    const TagCase& c = GetParam();
    EXPECT_EQ(ToUtf8(GetATag(c.Source, c.Key)), ToUtf8(c.Value)) << c.Shows;
}

INSTANTIATE_TEST_SUITE_P(
    Keys, TagOfText,
    testing::Values(
        TagCase{"up to the line end", u"Artist: Foo\r\nx", u"artist:", u"Foo"},
        TagCase{"no line end: the last character goes", u"Artist: Foo", u"artist:", u"Fo"},
        TagCase{"key in any case", u"aRTisT: Foo\r\n", u"ARTIST:", u"Foo"},
        TagCase{"a key that is absent", u"Album: Foo\r\n", u"artist:", u""},
        TagCase{"blank before the colon", u"ARTIST : The Band\r\n", u"artist:", u""},
        TagCase{"the key without its colon", u"ARTIST : The Band\r\n", u"artist", u"The Band"},
        TagCase{"inside a line", u"* the artist: Foo *\r\n", u"artist:", u"Foo *"},
        TagCase{"inside a longer word", u"Artistic: Foo\r\n", u"artist", u"ic Foo"},
        TagCase{"the first place counts", u"artist\r\nartist: Foo\r\n", u"artist", u""},
        TagCase{"nothing behind it on its line", u"Artist:\r\nFoo\r\n", u"artist:", u""},
        TagCase{"at the very end of the text", u"Artist:", u"artist:", u""},
        TagCase{"single line ends are taken out", u"Artist: a\rb\nc\r\n", u"artist:", u"abc"},
        TagCase{"decoration", u"Artist..: <#a%b\u00A4:c>\r\n", u"artist", u".. abc"},
        TagCase{"tabs are blanks", u"Artist:\tThe\tBand\t\r\n", u"artist:", u"The Band"},
        TagCase{"letters outside ASCII in any case", u"SL\u00C4PPT: 1 maj\r\n", u"sl\u00E4ppt:",
                u"1 maj"},
        TagCase{"a key of any first character", u"x\r\n* NOTE: Foo\r\n", u"* note:", u"Foo"},
        TagCase{"an empty text", u"", u"artist", u""}));

void ExpectScan(TextView source, const PreScanResult& expected) {
    const PreScanResult result = PreScan(source);
    EXPECT_EQ(ToUtf8(result.Artist), ToUtf8(expected.Artist));
    EXPECT_EQ(ToUtf8(result.Album), ToUtf8(expected.Album));
    EXPECT_EQ(ToUtf8(result.Year), ToUtf8(expected.Year));
    EXPECT_EQ(ToUtf8(result.ReleaseDate), ToUtf8(expected.ReleaseDate));
}

TEST(PreScan, FillsTheFourBoxes) {
    ExpectScan(
        u"Artist: The Band\r\nAlbum: The Record\r\nYear: 1998\r\nRelease date: 1998-03-12\r\n",
        {u"The Band", u"The Record", u"1998", u"1998-03-12"});
}

TEST(PreScan, EmptiesTheBoxesOfATextWithoutKeys) { ExpectScan(u"1. One\r\n2. Two\r\n", {}); }

TEST(PreScan, SwedishKeys) {
    ExpectScan(u"Grupp: Bandet\r\nTitel/Produkt: Skivan\r\nReleasedatum: 12 mars\r\n",
               {u"Bandet", u"Skivan", u"", u"12 mars"});
    ExpectScan(u"Artist/Grupp: Bandet\r\nSl\u00E4ppt: i fjol\r\n",
               {u"Bandet", u"", u"", u"i fjol"});
}

// "artist:" is not there, "artist/grupp:" is tried before the bare "artist".
TEST(PreScan, TheSlashedKeysComeBeforeTheBareOnes) {
    ExpectScan(u"Grupp/Artist: Bandet\r\n", {u"Bandet", u"", u"", u""});
}

struct KeyCase {
    TextView Line;
    Text PreScanResult::*Box;
    TextView Value;
};

class PreScanKey : public testing::TestWithParam<KeyCase> {};

TEST_P(PreScanKey, IsFoundOnALineOfItsOwn) {
    const KeyCase& c = GetParam();
    EXPECT_EQ(ToUtf8(PreScan(Text(c.Line) + u"\r\n").*c.Box), ToUtf8(c.Value));
}

constexpr auto Artist = &PreScanResult::Artist;
constexpr auto Album = &PreScanResult::Album;
constexpr auto Year = &PreScanResult::Year;
constexpr auto ReleaseDate = &PreScanResult::ReleaseDate;

INSTANTIATE_TEST_SUITE_P(
    Keys, PreScanKey,
    testing::Values(
        KeyCase{u"Artist: A", Artist, u"A"}, KeyCase{u"Release name: A", Artist, u"A"},
        KeyCase{u"Artist/Grupp: A", Artist, u"A"}, KeyCase{u"Grupp/Artist: A", Artist, u"A"},
        KeyCase{u"Grupp: A", Artist, u"A"}, KeyCase{u"Artist A", Artist, u"A"},
        KeyCase{u"Grupp A", Artist, u"A"}, KeyCase{u"Album: A", Album, u"A"},
        KeyCase{u"Release name: A", Album, u"A"}, KeyCase{u"Titel/Produkt: A", Album, u"A"},
        KeyCase{u"Album A", Album, u"A"}, KeyCase{u"Release name A", Album, u"A"},
        KeyCase{u"Titel/Produkt A", Album, u"A"}, KeyCase{u"Year: 1998", Year, u"1998"},
        KeyCase{u"Release year: 1998", Year, u"1998"}, KeyCase{u"Year 1998", Year, u"1998"},
        KeyCase{u"Release year 1998", Year, u"1998"},
        KeyCase{u"Release date: A", ReleaseDate, u"A"},
        KeyCase{u"Street date: A", ReleaseDate, u"A"},
        KeyCase{u"Releasedatum: A", ReleaseDate, u"A"},
        KeyCase{u"Release datum: A", ReleaseDate, u"A"}, KeyCase{u"Released: A", ReleaseDate, u"A"},
        KeyCase{u"Sl\u00E4ppt: A", ReleaseDate, u"A"},
        KeyCase{u"Release date A", ReleaseDate, u"A"}, KeyCase{u"Street date A", ReleaseDate, u"A"},
        KeyCase{u"Releasedatum A", ReleaseDate, u"A"},
        KeyCase{u"Release datum A", ReleaseDate, u"A"}, KeyCase{u"Released A", ReleaseDate, u"A"},
        KeyCase{u"Sl\u00E4ppt A", ReleaseDate, u"A"}));

TEST(PreScan, TheYearIsEveryDigitOfItsLine) {
    EXPECT_EQ(PreScan(u"Year: 1998 (remaster 2001)\r\n").Year, u"19982001");
    EXPECT_EQ(PreScan(u"Year: '98\r\n").Year, u"98");
}

TEST(PreScan, AWordForTheReleaseIsNoYear) {
    ExpectScan(u"Released: 12 March\r\n", {u"", u"", u"", u"12 March"});
}

TEST(PreScan, AnEmptyValuePassesToTheNextKey) {
    EXPECT_EQ(PreScan(u"Artist:\r\nRelease name: A\r\n").Artist, u"A");
    EXPECT_EQ(PreScan(u"Year:\r\nRelease year: 1998\r\n").Year, u"1998");
}

// The value is looked at before it is cleaned, so one of removed letters alone stays empty.
TEST(PreScan, AValueCountsAsFoundBeforeItIsCleaned) {
    EXPECT_EQ(PreScan(u"Artist: \u00A6\u00AC\r\nGrupp: A\r\n").Artist, u"");
    EXPECT_EQ(PreScan(u"Year: soon\r\nRelease year: 1998\r\n").Year, u"");
}

TEST(PreScan, NordicLettersStayAndOtherAccentsGo) {
    EXPECT_EQ(
        PreScan(u"Artist: \u00C4\u00C5\u00C6\u00D6\u00D8\u00DC\u00E4\u00E5\u00E6\u00E9\u00F3"
                u"\u00F6\u00F8\u00FC\u00A7 caf\u00E8 \u00C9\u00DF\u00FF\u2026\u0178\r\n")
            .Artist,
        u"\u00C4\u00C5\u00C6\u00D6\u00D8\u00DC\u00E4\u00E5\u00E6\u00E9\u00F3\u00F6\u00F8\u00FC"
        u"\u00A7 caf");
}

TEST(PreScan, CharactersBeyondTheCodePageStay) {
    EXPECT_EQ(PreScan(u"Artist: \u041A\u0438\u043D\u043E\r\n").Artist, u"\u041A\u0438\u043D\u043E");
}

TEST(PreScan, TheRemovalSet) {
    const Text set = PreScanRemovalSet();
    EXPECT_EQ(set.size(), 32U + 40U + 24U + 50U);
    EXPECT_EQ(Text(set.end() - 50, set.end()),
              FromUtf8("ÀÁÂÃÇÈÉÊËÌÍÎÏÐÑÒÓÔÕ×ÙÚÛÝÞßàáâãçèêëìíîïðñòôõ÷ùúûýþÿ"));
    EXPECT_EQ(set.find(u'\u00A7'), Text::npos);
    EXPECT_NE(set.find(u'\u20AC'), Text::npos);
    EXPECT_NE(set.find(u'\u00A6'), Text::npos);
    EXPECT_NE(set.find(u'\u007F'), Text::npos);
    EXPECT_EQ(set.find(u' '), Text::npos);
}

TEST(PreScan, ALongTextIsScannedToItsEnd) {
    Text source;
    for (int i = 0; i < 100000; ++i) source += u"a line of no interest here\r\n";
    EXPECT_EQ(PreScan(source + u"Artist: Foo\r\n").Artist, u"Foo");
}

}  // namespace
}  // namespace mdlPLM
