#include "app/cli/sort_watch.h"

#include <array>
#include <utility>

#include "core/platform/path.h"

namespace mdlPLM::cli {

namespace {

// In the order of SortMethod.
constexpr std::array<Outcome, 3> OutcomesOfMethods = {Outcome::Copied, Outcome::Moved,
                                                      Outcome::Renamed};

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
    PutFolders();
    const RunReport& now = run.Report();
    for (; told_ < now.Files.size(); ++told_) {
        const FileOutcome& file = now.Files[told_];
        if (file.Folder)
            report_.Fail(spelling_.Shown(file.Path), ReasonText(file.Reason));
        else
            PutFile(file, method);
    }
    if (now.Cancelled) PutFile(*now.Cancelled, method);
    // The question of a file is in its record.
    (void)planner_.TakeQuestion();
}

void SortWatch::PutFolders() {
    for (const Action& action : disk_.Take())
        if (action.Kind == ActionKind::CreateFolder)
            PutFolder(report_, spelling_, action.From, planner_.TakeQuestion());
}

void SortWatch::PutFile(const FileOutcome& file, SortMethod method) {
    const Outcome done = OutcomesOfMethods.at(static_cast<std::size_t>(method));
    FileRecord record = RecordOf(report_, file, done);
    if (expected_ == record.Path) record.Fields = std::move(fields_);
    expected_.clear();
    PutRecord(report_, spelling_, record);
}

}  // namespace mdlPLM::cli
