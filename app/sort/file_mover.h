// One file to its place: the decision about a target that exists, the attributes, and the copy,
// move or rename itself. A copy goes in pieces, so that a large one can take several steps.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "app/list/run.h"
#include "core/names/existing_target.h"
#include "core/names/own_files.h"
#include "core/platform/disk.h"
#include "core/platform/prompts.h"
#include "core/settings/settings.h"

namespace mdlPLM {

/// What becomes of a file; each run has its own idea of "Leave" (see MoverRules).
enum class MoveResult {
    Handled,    ///< it is in its place: the entry is done
    InPlace,    ///< it was there already: nothing was done, and the entry is done
    LeftAlone,  ///< the entry is done too, but the target that was there is left as it is
    Stays,      ///< nothing was done and the entry stays
    Failed,     ///< see Reason(); nothing is lost and the entry stays
    Cancelled,  ///< Cancel in the question; the entry stays
    UnderWay,   ///< a copy that goes on with Continue
};

/// In which case two names are compared. The two differ in letters that have one case only, or that
/// share it with another letter ("ı", "ſ").
enum class CaseFold { Lower, Upper };

/// In what the runs that move files differ.
struct MoverRules {
    SortMethod Method = SortMethod::Rename;
    IfExists Exists = IfExists::Prompt;
    CaseFold Fold = CaseFold::Lower;
    /// What "No" in the question, and "Skip", mean.
    MoveResult Leave = MoveResult::Stays;
    /// Given to a file before it is touched; none: whoever drives the mover sees to them.
    std::optional<int> Attributes = {};
    /// Called before an existing target is looked at closely; `asks`: a question follows.
    std::function<void(TextView target, bool asks)> BeforeTarget = {};
};

class FileMover {
public:
    /// `ownFiles` are the files that the run works on: where one of them is in the way of another,
    /// "Replace" asks. What is copied, moved or renamed to is added to them.
    FileMover(MoverRules rules, Disk& disk, Prompts& prompts, OwnFiles& ownFiles);

    MoveResult CopyOrMoveFile(TextView source, TextView destination);
    /// Renames in place, `newPath` being in the same folder.
    MoveResult RenameFile(TextView oldPath, TextView newPath);

    [[nodiscard]] bool UnderWay() const { return copy_ != nullptr; }
    /// The next piece of the copy under way.
    MoveResult Continue();

    /// Why the last file failed.
    [[nodiscard]] Cause Reason() const;
    /// Notes what was asked about the last file, and whether it took the place of another one.
    void TellTarget(FileOutcome& outcome) const;
    /// Bytes of the copy under way; 0 without one.
    [[nodiscard]] std::int64_t Copied() const { return copy_ ? copy_->Copied() : 0; }
    [[nodiscard]] std::int64_t Total() const { return copy_ ? copy_->Total() : 0; }

private:
    [[nodiscard]] bool SameLetters(TextView a, TextView b) const;
    [[nodiscard]] bool IsOtherSpelling(TextView source, TextView destination) const;
    MoveResult FileExistActions(TextView strOldFile, TextView strNewFile);
    MoveResult Put(TextView source, TextView destination, IfTargetExists ifExists);
    MoveResult BeginCopy(TextView source, TextView destination, IfTargetExists ifExists);
    MoveResult Rename(TextView from, TextView to, IfTargetExists ifExists);
    MoveResult EndCopy();
    [[nodiscard]] TargetDecision Decide(TextView destination);
    void Begin() { replaces_ = false, question_.clear(), answered_.reset(); }
    void NoteMade(TextView to);
    MoveResult Settle(Status status);
    void SetAttributes(TextView path);

    const MoverRules rules_;
    Disk& disk_;
    Prompts& prompts_;
    std::unique_ptr<PiecewiseCopy> copy_;
    Text source_;       ///< of the copy under way
    Text destination_;  ///< of the copy under way
    OwnFiles& ownFiles_;
    Status error_;
    bool replaces_ = false;  ///< the target that exists may be replaced
    Text question_;          ///< about the last file; empty: none
    std::optional<Answer> answered_;
    bool sourceStays_ = false;  ///< moved as far as a copy, but the source could not be removed
};

}  // namespace mdlPLM
