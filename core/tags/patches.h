// Changing bytes of a file in place so that a failure leaves it as it was.
#pragma once

#include <vector>

#include "core/platform/file.h"

namespace mdlPLM {

struct Patch {
    std::int64_t Offset = 0;  ///< 0-based, at most the file's size
    Bytes Contents;
};

/// Writes the patches in their order over the file's bytes or behind its end. When one fails, the
/// bytes that stood there are put back, the file gets its old length again, and the failure is
/// handed back.
Status ApplyPatches(File& file, const std::vector<Patch>& patches);

}  // namespace mdlPLM
