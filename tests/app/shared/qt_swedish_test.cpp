// Every window of the Swedish program says only what is Swedish, or the same in every language.
#include <QAbstractButton>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "app/dialogs/frmEdit.h"
#include "app/dialogs/frmMoreID3v2.h"
#include "app/dialogs/frmOptions.h"
#include "app/dialogs/qt_player.h"
#include "app/namefromtext/frmNameFromFile.h"
#include "app/shared/qt_file_dialogs.h"
#include "app/shared/qt_language.h"
#include "app/window/frmSorting.h"
#include "core/text/code_page.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_modal.h"
#include "tests/support/qt_panel_frames.h"
#include "tests/support/qt_swedish.h"
#include "tests/support/real_mp3.h"

using namespace mdlPLM;

class SwedishTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { plm_.reset(); }

    void AForeignTextIsFound();
    void MainWindow();
    void MainWindowWithManyFiles();
    void StatusLines();
    void ReasonsOfFailures();
    void Options();
    void Sorting();
    void EditName();
    void MoreFrames();
    void NamesFromText();
    void PlayerFaults();
    void FileDialogs_data();
    void FileDialogs();
    void TheCommandLine();

private:
    void Check(const QStringList& said) {
        const QStringList strangers = swedish_.NotSwedish(said);
        QVERIFY2(strangers.isEmpty(), qPrintable(strangers.join(u'\n')));
    }
    void CheckStatus() { Check({plm_->TextOf("lblStatus")}); }

    SwedishTexts swedish_;
    std::unique_ptr<mdlPLM::MainWindow> plm_;
};

void SwedishTest::initTestCase() {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    InstallTranslation(*qApp, QLocale(QStringLiteral("sv_SE")));
}

void SwedishTest::init() {
    plm_ = std::make_unique<mdlPLM::MainWindow>();
    plm_->Context.Values.Move = static_cast<int>(SortMethod::Rename);
    plm_->Open();
    for (const char* title : {"one", "two"})
        TagByPeer(plm_->Folder.File(u"in/" + FromUtf8(title) + u".mp3", EncodedMp3()),
                  {"artist", title, "", "", "", -1});
    plm_->Drop("lstFiles", {plm_->Folder / u"in"});
    plm_->Click("chkPreview");
    plm_->Settle();
}

void SwedishTest::AForeignTextIsFound() {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(new QLabel(QStringLiteral("Avbryt")));
    layout->addWidget(new QLabel(QStringLiteral("Not in Swedish")));
    layout->itemAt(0)->widget()->setToolTip(QStringLiteral("Nor is this"));
    QCOMPARE(swedish_.NotSwedish(SaidTexts(window)),
             (QStringList{QStringLiteral("Nor is this"), QStringLiteral("Not in Swedish")}));
}

void SwedishTest::MainWindow() {
    plm_->ClickLine("lstFiles", 0);
    Check(SaidTexts(plm_->Window()));
}

void SwedishTest::MainWindowWithManyFiles() {
    plm_->Click("cmdSelectAll");
    Check(SaidTexts(plm_->Window()));
}

void SwedishTest::StatusLines() {
    for (const char* entry : {"mnuSelectNone", "mnuSort", "mnuSaveID3", "mnuFixID3",
                              "mnuSelV1Files", "mnuNonExistent", "mnuSort"}) {
        plm_->Trigger(entry);
        plm_->Settle();
        CheckStatus();
    }
    plm_->Dialogs.Results = {{{plm_->Folder / u"list.srt"}, 1}};
    plm_->Trigger("mnuSave");
    CheckStatus();
}

void SwedishTest::ReasonsOfFailures() {
    RunReport report;
    report.Files = {{u"/a.mp3", {}, FileFate::Failed, {Why::SystemError, ErrorNumber::DiskFull}}};
    QCOMPARE(ToQt(FailureText(report, SortWording, UserLanguage())),
             QStringLiteral("Detta kunde inte sorteras:\n\"/a.mp3\": Disken är full"));
}

void SwedishTest::Options() { Check(SaidTexts(frmOptions(plm_->Context))); }

void SwedishTest::Sorting() {
    frmSorting sorting;
    Check(SaidTexts(sorting));
    sorting.ShowDone();
    Check(SaidTexts(sorting));
}

void SwedishTest::EditName() { Check(SaidTexts(frmEdit(u"name.mp3"))); }

void SwedishTest::MoreFrames() {
    test::PanelFrames frames{"TLEN"};
    frmMoreID3v2 more({frames, plm_->Ask, plm_->Dialogs, plm_->Folder / u"in/one.mp3"});
    Check(SaidTexts(more));
    for (const char* button : {"cmdAdd", "cmdRemoveAll"}) {
        more.findChild<QAbstractButton*>(QLatin1String(button))->click();
        Check(SaidTexts(more));
    }
}

void SwedishTest::NamesFromText() {
    plm_->Click("cmdNameFromFile");
    auto* tool = plm_->Window().findChild<frmNameFromFile*>();
    QVERIFY(tool != nullptr);
    tool->findChild<QLineEdit*>(QStringLiteral("txtArtist"))->setText(QString(40, u'x'));
    tool->findChild<QPlainTextEdit*>(QStringLiteral("txtSourceText"))
        ->setPlainText(QStringLiteral("1 - artist - title"));
    tool->findChild<QAbstractButton*>(QStringLiteral("cmdScan"))->click();
    QTRY_VERIFY(!tool->findChild<QWidget*>(QStringLiteral("cmdStop"))->isVisible());
    QCOMPARE(tool->findChild<QListView*>(QStringLiteral("lstNewFileNames"))->model()->rowCount(),
             1);
    Check(SaidTexts(*tool));
    tool->findChild<QAbstractButton*>(QStringLiteral("chkIgnoreFirst"))->click();
    tool->findChild<QAbstractButton*>(QStringLiteral("cmdScan"))->click();
    Check({ToQt(plm_->Ask.Bodies().back())});
}

void SwedishTest::PlayerFaults() {
    for (const auto kind : {PlayerFault::Kind::NoPlayer, PlayerFault::Kind::MissingElements,
                            PlayerFault::Kind::NoSoundDevice, PlayerFault::Kind::CannotPlay})
        Check({PlayerFaultText({kind, u"/a.mp3", u"x"})});
}

void SwedishTest::FileDialogs_data() {
    QTest::addColumn<int>("kind");
    for (const int kind : {0, 1, 2}) QTest::addRow("%d", kind) << kind;
}

void SwedishTest::FileDialogs() {
    QFETCH(int, kind);
    QStringList said;
    OnNextModal<QFileDialog>([&said](QFileDialog& dialog) {
        said = SaidTexts(dialog);
        dialog.reject();
    });
    const FileDialogRequest request{u"Pellmore", plm_->Folder.Path(), u"x (*.mp3)|*.mp3", false};
    QtFileDialogs dialogs;
    if (kind == 0) (void)dialogs.OpenFiles(nullptr, request);
    if (kind == 1) (void)dialogs.SaveFile(nullptr, request);
    if (kind == 2) (void)dialogs.BrowseForFolder(nullptr, u"Pellmore", plm_->Folder.Path());
    QVERIFY(said.size() > 5);
    Check(said);
}

void SwedishTest::TheCommandLine() {
    const Language words = ConsoleLanguage(QLocale(QStringLiteral("sv_SE")));
    QCOMPARE(ToQt(words("there is no file to rename.")),
             QStringLiteral("det finns ingen fil att döpa om."));
    QCOMPARE(ToQt(words("a text without a translation")),
             QStringLiteral("a text without a translation"));
    QCOMPARE(ToQt(ConsoleLanguage(QLocale(QStringLiteral("fi_FI")))("there is no file to rename.")),
             QStringLiteral("there is no file to rename."));
}

QTEST_MAIN(SwedishTest)
#include "qt_swedish_test.moc"
