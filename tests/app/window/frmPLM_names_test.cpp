// How the main window makes names: patterns, preview, the old and the new name of the shown file,
// and what it stores when it closes.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>

#include "app/dialogs/frmEdit.h"
#include "app/dialogs/frmOptions.h"
#include "core/names/patterns.h"
#include "core/platform/path.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_modal.h"
#include "tests/support/real_mp3.h"

using namespace mdlPLM;

class FrmPLMNamesTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { plm_.reset(); }

    void PatternBoxesAreFilledFromTheirFiles();
    void PatternBoxesSayWhichFieldsThereAre();
    void PatternBoxesSwallowForbiddenKeys_data();
    void PatternBoxesSwallowForbiddenKeys();
    void PreviewIsHiddenUntilTicked();
    void TickingComputesAllLinesAndUntickingEmptiesThem();
    void StatusLineIsFreeAgainWhenTheNamesAreComputed();
    void UntickingStopsTheComputing();
    void AddedFilesGetLinesOnlyWhilePreviewIsShown();
    void PreviewTakesNamesFromTags();
    void SelectingOneFileShowsItsNames();
    void SelectingManyShowsNoName();
    void ClickThatDeselectsTheLastFileStillShowsIt();
    void SelectingPreviewLineTakesItsText();
    void EmptyPreviewLineGivesTheComputedName();
    void EditingThePatternRenewsTheNewName();
    void EditingThePatternLeavesTheNewNameWhilePreviewIsShown();
    void LeavingEditedPatternAsks();
    void AnswerYesAppliesPatternToSelectedLinesOnly();
    void AnswerYesRenewsTheNewNameOfTheShownFile();
    void PatternGoesToTheFilesThatWereSelectedWhenItsBoxWasLeft();
    void LeavingUneditedPatternAsksNothing();
    void LeavingEditedPatternWithoutPreviewAsksNothing();
    void PatternThatIsChosenFromTheListCountsAsEdited();
    void DoubleClickOnPreviewLineEditsIt();
    void CancelledEditLeavesTheLine();
    void UnreadableTagIsReportedBesideItsFile();
    void FileThatCannotBeReadGetsNoName();
    void OptionsRenewTheNewName();
    void OptionsRenewTheComputedPreviewLines();
    void OptionsRenewTheNewNameWhilePreviewIsShown_data();
    void OptionsRenewTheNewNameWhilePreviewIsShown();
    void SettingsFillTheControls();
    void ControlsAreStoredOnClose();
    void TargetFolderIsStoredWhileRenameShowsAnother();
    void LayoutIsRemembered();
    void PreviewThatWasNeverShownGetsHalfTheRoom();
    void StoreThatCannotBeWrittenIsToldOnce();

private:
    Text File(TextView name) { return plm_->Folder.File(name, Bytes(200, 'x')); }
    void Drop(const std::vector<Text>& names) {
        std::vector<Text> paths;
        for (const Text& name : names) paths.push_back(File(name));
        plm_->Drop("lstFiles", paths);
    }
    /// Types a pattern and leaves the box.
    void EnterOutPattern(const QString& pattern) {
        plm_->SetText("cmbOutPattern", pattern);
        plm_->Get<QWidget>("txtNewName").setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        plm_->Settle();
    }

    std::unique_ptr<MainWindow> plm_;
};

void FrmPLMNamesTest::init() {
    plm_ = std::make_unique<MainWindow>();
    plm_->Context.Values.OutPattern = u"%title by %artist.mp3";
    plm_->Open();
}

void FrmPLMNamesTest::PatternBoxesAreFilledFromTheirFiles() {
    WriteFile(plm_->Context.ListsFolder + u"inpattern.txt", "%title\r\n\r\n  \r\n%artist\r\n");
    WriteFile(plm_->Context.ListsFolder + u"outpattern.txt", "%track\n");
    plm_->Open();
    const auto& in = plm_->Get<QComboBox>("cmbInPattern");
    QCOMPARE(in.count(), 2);
    QCOMPARE(in.itemText(0), QStringLiteral("%title"));
    QCOMPARE(in.itemText(1), QStringLiteral("%artist"));
    QCOMPARE(in.currentText(), QStringLiteral("%artist - %title.mp3"));
    QCOMPARE(plm_->Get<QComboBox>("cmbOutPattern").count(), 1);
    QCOMPARE(plm_->TextOf("cmbOutPattern"), QStringLiteral("%title by %artist.mp3"));
}

void FrmPLMNamesTest::PatternBoxesSayWhichFieldsThereAre() {
    for (const char* box : {"cmbInPattern", "cmbOutPattern"}) {
        const QString tip = plm_->Get<QComboBox>(box).toolTip();
        for (const NameField& field : NameFields)
            QVERIFY2(tip.contains(ToQt(field.Placeholder)), box);
    }
}

void FrmPLMNamesTest::PatternBoxesSwallowForbiddenKeys_data() {
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("kept");
    QTest::newRow("in") << QByteArray("cmbInPattern") << QStringLiteral("a/b\\c");
    QTest::newRow("out") << QByteArray("cmbOutPattern") << QStringLiteral("abc");
}

void FrmPLMNamesTest::PatternBoxesSwallowForbiddenKeys() {
    QFETCH(QByteArray, box);
    QFETCH(QString, kept);
    plm_->SetText(box.constData(), QStringLiteral("a/:?\"b<>|*\\c"));
    QCOMPARE(plm_->TextOf(box.constData()), kept);
}

void FrmPLMNamesTest::PreviewIsHiddenUntilTicked() {
    const auto& preview = plm_->Get<QListView>("lstPreview");
    QVERIFY(!preview.isVisible());
    QVERIFY(!plm_->Get<QAction>("mnuEditName").isEnabled());
    plm_->Click("chkPreview");
    QVERIFY(preview.isVisible());
    QVERIFY(plm_->Get<QAction>("mnuEditName").isEnabled());
    plm_->Click("chkPreview");
    QVERIFY(!preview.isVisible());
    QCOMPARE(plm_->TextOf("chkPreview"), QStringLiteral("Show Preview."));
}

void FrmPLMNamesTest::TickingComputesAllLinesAndUntickingEmptiesThem() {
    Drop({u"abba - waterloo.mp3", u"robyn - hang with me.mp3"});
    QCOMPARE(plm_->Lines("lstPreview"), (QStringList{QString(), QString()}));
    plm_->Click("chkPreview");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstPreview"), (QStringList{QStringLiteral("Waterloo By Abba.mp3"),
                                                     QStringLiteral("Hang With Me By Robyn.mp3")}));
    plm_->Click("chkPreview");
    QCOMPARE(plm_->Lines("lstPreview"), (QStringList{QString(), QString()}));
}

void FrmPLMNamesTest::StatusLineIsFreeAgainWhenTheNamesAreComputed() {
    Drop({u"abba - waterloo.mp3", u"robyn - hang with me.mp3"});
    plm_->WorkStepByStep();
    plm_->Get<QCheckBox>("chkPreview").click();
    QVERIFY(plm_->Busy());
    QTRY_COMPARE(plm_->TextOf("lblStatus"), QStringLiteral("Computing new names"));
    plm_->Settle();
    QCOMPARE(plm_->TextOf("lblStatus"), QString());
}

void FrmPLMNamesTest::UntickingStopsTheComputing() {
    std::vector<Text> names;
    for (int i = 0; i < 30; ++i) names.push_back(FromQt(QStringLiteral("a - %1.mp3").arg(i)));
    Drop(names);
    plm_->WorkStepByStep();
    plm_->Get<QCheckBox>("chkPreview").click();
    QVERIFY(plm_->Busy());
    plm_->Get<QCheckBox>("chkPreview").click();
    QVERIFY(!plm_->Busy());
    QCOMPARE(plm_->Lines("lstPreview").join(QString()), QString());
}

void FrmPLMNamesTest::AddedFilesGetLinesOnlyWhilePreviewIsShown() {
    const Text one = plm_->Folder.File(u"one/abba - waterloo.mp3");
    const Text two = plm_->Folder.File(u"two/abba - sos.mp3");
    const Text three = plm_->Folder.File(u"abba - fernando.mp3");
    const Text four = plm_->Folder.File(u"abba - chiquitita.mp3");
    plm_->Drop("lstFiles", {plm_->Folder / u"one"});
    QCOMPARE(plm_->Lines("lstPreview"), QStringList{QString()});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->Drop("lstFiles", {plm_->Folder / u"two", three});
    plm_->Dialogs.Results = {{{four}, 3}};
    plm_->Click("cmdAddFiles");
    plm_->Settle();
    // A single file that is dropped gets none.
    QCOMPARE(plm_->Lines("lstPreview"),
             (QStringList{QStringLiteral("Waterloo By Abba.mp3"), QStringLiteral("Sos By Abba.mp3"),
                          QString(), QStringLiteral("Chiquitita By Abba.mp3")}));
}

void FrmPLMNamesTest::PreviewTakesNamesFromTags() {
    const Text path = plm_->Folder.File(u"m/bad_name.MP3", EncodedMp3());
    TagByPeer(path, {"Abba", "Waterloo", "Waterloo", "1974", "3", 13});
    plm_->Drop("lstFiles", {plm_->Folder / u"m"});
    plm_->SetText("cmbOutPattern",
                  QStringLiteral("%track - %artist - %title (%album, %year, %genre).mp3"));
    plm_->Click("chkPreview");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstPreview"),
             QStringList{QStringLiteral("03 - Abba - Waterloo (Waterloo, 1974, Pop).mp3")});
}

void FrmPLMNamesTest::SelectingOneFileShowsItsNames() {
    Drop({u"abba - waterloo.mp3", u"robyn - hang with me.mp3"});
    plm_->ClickLine("lstFiles", 1);
    QCOMPARE(plm_->TextOf("txtOldName"), QStringLiteral("robyn - hang with me.mp3"));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Hang With Me By Robyn.mp3"));
}

void FrmPLMNamesTest::SelectingManyShowsNoName() {
    Drop({u"abba - waterloo.mp3", u"robyn - hang with me.mp3"});
    plm_->ClickLine("lstFiles", 1);
    QVERIFY(!plm_->Window().MultipleSelection());
    plm_->ClickLine("lstFiles", 0, Qt::ControlModifier);
    QVERIFY(plm_->Window().MultipleSelection());
    QCOMPARE(plm_->TextOf("txtOldName"), QString());
    QCOMPARE(plm_->TextOf("txtNewName"), QString());
}

void FrmPLMNamesTest::ClickThatDeselectsTheLastFileStillShowsIt() {
    Drop({u"abba - waterloo.mp3", u"robyn - hang with me.mp3"});
    plm_->ClickLine("lstFiles", 1);
    plm_->ClickLine("lstFiles", 1, Qt::ControlModifier);
    QCOMPARE(plm_->SelectedRows(), QList<int>());
    QCOMPARE(plm_->TextOf("txtOldName"), QStringLiteral("robyn - hang with me.mp3"));
}

void FrmPLMNamesTest::SelectingPreviewLineTakesItsText() {
    Drop({u"abba - waterloo.mp3", u"robyn - hang with me.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    // The pattern changes; the line stays as it was computed.
    plm_->Ask.Answers = {Answer::No};
    EnterOutPattern(QStringLiteral("%title.mp3"));
    plm_->ClickLine("lstPreview", 0);
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Waterloo By Abba.mp3"));
}

void FrmPLMNamesTest::EmptyPreviewLineGivesTheComputedName() {
    plm_->Click("chkPreview");
    Drop({u"abba - waterloo.mp3"});
    QCOMPARE(plm_->Lines("lstPreview"), QStringList{QString()});
    plm_->ClickLine("lstPreview", 0);
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Waterloo By Abba.mp3"));
}

void FrmPLMNamesTest::EditingThePatternRenewsTheNewName() {
    Drop({u"abba - waterloo.mp3"});
    plm_->ClickLine("lstFiles", 0);
    EnterOutPattern(QStringLiteral("%artist %title.mp3"));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Abba Waterloo.mp3"));
    plm_->SetText("cmbInPattern", QStringLiteral("%title - %artist.mp3"));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Waterloo Abba.mp3"));
}

void FrmPLMNamesTest::EditingThePatternLeavesTheNewNameWhilePreviewIsShown() {
    Drop({u"abba - waterloo.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstFiles", 0);
    plm_->Ask.Answers = {Answer::No};
    EnterOutPattern(QStringLiteral("%artist.mp3"));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Waterloo By Abba.mp3"));
}

void FrmPLMNamesTest::LeavingEditedPatternAsks() {
    Drop({u"abba - waterloo.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstFiles", 0);
    plm_->Ask.Answers = {Answer::No};
    EnterOutPattern(QStringLiteral("%title.mp3"));
    const Asked& asked = plm_->Ask.Log.at(0);
    QCOMPARE(asked.Kind, PromptKind::YesNo);
    QCOMPARE(asked.What.Title, Text());
    QCOMPARE(ToQt(asked.What.Body),
             QStringLiteral("The output pattern has been changed.\r\n"
                            "Would you like to apply the new pattern to selected files?"));
    QCOMPARE(plm_->Lines("lstPreview"), QStringList{QStringLiteral("Waterloo By Abba.mp3")});
    // It has been answered, whatever the answer.
    plm_->Get<QWidget>("cmbOutPattern").setFocus();
    plm_->Get<QWidget>("txtNewName").setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
}

void FrmPLMNamesTest::AnswerYesAppliesPatternToSelectedLinesOnly() {
    Drop({u"abba - waterloo.mp3", u"abba - sos.mp3", u"abba - fernando.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstFiles", 0);
    plm_->ClickLine("lstPreview", 2, Qt::ControlModifier);
    plm_->Ask.Answers = {Answer::Yes};
    EnterOutPattern(QStringLiteral("%title.mp3"));
    QCOMPARE(plm_->Lines("lstPreview"),
             (QStringList{QStringLiteral("Waterloo.mp3"), QStringLiteral("Sos By Abba.mp3"),
                          QStringLiteral("Fernando.mp3")}));
}

// What the box says is what "Sort This File" uses.
void FrmPLMNamesTest::AnswerYesRenewsTheNewNameOfTheShownFile() {
    Drop({u"abba - waterloo.mp3", u"abba - sos.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstFiles", 1);
    plm_->Ask.Answers = {Answer::Yes};
    EnterOutPattern(QStringLiteral("%artist, %title.mp3"));
    QCOMPARE(plm_->Lines("lstPreview"), (QStringList{QStringLiteral("Waterloo By Abba.mp3"),
                                                     QStringLiteral("Abba, Sos.mp3")}));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Abba, Sos.mp3"));
}

void FrmPLMNamesTest::PatternGoesToTheFilesThatWereSelectedWhenItsBoxWasLeft() {
    Drop({u"abba - waterloo.mp3", u"abba - sos.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstFiles", 0);
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Get<QWidget>("cmbOutPattern").setFocus();
    plm_->SetText("cmbOutPattern", QStringLiteral("%title.mp3"));
    plm_->ClickLine("lstFiles", 1);
    plm_->Settle();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(plm_->SelectedRows(), QList<int>{1});
    QCOMPARE(plm_->Lines("lstPreview"),
             (QStringList{QStringLiteral("Waterloo.mp3"), QStringLiteral("Sos By Abba.mp3")}));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Sos By Abba.mp3"));
}

void FrmPLMNamesTest::LeavingUneditedPatternAsksNothing() {
    Drop({u"abba - waterloo.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->Get<QWidget>("cmbOutPattern").setFocus();
    plm_->Get<QWidget>("txtNewName").setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
}

void FrmPLMNamesTest::LeavingEditedPatternWithoutPreviewAsksNothing() {
    Drop({u"abba - waterloo.mp3"});
    EnterOutPattern(QStringLiteral("%title.mp3"));
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
    // And it does not ask later for what was edited then.
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->Get<QWidget>("cmbOutPattern").setFocus();
    plm_->Get<QWidget>("txtNewName").setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
}

void FrmPLMNamesTest::PatternThatIsChosenFromTheListCountsAsEdited() {
    WriteFile(plm_->Context.ListsFolder + u"outpattern.txt", "%title.mp3\n");
    plm_->Open();
    Drop({u"abba - waterloo.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstFiles", 0);
    plm_->Ask.Answers = {Answer::Yes};
    auto& box = plm_->Get<QComboBox>("cmbOutPattern");
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Down);
    plm_->Get<QWidget>("txtNewName").setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstPreview"), QStringList{QStringLiteral("Waterloo.mp3")});
}

void FrmPLMNamesTest::DoubleClickOnPreviewLineEditsIt() {
    Drop({u"abba - waterloo.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    QString shown;
    OnNextModal<frmEdit>([&shown](frmEdit& dialog) {
        auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("txtFixedName"));
        shown = box->text();
        box->setText(QStringLiteral("By hand.mp3"));
        dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    auto& preview = plm_->Get<QListView>("lstPreview");
    const QPoint place = preview.visualRect(preview.model()->index(0, 1)).center();
    QTest::mouseClick(preview.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(preview.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(shown, QStringLiteral("Waterloo By Abba.mp3"));
    QCOMPARE(plm_->Lines("lstPreview"), QStringList{QStringLiteral("By hand.mp3")});
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("By hand.mp3"));
}

void FrmPLMNamesTest::CancelledEditLeavesTheLine() {
    Drop({u"abba - waterloo.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstPreview", 0);
    bool seen = false;
    OnNextModal<frmEdit>([&seen](frmEdit& dialog) {
        seen = true;
        dialog.findChild<QLineEdit*>(QStringLiteral("txtFixedName"))->setText(QStringLiteral("x"));
        dialog.findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
    });
    plm_->Key("lstPreview", Qt::Key_Return);
    QVERIFY(seen);
    QCOMPARE(plm_->Lines("lstPreview"), QStringList{QStringLiteral("Waterloo By Abba.mp3")});
}

void FrmPLMNamesTest::UnreadableTagIsReportedBesideItsFile() {
    const Text path = plm_->Folder.File(u"short.mp3", "short");
    plm_->Drop("lstFiles", {path});
    plm_->ClickLine("lstFiles", 0);
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(plm_->Ask.Log[0].Kind, PromptKind::Critical);
    QVERIFY(ToQt(plm_->Ask.Log[0].What.Body).startsWith(QLatin1String("Error: 63\r\n")));
    QCOMPARE(plm_->Ask.Log[0].What.Detail, path);
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("By Short.mp3"));
}

// Its old name would be all that a name could be made of.
void FrmPLMNamesTest::FileThatCannotBeReadGetsNoName() {
    const Text path = plm_->Folder.Unopenable(u"abba - waterloo.mp3");
    plm_->Drop("lstFiles", {path});
    plm_->ClickLine("lstFiles", 0);
    QVERIFY(ToQt(plm_->Ask.Log.at(0).What.Body).startsWith(QLatin1String("Error: 68\r\n")));
    QCOMPARE(plm_->TextOf("txtNewName"), QString());
    plm_->SetText("cmbOutPattern", QStringLiteral("%title.mp3"));
    QCOMPARE(plm_->TextOf("txtNewName"), QString());
    plm_->Click("chkPreview");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstPreview"), QStringList{QString()});
    QCOMPARE(plm_->TextOf("txtNewName"), QString());
    plm_->Click("optMethod2");
    plm_->Ask.Log.clear();
    plm_->Click("cmdSort");
    plm_->Settle();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QVERIFY(ToQt(plm_->Ask.Log[0].What.Body).endsWith(QLatin1String("Device unavailable")));
    QVERIFY(IsThere(path));
    plm_->SetText("txtNewName", QStringLiteral("By hand.mp3"));
    plm_->Click("cmdSort");
    plm_->Settle();
    QVERIFY(IsThere(plm_->Folder / u"By hand.mp3"));
}

void FrmPLMNamesTest::OptionsRenewTheNewName() {
    Drop({u"abba - waterloo.mp3"});
    plm_->ClickLine("lstFiles", 0);
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Waterloo By Abba.mp3"));
    bool seen = false;
    OnNextModal<frmOptions>([&seen](frmOptions& dialog) {
        seen = true;
        dialog.findChild<QRadioButton*>(QStringLiteral("optChange3"))->click();
        dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    plm_->Click("cmdOptions");
    QVERIFY(seen);
    QCOMPARE(plm_->Context.Values.Change, 3);
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("WATERLOO BY ABBA.mp3"));
}

void FrmPLMNamesTest::OptionsRenewTheComputedPreviewLines() {
    Drop({u"abba - waterloo.mp3", u"abba - sos.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstPreview", 1);
    OnNextModal<frmEdit>([](frmEdit& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("txtFixedName"))
            ->setText(QStringLiteral("By hand.mp3"));
        dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    plm_->Key("lstPreview", Qt::Key_F2);
    OnNextModal<frmOptions>([](frmOptions& dialog) {
        dialog.findChild<QRadioButton*>(QStringLiteral("optChange3"))->click();
        dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    plm_->Trigger("mnuOptions");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstPreview"),
             (QStringList{QStringLiteral("WATERLOO BY ABBA.mp3"), QStringLiteral("By hand.mp3")}));
}

void FrmPLMNamesTest::OptionsRenewTheNewNameWhilePreviewIsShown_data() {
    QTest::addColumn<bool>("hasLine");
    QTest::newRow("with a preview line") << true;
    QTest::newRow("dropped alone, without one") << false;
}

void FrmPLMNamesTest::OptionsRenewTheNewNameWhilePreviewIsShown() {
    QFETCH(bool, hasLine);
    if (hasLine) Drop({u"abba - waterloo.mp3"});
    plm_->Click("chkPreview");
    plm_->Settle();
    if (!hasLine) Drop({u"abba - waterloo.mp3"});
    plm_->ClickLine("lstFiles", 0);
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Waterloo By Abba.mp3"));
    OnNextModal<frmOptions>([](frmOptions& dialog) {
        dialog.findChild<QRadioButton*>(QStringLiteral("optChange3"))->click();
        dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    plm_->Trigger("mnuOptions");
    plm_->Settle();
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("WATERLOO BY ABBA.mp3"));
}

void FrmPLMNamesTest::SettingsFillTheControls() {
    Settings& values = plm_->Context.Values;
    values.Genre = 1;
    values.Alphabetical = 1;
    values.SubFolder = 1;
    values.Convert = 0;
    values.txtSubFolder = 12;
    values.FileExists = 2;
    values.Move = 1;
    values.TargetDir = u"/target";
    values.InPattern = u"%title.mp3";
    plm_->Open();
    QVERIFY(plm_->Get<QCheckBox>("chkGenre").isChecked());
    QVERIFY(plm_->Get<QCheckBox>("chkAlphabetical").isChecked());
    QVERIFY(plm_->Get<QCheckBox>("chkSubFolder").isChecked());
    QVERIFY(!plm_->Get<QCheckBox>("chkConvert").isChecked());
    QCOMPARE(plm_->TextOf("txtSubFolder"), QStringLiteral("12"));
    QVERIFY(plm_->Get<QRadioButton>("optExists2").isChecked());
    QVERIFY(plm_->Get<QRadioButton>("optMethod1").isChecked());
    QCOMPARE(plm_->TextOf("txtTargetDir"), QStringLiteral("/target"));
    QCOMPARE(plm_->TextOf("cmbInPattern"), QStringLiteral("%title.mp3"));
}

void FrmPLMNamesTest::ControlsAreStoredOnClose() {
    plm_->Click("optMethod0");
    plm_->Click("optExists1");
    for (const char* box : {"chkGenre", "chkAlphabetical", "chkSubFolder", "chkConvert"})
        plm_->Click(box);
    plm_->SetText("txtSubFolder", QStringLiteral("7.9x"));
    plm_->SetText("txtTargetDir", QStringLiteral("/to/here"));
    plm_->SetText("cmbInPattern", QStringLiteral("%title.mp3"));
    plm_->SetText("cmbOutPattern", QStringLiteral("%artist.mp3"));
    plm_->Context.Values.LastDir = u"/last/";
    plm_->Reopen();
    const Settings& values = plm_->Context.Values;
    QCOMPARE(values.Move, 0);
    QCOMPARE(values.FileExists, 1);
    QCOMPARE(values.Genre + values.Alphabetical + values.SubFolder, 3);
    QCOMPARE(values.Convert, 0);
    QCOMPARE(values.txtSubFolder, 7LL);
    QCOMPARE(values.TargetDir, Text(u"/to/here"));
    QCOMPARE(values.LastDir, Text(u"/last/"));
    QCOMPARE(values.InPattern, Text(u"%title.mp3"));
    QCOMPARE(values.OutPattern, Text(u"%artist.mp3"));
    QCOMPARE(plm_->TextOf("txtSubFolder"), QStringLiteral("7"));
}

void FrmPLMNamesTest::TargetFolderIsStoredWhileRenameShowsAnother() {
    plm_->Click("optMethod0");
    plm_->SetText("txtTargetDir", QStringLiteral("/to/here"));
    plm_->Click("optMethod2");
    Drop({u"a.mp3"});
    plm_->ClickLine("lstFiles", 0);
    QCOMPARE(plm_->TextOf("txtTargetDir"), ToQt(plm_->Folder.Path()));
    plm_->Reopen();
    QCOMPARE(plm_->Context.Values.TargetDir, Text(u"/to/here"));
}

void FrmPLMNamesTest::LayoutIsRemembered() {
    plm_->Window().resize(1111, 777);
    plm_->Reopen();
    QCOMPARE(plm_->Window().size(), QSize(1111, 777));
}

void FrmPLMNamesTest::PreviewThatWasNeverShownGetsHalfTheRoom() {
    plm_->Reopen();
    plm_->Click("chkPreview");
    QCoreApplication::processEvents();
    const int files = plm_->Get<QWidget>("lstFiles").width();
    const int preview = plm_->Get<QWidget>("lstPreview").width();
    QVERIFY2(std::abs(files - preview) < 10, qPrintable(QString::number(preview)));
}

void FrmPLMNamesTest::StoreThatCannotBeWrittenIsToldOnce() {
    plm_->Store = SettingsStore(plm_->Folder.File(u"file") + u"/PLM.ini");
    plm_->Window().close();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    plm_->Open();
    plm_->Window().close();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
}

QTEST_MAIN(FrmPLMNamesTest)
#include "frmPLM_names_test.moc"
