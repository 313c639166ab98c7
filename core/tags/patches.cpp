#include "core/tags/patches.h"

#include <utility>

namespace mdlPLM {

namespace {

Status ReadOldBytes(const File& file, const std::vector<Patch>& patches, std::vector<Bytes>& old) {
    for (const Patch& patch : patches) {
        const Status status = file.ReadAt(patch.Offset, patch.Contents.size(), old.emplace_back());
        if (!status.Ok()) return status;
    }
    return {};
}

// As far as the file still takes it: a failure here cannot be mended any further. What was short
// stood at the end of the file, which has grown then.
void PutBack(File& file, const std::vector<Patch>& patches, const std::vector<Bytes>& old) {
    for (std::size_t i = patches.size(); i-- > 0;) {
        (void)file.WriteAt(patches[i].Offset, old[i]);
        if (old[i].size() < patches[i].Contents.size()) (void)file.SetSize(file.Size());
    }
}

}  // namespace

Status ApplyPatches(File& file, const std::vector<Patch>& patches) {
    std::vector<Bytes> old;
    const Status status = ReadOldBytes(file, patches, old);
    return status.Ok() ? ApplyPatches(file, patches, [&] { return std::move(old); }) : status;
}

Status ApplyPatches(File& file, const std::vector<Patch>& patches, const OldBytes& oldBytes) {
    for (const Patch& patch : patches) {
        const Status status = file.WriteAt(patch.Offset, patch.Contents);
        if (status.Ok()) continue;
        PutBack(file, patches, oldBytes());
        return status;
    }
    return {};
}

}  // namespace mdlPLM
