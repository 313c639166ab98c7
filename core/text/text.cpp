#include "core/text/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace mdlPLM {

namespace {

std::size_t ClampCount(Pos count, std::size_t size) {
    return count <= 0 ? 0 : std::min(static_cast<std::size_t>(count), size);
}

bool IsDigit(char32_t c) { return c >= U'0' && c <= U'9'; }

template <class View>
bool AllDigits(View text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](auto c) {
        return IsDigit(static_cast<char32_t>(static_cast<char16_t>(c)));
    });
}

struct NumberScan {
    bool Negative = false;
    bool HasDigits = false;
    std::size_t IntegerBegin = 0;
    std::size_t IntegerEnd = 0;
    std::size_t End = 0;
};

NumberScan ScanNumber(TextView text) {
    NumberScan scan;
    std::size_t i = 0;
    while (i < text.size() && text[i] == u' ') ++i;
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+')) scan.Negative = text[i++] == u'-';
    scan.IntegerBegin = i;
    while (i < text.size() && IsDigit(text[i])) ++i;
    scan.IntegerEnd = i;
    scan.HasDigits = scan.IntegerEnd > scan.IntegerBegin;
    if (i < text.size() && text[i] == u'.') {
        ++i;
        while (i < text.size() && IsDigit(text[i])) {
            ++i;
            scan.HasDigits = true;
        }
    }
    scan.End = i;
    return scan;
}

}  // namespace

Text Left(TextView text, Pos count) { return Text(text.substr(0, ClampCount(count, text.size()))); }

Text Right(TextView text, Pos count) {
    const std::size_t n = ClampCount(count, text.size());
    return Text(text.substr(text.size() - n));
}

Text Mid(TextView text, Pos start) { return Mid(text, start, std::numeric_limits<Pos>::max()); }

Text Mid(TextView text, Pos start, Pos count) {
    const std::size_t from = start < 1 ? 0 : ClampCount(start - 1, text.size());
    return Text(text.substr(from, ClampCount(count, text.size() - from)));
}

std::size_t FindRare(TextView text, TextView what, std::size_t start) {
    if (what.empty()) return text.find(what, start);
    // memchr takes many bytes at once; a byte of another character that looks the same is no match.
    const auto* const bytes = reinterpret_cast<const char*>(text.data());
    for (; start < text.size(); ++start) {
        const std::size_t from = start * sizeof(char16_t);
        const void* const byte =
            std::memchr(bytes + from, what.front() & 0xFF, text.size() * sizeof(char16_t) - from);
        if (byte == nullptr) return TextView::npos;
        start = static_cast<std::size_t>(static_cast<const char*>(byte) - bytes) / sizeof(char16_t);
        if (text.substr(start, what.size()) == what) return start;
    }
    return TextView::npos;
}

Pos InStr(Pos start, TextView text, TextView what) {
    const std::size_t from = start < 1 ? 0 : static_cast<std::size_t>(start - 1);
    const std::size_t found = text.find(what, from);
    return found == TextView::npos ? 0 : static_cast<Pos>(found) + 1;
}

Pos InStr(TextView text, TextView what) { return InStr(1, text, what); }

Pos InStrRev(TextView text, TextView what) {
    const std::size_t found = text.rfind(what);
    return found == TextView::npos ? 0 : static_cast<Pos>(found) + 1;
}

Text Trim(TextView text) { return Text(Trimmed(text)); }

TextView Trimmed(TextView text) {
    while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
    return text;
}

void TrimInPlace(Text& text) {
    const TextView trimmed = Trimmed(text);
    if (trimmed.size() < text.size()) text = Text(trimmed);
}

Text Replace(TextView text, TextView from, TextView to) {
    return Replace(text, from, to, std::numeric_limits<Pos>::max());
}

Text Replace(TextView text, TextView from, TextView to, Pos count) {
    if (from.empty()) return Text(text);
    Text result;
    result.reserve(text.size());
    std::size_t done = 0;
    while (count > 0) {
        const std::size_t found = text.find(from, done);
        if (found == TextView::npos) break;
        result.append(text.substr(done, found - done)).append(to);
        done = found + from.size();
        --count;
    }
    return result.append(text.substr(done));
}

Text Collapse(TextView text, TextView from, TextView to) {
    Text result(text);
    while (result.find(from) != Text::npos) result = Replace(result, from, to);
    return result;
}

bool StartsWith(TextView text, TextView part) { return text.substr(0, part.size()) == part; }

bool EndsWith(TextView text, TextView part) {
    return text.size() >= part.size() && text.substr(text.size() - part.size()) == part;
}

bool IsAllDigits(TextView text) { return AllDigits(text); }
bool IsAllDigits(BytesView text) { return AllDigits(text); }

Text FromAscii(BytesView ascii) {
    Text result(ascii.size(), u' ');
    std::transform(ascii.begin(), ascii.end(), result.begin(),
                   [](char c) { return static_cast<char16_t>(static_cast<unsigned char>(c)); });
    return result;
}

Text NumberText(long long value) { return FromAscii(std::to_string(value)); }

Text NumberText(double value, int decimals) {
    std::array<char, 400> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed, decimals);
    BytesView digits(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    if (digits.find('.') != BytesView::npos) {
        digits = digits.substr(0, digits.find_last_not_of('0') + 1);
        if (digits.back() == '.') digits.remove_suffix(1);
    }
    return digits == "-0" ? Text(u"0") : FromAscii(digits);
}

long long IntegerPart(TextView text) {
    const NumberScan scan = ScanNumber(text);
    using Range = std::numeric_limits<long long>;
    long long value = 0;
    for (std::size_t i = scan.IntegerBegin; i < scan.IntegerEnd; ++i) {
        const int digit = text[i] - u'0';
        // Counted down where the number is negative: that end of the range lies further out.
        const bool beyond = scan.Negative ? value < (Range::min() + digit) / 10
                                          : value > (Range::max() - digit) / 10;
        if (beyond) return scan.Negative ? Range::min() : Range::max();
        value = value * 10 + (scan.Negative ? -digit : digit);
    }
    return value;
}

bool IsNumber(TextView text) {
    const NumberScan scan = ScanNumber(text);
    return scan.HasDigits && text.find_first_not_of(u' ', scan.End) == TextView::npos;
}

}  // namespace mdlPLM
