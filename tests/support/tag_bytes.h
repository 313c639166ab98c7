// Tags of any form as bytes, for tests: what other programs write, good and bad.
#pragma once

#include "core/text/text.h"

namespace mdlPLM::test {

inline const Bytes Nul(1, '\0');

/// `count` NULs.
Bytes Nuls(std::size_t count);

/// A size as four 7-bit groups.
Bytes SevenBitSize(std::size_t size);

/// Any frame: identifier, size, two flag bytes, content.
Bytes Frame(BytesView identifier, const Bytes& content);

/// The same with its size as a plain 32-bit number, as ID3v2.3.0 has it.
Bytes PlainSizeFrame(BytesView identifier, const Bytes& content);

/// A text frame in ISO-8859-1.
Bytes TextFrame(BytesView identifier, const Bytes& text);

/// A comment in English.
Bytes CommentFrame(const Bytes& description, const Bytes& text);

/// The ten bytes of a tag header that declares `size`; version 3, revision 0.
Bytes TagHeader(std::size_t size, char major = 3);

/// A whole tag with its true length: header, `frames` and `padding` NULs.
Bytes WholeTag(const Bytes& frames, std::size_t padding = 0);

/// A trailer in the ID3v1.0 layout, or ID3v1.1 with a track.
Bytes Trailer(BytesView title, char track = '\0', char genre = '\x11');

/// `count` bytes that look like no tag and no frame header, different everywhere.
Bytes Noise(std::size_t count);

}  // namespace mdlPLM::test
