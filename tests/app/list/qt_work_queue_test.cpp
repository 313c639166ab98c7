// Long work driven from the event loop.
#include "app/list/qt_work_queue.h"

#include <QSignalSpy>
#include <QTest>

using namespace mdlPLM;

namespace {

/// Writes down what is done to it.
class LoggedTask : public ListTask {
public:
    LoggedTask(QStringList& log, QString name, int steps)
        : log_(log), name_(std::move(name)), steps_(steps) {}

    bool Step() override {
        if (OnStep) OnStep();
        log_ << name_ + QStringLiteral(" step");
        return --steps_ > 0;
    }
    void Publish() override { log_ << name_ + QStringLiteral(" publish"); }
    void Finish(bool stopped) override {
        log_ << name_ + (stopped ? QStringLiteral(" stopped") : QStringLiteral(" finished"));
    }
    bool Stop() override {
        if (!EndsAtOnce) steps_ = 1;
        return EndsAtOnce;
    }
    [[nodiscard]] RunProgress Progress() const override { return {u"x", 1, 2}; }

    bool EndsAtOnce = true;
    std::function<void()> OnStep;

private:
    QStringList& log_;
    QString name_;
    int steps_;
};

}  // namespace

class WorkQueueTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        log_.clear();
        queue_ = std::make_unique<WorkQueue>();
        queue_->SetSliceLength(0);
    }

    void ShortWorkIsOverAtOnce();
    void LongWorkTakesOneSliceATurn();
    void OneTaskFollowsTheOther();
    void StopEndsBeforeTheNextStepAndDropsTheRest();
    void TaskThatMustEndByItselfIsGivenTheTime();
    void StopInsideStepEndsBehindIt();
    void TurnsOfTheLoopInsideStepDoNotReenterIt();
    void SaysWhetherItWaitsInsideAStep();
    void StepsThatWantAnAnswerComeOneATurn();
    void StepsForLaterWaitForTheNextTurn();
    void BusyIsToldOnce();
    void TaskCanStartTheNextWhenItIsDone();

private:
    [[nodiscard]] std::unique_ptr<LoggedTask> Task(const char* name, int steps) {
        return std::make_unique<LoggedTask>(log_, QLatin1String(name), steps);
    }
    [[nodiscard]] WorkQueue::Done Note(const char* name) {
        return [this, name = QString::fromLatin1(name)](bool stopped) {
            log_ << name + (stopped ? QStringLiteral(" done stopped") : QStringLiteral(" done"));
        };
    }

    QStringList log_;
    std::unique_ptr<WorkQueue> queue_;
};

void WorkQueueTest::ShortWorkIsOverAtOnce() {
    queue_->SetSliceLength(10000);
    queue_->Start(Task("a", 3), Note("a"));
    QCOMPARE(log_.join(u'|'), QStringLiteral("a step|a step|a step|a publish|a finished|a done"));
    QVERIFY(!queue_->Busy());
}

void WorkQueueTest::LongWorkTakesOneSliceATurn() {
    const QSignalSpy progressed(queue_.get(), &WorkQueue::Progressed);
    queue_->Start(Task("a", 3), Note("a"));
    QCOMPARE(log_.join(u'|'), QStringLiteral("a step|a publish"));
    QVERIFY(queue_->Busy());
    QCOMPARE(queue_->Current()->Progress().Total, std::size_t{2});
    QTRY_VERIFY(!queue_->Busy());
    QCOMPARE(log_.join(u'|'), QStringLiteral("a step|a publish|a step|a publish|a step|a publish|"
                                             "a finished|a done"));
    QCOMPARE(progressed.count(), 2);
}

void WorkQueueTest::OneTaskFollowsTheOther() {
    queue_->Start(Task("a", 2), Note("a"));
    queue_->Start(Task("b", 1), Note("b"));
    QTRY_VERIFY(!queue_->Busy());
    QCOMPARE(log_.join(u'|'), QStringLiteral("a step|a publish|a step|a publish|a finished|a done|"
                                             "b step|b publish|b finished|b done"));
}

void WorkQueueTest::StopEndsBeforeTheNextStepAndDropsTheRest() {
    queue_->Start(Task("a", 9), Note("a"));
    queue_->Start(Task("b", 1), Note("b"));
    queue_->Stop();
    QVERIFY(!queue_->Busy());
    QCOMPARE(log_.join(u'|'), QStringLiteral("a step|a publish|a stopped|a done stopped"));
    queue_->Stop();
    QCOMPARE(log_.size(), 4);
}

void WorkQueueTest::TaskThatMustEndByItselfIsGivenTheTime() {
    auto task = Task("a", 9);
    task->EndsAtOnce = false;
    queue_->Start(std::move(task), Note("a"));
    queue_->Stop();
    QVERIFY(queue_->Busy());
    QTRY_VERIFY(!queue_->Busy());
    QCOMPARE(log_.join(u'|'),
             QStringLiteral("a step|a publish|a step|a publish|a stopped|a done stopped"));
}

void WorkQueueTest::StopInsideStepEndsBehindIt() {
    auto task = Task("a", 9);
    task->OnStep = [this] { queue_->Stop(); };
    queue_->Start(std::move(task), Note("a"));
    QVERIFY(!queue_->Busy());
    QCOMPARE(log_.join(u'|'), QStringLiteral("a step|a publish|a stopped|a done stopped"));
}

void WorkQueueTest::TurnsOfTheLoopInsideStepDoNotReenterIt() {
    auto task = Task("a", 3);
    int inside = 0;
    int deepest = 0;
    task->OnStep = [&] {
        deepest = std::max(deepest, ++inside);
        QTest::qWait(5);
        --inside;
    };
    queue_->Start(std::move(task));
    QTRY_VERIFY(!queue_->Busy());
    QCOMPARE(deepest, 1);
}

void WorkQueueTest::SaysWhetherItWaitsInsideAStep() {
    auto task = Task("a", 2);
    QList<bool> inStep;
    task->OnStep = [&] { inStep << queue_->InStep(); };
    queue_->Start(std::move(task));
    QVERIFY(!queue_->InStep());
    QTRY_VERIFY(!queue_->Busy());
    QCOMPARE(inStep, QList<bool>({true, true}));
}

void WorkQueueTest::StepsThatWantAnAnswerComeOneATurn() {
    queue_->SetSliceLength(10000);
    queue_->Start(Task("a", 3), Note("a"), WorkQueue::Pace::StepByStep);
    QCOMPARE(log_.join(u'|'), QStringLiteral("a step|a publish"));
    QTRY_VERIFY(!queue_->Busy());
    QCOMPARE(log_.count(QStringLiteral("a step")), 3);
    QCOMPARE(log_.last(), QStringLiteral("a done"));
}

void WorkQueueTest::StepsForLaterWaitForTheNextTurn() {
    queue_->Start(Task("a", 2), Note("a"), WorkQueue::Pace::StepByStepLater);
    QVERIFY(queue_->Busy());
    QVERIFY(log_.isEmpty());
    QTRY_VERIFY(!queue_->Busy());
    QCOMPARE(log_.count(QStringLiteral("a step")), 2);
    log_.clear();
    queue_->Start(Task("b", 2), Note("b"), WorkQueue::Pace::StepByStepLater);
    queue_->Stop();
    QCOMPARE(log_.join(u'|'), QStringLiteral("b stopped|b done stopped"));
}

void WorkQueueTest::BusyIsToldOnce() {
    QSignalSpy busy(queue_.get(), &WorkQueue::BusyChanged);
    queue_->Start(Task("a", 2));
    queue_->Start(Task("b", 2));
    QTRY_VERIFY(!queue_->Busy());
    QCOMPARE(busy.count(), 2);
    QCOMPARE(busy[0][0].toBool(), true);
    QCOMPARE(busy[1][0].toBool(), false);
}

void WorkQueueTest::TaskCanStartTheNextWhenItIsDone() {
    queue_->Start(Task("a", 1), [this](bool) { queue_->Start(Task("b", 1), Note("b")); });
    QTRY_VERIFY(!queue_->Busy());
    QCOMPARE(log_.last(), QStringLiteral("b done"));
}

QTEST_MAIN(WorkQueueTest)
#include "qt_work_queue_test.moc"
