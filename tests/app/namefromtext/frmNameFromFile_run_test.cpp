#include <QMenu>
#include <QScrollBar>
#include <ctime>

#include "app/namefromtext/frmNameFromFile.h"
#include "app/shared/qt_elided_label.h"
#include "core/platform/tidy_disk.h"
#include "core/tags/file_tags.h"
#include "core/text/code_page.h"
#include "tests/app/namefromtext/name_from_file_fixture.h"
#include "tests/support/real_mp3.h"
#include "tests/support/tools.h"

using namespace mdlPLM;

class frmNameFromFileRunTest : public NameFromFileTest {
    Q_OBJECT

private slots:
    void init() { Reset(); }
    void cleanup() { form_.reset(); }

    void AddsChosenFilesInTheirOrder();
    void ACancelledDialogAddsNothing();
    void DroppedFilesAreGatheredAsCopies();
    void RemovesTheSelectedEntry();
    void TheDeleteKeyLeavesTheCounterAlone();
    void ClearsEachList();
    void MovesTheSelectedFile();
    void SelectingAFileSelectsItsName();
    void BothListsScrollTogether();
    void ListsOfDifferentLengthComeToRest();
    void AResizedListKeepsItsPlace();
    void ADoubleClickEditsTheName();
    void ACancelledEditChangesNothing();

    void NothingHappensWithoutNewNames();
    void AsksWhenTheListsDiffer();
    void RenamesPairByPairAndClearsTheWindow();
    void KeepsTheWindowAfterCancel();
    void TheStopFlagEndsTheRunWithoutTheClosingSteps();
    void TheStopFlagCountsBehindTheLastPairToo();
    void WhatAKilledRunHasLeftBehindIsToldWithTheResult();
    void FailedFilesAreListedOnRequest();
    void AFolderAndANameOfNothingAreToldAndTheRunGoesOn();
    void UsesTheMainWindowsChoices();
    void TheControlsRestWhileTheRunIsUnderWay();
    void TheFocusReturnsAfterTheRun();
    void ALongStatusTextIsCutShortWithDots();
    void ClosingTheWindowStopsTheRun();
    void TheMenuClosesTheWindow();

    void FromTheOpenedTextToTaggedFiles();

private:
    void ShowNames(const QString& text) {
        Get<QComboBox>("cmbInPattern")->setEditText("%title.mp3");
        Get<QComboBox>("cmbOutPattern")->setEditText("%title.mp3");
        Box()->setPlainText(text);
        Press("cmdScan");
    }
    Text AddFile(TextView name) {
        const Text path = world_->Folder.File(name, ToUtf8(name));
        AddFiles({path});
        return path;
    }
    /// Presses "Rename Files" and waits for the run's end.
    void Run() {
        Press("cmdRenameFiles");
        QTRY_VERIFY(!world_->Host.Progress.Open);
    }
    [[nodiscard]] QStringList Files() const {
        QStringList files;
        for (const Bytes& name : ListTree(world_->Folder.Path()))
            if (name.find(".mp3") != Bytes::npos) files << QString::fromStdString(name);
        return files;
    }
};

void frmNameFromFileRunTest::AddsChosenFilesInTheirOrder() {
    Open();
    AddFiles({u"/m/b.mp3", u"/m/a.mp3"});
    AddFiles({u"/n/c.mp3"});
    QCOMPARE(Rows(OldList()),
             QStringList({"b.mp3     (/m/)", "a.mp3     (/m/)", "c.mp3     (/n/)"}));
    QCOMPARE(Label("lblNrOldFiles"), "3 files");
    const FileDialogRequest& asked = world_->Dialogs.Requests.front();
    QCOMPARE(asked.Filter, Text(u"MP3 Files (*.mp3;*.mp2)|*.mp3;*.mp2|All Files (*.*)|*.*"));
    QVERIFY(asked.Multiple);
}

void frmNameFromFileRunTest::ACancelledDialogAddsNothing() {
    Open();
    Get<QAction>("mnuAddMP3")->trigger();
    QCOMPARE(world_->Dialogs.Requests.size(), std::size_t(1));
    QCOMPARE(Label("lblNrOldFiles"), "0 files");
}

void frmNameFromFileRunTest::DroppedFilesAreGatheredAsCopies() {
    Open();
    QCOMPARE(DropOn(*OldList()->viewport(), {u"/m/a.mp3", u"/m/b.mp3"}), Qt::CopyAction);
    QTRY_COMPARE(Label("lblNrOldFiles"), "2 files");
    QCOMPARE(Rows(OldList()), QStringList({"a.mp3     (/m/)", "b.mp3     (/m/)"}));
}

void frmNameFromFileRunTest::RemovesTheSelectedEntry() {
    Open();
    AddFiles({u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"});
    ShowNames("1\n2\n3");
    Press("cmdRemoveFile");
    QCOMPARE(OldList()->model()->rowCount(), 3);
    OldList()->SelectRow(1);
    Press("cmdRemoveFile");
    QCOMPARE(Rows(OldList()), QStringList({"a.mp3     (/m/)", "c.mp3     (/m/)"}));
    QCOMPARE(Label("lblNrOldFiles"), "2 files");
    NewList()->SelectRow(0);
    Press("cmdRemoveNew");
    QCOMPARE(Rows(NewList()), QStringList({"2.mp3", "3.mp3"}));
    QCOMPARE(Label("lblNrNewFiles"), "2 files");
}

void frmNameFromFileRunTest::TheDeleteKeyLeavesTheCounterAlone() {
    Open();
    AddFiles({u"/m/a.mp3", u"/m/b.mp3"});
    ShowNames("1\n2");
    OldList()->SelectRow(0);
    QTest::keyClick(OldList(), Qt::Key_Delete);
    QCOMPARE(Rows(OldList()), QStringList({"b.mp3     (/m/)"}));
    QCOMPARE(Label("lblNrOldFiles"), "2 files");
    NewList()->SelectRow(1);
    QTest::keyClick(NewList(), Qt::Key_Delete);
    QCOMPARE(Rows(NewList()), QStringList({"1.mp3"}));
    QCOMPARE(Label("lblNrNewFiles"), "2 files");
    AddFiles({u"/m/c.mp3"});
    QCOMPARE(Label("lblNrOldFiles"), "2 files");
    Press("cmdScan");
    QCOMPARE(Label("lblNrNewFiles"), "3 files");
}

void frmNameFromFileRunTest::ClearsEachList() {
    Open();
    AddFiles({u"/m/a.mp3"});
    ShowNames("1");
    Press("cmdClearOld");
    QCOMPARE(OldList()->model()->rowCount(), 0);
    QCOMPARE(NewList()->model()->rowCount(), 1);
    QCOMPARE(Label("lblNrOldFiles"), "0 files");
    Press("cmdClearNew");
    QCOMPARE(NewList()->model()->rowCount(), 0);
    QCOMPARE(Label("lblNrNewFiles"), "0 files");
}

void frmNameFromFileRunTest::MovesTheSelectedFile() {
    Open();
    AddFiles({u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"});
    Press("cmdMoveUp");
    OldList()->SelectRow(2);
    Press("cmdMoveUp");
    QCOMPARE(OldList()->SelectedRow(), 1);
    Press("cmdMoveUp");
    Press("cmdMoveUp");
    QCOMPARE(OldList()->SelectedRow(), 0);
    QCOMPARE(Rows(OldList()),
             QStringList({"c.mp3     (/m/)", "a.mp3     (/m/)", "b.mp3     (/m/)"}));
    Press("cmdMoveDn");
    QCOMPARE(OldList()->SelectedRow(), 1);
    Press("cmdMoveDn");
    Press("cmdMoveDn");
    QCOMPARE(OldList()->SelectedRow(), 2);
    QCOMPARE(Rows(OldList()),
             QStringList({"a.mp3     (/m/)", "b.mp3     (/m/)", "c.mp3     (/m/)"}));
}

void frmNameFromFileRunTest::SelectingAFileSelectsItsName() {
    Open();
    AddFiles({u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"});
    ShowNames("1\n2");
    const QPoint second = OldList()->visualRect(OldList()->model()->index(1, 0)).center();
    QTest::mouseClick(OldList()->viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(NewList()->SelectedRow(), 1);
    QTest::keyClick(OldList(), Qt::Key_Down);
    QCOMPARE(OldList()->SelectedRow(), 2);
    QCOMPARE(NewList()->SelectedRow(), 1);
    NewList()->SelectRow(0);
    QCOMPARE(OldList()->SelectedRow(), 2);
    OldList()->SelectRow(1);
    NewList()->SelectRow(0);
    QTest::mouseClick(OldList()->viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(NewList()->SelectedRow(), 1);
}

void frmNameFromFileRunTest::BothListsScrollTogether() {
    Open();
    std::vector<Text> paths;
    QString text;
    for (int i = 0; i < 200; ++i) {
        paths.push_back(u"/m/" + NumberText(static_cast<long long>(i)) + u".mp3");
        if (i < 20) text += QString("%1\n").arg(i);
    }
    AddFiles(paths);
    ShowNames(text);
    QTRY_VERIFY(OldList()->verticalScrollBar()->maximum() > 0);
    OldList()->SelectRow(150);
    QTRY_VERIFY(OldList()->verticalScrollBar()->value() > 0);
    QCOMPARE(NewList()->verticalScrollBar()->value(), OldList()->verticalScrollBar()->value());
    NewList()->verticalScrollBar()->setValue(40);
    QCOMPARE(OldList()->verticalScrollBar()->value(), 40);
    for (const int row : {5, 12})
        QCOMPARE(OldList()->visualRect(OldList()->model()->index(row, 0)).top(),
                 NewList()->visualRect(NewList()->model()->index(row, 0)).top());
}

void frmNameFromFileRunTest::ListsOfDifferentLengthComeToRest() {
    Open();
    AddFiles(std::vector<Text>(50, u"/m/a.mp3"));
    ShowNames("1\n2");
    QEventLoop loop;
    int turns = 0;
    while (turns < 500 && loop.processEvents(QEventLoop::ExcludeUserInputEvents)) ++turns;
    QVERIFY(turns < 500);
}

void frmNameFromFileRunTest::AResizedListKeepsItsPlace() {
    Open();
    AddFiles(std::vector<Text>(100, u"/m/a.mp3"));
    ShowNames("1\n2");
    QTRY_VERIFY(OldList()->verticalScrollBar()->maximum() > 300);
    OldList()->verticalScrollBar()->setValue(300);
    form_->resize(form_->width() + 40, form_->height() + 10);
    QTest::qWait(20);
    QCOMPARE(OldList()->verticalScrollBar()->value(), 300);
    QCOMPARE(NewList()->verticalScrollBar()->value(), 300);
    Press("cmdClearOld");
    QTRY_COMPARE(OldList()->verticalScrollBar()->value(), 0);
    QTRY_COMPARE(NewList()->verticalScrollBar()->value(), 0);
}

void frmNameFromFileRunTest::ADoubleClickEditsTheName() {
    Open();
    ShowNames("1\n2");
    world_->Host.Edited = u"two.mp3";
    const QPoint second = NewList()->visualRect(NewList()->model()->index(1, 0)).center();
    QTest::mouseClick(NewList()->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(NewList()->viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(world_->Host.Edits, std::vector<Text>{u"2.mp3"});
    QCOMPARE(Rows(NewList()), QStringList({"1.mp3", "two.mp3"}));
    NewList()->SelectRow(0);
    world_->Host.Edited = u"one.mp3";
    QTest::keyClick(NewList(), Qt::Key_F2);
    QCOMPARE(Rows(NewList()), QStringList({"one.mp3", "two.mp3"}));
    world_->Host.Edited = u"first.mp3";
    QTest::keyClick(NewList(), Qt::Key_Return);
    QCOMPARE(Rows(NewList()), QStringList({"first.mp3", "two.mp3"}));
}

void frmNameFromFileRunTest::ACancelledEditChangesNothing() {
    Open();
    ShowNames("1");
    NewList()->SelectRow(0);
    QTest::keyClick(NewList(), Qt::Key_F2);
    QCOMPARE(world_->Host.Edits.size(), std::size_t(1));
    QCOMPARE(Rows(NewList()), QStringList({"1.mp3"}));
}

void frmNameFromFileRunTest::NothingHappensWithoutNewNames() {
    Open();
    AddFile(u"a.mp3");
    Press("cmdRenameFiles");
    QVERIFY(world_->Prompts.Log.empty());
    QCOMPARE(OldList()->model()->rowCount(), 1);
}

void frmNameFromFileRunTest::AsksWhenTheListsDiffer() {
    Open();
    for (const TextView name : {u"a.mp3", u"b.mp3", u"c.mp3"}) AddFile(name);
    ShowNames("1\n2");
    world_->Prompts.Answers = {Answer::No};
    Press("cmdRenameFiles");
    QCOMPARE(Files(), QStringList({"a.mp3", "b.mp3", "c.mp3"}));
    QVERIFY(world_->Host.Progress.Shown.empty());
    world_->Prompts.Answers = {Answer::Yes};
    Run();
    QCOMPARE(Files(), QStringList({"1.mp3", "2.mp3", "c.mp3"}));
}

void frmNameFromFileRunTest::RenamesPairByPairAndClearsTheWindow() {
    Open();
    AddFile(u"a.mp3");
    AddFile(u"sub/b.mp3");
    ShowNames("1\n2");
    const char* const boxes[] = {"txtArtist", "txtAlbum", "txtYear", "txtReleaseDate"};
    const char* const ticks[] = {"chkIgnoreFirst", "chkIgnoreLast",  "chkAlbum4All",
                                 "chkArtist4All",  "chkRelease4All", "chkYear4All"};
    for (const char* box : boxes) Enter(box, "x");
    for (const char* tick : ticks) Tick(tick);
    Tick("chkGenre4All");
    Get<QComboBox>("cmbGenre")->setCurrentIndex(7);
    Run();
    QCOMPARE(Files(), QStringList({"1.mp3", "sub/2.mp3"}));
    QCOMPARE(world_->Host.Progress.Shown,
             (std::vector<Text>{u"a.mp3 > 1.mp3 1/2", u"b.mp3 > 2.mp3 2/2"}));
    QVERIFY(world_->Host.Progress.Done);
    QCOMPARE(OldList()->model()->rowCount(), 0);
    QCOMPARE(NewList()->model()->rowCount(), 0);
    QCOMPARE(Label("lblNrOldFiles"), "0 files");
    QCOMPARE(Label("lblNrNewFiles"), "0 files");
    QCOMPARE(Box()->toPlainText(), "");
    QCOMPARE(Box()->Source().Whole(), Text());
    for (const char* box : boxes) QCOMPARE(Entered(box), "");
    for (const char* tick : ticks) QVERIFY2(!IsTicked(tick), tick);
    QVERIFY(IsTicked("chkGenre4All"));
    QCOMPARE(Get<QComboBox>("cmbGenre")->currentIndex(), 7);
    QCOMPARE(Label("lblWork"), "2 renamed");
    QVERIFY(Get<QPushButton>("cmdRenameFiles")->isEnabled());
}

void frmNameFromFileRunTest::KeepsTheWindowAfterCancel() {
    Open();
    AddFile(u"a.mp3");
    AddFile(u"b.mp3");
    static_cast<void>(world_->Folder.File(u"1.mp3", "other"));
    ShowNames("1\n2");
    Enter("txtArtist", "x");
    world_->Prompts.Answers = {Answer::Cancel};
    Run();
    QVERIFY(world_->Host.Progress.Done);
    QCOMPARE(Label("lblWork"), "Stopped. Nothing renamed");
    QCOMPARE(Files(), QStringList({"1.mp3", "a.mp3", "b.mp3"}));
    QCOMPARE(OldList()->model()->rowCount(), 2);
    QCOMPARE(NewList()->model()->rowCount(), 2);
    QCOMPARE(Entered("txtArtist"), "x");
    QVERIFY(Get<QPushButton>("cmdRenameFiles")->isEnabled());
}

void frmNameFromFileRunTest::TheStopFlagEndsTheRunWithoutTheClosingSteps() {
    Open();
    AddFile(u"a.mp3");
    AddFile(u"b.mp3");
    ShowNames("1\n2");
    world_->Host.Progress.StopAfter = 1;
    Run();
    QCOMPARE(Files(), QStringList({"1.mp3", "b.mp3"}));
    QCOMPARE(OldList()->model()->rowCount(), 2);
    QVERIFY(!world_->Host.Progress.Done);
    QCOMPARE(Label("lblWork"), "Stopped. 1 renamed");
}

void frmNameFromFileRunTest::TheStopFlagCountsBehindTheLastPairToo() {
    Open();
    AddFile(u"a.mp3");
    ShowNames("1");
    world_->Host.Progress.StopAfter = 1;
    Run();
    QCOMPARE(Files(), QStringList({"1.mp3"}));
    QCOMPARE(OldList()->model()->rowCount(), 1);
}

void frmNameFromFileRunTest::WhatAKilledRunHasLeftBehindIsToldWithTheResult() {
    LeftOvers later([] { return std::int64_t{std::time(nullptr)} + 7200; });
    TidyDisk disk(later);
    AppContext context{{},
                       {},
                       world_->Store,
                       disk,
                       world_->Prompts,
                       world_->Dialogs,
                       world_->Folder.Path(),
                       world_->Folder.Path(),
                       false,
                       &later};
    form_ = std::make_unique<frmNameFromFile>(context, world_->Host);
    form_->show();
    const Text left = world_->Folder.File(u"plm-0123456789abcdef.tmp", "half a song");
    AddFile(u"a.mp3");
    ShowNames("1");
    Run();
    QVERIFY(!IsThere(left));
    QCOMPARE(Label("lblWork"),
             "1 renamed (left behind by a run that was ended, and removed: " + ToQt(left) + u')');
    form_.reset();
}

void frmNameFromFileRunTest::FailedFilesAreListedOnRequest() {
    Open();
    const Text path = AddFile(u"a.mp3");
    ShowNames("1");
    static_cast<void>(world_->Folder.File(u"1.mp3/in the way", ""));
    world_->Prompts.Answers = {Answer::Yes};
    Run();
    QCOMPARE(Label("lblWork"), "1 failed");
    QVERIFY(Get<QPushButton>("cmdDetails")->isVisible());
    Press("cmdDetails");
    const Asked& last = world_->Prompts.Log.back();
    QVERIFY(last.Kind == PromptKind::Inform);
    QVERIFY(last.What.Body.find(path) == 0);
}

void frmNameFromFileRunTest::AFolderAndANameOfNothingAreToldAndTheRunGoesOn() {
    Open();
    ShowNames("One\nTwo\nThree\n");
    (void)world_->Folder.File(u"album/inside.mp3", "sound");
    AddFiles({world_->Folder / u"album"});
    AddFile(u"b.mp3");
    AddFile(u"c.mp3");
    world_->Host.Edited = u".mp3";
    NewList()->SelectRow(1);
    QTest::keyClick(NewList(), Qt::Key_F2);
    Run();
    QCOMPARE(Files(), QStringList({"Three.mp3", "album/inside.mp3", "b.mp3"}));
    QCOMPARE(world_->Prompts.Bodies(), (std::vector<Text>{u"Error: 75\r\nPath/File access error",
                                                          u"no name is left (\".mp3\")"}));
}

void frmNameFromFileRunTest::UsesTheMainWindowsChoices() {
    world_->Host.Exists = IfExists::Replace;
    world_->Host.Fix = true;
    world_->Context.Values.bSetAttributes = true;
    world_->Context.Values.bReadOnly = true;
    Open();
    AddFile(u"a.mp3");
    static_cast<void>(world_->Folder.File(u"One.mp3", "other"));
    ShowNames("one");
    Run();
    QCOMPARE(Files(), QStringList({"One.mp3"}));
    QCOMPARE(ReadFile(world_->Folder / u"One.mp3"), Bytes("a.mp3"));
    QCOMPARE(GetAttributes(world_->Folder / u"One.mp3") & ReadOnly, static_cast<int>(ReadOnly));
}

void frmNameFromFileRunTest::TheControlsRestWhileTheRunIsUnderWay() {
    Open();
    AddFile(u"a.mp3");
    ShowNames("1");
    Press("cmdRenameFiles");
    QVERIFY(world_->Host.Progress.Open);
    QCOMPARE(world_->Host.Progress.Shown, std::vector<Text>{u"a.mp3 > 1.mp3 1/1"});
    for (const char* control : {"cmdScan", "cmdAddFiles", "cmdRenameFiles", "lstOldFileNames"})
        QVERIFY2(!Get<QWidget>(control)->isEnabled(), control);
    QVERIFY(!Get<QAction>("mnuOpenSource")->isEnabled());
    QTRY_VERIFY(!world_->Host.Progress.Open);
    QVERIFY(Get<QWidget>("cmdScan")->isEnabled());
}

void frmNameFromFileRunTest::TheFocusReturnsAfterTheRun() {
    Open();
    AddFile(u"a.mp3");
    ShowNames("1");
    Get<QWidget>("cmdRenameFiles")->setFocus();
    Run();
    QCOMPARE(form_->focusWidget(), Get<QWidget>("cmdRenameFiles"));
}

void frmNameFromFileRunTest::ALongStatusTextIsCutShortWithDots() {
    Open();
    Get<ElidedLabel>("lblWork")->setText(QString(2000, u'x'));
    QVERIFY(Get<ElidedLabel>("lblWork")->SeenText().endsWith(QChar(0x2026)));
}

void frmNameFromFileRunTest::ClosingTheWindowStopsTheRun() {
    Open();
    AddFile(u"a.mp3");
    ShowNames("1");
    Press("cmdRenameFiles");
    QVERIFY(form_->close());
    QVERIFY(!world_->Host.Progress.Open);
    QTest::qWait(20);
    QCOMPARE(Files(), QStringList({"a.mp3"}));
}

void frmNameFromFileRunTest::TheMenuClosesTheWindow() {
    Open();
    Get<QAction>("mnuClose")->trigger();
    QVERIFY(!form_->isVisible());
    Open();
    Press("cmdClose");
    QVERIFY(!form_->isVisible());
}

void frmNameFromFileRunTest::FromTheOpenedTextToTaggedFiles() {
    world_->Host.In = u"%track. %title.mp3";
    world_->Host.Out = u"%track - %artist - %title.mp3";
    world_->Host.Fix = true;
    Open();
    OpenText(
        "Artist: The Paper Kites\r\nAlbum: Weather Permitting\r\nYear: 1997\r\n"
        "Release date: 1997-08-04\r\n\r\n1. first_gust\r\n2. KITE STRING\r\n");
    std::vector<Text> files;
    for (const TextView name : {u"track b.mp3", u"track a.mp3"})
        files.push_back(world_->Folder.File(name, EncodedMp3()));
    AddFiles(files);
    OldList()->SelectRow(1);
    Press("cmdMoveUp");
    SelectLines(5, 6);
    Press("cmdScan");
    QCOMPARE(Rows(NewList()), QStringList({"01 - The Paper Kites - First Gust.mp3",
                                           "02 - The Paper Kites - Kite String.mp3"}));
    Tick("chkArtist4All");
    Tick("chkAlbum4All");
    Tick("chkYear4All");
    Tick("chkGenre4All");
    Tick("chkRelease4All");
    Get<QComboBox>("cmbGenre")->setCurrentText("Folk");
    Tick("chkSaveID3v1");
    Tick("chkSaveID3v2");
    Run();
    QVERIFY(world_->Prompts.Log.empty());
    QCOMPARE(Files(), QStringList({"01 - The Paper Kites - First Gust.mp3",
                                   "02 - The Paper Kites - Kite String.mp3"}));

    const Text renamed = world_->Folder / u"02 - The Paper Kites - Kite String.mp3";
    const QString probed = QString::fromStdString(
        test::OutputOf({"ffprobe", "-v", "error", "-show_entries", "format_tags", "-of",
                        "default=noprint_wrappers=1:nokey=0", ToUtf8(renamed)}));
    for (const char* line :
         {"TAG:title=Kite String", "TAG:artist=The Paper Kites", "TAG:album=Weather Permitting",
          "TAG:track=2", "TAG:genre=Folk", "TAG:date=1997"})
        QVERIFY2(probed.contains(line), qPrintable(probed));
    const QString listed = QString::fromStdString(test::OutputOf({"id3v2", "-l", ToUtf8(renamed)}));
    QVERIFY2(listed.contains("1997-08-04"), qPrintable(listed));
    QCOMPARE(test::DecodedSamples(renamed),
             test::DecodedSamples(world_->Folder.File(u"plain.mp3", EncodedMp3())));
}

QTEST_MAIN(frmNameFromFileRunTest)
#include "frmNameFromFile_run_test.moc"
