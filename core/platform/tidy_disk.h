#pragma once

#include "core/platform/disk.h"
#include "core/platform/left_overs.h"

namespace mdlPLM {

/// The machine's own file system, whose folders are looked through when they are first used.
class TidyDisk final : public SystemDisk {
public:
    /// `leftOvers` must outlive the disk.
    explicit TidyDisk(LeftOvers& leftOvers) : leftOvers_(leftOvers) {}
    Status Rename(TextView from, TextView to, IfTargetExists ifExists) override;
    Status BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                     std::unique_ptr<PiecewiseCopy>& copy) override;

private:
    void LookBesideBoth(TextView from, TextView to);

    LeftOvers& leftOvers_;
};

}  // namespace mdlPLM
