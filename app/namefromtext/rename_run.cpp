#include "app/namefromtext/rename_run.h"

#include <optional>
#include <utility>

#include "core/names/existing_target.h"
#include "core/names/new_name.h"
#include "core/platform/path.h"
#include "core/tags/file_tags.h"

namespace mdlPLM {

namespace {

constexpr TextView BoxTitle = u"Pellmore";
constexpr auto FieldsAndText = ID3v2Parts::FieldsAndText;

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

bool HasItsName(std::optional<MoveResult> moved) {
    return moved == MoveResult::Handled || moved == MoveResult::InPlace;
}

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

Text SummaryText(const RenameReport& report, const Language& words) {
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
    File Opened;  // the file itself, locked, where it can be written to
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
      mover_(MovingRules(), disk, prompts, own_),
      ended_(pairs_.empty()) {
    report_.Completed = ended_;
    if (choices_.Exists != IfExists::Replace) return;
    for (const RenamePair& pair : pairs_) own_.Add(pair.OldPath, disk_);
}

bool RenameRun::Step() {
    if (Finished()) return false;
    if (group_.Working()) {
        group_.Step();
    } else if (!ended_) {
        HandlePair(pairs_[done_]);
        ++done_;
    }
    if (done_ == pairs_.size()) ended_ = true;
    if (ended_) group_.Finish();
    Settle();
    report_.Completed = Finished() && !report_.Stopped && !report_.Cancelled;
    return !Finished();
}

void RenameRun::Stop() {
    report_.Stopped = true;
    report_.Completed = false;
    ended_ = true;
    group_.Stop();
    Settle();
}

Message RenameRun::NoNameLeft(const RenamePair& pair) const {
    return {Text(BoxTitle), FaultOfNewName(pair.NewName, settings_, choices_.Words), pair.OldPath};
}

void RenameRun::HandlePair(const RenamePair& pair) {
    Unsettled left{done_, {}, {}, 0};
    // A list can name folders, but nobody asked for a new name of a whole folder.
    if (IsNothingLeft(pair.NewName, settings_))
        Fail(pair.OldPath, NoNameLeft(pair));
    else if (!IsUsableFileName(pair.NewName))
        Fail(pair.OldPath, RenameMessage(ErrorNumber::BadFileName, pair.OldPath));
    else if (disk_.IsFolder(pair.OldPath))
        FailWith(pair.OldPath, ErrorNumber::PathFileAccess);
    else
        HandleFile(pair, left);
    unsettled_.push_back(std::move(left));
}

void RenameRun::HandleFile(const RenamePair& pair, Unsettled& left) {
    const Text newPath = JoinPath(FolderOfPath(pair.OldPath), pair.NewName);
    left.Tagged = newPath;
    OwnTags own;
    std::optional<MoveResult> moved;
    if (disk_.Exists(pair.OldPath)) {
        own = ReadOwnTags(pair.OldPath);
        moved = mover_.RenameFile(pair.OldPath, newPath);
        left.Attributed = HasItsName(moved) ? newPath : pair.OldPath;
    } else {
        // Where neither is there, nothing is written or shown.
        if (!disk_.Exists(newPath)) return Count({}, pair);
        own = ReadOwnTags(newPath);
    }
    Count(moved, pair);
    if (HasItsName(moved)) own.Opened.LookAgainAfterRename();
    // After "No" the new path is the other, existing file's: its tags are written all the same, on
    // purpose. After a failure it is not known whose it is.
    if (moved == MoveResult::LeftAlone) (void)own.Opened.Close();
    if (moved != MoveResult::Failed && moved != MoveResult::Cancelled)
        left.Saves = WriteTags(own, pair, newPath);
}

MoverRules RenameRun::MovingRules() {
    MoverRules rules{SortMethod::Rename, choices_.Exists, CaseFold::Upper, MoveResult::LeftAlone};
    rules.BeforeTarget = [this](TextView target, bool asks) {
        // Nothing waits while the user is asked.
        if (asks || IsWaiting(target)) CommitTags();
    };
    return rules;
}

bool RenameRun::IsWaiting(TextView path) const {
    FileIdentity identity;
    return IdentityOf(path, identity) && group_.Holds(identity);
}

bool RenameRun::SetsAttributes() const { return choices_.chkConvert && settings_.bSetAttributes; }

// A file whose attributes the run decides on is not kept from its tags by those it has.
void RenameRun::LiftProtection(const Text& path) {
    if (!SetsAttributes()) return;
    if (const int attributes = GetAttributes(path); (attributes & ReadOnly) != 0)
        static_cast<void>(disk_.SetAttributes(path, attributes & (Hidden | Archive)));
}

void RenameRun::SetAttributes(const Text& path) {
    if (SetsAttributes() && !path.empty())
        static_cast<void>(disk_.SetAttributes(path, AttributesToSet(settings_)));
}

RenameRun::OwnTags RenameRun::ReadOwnTags(const Text& path) {
    OwnTags own;
    if (!choices_.chkSaveID3v1 && !choices_.chkSaveID3v2) return own;
    LiftProtection(path);
    const SaveResult opened = writer_ == nullptr ? group_.Open(path, own.Opened) : SaveResult();
    // What cannot be opened for writing can be read all the same; the save says why it failed.
    if (!own.Opened.IsOpen()) CommitTags();
    if (opened.Obstacle == SaveObstacle::None)
        ReadOpenTags(path, own);
    else
        Fail(path, {Text(BoxTitle), SaveMessage(opened, choices_.Words), path});
    return own;
}

void RenameRun::ReadOpenTags(const Text& path, OwnTags& own) {
    const Text contents = disk_.ContentsAt(path);
    CollectingErrors errors;
    if (choices_.chkSaveID3v2) {
        FileTags tags = own.Opened.IsOpen() ? ReadFileTags(own.Opened, path, FieldsAndText, errors)
                                            : ReadFileTags(contents, FieldsAndText, errors);
        if (!tags.V2Failed)
            own.V2 = {std::move(tags.V2), std::move(tags.V2Header), std::move(tags.V2Text)};
        if (choices_.chkSaveID3v1 && !tags.V1Failed) own.V1 = std::move(tags.V1);
        if (!choices_.chkSaveID3v1) errors.KeepLast(tags.V2Failed ? 1 : 0);
    } else if (choices_.chkSaveID3v1) {
        ID3v1Tag tag = ReadID3v1(contents, errors);
        if (errors.Numbers.empty()) own.V1 = std::move(tag);
    }
    for (const ErrorNumber number : errors.Numbers) FailWith(path, number);
}

std::size_t RenameRun::WriteTags(OwnTags& own, const RenamePair& pair, const Text& newPath) {
    const RunTagChoices& choices = choices_.Tags;
    if (own.V1) SaveV1(own.Opened, newPath, FillID3v1(*own.V1, pair.NewName, choices, settings_));
    if (own.V2) SaveV2(own.Opened, newPath, FillID3v2(*own.V2, pair.NewName, choices, settings_));
    return (own.V1 ? 1U : 0U) + (own.V2 ? 1U : 0U);
}

void RenameRun::SaveV1(File& file, const Text& path, const ID3v1Tag& tag) {
    if (writer_ != nullptr) return group_.Add(writer_->SaveID3v1(path, tag));
    if (OpenAgain(file, path)) group_.SaveID3v1({path, file}, tag);
}

void RenameRun::SaveV2(File& file, const Text& path, const ID3v2Tag& tag) {
    constexpr SaveModes modes{TagMode::Leave, TagMode::Write};
    if (writer_ != nullptr) return group_.Add(writer_->Save(path, {}, tag, modes));
    if (OpenAgain(file, path)) group_.Save({path, file}, {{}, tag, modes});
}

// A failure is a result like others.
bool RenameRun::OpenAgain(File& file, const Text& path) {
    if (file.IsOpen()) return true;
    const SaveResult opened = group_.Open(path, file);
    if (opened.Outcome == SaveOutcome::Failed) group_.Add(opened);
    return file.IsOpen();
}

void RenameRun::CommitTags() {
    group_.Commit();
    Settle();
}

void RenameRun::Settle() {
    for (SaveResult result; group_.Take(result);) results_.push_back(result);
    while (!unsettled_.empty() && results_.size() >= unsettled_.front().Saves) SettleFirst();
}

void RenameRun::SettleFirst() {
    const Unsettled first = std::move(unsettled_.front());
    unsettled_.pop_front();
    for (std::size_t i = 0; i < first.Saves; ++i) {
        const SaveResult result = results_.front();
        results_.pop_front();
        if (result.Outcome != SaveOutcome::Failed) continue;
        const Text reason = SaveMessage(result, choices_.Words);
        prompts_.Critical({Text(BoxTitle), reason, first.Tagged});
        report_.Failures.push_back({first.Tagged, reason, first.Pair});
    }
    // Written anew it is another file to the system.
    if (first.Saves > 0 && first.Attributed == first.Tagged) own_.Add(first.Tagged, disk_);
    SetAttributes(first.Attributed);
    ++settled_;
}

void RenameRun::Count(std::optional<MoveResult> moved, const RenamePair& pair) {
    if (!moved) {
        ++report_.Missing;
        return;
    }
    switch (*moved) {
        case MoveResult::Failed:
            return Fail(pair.OldPath, RenameMessage(mover_.Reason().Error, pair.OldPath));
        case MoveResult::Cancelled:
            report_.Cancelled = ended_ = true;
            return;
        case MoveResult::LeftAlone:
        case MoveResult::Stays:
            ++report_.Kept;
            return;
        case MoveResult::Handled:
        case MoveResult::InPlace:
        case MoveResult::UnderWay:
            ++report_.Renamed;
            return;
    }
}

// The files before it are told first.
void RenameRun::Fail(TextView path, const Message& message) {
    CommitTags();
    prompts_.Critical(message);
    report_.Failures.push_back({Text(path), message.Body, done_});
}

void RenameRun::FailWith(TextView path, ErrorNumber number) {
    Fail(path, {Text(BoxTitle), ErrorMessage(number), Text(path)});
}

}  // namespace mdlPLM
