#include "core/tags/standard/sizes.h"

#include <algorithm>

namespace mdlPLM::standard {

namespace {

constexpr std::size_t Width = 4;

std::size_t Number(BytesView bytes, unsigned bitsPerByte) {
    const std::size_t mask = (std::size_t{1} << bitsPerByte) - 1;
    std::size_t number = 0;
    for (const char byte : bytes.substr(0, Width))
        number = number << bitsPerByte | (static_cast<unsigned char>(byte) & mask);
    return number;
}

void AppendNumber(Bytes& bytes, std::size_t value, unsigned bitsPerByte) {
    const std::size_t mask = (std::size_t{1} << bitsPerByte) - 1;
    for (unsigned group = Width; group-- > 0;)
        bytes.push_back(static_cast<char>(value >> (group * bitsPerByte) & mask));
}

}  // namespace

std::size_t PlainNumber(BytesView bytes) { return Number(bytes, 8); }

std::size_t SevenBitNumber(BytesView bytes) { return Number(bytes, 7); }

bool IsSevenBit(BytesView bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

void AppendPlainNumber(Bytes& bytes, std::size_t value) { AppendNumber(bytes, value, 8); }

void AppendSevenBitNumber(Bytes& bytes, std::size_t value) { AppendNumber(bytes, value, 7); }

}  // namespace mdlPLM::standard
