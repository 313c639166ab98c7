#include "app/namefromtext/pre_scan.h"

#include <array>
#include <vector>

#include "core/names/fixing_rules.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

enum class Cleaning { RemovalSet, DigitsOnly };

struct BoxRow {
    Text PreScanResult::*Value;
    Cleaning How;
    std::array<TextView, 12> Keys;  // in order of trial, English and Swedish; empty ones end it
};

// "release name" without its colon comes early for the artist, deliberately.
constexpr std::array<BoxRow, 4> Boxes = {{
    {&PreScanResult::Artist,
     Cleaning::RemovalSet,
     {u"artist:", u"release name", u"artist/grupp:", u"grupp/artist:", u"grupp:", u"artist",
      u"grupp"}},
    {&PreScanResult::Album,
     Cleaning::RemovalSet,
     {u"album:", u"release name:", u"titel/produkt:", u"album", u"release name", u"titel/produkt"}},
    {&PreScanResult::Year,
     Cleaning::DigitsOnly,
     {u"year:", u"release year:", u"year", u"release year"}},
    {&PreScanResult::ReleaseDate,
     Cleaning::RemovalSet,
     {u"release date:", u"street date:", u"releasedatum:", u"release datum:", u"released:",
      u"sl\u00E4ppt:", u"release date", u"street date", u"releasedatum", u"release datum",
      u"released", u"sl\u00E4ppt"}},
}};

constexpr TextView RemovedLetters =
    u"\u00C0\u00C1\u00C2\u00C3\u00C7\u00C8\u00C9\u00CA\u00CB\u00CC\u00CD\u00CE\u00CF\u00D0\u00D1"
    u"\u00D2\u00D3\u00D4\u00D5\u00D7\u00D9\u00DA\u00DB\u00DD\u00DE\u00DF\u00E0\u00E1\u00E2\u00E3"
    u"\u00E7\u00E8\u00EA\u00EB\u00EC\u00ED\u00EE\u00EF\u00F0\u00F1\u00F2\u00F4\u00F5\u00F7\u00F9"
    u"\u00FA\u00FB\u00FD\u00FE\u00FF";

Text WithoutDecoration(Text value) {
    std::erase_if(
        value, [](char16_t c) { return TextView(u"\r\n:<>#\u00A4%").find(c) != TextView::npos; });
    for (char16_t& c : value)
        if (c == u'\t') c = u' ';
    return Trim(value);
}

Text ValueBehind(TextView source, Pos start) {
    const Pos lineEnd = InStr(start, source, CrLf);
    const Pos end = lineEnd > 0 ? lineEnd : static_cast<Pos>(source.size());
    return end < start ? Text() : WithoutDecoration(Mid(source, start, end - start));
}

// The first place of every key, found in one pass, because a text may be long and keys are many.
class KeyPlaces {
public:
    /// Keys in lower case.
    KeyPlaces(TextView lowerSource, const std::vector<TextView>& keys) {
        for (const TextView key : keys)
            if (!key.empty()) PlacesFor(key[0]).push_back({key, 0});
        for (std::size_t i = 0; i < lowerSource.size(); ++i) Note(lowerSource, i);
    }

    [[nodiscard]] Pos Of(TextView key) const {
        if (key.empty()) return 1;  // found at once
        for (const Place& place : places_[Row(key[0])])
            if (place.Key == key) return place.At;
        return 0;
    }

private:
    struct Place {
        TextView Key;
        Pos At;  // 0: nowhere
    };

    static constexpr std::size_t Row(char16_t first) { return first & 0xFFU; }
    std::vector<Place>& PlacesFor(char16_t first) { return places_[Row(first)]; }

    void Note(TextView source, std::size_t at) {
        for (Place& place : PlacesFor(source[at]))
            if (place.At == 0 && StartsWith(source.substr(at), place.Key))
                place.At = static_cast<Pos>(at) + 1;
    }

    std::array<std::vector<Place>, 256> places_;  // by the low byte of a key's first character
};

Text ValueOf(TextView source, const KeyPlaces& places, TextView key) {
    const Pos at = places.Of(key);
    return at == 0 ? Text() : ValueBehind(source, at + static_cast<Pos>(key.size()));
}

std::vector<TextView> AllKeys() {
    std::vector<TextView> keys;
    for (const BoxRow& box : Boxes) keys.insert(keys.end(), box.Keys.begin(), box.Keys.end());
    return keys;
}

// A value counts as found when it is not empty before it is cleaned.
Text FirstValue(TextView source, const KeyPlaces& places, const BoxRow& box) {
    for (const TextView key : box.Keys) {
        if (key.empty()) break;
        if (Text value = ValueOf(source, places, key); !value.empty()) return value;
    }
    return {};
}

Text Cleaned(TextView value, Cleaning how) {
    if (how == Cleaning::DigitsOnly) return RemoveChars(value, u"0123456789", RemoveMode::KeepOnly);
    return Trim(RemoveChars(value, PreScanRemovalSet(), RemoveMode::Remove));
}

}  // namespace

Text PreScanRemovalSet() {
    Bytes codes;
    const auto add = [&](int first, int last) {
        for (int code = first; code <= last; ++code) codes.push_back(static_cast<char>(code));
    };
    add(0, 31);
    add(127, 166);
    add(168, 191);
    return FromCodePage(codes).append(RemovedLetters);
}

Text GetATag(TextView strSRC, TextView strTag) {
    const Text key = LCase(strTag);
    return ValueOf(strSRC, KeyPlaces(LCase(strSRC), {key}), key);
}

PreScanResult PreScan(TextView source) {
    const KeyPlaces places(LCase(source), AllKeys());
    PreScanResult result;
    for (const BoxRow& box : Boxes)
        result.*box.Value = Cleaned(FirstValue(source, places, box), box.How);
    return result;
}

}  // namespace mdlPLM
