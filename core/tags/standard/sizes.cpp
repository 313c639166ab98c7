#include "core/tags/standard/sizes.h"

namespace mdlPLM::standard {

namespace {

constexpr std::size_t Width = 4;

void AppendNumber(Bytes& bytes, std::size_t value, unsigned bitsPerByte) {
    const std::size_t mask = (std::size_t{1} << bitsPerByte) - 1;
    for (unsigned group = Width; group-- > 0;)
        bytes.push_back(static_cast<char>(value >> (group * bitsPerByte) & mask));
}

}  // namespace

void AppendPlainNumber(Bytes& bytes, std::size_t value) { AppendNumber(bytes, value, 8); }

void AppendSevenBitNumber(Bytes& bytes, std::size_t value) { AppendNumber(bytes, value, 7); }

}  // namespace mdlPLM::standard
