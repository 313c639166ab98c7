// The frames that ID3v2.2, ID3v2.3 and ID3v2.4 know, and some that other programs have brought in.
#pragma once

#include <optional>

#include "core/tags/standard/frame_id.h"

namespace mdlPLM::standard {

/// How the content of a frame is laid out.
enum class FrameKind : char {
    Text,      ///< encoding, values
    UserText,  ///< encoding, description, values: TXXX
    Url,       ///< an address
    UserUrl,   ///< encoding, description, an address: WXXX
    Comment,   ///< encoding, language, description, text: COMM, USLT
    Picture,   ///< APIC
    Other,     ///< not read here
};

/// The kind of any identifier: unknown ones that begin with "T" are texts and those with "W"
/// addresses, as the standard has it.
FrameKind KindOf(const FrameId& id);

/// True when the table holds it.
bool IsKnown(const FrameId& id);

/// The identifier that a frame of ID3v2.2 has in ID3v2.3; nothing for one that is not in the table.
std::optional<FrameId> FromThreeLetters(BytesView threeLetters);

/// The same for any: an unknown one gets an "X" before it, which makes it one of those that are
/// free for everyone (ID3v2.3.0, section 3.3), so that its content can be kept.
FrameId IdOfThreeLetters(BytesView threeLetters);

/// The MIME type for the three letters that ID3v2.2 tells a picture's format in ("JPG"); "image/"
/// for what are no letters.
Bytes MimeOfFormat(BytesView threeLetters);

}  // namespace mdlPLM::standard
