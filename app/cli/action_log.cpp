#include "app/cli/action_log.h"

#include <utility>

namespace mdlPLM::cli {

class ActionLog::Copy final : public PiecewiseCopy {
public:
    Copy(ActionLog& log, std::unique_ptr<PiecewiseCopy> inner, Action action)
        : log_(log), inner_(std::move(inner)), action_(std::move(action)) {}
    void WaitForDisk() override { inner_->WaitForDisk(); }
    Status Step(bool& done) override {
        const Status status = inner_->Step(done);
        return done ? log_.Note(status, action_) : status;
    }
    [[nodiscard]] std::int64_t Copied() const override { return inner_->Copied(); }
    [[nodiscard]] std::int64_t Total() const override { return inner_->Total(); }

private:
    ActionLog& log_;
    std::unique_ptr<PiecewiseCopy> inner_;
    Action action_;
};

std::vector<Action> ActionLog::Take() { return std::exchange(actions_, {}); }

Status ActionLog::Note(Status status, Action action) {
    if (status.Ok()) actions_.push_back(std::move(action));
    return status;
}

Status ActionLog::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    return Note(inner_.Rename(from, to, ifExists),
                {ActionKind::Rename, Text(from), Text(to), ifExists == IfTargetExists::Replace});
}

Status ActionLog::BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                            std::unique_ptr<PiecewiseCopy>& copy) {
    const Status status = inner_.BeginCopy(from, to, ifExists, copy);
    if (!status.Ok()) return status;
    copy = std::make_unique<Copy>(
        *this, std::move(copy),
        Action{ActionKind::Copy, Text(from), Text(to), ifExists == IfTargetExists::Replace});
    return status;
}

Status ActionLog::CreateFolder(TextView path) {
    return Note(inner_.CreateFolder(path), {ActionKind::CreateFolder, Text(path), {}, false});
}

Status ActionLog::DeleteFile(TextView path) {
    return Note(inner_.DeleteFile(path), {ActionKind::Delete, Text(path), {}, false});
}

Status ActionLog::SetAttributes(TextView path, int attributes) {
    return inner_.SetAttributes(path, attributes);
}

}  // namespace mdlPLM::cli
