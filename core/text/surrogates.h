// What the two-place characters of a Text are made of, and the bytes of no encoding that it holds.
#pragma once

#include "core/text/text.h"

namespace mdlPLM {

/// The halves of a character beyond the basic plane.
constexpr bool IsHighSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
constexpr bool IsLowSurrogate(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

/// True when such a character begins at index `i` (from 0).
constexpr bool IsPairAt(TextView text, std::size_t i) {
    return i + 1 < text.size() && IsHighSurrogate(text[i]) && IsLowSurrogate(text[i + 1]);
}

/// The first character with both its halves. A half without the other one stands for itself.
constexpr TextView FirstCharacter(TextView text) {
    return text.substr(0, IsPairAt(text, 0) ? 2 : 1);
}

/// The place of a byte that belongs to no valid sequence, see FromUtf8.
constexpr char16_t HeldByte(unsigned char byte) { return static_cast<char16_t>(0xDC00 + byte); }

/// True when such a byte is held at index `i`; behind a high surrogate it is half of a character.
constexpr bool IsHeldByteAt(TextView text, std::size_t i) {
    return text[i] >= HeldByte(0x80) && text[i] <= HeldByte(0xFF) &&
           (i == 0 || !IsHighSurrogate(text[i - 1]));
}

}  // namespace mdlPLM
