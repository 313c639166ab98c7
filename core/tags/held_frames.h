// What of a tag must be handed on as it stands when its file is saved: the reader finds frames by
// their letters and gives their texts, but not every frame can be written again from its text
// alone.
//
// The other frames that are left here are those that ParseID3v2 leaves, and besides, in their
// places, the known frames that are to be kept.
#pragma once

#include "core/tags/bare_tag.h"
#include "core/tags/frame_walk.h"
#include "core/tags/frames.h"

namespace mdlPLM {

/// `tagText` without the first frame of that identifier: a walked one, else one that stands where
/// the walk does not come to. Unchanged when there is none; four letters inside another frame are
/// none.
Bytes CutFoundFrame(BytesView tagText, BytesView identifier);

/// How much of a known frame its text tells.
enum class FrameKind {
    Absent,     ///< there is none
    Whole,      ///< writing its text again gives the very same frame
    Reference,  ///< a genre by its number: writing it again makes it a name
    InPart,     ///< the text is right, but a language, a description or flags are beside it
    Unshown,  ///< the text is not the frame's: another encoding, ends in NUL, a plain-text genre, a
              ///< genre number without a name, letters inside another frame, a place that the walk
              ///< does not come to, a tag whose bytes are not as they were before it was
              ///< unsynchronised
    Inside,   ///< the same, and there is no such frame: the letters stand inside another one
};

using FrameKinds = std::array<FrameKind, KnownFrames.size()>;

/// The kinds of the known frames, in the order of KnownFrames.
FrameKinds KindsOfFrames(const RawTag& tag);

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
    /// The bare tag text without the known frames that are not handed on. When nothing but NULs is
    /// left beside those that are, they alone, without the NULs.
    Bytes OtherFrames;
};
HeldFrames HoldFrames(const RawTag& tag, HandOn which);

/// Another text is put into the field of KnownFrames[place]: its frame is not handed on.
void GiveWay(HeldFrames& held, std::size_t place);

enum class HiddenFrames { Keep, Drop };

/// What is held becomes the record's other frames; Drop leaves the known ones of them alone. A
/// field whose frame is among them is emptied. One whose frame is not found there keeps its text.
void HandOnTo(ID3v2Tag& record, HeldFrames held, HiddenFrames hidden);

/// True for an empty text too.
bool IsOnlyNuls(BytesView bytes);

}  // namespace mdlPLM
