#include "app/tags/tag_run.h"

#include <algorithm>
#include <utility>

namespace mdlPLM {

namespace {

class FirstError final : public ErrorSink {
public:
    void Report(ErrorNumber number, TextView /*path*/) override {
        if (status_.Ok()) status_ = number;
    }
    [[nodiscard]] Status Result() const { return status_; }

private:
    Status status_;
};

FileFate FateOf(SaveOutcome outcome) {
    if (outcome == SaveOutcome::Failed) return FileFate::Failed;
    return outcome == SaveOutcome::Written ? FileFate::Done : FileFate::Unchanged;
}

}  // namespace

// To save and to clean are told alike: a file on which there is nothing to do is skipped.
const RunWording TagWording{FileFate::Skipped,
                            PLM_TRANSLATE("Texts", "The tags of this file could not be saved:"),
                            PLM_TRANSLATE("Texts", "The tags of %1 files could not be saved:")};

TagRun::TagRun(std::vector<Text> paths, Edit edit)
    : paths_(std::move(paths)), edit_(std::move(edit)) {}

void TagRun::ChangeFile(TextView path) {
    File file;
    FileTags tags;
    if (writer_ != nullptr) return group_.Add(ChangeClosedFile(path));
    const SaveResult opened = OpenForChange(group_, path, file, tags);
    if (opened.Outcome == SaveOutcome::NoWork)
        return group_.Save({path, file, &tags}, edit_(path, tags));
    const bool closed = !file.IsOpen() && opened.Obstacle == SaveObstacle::None;
    group_.Add(closed ? ChangeClosedFile(path) : opened);
}

// For a file that is written by somebody else, or cannot be: there may be nothing to write to it.
SaveResult TagRun::ChangeClosedFile(TextView path) {
    FileTags tags;
    const Status read = ReadForChange(path, tags);
    if (!read.Ok()) return {SaveOutcome::Failed, read.Number()};
    const TagChange change = edit_(path, tags);
    return writer_ == nullptr ? SaveTags(path, change.V1, change.V2, change.Modes)
                              : writer_->Save(path, change.V1, change.V2, change.Modes);
}

bool TagRun::Step() {
    if (Finished()) return false;
    if (group_.Working()) {
        group_.Step();
    } else if (!AllBegun()) {
        if (leftOvers_ != nullptr) leftOvers_->LookBeside(paths_[done_]);
        ChangeFile(paths_[done_]);
        ++done_;
    }
    if (AllBegun()) group_.Finish();
    TakeResults();
    return !Finished();
}

void TagRun::TakeResults() {
    for (SaveResult result; group_.Take(result);) report_.Files.push_back(OutcomeOf(result));
}

FileOutcome TagRun::OutcomeOf(const SaveResult& result) const {
    FileOutcome outcome{paths_[report_.Files.size()], {}, FateOf(result.Outcome)};
    if (outcome.What == FileFate::Failed) outcome.Reason = CauseOf(result);
    return outcome;
}

bool TagRun::Stop() {
    report_.Stopped = done_ < paths_.size();
    stopped_ = true;
    group_.Stop();
    TakeResults();
    return Finished();
}

const Text& TagRun::Current() const {
    static const Text none;
    return AllBegun() ? none : paths_[done_];
}

Cause CauseOf(const SaveResult& result) {
    switch (result.Obstacle) {
        case SaveObstacle::InUse:
            return {Why::AnotherWrites, result.Error};
        case SaveObstacle::Changed:
            return {Why::ChangedMeanwhile, result.Error};
        case SaveObstacle::Stopped:
            return {Why::GivenUp, result.Error};
        case SaveObstacle::None:
            break;
    }
    return {Why::SystemError, result.Error};
}

Status ReadForChange(TextView path, FileTags& tags) {
    FirstError errors;
    tags = ReadFileTags(path, ID3v2Parts::FieldsAndText, errors);
    return tags.Exists ? errors.Result() : ErrorNumber::FileNotFound;
}

SaveResult OpenForChange(SaveGroup& group, TextView path, File& file, FileTags& tags) {
    const SaveResult opened = group.Open(path, file);
    if (opened.Outcome == SaveOutcome::Failed) return opened;
    FirstError errors;
    tags = ReadFileTags(file, path, ID3v2Parts::FieldsAndText, errors);
    if (errors.Result().Ok()) return {};
    return {SaveOutcome::Failed, errors.Result().Number()};
}

}  // namespace mdlPLM
