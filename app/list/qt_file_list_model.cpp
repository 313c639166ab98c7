#include "app/list/qt_file_list_model.h"

#include <QSignalBlocker>
#include <algorithm>

#include "app/shared/qt_text.h"

namespace mdlPLM {

FileListModel::FileListModel(FileList& list, QObject* parent)
    : QAbstractTableModel(parent), list_(list) {
    list_.SetObserver(this);
}

FileListModel::~FileListModel() { list_.SetObserver(nullptr); }

int FileListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.Count());
}

int FileListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    const auto row = static_cast<FileList::Index>(index.row());
    return ToQt(index.column() == EntryColumn ? list_.Entry(row) : list_.NewName(row));
}

void FileListModel::RowsChanged() {
    endResetModel();
    // Not on modelReset: the views clear the selection then, in whatever order they were made.
    emit RowsReset();
}

void FileListModel::NamesChanged(FileList::Index first, FileList::Index last) {
    emit dataChanged(index(static_cast<int>(first), EntryColumn),
                     index(static_cast<int>(last), NewNameColumn));
}

FileSelection::FileSelection(FileList& list, FileListModel& model, QObject* parent)
    : QItemSelectionModel(&model, parent), list_(list), model_(model) {
    connect(this, &QItemSelectionModel::selectionChanged, this, &FileSelection::GiveToList);
    connect(&model_, &FileListModel::ListSelectionChanged, this, &FileSelection::TakeFromList);
    connect(&model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        rowBeforeReset_ = CurrentRow();
        selectedBeforeReset_ = list_.SelectedCount();
    });
    connect(&model_, &FileListModel::RowsReset, this, &FileSelection::RestoreAfterReset);
}

void FileSelection::select(const QItemSelection& selection, SelectionFlags command) {
    // Whoever selects a cell of one list means the whole row. Whole rows are not widened again:
    // that is quadratic in their number.
    const bool whole = std::all_of(selection.begin(), selection.end(), [](const auto& range) {
        return range.left() == 0 && range.right() == FileListModel::ColumnCount - 1;
    });
    if (command != NoUpdate) command.setFlag(Rows, !whole);
    QItemSelectionModel::select(selection, command);
}

void FileSelection::SetCurrentRow(int row) {
    const int last = model_.rowCount() - 1;
    if (last < 0) return;
    const int column = std::max(0, currentIndex().column());
    setCurrentIndex(model_.index(std::clamp(row, 0, last), column), NoUpdate);
}

void FileSelection::RestoreAfterReset() {
    Take();
    if (rowBeforeReset_ >= 0) {
        // The views would scroll to the cursor, away from where the user is looking.
        const QSignalBlocker quiet(this);
        SetCurrentRow(rowBeforeReset_);
    }
    if (list_.SelectedCount() != selectedBeforeReset_) emit Changed(false);
}

void FileSelection::TakeFromList() {
    Take();
    emit Changed(false);
}

void FileSelection::Take() {
    // Comparing an old with a new selection is quadratic when both are scattered, so the old one
    // goes first; and the views need not hear of every row, they are painted anew.
    const QSignalBlocker quiet(this);
    QItemSelectionModel::select(QItemSelection(), Clear);
    QItemSelection selection;
    for (const auto& [first, last] : list_.SelectedRanges()) {
        selection.append(QItemSelectionRange(model_.index(static_cast<int>(first), 0),
                                             model_.index(static_cast<int>(last), 1)));
    }
    QItemSelectionModel::select(selection, Select);
}

void FileSelection::GiveToList(const QItemSelection& selected, const QItemSelection& deselected) {
    const auto note = [this](const QItemSelection& ranges, bool on) {
        for (const QItemSelectionRange& range : ranges) {
            list_.NoteSelection(static_cast<FileList::Index>(range.top()),
                                static_cast<FileList::Index>(range.bottom()), on);
        }
    };
    note(deselected, false);
    note(selected, true);
    emit Changed(true);
}

}  // namespace mdlPLM
