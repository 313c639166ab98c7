// The frames of a tag, found by going from one to the next.
//
// A frame's size is a plain number in ID3v2.3 and has seven bits a byte in ID3v2.4. Many tags have
// it the other way (among them those that this program writes in its classic way), and some have
// both. So a tag is walked with either reading, and the one counts that finds more frames which end
// cleanly; the version's own where they are alike.
#pragma once

#include <vector>

#include "core/tags/standard/frame_id.h"
#include "core/tags/standard/tag_header.h"

namespace mdlPLM::standard {

/// A frame as it stands. Its header is not among its bytes: what it says is here.
struct Frame {
    FrameId Id;                   ///< of four characters, also in ID3v2.2
    TagForm Form = TagForm::V23;  ///< of its flags and its content
    bool Unsynchronised = false;
    std::array<char, 2> Flags{};
    BytesView Body;  ///< what follows the header
};

struct FrameList {
    std::vector<Frame> Frames;
    std::size_t End = 0;  ///< where the last one ends
    bool Clean = true;    ///< each ends where another, padding or the tag's end follows
    /// What follows them and is neither a frame nor padding.
    BytesView Unread;
};

/// Bytes behind a tag that are wanted to tell whether its last frame reaches beyond it.
inline constexpr std::size_t Overreach = 12;

/// The frames of a tag text, which is what follows its headers. `size` is where the tag ends as it
/// declares; `text` may be shorter, or longer by Overreach. A frame that is damaged ends where the
/// next known one begins, or with the tag.
FrameList WalkFrames(BytesView text, std::size_t size, TagForm form);

}  // namespace mdlPLM::standard
