#include "core/names/patterns.h"

#include <gtest/gtest.h>

#include "core/text/code_page.h"

namespace mdlPLM {
namespace {

Settings Plain() {
    Settings settings;
    settings.bExtension = false;
    settings.b20toSpace = false;
    settings.bScoreToSpace = false;
    return settings;
}

struct FieldCase {
    const char* Shows;
    TextView Pattern;
    TextView Name;
    TextView Field;
    TextView Expected;
};

class FieldFromPattern : public testing::TestWithParam<FieldCase> {};

// The extension is off: the four characters behind the last field are the name's own.
TEST_P(FieldFromPattern, WithTheNamesOwnExtension) {
    const FieldCase& c = GetParam();
    EXPECT_EQ(ToUtf8(GetFieldFromPattern(c.Name, c.Field, c.Pattern, Plain())), ToUtf8(c.Expected))
        << c.Shows;
}

constexpr TextView Three = u"%track - %artist - %title.mp3";
constexpr TextView Two = u"%artist - %title.mp3";
constexpr TextView All = u"%track - %artist - %title - %album - %year - %genre - %comment.mp3";
constexpr TextView AllName = u"01 - Abba - Waterloo - Gold - 1992 - Pop - Nice.mp3";
constexpr TextView Levels = u"%artist\\%album\\%track - %title.mp3";
constexpr TextView LevelsPath = u"C:\\mp3\\Abba\\Gold\\01 - Waterloo.mp3";

INSTANTIATE_TEST_SUITE_P(
    Fields, FieldFromPattern,
    testing::Values(
        FieldCase{"first of three", Three, u"01 - Abba - Waterloo.mp3", u"track", u"01"},
        FieldCase{"second of three", Three, u"01 - Abba - Waterloo.mp3", u"artist", u"Abba"},
        FieldCase{"third of three", Three, u"01 - Abba - Waterloo.mp3", u"title", u"Waterloo"},
        FieldCase{"word in any case", Three, u"01 - Abba - Waterloo.mp3", u"Artist", u"Abba"},
        FieldCase{"placeholder in any case", u"%ARTIST - %Title.mp3", u"Abba - Waterloo.mp3",
                  u"artist", u"Abba"},
        FieldCase{"word that is not in the pattern", Three, u"01 - Abba - Waterloo.mp3", u"album",
                  u""},
        FieldCase{"word that is none of the seven", Three, u"01 - Abba - Waterloo.mp3", u"composer",
                  u""},
        FieldCase{"part of a word", Three, u"01 - Abba - Waterloo.mp3", u"art", u""},
        FieldCase{"no word", Three, u"01 - Abba - Waterloo.mp3", u"", u""},
        FieldCase{"a name of blanks", Three, u"   ", u"title", u""},
        FieldCase{"no name", Three, u"", u"title", u""},
        FieldCase{"a track that is no number", Three, u"Abba - Waterloo.mp3", u"track", u""},
        FieldCase{"a missing separator", Three, u"Abba - Waterloo.mp3", u"artist", u"Waterloo."},
        FieldCase{"a title behind a missing separator", Three, u"Abba - Waterloo.mp3", u"title",
                  u""},
        FieldCase{"an empty field takes the rest", Three, u"01 -  - Waterloo.mp3", u"artist",
                  u"- Waterloo."},
        FieldCase{"a separator inside a wider one", Two, u"Abba -  Waterloo.mp3", u"artist",
                  u"Abba"},
        FieldCase{"behind a wider separator", Two, u"Abba -  Waterloo.mp3", u"title", u"Waterloo"},
        FieldCase{"a wider separator is not found in a narrow one", u"%artist -  %title.mp3",
                  u"Abba - Waterloo.mp3", u"artist", u"Abba - Waterloo."},
        FieldCase{"separators keep their case", u"%artist BY %title.mp3", u"Abba by Waterloo.mp3",
                  u"artist", u"Abba by Waterloo."},
        FieldCase{"no literal at the end", u"%artist - %title", u"Abba - Waterloo.mp3", u"title",
                  u"Waterloo.mp3"},
        FieldCase{"seven: the first field never", All, AllName, u"track", u""},
        FieldCase{"seven: the second starts at the name", All, AllName, u"artist", u"01"},
        FieldCase{"seven: the third is what the second was", All, AllName, u"title", u"Abba"},
        FieldCase{"seven: the year is what stands before it", All, AllName, u"year", u""},
        FieldCase{"a prefix is skipped by its length", u"xx-%title.mp3", u"ab Waterloo.mp3",
                  u"title", u"Waterloo"},
        FieldCase{"a prefix longer than the name", u"a long prefix %title.mp3", u"x.mp3", u"title",
                  u""},
        FieldCase{"levels: artist", Levels, LevelsPath, u"artist", u"Abba"},
        FieldCase{"levels: album", Levels, LevelsPath, u"album", u"Gold"},
        FieldCase{"levels: track", Levels, LevelsPath, u"track", u"01"},
        FieldCase{"levels: title", Levels, LevelsPath, u"title", u"Waterloo"},
        FieldCase{"levels with slashes", u"%artist/%album/%track - %title.mp3",
                  u"/home/me/Abba/Gold/01 - Waterloo.mp3", u"album", u"Gold"},
        FieldCase{"too few levels", Levels, u"Gold\\01 - Waterloo.mp3", u"title", u""},
        FieldCase{"as many levels as the path has", u"%album\\%title.mp3", u"\\Gold\\Waterloo.mp3",
                  u"album", u"Gold"},
        FieldCase{"a path with no level before it", u"%album\\%title.mp3", u"Gold\\Waterloo.mp3",
                  u"album", u""},
        FieldCase{"levels for a bare name", Levels, u"01 - Waterloo.mp3", u"title", u""},
        FieldCase{"a path for a plain pattern", Two, u"/home/me/Abba - Waterloo.mp3", u"artist",
                  u"Abba"},
        FieldCase{"a list line", Two, u"Abba - Waterloo.mp3     (/home/me/)", u"title",
                  u"Waterloo"},
        FieldCase{"a year that is no number", u"%year - %title.mp3", u"1974a - Waterloo.mp3",
                  u"year", u""},
        FieldCase{"a year", u"%year - %title.mp3", u"1974 - Waterloo.mp3", u"year", u"1974"},
        FieldCase{"digits of another script are no digits", u"%track - %title.mp3",
                  u"\u0661 - Waterloo.mp3", u"track", u""},
        FieldCase{"fields are trimmed", Two, u"  Abba   -   Waterloo  .mp3", u"title", u"Waterloo"},
        FieldCase{"the genre", u"%genre - %title.mp3", u"Pop - Waterloo.mp3", u"genre", u"Pop"},
        FieldCase{"the comment", u"%title (%comment).mp3", u"Waterloo (live).mp3", u"comment",
                  u"live"},
        FieldCase{"the shorter word of the requested field counts", u"%year - %comment.mp3",
                  u"1974 - live.mp3", u"year", u"1974"},
        FieldCase{"a name with nothing but an extension", Two, u".mp3", u"title", u""},
        FieldCase{"placeholders without a separator", u"%artist%title.mp3", u"Abba.mp3", u"artist",
                  u"Abba."},
        FieldCase{"a pattern that is one placeholder", u"%title", u"x.mp3", u"title", u"x.mp3"},
        FieldCase{"a name shorter than an extension", u"%title", u"x", u"title", u""}));

Text Field(TextView name, TextView field, TextView pattern, const Settings& settings) {
    return GetFieldFromPattern(name, field, pattern, settings);
}

TEST(FieldFromPath, IsTakenFromThePathsLastPart) {
    const TextView path = u"/music     (x)/abba - song     (live).mp3";
    EXPECT_EQ(GetFieldFromPath(path, u"title", Two, Plain()), u"song     (live)");
    EXPECT_EQ(GetFieldFromPath(path, u"artist", Two, Plain()), u"abba");
    EXPECT_EQ(GetFieldFromPath(u"abba - song     (live).mp3", u"title", Two, Plain()),
              u"song     (live)");
    EXPECT_EQ(GetFieldFromPath(LevelsPath, u"album", Levels, Plain()), u"Gold");
    // A line of the list is split at its mark.
    EXPECT_EQ(GetFieldFromPattern(u"abba - song.mp3     (/music/)", u"title", Two, Plain()),
              u"song");
}

TEST(FieldFromPattern, TheExtensionOfTheSettingsEndsTheName) {
    Settings settings = Plain();
    settings.bExtension = true;
    EXPECT_EQ(Field(u"01 - Abba - Waterloo.mp3", u"title", Three, settings), u"Waterloo");
    EXPECT_EQ(Field(u"Abba - Waterloo.mp3", u"artist", Three, settings), u"Waterloo.");
    EXPECT_EQ(Field(u"Abba - Waterloo.mp3", u"title", u"%artist - %title", settings),
              u"Waterloo.mp3");
}

TEST(FieldFromPattern, AFiveCharacterExtensionLeavesItsDotInTheField) {
    Settings settings = Plain();
    settings.bExtension = true;
    settings.Extension = u"mpeg";
    EXPECT_EQ(Field(u"Abba - Waterloo.mp3", u"title", Two, settings), u"Waterloo.");
    EXPECT_EQ(Field(u"Abba - Waterloo.mp3", u"artist", Two, settings), u"Abba");
}

TEST(FieldFromPattern, AShortExtensionTakesAwayFromTheField) {
    Settings settings = Plain();
    settings.bExtension = true;
    settings.Extension = u"";
    EXPECT_EQ(Field(u"Abba - Waterloo.mp3", u"title", Two, settings), u"Water");
}

TEST(FieldFromPattern, UnderscoresAndPercent20BecomeBlanksBeforeMatching) {
    Settings settings = Plain();
    EXPECT_EQ(Field(u"Abba_-_Water_loo.mp3", u"artist", Two, settings), u"Abba_-_Water_loo.");
    settings.bScoreToSpace = true;
    EXPECT_EQ(Field(u"Abba_-_Water_loo.mp3", u"title", Two, settings), u"Water loo");
    settings = Plain();
    EXPECT_EQ(Field(u"Abba%20-%20Water%20loo.mp3", u"title", Two, settings), u"");
    settings.b20toSpace = true;
    EXPECT_EQ(Field(u"Abba%20-%20Water%20loo.mp3", u"title", Two, settings), u"Water loo");
}

TEST(FieldFromPattern, SeparatorsOfThePatternKeepTheirUnderscores) {
    Settings settings = Plain();
    settings.bScoreToSpace = true;
    EXPECT_EQ(Field(u"Abba_Waterloo.mp3", u"artist", u"%artist_%title.mp3", settings),
              u"Abba Waterloo.");
}

TEST(FieldFromPattern, TextsOfAnyLengthAreTaken) {
    const Text longArtist(40000, u'a');
    EXPECT_EQ(Field(longArtist + u" - Song.mp3", u"artist", Two, Plain()), longArtist);
    EXPECT_EQ(Field(longArtist + u" - Song.mp3", u"title", Two, Plain()), u"Song");
}

FieldValues Abba() {
    FieldValues values;
    values.Artist = u"Abba";
    values.Title = u"Waterloo";
    values.Album = u"Gold";
    values.Track = u"01";
    values.Year = u"1992";
    values.Genre = u"Pop";
    values.Comment = u"Nice";
    return values;
}

struct FillCase {
    TextView Pattern;
    TextView Expected;
    bool Filled;
};

class FilledPattern : public testing::TestWithParam<FillCase> {};

TEST_P(FilledPattern, HoldsTheValues) {
    bool filled = !GetParam().Filled;
    EXPECT_EQ(FillPattern(GetParam().Pattern, Abba(), Settings(), filled), GetParam().Expected);
    EXPECT_EQ(filled, GetParam().Filled);
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, FilledPattern,
    testing::Values(FillCase{u"%track - %artist - %title.mp3", u"01 - Abba - Waterloo.mp3", true},
                    FillCase{u"%album %year %genre %comment", u"Gold 1992 Pop Nice", true},
                    FillCase{u"%title %title.mp3", u"Waterloo Waterloo.mp3", true},
                    FillCase{u"%TITLE %Artist.mp3", u"%TITLE %Artist.mp3", false},
                    FillCase{u"plain.mp3", u"plain.mp3", false}, FillCase{u"", u"", false}));

bool Fills(TextView pattern, const FieldValues& values, const Settings& settings = Settings()) {
    bool filled = false;
    FillPattern(pattern, values, settings, filled);
    return filled;
}

TEST(FilledPattern, NothingButBlanksIsNotFilled) {
    FieldValues values;
    EXPECT_FALSE(Fills(u"%track - %artist - %title.mp3", values));
    values.Title = u"  ";
    EXPECT_FALSE(Fills(u"%title", values));
    values.Title = u"x";
    EXPECT_TRUE(Fills(u"%track - %artist - %title.mp3", values));
}

TEST(FilledPattern, AnExtensionAloneIsNotFilled) {
    FieldValues values;
    values.Title = u".mp3";
    EXPECT_FALSE(Fills(u"%title", values));
    Settings settings;
    settings.Extension = u"ogg";
    EXPECT_TRUE(Fills(u"%title", values, settings));
}

TEST(FilledPattern, ValuesAreFilledInTheirOrder) {
    bool filled = false;
    FieldValues values;
    values.Artist = u"%title";
    values.Title = u"%artist %year";
    values.Year = u"1974";
    EXPECT_EQ(FillPattern(u"%artist!", values, Settings(), filled), u"%artist 1974!");
}

// Filled in place it would take minutes: each placeholder would move all that stands behind it.
TEST(FilledPattern, APatternOfMillionsOfCharactersIsFilledInOnePass) {
    constexpr std::size_t count = 500000;
    Text pattern;
    Text expected;
    for (std::size_t i = 0; i < count; ++i) {
        pattern += u"%title - ";
        expected += u"Waterloo - ";
    }
    FieldValues values;
    values.Title = u"Waterloo";
    bool filled = false;
    EXPECT_TRUE(FillPattern(pattern, values, Settings(), filled) == expected);
    EXPECT_TRUE(filled);
}

TEST(PatternKeys, ForbiddenInTheBoxes) {
    for (const char16_t c : TextView(u":?\"<>|*")) {
        EXPECT_TRUE(IsForbiddenInInPattern(c));
        EXPECT_TRUE(IsForbiddenInOutPattern(c));
    }
    for (const char16_t c : TextView(u"/\\")) {
        EXPECT_FALSE(IsForbiddenInInPattern(c));
        EXPECT_TRUE(IsForbiddenInOutPattern(c));
    }
    for (const char16_t c : TextView(u"%a .-_[](){}'")) {
        EXPECT_FALSE(IsForbiddenInInPattern(c));
        EXPECT_FALSE(IsForbiddenInOutPattern(c));
    }
}

}  // namespace
}  // namespace mdlPLM
