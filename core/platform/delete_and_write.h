// A file that is written anew under its own name.
//
// It is deleted first and then made again, without a temporary file, on purpose: from the delete to
// the end of the write its contents are in memory only, and a failure in between leaves it missing
// or short. What can be found out before is therefore found out before the delete.
//
// A symbolic link stays one: the file that it leads to is written anew. The new file keeps mode,
// owner and group, the user's extended attributes and the access control list, as far as the system
// lets them be set. Of several hard links the one that is named gets the new contents; the others
// keep the old ones.
#pragma once

#include "core/platform/file.h"

namespace mdlPLM {

/// Deletes the file at `path`, which is open as `old`, and makes it again with `contents`. Nothing
/// is deleted when there is no room for them (DiskFull), or when something else stands at `path` by
/// now (PathFileAccess).
Status DeleteAndWrite(TextView path, const File& old, BytesView contents);

}  // namespace mdlPLM
