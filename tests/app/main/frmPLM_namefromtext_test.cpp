// The name-from-text window, opened from the main window and working with its choices.
#include <QComboBox>
#include <QListView>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>

#include "app/namefromtext/frmNameFromFile.h"
#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/real_mp3.h"

using namespace mdlPLM;

class FrmPLMNameFromTextTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        plm_ = std::make_unique<MainWindow>();
        plm_->Open();
    }
    void cleanup() { plm_.reset(); }

    void ButtonAndMenuOpenItWithThePatternsOfTheMoment_data();
    void ButtonAndMenuOpenItWithThePatternsOfTheMoment();
    void ItIsOpenedOnceAtATime();
    void ClosingTheMainWindowClosesIt();
    void ScannedNamesRenameTheFilesOfADroppedFolder();

private:
    [[nodiscard]] frmNameFromFile* Tool() const {
        for (auto* window : plm_->Window().findChildren<frmNameFromFile*>())
            if (window->isVisible()) return window;
        return nullptr;
    }
    static void DropOn(QWidget& target, const Text& path) {
        QMimeData data;
        data.setData(QStringLiteral("text/uri-list"),
                     QByteArray("file://") +
                         QByteArray::fromStdString(ToUtf8(path)).toPercentEncoding("/") + "\r\n");
        const QPoint at(5, 5);
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &enter);
        QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &drop);
    }

    std::unique_ptr<MainWindow> plm_;
};

void FrmPLMNameFromTextTest::ButtonAndMenuOpenItWithThePatternsOfTheMoment_data() {
    QTest::addColumn<bool>("menu");
    QTest::newRow("button") << false;
    QTest::newRow("menu") << true;
}

void FrmPLMNameFromTextTest::ButtonAndMenuOpenItWithThePatternsOfTheMoment() {
    QFETCH(bool, menu);
    plm_->Get<QComboBox>("cmbInPattern").setEditText(QStringLiteral("%track. %title.mp3"));
    plm_->Get<QComboBox>("cmbOutPattern").setEditText(QStringLiteral("%title.mp3"));
    if (menu)
        plm_->Trigger("mnuNameFromFile");
    else
        plm_->Click("cmdNameFromFile");
    frmNameFromFile* const tool = Tool();
    QVERIFY(tool != nullptr);
    QCOMPARE(tool->windowTitle(), QStringLiteral("Get MP3 info from File/Text"));
    QCOMPARE(tool->findChild<QComboBox*>(QStringLiteral("cmbInPattern"))->currentText(),
             QStringLiteral("%track. %title.mp3"));
    QCOMPARE(tool->findChild<QComboBox*>(QStringLiteral("cmbOutPattern"))->currentText(),
             QStringLiteral("%title.mp3"));
}

void FrmPLMNameFromTextTest::ItIsOpenedOnceAtATime() {
    plm_->Click("cmdNameFromFile");
    frmNameFromFile* const first = Tool();
    plm_->Click("cmdNameFromFile");
    QCOMPARE(Tool(), first);
    QCOMPARE(plm_->Window().findChildren<frmNameFromFile*>().size(), 1);
}

void FrmPLMNameFromTextTest::ClosingTheMainWindowClosesIt() {
    plm_->Click("cmdNameFromFile");
    QVERIFY(plm_->Window().close());
    QVERIFY(Tool() == nullptr);
}

void FrmPLMNameFromTextTest::ScannedNamesRenameTheFilesOfADroppedFolder() {
    const Text folder = JoinPath(plm_->Folder.Path(), u"album");
    QVERIFY(CreateFolders(folder).Ok());
    for (const char16_t* name : {u"a.mp3", u"b.mp3"})
        WriteFile(JoinPath(folder, name), EncodedMp3());
    plm_->Click("cmdNameFromFile");
    frmNameFromFile* const tool = Tool();
    tool->findChild<QComboBox*>(QStringLiteral("cmbInPattern"))
        ->setEditText(QStringLiteral("%track - %title.mp3"));
    tool->findChild<QComboBox*>(QStringLiteral("cmbOutPattern"))
        ->setEditText(QStringLiteral("%track %title.mp3"));
    tool->findChild<QPlainTextEdit*>(QStringLiteral("txtSourceText"))
        ->setPlainText(QStringLiteral("1 - low tide\n2 - harbour lights\n"));
    QTest::mouseClick(tool->findChild<QPushButton*>(QStringLiteral("cmdScan")), Qt::LeftButton);
    auto* const names = tool->findChild<QListView*>(QStringLiteral("lstNewFileNames"));
    QTRY_COMPARE(names->model()->rowCount(), 2);
    auto* const old = tool->findChild<QListView*>(QStringLiteral("lstOldFileNames"));
    DropOn(*old->viewport(), folder);
    QTRY_COMPARE(old->model()->rowCount(), 2);
    QTest::mouseClick(tool->findChild<QPushButton*>(QStringLiteral("cmdRenameFiles")),
                      Qt::LeftButton);
    QTRY_COMPARE(old->model()->rowCount(), 0);
    QVERIFY(FileExists(JoinPath(folder, u"01 Low Tide.mp3")));
    QVERIFY(FileExists(JoinPath(folder, u"02 Harbour Lights.mp3")));
    QVERIFY(!FileExists(JoinPath(folder, u"a.mp3")));
}

QTEST_MAIN(FrmPLMNameFromTextTest)
#include "frmPLM_namefromtext_test.moc"
