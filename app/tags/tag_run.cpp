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

Text CountText(std::size_t count) { return NumberText(static_cast<long long>(count)); }

}  // namespace

TagRun::TagRun(std::vector<Text> paths, Edit edit, Language words)
    : paths_(std::move(paths)), edit_(std::move(edit)), words_(std::move(words)) {}

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
        ChangeFile(paths_[done_]);
        ++done_;
    }
    if (AllBegun()) group_.Finish();
    TakeResults();
    return !Finished();
}

void TagRun::TakeResults() {
    for (SaveResult result; group_.Take(result); ++told_) Count(result);
}

void TagRun::Count(const SaveResult& result) {
    TagOutcome outcome{told_, paths_[told_], result.Outcome, {}};
    switch (result.Outcome) {
        case SaveOutcome::Failed:
            outcome.Reason = ReasonOf(result, words_);
            report_.Failures.push_back({paths_[told_], outcome.Reason});
            break;
        case SaveOutcome::Written:
            report_.Written.push_back(told_);
            break;
        case SaveOutcome::NoWork:
            ++report_.Unchanged;
            break;
    }
    if (tell_) tell_(outcome);
}

void TagRun::Stop() {
    report_.Stopped = done_ < paths_.size();
    stopped_ = true;
    group_.Stop();
    TakeResults();
}

const Text& TagRun::Current() const {
    static const Text none;
    return AllBegun() ? none : paths_[done_];
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

Text TagFailureText(const std::vector<FileFailure>& failures, const Language& words) {
    if (failures.empty()) return {};
    Text heading = failures.size() == 1
                       ? words(PLM_TRANSLATE("Texts", "The tags of this file could not be saved:"))
                       : words(PLM_TRANSLATE("Texts", "The tags of %1 files could not be saved:"),
                               {CountText(failures.size())});
    return FailureBox(std::move(heading), failures, words);
}

Text TagSummaryText(const TagReport& report, const Language& words) {
    return words(PLM_TRANSLATE("Texts", "%1 done, %2 skipped, %3 failed"),
                 {CountText(report.Written.size()), CountText(report.Unchanged),
                  CountText(report.Failures.size())});
}

}  // namespace mdlPLM
