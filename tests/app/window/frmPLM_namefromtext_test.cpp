// The name-from-text window, opened from the main window and working with its choices.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTextBlock>
#include <functional>

#include "app/dialogs/frmEdit.h"
#include "app/namefromtext/frmNameFromFile.h"
#include "app/window/frmSorting.h"
#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_modal.h"
#include "tests/support/real_mp3.h"
#include "tests/support/tools.h"

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
    void DroppedFolderThatIsTooDeepIsTold();
    void AnAlbumFromItsTextToTaggedFiles();
    void TheMainWindowRestsDuringARun();
    void NothingChosenInMidRunTakesEffect();
    void TheEditedPatternIsNotAskedAboutDuringARun();
    void ARunThatIsClosedGivesTheMainWindowBack();
    void NoRunBeginsWhileTheMainWindowWorks();

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

    template <class Control>
    Control* Of(const char* name) const {
        auto* control = Tool()->findChild<Control*>(QLatin1String(name));
        if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return control;
    }
    void Press(const char* button) const {
        QTest::mouseClick(Of<QPushButton>(button), Qt::LeftButton);
    }
    [[nodiscard]] QStringList Names() const {
        QStringList names;
        const auto* model = Of<QListView>("lstNewFileNames")->model();
        for (int i = 0; i < model->rowCount(); ++i) names << model->index(i, 0).data().toString();
        return names;
    }
    /// Two files and their names in the window, and a file in the way of the second name.
    void PrepareQuestion();
    /// Starts the run and does something while its question is open.
    void RunAndMeanwhile(const std::function<void()>& act, Answer answer = Answer::Yes);
    void OpenAlbum();
    void SelectTrackLines(int first, int last) const;
    void EditSecondName() const;
    void TickEverything() const;
    /// What another program finds in the tags of a file of the album.
    [[nodiscard]] QString TagsOf(TextView name) const {
        const Text path = plm_->Folder / (u"album/" + Text(name));
        return QString::fromStdString(test::OutputOf({"id3v2", "-l", ToUtf8(path)}));
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

void FrmPLMNameFromTextTest::DroppedFolderThatIsTooDeepIsTold() {
    plm_->Click("cmdNameFromFile");
    auto* const old = Tool()->findChild<QListView*>(QStringLiteral("lstOldFileNames"));
    DropOn(*old->viewport(), plm_->Folder.TooDeep(u"deep"));
    QTRY_COMPARE(old->model()->rowCount(), 1);
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QVERIFY(ToQt(plm_->Ask.Log[0].What.Body).startsWith(QLatin1String("These were not searched")));
}

void FrmPLMNameFromTextTest::OpenAlbum() {
    const Text text = plm_->Folder.File(
        u"album.nfo.txt",
        "Artist: The Paper Kites\r\nAlbum: Weather Permitting\r\nYear: 1997\r\n"
        "Release date: 1997-08-04\r\n\r\n1. first_gust\r\n2. KITE STRING\r\n3. harbour\r\n");
    FileDialogResult files;
    for (const TextView name : {u"b.mp3", u"a.mp3", u"c.mp3", u"d.mp3"})
        files.Paths.push_back(plm_->Folder.File(u"album/" + Text(name), EncodedMp3()));
    plm_->Dialogs.Results = {{{text}, 1}, files};
    Press("cmdOpenSource");
    Press("cmdAddFiles");
}

void FrmPLMNameFromTextTest::SelectTrackLines(int first, int last) const {
    auto* box = Of<QPlainTextEdit>("txtSourceText");
    QTextCursor cursor(box->document()->findBlockByNumber(first));
    const QTextBlock end = box->document()->findBlockByNumber(last);
    cursor.setPosition(end.position() + end.length() - 1, QTextCursor::KeepAnchor);
    box->setTextCursor(cursor);
}

void FrmPLMNameFromTextTest::EditSecondName() const {
    OnNextModal<frmEdit>([](frmEdit& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("txtReplace"))->setText("Kite S");
        dialog.findChild<QLineEdit*>(QStringLiteral("txtWith"))->setText("Kites' S");
        dialog.findChild<QPushButton*>(QStringLiteral("cmdReplace"))->click();
        dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    auto* list = Of<QListView>("lstNewFileNames");
    const QPoint second = list->visualRect(list->model()->index(1, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
}

void FrmPLMNameFromTextTest::TickEverything() const {
    for (const char* box : {"chkArtist4All", "chkAlbum4All", "chkYear4All", "chkGenre4All",
                            "chkRelease4All", "chkSaveID3v1", "chkSaveID3v2"})
        Of<QCheckBox>(box)->click();
    Of<QComboBox>("cmbGenre")->setCurrentText(QStringLiteral("Folk"));
}

void FrmPLMNameFromTextTest::AnAlbumFromItsTextToTaggedFiles() {
    plm_->Get<QComboBox>("cmbInPattern").setEditText(QStringLiteral("%track. %title.mp3"));
    plm_->Get<QComboBox>("cmbOutPattern")
        .setEditText(QStringLiteral("%track - %artist - %title.mp3"));
    plm_->Click("cmdNameFromFile");
    OpenAlbum();
    QCOMPARE(Of<QLineEdit>("txtReleaseDate")->text(), QStringLiteral("1997-08-04"));
    QCOMPARE(Of<QLabel>("lblNrOldFiles")->text(), QStringLiteral("4 files"));
    Of<QListView>("lstOldFileNames")
        ->setCurrentIndex(Of<QListView>("lstOldFileNames")->model()->index(0, 0));
    Press("cmdMoveDn");
    SelectTrackLines(5, 7);
    Press("cmdScan");
    QTRY_COMPARE(Names().size(), 3);
    EditSecondName();
    QTRY_COMPARE(Names(), QStringList({"01 - The Paper Kites - First Gust.mp3",
                                       "02 - The Paper Kites - Kites' String.mp3",
                                       "03 - The Paper Kites - Harbour.mp3"}));
    TickEverything();

    const Text taken = plm_->Folder.File(u"album/03 - The Paper Kites - Harbour.mp3", "taken");
    plm_->Ask.Answers = {Answer::Yes, Answer::Yes};
    frmSorting* progress = nullptr;
    QString shown;
    plm_->Ask.OnAsked = [&](const Asked& asked) {
        if (asked.Kind != PromptKind::YesNoCancel) return;
        progress = Tool()->findChild<frmSorting*>();
        shown = progress->findChild<QLabel*>(QStringLiteral("lblMethod"))->text() + u'|' +
                progress->findChild<QLabel*>(QStringLiteral("lblSource"))->text() + u'|' +
                progress->findChild<QProgressBar*>(QStringLiteral("prgFiles"))->text();
    };
    Press("cmdRenameFiles");
    QVERIFY(Tool()->findChild<frmSorting*>()->isVisible());
    QTRY_VERIFY(Of<QPushButton>("cmdRenameFiles")->isEnabled());
    QCOMPARE(plm_->Ask.Bodies(),
             (std::vector<Text>{
                 u"There are fewer new filnames then old.\r\nDo you want to continue any way?",
                 u"The file \"" + taken + u"\" already exists!\r\nDo you want to replace it?"}));
    QCOMPARE(shown, QStringLiteral("Renaming file:|c.mp3|3 of 3 files"));
    QVERIFY(Tool()->findChild<frmSorting*>() == nullptr);

    QCOMPARE(Of<QLabel>("lblWork")->text(), QStringLiteral("3 renamed"));
    QCOMPARE(Of<QLabel>("lblNrOldFiles")->text(), QStringLiteral("0 files"));
    QCOMPARE(Of<QPlainTextEdit>("txtSourceText")->toPlainText(), QString());
    QVERIFY(Of<QCheckBox>("chkGenre4All")->isChecked());
    QVERIFY(!Of<QCheckBox>("chkSaveID3v1")->isChecked());
    QVERIFY(FileExists(plm_->Folder / u"album/d.mp3"));
    QVERIFY(!FileExists(plm_->Folder / u"album/c.mp3"));
    const QString tags = TagsOf(u"02 - The Paper Kites - Kites' String.mp3");
    for (const char* line :
         {"Title  : Kites' String", "Year: 1997, Genre: Folk (80)", "Track: 2",
          "TIT2 (Title/songname/content description): Kites' String",
          "TPE1 (Lead performer(s)/Soloist(s)): The Paper Kites",
          "TALB (Album/Movie/Show title): Weather Permitting", "TCON (Content type): Folk (80)",
          "TRCK (Track number/Position in set): 2", "1997-08-04"})
        QVERIFY2(tags.contains(QLatin1String(line)), qPrintable(tags));
    QVERIFY(TagsOf(u"03 - The Paper Kites - Harbour.mp3").contains("Harbour"));
}

void FrmPLMNameFromTextTest::PrepareQuestion() {
    plm_->Click("cmdNameFromFile");
    Of<QComboBox>("cmbInPattern")->setEditText(QStringLiteral("%track - %title.mp3"));
    Of<QComboBox>("cmbOutPattern")->setEditText(QStringLiteral("%track %title.mp3"));
    Of<QPlainTextEdit>("txtSourceText")->setPlainText(QStringLiteral("1 - tide\n2 - lights\n"));
    Press("cmdScan");
    QTRY_COMPARE(Names().size(), 2);
    FileDialogResult files;
    for (const TextView name : {u"a.mp3", u"b.mp3"})
        files.Paths.push_back(plm_->Folder.File(u"album/" + Text(name), EncodedMp3()));
    plm_->Dialogs.Results = {files};
    Press("cmdAddFiles");
    static_cast<void>(plm_->Folder.File(u"album/01 Tide.mp3", EncodedMp3()));
}

void FrmPLMNameFromTextTest::RunAndMeanwhile(const std::function<void()>& act, Answer answer) {
    int asked = 0;
    plm_->Ask.Answers = {answer};
    plm_->Ask.OnAsked = [&](const Asked&) {
        ++asked;
        act();
    };
    Press("cmdRenameFiles");
    QTRY_VERIFY(Of<QPushButton>("cmdRenameFiles")->isEnabled());
    plm_->Ask.OnAsked = {};
    QCOMPARE(asked, 1);
}

void FrmPLMNameFromTextTest::TheMainWindowRestsDuringARun() {
    const Text listed = plm_->Folder.File(u"in/robyn_-_x.mp3", EncodedMp3());
    plm_->Drop("lstFiles", {listed});
    plm_->ClickLine("lstFiles", 0);
    plm_->Click("chkID3v1");
    plm_->SetText("txtTitle", QStringLiteral("New Title"));
    PrepareQuestion();
    const std::map<Bytes, Bytes> before = ReadTree(plm_->Folder / u"in");
    RunAndMeanwhile([this, listed] {
        QVERIFY(!plm_->Window().isEnabled());
        QVERIFY(Tool()->findChild<frmSorting*>()->isEnabled());
        for (const char* button :
             {"cmdSort", "cmdSortThisFile", "cmdSaveID3", "cmdFixID3", "cmdOptions", "cmdClear"})
            plm_->Click(button);
        for (const char* entry : {"mnuSort", "mnuSortThisFile", "mnuSaveID3", "mnuFixID3",
                                  "mnuOptions", "mnuRemFromHD", "mnuClear", "mnuNameFromFile"})
            plm_->Trigger(entry);
        DropOn(*plm_->Get<QListView>("lstFiles").viewport(), listed);
        QTest::keyClick(&plm_->Window(), Qt::Key_Return, Qt::ControlModifier);
    });
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QVERIFY(ReadTree(plm_->Folder / u"in") == before);
    QCOMPARE(plm_->Lines("lstFiles").size(), 1);
    QCOMPARE(Of<QLabel>("lblWork")->text(), QStringLiteral("2 renamed"));
    QVERIFY(plm_->Window().isEnabled());
    plm_->Click("cmdSaveID3");
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("The tags were saved."));
}

void FrmPLMNameFromTextTest::NothingChosenInMidRunTakesEffect() {
    plm_->Click("chkConvert");
    if (!plm_->Get<QCheckBox>("chkConvert").isChecked()) plm_->Click("chkConvert");
    plm_->Click("optExists0");
    PrepareQuestion();
    static_cast<void>(plm_->Folder.File(u"album/02 Lights.mp3", EncodedMp3()));
    Of<QCheckBox>("chkSaveID3v1")->setChecked(true);
    int asked = 0;
    plm_->Ask.Answers = {Answer::No, Answer::No};
    plm_->Ask.OnAsked = [&](const Asked&) {
        if (++asked > 1) return;
        plm_->Context.Values.bSetAttributes = true;
        plm_->Context.Values.bReadOnly = true;
        plm_->Get<QCheckBox>("chkConvert").setChecked(false);
        plm_->Get<QAbstractButton>("optExists2").setChecked(true);
        Of<QCheckBox>("chkSaveID3v1")->setChecked(false);
        Of<QComboBox>("cmbOutPattern")->setEditText(QStringLiteral("%title %track.mp3"));
    };
    Press("cmdRenameFiles");
    QTRY_VERIFY(Of<QPushButton>("cmdRenameFiles")->isEnabled());
    // The second file is asked about like the first, written like it, and no attribute is set.
    QCOMPARE(asked, 2);
    QVERIFY(FileExists(plm_->Folder / u"album/b.mp3"));
    QCOMPARE(GetAttributes(plm_->Folder / u"album/b.mp3") & ReadOnly, 0);
    QVERIFY(TagsOf(u"01 Tide.mp3").contains("Tide"));
    QVERIFY(TagsOf(u"02 Lights.mp3").contains("Lights"));
}

void FrmPLMNameFromTextTest::TheEditedPatternIsNotAskedAboutDuringARun() {
    plm_->Drop("lstFiles", {plm_->Folder.File(u"in/robyn_-_x.mp3", EncodedMp3())});
    plm_->Click("chkPreview");
    plm_->Settle();
    PrepareQuestion();
    plm_->Window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&plm_->Window()));
    plm_->SetText("cmbOutPattern", QStringLiteral("%title.mp3"));
    RunAndMeanwhile([] { QCoreApplication::processEvents(); });
    QCoreApplication::processEvents();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(plm_->Window().focusWidget(), &plm_->Get<QWidget>("cmbOutPattern"));
}

void FrmPLMNameFromTextTest::ARunThatIsClosedGivesTheMainWindowBack() {
    PrepareQuestion();
    Press("cmdRenameFiles");
    QVERIFY(!plm_->Window().isEnabled());
    QVERIFY(Tool()->close());
    QVERIFY(plm_->Window().isEnabled());
    QVERIFY(!plm_->Busy());
    QVERIFY(FileExists(plm_->Folder / u"album/a.mp3"));
}

void FrmPLMNameFromTextTest::NoRunBeginsWhileTheMainWindowWorks() {
    std::vector<Text> files;
    for (const TextView name : {u"in/a - x.mp3", u"in/b - y.mp3", u"in/c - z.mp3"})
        files.push_back(plm_->Folder.File(name, EncodedMp3()));
    plm_->Drop("lstFiles", files);
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtTitle", QStringLiteral("New Title"));
    PrepareQuestion();
    plm_->WorkStepByStep();
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Click("cmdSaveID3");
    QVERIFY(plm_->Busy());
    auto* const rename = Of<QPushButton>("cmdRenameFiles");
    QVERIFY(!rename->isEnabled());
    QVERIFY(rename->toolTip().contains(QLatin1String("Not while the main window works.")));
    Press("cmdRenameFiles");
    QVERIFY(Tool()->findChild<frmSorting*>() == nullptr);
    plm_->Settle();
    QVERIFY(rename->isEnabled());
    QCOMPARE(rename->toolTip(), QStringLiteral("Gives each file the name beside it."));
    QVERIFY(FileExists(plm_->Folder / u"album/a.mp3"));
}

QTEST_MAIN(FrmPLMNameFromTextTest)
#include "frmPLM_namefromtext_test.moc"
