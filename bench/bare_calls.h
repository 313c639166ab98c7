// The system calls that some work cannot do without, and nothing else: what the program is measured
// against. All throw when a call fails.
#pragma once

#include "core/tags/save_plan.h"

namespace mdlPLM::bench {

/// Reads what a new name needs: open, fstat, the head, the trailer, close.
void ReadBare(const Bytes& path);

/// The same for every file below a folder, which is walked.
void ReadFolderBare(const Bytes& folder);

/// Copies with mode and times: open, create, copy_file_range, fchmod, futimens, close.
void CopyBare(const Bytes& from, const Bytes& to);

/// The same by way of a temporary name beside the target and a rename that never replaces, so that
/// no half file is ever seen.
void CopyBareInTwoSteps(const Bytes& from, const Bytes& to);

/// Writes a plan's trailer and head over the bytes of the file: open, two writes, close. What has
/// to be read to make the plan is not read here.
void SaveBareInPlace(const Bytes& path, const SavePlan& plan);

/// Deletes the file and makes it anew by a plan: open, the read of what is carried over, close,
/// unlink, create, one write, close.
void SaveBareAnew(const Bytes& path, const SavePlan& plan);

}  // namespace mdlPLM::bench
