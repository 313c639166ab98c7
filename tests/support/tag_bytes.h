// Tags of any form as bytes, for tests: what other programs write, good and bad.
#pragma once

#include <cstdint>
#include <vector>

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
Bytes TagHeader(std::size_t size, char major = 3, char flags = '\0');

inline constexpr char UnsynchronisedFlag = '\x80';
inline constexpr char ExtendedFlag = '\x40';

/// A NUL behind every 0xFF that would be a sync, or that a NUL follows.
Bytes Unsynchronised(const Bytes& bytes);

/// An extended header of ID3v2.3 without a checksum.
inline const Bytes ExtendedHeader{"\0\0\0\6\0\0\0\0\0\0", 10};

/// A whole tag with its true length: header, `frames` and `padding` NULs.
Bytes WholeTag(const Bytes& frames, std::size_t padding = 0);

/// A trailer in the ID3v1.0 layout, or ID3v1.1 with a track.
Bytes Trailer(BytesView title, char track = '\0', char genre = '\x11');

/// At least `count` bytes as a JPEG file has them: its start, any bytes but no sync, its end.
/// Different for every `seed`.
Bytes LikeJpeg(std::size_t count, std::uint32_t seed = 1);

/// A tag that hides its frames from a reader who takes every size in one form or skips what its
/// header says.
struct HardTag {
    const char* What;
    Bytes Whole;  ///< header included
    Bytes Kept;   ///< of its frames those without a box, as they are to be handed on
};

/// Each holds title "Old title", artist "Old artist", the album in UTF-16 (HardAlbum), year "1999"
/// and something large between title and artist.
std::vector<HardTag> HardTags();
extern const Bytes HardAlbum;

/// `count` bytes that look like no tag and no frame header, different everywhere.
Bytes Noise(std::size_t count);

/// A picture of 5000 bytes that are none, in a frame.
inline const Bytes Picture = Frame("APIC", Nul + "image/png" + Nuls(2) + Noise(5000));

/// What may stand behind a tag: the beginning of the audio.
inline const Bytes TenBytes = "\xFF\xFB\x90\x64" + Bytes("audio!");

}  // namespace mdlPLM::test
