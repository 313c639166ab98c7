// Every window by keyboard and by screen reader: each control has a name that is read out, Tab
// reaches each of them, and no two share a key.
#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "app/dialogs/frmEdit.h"
#include "app/dialogs/frmMoreID3v2.h"
#include "app/dialogs/frmOptions.h"
#include "app/namefromtext/frmNameFromFile.h"
#include "app/window/frmSorting.h"
#include "core/platform/path.h"
#include "tests/support/qt_keyboard.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_panel_frames.h"
#include "tests/support/real_mp3.h"

using namespace mdlPLM;

class KeyboardTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { plm_.reset(); }

    void FaultsAreFound();
    void MainWindowWithOneFile();
    void MainWindowWithManyFiles();
    void MainMenus();
    void TabFollowsTheOrderOfTheWork();
    void ShortcutsAreUniqueAndShownInTheMenus();
    void ListKeysWorkOnlyInTheLists();
    void FocusComesBackAfterLongWork();
    void FocusThatWasMovedDuringLongWorkStays();
    void Progress();
    void EditName();
    void Options();
    void MoreFrames();
    void NamesFromText();

private:
    /// Adds a file by keyboard; long work is under way then.
    QWidget& StartAdding();
    void Check(QWidget& window);
    template <class Dialog>
    void CheckDialog(Dialog& dialog) {
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        Check(dialog);
    }

    std::unique_ptr<MainWindow> plm_;
    test::PanelFrames frames_;
};

void KeyboardTest::init() {
    plm_ = std::make_unique<MainWindow>();
    plm_->Context.Values.Move = 0;
    plm_->Open();
    for (const TextView name : {u"in/1.mp3", u"in/2.mp3"}) {
        const Text path = plm_->Folder.File(Text(name), EncodedMp3());
        TagByPeer(path, {"artist", "title", "", "", "", -1});
    }
    plm_->Drop("lstFiles", {plm_->Folder / u"in"});
    plm_->Click("chkPreview");
    plm_->Settle();
}

void KeyboardTest::Check(QWidget& window) {
    const QList<QTabWidget*> tabs = window.findChildren<QTabWidget*>();
    const int pages = tabs.isEmpty() ? 1 : tabs.front()->count();
    for (int page = 0; page < pages; ++page) {
        if (!tabs.isEmpty()) tabs.front()->setCurrentIndex(page);
        QCoreApplication::processEvents();
        const QStringList faults = KeyboardFaults(window);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
}

void KeyboardTest::FaultsAreFound() {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    const auto add = [layout](QWidget* control, const char* name) {
        control->setObjectName(QLatin1String(name));
        layout->addWidget(control);
    };
    add(new QPushButton(QStringLiteral("&One")), "cmdOne");
    add(new QPushButton(QStringLiteral("&Other")), "cmdOther");
    add(new QLineEdit, "txtNameless");
    auto* mouseOnly = new QCheckBox(QStringLiteral("Mouse only"));
    mouseOnly->setFocusPolicy(Qt::NoFocus);
    add(mouseOnly, "chkMouseOnly");
    auto* trap = new QPlainTextEdit;
    trap->setAccessibleName(QStringLiteral("Trap"));
    add(trap, "txtTrap");
    add(new QPushButton(QStringLiteral("Behind the trap")), "cmdBehind");
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(KeyboardFaults(window),
             (QStringList{QStringLiteral("txtNameless has no name"),
                          QStringLiteral("chkMouseOnly is not reached by Tab"),
                          QStringLiteral("cmdBehind is not reached by Tab"),
                          QStringLiteral("Alt+O: &Other / &One")}));
}

void KeyboardTest::MainWindowWithOneFile() {
    plm_->ClickLine("lstFiles", 0);
    Check(plm_->Window());
}

void KeyboardTest::MainWindowWithManyFiles() {
    plm_->Click("cmdSelectAll");
    QVERIFY(plm_->Get<QWidget>("chkID3v1Rem").isVisible());
    Check(plm_->Window());
}

void KeyboardTest::MainMenus() {
    const QStringList faults = MenuFaults(plm_->Window());
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

void KeyboardTest::TabFollowsTheOrderOfTheWork() {
    plm_->Click("cmdSelectAll");
    plm_->Get<QWidget>("cmdAddFiles").setFocus();
    QStringList reached;
    for (int i = 0; i < 200; ++i) {
        reached << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget()->objectName() == reached.first()) break;
    }
    const QStringList order{QStringLiteral("cmdAddFiles"),   QStringLiteral("lstFiles"),
                            QStringLiteral("lstPreview"),    QStringLiteral("cmbInPattern"),
                            QStringLiteral("cmbOutPattern"), QStringLiteral("txtNewName"),
                            QStringLiteral("optMethod0"),    QStringLiteral("chkGenre"),
                            QStringLiteral("txtTargetDir"),  QStringLiteral("optExists0"),
                            QStringLiteral("cmdSort"),       QStringLiteral("chkID3v1"),
                            QStringLiteral("txtTitle"),      QStringLiteral("chkID3v2"),
                            QStringLiteral("txtV2Title"),    QStringLiteral("txtV2Composer"),
                            QStringLiteral("cmdSaveID3")};
    for (int i = 1; i < order.size(); ++i)
        QVERIFY2(reached.indexOf(order[i - 1]) < reached.indexOf(order[i]), qPrintable(order[i]));
}

void KeyboardTest::ShortcutsAreUniqueAndShownInTheMenus() {
    QMap<QString, QString> owners;
    for (const QAction* entry : plm_->Window().findChildren<QAction*>()) {
        const QString key = entry->shortcut().toString();
        if (key.isEmpty() || entry->objectName().isEmpty()) continue;
        QVERIFY2(!owners.contains(key), qPrintable(key));
        owners[key] = entry->objectName();
    }
    QCOMPARE(owners.value(QStringLiteral("Ctrl+O")), QStringLiteral("mnuAddFiles"));
    QCOMPARE(owners.value(QStringLiteral("Ctrl+S")), QStringLiteral("mnuSave"));
    QCOMPARE(owners.value(QStringLiteral("Ctrl+A")), QStringLiteral("mnuSelectAll"));
    QCOMPARE(owners.value(QStringLiteral("Ctrl+Q")), QStringLiteral("mnuExit"));
    QCOMPARE(owners.value(QStringLiteral("Del")), QStringLiteral("mnuRemFromList"));
    QCOMPARE(owners.value(QStringLiteral("Shift+Del")), QStringLiteral("mnuRemFromHD"));
}

void KeyboardTest::ListKeysWorkOnlyInTheLists() {
    plm_->ClickLine("lstFiles", 0);
    for (const char* elsewhere : {"txtTargetDir", "cmdSort", "cmbInPattern", "txtV2Title"})
        plm_->Key(elsewhere, Qt::Key_Delete);
    QCOMPARE(plm_->Lines("lstFiles").size(), 2);
    plm_->Key("lstFiles", Qt::Key_Delete);
    QCOMPARE(plm_->Lines("lstFiles").size(), 1);
}

QWidget& KeyboardTest::StartAdding() {
    plm_->Dialogs.Results = {{{plm_->Folder.File(u"c.mp3")}, 1}};
    auto& button = plm_->Get<QWidget>("cmdAddFiles");
    button.setFocus();
    plm_->WorkStepByStep();
    QTest::keyClick(&button, Qt::Key_Space);
    return button;
}

void KeyboardTest::FocusComesBackAfterLongWork() {
    const QWidget& button = StartAdding();
    QVERIFY(plm_->Busy());
    QVERIFY(!button.hasFocus());
    plm_->Settle();
    QVERIFY(button.hasFocus());
}

void KeyboardTest::FocusThatWasMovedDuringLongWorkStays() {
    StartAdding();
    QVERIFY(plm_->Busy());
    plm_->Get<QWidget>("txtNewName").setFocus();
    plm_->Settle();
    QVERIFY(plm_->Get<QWidget>("txtNewName").hasFocus());
}

void KeyboardTest::Progress() {
    frmSorting sorting;
    CheckDialog(sorting);
}

void KeyboardTest::EditName() {
    frmEdit edit(u"name.mp3");
    CheckDialog(edit);
}

void KeyboardTest::Options() {
    frmOptions options(plm_->Context);
    CheckDialog(options);
}

void KeyboardTest::MoreFrames() {
    frmMoreID3v2 more({frames_, plm_->Ask, plm_->Dialogs, plm_->Folder / u"in/1.mp3"});
    CheckDialog(more);
}

void KeyboardTest::NamesFromText() {
    plm_->Click("cmdNameFromFile");
    auto* tool = plm_->Window().findChild<frmNameFromFile*>();
    QVERIFY(tool != nullptr);
    CheckDialog(*tool);
    const QStringList faults = MenuFaults(*tool);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

QTEST_MAIN(KeyboardTest)
#include "qt_keyboard_test.moc"
