// The frames of a tag text found by walking from frame to frame, in whichever form their sizes are
// written: 7-bit groups (ID3v2.4.0, and this program in every version) or plain numbers
// (ID3v2.3.0). Both stand side by side in a tag that two programs wrote.
#pragma once

#include <vector>

#include "core/tags/id3v2.h"

namespace mdlPLM {

/// One frame of a tag text, found by walking from frame to frame.
struct WalkedFrame {
    std::size_t Start = 0;
    std::size_t Length = 0;     ///< header included
    bool SevenBitSize = false;  ///< its size bytes are 7-bit groups; else one plain number
};

struct FrameWalk {
    std::vector<WalkedFrame> Frames;  ///< in their order, from the start of the text without gaps
    /// Behind the last frame there is nothing but padding, up to the audio or the end.
    bool EndsCleanly = false;
};

/// The walk that passes the most frames; of two with as many the one that ends cleanly, then the
/// one with the shorter frames. A size is taken in a form that leads to another frame, to padding,
/// to audio or to the end; the walk ends where neither form does.
FrameWalk WalkTag(BytesView tagText);

/// Its frames alone.
std::vector<WalkedFrame> WalkFrames(BytesView tagText);

}  // namespace mdlPLM
