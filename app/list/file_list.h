// The list of files, without its views: one row per file with its path, what is shown for it, its
// new name and whether it is selected. lstFiles and lstPreview are two views on it.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "core/names/own_files.h"

namespace mdlPLM {

class FileList {
public:
    using Index = std::size_t;

    /// Told once per change, never per row, and only when something did change: the views reset
    /// once.
    struct Observer {
        virtual ~Observer() = default;
        /// Rows come or go; the list is still as it was before.
        virtual void RowsAboutToChange() = 0;
        /// Rows came or went; the selection of those that stayed went along with them.
        virtual void RowsChanged() = 0;
        /// New names of the existing rows first to last.
        virtual void NamesChanged(Index first, Index last) = 0;
        virtual void SelectionChanged() = 0;
    };
    void SetObserver(Observer* observer) { observer_ = observer; }

    // What is asked about a row takes a row below Count(); what changes one ignores any other.
    [[nodiscard]] Index Count() const { return rows_.size(); }
    [[nodiscard]] const Text& Path(Index row) const;     ///< what is opened
    [[nodiscard]] const Text& Entry(Index row) const;    ///< what is shown: the list line
    [[nodiscard]] const Text& NewName(Index row) const;  ///< preview line; empty: none computed
    [[nodiscard]] bool Selected(Index row) const;
    [[nodiscard]] Index SelectedCount() const { return selectedCount_; }
    [[nodiscard]] std::vector<Index> SelectedRows() const;

    /// Appends the files at these paths in one change (`newNames` may be shorter: the rest is
    /// empty).
    void Append(const std::vector<Text>& paths, const std::vector<Text>& newNames = {});
    /// Appends list lines of a sorting list as they stand; their paths come from the lines.
    void AppendEntries(const std::vector<Text>& entries);
    void SetNewName(Index row, Text name);
    /// A new name that the user wrote by hand; it counts as edited until another one is set.
    void EditNewName(Index row, Text name);
    [[nodiscard]] bool NewNameEdited(Index row) const { return rows_[row].NewNameEdited; }
    /// Consecutive new names from `first` on, announced once.
    void SetNewNames(Index first, std::vector<Text> names);
    void ClearNewNames();

    /// Takes one row out, its line and its new name.
    void RemoveListItem(Index row);
    /// Removes every row for which `gone` is true: linear, one change. `gone` is asked once per
    /// row, upwards, while the list still stands as it was.
    void RemoveIf(const std::function<bool(Index)>& gone);
    void RemoveSelected();
    void Clear();

    void Select(Index row, bool on);
    void SelectOnly(Index row);
    void SelectAll();
    void SelectNone();
    void InvertSelection();
    /// Sets every row's selection from `on` in one change.
    void SelectWhere(const std::function<bool(Index)>& on);
    /// Ranges [first, last] of selected rows, ascending: what a selection model takes in one go.
    [[nodiscard]] std::vector<std::pair<Index, Index>> SelectedRanges() const;
    /// What a view's selection model reports: rows [first, last] switched on or off, not announced
    /// back.
    void NoteSelection(Index first, Index last, bool on);

    /// File sizes for the counter: -1 until known, 0 for a file that has gone.
    [[nodiscard]] std::int64_t Size(Index row) const;
    void SetSize(Index row, std::int64_t bytes);
    /// First row whose size is not known yet, at or after `from`; Count() when there is none.
    [[nodiscard]] Index NextUnknownSize(Index from) const;
    /// Forgets all sizes, so that they are asked again.
    void ForgetSizes();

    /// The files of this list that sorts work on, also those that have left it already: a sort that
    /// was stopped and goes on is one piece of work. Forgotten when the list becomes empty.
    [[nodiscard]] OwnFiles& OwnFilesOfSorts() { return ownFiles_; }

private:
    struct Row {
        Text Path;
        Text Entry;
        Text NewName;
        std::int64_t Size = -1;
        bool Selected = false;
        bool NewNameEdited = false;
    };
    void PutNewName(Index row, Text name, bool edited);
    void AppendRows(std::vector<Row> rows);
    /// True when a row changed; announces nothing.
    bool SetSelection(Index first, Index last, const std::function<bool(Index)>& on);
    void RowsAboutToChange();
    void RowsChanged();
    void NamesChanged(Index first, Index last);
    void SelectionChanged();

    std::vector<Row> rows_;
    Index selectedCount_ = 0;
    OwnFiles ownFiles_;
    Observer* observer_ = nullptr;
};

}  // namespace mdlPLM
