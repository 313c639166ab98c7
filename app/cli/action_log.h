// A disk that writes down what is done to another one, really or in a plan.
#pragma once

#include <vector>

#include "core/platform/disk.h"

namespace mdlPLM::cli {

enum class ActionKind { CreateFolder, Rename, Copy, Delete };

struct Action {
    ActionKind Kind = ActionKind::Rename;
    Text From;  ///< the source, or the only path
    Text To;    ///< the target of Rename and Copy
    bool Replaced = false;
};

/// Only what succeeded is written down; a copy when its target stands.
class ActionLog final : public Disk {
public:
    explicit ActionLog(Disk& inner) : inner_(inner) {}

    /// What was done since the last call.
    std::vector<Action> Take();

    bool Exists(TextView path) override { return inner_.Exists(path); }
    bool IsFolder(TextView path) override { return inner_.IsFolder(path); }
    bool IsSameFile(TextView a, TextView b) override { return inner_.IsSameFile(a, b); }
    PathKind KindOf(TextView path) override { return inner_.KindOf(path); }
    Status Rename(TextView from, TextView to, IfTargetExists ifExists) override;
    Status BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                     std::unique_ptr<PiecewiseCopy>& copy) override;
    Status CreateFolder(TextView path) override;
    Status DeleteFile(TextView path) override;
    Status Flush(TextView path) override { return inner_.Flush(path); }
    Status SetAttributes(TextView path, int attributes) override;
    Text ContentsAt(TextView path) override { return inner_.ContentsAt(path); }

private:
    class Copy;
    Status Note(Status status, Action action);

    Disk& inner_;
    std::vector<Action> actions_;
};

}  // namespace mdlPLM::cli
