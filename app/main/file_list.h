// The list of files, without its views: one row per file with its path, what is shown for it, its
// new name and whether it is selected. lstFiles and lstPreview are two views on it.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

class FileList {
public:
    using Index = std::size_t;

    /// Told after every change of rows (never per row): the views reset once.
    struct Observer {
        virtual ~Observer() = default;
        virtual void RowsAboutToChange() = 0;  ///< rows come, go or move
        virtual void RowsChanged() = 0;
        virtual void NamesChanged(Index first, Index last) = 0;  ///< new names of existing rows
        virtual void SelectionChanged() = 0;
    };
    void SetObserver(Observer* observer) { observer_ = observer; }

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
    /// Consecutive new names from `first` on, announced once.
    void SetNewNames(Index first, std::vector<Text> names);
    void ClearNewNames();
    /// A file that was renamed on disk keeps its row.
    void SetPath(Index row, Text path);

    void Remove(Index row);
    /// Removes every row for which `gone` is true: linear, one change.
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

private:
    struct Row {
        Text Path;
        Text Entry;
        Text NewName;
        std::int64_t Size = -1;
        bool Selected = false;
    };
    std::vector<Row> rows_;
    Index selectedCount_ = 0;
    Observer* observer_ = nullptr;
};

}  // namespace mdlPLM
