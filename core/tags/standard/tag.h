// The ID3v2 tag at the start of a file as ID3v2.2, ID3v2.3 and ID3v2.4 have it, taken apart into
// its frames. No frame is decoded before it is asked for.
#pragma once

#include <memory>

#include "core/tags/standard/frame_walk.h"

namespace mdlPLM::standard {

/// A tag as it stands. Its frames are views into the bytes that it was parsed from, which must stay
/// as long as it does.
struct Tag {
    bool Present = false;
    TagHeader Header;
    std::vector<Frame> Frames;
    BytesView Unread;  ///< behind the frames: neither frame nor padding
    /// Where the frames end in the file; padding or the audio follows.
    std::int64_t FramesEnd = 0;
    /// What the frames stand in when the tag is unsynchronised as a whole.
    std::shared_ptr<const Bytes> Own;
};

/// How many bytes from the start of a file ParseTag wants, given the first ten or more of them and
/// the file's size: 0 without a tag.
std::int64_t BytesToParse(BytesView head, std::int64_t fileSize);

/// The tag that the bytes begin with; not present when they begin with none. Damaged tags are read
/// as far as they go. Linear in time; beside the list of frames no more memory than the tag.
Tag ParseTag(BytesView file);

}  // namespace mdlPLM::standard
