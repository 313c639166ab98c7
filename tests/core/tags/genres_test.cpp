#include "core/tags/genres.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text/code_page.h"
#include "core/text/letter_case.h"

namespace mdlPLM {
namespace {

TEST(Genres, NumbersGiveNames) {
    EXPECT_EQ(GetGenreName(BytesView("\0", 1)), "Blues");
    EXPECT_EQ(GetGenreName("\x11"), "Rock");
    EXPECT_EQ(GetGenreName("\x50"), "Folk");
    EXPECT_EQ(GetGenreName("\x93"), "Synthpop");
}

TEST(Genres, NumbersBeyondTheTableAreUnknown) {
    EXPECT_EQ(GetGenreName("\x94"), "Unknown");
    EXPECT_EQ(GetGenreName("\xFF"), "Unknown");
    EXPECT_EQ(GenreNameOfNumber(-1), "Unknown");
    EXPECT_EQ(GenreNameOfNumber(148), "Unknown");
    EXPECT_EQ(GenreNameOfNumber(256), "Unknown");
    EXPECT_EQ(GenreNameOfNumber(99999999999LL), "Unknown");
}

TEST(Genres, NoCharacterGivesNoName) { EXPECT_EQ(GetGenreName(""), ""); }

TEST(Genres, OnlyTheFirstCharacterCounts) { EXPECT_EQ(GetGenreName("\x11\x12"), "Rock"); }

TEST(Genres, NamesGiveNumbers) {
    EXPECT_EQ(GetGenreIndex("Blues"), 0);
    EXPECT_EQ(GetGenreIndex("National Folk"), 82);
    EXPECT_EQ(GetGenreIndex("Synthpop"), 147);
    EXPECT_EQ(GetGenreIndex(""), 255);
}

TEST(Genres, ANameThatMatchesNothingIsStoredAsBlues) {
    EXPECT_EQ(GetGenreIndex("blues"), 0);
    EXPECT_EQ(GetGenreIndex("ROCK"), 0);
    EXPECT_EQ(GetGenreIndex("Natianal Folk"), 0);
    EXPECT_EQ(GetGenreIndex("Psychedelic"), 0);
    EXPECT_EQ(GetGenreIndex("Rock "), 0);
    EXPECT_EQ(GetGenreIndex("Unknown"), 0);
}

TEST(Genres, EveryNameFindsItsOwnNumber) {
    for (int number = 0; number < GenreCount; ++number)
        EXPECT_EQ(GetGenreIndex(GenreNameOfNumber(number)), number);
}

TEST(Genres, TheTablesOwnSpellingsStand) {
    EXPECT_EQ(GenreNameOfNumber(67), "Psychadelic");
    EXPECT_EQ(GenreNameOfNumber(85), "Bebob");
    EXPECT_EQ(GenreNameOfNumber(90), "Avantgarde");
    EXPECT_EQ(GenreNameOfNumber(93), "Psychadelic Rock");
    EXPECT_EQ(GenreNameOfNumber(100), "Humour");
    EXPECT_EQ(GenreNameOfNumber(123), "A Capella");
}

TEST(Genres, TheDropDownListHoldsAllNamesInAlphabeticalOrder) {
    const std::vector<Bytes> names = SortedGenreNames();
    ASSERT_EQ(names.size(), std::size_t{GenreCount});
    EXPECT_EQ(names.front(), "A Capella");
    EXPECT_EQ(names[1], "Acid");
    EXPECT_EQ(names.back(), "Vocal");
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end(), [](const Bytes& a, const Bytes& b) {
        return LCase(FromCodePage(a)) < LCase(FromCodePage(b));
    }));
    for (int number = 0; number < GenreCount; ++number)
        EXPECT_EQ(std::count(names.begin(), names.end(), GenreNameOfNumber(number)), 1);
}

TEST(Genres, OnlyTheV2ListSpellsNationalFolkOddly) {
    const std::vector<Bytes> plain = SortedGenreNames();
    std::vector<Bytes> odd = SortedGenreNames(true);
    EXPECT_EQ(std::count(plain.begin(), plain.end(), "Natianal Folk"), 0);
    EXPECT_EQ(std::count(odd.begin(), odd.end(), "National Folk"), 0);
    std::replace(odd.begin(), odd.end(), Bytes("Natianal Folk"), Bytes("National Folk"));
    EXPECT_EQ(odd, plain);
}

}  // namespace
}  // namespace mdlPLM
