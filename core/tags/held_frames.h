// What of a tag must be handed on as it stands when its file is saved: the reader finds frames by
// their letters and gives their texts, but not every frame can be written again from its text
// alone.
//
// The other frames that are left here are those that ParseID3v2 leaves, and besides, in their
// places, the known frames that are to be kept.
#pragma once

#include <vector>

#include "core/tags/frames.h"

namespace mdlPLM {

/// One frame of a tag text, found by walking from frame to frame.
struct WalkedFrame {
    std::size_t Start = 0;
    std::size_t Length = 0;     ///< header included
    bool SevenBitSize = false;  ///< its size bytes are 7-bit groups; else one plain number
};

/// The frames of a tag text in their order. Sizes are taken in whichever form leads to another
/// frame, to padding or to the end; the walk ends where neither does.
std::vector<WalkedFrame> WalkFrames(BytesView tagText);

/// `tagText` without the first walked frame of that identifier; unchanged when there is none.
Bytes CutWalkedFrame(BytesView tagText, BytesView identifier);

/// How much of a known frame its text tells.
enum class FrameKind {
    Absent,     ///< there is none
    Whole,      ///< writing its text again gives the very same frame
    Reference,  ///< a genre by its number: writing it again makes it a name
    InPart,     ///< the text is right, but a language, a description or flags are beside it
    Unshown,  ///< the text is not the frame's: another encoding, ends in NUL, a plain-text genre, a
              ///< genre number without a name, letters inside another frame
};

using FrameKinds = std::array<FrameKind, KnownFrames.size()>;

/// The kinds of the known frames, in the order of KnownFrames.
FrameKinds KindsOfFrames(BytesView tagText);

/// Which known frames are handed on as they stand as long as nothing else is put in their place.
enum class HandOn {
    NotWhole,        ///< all but Whole ones
    NotWholeNoName,  ///< all but Whole ones and genres by number, which become names
};
bool IsHandedOn(FrameKind kind, HandOn which);

/// What of a tag is handed on beside its fields.
struct HeldFrames {
    FrameKinds Kinds{};
    HandOn Which = HandOn::NotWhole;
    /// The tag text without the known frames that are not handed on. When nothing but NULs is left
    /// beside those that are, they alone, without the NULs.
    Bytes OtherFrames;
};
HeldFrames HoldFrames(BytesView tagText, HandOn which);

/// True for an empty text too.
bool IsOnlyNuls(BytesView bytes);

/// Of a tag text only the first walked frame of each of these identifiers.
Bytes OnlyFrames(BytesView tagText, const std::vector<BytesView>& identifiers);

}  // namespace mdlPLM
