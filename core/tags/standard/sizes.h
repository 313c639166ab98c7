// Numbers in tags: plain ones of eight bits a byte, and those of seven (ID3v2.4.0, section 6.2).
// Both most significant byte first.
#pragma once

#include "core/text/text.h"

namespace mdlPLM::standard {

/// Of up to four bytes.
std::size_t PlainNumber(BytesView bytes);
/// Of up to four bytes; their top bits do not count.
std::size_t SevenBitNumber(BytesView bytes);
/// True when no byte has its top bit set.
bool IsSevenBit(BytesView bytes);

/// `value` in four bytes. It must be below 2^32, or 2^28 in seven bits a byte.
void AppendPlainNumber(Bytes& bytes, std::size_t value);
void AppendSevenBitNumber(Bytes& bytes, std::size_t value);

}  // namespace mdlPLM::standard
