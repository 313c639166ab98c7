#include "app/dialogs/releasing_disk.h"

namespace mdlPLM {

Status ReleasingDisk::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    user_.Release(from);
    if (ifExists == IfTargetExists::Replace) user_.Release(to);
    return disk_.Rename(from, to, ifExists);
}

Status ReleasingDisk::BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                                std::unique_ptr<PiecewiseCopy>& copy) {
    if (ifExists == IfTargetExists::Replace) user_.Release(to);
    return disk_.BeginCopy(from, to, ifExists, copy);
}

Status ReleasingDisk::DeleteFile(TextView path) {
    user_.Release(path);
    return disk_.DeleteFile(path);
}

}  // namespace mdlPLM
