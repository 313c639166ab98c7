// Editing a tag: only what is edited is rendered anew.
#pragma once

#include "core/tags/standard/fields.h"

namespace mdlPLM::standard {

struct FrameReplacement {
    std::size_t Place = 0;  ///< in Tag::Frames
    NewFrame Frame;
};

/// What is to become of a tag.
struct TagEdit {
    /// Nothing: the field is left alone; the empty text: it is removed. A text that is shown as it
    /// is changes nothing. "; " parts values in a genre, and where a field has several.
    ByField<std::optional<Text>> Fields;
    std::vector<std::size_t> Removed;  ///< places in Tag::Frames
    std::vector<FrameReplacement> Replaced;
    std::vector<NewFrame> Added;
    TagForm NewTagForm = TagForm::V23;  ///< of a tag where there is none: ID3v2.3 or ID3v2.4
};

/// The tag as it is to be written.
struct EditedTag {
    bool Changed = false;  ///< false: nothing is to be written
    TagHeader Header;      ///< its size is that of the frames, without padding
    Bytes Frames;          ///< empty: the tag goes
};

/// A tag keeps its version; one of ID3v2.2 becomes ID3v2.3. Frames that are not edited stay where
/// they are and as they are, flags included, but for their sizes, which are put right. A field
/// that stands in several frames of one identifier is left in one; of comments and addresses the
/// one that is shown is replaced. Dates are written as the version has them; where the tag holds
/// one in the other way too it is kept in step, and that way is added when the version's own cannot
/// tell all of it. Bytes of the tag that are neither a frame nor padding (Tag::Unread) go: left
/// where they are they would make it a damaged one again.
EditedTag EditTag(const Tag& tag, const TagEdit& edit);

/// A tag that is taken away with all its frames.
EditedTag RemovedTag();

/// The places of the frames that hold none of the fields.
std::vector<std::size_t> HiddenFrames(const Tag& tag);

}  // namespace mdlPLM::standard
