// From tags to the boxes that show them, and back to the records that are saved. A box that was not
// changed leaves what the file holds: nothing that a box cannot show is lost by a save.
#pragma once

#include <optional>

#include "app/tags/tag_box_table.h"
#include "core/tags/file_tags.h"
#include "core/tags/held_frames.h"

namespace mdlPLM {

/// What is to be put into a file, by box; nothing: what the file holds stays.
using BoxChanges = std::array<std::optional<Text>, TagBoxCount>;

/// The boxes of a file: its texts, and the check boxes of the tags that it has.
TagBoxes ShowBoxes(const FileTags& tags, bool optimized);

/// The fields of one version put into the boxes of the other, which is ticked. The ID3v1 texts are
/// cut to their fields.
void CopyBoxesFromV1(TagBoxes& boxes);
void CopyBoxesToV1(TagBoxes& boxes);

/// A text as a box takes it: without line breaks and NULs, and of `allowed` characters only unless
/// that is empty.
Text TextForBox(TextView text, TextView allowed);

/// What differs between the boxes as they were shown and as they are.
BoxChanges ChangesBetween(const TagBoxes& shown, const TagBoxes& now);

/// The track byte of a box: a number from 1 to 255 in its digits, else NUL; a text that holds "*"
/// is no track.
char TrackByte(TextView text);

/// What becomes of ID3v1 fields that were not changed.
enum class UnchangedFields {
    KeepBytes,   ///< their bytes stay
    LayOutAnew,  ///< they are padded with NULs, unless that would drop bytes that are not shown
};

struct V1Style {
    bool Optimized = false;
    UnchangedFields Unchanged = UnchangedFields::KeepBytes;
};
ID3v1Tag EditedV1(const ID3v1Tag& old, const BoxChanges& changes, V1Style style);

/// The record to be saved. A frame that is handed on gives way to a text that takes its place.
ID3v2Tag EditedV2(const ID3v2Tag& old, HeldFrames held, const BoxChanges& changes,
                  HiddenFrames hidden);

}  // namespace mdlPLM
