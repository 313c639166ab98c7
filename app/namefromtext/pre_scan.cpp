#include "app/namefromtext/pre_scan.h"

#include <array>

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

// `lowerSource` is the lower-case form of `source`: made once for all keys of a long text.
Text FindValue(TextView source, TextView lowerSource, TextView lowerKey) {
    const Pos at = InStr(lowerSource, lowerKey);
    return at == 0 ? Text() : ValueBehind(source, at + static_cast<Pos>(lowerKey.size()));
}

// A value counts as found when it is not empty before it is cleaned.
Text FirstValue(TextView source, TextView lowerSource, const BoxRow& box) {
    for (const TextView key : box.Keys) {
        if (key.empty()) break;
        Text value = FindValue(source, lowerSource, key);
        if (!value.empty()) return value;
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
    return FindValue(strSRC, LCase(strSRC), LCase(strTag));
}

PreScanResult PreScan(TextView source) {
    const Text lower = LCase(source);
    PreScanResult result;
    for (const BoxRow& box : Boxes)
        result.*box.Value = Cleaned(FirstValue(source, lower, box), box.How);
    return result;
}

}  // namespace mdlPLM
