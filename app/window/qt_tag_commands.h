// The tags of the selected files are edited, cleaned and saved.
#pragma once

#include "app/dialogs/player.h"
#include "app/window/qt_preview.h"

namespace mdlPLM {

class TagCommands : public QObject {
    Q_OBJECT

public:
    /// `player` lets go of a file before it is written.
    TagCommands(const WindowParts& parts, ShownFile& shown, Preview& preview, MediaPlayer& player);

private:
    void ConnectMenu();
    void cmdSaveID3_Click();
    void cmdFixID3_Click();
    void cmdMore_Click();
    void BeginSaving();
    [[nodiscard]] std::vector<Text> SelectedPaths() const;
    void SaveAllSelected();
    void OneFileSaved(const PanelSave& saved);
    void StartTagRun(const QString& what, TagRun run);
    void TagRun_Done(const RunReport& report, const std::vector<FileList::Index>& rows);
    void ShowTagsAfterRun(const RunReport& report);

    WindowParts parts_;
    ShownFile& shown_;
    Preview& preview_;
    MediaPlayer& player_;
};

}  // namespace mdlPLM
