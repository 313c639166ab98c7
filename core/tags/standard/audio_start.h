// Where the audio of a file begins: by the frames of the audio, whatever a tag declares.
#pragma once

#include <optional>

#include "core/tags/stream_info.h"

namespace mdlPLM::standard {

/// True when a known frame header stands at `at` that another one follows at its distance, or the
/// audio's end.
bool IsFirstFrame(const ReadBytes& read, std::int64_t at, std::int64_t end);

/// The first such place in the bytes from `begin` to `end`, if it is within 16 megabytes. Reads in
/// blocks.
std::optional<std::int64_t> FindFirstFrame(const ReadBytes& read, std::int64_t begin,
                                           std::int64_t end);

/// The first byte from `begin` on that is not NUL; `end` when there is none before it.
std::int64_t FirstNonNul(const ReadBytes& read, std::int64_t begin, std::int64_t end);

}  // namespace mdlPLM::standard
