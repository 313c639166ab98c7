// A disk that writes down what is done to it and fails where a test wants it to.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <vector>

#include "core/platform/disk.h"

namespace mdlPLM {

enum class DiskOperation {
    Exists,
    IsFolder,
    IsSameFile,
    Rename,
    BeginCopy,
    CopyStep,
    CopyWaits,
    CreateFolder,
    DeleteFile,
    Flush,
    SetAttributes,
};

struct DiskCall {
    DiskOperation Operation;
    Text Path;  ///< the source, or the only path
    Text To;    ///< the target of Rename, BeginCopy, CopyStep; the other path of IsSameFile
    IfTargetExists IfExists = IfTargetExists::Fail;
    int Attributes = 0;
};

/// Hands every call on to another disk (the machine's own unless told otherwise), after noting it.
class RecordingDisk : public Disk {
public:
    RecordingDisk();
    explicit RecordingDisk(Disk& inner);
    ~RecordingDisk() override;

    /// Asked before each call that can fail; a status that is not Ok takes the call's place.
    /// `index` counts those calls from 0.
    std::function<Status(const DiskCall& call, std::size_t index)> Inject;

    /// Sets Inject so that the `nth` (from 0) call of that operation fails, once.
    void FailCall(DiskOperation operation, ErrorNumber error, std::size_t nth = 0);

    /// All calls, the questions (Exists, IsFolder, IsSameFile) included.
    [[nodiscard]] const std::vector<DiskCall>& Calls() const { return calls_; }
    /// The calls that change something: without the questions, the steps of copies and Flush.
    [[nodiscard]] std::vector<DiskCall> Changes() const;
    [[nodiscard]] std::size_t Count(DiskOperation operation) const;

    bool Exists(TextView path) override;
    bool IsFolder(TextView path) override;
    bool IsSameFile(TextView a, TextView b) override;
    Status Rename(TextView from, TextView to, IfTargetExists ifExists) override;
    Status BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                     std::unique_ptr<PiecewiseCopy>& copy) override;
    Status CreateFolder(TextView path) override;
    Status DeleteFile(TextView path) override;
    Status Flush(TextView path) override;
    Status SetAttributes(TextView path, int attributes) override;
    Text ContentsAt(TextView path) override { return inner_.ContentsAt(path); }

private:
    class Copy;
    Status Note(DiskCall call);

    SystemDisk system_;
    Disk& inner_;
    std::vector<DiskCall> calls_;
    std::size_t fallible_ = 0;
};

/// A disk in memory: names of files and folders, no contents. "/" separates folders; a folder is
/// named without a trailing separator, and one with a trailing separator is found all the same.
class MemoryDisk : public Disk {
public:
    std::set<Text> Files;
    std::set<Text> Folders;
    std::int64_t CopySteps = 1;  ///< how many steps a copy takes

    bool Exists(TextView path) override;
    bool IsFolder(TextView path) override;
    bool IsSameFile(TextView a, TextView b) override;
    Status Rename(TextView from, TextView to, IfTargetExists ifExists) override;
    Status BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                     std::unique_ptr<PiecewiseCopy>& copy) override;
    Status CreateFolder(TextView path) override;
    Status DeleteFile(TextView path) override;
    Status SetAttributes(TextView path, int attributes) override;

private:
    class Copy;
    [[nodiscard]] Status CheckMove(TextView from, TextView to, IfTargetExists ifExists);
};

}  // namespace mdlPLM
