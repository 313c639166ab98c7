#include "app/list/qt_work_queue.h"

#include <QElapsedTimer>
#include <utility>

namespace mdlPLM {

WorkQueue::WorkQueue(QObject* parent) : QObject(parent) {
    turn_.setSingleShot(true);
    turn_.setInterval(0);
    connect(&turn_, &QTimer::timeout, this, &WorkQueue::Slice);
}

WorkQueue::~WorkQueue() = default;

const ListTask* WorkQueue::Current() const {
    return jobs_.empty() ? nullptr : jobs_.front().Task.get();
}

void WorkQueue::Start(std::unique_ptr<ListTask> task, Done done, Pace pace) {
    jobs_.push_back({std::move(task), std::move(done), pace});
    if (jobs_.size() > 1) return;
    emit BusyChanged(true);
    if (pace == Pace::StepByStepLater) return turn_.start();
    Slice();
}

void WorkQueue::Stop() {
    if (jobs_.empty()) return;
    stopped_ = true;
    jobs_.erase(jobs_.begin() + 1, jobs_.end());
    endNow_ = jobs_.front().Task->Stop();
    // A question of the task may be open at this moment; the task ends when it has its answer.
    if (endNow_ && !inSlice_) End();
}

void WorkQueue::Slice() {
    if (inSlice_ || jobs_.empty()) return;
    inSlice_ = true;
    const bool more = RunSlice(jobs_.front());
    inSlice_ = false;
    if (!more || endNow_) return End();
    emit Progressed();
    turn_.start();
}

bool WorkQueue::RunSlice(Job& job) {
    QElapsedTimer clock;
    clock.start();
    const int length = job.Speed == Pace::Slices ? sliceLength_ : 0;
    bool more = true;
    do {
        more = job.Task->Step();
    } while (more && !endNow_ && clock.elapsed() < length);
    job.Task->Publish();
    return more;
}

void WorkQueue::End() {
    turn_.stop();
    const bool stopped = std::exchange(stopped_, false);
    endNow_ = false;
    Job job = std::move(jobs_.front());
    jobs_.pop_front();
    job.Task->Finish(stopped);
    if (jobs_.empty()) emit BusyChanged(false);
    if (job.WhenDone) job.WhenDone(stopped);
    if (!jobs_.empty()) turn_.start();
}

}  // namespace mdlPLM
