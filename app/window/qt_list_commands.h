// Files come into the list and go from it, and are selected.
#pragma once

#include "app/list/qt_file_list_view.h"
#include "app/window/qt_shown_file.h"

namespace mdlPLM {

class ListCommands : public QObject {
    Q_OBJECT

public:
    /// Puts the list into its two views, too. `model` is the list's.
    ListCommands(const WindowParts& parts, FileListModel& model, ShownFile& shown);

    /// Takes files into the list as a drop does: folders are walked, list files are read.
    void AddPaths(std::vector<Text> paths);
    /// While it rests, nothing can be dropped.
    void Rest(bool rest);

private:
    void SetUpViews(FileListModel& model);
    void SetUpView(FileListView& view);
    void ScrollTogether();
    void ConnectFiles();
    void ConnectRemoval();
    void ConnectSelection();
    void StartAdding(AddRequest request);
    void StartScan(const QString& what, ListScan scan, ScanTask::Apply apply);
    void cmdAddFiles_Click();
    void mnuAddFolder_Click();
    void cmdLoad_Click();
    void cmdSave_Click();
    void cmdClear_Click();
    void mnuRemFromList_Click();
    void mnuRemFromHD_Click();
    void mnuNonExistent_Click();
    void cmdSelectNone_Click();
    void SelectByTag(TagKind kind);
    void ResetFileView();
    void Say(const Text& text) const;

    WindowParts parts_;
    ShownFile& shown_;
};

}  // namespace mdlPLM
