// frmPLM: files come into the list and go from it.
#include <QMenu>
#include <QScrollBar>

#include "app/list/saved_lists.h"
#include "app/shared/file_dialogs.h"
#include "app/shared/qt_file_drops.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"
#include "app/window/frmPLM.h"
#include "core/platform/path.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

namespace {

/// Sizes asked for between two looks at the clock, and for how long in one turn of the event loop
/// (milliseconds).
constexpr FileList::Index SizesAtOnce = 50;
constexpr qint64 CountingTime = 15;

QString Files(std::size_t count) {
    return count == 1 ? frmPLM::tr("1 file") : frmPLM::tr("%1 files").arg(count);
}

}  // namespace

void frmPLM::SetUpLists() {
    ui_->lstFiles->SetHint(tr("Drop MP3 files, folders or playlists here"));
    int column = 0;
    for (FileListView* view : {ui_->lstFiles, ui_->lstPreview}) {
        view->setModel(&model_);
        view->setModelColumn(column++);
        QItemSelectionModel* own = view->selectionModel();
        view->setSelectionModel(&selection_);
        delete own;
        connect(&selection_, &FileSelection::Changed, view->viewport(),
                qOverload<>(&QWidget::update));
        new FileDrops(view->viewport(),
                      [this](std::vector<Text> paths) { AddPaths(std::move(paths)); });
        // The keys of a list, which mean something else in a text box.
        for (QAction* entry : {ui_->mnuRemFromList, ui_->mnuRemFromHD}) {
            entry->setShortcutContext(Qt::WidgetShortcut);
            view->addAction(entry);
        }
    }
    QScrollBar* files = ui_->lstFiles->verticalScrollBar();
    QScrollBar* preview = ui_->lstPreview->verticalScrollBar();
    connect(files, &QScrollBar::valueChanged, preview, &QScrollBar::setValue);
    connect(preview, &QScrollBar::valueChanged, files, &QScrollBar::setValue);
    counting_.setInterval(0);
    connect(&counting_, &QTimer::timeout, this, &frmPLM::CountSlice);
}

void frmPLM::ConnectList() {
    connect(ui_->cmdAddFiles, &QPushButton::clicked, this, &frmPLM::cmdAddFiles_Click);
    connect(ui_->mnuAddFiles, &QAction::triggered, this, &frmPLM::cmdAddFiles_Click);
    connect(ui_->mnuAddFolder, &QAction::triggered, this, &frmPLM::mnuAddFolder_Click);
    connect(ui_->cmdLoad, &QPushButton::clicked, this, &frmPLM::cmdLoad_Click);
    connect(ui_->mnuLoad, &QAction::triggered, this, &frmPLM::cmdLoad_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmPLM::cmdSave_Click);
    connect(ui_->mnuSave, &QAction::triggered, this, &frmPLM::cmdSave_Click);
    connect(ui_->cmdClear, &QPushButton::clicked, this, &frmPLM::cmdClear_Click);
    connect(ui_->mnuClear, &QAction::triggered, this, &frmPLM::cmdClear_Click);
    connect(ui_->mnuRemFromList, &QAction::triggered, this, &frmPLM::mnuRemFromList_Click);
    connect(ui_->mnuRemFromHD, &QAction::triggered, this, &frmPLM::mnuRemFromHD_Click);
    connect(ui_->mnuNonExistent, &QAction::triggered, this, &frmPLM::mnuNonExistent_Click);
    for (FileListView* view : {ui_->lstFiles, ui_->lstPreview}) {
        connect(view, &QWidget::customContextMenuRequested, this, [this, view](QPoint place) {
            ui_->mnuPopup->popup(view->viewport()->mapToGlobal(place));
        });
    }
    ConnectSelectionButtons();
}

void frmPLM::ConnectSelectionButtons() {
    const auto selectAll = [this] { list_.SelectAll(); };
    connect(ui_->cmdSelectAll, &QPushButton::clicked, this, selectAll);
    connect(ui_->mnuSelectAll, &QAction::triggered, this, selectAll);
    connect(ui_->cmdSelectNone, &QPushButton::clicked, this, &frmPLM::cmdSelectNone_Click);
    connect(ui_->mnuSelectNone, &QAction::triggered, this, &frmPLM::cmdSelectNone_Click);
    connect(ui_->mnuSelInvert, &QAction::triggered, this, [this] { list_.InvertSelection(); });
    connect(ui_->mnuSelV1Files, &QAction::triggered, this, [this] { SelectByTag(TagKind::V1); });
    connect(ui_->mnuSelV2Files, &QAction::triggered, this, [this] { SelectByTag(TagKind::V2); });
}

void frmPLM::StartAdding(AddRequest request) {
    request.Extension = context_.Values.Extension;
    request.Words = UserLanguage();
    if (PreviewShown()) request.Preview = Maker();
    const FileList::Index before = list_.Count();
    work_.Start(std::make_unique<AddTask>(list_, std::move(request), context_.Ask),
                [this, before](bool stopped) {
                    UpdateCounter();
                    const QString added = Files(list_.Count() - before);
                    SetStatus((stopped ? tr("Stopped. %1 added.") : tr("%1 added.")).arg(added));
                });
}

void frmPLM::AddPaths(std::vector<Text> paths) {
    AddRequest request;
    request.Paths = std::move(paths);
    StartAdding(std::move(request));
}

void frmPLM::cmdAddFiles_Click() {
    const FileDialogResult chosen = context_.Dialogs.OpenFiles(
        this, {FromQt(tr("Add Files")), context_.Values.LastDir, AddFilesFilter(), true});
    if (chosen.Paths.empty()) return;
    context_.Values.LastDir = FolderOfPath(chosen.Paths.front());
    AddRequest request;
    request.Paths = chosen.Paths;
    request.As = chosen.FilterIndex == PlaylistsFilter ? AddAs::ListFile : AddAs::File;
    StartAdding(std::move(request));
}

void frmPLM::mnuAddFolder_Click() {
    const Text folder =
        context_.Dialogs.BrowseForFolder(this, FromQt(tr("Add Folder")), context_.Values.LastDir);
    if (folder.empty()) return;
    context_.Values.LastDir = JoinPath(folder, {});
    AddPaths({folder});
}

void frmPLM::cmdLoad_Click() {
    const FileDialogResult chosen = context_.Dialogs.OpenFiles(
        this, {FromQt(tr("Load List")), context_.Values.LastDir, LoadListFilter(), false});
    if (chosen.Paths.empty()) return;
    // What is refused takes nobody's list away.
    if (KindOfListFile(chosen.Paths.front()) != ListFileKind::Other) {
        list_.Clear();
        ResetFileView();
    }
    AddRequest request;
    request.Paths = {chosen.Paths.front()};
    request.As = AddAs::ListFile;
    StartAdding(std::move(request));
}

void frmPLM::cmdSave_Click() {
    const FileDialogResult chosen = context_.Dialogs.SaveFile(
        this, {FromQt(tr("Save List")), context_.Values.LastDir, SaveListFilter(), false});
    if (chosen.Paths.empty()) return;
    const Text& path = chosen.Paths.front();
    if (context_.LeftBehind != nullptr) context_.LeftBehind->LookBeside(path);
    const Status saved = SaveListFile(list_, path, KindOfSaveFilter(chosen.FilterIndex));
    if (!saved.Ok()) return context_.Ask.Critical({u"PLM", ErrorMessage(saved.Number()), path});
    const std::vector<Text> refused = NamesWithLineBreak(list_);
    SetStatus(tr("%1 saved to %2").arg(Files(list_.Count() - refused.size()), ToQt(path)));
    if (!refused.empty()) context_.Ask.Inform(NotWrittenMessage(refused, path, UserLanguage()));
}

void frmPLM::cmdClear_Click() {
    list_.Clear();
    ResetFileView();
    SetStatus({});
}

void frmPLM::mnuRemFromList_Click() {
    const QString removed = Files(list_.SelectedCount());
    list_.RemoveSelected();
    ResetFileView();
    SetStatus(tr("%1 taken out of the list.").arg(removed));
}

void frmPLM::mnuRemFromHD_Click() {
    if (list_.SelectedCount() == 0) return SetStatus(tr("No file is selected."));
    const bool one = list_.SelectedCount() == 1;
    const Text which = one ? list_.Path(list_.SelectedRanges().front().first)
                           : FromQt(Files(list_.SelectedCount()));
    const Message question{
        u"Pellmore", u"Are you sure you want to delete the selected file(s) from your harddrive?",
        which};
    if (context_.Ask.AskYesNo(question) != Answer::Yes) return;
    const auto apply = [this](ListScan& scan, bool /*stopped*/) {
        scan.RemoveGone();
        ResetFileView();
        SetStatus(tr("%1 deleted, %2 could not be deleted.")
                      .arg(Files(scan.Count(ListScan::Finding::Gone)))
                      .arg(scan.Count(ListScan::Finding::Match)));
    };
    work_.Start(std::make_unique<ScanTask>(FromQt(tr("Deleting files")), list_,
                                           DeletionFromDisk(list_, context_.Files), apply));
}

void frmPLM::mnuNonExistent_Click() {
    const auto apply = [this](ListScan& scan, bool /*stopped*/) {
        scan.RemoveGone();
        UpdateCounter();
        SetStatus(tr("%1 taken out of the list because they are missing.")
                      .arg(Files(scan.Count(ListScan::Finding::Gone))));
    };
    work_.Start(std::make_unique<ScanTask>(FromQt(tr("Looking for missing files")), list_,
                                           ScanForMissing(list_), apply));
}

void frmPLM::cmdSelectNone_Click() {
    list_.SelectNone();
    BlankPanel();
}

void frmPLM::SelectByTag(TagKind kind) {
    const auto apply = [this](ListScan& scan, bool stopped) {
        // Half a selection would look like a whole one.
        if (stopped) return SetStatus(tr("Stopped. The selection is as it was."));
        scan.SelectMatches();
        scan.RemoveGone();
        UpdateCounter();
        SetStatus(tr("%1 selected.").arg(Files(list_.SelectedCount())));
    };
    work_.Start(std::make_unique<ScanTask>(FromQt(tr("Looking for tags")), list_,
                                           ScanForTag(list_, kind), apply));
}

void frmPLM::ResetFileView() {
    BlankPanel();
    UpdateCounter();
}

void frmPLM::UpdateCounter() {
    list_.ForgetSizes();
    counted_ = 0;
    counting_.start();
    CountSlice();
}

void frmPLM::CountSlice() {
    QElapsedTimer clock;
    clock.start();
    do {
        counted_ = UpdateSizes(list_, counted_, SizesAtOnce);
    } while (counted_ < list_.Count() && clock.elapsed() < CountingTime);
    if (counted_ >= list_.Count()) counting_.stop();
    ui_->lblFiles->setText(ToQt(CounterText(list_)));
}

}  // namespace mdlPLM
