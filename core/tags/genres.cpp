#include "core/tags/genres.h"

#include <algorithm>

namespace mdlPLM {

namespace {

// "Psychadelic", "Bebob", "Humour", "Avantgarde" and "A Capella" are spelt so on purpose: lookups
// compare with these very texts.
constexpr std::array<BytesView, GenreCount> GenreNames = {
    "Blues",
    "Classic Rock",
    "Country",
    "Dance",
    "Disco",
    "Funk",
    "Grunge",
    "Hip-Hop",
    "Jazz",
    "Metal",
    "New Age",
    "Oldies",
    "Other",
    "Pop",
    "R&B",
    "Rap",
    "Reggae",
    "Rock",
    "Techno",
    "Industrial",
    "Alternative",
    "Ska",
    "Death Metal",
    "Pranks",
    "Soundtrack",
    "Euro-Techno",
    "Ambient",
    "Trip-Hop",
    "Vocal",
    "Jazz+Funk",
    "Fusion",
    "Trance",
    "Classical",
    "Instrumental",
    "Acid",
    "House",
    "Game",
    "Sound Clip",
    "Gospel",
    "Noise",
    "Alt. Rock",
    "Bass",
    "Soul",
    "Punk",
    "Space",
    "Meditative",
    "Instrumental Pop",
    "Instrumental Rock",
    "Ethnic",
    "Gothic",
    "Darkwave",
    "Techno-Industrial",
    "Electronic",
    "Pop-Folk",
    "Eurodance",
    "Dream",
    "Southern Rock",
    "Comedy",
    "Cult",
    "Gangsta Rap",
    "Top 40",
    "Christian Rap",
    "Pop/Funk",
    "Jungle",
    "Native American",
    "Cabaret",
    "New Wave",
    "Psychadelic",
    "Rave",
    "Showtunes",
    "Trailer",
    "Lo-Fi",
    "Tribal",
    "Acid Punk",
    "Acid Jazz",
    "Polka",
    "Retro",
    "Musical",
    "Rock & Roll",
    "Hard Rock",
    "Folk",
    "Folk/Rock",
    "National Folk",
    "Swing",
    "Fast Fusion",
    "Bebob",
    "Latin",
    "Revival",
    "Celtic",
    "Bluegrass",
    "Avantgarde",
    "Gothic Rock",
    "Progressive Rock",
    "Psychadelic Rock",
    "Symphonic Rock",
    "Slow Rock",
    "Big Band",
    "Chorus",
    "Easy Listening",
    "Acoustic",
    "Humour",
    "Speech",
    "Chanson",
    "Opera",
    "Chamber Music",
    "Sonata",
    "Symphony",
    "Booty Bass",
    "Primus",
    "Porn Groove",
    "Satire",
    "Slow Jam",
    "Club",
    "Tango",
    "Samba",
    "Folklore",
    "Ballad",
    "Power Ballad",
    "Rhythmic Soul",
    "Freestyle",
    "Duet",
    "Punk Rock",
    "Drum Solo",
    "A Capella",
    "Euro-House",
    "Dance Hall",
    "Goa",
    "Drum & Bass",
    "Club-House",
    "Hardcore",
    "Terror",
    "Indie",
    "BritPop",
    "Negerpunk",
    "Polsk Punk",
    "Beat",
    "Christian Gangsta Rap",
    "Heavy Metal",
    "Black Metal",
    "Crossover",
    "Contemporary Christian",
    "Christian Rock",
    "Merengue",
    "Salsa",
    "Thrash Metal",
    "Anime",
    "JPop",
    "Synthpop",
};

constexpr std::size_t NationalFolk = 82;
constexpr BytesView UnknownGenre = "Unknown";

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool ComesBefore(BytesView a, BytesView b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return AsciiLower(x) < AsciiLower(y);
    });
}

}  // namespace

Bytes GetGenreName(BytesView oneCharacter) {
    if (oneCharacter.empty()) return {};
    return GenreNameOfNumber(static_cast<unsigned char>(oneCharacter.front()));
}

Bytes GenreNameOfNumber(long long number) {
    const bool known = number >= 0 && number < GenreCount;
    return Bytes(known ? GenreNames[static_cast<std::size_t>(number)] : UnknownGenre);
}

int GetGenreIndex(BytesView name) {
    if (name.empty()) return 255;
    const auto found = std::find(GenreNames.begin(), GenreNames.end(), name);
    return found == GenreNames.end() ? 0 : static_cast<int>(found - GenreNames.begin());
}

std::vector<Bytes> SortedGenreNames(bool v2Spelling) {
    std::vector<Bytes> names(GenreNames.begin(), GenreNames.end());
    // A slip that is kept on purpose, in this list only: a name chosen there has no number.
    if (v2Spelling) names[NationalFolk] = "Natianal Folk";
    std::sort(names.begin(), names.end(), ComesBefore);
    return names;
}

}  // namespace mdlPLM
