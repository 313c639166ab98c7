// The ID3v2 tag as the program writes it: version 2.3.0, texts in single bytes, every size as four
// 7-bit groups (ID3v2.3.0, sections 3.1 and 3.3; the frame sizes differ from it on purpose).
#pragma once

#include "core/tags/id3v2.h"

namespace mdlPLM {

/// A size below 2^29 as four 7-bit groups, or as one plain number of four bytes, behind other
/// bytes.
void AppendSize(Bytes& bytes, std::int64_t size);
void AppendPlainSize(Bytes& bytes, std::int64_t size);

/// One frame with its header. The empty text gives the empty text: an empty field has no frame.
/// "COMM" gets the language "eng" and an empty description, "WXXX" an empty description; "TENC" is
/// marked to be dropped when the audio is altered.
Bytes BuildFrame(BytesView identifier, BytesView text);

/// The same behind other bytes.
void AppendFrame(Bytes& bytes, BytesView identifier, BytesView text);

/// The ten bytes of a tag header that declares `size`, which is below 2^29.
Bytes BuildTagHeader(std::int64_t size);

/// The frames of a record in the order they are written, and behind them its other frames as they
/// stand. The genre is written as its name.
Bytes BuildFrames(const ID3v2Tag& tag);

}  // namespace mdlPLM
