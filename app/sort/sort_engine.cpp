#include "app/sort/sort_engine.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/sort/artist_folders.h"
#include "app/sort/file_mover.h"
#include "app/sort/sort_folders.h"
#include "core/platform/path.h"

namespace mdlPLM {

namespace {

/// Files whose artist is worked out, or folders that are made, in one step of the preparation.
constexpr std::size_t PreparedPerStep = 32;
/// Files that are noted as the run's own in one step: a look at each.
constexpr std::size_t NotedPerStep = 1024;

constexpr const char* TargetExists = PLM_TRANSLATE("Texts", "There is a file of its new name");

constexpr std::array<const char*, 3> MethodTexts = {PLM_TRANSLATE("Texts", "Copying file:"),
                                                    PLM_TRANSLATE("Texts", "Moving file:"),
                                                    PLM_TRANSLATE("Texts", "Renaming file:")};

/// Only Copy and Move can leave a name as it is; a rename always makes a new one.
SortChoices InForce(SortChoices choices) {
    if (choices.Method == SortMethod::Rename) choices.chkConvert = true;
    return choices;
}

bool CountsArtists(SortStart start, const SortChoices& choices) {
    return start == SortStart::All && choices.Method != SortMethod::Rename &&
           choices.chkSubFolder && ArtistThreshold(choices) > 0;
}

/// After "No" a file that stays in its folder stays in the list as well.
MoverRules MoverRulesOf(const SortRules& rules) {
    const SortChoices& choices = rules.Choices;
    MoverRules moving{choices.Method, choices.Exists};
    const bool rename = choices.Method == SortMethod::Rename;
    moving.Leave = rename ? MoveResult::Stays : MoveResult::LeftAlone;
    const Settings& settings = rules.Context.Values;
    if (settings.bSetAttributes) moving.Attributes = AttributesToSet(settings);
    moving.Words = choices.Words;
    return moving;
}

Text ReasonWith(Status status, TextView name, const Language& words) {
    return words(Describe(status.Number())) + u" (\"" + Text(name) + u"\")";
}

}  // namespace

/// The run itself; SortRun hands out what it has to tell.
struct SortRun::Implementation {
    using Result = MoveResult;

    Implementation(SortRun& run, FileList& list, SortRules rules, Disk& disk, Prompts& prompts);

    void Step();
    void NoteSome();
    void CountSome();
    void MakeSomeFolders();
    Result SortEntry(const Text& source);
    Result SortFile(const Text& source, const SortNames& names);
    Result RenameFile(const Text& source, const SortNames& names);
    Result Fail(Text reason);
    Result Stay(Text reason);
    void Note(SortedFile::Outcome outcome, Text reason);
    void Leave();
    void Settle(Result result);
    void Flush();

    /// Handled rows lie before all others of the run, so that those moved up by their number.
    [[nodiscard]] FileList::Index RowNow(std::size_t entry) const { return Rows[entry] - Removed; }
    [[nodiscard]] bool IsLastOfList() const { return RowNow(Next) + 1 == List.Count(); }
    [[nodiscard]] bool AllLookedAt() const { return Next == Rows.size(); }
    [[nodiscard]] bool Ended() const;

    SortRun& Run;
    FileList& List;
    const SortRules Rules;
    Disk& Files;
    FileMover Mover;
    const std::vector<FileList::Index> Rows;  ///< the entries, as rows of the list at the start
    std::size_t ToNote = 0;                   ///< entries whose files are noted as the run's own
    std::size_t Noted = 0;
    ArtistFolders Artists;
    std::size_t ToCount = 0;  ///< entries whose artists are counted
    std::size_t Counted = 0;
    std::vector<FolderLevels> ToMake;  ///< artist folders to be made
    std::size_t Made = 0;
    std::size_t Next = 0;                  ///< the entry in hand
    std::vector<FileList::Index> Handled;  ///< handled rows still in the list, as they are now
    FileList::Index Removed = 0;           ///< handled rows that are out of the list
    FileList::Index NextRow = 0;
    Text Reason;  ///< why the entry in hand is not sorted
};

SortRun::Implementation::Implementation(SortRun& run, FileList& list, SortRules rules, Disk& disk,
                                        Prompts& prompts)
    : Run(run),
      List(list),
      Rules(std::move(rules)),
      Files(disk),
      Mover(MoverRulesOf(Rules), disk, prompts, list.OwnFilesOfSorts()),
      Rows(list.SelectedRows()),
      ToNote(Rules.Choices.Exists == IfExists::Replace ? Rows.size() : 0),
      Artists(Rules, disk),
      NextRow(list.Count()) {}

bool SortRun::Implementation::Ended() const {
    const SortReport& report = Run.report_;
    return report.Stopped || report.Cancelled || (AllLookedAt() && !Mover.UnderWay());
}

void SortRun::Implementation::Step() {
    if (Mover.UnderWay()) {
        Settle(Mover.Continue());
    } else if (Run.stop_ && !AllLookedAt()) {
        Run.report_.Stopped = true;
    } else if (Noted < ToNote) {
        NoteSome();
    } else if (Counted < ToCount) {
        CountSome();
    } else if (Made < ToMake.size()) {
        MakeSomeFolders();
    } else if (!AllLookedAt()) {
        Settle(SortEntry(List.Path(RowNow(Next))));
    }
}

void SortRun::Implementation::NoteSome() {
    const std::size_t end = std::min(Noted + NotedPerStep, ToNote);
    for (; Noted < end; ++Noted) List.OwnFilesOfSorts().Add(List.Path(RowNow(Noted)), Files);
}

void SortRun::Implementation::CountSome() {
    const std::size_t end = std::min(Counted + PreparedPerStep, ToCount);
    for (; Counted < end; ++Counted) {
        Run.progress_.Source = List.Path(RowNow(Counted));
        Artists.Count(Run.progress_.Source);
    }
    if (Counted == ToCount) ToMake = Artists.Earned();
}

void SortRun::Implementation::MakeSomeFolders() {
    const std::size_t end = std::min(Made + PreparedPerStep, ToMake.size());
    for (; Made < end; ++Made) {
        Text folder;
        const Status status = EnsureFolders(ToMake[Made], Files, folder);
        if (status.Ok()) continue;
        Run.report_.Failures.push_back({folder, Rules.Choices.Words(Describe(status.Number()))});
    }
}

SortRun::Implementation::Result SortRun::Implementation::SortEntry(const Text& source) {
    Run.progress_.Source = source;
    Run.progress_.Target.clear();
    const PathKind kind = Files.KindOf(source);
    if (kind == PathKind::Nothing)
        return Stay(Rules.Choices.Words(PLM_TRANSLATE("Texts", "The file is missing")));
    // A list can name folders, but nobody asked for a new name or place of a whole folder.
    if (kind == PathKind::Folder)
        return Fail(Rules.Choices.Words(Describe(ErrorNumber::PathFileAccess)));
    const SortNames names = NamesOf(source, Rules, Files);
    if (!names.Fault.empty()) return Fail(names.Fault);
    return Rules.Choices.Method == SortMethod::Rename ? RenameFile(source, names)
                                                      : SortFile(source, names);
}

SortRun::Implementation::Result SortRun::Implementation::SortFile(const Text& source,
                                                                  const SortNames& names) {
    const SortChoices& choices = Rules.Choices;
    FolderLevels levels = FoldersOf(names, choices);
    // The list's last entry is sorted without an artist folder when every artist has one. Intended.
    const bool exempt = ArtistThreshold(choices) == 0 && IsLastOfList();
    if (choices.chkSubFolder && !exempt &&
        !AddArtistFolder(levels, names.ArtistName, choices, Files)) {
        return Stay(choices.Words(PLM_TRANSLATE("Texts", "Its name has no artist")));
    }
    Text folder;
    const Status status = EnsureFolders(levels, Files, folder);
    if (!status.Ok()) return Fail(ReasonWith(status, folder, choices.Words));
    Run.progress_.Target = levels.back() + Separator + names.NewName;
    return Mover.CopyOrMoveFile(source, Run.progress_.Target);
}

SortRun::Implementation::Result SortRun::Implementation::RenameFile(const Text& source,
                                                                    const SortNames& names) {
    Run.progress_.Target = FolderOfPath(source) + names.NewName;
    return Mover.RenameFile(source, Run.progress_.Target);
}

SortRun::Implementation::Result SortRun::Implementation::Fail(Text reason) {
    Reason = std::move(reason);
    return Result::Failed;
}

SortRun::Implementation::Result SortRun::Implementation::Stay(Text reason) {
    Reason = std::move(reason);
    return Result::Stays;
}

void SortRun::Implementation::Note(SortedFile::Outcome outcome, Text reason) {
    Text target = outcome == SortedFile::Outcome::Done ? Run.progress_.Target : Text();
    Run.report_.Files.push_back(
        {outcome, Run.progress_.Source, std::move(target), std::move(reason)});
}

void SortRun::Implementation::Leave() {
    ++Run.report_.Handled;
    NextRow = RowNow(Next) - Handled.size();
    Handled.push_back(RowNow(Next));
}

void SortRun::Implementation::Settle(Result result) {
    Run.progress_.FileDone = Mover.Copied();
    Run.progress_.FileTotal = Mover.Total();
    switch (result) {
        case Result::UnderWay:
            return;
        case Result::Cancelled:
            Run.report_.Cancelled = true;
            return;
        case Result::Stays:
            ++Run.report_.Skipped;
            Note(SortedFile::Outcome::Skipped,
                 Reason.empty() ? Rules.Choices.Words(TargetExists) : Reason);
            break;
        case Result::Failed:
            if (Reason.empty()) Reason = Mover.Reason();
            Run.report_.Failures.push_back({Run.progress_.Source, Reason});
            Note(SortedFile::Outcome::Failed, Reason);
            break;
        case Result::LeftAlone:
            ++Run.report_.LeftAlone;
            Note(SortedFile::Outcome::Skipped, Rules.Choices.Words(TargetExists));
            Leave();
            break;
        case Result::Handled:
            Note(SortedFile::Outcome::Done, {});
            Leave();
            break;
    }
    Reason.clear();
    ++Next;
    Run.progress_.Done = Next;
}

void SortRun::Implementation::Flush() {
    auto next = Handled.begin();
    List.RemoveIf([&](FileList::Index row) {
        if (next == Handled.end() || *next != row) return false;
        ++next;
        return true;
    });
    Removed += Handled.size();
    Handled.clear();
}

SortRun::SortRun(FileList& list, SortChoices choices, SortStart start, const NamingContext& context,
                 Disk& disk, Prompts& prompts) {
    const bool multiple = list.SelectedCount() >= 2;
    progress_.Method = choices.Words(MethodTexts.at(static_cast<std::size_t>(choices.Method)));
    SortRules rules{InForce(std::move(choices)), multiple, context};
    impl_ = std::make_unique<Implementation>(*this, list, std::move(rules), disk, prompts);
    progress_.Total = impl_->Rows.size();
    if (CountsArtists(start, impl_->Rules.Choices)) impl_->ToCount = impl_->Rows.size();
}

SortRun::~SortRun() = default;

bool SortRun::Step() {
    if (finished_) return false;
    impl_->Step();
    if (impl_->Ended()) {
        impl_->Flush();
        finished_ = true;
    }
    return !finished_;
}

void SortRun::FlushRemovals() { impl_->Flush(); }

FileList::Index SortRun::NextRow() const {
    return std::min(impl_->NextRow, impl_->List.Count() - impl_->Handled.size());
}

}  // namespace mdlPLM
