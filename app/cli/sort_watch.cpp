#include "app/cli/sort_watch.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/platform/path.h"

namespace mdlPLM::cli {

namespace {

// In the order of SortMethod.
constexpr std::array<Outcome, 3> OutcomesOfMethods = {Outcome::Copied, Outcome::Moved,
                                                      Outcome::Renamed};

const Action* FindTransfer(const std::vector<Action>& actions) {
    const auto found = std::find_if(actions.begin(), actions.end(), [](const Action& action) {
        return action.Kind == ActionKind::Rename || action.Kind == ActionKind::Copy;
    });
    return found == actions.end() ? nullptr : &*found;
}

}  // namespace

void SortWatch::Expect(const Text& path) {
    if (!report_.Json() || naming_ == nullptr || path == expected_) return;
    expected_ = path;
    fields_.reset();
    if (!disk_.Exists(path)) return;
    SilentErrors silent;
    const FileTags tags = ReadFileTags(disk_.ContentsAt(path), ID3v2Parts::NameFields, silent);
    if (ReadingFault(tags, naming_->Values).Ok()) fields_ = GatherFields(path, tags, *naming_);
}

void SortWatch::Look(const SortRun& run, SortMethod method) {
    for (Action& action : disk_.Take()) actions_.push_back(std::move(action));
    PutFolders();
    const SortReport& now = run.Report();
    const bool settled = run.Progress().Done > done_ || now.Cancelled;
    if (!settled) return PutFolderFailures(now);
    PutFile(run, method);
    done_ = run.Progress().Done;
    failures_ = now.Failures.size();
    actions_.clear();
}

void SortWatch::PutFolders() {
    for (const Action& action : actions_)
        if (action.Kind == ActionKind::CreateFolder)
            PutFolder(report_, spelling_, action.From, planner_.TakeQuestion());
    actions_.erase(
        std::remove_if(actions_.begin(), actions_.end(),
                       [](const Action& a) { return a.Kind == ActionKind::CreateFolder; }),
        actions_.end());
}

// The folders of artists are made before the first file is begun.
void SortWatch::PutFolderFailures(const SortReport& now) {
    for (; failures_ < now.Failures.size(); ++failures_) {
        const FileFailure& failure = now.Failures[failures_];
        report_.Fail(spelling_.Shown(failure.Path), failure.Reason);
    }
}

void SortWatch::PutFile(const SortRun& run, SortMethod method) {
    FileRecord record;
    record.Path = run.Progress().Source;
    record.NewPath = run.Progress().Target;
    if (expected_ == record.Path) record.Fields = std::move(fields_);
    expected_.clear();
    record.Question = planner_.TakeQuestion();
    Judge(run, method, record);
    PutRecord(report_, spelling_, record);
}

void SortWatch::Judge(const SortRun& run, SortMethod method, FileRecord& record) {
    if (run.Report().Cancelled) {
        record.What = Outcome::Cancelled;
        return;
    }
    const SortedFile& file = run.Report().Files.back();
    record.Reason = file.Reason;
    switch (file.What) {
        case SortedFile::Outcome::Done:
            record.What = WhatWasDone(record, method);
            break;
        case SortedFile::Outcome::Skipped:
            record.What = WhySkipped(record);
            break;
        case SortedFile::Outcome::Failed:
            record.What = Outcome::Failed;
            break;
    }
}

Outcome SortWatch::WhatWasDone(FileRecord& record, SortMethod method) const {
    const Action* const transfer = FindTransfer(actions_);
    if (transfer == nullptr) return Outcome::Unchanged;
    record.Replaced = transfer->Replaced;
    return OutcomesOfMethods.at(static_cast<std::size_t>(method));
}

Outcome SortWatch::WhySkipped(FileRecord& record) {
    // Who names a file that is not there made a mistake.
    if (!disk_.Exists(record.Path)) return Outcome::Failed;
    if (record.NewPath.empty()) return Outcome::Skipped;
    if (record.Question.empty()) return Outcome::Kept;
    record.Reason.clear();
    return Outcome::Asks;
}

}  // namespace mdlPLM::cli
