#include "core/text/code_page.h"

#include <algorithm>
#include <array>

#include "core/text/surrogates.h"

namespace mdlPLM {

namespace {

// Unicode's own mapping of Windows-1252, 0x80 to 0x9F ("bestfit1252" for the unassigned five).
constexpr std::array<char16_t, 32> HighPage = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<char16_t, 256> MakeWholePage() {
    std::array<char16_t, 256> page{};
    for (std::size_t byte = 0; byte < page.size(); ++byte) page[byte] = static_cast<char16_t>(byte);
    for (std::size_t i = 0; i < HighPage.size(); ++i) page[0x80 + i] = HighPage[i];
    return page;
}
constexpr std::array<char16_t, 256> WholePage = MakeWholePage();

char ToCodePageByte(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    for (std::size_t i = 0; i < HighPage.size(); ++i)
        if (HighPage[i] == c) return static_cast<char>(0x80 + i);
    return '?';
}

struct Decoded {
    char32_t Value = 0;
    std::size_t Length = 0;  // 0: no valid sequence starts here
};

// The well-formed sequences of the Unicode Standard, table 3-7.
Decoded DecodeUtf8(BytesView bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) -> unsigned {
        return at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0U;
    };
    const unsigned lead = byte(0);
    if (lead < 0x80) return {lead, 1};
    std::size_t length = 0;
    unsigned low = 0x80;
    unsigned high = 0xBF;
    char32_t value = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        value = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        value = lead & 0x0F;
        if (lead == 0xE0) low = 0xA0;
        if (lead == 0xED) high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        value = lead & 0x07;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;
    } else {
        return {};
    }
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned next = byte(i);
        if (next < low || next > high) return {};
        value = (value << 6) | (next & 0x3F);
        low = 0x80;
        high = 0xBF;
    }
    return {value, length};
}

void AppendUtf16(Text& text, char32_t value) {
    if (value < 0x10000) {
        text.push_back(static_cast<char16_t>(value));
        return;
    }
    value -= 0x10000;
    text.push_back(static_cast<char16_t>(0xD800 + (value >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (value & 0x3FF)));
}

void AppendUtf8(Bytes& bytes, char32_t value) {
    const auto tail = [&](int shift) {
        bytes.push_back(static_cast<char>(0x80 | ((value >> shift) & 0x3F)));
    };
    if (value < 0x80) {
        bytes.push_back(static_cast<char>(value));
    } else if (value < 0x800) {
        bytes.push_back(static_cast<char>(0xC0 | (value >> 6)));
        tail(0);
    } else if (value < 0x10000) {
        bytes.push_back(static_cast<char>(0xE0 | (value >> 12)));
        tail(6);
        tail(0);
    } else {
        bytes.push_back(static_cast<char>(0xF0 | (value >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace

Text FromCodePage(BytesView bytes) {
    Text text(bytes.size(), u' ');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return WholePage[static_cast<unsigned char>(byte)]; });
    return text;
}

Bytes ToCodePage(TextView text) {
    Bytes bytes(text.size(), ' ');
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsPairAt(text, i)) ++i;
        bytes[length++] = ToCodePageByte(text[i]);
    }
    bytes.resize(length);
    return bytes;
}

Text FromUtf8(BytesView bytes) {
    Text text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const Decoded next = DecodeUtf8(bytes, i);
        if (next.Length == 0) {
            text.push_back(HeldByte(static_cast<unsigned char>(bytes[i++])));
            continue;
        }
        AppendUtf16(text, next.Value);
        i += next.Length;
    }
    return text;
}

Bytes ToUtf8(TextView text) {
    // Most texts are plain ASCII to their end.
    const auto plainEnd =
        std::find_if(text.begin(), text.end(), [](char16_t c) { return c > 0x7F; });
    const auto plain = static_cast<std::size_t>(plainEnd - text.begin());
    Bytes bytes(text.size(), ' ');
    std::transform(text.begin(), plainEnd, bytes.begin(),
                   [](char16_t c) { return static_cast<char>(c); });
    bytes.resize(plain);
    for (std::size_t i = plain; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (IsPairAt(text, i)) {
            AppendUtf8(bytes, 0x10000U + ((char32_t{c} - 0xD800U) << 10) + (text[i + 1] - 0xDC00U));
            ++i;
        } else if (IsHeldByteAt(text, i)) {
            bytes.push_back(static_cast<char>(c - HeldByte(0)));
        } else if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
            bytes.push_back('?');
        } else {
            AppendUtf8(bytes, c);
        }
    }
    return bytes;
}

bool IsValidUtf8(BytesView bytes) {
    for (std::size_t i = 0; i < bytes.size();) {
        const std::size_t length = DecodeUtf8(bytes, i).Length;
        if (length == 0) return false;
        i += length;
    }
    return true;
}

Text FromTextFile(BytesView bytes) {
    if (!IsValidUtf8(bytes)) return FromCodePage(bytes);
    constexpr BytesView mark = "\xEF\xBB\xBF";
    if (bytes.substr(0, mark.size()) == mark) bytes.remove_prefix(mark.size());
    return FromUtf8(bytes);
}

}  // namespace mdlPLM
