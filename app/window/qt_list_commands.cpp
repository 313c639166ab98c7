#include "app/window/qt_list_commands.h"

#include <QMenu>
#include <QScrollBar>

#include "app/list/list_texts.h"
#include "app/list/saved_lists.h"
#include "app/shared/file_dialogs.h"
#include "app/shared/qt_file_drops.h"
#include "app/shared/qt_language.h"
#include "core/platform/path.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

namespace {

CommandEnd EndOf(bool stopped) { return stopped ? CommandEnd::Stopped : CommandEnd::Reached; }

}  // namespace

ListCommands::ListCommands(const WindowParts& parts, FileListModel& model, ShownFile& shown)
    : parts_(parts), shown_(shown) {
    SetUpViews(model);
    ConnectFiles();
    ConnectRemoval();
    ConnectSelection();
}

void ListCommands::SetUpViews(FileListModel& model) {
    parts_.Controls.lstFiles->SetHint(tr("Drop MP3 files, folders or playlists here"));
    int column = 0;
    for (FileListView* view : {parts_.Controls.lstFiles, parts_.Controls.lstPreview}) {
        view->setModel(&model);
        view->setModelColumn(column++);
        SetUpView(*view);
    }
    ScrollTogether();
}

void ListCommands::SetUpView(FileListView& view) {
    const QItemSelectionModel* own = view.selectionModel();
    view.setSelectionModel(&parts_.Selection);
    delete own;
    connect(&parts_.Selection, &FileSelection::Changed, view.viewport(),
            qOverload<>(&QWidget::update));
    new FileDrops(view.viewport(), [this](std::vector<Text> paths) { AddPaths(std::move(paths)); });
    // The keys of a list, which mean something else in a text box.
    for (QAction* entry : {parts_.Controls.mnuRemFromList, parts_.Controls.mnuRemFromHD}) {
        entry->setShortcutContext(Qt::WidgetShortcut);
        view.addAction(entry);
    }
    connect(&view, &QWidget::customContextMenuRequested, this, [this, &view](QPoint place) {
        parts_.Controls.mnuPopup->popup(view.viewport()->mapToGlobal(place));
    });
}

void ListCommands::ScrollTogether() {
    QScrollBar* files = parts_.Controls.lstFiles->verticalScrollBar();
    QScrollBar* preview = parts_.Controls.lstPreview->verticalScrollBar();
    connect(files, &QScrollBar::valueChanged, preview, &QScrollBar::setValue);
    connect(preview, &QScrollBar::valueChanged, files, &QScrollBar::setValue);
}

void ListCommands::ConnectFiles() {
    const Ui::frmPLM& controls = parts_.Controls;
    connect(controls.cmdAddFiles, &QPushButton::clicked, this, &ListCommands::cmdAddFiles_Click);
    connect(controls.mnuAddFiles, &QAction::triggered, this, &ListCommands::cmdAddFiles_Click);
    connect(controls.mnuAddFolder, &QAction::triggered, this, &ListCommands::mnuAddFolder_Click);
    connect(controls.cmdLoad, &QPushButton::clicked, this, &ListCommands::cmdLoad_Click);
    connect(controls.mnuLoad, &QAction::triggered, this, &ListCommands::cmdLoad_Click);
    connect(controls.cmdSave, &QPushButton::clicked, this, &ListCommands::cmdSave_Click);
    connect(controls.mnuSave, &QAction::triggered, this, &ListCommands::cmdSave_Click);
}

void ListCommands::ConnectRemoval() {
    const Ui::frmPLM& controls = parts_.Controls;
    connect(controls.cmdClear, &QPushButton::clicked, this, &ListCommands::cmdClear_Click);
    connect(controls.mnuClear, &QAction::triggered, this, &ListCommands::cmdClear_Click);
    connect(controls.mnuRemFromList, &QAction::triggered, this,
            &ListCommands::mnuRemFromList_Click);
    connect(controls.mnuRemFromHD, &QAction::triggered, this, &ListCommands::mnuRemFromHD_Click);
    connect(controls.mnuNonExistent, &QAction::triggered, this,
            &ListCommands::mnuNonExistent_Click);
}

void ListCommands::ConnectSelection() {
    const Ui::frmPLM& controls = parts_.Controls;
    const auto selectAll = [this] { parts_.List.SelectAll(); };
    connect(controls.cmdSelectAll, &QPushButton::clicked, this, selectAll);
    connect(controls.mnuSelectAll, &QAction::triggered, this, selectAll);
    connect(controls.cmdSelectNone, &QPushButton::clicked, this,
            &ListCommands::cmdSelectNone_Click);
    connect(controls.mnuSelectNone, &QAction::triggered, this, &ListCommands::cmdSelectNone_Click);
    connect(controls.mnuSelInvert, &QAction::triggered, this,
            [this] { parts_.List.InvertSelection(); });
    connect(controls.mnuSelV1Files, &QAction::triggered, this,
            [this] { SelectByTag(TagKind::V1); });
    connect(controls.mnuSelV2Files, &QAction::triggered, this,
            [this] { SelectByTag(TagKind::V2); });
}

void ListCommands::Rest(bool rest) {
    parts_.Controls.lstFiles->viewport()->setAcceptDrops(!rest);
    parts_.Controls.lstPreview->viewport()->setAcceptDrops(!rest);
}

void ListCommands::Say(const Text& text) const { parts_.Status.Say(ToQt(text)); }

void ListCommands::StartAdding(AddRequest request) {
    request.Extension = parts_.Context.Values.Extension;
    request.Words = UserLanguage();
    if (parts_.Names.PreviewShown()) request.Preview = parts_.Names.Maker();
    const FileList::Index before = parts_.List.Count();
    parts_.Work.Start(
        std::make_unique<AddTask>(parts_.List, std::move(request), parts_.Context.Ask),
        [this, before](bool stopped) {
            parts_.Counter.Update();
            Say(AddedText(parts_.List.Count() - before, EndOf(stopped), UserLanguage()));
        });
}

void ListCommands::StartScan(const QString& what, ListScan scan, ScanTask::Apply apply) {
    parts_.Work.Start(
        std::make_unique<ScanTask>(FromQt(what), parts_.List, std::move(scan), std::move(apply)));
}

void ListCommands::AddPaths(std::vector<Text> paths) {
    AddRequest request;
    request.Paths = std::move(paths);
    StartAdding(std::move(request));
}

void ListCommands::cmdAddFiles_Click() {
    Text& folder = parts_.Context.Values.LastDir;
    const FileDialogResult chosen = parts_.Context.Dialogs.OpenFiles(
        &parts_.Window, {FromQt(tr("Add Files")), folder, AddFilesFilter(), true});
    if (chosen.Paths.empty()) return;
    folder = FolderOfPath(chosen.Paths.front());
    AddRequest request;
    request.Paths = chosen.Paths;
    request.As = chosen.FilterIndex == PlaylistsFilter ? AddAs::ListFile : AddAs::File;
    StartAdding(std::move(request));
}

void ListCommands::mnuAddFolder_Click() {
    Text& last = parts_.Context.Values.LastDir;
    const Text folder =
        parts_.Context.Dialogs.BrowseForFolder(&parts_.Window, FromQt(tr("Add Folder")), last);
    if (folder.empty()) return;
    last = JoinPath(folder, {});
    AddPaths({folder});
}

void ListCommands::cmdLoad_Click() {
    const FileDialogResult chosen = parts_.Context.Dialogs.OpenFiles(
        &parts_.Window,
        {FromQt(tr("Load List")), parts_.Context.Values.LastDir, LoadListFilter(), false});
    if (chosen.Paths.empty()) return;
    // What is refused takes nobody's list away.
    if (KindOfListFile(chosen.Paths.front()) != ListFileKind::Other) {
        parts_.List.Clear();
        ResetFileView();
    }
    AddRequest request;
    request.Paths = {chosen.Paths.front()};
    request.As = AddAs::ListFile;
    StartAdding(std::move(request));
}

void ListCommands::cmdSave_Click() {
    const FileDialogResult chosen = parts_.Context.Dialogs.SaveFile(
        &parts_.Window,
        {FromQt(tr("Save List")), parts_.Context.Values.LastDir, SaveListFilter(), false});
    if (chosen.Paths.empty()) return;
    const Text& path = chosen.Paths.front();
    LeftOvers* const leftOvers = parts_.Context.LeftBehind;
    if (leftOvers != nullptr) leftOvers->LookBeside(path);
    const Status saved = SaveListFile(parts_.List, path, KindOfSaveFilter(chosen.FilterIndex));
    Prompts& ask = parts_.Context.Ask;
    if (!saved.Ok()) return ask.Critical({u"PLM", ErrorMessage(saved.Number()), path});
    const std::vector<Text> refused = NamesWithLineBreak(parts_.List);
    Say(SavedListText(parts_.List.Count() - refused.size(), path, UserLanguage()));
    if (!refused.empty()) ask.Inform(NotWrittenMessage(refused, path, UserLanguage()));
}

void ListCommands::cmdClear_Click() {
    parts_.List.Clear();
    ResetFileView();
    Say({});
}

void ListCommands::mnuRemFromList_Click() {
    const FileList::Index removed = parts_.List.SelectedCount();
    parts_.List.RemoveSelected();
    ResetFileView();
    Say(RemovedText(removed, UserLanguage()));
}

void ListCommands::mnuRemFromHD_Click() {
    const FileList& list = parts_.List;
    if (list.SelectedCount() == 0) return parts_.Status.Say(tr("No file is selected."));
    const Text which = list.SelectedCount() == 1
                           ? list.Path(list.SelectedRanges().front().first)
                           : CountOfFiles(list.SelectedCount(), UserLanguage());
    const Message question{
        u"Pellmore", u"Are you sure you want to delete the selected file(s) from your harddrive?",
        which};
    if (parts_.Context.Ask.AskYesNo(question) != Answer::Yes) return;
    StartScan(tr("Deleting files"), DeletionFromDisk(parts_.List, parts_.Context.Files),
              [this](ListScan& scan, bool /*stopped*/) {
                  scan.RemoveGone();
                  ResetFileView();
                  Say(DeletedText(scan, UserLanguage()));
              });
}

void ListCommands::mnuNonExistent_Click() {
    StartScan(tr("Looking for missing files"), ScanForMissing(parts_.List),
              [this](ListScan& scan, bool /*stopped*/) {
                  scan.RemoveGone();
                  parts_.Counter.Update();
                  Say(MissingText(scan, UserLanguage()));
              });
}

void ListCommands::cmdSelectNone_Click() {
    parts_.List.SelectNone();
    shown_.Blank();
}

void ListCommands::SelectByTag(TagKind kind) {
    StartScan(tr("Looking for tags"), ScanForTag(parts_.List, kind),
              [this](ListScan& scan, bool stopped) {
                  if (!stopped) {
                      scan.SelectMatches();
                      scan.RemoveGone();
                      parts_.Counter.Update();
                  }
                  Say(SelectedByTagText(scan, EndOf(stopped), UserLanguage()));
              });
}

void ListCommands::ResetFileView() {
    shown_.Blank();
    parts_.Counter.Update();
}

}  // namespace mdlPLM
