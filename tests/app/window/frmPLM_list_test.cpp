// How files come into the list of the main window and go from it.
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QProgressBar>
#include <QScrollBar>
#include <QToolButton>

#include "core/names/list_entry.h"
#include "core/platform/path.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/recording_disk.h"

using namespace mdlPLM;

namespace {

const Bytes V1Trailer = "TAG" + Bytes(125, '\0');
const Bytes V2Header = "ID3" + Bytes(7, '\0') + Bytes(200, 'x');

QString Entry(const Text& path) { return ToQt(MakeListEntry(path)); }

}  // namespace

class FrmPLMListTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { plm_.reset(); }

    void EmptyListSaysThatFilesCanBeDropped();
    void AddsFilesFromTheDialog();
    void AddFilesDialogOffersThreeFiltersAndStartsInLastFolder();
    void AddsFolderFromTheMenu();
    void CancelledDialogChangesNothing();
    void PlaylistsFilterHandsFilesToTheLoader();
    void OtherFileUnderPlaylistsFilterGivesTheMessage();
    void DropOfFolderTakesItsTree_data();
    void DropOfFolderTakesItsTree();
    void DropOfSingleFileTakesAnyExtension();
    void DropOfListFileReadsIt();
    void DropWithoutFilesIsRefused();
    void NameThatIsNoTextIsListedAndFound();
    void CounterFollowsTheList();
    void CounterDropsFilesThatHaveGone();
    void DeleteKeyRemovesSelectedEntries_data();
    void DeleteKeyRemovesSelectedEntries();
    void DeleteKeyInTextBoxLeavesTheList();
    void RemovingBlanksTheShownFile();
    void ShiftDeleteAsksBeforeDeletingFromDisk();
    void ShiftDeleteDeletesAfterYes();
    void FileThatCannotBeDeletedStays();
    void DeletingWithNothingSelectedAsksNothing();
    void ClearEmptiesEverything();
    void SelectAllAndNone();
    void SelectAllKeyTakesTheList();
    void InvertSelection();
    void SelectsFilesByTag();
    void RemovesMissingFiles();
    void BothListsHaveOneSelection();
    void ArrowKeysKeepBothListsInStep();
    void BothListsScrollTogether();
    void RightButtonShowsPopupMenu_data();
    void RightButtonShowsPopupMenu();
    void SavesSortingListAndLoadsItBack();
    void SavesPlaylistByChosenFilterNotExtension();
    void ListThatCannotBeSavedIsReported();
    void NameWithALineBreakIsNotSavedAndTold();
    void NameWithALineBreakIsNotLoadedAndTold();
    void FolderThatIsTooDeepIsTold();
    void LoadReplacesTheList();
    void FileThatIsRefusedLeavesTheList();
    void LoadDialogOffersThreeFilters();
    void TheWindowAnswersWhileALargeListIsRead();
    void LongWorkCanBeStoppedAndLocksTheList();
    void ClosingStopsLongWorkFirst();
    void ManyScatteredRowsStayQuick();

private:
    /// Plain files of these names, dropped one by one.
    std::vector<Text> DropFiles(const std::vector<Text>& names) {
        std::vector<Text> paths;
        for (const Text& name : names) paths.push_back(plm_->Folder.File(name, Bytes(200, 'x')));
        plm_->Drop("lstFiles", paths);
        return paths;
    }
    [[nodiscard]] QStringList Names() const {
        QStringList names;
        for (const QString& line : plm_->Lines("lstFiles"))
            names << ToQt(GetListEntryFileName(FromQt(line)));
        return names;
    }
    /// Folders "m/0", "m/1" and so on with a file in each.
    void MakeFolders(int count) {
        for (int i = 0; i < count; ++i)
            static_cast<void>(
                plm_->Folder.File(u"m/" + FromQt(QString::number(i)) + u"/a - b.mp3"));
    }
    void Select(const QList<int>& rows) {
        plm_->Trigger("mnuSelectNone");
        for (const int row : rows) plm_->ClickLine("lstFiles", row, Qt::ControlModifier);
        QCOMPARE(plm_->SelectedRows(), rows);
    }

    std::unique_ptr<MainWindow> plm_;
};

void FrmPLMListTest::init() {
    plm_ = std::make_unique<MainWindow>();
    plm_->Open();
}

void FrmPLMListTest::EmptyListSaysThatFilesCanBeDropped() {
    auto& list = plm_->Get<QListView>("lstFiles");
    QVERIFY(list.accessibleDescription().contains(QLatin1String("folders")));
    const QImage empty = list.viewport()->grab().toImage();
    DropFiles({u"a.mp3"});
    plm_->Trigger("mnuRemFromList");
    const QImage filled = list.viewport()->grab().toImage();
    QVERIFY(empty != filled);
    plm_->Click("cmdClear");
    QCOMPARE(list.viewport()->grab().toImage(), empty);
}

void FrmPLMListTest::AddsFilesFromTheDialog() {
    const Text a = plm_->Folder.File(u"m/a.mp3");
    const Text b = plm_->Folder.File(u"m/b.mp2");
    plm_->Dialogs.Results = {{{a, b}, 1}};
    plm_->Click("cmdAddFiles");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstFiles"), (QStringList{Entry(a), Entry(b)}));
    QCOMPARE(plm_->Context.Values.LastDir, plm_->Folder / u"m/");
    QCOMPARE(plm_->TextOf("lblFiles"), QStringLiteral("2 files (0 Mb)"));
}

void FrmPLMListTest::AddFilesDialogOffersThreeFiltersAndStartsInLastFolder() {
    plm_->Context.Values.LastDir = u"/some/where/";
    plm_->Dialogs.Results = {{}};
    plm_->Trigger("mnuAddFiles");
    const FileDialogRequest& asked = plm_->Dialogs.Requests.at(0);
    QCOMPARE(asked.InitialFolder, Text(u"/some/where/"));
    QVERIFY(asked.Multiple);
    QCOMPARE(ToQt(asked.Filter),
             QStringLiteral("MP3 Files (*.mp3;*.mp2)|*.mp3;*.mp2|Playlists "
                            "(*.srt;*.m3u;*.pls)|*.srt;*.m3u;*.pls|All Files (*.*)|*.*"));
}

void FrmPLMListTest::AddsFolderFromTheMenu() {
    static_cast<void>(plm_->Folder.File(u"m/sub/b.mp3"));
    static_cast<void>(plm_->Folder.File(u"m/a.MP3"));
    static_cast<void>(plm_->Folder.File(u"m/c.ogg"));
    plm_->Context.Values.LastDir = u"/some/where/";
    plm_->Dialogs.Folders = {u"", plm_->Folder / u"m"};
    plm_->Trigger("mnuAddFolder");
    QCOMPARE(plm_->Context.Values.LastDir, Text(u"/some/where/"));
    plm_->Trigger("mnuAddFolder");
    plm_->Settle();
    QCOMPARE(plm_->Dialogs.Requests.at(1).InitialFolder, Text(u"/some/where/"));
    QCOMPARE(Names(), (QStringList{QStringLiteral("a.MP3"), QStringLiteral("b.mp3")}));
    QCOMPARE(plm_->Context.Values.LastDir, plm_->Folder / u"m/");
}

void FrmPLMListTest::CancelledDialogChangesNothing() {
    DropFiles({u"a.mp3"});
    const Text before = plm_->Context.Values.LastDir;
    plm_->Dialogs.Results = {{}, {}, {}};
    plm_->Click("cmdAddFiles");
    plm_->Click("cmdLoad");
    plm_->Click("cmdSave");
    QCOMPARE(plm_->Context.Values.LastDir, before);
    QCOMPARE(Names(), QStringList{QStringLiteral("a.mp3")});
}

void FrmPLMListTest::PlaylistsFilterHandsFilesToTheLoader() {
    const Text list = plm_->Folder.File(u"l.m3u", "one.mp3\r\n#two.mp3\r\nthree.mp3\r\n");
    plm_->Dialogs.Results = {{{list}, 2}};
    plm_->Click("cmdAddFiles");
    plm_->Settle();
    QCOMPARE(Names(), (QStringList{QStringLiteral("one.mp3"), QStringLiteral("three.mp3")}));
}

void FrmPLMListTest::OtherFileUnderPlaylistsFilterGivesTheMessage() {
    plm_->Dialogs.Results = {{{plm_->Folder.File(u"l.m3u8", "one.mp3\r\n")}, 2}};
    plm_->Click("cmdAddFiles");
    plm_->Settle();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(ToQt(plm_->Ask.Log[0].What.Body),
             QStringLiteral("Only .srt, .m3u and .pls files are supported.\r\n"
                            "That was not a compatible playlist!"));
    QCOMPARE(plm_->Lines("lstFiles"), QStringList());
}

void FrmPLMListTest::DropOfFolderTakesItsTree_data() {
    QTest::addColumn<QByteArray>("list");
    QTest::newRow("onto the files") << QByteArray("lstFiles");
    QTest::newRow("onto the new names") << QByteArray("lstPreview");
}

void FrmPLMListTest::DropOfFolderTakesItsTree() {
    QFETCH(QByteArray, list);
    const TempFolder& folder = plm_->Folder;
    static_cast<void>(folder.File(u"m/sub/c.mp3"));
    static_cast<void>(folder.File(u"m/a.mp3"));
    static_cast<void>(folder.File(u"m/B.Mp3"));
    static_cast<void>(folder.File(u"m/d.ogg"));
    plm_->Click("chkPreview");
    plm_->Drop(list.constData(), {folder / u"m"});
    QCOMPARE(plm_->Lines("lstFiles"),
             (QStringList{Entry(folder / u"m/a.mp3"), Entry(folder / u"m/B.Mp3"),
                          Entry(folder / u"m/sub/c.mp3")}));
    QCOMPARE(plm_->TextOf("lblFiles"), QStringLiteral("3 files (0 Mb)"));
}

void FrmPLMListTest::DropOfSingleFileTakesAnyExtension() {
    DropFiles({u"a.txt", u"b.mp3", u"noextension"});
    QCOMPARE(Names(), (QStringList{QStringLiteral("a.txt"), QStringLiteral("b.mp3"),
                                   QStringLiteral("noextension")}));
}

void FrmPLMListTest::DropOfListFileReadsIt() {
    const Text list = plm_->Folder.File(
        u"l.PLS", "[playlist]\r\nFile1=x.mp3\r\nTitle1=Song\r\nNumberOfEntries=1\r\n");
    plm_->Drop("lstPreview", {list});
    QCOMPARE(plm_->Lines("lstFiles"), QStringList{Entry(plm_->Folder / u"x.mp3")});
}

void FrmPLMListTest::DropWithoutFilesIsRefused() {
    plm_->DropList("lstFiles", "http://example.org/a.mp3\r\n");
    QCOMPARE(plm_->Lines("lstFiles"), QStringList());
}

void FrmPLMListTest::NameThatIsNoTextIsListedAndFound() {
    const Text path = plm_->Folder.File(PathFromNative("caf\xE9.mp3"), Bytes(1 << 20, 'x'));
    plm_->Drop("lstFiles", {path});
    QCOMPARE(plm_->Lines("lstFiles"), QStringList{Entry(path)});
    QCOMPARE(plm_->TextOf("lblFiles"), QStringLiteral("1 files (1 Mb)"));
}

void FrmPLMListTest::CounterFollowsTheList() {
    QCOMPARE(plm_->TextOf("lblFiles"), QStringLiteral("0 files (0 Mb)"));
    plm_->Drop("lstFiles", {plm_->Folder.File(u"a.mp3", Bytes(1 << 20, 'x')),
                            plm_->Folder.File(u"b.mp3", Bytes(300000, 'x'))});
    QCOMPARE(plm_->TextOf("lblFiles"), QStringLiteral("2 files (1.29 Mb)"));
    Select({0});
    plm_->Trigger("mnuRemFromList");
    QCOMPARE(plm_->TextOf("lblFiles"), QStringLiteral("1 files (0.29 Mb)"));
}

void FrmPLMListTest::CounterDropsFilesThatHaveGone() {
    const Text gone = plm_->Folder.File(u"a.mp3", Bytes(1 << 20, 'x'));
    plm_->Drop("lstFiles", {gone});
    QVERIFY(plm_->Disk.DeleteFile(gone).Ok());
    plm_->Drop("lstFiles", {plm_->Folder.File(u"b.mp3", Bytes(1 << 19, 'x'))});
    QCOMPARE(plm_->TextOf("lblFiles"), QStringLiteral("2 files (0.5 Mb)"));
}

void FrmPLMListTest::DeleteKeyRemovesSelectedEntries_data() { DropOfFolderTakesItsTree_data(); }

void FrmPLMListTest::DeleteKeyRemovesSelectedEntries() {
    QFETCH(QByteArray, list);
    plm_->Click("chkPreview");
    const std::vector<Text> paths = DropFiles({u"a.mp3", u"b.mp3", u"c.mp3", u"d.mp3"});
    Select({0, 1, 3});
    plm_->Key(list.constData(), Qt::Key_Delete);
    QCOMPARE(Names(), QStringList{QStringLiteral("c.mp3")});
    QCOMPARE(plm_->Lines("lstPreview").size(), 1);
    for (const Text& path : paths) QVERIFY(IsThere(path));
}

void FrmPLMListTest::DeleteKeyInTextBoxLeavesTheList() {
    DropFiles({u"a.mp3"});
    Select({0});
    plm_->Key("txtNewName", Qt::Key_Delete);
    plm_->Key("txtNewName", Qt::Key_Delete, Qt::ShiftModifier);
    QCOMPARE(Names(), QStringList{QStringLiteral("a.mp3")});
}

void FrmPLMListTest::RemovingBlanksTheShownFile() {
    DropFiles({u"a.mp3", u"b.mp3"});
    Select({0});
    QCOMPARE(plm_->TextOf("txtOldName"), QStringLiteral("a.mp3"));
    plm_->Key("lstFiles", Qt::Key_Delete);
    QCOMPARE(plm_->TextOf("txtOldName"), QString());
    QCOMPARE(plm_->TextOf("txtNewName"), QString());
}

void FrmPLMListTest::ShiftDeleteAsksBeforeDeletingFromDisk() {
    const std::vector<Text> paths = DropFiles({u"a.mp3", u"b.mp3"});
    Select({0});
    plm_->Ask.Answers = {Answer::No};
    plm_->Key("lstFiles", Qt::Key_Delete, Qt::ShiftModifier);
    plm_->Settle();
    const Asked& asked = plm_->Ask.Log.at(0);
    QCOMPARE(asked.Kind, PromptKind::YesNo);
    QCOMPARE(ToQt(asked.What.Title), QStringLiteral("Pellmore"));
    QCOMPARE(ToQt(asked.What.Body),
             QStringLiteral(
                 "Are you sure you want to delete the selected file(s) from your harddrive?"));
    QCOMPARE(asked.What.Detail, paths[0]);
    QCOMPARE(Names().size(), 2);
    QVERIFY(IsThere(paths[0]));
}

void FrmPLMListTest::ShiftDeleteDeletesAfterYes() {
    const std::vector<Text> paths = DropFiles({u"a.mp3", u"b.mp3", u"c.mp3"});
    Select({0, 2});
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Key("lstFiles", Qt::Key_Delete, Qt::ShiftModifier);
    plm_->Settle();
    QCOMPARE(Names(), QStringList{QStringLiteral("b.mp3")});
    QVERIFY(!IsThere(paths[0]));
    QVERIFY(IsThere(paths[1]));
    QVERIFY(!IsThere(paths[2]));
}

void FrmPLMListTest::FileThatCannotBeDeletedStays() {
    const std::vector<Text> paths = DropFiles({u"a.mp3", u"b.mp3"});
    plm_->Trigger("mnuSelectAll");
    plm_->Disk.FailCall(DiskOperation::DeleteFile, ErrorNumber::PermissionDenied);
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Trigger("mnuRemFromHD");
    plm_->Settle();
    QCOMPARE(Names(), QStringList{QStringLiteral("a.mp3")});
    QVERIFY(IsThere(paths[0]));
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});  // the question, and no message
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("1 file deleted, 1 could not be deleted."));
}

void FrmPLMListTest::DeletingWithNothingSelectedAsksNothing() {
    DropFiles({u"a.mp3"});
    plm_->Trigger("mnuRemFromHD");
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("No file is selected."));
}

void FrmPLMListTest::ClearEmptiesEverything() {
    plm_->Click("chkPreview");
    DropFiles({u"a.mp3", u"b.mp3"});
    Select({1});
    plm_->Click("cmdClear");
    QCOMPARE(plm_->Lines("lstFiles"), QStringList());
    QCOMPARE(plm_->Lines("lstPreview"), QStringList());
    QCOMPARE(plm_->TextOf("lblFiles"), QStringLiteral("0 files (0 Mb)"));
    QCOMPARE(plm_->TextOf("txtOldName"), QString());
}

void FrmPLMListTest::SelectAllAndNone() {
    DropFiles({u"a.mp3", u"b.mp3", u"c.mp3"});
    plm_->Click("cmdSelectAll");
    QCOMPARE(plm_->SelectedRows(), (QList<int>{0, 1, 2}));
    plm_->Click("cmdSelectNone");
    QCOMPARE(plm_->SelectedRows(), QList<int>());
    Select({1});
    QCOMPARE(plm_->TextOf("txtOldName"), QStringLiteral("b.mp3"));
    plm_->Click("cmdSelectNone");
    QCOMPARE(plm_->TextOf("txtOldName"), QString());
}

void FrmPLMListTest::SelectAllKeyTakesTheList() {
    DropFiles({u"a.mp3", u"b.mp3"});
    plm_->Key("lstPreview", Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(plm_->SelectedRows(), (QList<int>{0, 1}));
    Select({0});
    plm_->Key("txtNewName", Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(plm_->SelectedRows(), QList<int>{0});
    QCOMPARE(plm_->Get<QLineEdit>("txtNewName").selectedText(), plm_->TextOf("txtNewName"));
}

void FrmPLMListTest::InvertSelection() {
    DropFiles({u"a.mp3", u"b.mp3", u"c.mp3"});
    Select({1});
    plm_->Trigger("mnuSelInvert");
    QCOMPARE(plm_->SelectedRows(), (QList<int>{0, 2}));
    plm_->Trigger("mnuSelInvert");
    QCOMPARE(plm_->SelectedRows(), QList<int>{1});
    QCOMPARE(plm_->TextOf("txtOldName"), QStringLiteral("b.mp3"));
}

void FrmPLMListTest::SelectsFilesByTag() {
    const TempFolder& folder = plm_->Folder;
    const Text missing = folder.File(u"missing.mp3");
    plm_->Drop("lstFiles", {folder.File(u"plain.mp3", Bytes(300, 'x')), missing,
                            folder.File(u"one.mp3", Bytes(300, 'x') + V1Trailer),
                            folder.File(u"two.mp3", V2Header)});
    QVERIFY(plm_->Disk.DeleteFile(missing).Ok());
    Select({0});
    plm_->Trigger("mnuSelV1Files");
    plm_->Settle();
    QCOMPARE(Names(), (QStringList{QStringLiteral("plain.mp3"), QStringLiteral("one.mp3"),
                                   QStringLiteral("two.mp3")}));
    QCOMPARE(plm_->SelectedRows(), QList<int>{1});
    plm_->Trigger("mnuSelV2Files");
    plm_->Settle();
    QCOMPARE(plm_->SelectedRows(), QList<int>{2});
}

void FrmPLMListTest::RemovesMissingFiles() {
    const std::vector<Text> paths = DropFiles({u"a.mp3", u"b.mp3", u"c.mp3"});
    QVERIFY(plm_->Disk.DeleteFile(paths[1]).Ok());
    plm_->Trigger("mnuNonExistent");
    plm_->Settle();
    QCOMPARE(Names(), (QStringList{QStringLiteral("a.mp3"), QStringLiteral("c.mp3")}));
    QCOMPARE(plm_->TextOf("lblFiles"), QStringLiteral("2 files (0 Mb)"));
}

void FrmPLMListTest::BothListsHaveOneSelection() {
    plm_->Click("chkPreview");
    DropFiles({u"a.mp3", u"b.mp3", u"c.mp3"});
    plm_->ClickLine("lstPreview", 2);
    QCOMPARE(plm_->SelectedRows(), QList<int>{2});
    plm_->ClickLine("lstFiles", 0, Qt::ShiftModifier);
    const auto& preview = plm_->Get<QListView>("lstPreview");
    for (int row = 0; row < 3; ++row)
        QVERIFY(preview.selectionModel()->isSelected(preview.model()->index(row, 1)));
}

void FrmPLMListTest::ArrowKeysKeepBothListsInStep() {
    plm_->Click("chkPreview");
    DropFiles({u"a.mp3", u"b.mp3", u"c.mp3"});
    plm_->ClickLine("lstFiles", 0);
    plm_->Key("lstFiles", Qt::Key_Down);
    QCOMPARE(plm_->SelectedRows(), QList<int>{1});
    const auto& preview = plm_->Get<QListView>("lstPreview");
    QVERIFY(preview.selectionModel()->isSelected(preview.model()->index(1, 1)));
    QCOMPARE(plm_->TextOf("txtOldName"), QStringLiteral("b.mp3"));
    plm_->Key("lstPreview", Qt::Key_Down);
    QCOMPARE(plm_->SelectedRows(), QList<int>{2});
    plm_->Key("lstFiles", Qt::Key_Up);
    QCOMPARE(plm_->SelectedRows(), QList<int>{1});
}

void FrmPLMListTest::BothListsScrollTogether() {
    plm_->Click("chkPreview");
    std::vector<Text> names;
    for (int i = 0; i < 200; ++i) names.push_back(NumberText(static_cast<long long>(i)) + u".mp3");
    DropFiles(names);
    QScrollBar* files = plm_->Get<QListView>("lstFiles").verticalScrollBar();
    QScrollBar* preview = plm_->Get<QListView>("lstPreview").verticalScrollBar();
    QTRY_VERIFY(files->maximum() > 100);
    files->setValue(70);
    QCOMPARE(preview->value(), 70);
    preview->setValue(20);
    QCOMPARE(files->value(), 20);
}

void FrmPLMListTest::RightButtonShowsPopupMenu_data() { DropOfFolderTakesItsTree_data(); }

void FrmPLMListTest::RightButtonShowsPopupMenu() {
    QFETCH(QByteArray, list);
    plm_->Click("chkPreview");
    DropFiles({u"a.mp3"});
    QWidget* viewport = plm_->Get<QListView>(list.constData()).viewport();
    const QPoint place(5, 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, viewport->mapToGlobal(place));
    QApplication::sendEvent(viewport, &event);
    auto& popup = plm_->Get<QMenu>("mnuPopup");
    QVERIFY(popup.isVisible());
    for (const char* entry : {"mnuRemFromList", "mnuRemFromHD", "mnuSelInvert", "mnuSelV1Files",
                              "mnuSelV2Files", "mnuNonExistent"})
        QVERIFY(popup.actions().contains(&plm_->Get<QAction>(entry)));
    popup.close();
}

void FrmPLMListTest::SavesSortingListAndLoadsItBack() {
    DropFiles({u"b.mp3", u"a song     (live).mp3"});
    const QStringList before = plm_->Lines("lstFiles");
    const Text path = plm_->Folder / u"list.srt";
    plm_->Dialogs.Results = {{{path}, 1}, {{path}, 1}};
    plm_->Click("cmdSave");
    QCOMPARE(ToQt(plm_->Dialogs.Requests.at(0).Filter),
             QStringLiteral("Sorting File (*.srt)|*.srt|M3U Playlist(*.m3u)|*.m3u"));
    plm_->Click("cmdClear");
    plm_->Click("cmdLoad");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstFiles"), before);
}

void FrmPLMListTest::SavesPlaylistByChosenFilterNotExtension() {
    const std::vector<Text> paths = DropFiles({u"b.mp3", u"a.mp3"});
    plm_->Dialogs.Results = {{{plm_->Folder / u"list.srt"}, 2}};
    plm_->Click("cmdSave");
    QCOMPARE(ReadFile(plm_->Folder / u"list.srt"),
             NativePath(paths[0]) + "\r\n" + NativePath(paths[1]) + "\r\n");
}

void FrmPLMListTest::ListThatCannotBeSavedIsReported() {
    DropFiles({u"a.mp3"});
    const Text path = plm_->Folder / u"no folder/list.srt";
    plm_->Dialogs.Results = {{{path}, 1}};
    plm_->Click("cmdSave");
    QCOMPARE(plm_->Ask.Log.at(0).Kind, PromptKind::Critical);
    QCOMPARE(plm_->Ask.Log.at(0).What.Detail, path);
    QVERIFY(ToQt(plm_->Ask.Log.at(0).What.Body).startsWith(QLatin1String("Error: 76\r\n")));
}

void FrmPLMListTest::NameWithALineBreakIsNotSavedAndTold() {
    const std::vector<Text> paths = DropFiles({u"a.mp3", u"b\nc.mp3", u"d.mp3"});
    const Text path = plm_->Folder / u"list.m3u";
    plm_->Dialogs.Results = {{{path}, 2}};
    plm_->Click("cmdSave");
    QCOMPARE(ReadFile(path), NativePath(paths[0]) + "\r\n" + NativePath(paths[2]) + "\r\n");
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("2 files saved to ") + ToQt(path));
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(plm_->Ask.Log[0].Kind, PromptKind::Inform);
    QVERIFY(ToQt(plm_->Ask.Log[0].What.Body).contains(QLatin1String("b c.mp3\": a list file")));
}

void FrmPLMListTest::NameWithALineBreakIsNotLoadedAndTold() {
    const Text path = plm_->Folder.File(
        u"list.srt", "a.mp3     (/m/)\r\nb\nc.mp3     (/m/)\r\nd.mp3     (/m/)\r\n");
    plm_->Dialogs.Results = {{{path}, 1}};
    plm_->Click("cmdLoad");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstFiles"),
             (QStringList{QStringLiteral("a.mp3     (/m/)"), QStringLiteral("d.mp3     (/m/)")}));
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(plm_->Ask.Log[0].Kind, PromptKind::Inform);
    QVERIFY(ToQt(plm_->Ask.Log[0].What.Body).startsWith(QLatin1String("These were not taken")));
}

void FrmPLMListTest::FolderThatIsTooDeepIsTold() {
    plm_->Drop("lstFiles", {plm_->Folder.TooDeep(u"deep")});
    QCOMPARE(plm_->Lines("lstFiles").size(), qsizetype{1});
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QVERIFY(ToQt(plm_->Ask.Log[0].What.Body).startsWith(QLatin1String("These were not searched")));
}

void FrmPLMListTest::LoadReplacesTheList() {
    plm_->Click("chkPreview");
    DropFiles({u"a.mp3", u"b.mp3"});
    Select({0});
    const Text list = plm_->Folder.File(u"l.m3u", "c.mp3\n");
    plm_->Dialogs.Results = {{{list}, 2}};
    plm_->Click("cmdLoad");
    plm_->Settle();
    QCOMPARE(Names(), QStringList{QStringLiteral("c.mp3")});
    QCOMPARE(plm_->Lines("lstPreview"), QStringList{QString()});
    QCOMPARE(plm_->TextOf("txtOldName"), QString());
}

void FrmPLMListTest::FileThatIsRefusedLeavesTheList() {
    DropFiles({u"a.mp3", u"b.mp3"});
    plm_->Dialogs.Results = {{{plm_->Folder.File(u"l.m3u8", "c.mp3\n")}, 2}};
    plm_->Click("cmdLoad");
    plm_->Settle();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QVERIFY(ToQt(plm_->Ask.Log[0].What.Body)
                .endsWith(QLatin1String("That was not a compatible playlist!")));
    QCOMPARE(Names(), (QStringList{QStringLiteral("a.mp3"), QStringLiteral("b.mp3")}));
}

void FrmPLMListTest::LoadDialogOffersThreeFilters() {
    plm_->Context.Values.LastDir = u"/some/where/";
    plm_->Dialogs.Results = {{}};
    plm_->Click("cmdLoad");
    const FileDialogRequest& asked = plm_->Dialogs.Requests.at(0);
    QCOMPARE(asked.InitialFolder, Text(u"/some/where/"));
    QVERIFY(!asked.Multiple);
    QCOMPARE(ToQt(asked.Filter),
             QStringLiteral("Sorting File (*.srt)|*.srt|Playlist File (*.m3u)|*.m3u|"
                            "Playlist File (*.pls)|*.pls"));
}

void FrmPLMListTest::TheWindowAnswersWhileALargeListIsRead() {
    const Text list = plm_->Folder.File(u"endless.m3u");
    SetFileLength(list, 64LL << 30);
    plm_->WorkStepByStep();
    plm_->Dialogs.Results = {{{list}, 1}};
    plm_->Click("cmdLoad");
    for (int turn = 0; turn < 20; ++turn) {
        QCoreApplication::processEvents();
        QVERIFY(plm_->Busy());
    }
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("Adding files: 0 found"));
    plm_->SetText("txtNewName", QStringLiteral("typed meanwhile"));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("typed meanwhile"));
    plm_->Get<QAbstractButton>("cmdStop").click();
    plm_->Settle();
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("Stopped. 0 files added."));
}

void FrmPLMListTest::LongWorkCanBeStoppedAndLocksTheList() {
    MakeFolders(40);
    plm_->WorkStepByStep();
    plm_->Click("chkPreview");
    bool sawLocked = false;
    auto& window = plm_->Window();
    auto& stop = plm_->Get<QToolButton>("cmdStop");
    QTimer watcher;
    connect(&watcher, &QTimer::timeout, this, [&] {
        if (!plm_->Busy() || !stop.isVisible()) return;
        sawLocked = true;
        for (const char* control : {"cmdAddFiles", "cmdLoad", "cmdClear", "cmdSort"})
            QVERIFY(!plm_->Get<QWidget>(control).isEnabled());
        QVERIFY(!plm_->Get<QAction>("mnuRemFromList").isEnabled());
        QVERIFY(plm_->Get<QProgressBar>("prgWork").isVisible());
        QVERIFY(window.isEnabled());
        stop.click();
    });
    watcher.start(0);
    plm_->Drop("lstFiles", {plm_->Folder / u"m"});
    QVERIFY(sawLocked);
    QVERIFY(plm_->TextOf("lblStatus").startsWith(QLatin1String("Stopped. ")));
    QVERIFY(Names().size() < 40);
    QVERIFY(!stop.isVisible());
    QVERIFY(plm_->Get<QWidget>("cmdAddFiles").isEnabled());
}

void FrmPLMListTest::ClosingStopsLongWorkFirst() {
    MakeFolders(40);
    plm_->WorkStepByStep();
    plm_->Click("chkPreview");
    plm_->Window().AddPaths({plm_->Folder / u"m"});
    QVERIFY(plm_->Busy());
    plm_->Window().close();
    QTRY_VERIFY(!plm_->Window().isVisible());
    QVERIFY(!plm_->Busy());
    QVERIFY(plm_->Lines("lstFiles").size() < 40);
}

void FrmPLMListTest::ManyScatteredRowsStayQuick() {
    Bytes lines;
    for (int i = 0; i < 20000; ++i) lines += "/nowhere/" + std::to_string(i) + ".mp3\r\n";
    plm_->Drop("lstFiles", {plm_->Folder.File(u"l.m3u", lines)});
    QCOMPARE(plm_->Lines("lstFiles").size(), 20000);
    auto* selection = plm_->Get<QListView>("lstFiles").selectionModel();
    QItemSelection everySecond;
    for (int row = 0; row < 20000; row += 2)
        everySecond.select(selection->model()->index(row, 0), selection->model()->index(row, 1));
    selection->select(everySecond, QItemSelectionModel::ClearAndSelect);
    QElapsedTimer clock;
    clock.start();
    plm_->Trigger("mnuSelInvert");
    plm_->Trigger("mnuRemFromList");
    // Linear work takes some tens of milliseconds here; quadratic work takes minutes.
    QVERIFY(clock.elapsed() < 10000);
    QCOMPARE(plm_->Lines("lstFiles").size(), 10000);
    QCOMPARE(Names().at(1), QStringLiteral("2.mp3"));
}

QTEST_MAIN(FrmPLMListTest)
#include "frmPLM_list_test.moc"
