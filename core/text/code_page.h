// The two bridges between bytes and Text: the single-byte code page of tags and album texts, and
// the encoding of file names.
#pragma once

#include "core/text/text.h"

namespace mdlPLM {

/// Windows-1252 to Text, one character per byte. The five unassigned bytes 0x81, 0x8D, 0x8F, 0x90
/// and 0x9D become the code points of the same number. Never fails.
Text FromCodePage(BytesView bytes);

/// Text to Windows-1252; a character outside the page becomes "?" (a surrogate pair becomes one).
Bytes ToCodePage(TextView text);

/// UTF-8 to Text. A byte that belongs to no valid sequence is held as U+DC80 to U+DCFF, so that
/// ToUtf8 gives the very same bytes back.
Text FromUtf8(BytesView bytes);

/// Text to UTF-8; the mirror of FromUtf8. A lone surrogate that stands for no byte becomes "?".
Bytes ToUtf8(TextView text);

/// True when the bytes are valid UTF-8 throughout.
bool IsValidUtf8(BytesView bytes);

/// Contents of a text file of ours: UTF-8 (a byte order mark is dropped) when valid, else the code
/// page.
Text FromTextFile(BytesView bytes);

}  // namespace mdlPLM
