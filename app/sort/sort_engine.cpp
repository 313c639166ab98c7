#include "app/sort/sort_engine.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/sort/artist_folders.h"
#include "app/sort/file_mover.h"
#include "app/sort/sort_folders.h"
#include "core/names/existing_target.h"
#include "core/platform/path.h"

namespace mdlPLM {

namespace {

/// Files whose artist is worked out, or folders that are made, in one step of the preparation.
constexpr std::size_t PreparedPerStep = 32;
/// Files that are noted as the run's own in one step: a look at each.
constexpr std::size_t NotedPerStep = 1024;

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
    return moving;
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
    Result Fail(Cause reason);
    Result Stay(Why reason);
    FileOutcome Outcome(FileFate what);
    void Note(FileFate what);
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
    Cause Reason;  ///< why the entry in hand is not sorted
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
    return Run.report_.Broken() || (AllLookedAt() && !Mover.UnderWay());
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
        FileOutcome failed{folder, {}, FileFate::Failed, {Why::SystemError, status.Number()}};
        failed.Folder = true;
        Run.report_.Files.push_back(std::move(failed));
    }
}

SortRun::Implementation::Result SortRun::Implementation::SortEntry(const Text& source) {
    Run.progress_.Source = source;
    Run.progress_.Target.clear();
    const PathKind kind = Files.KindOf(source);
    if (kind == PathKind::Nothing) return Stay(Why::Missing);
    // A list can name folders, but nobody asked for a new name or place of a whole folder.
    if (kind == PathKind::Folder) return Fail({Why::SystemError, ErrorNumber::PathFileAccess});
    const SortNames names = NamesOf(source, Rules, Files);
    if (names.Fault.Any()) return Fail(names.Fault);
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
        return Stay(Why::NoArtist);
    }
    Text folder;
    const Status status = EnsureFolders(levels, Files, folder);
    if (!status.Ok()) return Fail({Why::SystemError, status.Number(), folder});
    Run.progress_.Target = levels.back() + Separator + names.NewName;
    return Mover.CopyOrMoveFile(source, Run.progress_.Target);
}

SortRun::Implementation::Result SortRun::Implementation::RenameFile(const Text& source,
                                                                    const SortNames& names) {
    Run.progress_.Target = FolderOfPath(source) + names.NewName;
    return Mover.RenameFile(source, Run.progress_.Target);
}

SortRun::Implementation::Result SortRun::Implementation::Fail(Cause reason) {
    Reason = std::move(reason);
    return Result::Failed;
}

SortRun::Implementation::Result SortRun::Implementation::Stay(Why reason) {
    Reason = {reason};
    return Result::Stays;
}

FileOutcome SortRun::Implementation::Outcome(FileFate what) {
    const RunProgress& now = Run.progress_;
    FileOutcome outcome{now.Source, now.Target, what, std::exchange(Reason, {})};
    // What never got as far as a target was not asked about.
    if (!outcome.NewPath.empty()) Mover.TellTarget(outcome);
    return outcome;
}

void SortRun::Implementation::Note(FileFate what) {
    Run.report_.Files.push_back(Outcome(what));
    ++Next;
    Run.progress_.Done = Next;
}

void SortRun::Implementation::Leave() {
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
            Run.report_.Cancelled = Outcome(FileFate::Skipped);
            return;
        case Result::Failed:
            if (!Reason.Any()) Reason = Mover.Reason();
            return Note(FileFate::Failed);
        case Result::Stays:
        case Result::LeftAlone:
            if (!Reason.Any()) Reason = {Why::TargetExists};
            if (result == Result::LeftAlone) Leave();
            return Note(FileFate::Skipped);
        case Result::InPlace:
        case Result::Handled:
            Leave();
            return Note(result == Result::Handled ? FileFate::Done : FileFate::Unchanged);
    }
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

SortRun::SortRun(FileList& list, SortChoices choices, SortStart start, const NamingContext& naming,
                 Disk& disk, Prompts& prompts)
    : kept_(naming), naming_(kept_.Context()) {
    const bool multiple = list.SelectedCount() >= 2;
    progress_.What = choices.Words(PLM_TRANSLATE("Texts", "Sorting"));
    progress_.Each = choices.Words(MethodTexts.at(static_cast<std::size_t>(choices.Method)));
    SortRules rules{InForce(std::move(choices)), multiple, naming_};
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

bool SortRun::Stop() {
    stop_ = true;
    return false;
}

void SortRun::Finish(bool /*stopped*/) { FlushRemovals(); }

std::size_t SortRun::Handled() const { return impl_->Removed + impl_->Handled.size(); }

void SortRun::FlushRemovals() { impl_->Flush(); }

FileList::Index SortRun::NextRow() const {
    return std::min(impl_->NextRow, impl_->List.Count() - impl_->Handled.size());
}

}  // namespace mdlPLM
