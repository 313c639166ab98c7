// A folder of the machine's own disk, seen as a file system that does not tell upper from lower
// case: it keeps the spelling that a name was made with and finds it by any other.
#pragma once

#include "core/platform/disk.h"

namespace mdlPLM {

class FoldingDisk : public Disk {
public:
    /// Some file systems number each spelling that a file is asked for as a file of its own.
    bool EachSpellingHasANumber = false;

    bool Exists(TextView path) override { return inner_.Exists(Spelt(path)); }
    bool IsFolder(TextView path) override { return inner_.IsFolder(Spelt(path)); }
    bool IsSameFile(TextView a, TextView b) override;
    Status Rename(TextView from, TextView to, IfTargetExists ifExists) override;
    Status BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                     std::unique_ptr<PiecewiseCopy>& copy) override {
        return inner_.BeginCopy(Spelt(from), Spelt(to), ifExists, copy);
    }
    Status CreateFolder(TextView path) override { return inner_.CreateFolder(Spelt(path)); }
    Status DeleteFile(TextView path) override { return inner_.DeleteFile(Spelt(path)); }
    Status SetAttributes(TextView path, int attributes) override {
        return inner_.SetAttributes(Spelt(path), attributes);
    }
    Text ContentsAt(TextView path) override { return Spelt(path); }

private:
    /// The path as its folders and files are spelt on the disk; what is not there, as it is given.
    static Text Spelt(TextView path);

    SystemDisk inner_;
};

}  // namespace mdlPLM
