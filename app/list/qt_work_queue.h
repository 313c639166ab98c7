// Drives long work from the event loop, a slice at a time, so that the window keeps answering.
#pragma once

#include <QObject>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>

#include "app/list/list_tasks.h"

namespace mdlPLM {

class WorkQueue : public QObject {
    Q_OBJECT

public:
    /// Called when the task is over; `stopped` when the user ended it.
    using Done = std::function<void(bool stopped)>;
    enum class Pace {
        Slices,           ///< steps for some hundredths of a second in a turn of the event loop
        StepByStep,       ///< one step in a turn, for steps that each want an answer of the window
        StepByStepLater,  ///< the same, the first one when the caller of Start is done
    };
    static constexpr int DefaultSliceLength = 20;

    explicit WorkQueue(QObject* parent = nullptr);
    ~WorkQueue() override;

    /// Starts the task, or lines it up behind those under way. Short work in slices is over when
    /// this returns.
    void Start(std::unique_ptr<ListTask> task, Done done = {}, Pace pace = Pace::Slices);
    /// Ends the task under way, before its next step when the task allows it, and drops those
    /// behind it.
    void Stop();
    [[nodiscard]] bool Busy() const { return !jobs_.empty(); }
    /// True while a step is being done, in whatever box it waits.
    [[nodiscard]] bool InStep() const { return inSlice_; }
    [[nodiscard]] const ListTask* Current() const;
    /// Milliseconds between two turns of the event loop.
    void SetSliceLength(int milliseconds) { sliceLength_ = milliseconds; }

signals:
    void BusyChanged(bool busy);
    /// After every slice.
    void Progressed();

private:
    struct Job {
        std::unique_ptr<ListTask> Task;
        Done WhenDone;
        Pace Speed = Pace::Slices;
    };
    void Slice();
    bool RunSlice(Job& job);
    void End();

    std::deque<Job> jobs_;
    QTimer turn_;
    int sliceLength_ = DefaultSliceLength;
    bool endNow_ = false;
    bool stopped_ = false;
    bool inSlice_ = false;
};

}  // namespace mdlPLM
