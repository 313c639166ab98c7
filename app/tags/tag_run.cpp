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

Text Count(std::size_t count) { return NumberText(static_cast<long long>(count)); }

}  // namespace

TagRun::TagRun(std::vector<Text> paths, Edit edit, Language words)
    : paths_(std::move(paths)), edit_(std::move(edit)), words_(std::move(words)) {}

SaveResult TagRun::ChangeFile(TextView path) {
    File file;
    if (writer_ != nullptr || !file.Open(path, File::Mode::ReadWrite).Ok())
        return ChangeClosedFile(path);
    FirstError errors;
    const FileTags tags = ReadFileTags(file, path, ID3v2Parts::FieldsAndText, errors);
    const Status read = errors.Result();
    if (!read.Ok()) return {SaveOutcome::Failed, read.Number()};
    return SaveTags({path, file, tags}, edit_(path, tags));
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
    const Text& path = paths_[done_];
    const SaveResult result = ChangeFile(path);
    if (result.Outcome == SaveOutcome::Failed)
        report_.Failures.push_back({path, words_(Describe(result.Error))});
    else if (result)
        report_.Written.push_back(done_);
    else
        ++report_.Unchanged;
    ++done_;
    return !Finished();
}

void TagRun::Stop() {
    stopped_ = true;
    report_.Stopped = done_ < paths_.size();
}

const Text& TagRun::Current() const {
    static const Text none;
    return Finished() ? none : paths_[done_];
}

Status ReadForChange(TextView path, FileTags& tags) {
    FirstError errors;
    tags = ReadFileTags(path, ID3v2Parts::FieldsAndText, errors);
    return tags.Exists ? errors.Result() : ErrorNumber::FileNotFound;
}

Text TagFailureText(const std::vector<FileFailure>& failures, const Language& words) {
    if (failures.empty()) return {};
    Text heading = failures.size() == 1
                       ? words(PLM_TRANSLATE("Texts", "The tags of this file could not be saved:"))
                       : words(PLM_TRANSLATE("Texts", "The tags of %1 files could not be saved:"),
                               {Count(failures.size())});
    return FailureBox(std::move(heading), failures, words);
}

Text TagSummaryText(const TagReport& report, const Language& words) {
    return words(
        PLM_TRANSLATE("Texts", "%1 done, %2 skipped, %3 failed"),
        {Count(report.Written.size()), Count(report.Unchanged), Count(report.Failures.size())});
}

}  // namespace mdlPLM
