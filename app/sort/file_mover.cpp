#include "app/sort/file_mover.h"

#include <utility>

#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

Answer AnswerOf(TargetDecision decision) {
    if (decision == TargetDecision::Replace) return Answer::Yes;
    return decision == TargetDecision::Leave ? Answer::No : Answer::Cancel;
}

}  // namespace

FileMover::FileMover(MoverRules rules, Disk& disk, Prompts& prompts, OwnFiles& ownFiles)
    : rules_(std::move(rules)), disk_(disk), prompts_(prompts), ownFiles_(ownFiles) {}

bool FileMover::SameLetters(TextView a, TextView b) const {
    return rules_.Fold == CaseFold::Lower ? EqualIgnoringCase(a, b) : UCase(a) == UCase(b);
}

// The other spelling of its own name, where the file system does not tell them apart. The folder
// may be spelt in another way, too.
bool FileMover::IsOtherSpelling(TextView source, TextView destination) const {
    const Text name = FileNameOfPath(source);
    const Text newName = FileNameOfPath(destination);
    return name != newName && SameLetters(name, newName) &&
           disk_.IsSameFile(FolderOfPath(source), FolderOfPath(destination));
}

MoveResult FileMover::CopyOrMoveFile(TextView source, TextView destination) {
    Begin();
    const bool respell = rules_.Method == SortMethod::Move && IsOtherSpelling(source, destination);
    const bool exists = disk_.Exists(destination);
    if (exists && disk_.IsSameFile(source, destination))
        return respell ? Rename(source, destination, IfTargetExists::Fail) : MoveResult::InPlace;
    SetAttributes(source);
    if (!exists) return Put(source, destination, IfTargetExists::Fail);
    // Some file systems give each spelling an identity of its own: the rename finds out.
    if (respell && Rename(source, destination, IfTargetExists::Fail) == MoveResult::Handled)
        return MoveResult::Handled;
    return FileExistActions(source, destination);
}

MoveResult FileMover::RenameFile(TextView oldPath, TextView newPath) {
    Begin();
    if (oldPath == newPath) return MoveResult::InPlace;
    const bool respell = SameLetters(oldPath, newPath);
    const bool exists = !respell && disk_.Exists(newPath);
    if (exists && disk_.IsSameFile(oldPath, newPath)) return MoveResult::InPlace;
    SetAttributes(oldPath);
    if (exists) return FileExistActions(oldPath, newPath);
    return Put(oldPath, newPath, IfTargetExists::Fail);
}

MoveResult FileMover::FileExistActions(TextView strOldFile, TextView strNewFile) {
    switch (Decide(strNewFile)) {
        case TargetDecision::Replace:
            return Put(strOldFile, strNewFile, IfTargetExists::Replace);
        case TargetDecision::Leave:
            return rules_.Leave;
        case TargetDecision::Cancel:
            break;
    }
    return MoveResult::Cancelled;
}

// "Replace" is meant for the files that were there before: where the target belongs to the run
// itself (a name that repeats, names that change places) the user is asked.
TargetDecision FileMover::Decide(TextView destination) {
    const bool own = rules_.Exists == IfExists::Replace && ownFiles_.Contains(destination, disk_);
    const IfExists choice = own ? IfExists::Prompt : rules_.Exists;
    const bool asks = choice == IfExists::Prompt;
    if (rules_.BeforeTarget) rules_.BeforeTarget(destination, asks);
    const TargetDecision decision = DecideExistingTarget(choice, destination, prompts_);
    replaces_ = decision == TargetDecision::Replace;
    if (asks) {
        question_ = ExistingTargetQuestion(destination).Body;
        answered_ = AnswerOf(decision);
    }
    return decision;
}

void FileMover::TellTarget(FileOutcome& outcome) const {
    outcome.Replaced = replaces_ && outcome.What == FileFate::Done;
    outcome.Question = question_;
    outcome.Answered = answered_;
}

MoveResult FileMover::Put(TextView source, TextView destination, IfTargetExists ifExists) {
    if (rules_.Method == SortMethod::Copy) return BeginCopy(source, destination, ifExists);
    const MoveResult moved = Rename(source, destination, ifExists);
    const bool mayCopy = rules_.Method == SortMethod::Move && moved == MoveResult::Failed;
    if (mayCopy && error_.Number() == ErrorNumber::DifferentDrive)
        return BeginCopy(source, destination, ifExists);
    return moved;
}

MoveResult FileMover::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    const MoveResult renamed = Settle(disk_.Rename(from, to, ifExists));
    if (renamed == MoveResult::Handled) NoteMade(to);
    return renamed;
}

MoveResult FileMover::BeginCopy(TextView source, TextView destination, IfTargetExists ifExists) {
    const Status status = disk_.BeginCopy(source, destination, ifExists, copy_);
    if (!status.Ok()) {
        copy_.reset();
        return Settle(status);
    }
    if (rules_.Method == SortMethod::Move) copy_->WaitForDisk();
    source_ = source;
    destination_ = destination;
    return Continue();
}

MoveResult FileMover::Continue() {
    bool done = false;
    const Status status = copy_->Step(done);
    if (status.Ok() && !done) return MoveResult::UnderWay;
    copy_.reset();
    return status.Ok() ? EndCopy() : Settle(status);
}

MoveResult FileMover::EndCopy() {
    NoteMade(destination_);
    if (rules_.Method != SortMethod::Move) return Settle({});
    // A move to another file system: the source goes only when the target stands, and stands on the
    // disk under its name. What the system still holds in memory would go with a power failure or a
    // pulled stick.
    const Status flushed = disk_.Flush(destination_);
    const MoveResult removed = Settle(flushed.Ok() ? disk_.DeleteFile(source_) : flushed);
    sourceStays_ = removed == MoveResult::Failed;
    return removed;
}

void FileMover::NoteMade(TextView to) {
    if (rules_.Exists == IfExists::Replace) ownFiles_.Add(to, disk_);
}

MoveResult FileMover::Settle(Status status) {
    error_ = status;
    sourceStays_ = false;
    return status.Ok() ? MoveResult::Handled : MoveResult::Failed;
}

Cause FileMover::Reason() const {
    return {sourceStays_ ? Why::SourceStays : Why::SystemError, error_.Number()};
}

void FileMover::SetAttributes(TextView path) {
    if (!rules_.Attributes) return;
    // A file that does not take them is moved all the same.
    static_cast<void>(disk_.SetAttributes(path, *rules_.Attributes));
}

}  // namespace mdlPLM
