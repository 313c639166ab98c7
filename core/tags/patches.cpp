#include "core/tags/patches.h"

namespace mdlPLM {

namespace {

Status ReadOldBytes(const File& file, const std::vector<Patch>& patches, std::vector<Patch>& old) {
    for (const Patch& patch : patches) {
        Patch before{patch.Offset, {}};
        const Status status = file.ReadAt(patch.Offset, patch.Contents.size(), before.Contents);
        if (!status.Ok()) return status;
        old.push_back(std::move(before));
    }
    return {};
}

// As far as the file still takes it: a failure here cannot be mended any further. What was read
// short stood at the end of the file, which has grown then.
void PutBack(File& file, const std::vector<Patch>& old, const std::vector<Patch>& patches) {
    for (std::size_t i = old.size(); i-- > 0;) {
        (void)file.WriteAt(old[i].Offset, old[i].Contents);
        if (old[i].Contents.size() < patches[i].Contents.size()) (void)file.SetSize(file.Size());
    }
}

}  // namespace

Status ApplyPatches(File& file, const std::vector<Patch>& patches) {
    std::vector<Patch> old;
    Status status = ReadOldBytes(file, patches, old);
    if (!status.Ok()) return status;
    for (const Patch& patch : patches) {
        status = file.WriteAt(patch.Offset, patch.Contents);
        if (status.Ok()) continue;
        PutBack(file, old, patches);
        return status;
    }
    return {};
}

}  // namespace mdlPLM
