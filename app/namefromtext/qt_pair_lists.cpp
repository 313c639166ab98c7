#include "app/namefromtext/qt_pair_lists.h"

#include "app/list/list_operations.h"
#include "app/shared/app_context.h"
#include "app/shared/file_dialogs.h"
#include "app/shared/name_from_text_host.h"
#include "app/shared/qt_file_drops.h"
#include "app/shared/qt_text.h"
#include "core/platform/path.h"
#include "ui_frmNameFromFile.h"

namespace mdlPLM {

PairLists::PairLists(const Parts& parts, QObject* parent) : QObject(parent), parts_(parts) {
    SetUpLists();
    ConnectButtons();
    ConnectLists();
}

void PairLists::SetUpLists() {
    PairedListView* const oldList = parts_.Controls.lstOldFileNames;
    PairedListView* const newList = parts_.Controls.lstNewFileNames;
    oldList->setModel(&oldFiles_);
    newList->setModel(&newNames_);
    oldList->PairWith(newList);
    oldList->SetHint(tr("The MP3 files to rename.\nFiles and folders can be dropped here."));
    newList->SetHint(tr("The names that a scan makes, each beside its file."));
    new FileDrops(oldList->viewport(),
                  [this](const std::vector<Text>& paths) { emit FilesDropped(paths); });
    connect(&oldFiles_, &PairColumn::CountChanged, &newNames_, &PairColumn::ShowPartners);
    connect(&newNames_, &PairColumn::CountChanged, &oldFiles_, &PairColumn::ShowPartners);
}

void PairLists::ConnectButtons() {
    const Ui::frmNameFromFile& controls = parts_.Controls;
    const auto onClick = [this](QPushButton* button, auto handler) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    onClick(controls.cmdAddFiles, &PairLists::cmdAddFiles_Click);
    onClick(controls.cmdRemoveFile, &PairLists::cmdRemoveFile_Click);
    onClick(controls.cmdRemoveNew, &PairLists::cmdRemoveNew_Click);
    onClick(controls.cmdClearOld, &PairLists::cmdClearOld_Click);
    onClick(controls.cmdClearNew, &PairLists::cmdClearNew_Click);
    onClick(controls.cmdMoveUp, &PairLists::cmdMoveUp_Click);
    onClick(controls.cmdMoveDn, &PairLists::cmdMoveDn_Click);
    connect(controls.mnuAddMP3, &QAction::triggered, this, &PairLists::cmdAddFiles_Click);
}

void PairLists::ConnectLists() {
    PairedListView* const oldList = parts_.Controls.lstOldFileNames;
    PairedListView* const newList = parts_.Controls.lstNewFileNames;
    connect(oldList->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PairLists::lstOldFileNames_Click);
    // A click on the file that is selected already shows its name again.
    connect(oldList, &QListView::clicked, this, &PairLists::lstOldFileNames_Click);
    connect(oldList, &PairedListView::DeletePressed, this, &PairLists::lstOldFileNames_KeyDown);
    connect(newList, &PairedListView::DeletePressed, this, &PairLists::lstNewFileNames_KeyDown);
    connect(newList, &QListView::doubleClicked, this, &PairLists::lstNewFileNames_DblClick);
    connect(newList, &PairedListView::EditPressed, this, &PairLists::lstNewFileNames_DblClick);
}

Text PairLists::FolderOr(const Text& otherwise) const {
    return pairs_.OldFiles().empty() ? otherwise : FolderOfPath(pairs_.OldFiles()[0].Path);
}

void PairLists::AddFiles(const std::vector<Text>& paths) {
    oldFiles_.Append(paths);
    ShowOldCount();
}

void PairLists::AddNames(const std::vector<Text>& names) {
    newNames_.Append(names);
    ShowNewCount();
}

void PairLists::Clear() {
    cmdClearOld_Click();
    cmdClearNew_Click();
}

void PairLists::cmdAddFiles_Click() {
    FileDialogRequest request;
    request.Title = FromQt(tr("Add MP3 files"));
    request.Filter = u"MP3 Files (*.mp3;*.mp2)|*.mp3;*.mp2|All Files (*.*)|*.*";
    request.InitialFolder = FolderOr(parts_.Context.Values.LastDir);
    request.Multiple = true;
    const FileDialogResult chosen = parts_.Context.Dialogs.OpenFiles(&parts_.Window, request);
    if (!chosen.Paths.empty()) AddFiles(chosen.Paths);
}

void PairLists::cmdRemoveFile_Click() {
    oldFiles_.Remove(parts_.Controls.lstOldFileNames->SelectedRow());
    ShowOldCount();
}

void PairLists::cmdRemoveNew_Click() {
    newNames_.Remove(parts_.Controls.lstNewFileNames->SelectedRow());
    ShowNewCount();
}

void PairLists::cmdClearOld_Click() {
    oldFiles_.Clear();
    ShowOldCount();
}

void PairLists::cmdClearNew_Click() {
    newNames_.Clear();
    ShowNewCount();
}

void PairLists::cmdMoveUp_Click() { MoveSelected(NamePairs::Direction::Up); }

void PairLists::cmdMoveDn_Click() { MoveSelected(NamePairs::Direction::Down); }

void PairLists::MoveSelected(NamePairs::Direction direction) {
    PairedListView* const oldList = parts_.Controls.lstOldFileNames;
    const int row = oldList->SelectedRow();
    if (row >= 0) oldList->SelectRow(oldFiles_.MoveOldFile(row, direction));
}

void PairLists::lstOldFileNames_Click() {
    const int row = parts_.Controls.lstOldFileNames->SelectedRow();
    if (row >= 0 && row < newNames_.rowCount()) parts_.Controls.lstNewFileNames->SelectRow(row);
}

// The counters are left alone by this key, on purpose.
void PairLists::lstOldFileNames_KeyDown() {
    oldFiles_.Remove(parts_.Controls.lstOldFileNames->SelectedRow());
}

void PairLists::lstNewFileNames_KeyDown() {
    newNames_.Remove(parts_.Controls.lstNewFileNames->SelectedRow());
}

void PairLists::lstNewFileNames_DblClick() {
    const int row = parts_.Controls.lstNewFileNames->SelectedRow();
    if (row < 0) return;
    const Text name = pairs_.NewNames()[static_cast<std::size_t>(row)];
    const std::optional<Text> edited = parts_.Host.EditName(&parts_.Window, name);
    if (edited) newNames_.SetNewName(row, *edited);
}

void PairLists::ShowOldCount() {
    parts_.Controls.lblNrOldFiles->setText(ToQt(FilesText(pairs_.OldFiles().size())));
}

void PairLists::ShowNewCount() {
    parts_.Controls.lblNrNewFiles->setText(ToQt(FilesText(pairs_.NewNames().size())));
}

}  // namespace mdlPLM
