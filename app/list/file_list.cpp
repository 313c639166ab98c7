#include "app/list/file_list.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/names/list_entry.h"

namespace mdlPLM {

const Text& FileList::Path(Index row) const { return rows_[row].Path; }
const Text& FileList::Entry(Index row) const { return rows_[row].Entry; }
const Text& FileList::NewName(Index row) const { return rows_[row].NewName; }
bool FileList::Selected(Index row) const { return rows_[row].Selected; }
std::int64_t FileList::Size(Index row) const { return rows_[row].Size; }

void FileList::RowsAboutToChange() {
    if (observer_ != nullptr) observer_->RowsAboutToChange();
}

void FileList::RowsChanged() {
    if (rows_.empty()) ownFiles_ = {};
    if (observer_ != nullptr) observer_->RowsChanged();
}

void FileList::NamesChanged(Index first, Index last) {
    if (observer_ != nullptr) observer_->NamesChanged(first, last);
}

void FileList::SelectionChanged() {
    if (observer_ != nullptr) observer_->SelectionChanged();
}

void FileList::AppendRows(std::vector<Row> rows) {
    if (rows.empty()) return;
    RowsAboutToChange();
    // No reserve: many small additions must grow the list by factors, not by their own size.
    std::move(rows.begin(), rows.end(), std::back_inserter(rows_));
    RowsChanged();
}

void FileList::Append(const std::vector<Text>& paths, const std::vector<Text>& newNames) {
    std::vector<Row> rows(paths.size());
    for (Index i = 0; i < rows.size(); ++i) {
        rows[i].Path = paths[i];
        rows[i].Entry = MakeListEntry(paths[i]);
        if (i < newNames.size()) rows[i].NewName = newNames[i];
    }
    AppendRows(std::move(rows));
}

void FileList::AppendEntries(const std::vector<Text>& entries) {
    std::vector<Row> rows(entries.size());
    for (Index i = 0; i < rows.size(); ++i) {
        rows[i].Path = GetListEntryPath(entries[i]);
        rows[i].Entry = entries[i];
    }
    AppendRows(std::move(rows));
}

void FileList::PutNewName(Index row, Text name, bool edited) {
    rows_[row].NewName = std::move(name);
    rows_[row].NewNameEdited = edited;
}

void FileList::SetNewName(Index row, Text name) {
    if (row >= Count()) return;
    PutNewName(row, std::move(name), false);
    NamesChanged(row, row);
}

void FileList::EditNewName(Index row, Text name) {
    if (row >= Count()) return;
    PutNewName(row, std::move(name), true);
    NamesChanged(row, row);
}

void FileList::SetNewNames(Index first, std::vector<Text> names) {
    if (first >= Count() || names.empty()) return;
    const Index end = first + std::min(names.size(), Count() - first);
    for (Index row = first; row < end; ++row) PutNewName(row, std::move(names[row - first]), false);
    NamesChanged(first, end - 1);
}

void FileList::ClearNewNames() {
    if (rows_.empty()) return;
    // Assigning a fresh text gives the memory back, which clear() would keep.
    for (Index row = 0; row < Count(); ++row) PutNewName(row, Text(), false);
    NamesChanged(0, Count() - 1);
}

void FileList::RemoveListItem(Index row) {
    RemoveIf([row](Index each) { return each == row; });
}

void FileList::RemoveIf(const std::function<bool(Index)>& gone) {
    std::vector<bool> goes(Count());
    for (Index row = 0; row < Count(); ++row) goes[row] = gone(row);
    const auto firstGone = std::find(goes.begin(), goes.end(), true);
    if (firstGone == goes.end()) return;

    RowsAboutToChange();
    Index kept = static_cast<Index>(firstGone - goes.begin());
    for (Index row = kept; row < goes.size(); ++row) {
        if (!goes[row]) {
            rows_[kept++] = std::move(rows_[row]);
        } else if (rows_[row].Selected) {
            --selectedCount_;
        }
    }
    rows_.resize(kept);
    RowsChanged();
}

void FileList::RemoveSelected() {
    RemoveIf([this](Index row) { return Selected(row); });
}

void FileList::Clear() {
    if (rows_.empty()) return;
    RowsAboutToChange();
    rows_ = {};
    selectedCount_ = 0;
    RowsChanged();
}

bool FileList::SetSelection(Index first, Index last, const std::function<bool(Index)>& on) {
    bool changed = false;
    for (Index row = first; row < Count() && row <= last; ++row) {
        const bool wanted = on(row);
        if (wanted == rows_[row].Selected) continue;
        rows_[row].Selected = wanted;
        selectedCount_ = wanted ? selectedCount_ + 1 : selectedCount_ - 1;
        changed = true;
    }
    return changed;
}

void FileList::Select(Index row, bool on) {
    if (SetSelection(row, row, [on](Index) { return on; })) SelectionChanged();
}

void FileList::SelectOnly(Index row) {
    SelectWhere([row](Index each) { return each == row; });
}

void FileList::SelectAll() {
    SelectWhere([](Index) { return true; });
}

void FileList::SelectNone() {
    SelectWhere([](Index) { return false; });
}

void FileList::InvertSelection() {
    SelectWhere([this](Index row) { return !Selected(row); });
}

void FileList::SelectWhere(const std::function<bool(Index)>& on) {
    if (SetSelection(0, Count(), on)) SelectionChanged();
}

void FileList::NoteSelection(Index first, Index last, bool on) {
    SetSelection(first, last, [on](Index) { return on; });
}

std::vector<FileList::Index> FileList::SelectedRows() const {
    std::vector<Index> rows;
    rows.reserve(selectedCount_);
    for (Index row = 0; row < Count(); ++row) {
        if (Selected(row)) rows.push_back(row);
    }
    return rows;
}

std::vector<std::pair<FileList::Index, FileList::Index>> FileList::SelectedRanges() const {
    std::vector<std::pair<Index, Index>> ranges;
    for (Index row = 0; row < Count(); ++row) {
        if (!Selected(row)) continue;
        if (!ranges.empty() && ranges.back().second + 1 == row) {
            ranges.back().second = row;
        } else {
            ranges.emplace_back(row, row);
        }
    }
    return ranges;
}

void FileList::SetSize(Index row, std::int64_t bytes) {
    if (row < Count()) rows_[row].Size = bytes;
}

FileList::Index FileList::NextUnknownSize(Index from) const {
    while (from < Count() && rows_[from].Size >= 0) ++from;
    return std::min(from, Count());
}

void FileList::ForgetSizes() {
    for (Row& row : rows_) row.Size = -1;
}

}  // namespace mdlPLM
