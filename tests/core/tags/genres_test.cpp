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

// The numbers stand in files of every program; a few spellings are the table's own.
TEST(Genres, EveryNumberHasItsName) {
    Bytes table;
    for (int number = 0; number < GenreCount; ++number) table += GenreNameOfNumber(number) + ";";
    EXPECT_EQ(table,
              "Blues;Classic Rock;Country;Dance;Disco;Funk;Grunge;Hip-Hop;Jazz;Metal;New Age;"
              "Oldies;Other;Pop;R&B;Rap;Reggae;Rock;Techno;Industrial;Alternative;Ska;"
              "Death Metal;Pranks;Soundtrack;Euro-Techno;Ambient;Trip-Hop;Vocal;Jazz+Funk;"
              "Fusion;Trance;Classical;Instrumental;Acid;House;Game;Sound Clip;Gospel;Noise;"
              "Alt. Rock;Bass;Soul;Punk;Space;Meditative;Instrumental Pop;Instrumental Rock;"
              "Ethnic;Gothic;Darkwave;Techno-Industrial;Electronic;Pop-Folk;Eurodance;Dream;"
              "Southern Rock;Comedy;Cult;Gangsta Rap;Top 40;Christian Rap;Pop/Funk;Jungle;"
              "Native American;Cabaret;New Wave;Psychadelic;Rave;Showtunes;Trailer;Lo-Fi;"
              "Tribal;Acid Punk;Acid Jazz;Polka;Retro;Musical;Rock & Roll;Hard Rock;Folk;"
              "Folk/Rock;National Folk;Swing;Fast Fusion;Bebob;Latin;Revival;Celtic;Bluegrass;"
              "Avantgarde;Gothic Rock;Progressive Rock;Psychadelic Rock;Symphonic Rock;"
              "Slow Rock;Big Band;Chorus;Easy Listening;Acoustic;Humour;Speech;Chanson;Opera;"
              "Chamber Music;Sonata;Symphony;Booty Bass;Primus;Porn Groove;Satire;Slow Jam;"
              "Club;Tango;Samba;Folklore;Ballad;Power Ballad;Rhythmic Soul;Freestyle;Duet;"
              "Punk Rock;Drum Solo;A Capella;Euro-House;Dance Hall;Goa;Drum & Bass;Club-House;"
              "Hardcore;Terror;Indie;BritPop;Negerpunk;Polsk Punk;Beat;Christian Gangsta Rap;"
              "Heavy Metal;Black Metal;Crossover;Contemporary Christian;Christian Rock;"
              "Merengue;Salsa;Thrash Metal;Anime;JPop;Synthpop;");
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
