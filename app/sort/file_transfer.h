// One file to its place: the decision about a target that exists, the attributes, and the copy,
// move or rename itself. A copy goes in pieces, so that a large one can take several steps.
#pragma once

#include <memory>

#include "app/sort/sort_folders.h"
#include "core/names/existing_target.h"
#include "core/names/own_files.h"
#include "core/platform/disk.h"
#include "core/platform/prompts.h"

namespace mdlPLM {

class FileTransfer {
public:
    enum class Result {
        Handled,    ///< the entry leaves the list
        LeftAlone,  ///< it leaves the list too, but the target that was there is left as it is
        Stays,      ///< nothing was done and the entry stays
        Failed,     ///< see Reason(); nothing is lost and the entry stays
        Cancelled,  ///< Cancel in the question; the entry stays
        UnderWay,   ///< a copy that goes on with Continue
    };

    /// `ownFiles` are the files that the run works on: where one of them is in the way of another,
    /// "Replace" asks. What is copied, moved or renamed to is
    /// added to them.
    FileTransfer(const SortRules& rules, Disk& disk, Prompts& prompts, OwnFiles& ownFiles);

    /// With a target that is left as it is ("No", "Skip") the entry leaves the list all the same.
    Result CopyOrMoveFile(TextView source, TextView destination);
    /// Renames in place, `newPath` being in the same folder. A target that is left as it is keeps
    /// the entry.
    Result RenameFile(TextView oldPath, TextView newPath);

    [[nodiscard]] bool UnderWay() const { return copy_ != nullptr; }
    /// The next piece of the copy under way.
    Result Continue();

    /// Why the last file failed, in words.
    [[nodiscard]] Text Reason() const;
    /// Bytes of the copy under way; 0 without one.
    [[nodiscard]] std::int64_t Copied() const { return copy_ ? copy_->Copied() : 0; }
    [[nodiscard]] std::int64_t Total() const { return copy_ ? copy_->Total() : 0; }

private:
    bool IsOtherSpelling(TextView source, TextView destination);
    Result FileExistActions(TextView strOldFile, TextView strNewFile);
    Result Transfer(TextView source, TextView destination, IfTargetExists ifExists);
    Result BeginCopy(TextView source, TextView destination, IfTargetExists ifExists);
    Result Rename(TextView from, TextView to, IfTargetExists ifExists);
    Result EndCopy();
    [[nodiscard]] TargetDecision Decide(TextView destination);
    void NoteMade(TextView to);
    Result Settle(Status status);
    void SetAttributes(TextView path);

    SortChoices choices_;
    const Settings& settings_;
    Disk& disk_;
    Prompts& prompts_;
    std::unique_ptr<PiecewiseCopy> copy_;
    Text source_;       ///< of the copy under way
    Text destination_;  ///< of the copy under way
    OwnFiles& ownFiles_;
    Status error_;
    bool sourceStays_ = false;  ///< moved as far as a copy, but the source could not be removed
};

}  // namespace mdlPLM
