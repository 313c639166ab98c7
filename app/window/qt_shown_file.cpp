#include "app/window/qt_shown_file.h"

#include "app/list/qt_file_list_view.h"
#include "app/shared/qt_box_text.h"
#include "app/shared/qt_entry_filter.h"
#include "app/shared/qt_prompts.h"
#include "app/shared/qt_text.h"
#include "app/tags/frmPLM_tagpanel.h"
#include "core/names/fix_file_name.h"
#include "core/platform/path.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

ShownFile::ShownFile(const WindowParts& parts) : parts_(parts) {
    const Ui::frmPLM& controls = parts_.Controls;
    FilterEntry(*controls.txtNewName);
    for (QComboBox* box : {controls.cmbInPattern, controls.cmbOutPattern})
        connect(box, &QComboBox::currentTextChanged, this, &ShownFile::ShowComputedName);
    connect(&parts_.Selection, &FileSelection::Changed, this, &ShownFile::Selection_Changed);
    for (FileListView* view : {controls.lstFiles, controls.lstPreview})
        connect(view, &QListView::clicked, this, &ShownFile::List_Clicked);
    connect(&parts_.Tags, &frmPLM_tagpanel::Edited, this, &ShownFile::Tags_Edited);
}

std::optional<FileList::Index> ShownFile::Row() const {
    return RowOfShown(parts_.List, parts_.Selection.CurrentRow(), path_);
}

Text ShownFile::CurrentPath() const {
    const int row = parts_.Selection.CurrentRow();
    return row < 0 ? Text() : parts_.List.Path(static_cast<FileList::Index>(row));
}

void ShownFile::Selection_Changed(bool byView) {
    ShowSelection(byView ? ChangedBy::User : ChangedBy::Program);
}

void ShownFile::ShowSelection(ChangedBy by) {
    if (rests_) return;
    const Showing showing = WhatToShow(parts_.List, parts_.Selection.CurrentRow(), by);
    if (showing.What == TagPanel::State::OneFile) return ShowFile(showing.Row);
    Blank();
    if (showing.What == TagPanel::State::Batch) parts_.Tags.ShowBatch();
    followsSelection_ = true;
}

void ShownFile::List_Clicked() {
    if (!followsSelection_) ShowSelection(ChangedBy::User);
}

void ShownFile::ShowFile(FileList::Index row) {
    path_ = parts_.List.Path(row);
    followsSelection_ = true;
    BoxErrors errors(parts_.Context.Ask);
    parts_.Tags.ShowFile(path_, errors);
    SetBoxText(*parts_.Controls.txtOldName, ToQt(FileNameOfPath(path_)));
    ShowNameOf(row);
    emit Changed();
}

void ShownFile::Blank() {
    path_.clear();
    followsSelection_ = false;
    parts_.Tags.Clear();
    parts_.Controls.txtOldName->clear();
    parts_.Controls.txtNewName->clear();
    emit Changed();
}

void ShownFile::ShowNameOf(FileList::Index row) {
    const Text& computed = parts_.List.NewName(row);
    if (parts_.Names.PreviewShown() && !computed.empty())
        ShowName(computed);
    else
        ShowNewName();
}

void ShownFile::ShowName(TextView name) { SetBoxText(*parts_.Controls.txtNewName, ToQt(name)); }

void ShownFile::ShowNewName() {
    const TagPanel& panel = parts_.Tags.Panel();
    if (!panel.ReadingFault().Ok()) return parts_.Controls.txtNewName->clear();
    const Text inPattern = parts_.Names.InPattern();
    const NamingContext naming{parts_.Context.Values, parts_.Context.Replacements, inPattern};
    ShowName(FixFileName2(path_, parts_.Names.OutPattern(), panel.Boxes(), naming));
}

void ShownFile::ShowComputedName() {
    if (!path_.empty() && !parts_.Names.PreviewShown()) ShowNewName();
}

void ShownFile::Tags_Edited() {
    if (!path_.empty()) ShowNewName();
}

}  // namespace mdlPLM
