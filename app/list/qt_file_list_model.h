// The file list as Qt's views see it: one model with two columns and one selection for both lists.
#pragma once

#include <QAbstractTableModel>
#include <QItemSelectionModel>

#include "app/list/file_list.h"

namespace mdlPLM {

/// Column 0 is what lstFiles shows, column 1 what lstPreview shows. Every change of rows is one
/// reset: removing scattered rows one by one from a view is quadratic.
class FileListModel : public QAbstractTableModel, private FileList::Observer {
    Q_OBJECT

public:
    enum Column : int { EntryColumn = 0, NewNameColumn = 1, ColumnCount = 2 };

    explicit FileListModel(FileList& list, QObject* parent = nullptr);
    ~FileListModel() override;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

signals:
    /// Rows have come or gone, and every view has forgotten its old ones.
    void RowsReset();
    /// The list's selection was changed by other means than a view.
    void ListSelectionChanged();

private:
    void RowsAboutToChange() override { beginResetModel(); }
    void RowsChanged() override;
    void NamesChanged(FileList::Index first, FileList::Index last) override;
    void SelectionChanged() override { emit ListSelectionChanged(); }

    FileList& list_;
};

/// The one selection of both lists, by rows, kept the same as the list's own.
class FileSelection : public QItemSelectionModel {
    Q_OBJECT

public:
    FileSelection(FileList& list, FileListModel& model, QObject* parent = nullptr);

    using QItemSelectionModel::select;
    void select(const QItemSelection& selection, SelectionFlags command) override;

    /// The row that has the keyboard's cursor; -1 when there is none.
    [[nodiscard]] int CurrentRow() const { return currentIndex().row(); }
    /// Moves the cursor without selecting anything; the row is clamped to the list.
    void SetCurrentRow(int row);

signals:
    /// What is selected has changed, `byView` when the user did it in one of the lists.
    void Changed(bool byView);

private:
    void Take();
    void TakeFromList();
    void GiveToList(const QItemSelection& selected, const QItemSelection& deselected);
    void RestoreAfterReset();

    FileList& list_;
    FileListModel& model_;
    int rowBeforeReset_ = -1;
    FileList::Index selectedBeforeReset_ = 0;
};

}  // namespace mdlPLM
