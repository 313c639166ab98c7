#include "app/namefromtext/qt_rename_task.h"

#include "core/platform/path.h"

namespace mdlPLM {

RenameTask::RenameTask(std::unique_ptr<RenameRun> run, std::unique_ptr<RunProgressWindow> window)
    : run_(std::move(run)), window_(std::move(window)) {
    ShowNextPair();
}

bool RenameTask::Step() {
    if (window_->StopRequested()) run_->Stop();
    if (run_->Finished()) return false;
    run_->Step();
    ShowNextPair();
    return !run_->Report().Cancelled;
}

bool RenameTask::Stop() {
    run_->Stop();
    return run_->Finished();
}

void RenameTask::Finish(bool stopped) {
    if (!stopped && !run_->Report().Stopped) window_->ShowDone();
    window_.reset();
}

void RenameTask::ShowNextPair() {
    if (run_->Done() == run_->Total()) return;
    const RenamePair& pair = run_->Next();
    window_->ShowPair(FileNameOfPath(pair.OldPath), pair.NewName, run_->Done() + 1, run_->Total());
}

}  // namespace mdlPLM
