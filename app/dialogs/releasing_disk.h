// The file system with a courtesy: whoever uses a file is told to let go of it before the file is
// renamed, replaced or deleted. Systems that lock open files would refuse otherwise.
#pragma once

#include "app/dialogs/player.h"

namespace mdlPLM {

class ReleasingDisk final : public Disk {
public:
    ReleasingDisk(Disk& disk, FileUser& user) : disk_(disk), user_(user) {}

    bool Exists(TextView path) override { return disk_.Exists(path); }
    bool IsFolder(TextView path) override { return disk_.IsFolder(path); }
    bool IsSameFile(TextView a, TextView b) override { return disk_.IsSameFile(a, b); }
    Status Rename(TextView from, TextView to, IfTargetExists ifExists) override;
    Status BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                     std::unique_ptr<PiecewiseCopy>& copy) override;
    Status CreateFolder(TextView path) override { return disk_.CreateFolder(path); }
    Status DeleteFile(TextView path) override;
    Status SetAttributes(TextView path, int attributes) override {
        return disk_.SetAttributes(path, attributes);
    }
    Text ContentsAt(TextView path) override { return disk_.ContentsAt(path); }

private:
    Disk& disk_;
    FileUser& user_;
};

}  // namespace mdlPLM
