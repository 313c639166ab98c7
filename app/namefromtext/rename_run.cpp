#include "app/namefromtext/rename_run.h"

#include <optional>
#include <utility>

#include "core/names/existing_target.h"
#include "core/names/new_name.h"
#include "core/platform/path.h"
#include "core/tags/file_tags.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

constexpr TextView BoxTitle = u"Pellmore";

Message CountQuestion(TextView comparison) {
    return {Text(BoxTitle),
            Text(u"There are ").append(comparison) + u" new filnames then old.\r\n" +
                u"Do you want to continue any way?",
            {}};
}

Message RenameMessage(ErrorNumber number, TextView oldPath) {
    if (number != ErrorNumber::PathFileAccess)
        return {Text(BoxTitle), ErrorMessage(number), Text(oldPath)};
    return {
        Text(BoxTitle),
        Text(u"Could not rename file! \r\nThe file \"").append(oldPath) + u"\" could be in use.",
        {}};
}

// What a tag operation reports, to be shown once it is over.
class CollectingErrors final : public ErrorSink {
public:
    void Report(ErrorNumber number, TextView /*path*/) override { Numbers.push_back(number); }
    void KeepLast(std::size_t count) {
        if (Numbers.size() > count)
            Numbers.erase(Numbers.begin(), Numbers.end() - static_cast<std::ptrdiff_t>(count));
    }
    std::vector<ErrorNumber> Numbers;
};

struct CountedPairs {
    std::size_t Count;
    const char* What;
};

}  // namespace

bool MayRename(std::size_t oldFiles, std::size_t newNames, Prompts& prompts) {
    if (newNames == 0) return false;
    if (newNames == oldFiles) return true;
    return prompts.AskYesNo(CountQuestion(newNames < oldFiles ? u"fewer" : u"more")) == Answer::Yes;
}

Text SummaryText(const RunReport& report, const Language& words) {
    const CountedPairs counts[] = {
        {report.Renamed, PLM_TRANSLATE("Texts", "%1 renamed")},
        {report.Kept, PLM_TRANSLATE("Texts", "%1 kept")},
        {report.Missing, PLM_TRANSLATE("Texts", "%1 missing")},
        {report.Failures.size(), PLM_TRANSLATE("Texts", "%1 failed")},
    };
    Text summary;
    for (const auto& [count, what] : counts) {
        if (count == 0) continue;
        if (!summary.empty()) summary.append(u", ");
        summary.append(words(what, {NumberText(static_cast<long long>(count))}));
    }
    return summary.empty() ? words(PLM_TRANSLATE("Texts", "Nothing renamed")) : summary;
}

// The tags that a file had before it was renamed; one that was not asked for, or could not be read,
// is not written either.
struct RenameRun::OwnTags {
    std::optional<ID3v1Tag> V1;
    std::optional<OwnID3v2> V2;
};

RenameRun::RenameRun(std::vector<RenamePair> pairs, RunChoices choices, Settings settings,
                     Disk& disk, Prompts& prompts)
    : pairs_(std::move(pairs)),
      choices_(std::move(choices)),
      settings_(std::move(settings)),
      disk_(disk),
      prompts_(prompts),
      finished_(pairs_.empty()) {
    report_.Completed = finished_;
    for (const RenamePair& pair : pairs_) own_.Add(pair.OldPath, disk_);
}

bool RenameRun::Step() {
    if (finished_) return false;
    HandlePair(pairs_[done_]);
    ++done_;
    if (done_ == pairs_.size() && !finished_) report_.Completed = finished_ = true;
    return !finished_;
}

void RenameRun::Stop() {
    report_.Stopped = true;
    report_.Completed = false;
    finished_ = true;
}

Message RenameRun::NoNameLeft(const RenamePair& pair) const {
    return {Text(BoxTitle), FaultOfNewName(pair.NewName, settings_, choices_.Words), pair.OldPath};
}

void RenameRun::HandlePair(const RenamePair& pair) {
    if (IsNothingLeft(pair.NewName, settings_)) return Fail(pair.OldPath, NoNameLeft(pair));
    if (!IsUsableFileName(pair.NewName))
        return Fail(pair.OldPath, RenameMessage(ErrorNumber::BadFileName, pair.OldPath));
    // A list can name folders, but nobody asked for a new name of a whole folder.
    if (disk_.IsFolder(pair.OldPath)) return FailWith(pair.OldPath, ErrorNumber::PathFileAccess);
    const Text newPath = JoinPath(FolderOfPath(pair.OldPath), pair.NewName);
    OwnTags own;
    Outcome outcome = Outcome::Missing;
    if (disk_.Exists(pair.OldPath)) {
        SetAttributes(pair.OldPath);
        own = ReadOwnTags(pair.OldPath);
        outcome = RenameTo(pair, newPath);
    } else {
        // Where neither is there, nothing is written or shown.
        if (!disk_.Exists(newPath)) return CountOutcome(outcome);
        own = ReadOwnTags(newPath);
    }
    CountOutcome(outcome);
    // After "No" the new path is the other, existing file's: its tags are written all the same, on
    // purpose. After a failure it is not known whose it is.
    if (outcome != Outcome::Failed && outcome != Outcome::Cancelled) WriteTags(own, pair, newPath);
}

RenameRun::Outcome RenameRun::RenameTo(const RenamePair& pair, const Text& newPath) {
    if (newPath == pair.OldPath) return Outcome::Named;
    const bool caseOnly = UCase(newPath) == UCase(pair.OldPath);
    if (!caseOnly && disk_.Exists(newPath)) return TakeExistingTarget(pair, newPath);
    return RenameFile(pair, newPath, IfTargetExists::Fail);
}

// "Replace" is meant for the files that were there before: where the target belongs to the run
// itself (a name that repeats, names that change places) the user is asked.
RenameRun::Outcome RenameRun::TakeExistingTarget(const RenamePair& pair, const Text& newPath) {
    if (disk_.IsSameFile(pair.OldPath, newPath)) return Outcome::Named;
    const bool belongsToRun = own_.Contains(newPath, disk_);
    const IfExists choice =
        belongsToRun && choices_.Exists == IfExists::Replace ? IfExists::Prompt : choices_.Exists;
    switch (DecideExistingTarget(choice, newPath, prompts_)) {
        case TargetDecision::Replace:
            return RenameFile(pair, newPath, IfTargetExists::Replace);
        case TargetDecision::Leave:
            return Outcome::Kept;
        case TargetDecision::Cancel:
            break;
    }
    return Outcome::Cancelled;
}

RenameRun::Outcome RenameRun::RenameFile(const RenamePair& pair, const Text& newPath,
                                         IfTargetExists ifExists) {
    const Status status = disk_.Rename(pair.OldPath, newPath, ifExists);
    if (status.Ok()) {
        own_.Add(newPath, disk_);
        return Outcome::Named;
    }
    Fail(pair.OldPath, RenameMessage(status.Number(), pair.OldPath));
    return Outcome::Failed;
}

void RenameRun::SetAttributes(TextView path) {
    if (!choices_.chkConvert || !settings_.bSetAttributes) return;
    static_cast<void>(disk_.SetAttributes(path, AttributesToSet(settings_)));
}

RenameRun::OwnTags RenameRun::ReadOwnTags(TextView path) {
    OwnTags own;
    const Text contents = disk_.ContentsAt(path);
    CollectingErrors errors;
    if (choices_.chkSaveID3v2) {
        FileTags tags = ReadFileTags(contents, ID3v2Parts::FieldsAndText, errors);
        if (!tags.V2Failed)
            own.V2 = {std::move(tags.V2), std::move(tags.V2Header), std::move(tags.V2Text)};
        if (choices_.chkSaveID3v1 && !tags.V1Failed) own.V1 = std::move(tags.V1);
        if (!choices_.chkSaveID3v1) errors.KeepLast(tags.V2Failed ? 1 : 0);
    } else if (choices_.chkSaveID3v1) {
        ID3v1Tag tag = ReadID3v1(contents, errors);
        if (errors.Numbers.empty()) own.V1 = std::move(tag);
    }
    for (const ErrorNumber number : errors.Numbers) FailWith(path, number);
    return own;
}

void RenameRun::WriteTags(const OwnTags& own, const RenamePair& pair, const Text& newPath) {
    const RunTagChoices& choices = choices_.Tags;
    if (own.V1)
        Note(newPath, SaveV1(newPath, FillID3v1(*own.V1, pair.NewName, choices, settings_)));
    if (own.V2)
        Note(newPath, SaveV2(newPath, FillID3v2(*own.V2, pair.NewName, choices, settings_)));
}

SaveResult RenameRun::SaveV1(const Text& path, const ID3v1Tag& tag) {
    if (writer_ != nullptr) return writer_->SaveID3v1(path, tag);
    CollectingErrors errors;
    if (WriteID3v1(path, tag, errors)) return {SaveOutcome::Written, ErrorNumber::None};
    return {SaveOutcome::Failed,
            errors.Numbers.empty() ? ErrorNumber::DeviceIo : errors.Numbers[0]};
}

SaveResult RenameRun::SaveV2(const Text& path, const ID3v2Tag& tag) {
    constexpr SaveModes modes{TagMode::Leave, TagMode::Write};
    return writer_ == nullptr ? SaveTags(path, {}, tag, modes)
                              : writer_->Save(path, {}, tag, modes);
}

void RenameRun::Note(const Text& path, SaveResult result) {
    if (result.Outcome == SaveOutcome::Failed) FailWith(path, result.Error);
}

void RenameRun::CountOutcome(Outcome outcome) {
    switch (outcome) {
        case Outcome::Named:
            ++report_.Renamed;
            break;
        case Outcome::Kept:
            ++report_.Kept;
            break;
        case Outcome::Missing:
            ++report_.Missing;
            break;
        case Outcome::Failed:
            break;
        case Outcome::Cancelled:
            report_.Cancelled = finished_ = true;
            break;
    }
}

void RenameRun::Fail(TextView path, const Message& message) {
    prompts_.Critical(message);
    report_.Failures.push_back({Text(path), message.Body});
}

void RenameRun::FailWith(TextView path, ErrorNumber number) {
    Fail(path, {Text(BoxTitle), ErrorMessage(number), Text(path)});
}

}  // namespace mdlPLM
