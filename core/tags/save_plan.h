// How a file's tags are saved: the new bytes, worked out without touching the file.
//
// The declared size of a tag and the bytes that are written are two computations that are not
// reconciled: in place the header declares ten bytes more than follow it; over an old tag that is
// too small it declares less than is written. Both are kept on purpose.
#pragma once

#include "core/tags/id3v1.h"
#include "core/tags/id3v2.h"

namespace mdlPLM {

enum class TagMode : int { Remove = -1, Leave = 0, Write = 1 };

struct SaveModes {
    TagMode V1 = TagMode::Leave;
    TagMode V2 = TagMode::Leave;
};

/// What the plan has to know of the old file.
struct OldFile {
    std::int64_t Size = 0;      ///< bytes
    bool HasV1 = false;         ///< "TAG" stands 128 bytes before the end
    bool HasV2 = false;         ///< "ID3" stands at the start
    std::int64_t V2Length = 0;  ///< as declared, header included; 0 without a tag
};

enum class SaveWay {
    NoWork,   ///< nothing is to be written
    Refused,  ///< the old file cannot be saved to, see SavePlan::Error
    InPlace,  ///< the bytes of the file change where they are
    Shorten,  ///< the trailer is cut off, everything before it stays
    Rewrite,  ///< a new file is made, which takes the name of the old one
};

struct SavePlan {
    SaveWay Way = SaveWay::NoWork;
    ErrorNumber Error = ErrorNumber::None;
    Bytes Head;  ///< from offset 0: the new tag; in place over the bytes of the old one
    /// Written anew: what of the old file follows the head (the audio, and the old trailer when it
    /// is left alone).
    std::int64_t CarriedFrom = 0;
    std::int64_t CarriedLength = 0;
    /// The new trailer; empty: none is written. In place it goes to TrailerPlace, written anew
    /// behind what is carried over.
    Bytes Trailer;
    std::int64_t TrailerPlace = 0;
    std::int64_t NewSize = 0;  ///< bytes of the file afterwards
};

/// The size that the header of the new tag declares; `framesLength` in bytes.
std::int64_t DeclaredSize(const OldFile& old, std::int64_t framesLength);

SavePlan PlanSave(const OldFile& old, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes);

}  // namespace mdlPLM
