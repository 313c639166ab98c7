// Compressed frames (RFC 1950), through zlib.
#pragma once

#include <optional>

#include "core/text/text.h"

namespace mdlPLM::standard {

/// What a compressed content holds; nothing when it is damaged, or holds more than `most` bytes.
std::optional<Bytes> Inflated(BytesView compressed, std::size_t most);

}  // namespace mdlPLM::standard
