// Changing bytes of a file in place so that a failure leaves it as it was.
#pragma once

#include <functional>
#include <vector>

#include "core/platform/file.h"

namespace mdlPLM {

struct Patch {
    std::int64_t Offset = 0;  ///< 0-based, at most the file's size
    BytesView Contents;
};

/// Writes the patches in their order over the file's bytes or behind its end. When one fails, the
/// bytes that stood there are put back, the file gets its old length again, and the failure is
/// handed back.
Status ApplyPatches(File& file, const std::vector<Patch>& patches);

/// The same for a caller who knows what stands where each patch goes: as many bytes as it has,
/// fewer only where the file ends. Nothing is read; `oldBytes` is called when a write has failed.
using OldBytes = std::function<std::vector<Bytes>()>;
Status ApplyPatches(File& file, const std::vector<Patch>& patches, const OldBytes& oldBytes);

}  // namespace mdlPLM
