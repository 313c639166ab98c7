// What the main window shows of a selection, without its widgets.
#pragma once

#include "app/list/file_list.h"
#include "app/tags/tag_panel.h"

namespace mdlPLM {

/// What the name boxes and the tag panel are about.
struct Showing {
    TagPanel::State What = TagPanel::State::Nothing;
    FileList::Index Row = 0;  ///< of the one file
};

/// Who changed the selection.
enum class ChangedBy { User, Program };

/// What is shown of the list's selection. `current` is the row with the keyboard's cursor, -1 when
/// there is none.
Showing WhatToShow(const FileList& list, int current, ChangedBy by);

/// The row of the file that is shown, which is the only selected one or has the cursor; nothing
/// when that is another file by now, or none is shown (`shownPath` is empty).
std::optional<FileList::Index> RowOfShown(const FileList& list, int current, TextView shownPath);

/// What becomes of the boxes of the tag panel when a run over the tags of many files is over.
enum class PanelAfterRun {
    StaysAsItIs,     ///< what could not be saved, or was typed meanwhile, stays
    ShowsSelection,  ///< another file was selected meanwhile: it is read again
    IsEmptied,       ///< all was saved
};
struct TagRunEnd {
    TagPanel::State Panel = TagPanel::State::Nothing;
    bool PanelEdited = false;
    bool AllSaved = false;  ///< the run was not stopped and no file failed
};
PanelAfterRun WhatPanelShowsAfter(const TagRunEnd& end);

}  // namespace mdlPLM
