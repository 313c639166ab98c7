// A signal closes the window as its user would, whatever it is in the middle of. The signals
// themselves are shown on the real programs.
#include "app/shared/qt_close_at_signal.h"

#include <unistd.h>

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>

#include "app/shared/qt_prompts.h"
#include "core/platform/path.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_modal.h"

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
    const Signal signal;
    MainWindow plm;
    QtPrompts boxes;
    AppContext context{plm.Context.Values,
                       {},
                       plm.Store,
                       plm.Files,
                       boxes,
                       plm.Dialogs,
                       plm.Context.ListsFolder,
                       plm.Context.ProgramFolder};
    frmPLM window(context, plm.Player);
    window.show();
    const CloseAtSignal close(signal.Descriptor(), &window);
    std::vector<Text> files;
    for (const TextView name : {u"a - x.mp3", u"b - x.mp3", u"c - x.mp3"})
        files.push_back(plm.Folder.File(u"in/" + Text(name), NativePath(Text(name))));
    const Text taken = plm.Folder.File(u"out/B - X.mp3", "there before");
    window.AddPaths(files);
    const auto press = [&window](const char* name) {
        window.findChild<QAbstractButton*>(QLatin1String(name))->click();
    };
    QTRY_VERIFY(window.findChild<QWidget*>("cmdAddFiles")->isEnabled());
    press("optMethod1");
    press("optExists0");
    auto* const target = window.findChild<QLineEdit*>("txtTargetDir");
    target->selectAll();
    QTest::keyClicks(target, ToQt(plm.Folder / u"out"));
    press("cmdSelectAll");
    OnNextModal<QMessageBox>([&signal](QMessageBox&) { signal.Send(); });
    QTimer::singleShot(0, &window, [press] { press("cmdSort"); });
    QCOMPARE(QCoreApplication::exec(), 0);
    QVERIFY(!window.isVisible());
    QVERIFY(ReadFile(taken) == "there before");
    QVERIFY(IsThere(plm.Folder / u"out/A - X.mp3"));
    QVERIFY(!IsThere(files[0]) && IsThere(files[1]) && IsThere(files[2]));
    QVERIFY(ReadFile(plm.Folder / u"PLM.ini").find("TargetDir=") != Bytes::npos);
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
