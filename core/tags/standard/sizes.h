// Numbers in tags: plain ones of eight bits a byte, and those of seven (ID3v2.4.0, section 6.2).
// Both most significant byte first.
#pragma once

#include "core/text/text.h"

namespace mdlPLM::standard {

/// Of up to four bytes.
constexpr std::size_t PlainNumber(BytesView bytes) {
    std::size_t number = 0;
    for (const char byte : bytes.substr(0, 4))
        number = number << 8U | static_cast<unsigned char>(byte);
    return number;
}

/// Of up to four bytes; their top bits do not count.
constexpr std::size_t SevenBitNumber(BytesView bytes) {
    std::size_t number = 0;
    for (const char byte : bytes.substr(0, 4))
        number = number << 7U | (static_cast<unsigned char>(byte) & 0x7FU);
    return number;
}

/// True when no byte has its top bit set.
constexpr bool IsSevenBit(BytesView bytes) {
    unsigned all = 0;
    for (const char byte : bytes) all |= static_cast<unsigned char>(byte);
    return all < 0x80;
}

/// `value` in four bytes. It must be below 2^32, or 2^28 in seven bits a byte.
void AppendPlainNumber(Bytes& bytes, std::size_t value);
void AppendSevenBitNumber(Bytes& bytes, std::size_t value);

}  // namespace mdlPLM::standard
