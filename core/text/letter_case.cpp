#include "core/text/letter_case.h"

#include <algorithm>
#include <array>

#include "core/text/letter_case_table.h"

namespace mdlPLM {

namespace {

template <std::size_t N>
char16_t Lookup(const std::array<CasePair, N>& table, char16_t c) {
    const auto row =
        std::lower_bound(table.begin(), table.end(), c,
                         [](const CasePair& pair, char16_t code) { return pair.From < code; });
    return row != table.end() && row->From == c ? row->To : c;
}

template <class Map>
Text MapEach(TextView text, Map map) {
    Text result(text);
    std::transform(result.begin(), result.end(), result.begin(), map);
    return result;
}

}  // namespace

char16_t UCaseBeyondAscii(char16_t c) { return Lookup(ToUpperTable, c); }

char16_t LCaseBeyondAscii(char16_t c) { return Lookup(ToLowerTable, c); }

Text UCase(TextView text) {
    return MapEach(text, [](char16_t c) { return UCase(c); });
}

Text LCase(TextView text) {
    return MapEach(text, [](char16_t c) { return LCase(c); });
}

bool EqualIgnoringCase(TextView a, TextView b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(),
                      [](char16_t x, char16_t y) { return x == y || LCase(x) == LCase(y); });
}

}  // namespace mdlPLM
