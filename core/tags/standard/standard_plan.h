// How a file's tags are saved the standard way: the new bytes, worked out without touching the
// file.
#pragma once

#include "core/tags/save_plan.h"
#include "core/tags/standard/edit.h"
#include "core/tags/standard/file_layout.h"

namespace mdlPLM::standard {

/// What is to become of the ID3v1 trailer.
struct TrailerEdit {
    TagMode Mode = TagMode::Leave;
    Bytes Trailer;  ///< with Write: its 128 bytes
};

/// Nothing is written when nothing changes. A tag that fits into the room of the old one goes
/// there, and what is left is its padding, unless that would be more than 64 kB and more than it
/// was. Otherwise the file is written anew, with 1 kB of padding or so much more, up to 4 kB, as
/// makes its size a multiple of 4096. Every size that is declared is true. Refused: a tag that
/// declares more than the file holds (InputPastEnd), and one that no header can declare (Overflow).
SavePlan PlanSave(const FileLayout& layout, const EditedTag& tag, const TrailerEdit& trailer);

}  // namespace mdlPLM::standard
