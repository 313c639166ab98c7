#include "app/sort/file_transfer.h"

#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

FileTransfer::FileTransfer(const SortRules& rules, Disk& disk, Prompts& prompts, OwnFiles& ownFiles)
    : choices_(rules.Choices),
      settings_(rules.Context.Values),
      disk_(disk),
      prompts_(prompts),
      ownFiles_(ownFiles) {}

// The other spelling of its own name, where the file system does not tell them apart. The folder
// may be spelt in another way, too.
bool FileTransfer::IsOtherSpelling(TextView source, TextView destination) {
    const Text name = FileNameOfPath(source);
    const Text newName = FileNameOfPath(destination);
    return name != newName && EqualIgnoringCase(name, newName) &&
           disk_.IsSameFile(FolderOfPath(source), FolderOfPath(destination));
}

FileTransfer::Result FileTransfer::CopyOrMoveFile(TextView source, TextView destination) {
    const bool respell =
        choices_.Method == SortMethod::Move && IsOtherSpelling(source, destination);
    const bool exists = disk_.Exists(destination);
    if (exists && disk_.IsSameFile(source, destination))
        return respell ? Rename(source, destination, IfTargetExists::Fail) : Result::Handled;
    SetAttributes(source);
    if (!exists) return Transfer(source, destination, IfTargetExists::Fail);
    // Some file systems give each spelling an identity of its own: the rename finds out.
    if (respell && Rename(source, destination, IfTargetExists::Fail) == Result::Handled)
        return Result::Handled;
    switch (Decide(destination)) {
        case TargetDecision::Replace:
            return Transfer(source, destination, IfTargetExists::Replace);
        case TargetDecision::Leave:
            return Result::LeftAlone;
        case TargetDecision::Cancel:
            break;
    }
    return Result::Cancelled;
}

FileTransfer::Result FileTransfer::RenameFile(TextView oldPath, TextView newPath) {
    if (oldPath == newPath) return Result::Handled;
    const bool respell = EqualIgnoringCase(oldPath, newPath);
    const bool exists = !respell && disk_.Exists(newPath);
    if (exists && disk_.IsSameFile(oldPath, newPath)) return Result::Handled;
    SetAttributes(oldPath);
    if (exists) return FileExistActions(oldPath, newPath);
    return Rename(oldPath, newPath, IfTargetExists::Fail);
}

FileTransfer::Result FileTransfer::FileExistActions(TextView strOldFile, TextView strNewFile) {
    switch (Decide(strNewFile)) {
        case TargetDecision::Replace:
            return Rename(strOldFile, strNewFile, IfTargetExists::Replace);
        case TargetDecision::Leave:
            return Result::Stays;
        case TargetDecision::Cancel:
            break;
    }
    return Result::Cancelled;
}

TargetDecision FileTransfer::Decide(TextView destination) {
    const bool asks =
        choices_.Exists == IfExists::Replace && ownFiles_.Contains(destination, disk_);
    return DecideExistingTarget(asks ? IfExists::Prompt : choices_.Exists, destination, prompts_);
}

FileTransfer::Result FileTransfer::Transfer(TextView source, TextView destination,
                                            IfTargetExists ifExists) {
    if (choices_.Method == SortMethod::Copy) return BeginCopy(source, destination, ifExists);
    const Result moved = Rename(source, destination, ifExists);
    if (moved == Result::Failed && error_.Number() == ErrorNumber::DifferentDrive) {
        return BeginCopy(source, destination, ifExists);
    }
    return moved;
}

FileTransfer::Result FileTransfer::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    const Result renamed = Settle(disk_.Rename(from, to, ifExists));
    if (renamed == Result::Handled) NoteMade(to);
    return renamed;
}

FileTransfer::Result FileTransfer::BeginCopy(TextView source, TextView destination,
                                             IfTargetExists ifExists) {
    const Status status = disk_.BeginCopy(source, destination, ifExists, copy_);
    if (!status.Ok()) {
        copy_.reset();
        return Settle(status);
    }
    if (choices_.Method == SortMethod::Move) copy_->WaitForDisk();
    source_ = source;
    destination_ = destination;
    return Continue();
}

FileTransfer::Result FileTransfer::Continue() {
    bool done = false;
    const Status status = copy_->Step(done);
    if (status.Ok() && !done) return Result::UnderWay;
    copy_.reset();
    return status.Ok() ? EndCopy() : Settle(status);
}

FileTransfer::Result FileTransfer::EndCopy() {
    NoteMade(destination_);
    if (choices_.Method != SortMethod::Move) return Settle({});
    // A move to another file system: the source goes only when the target stands, and stands on the
    // disk under its name. What the system still holds in memory would go with a power failure or a
    // pulled stick.
    const Status flushed = disk_.Flush(destination_);
    const Result removed = Settle(flushed.Ok() ? disk_.DeleteFile(source_) : flushed);
    sourceStays_ = removed == Result::Failed;
    return removed;
}

void FileTransfer::NoteMade(TextView to) {
    if (choices_.Exists == IfExists::Replace) ownFiles_.Add(to, disk_);
}

FileTransfer::Result FileTransfer::Settle(Status status) {
    error_ = status;
    sourceStays_ = false;
    return status.Ok() ? Result::Handled : Result::Failed;
}

Text FileTransfer::Reason() const {
    Text reason = choices_.Words(Describe(error_.Number()));
    if (!sourceStays_) return reason;
    return choices_.Words(
        PLM_TRANSLATE("Texts", "Copied, but the original could not be removed: %1"), {reason});
}

void FileTransfer::SetAttributes(TextView path) {
    if (!settings_.bSetAttributes) return;
    // A file that does not take them is sorted all the same.
    static_cast<void>(disk_.SetAttributes(path, AttributesToSet(settings_)));
}

}  // namespace mdlPLM
