// A signal closes the window as its user would, whatever it is in the middle of. The signals
// themselves are shown on the real programs.
#include "app/shared/qt_close_at_signal.h"

#include <unistd.h>

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <map>

#include "app/list/qt_work_queue.h"
#include "app/shared/qt_prompts.h"
#include "core/platform/path.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_modal.h"
#include "tests/support/tag_bytes.h"

using namespace mdlPLM;

namespace {

/// What stands for a signal: the descriptor can be read from as soon as it is sent.
class Signal {
public:
    Signal() {
        if (::pipe(pipe_) != 0) throw std::runtime_error("no pipe");
    }
    ~Signal() {
        ::close(pipe_[0]);
        ::close(pipe_[1]);
    }
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    [[nodiscard]] int Descriptor() const { return pipe_[0]; }
    void Send() const { QVERIFY(::write(pipe_[1], "", 1) == 1); }

private:
    int pipe_[2] = {-1, -1};
};

/// The main window with real boxes, and a signal for it.
class OpenWindow {
public:
    OpenWindow() {
        window_.show();
        window_.findChild<WorkQueue*>()->SetSliceLength(0);
    }
    [[nodiscard]] const TempFolder& Folder() const { return plm_.Folder; }
    [[nodiscard]] Bytes Settings() const { return ReadFile(plm_.Folder / u"PLM.ini"); }

    /// Makes files in the folder "in" and takes them into the list.
    std::vector<Text> Add(const std::map<Text, Bytes>& named) {
        std::vector<Text> files;
        for (const auto& [name, contents] : named)
            files.push_back(plm_.Folder.File(u"in/" + name, contents));
        window_.AddPaths(files);
        while (!window_.findChild<QWidget*>("cmdAddFiles")->isEnabled())
            QCoreApplication::processEvents();
        return files;
    }
    void Press(const char* name) {
        window_.findChild<QAbstractButton*>(QLatin1String(name))->click();
    }
    void Enter(const char* name, const QString& text) {
        auto* const box = window_.findChild<QLineEdit*>(QLatin1String(name));
        box->selectAll();
        QTest::keyClicks(box, text);
    }
    /// Calls `act` when that much of the next work is done.
    void OnThirdStep(const std::function<void()>& act) {
        QObject::connect(window_.findChild<WorkQueue*>(), &WorkQueue::Progressed, &window_,
                         [act, step = 0]() mutable {
                             if (++step == 3) act();
                         });
    }
    /// Presses a button and runs the program to its end.
    void PressAndRun(const char* name) {
        QTimer::singleShot(0, &window_, [this, name] { Press(name); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(!window_.isVisible());
    }

    const Signal Kill;

private:
    MainWindow plm_;
    QtPrompts boxes_;
    AppContext context_{plm_.Context.Values,
                        {},
                        plm_.Store,
                        plm_.Files,
                        boxes_,
                        plm_.Dialogs,
                        plm_.Context.ListsFolder,
                        plm_.Context.ProgramFolder};
    frmPLM window_{context_, plm_.Player};
    const CloseAtSignal close_{Kill.Descriptor(), &window_};
};

/// A dialog that is not to be closed without a question.
class AskingDialog : public QDialog {
public:
    int Asked = 0;
    void reject() override {
        ++Asked;
        if (QtPrompts().AskYesNo({{}, u"Throw it away?", {}}) == Answer::Yes) QDialog::reject();
    }
};

}  // namespace

class CloseAtSignalTest : public QObject {
    Q_OBJECT

private slots:
    void ClosesTheWindow();
    void GivesEachQuestionItsSafeAnswer();
    void ClosesADialogThatAsksBack();
    void ClosesAMenu();
    void EndsASortBehindTheFileAtHandAndKeepsTheSettings();
    void EndsATagRunBehindTheFileAtHand();
    void WithoutADescriptorNothingIsWatched();
};

void CloseAtSignalTest::ClosesTheWindow() {
    const Signal signal;
    QWidget window;
    const CloseAtSignal close(signal.Descriptor(), &window);
    window.show();
    signal.Send();
    QCOMPARE(QCoreApplication::exec(), 0);
    QVERIFY(!window.isVisible());
}

void CloseAtSignalTest::GivesEachQuestionItsSafeAnswer() {
    const Signal signal;
    const CloseAtSignal close(signal.Descriptor());
    signal.Send();
    QtPrompts prompts;
    QCOMPARE(prompts.AskYesNo({{}, u"Delete?", {}}), Answer::No);
    QCOMPARE(prompts.AskYesNoCancel({{}, u"Replace?", {}}), Answer::Cancel);
    QVERIFY(!prompts.AskText({{}, u"Extension:", {}}));
    prompts.Critical({{}, u"It failed.", {}});
}

void CloseAtSignalTest::ClosesADialogThatAsksBack() {
    const Signal signal;
    QWidget window;
    window.show();
    const CloseAtSignal close(signal.Descriptor(), &window);
    AskingDialog dialog;
    QTimer::singleShot(0, &dialog, [&signal] { signal.Send(); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(dialog.Asked, 1);
    QTRY_VERIFY(!window.isVisible());
}

void CloseAtSignalTest::ClosesAMenu() {
    const Signal signal;
    QWidget window;
    window.show();
    const CloseAtSignal close(signal.Descriptor(), &window);
    QMenu menu;
    menu.addAction(QStringLiteral("Entry"));
    QTimer::singleShot(0, &menu, [&signal] { signal.Send(); });
    QVERIFY(menu.exec() == nullptr);
    QTRY_VERIFY(!window.isVisible());
}

// The question is about the second of three files: the first is sorted, the others stay.
void CloseAtSignalTest::EndsASortBehindTheFileAtHandAndKeepsTheSettings() {
    OpenWindow plm;
    const Text taken = plm.Folder().File(u"out/B - X.mp3", "there before");
    const std::vector<Text> files =
        plm.Add({{u"a - x.mp3", "1"}, {u"b - x.mp3", "2"}, {u"c - x.mp3", "3"}});
    plm.Press("optMethod1");
    plm.Press("optExists0");
    plm.Enter("txtTargetDir", ToQt(plm.Folder() / u"out"));
    plm.Press("cmdSelectAll");
    OnNextModal<QMessageBox>([&plm](QMessageBox&) { plm.Kill.Send(); });
    plm.PressAndRun("cmdSort");
    QVERIFY(ReadFile(taken) == "there before");
    QVERIFY(IsThere(plm.Folder() / u"out/A - X.mp3"));
    QVERIFY(!IsThere(files[0]) && IsThere(files[1]) && IsThere(files[2]));
    QVERIFY(plm.Settings().find("TargetDir=") != Bytes::npos);
}

// The tags of a batch wait for each other: those that are begun get their names, no more are begun.
void CloseAtSignalTest::EndsATagRunBehindTheFileAtHand() {
    OpenWindow plm;
    std::map<Text, Bytes> songs;
    constexpr int many = 30;
    for (int i = 10; i < 10 + many; ++i)
        songs[NumberText(static_cast<long long>(i)) + u".mp3"] =
            test::Noise(300) + std::to_string(i);
    const std::vector<Text> files = plm.Add(songs);
    plm.Press("cmdSelectAll");
    plm.Enter("txtV2Title", QStringLiteral("New title"));
    OnNextModal<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    plm.OnThirdStep([&plm] { plm.Kill.Send(); });
    plm.PressAndRun("cmdSaveID3");
    int written = 0;
    for (const Text& file : files) {
        const Bytes now = ReadFile(file);
        QVERIFY(now.find(songs.at(FileNameOfPath(file))) != Bytes::npos);
        if (now.find("New title") != Bytes::npos) ++written;
    }
    QVERIFY(written >= 3 && written < many);
    QCOMPARE(ListTree(plm.Folder() / u"in").size(), files.size());
}

void CloseAtSignalTest::WithoutADescriptorNothingIsWatched() {
    QWidget window;
    window.show();
    const CloseAtSignal close(-1, &window);
    QCoreApplication::processEvents();
    QVERIFY(window.isVisible());
}

QTEST_MAIN(CloseAtSignalTest)
#include "qt_close_at_signal_test.moc"
