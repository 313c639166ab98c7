#include "app/window/shown_selection.h"

namespace mdlPLM {

namespace {

FileList::Index OnlySelected(const FileList& list) { return list.SelectedRanges().front().first; }

}  // namespace

Showing WhatToShow(const FileList& list, int current, ChangedBy by) {
    if (list.SelectedCount() == 1) return {TagPanel::State::OneFile, OnlySelected(list)};
    if (list.SelectedCount() >= 2) return {TagPanel::State::Batch, 0};
    // A click that takes the last selected entry out still shows the entry that was clicked.
    if (by == ChangedBy::User && current >= 0)
        return {TagPanel::State::OneFile, static_cast<FileList::Index>(current)};
    return {};
}

std::optional<FileList::Index> RowOfShown(const FileList& list, int current, TextView shownPath) {
    if (list.SelectedCount() != 1 && current < 0) return {};
    const auto row =
        list.SelectedCount() == 1 ? OnlySelected(list) : static_cast<FileList::Index>(current);
    if (list.Path(row) != shownPath) return {};
    return row;
}

PanelAfterRun WhatPanelShowsAfter(const TagRunEnd& end) {
    if (end.Panel == TagPanel::State::Batch)
        return end.AllSaved ? PanelAfterRun::IsEmptied : PanelAfterRun::StaysAsItIs;
    // The file may have been shown before it was written.
    return end.PanelEdited ? PanelAfterRun::StaysAsItIs : PanelAfterRun::ShowsSelection;
}

}  // namespace mdlPLM
