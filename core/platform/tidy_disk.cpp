#include "core/platform/tidy_disk.h"

#include "core/platform/path.h"

namespace mdlPLM {

void TidyDisk::LookBesideBoth(TextView from, TextView to) {
    leftOvers_.LookIn(FolderOfPath(from));
    leftOvers_.LookIn(FolderOfPath(to));
}

Status TidyDisk::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    LookBesideBoth(from, to);
    return SystemDisk::Rename(from, to, ifExists);
}

Status TidyDisk::BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                           std::unique_ptr<PiecewiseCopy>& copy) {
    LookBesideBoth(from, to);
    return SystemDisk::BeginCopy(from, to, ifExists, copy);
}

}  // namespace mdlPLM
