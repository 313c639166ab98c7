#include "core/tags/standard/genre_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

#include "core/tags/genres.h"
#include "core/text/code_page.h"

namespace mdlPLM::standard {

namespace {

// What other programs have added behind the common 148.
constexpr std::array<BytesView, 44> LaterNames = {"Abstract",      "Art Rock",
                                                  "Baroque",       "Bhangra",
                                                  "Big Beat",      "Breakbeat",
                                                  "Chillout",      "Downtempo",
                                                  "Dub",           "EBM",
                                                  "Eclectic",      "Electro",
                                                  "Electroclash",  "Emo",
                                                  "Experimental",  "Garage",
                                                  "Global",        "IDM",
                                                  "Illbient",      "Industro-Goth",
                                                  "Jam Band",      "Krautrock",
                                                  "Leftfield",     "Lounge",
                                                  "Math Rock",     "New Romantic",
                                                  "Nu-Breakz",     "Post-Punk",
                                                  "Post-Rock",     "Psytrance",
                                                  "Shoegaze",      "Space Rock",
                                                  "Trop Rock",     "World Music",
                                                  "Neoclassical",  "Audiobook",
                                                  "Audio Theatre", "Neue Deutsche Welle",
                                                  "Podcast",       "Indie Rock",
                                                  "G-Funk",        "Dubstep",
                                                  "Garage Rock",   "Psybient"};

constexpr std::size_t MostDigits = 3;

// The name of what stands in brackets, or alone; nothing for what is no reference.
std::optional<Text> NameOf(TextView reference) {
    if (reference == u"RX") return u"Remix";
    if (reference == u"CR") return u"Cover";
    if (reference.size() > MostDigits || !IsAllDigits(reference)) return std::nullopt;
    const auto number = static_cast<std::size_t>(IntegerPart(reference));
    constexpr auto common = static_cast<std::size_t>(GenreCount);
    if (number < common) return FromAscii(GenreNameOfNumber(static_cast<long long>(number)));
    if (number < common + LaterNames.size()) return FromAscii(LaterNames[number - common]);
    return Text(reference);
}

// The reference in brackets that a text begins with, taken off it.
std::optional<Text> TakeReference(TextView& text) {
    const std::size_t close =
        text.empty() || text.front() != u'(' ? TextView::npos : text.find(u')');
    if (close == TextView::npos) return std::nullopt;
    std::optional<Text> name = NameOf(text.substr(1, close - 1));
    if (name) text.remove_prefix(close + 1);
    return name;
}

void ParseValue(TextView value, std::vector<Text>& genres) {
    if (const std::optional<Text> name = NameOf(value)) {
        genres.push_back(*name);
        return;
    }
    std::optional<Text> last;
    while (std::optional<Text> name = TakeReference(value)) {
        if (last) genres.push_back(*std::move(last));
        last = std::move(name);
    }
    if (value.substr(0, 2) == u"((") value.remove_prefix(1);
    const TextView refinement = last ? Trimmed(value) : value;
    if (!refinement.empty())
        genres.emplace_back(refinement);
    else if (last)
        genres.push_back(*std::move(last));
}

std::vector<Text> Parsed(const Text& value) { return ParseGenres({value}); }

// A text that would be read as something else.
Text Escaped(const Text& genre) {
    const bool needed = genre.front() == u'(' && Parsed(genre) != std::vector<Text>{genre};
    return needed ? u"(" + genre : genre;
}

// Its number in brackets; nothing for a name that has none.
std::optional<Text> NumberOf(const Text& genre) {
    const int number = GetGenreIndex(ToCodePage(genre));
    if (FromCodePage(GenreNameOfNumber(number)) != genre) return std::nullopt;
    return u"(" + NumberText(static_cast<long long>(number)) + u")";
}

// Several numbers stand in one value, which every reader takes.
std::vector<Text> WithNumbers(const std::vector<Text>& names) {
    std::vector<Text> values;
    Text numbers;
    bool onlyNumbers = true;
    for (const Text& name : names) {
        const std::optional<Text> number = NumberOf(name);
        values.push_back(number ? *number : Escaped(name));
        numbers += values.back();
        onlyNumbers = onlyNumbers && number;
    }
    if (onlyNumbers && !values.empty()) return {numbers};
    return values;
}

}  // namespace

std::vector<Text> ParseGenres(const std::vector<Text>& values) {
    std::vector<Text> genres;
    for (const Text& value : values) ParseValue(value, genres);
    if (genres.size() < 2) return genres;
    std::set<Text> seen;
    std::vector<Text> once;
    for (Text& genre : genres)
        if (seen.insert(genre).second) once.push_back(std::move(genre));
    return once;
}

Text ParseFirstGenre(TextView value) {
    std::vector<Text> genres;
    ParseValue(value, genres);
    return genres.empty() ? Text() : std::move(genres.front());
}

std::vector<Text> RenderGenres(const std::vector<Text>& genres, bool v24) {
    std::vector<Text> names;
    for (const Text& genre : genres) {
        // What the user enters as a number is meant as one.
        const std::optional<Text> name = NameOf(genre);
        if (!genre.empty()) names.push_back(name ? *name : genre);
    }
    if (!v24) return WithNumbers(names);
    std::transform(names.begin(), names.end(), names.begin(), Escaped);
    return names;
}

}  // namespace mdlPLM::standard
