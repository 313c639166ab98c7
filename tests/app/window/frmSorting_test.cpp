// The progress window of a sort.
#include "app/window/frmSorting.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace mdlPLM;

class FrmSortingTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void IsCaptionedAsWorded();
    void ShowsMethodFileTargetAndCount();
    void LongPathsAreShortenedAndStandInTheToolTip();
    void PathsFillTheWidthOfTheWindow();
    void LargeCopyHasBarOfItsOwn();
    void EveryWayOfClosingIsTheButton_data();
    void EveryWayOfClosingIsTheButton();
    void SaysDoneAfterCancel();

private:
    template <class Control>
    [[nodiscard]] Control& Get(const char* name) const {
        return *form_->findChild<Control*>(QLatin1String(name));
    }
    [[nodiscard]] static RunProgress Progress() {
        RunProgress progress;
        progress.Each = u"Moving file:";
        progress.Source = u"/from/a - b.mp3";
        progress.Target = u"/to/A - B.mp3";
        progress.Done = 3;
        progress.Total = 8;
        return progress;
    }

    std::unique_ptr<frmSorting> form_;
};

void FrmSortingTest::init() {
    form_ = std::make_unique<frmSorting>();
    form_->show();
    QVERIFY(QTest::qWaitForWindowExposed(form_.get()));
}

void FrmSortingTest::IsCaptionedAsWorded() {
    QCOMPARE(form_->windowTitle(), QStringLiteral("PLM - Sorting..."));
    QCOMPARE(Get<QPushButton>("cmdPause").text().remove(u'&'), QStringLiteral("Pause"));
}

void FrmSortingTest::ShowsMethodFileTargetAndCount() {
    form_->ShowProgress(Progress());
    QCOMPARE(Get<QLabel>("lblMethod").text(), QStringLiteral("Moving file:"));
    QCOMPARE(Get<QLabel>("lblSource").text(), QStringLiteral("a - b.mp3"));
    QCOMPARE(Get<QLabel>("lblTarget").text(), QStringLiteral("/to/A - B.mp3"));
    QCOMPARE(Get<QProgressBar>("prgFiles").text(), QStringLiteral("3 of 8 files"));
    QVERIFY(!Get<QProgressBar>("prgFile").isVisible());
}

void FrmSortingTest::LongPathsAreShortenedAndStandInTheToolTip() {
    const int width = form_->width();
    RunProgress progress = Progress();
    progress.Target = u"/to/" + Text(400, u'x') + u"/end.mp3";
    form_->ShowProgress(progress);
    QCoreApplication::processEvents();
    const auto& label = Get<QLabel>("lblTarget");
    QVERIFY(label.text().size() < 200);
    QVERIFY(label.text().endsWith(QLatin1String("end.mp3")));
    QCOMPARE(label.toolTip().size(), 412);
    QCOMPARE(form_->width(), width);
}

// What is shown before the window has its size is not cut shorter than the window asks for.
void FrmSortingTest::PathsFillTheWidthOfTheWindow() {
    form_ = std::make_unique<frmSorting>();
    RunProgress progress = Progress();
    progress.Target = u"/to/a folder/A - A song with a name.mp3";
    form_->ShowProgress(progress);
    form_->show();
    QVERIFY(QTest::qWaitForWindowExposed(form_.get()));
    const auto& label = Get<QLabel>("lblTarget");
    QCOMPARE(label.text(), QStringLiteral("/to/a folder/A - A song with a name.mp3"));
    form_->resize(form_->minimumSizeHint().width(), form_->height());
    QTRY_VERIFY(label.fontMetrics().horizontalAdvance(label.text()) <= label.width());
    form_->resize(900, form_->height());
    QTRY_COMPARE(label.text(), label.toolTip());
}

void FrmSortingTest::LargeCopyHasBarOfItsOwn() {
    RunProgress progress = Progress();
    progress.FileDone = std::int64_t{3} << 30;
    progress.FileTotal = std::int64_t{4} << 30;
    form_->ShowProgress(progress);
    const auto& bar = Get<QProgressBar>("prgFile");
    QVERIFY(bar.isVisible());
    QCOMPARE(bar.text(), QStringLiteral("75%"));
}

void FrmSortingTest::EveryWayOfClosingIsTheButton_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("closed") << 1;
    QTest::newRow("escape") << 2;
}

void FrmSortingTest::EveryWayOfClosingIsTheButton() {
    QFETCH(int, way);
    const QSignalSpy ended(form_.get(), &frmSorting::Ended);
    switch (way) {
        case 0:
            Get<QPushButton>("cmdPause").click();
            break;
        case 1:
            form_->close();
            break;
        default:
            QTest::keyClick(form_.get(), Qt::Key_Escape);
    }
    QCOMPARE(ended.count(), 1);
    QVERIFY(!form_->isVisible());
    form_->close();
    QCOMPARE(ended.count(), 1);
}

void FrmSortingTest::SaysDoneAfterCancel() {
    form_->ShowDone();
    QCOMPARE(Get<QPushButton>("cmdPause").text().remove(u'&'), QStringLiteral("Done!"));
}

QTEST_MAIN(FrmSortingTest)
#include "frmSorting_test.moc"
