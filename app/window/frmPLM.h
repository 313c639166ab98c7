// The main window: files come in, names are made, files are sorted, and beside them their tags.
// Each of these areas is an object of its own; the window makes them and is what they have in
// common.
#pragma once

#include <QMainWindow>
#include <memory>

#include "app/dialogs/player.h"
#include "app/list/file_list.h"
#include "app/list/qt_file_list_model.h"
#include "app/list/qt_work_queue.h"
#include "app/shared/app_context.h"

namespace mdlPLM {

namespace Ui {
class frmPLM;
}
class CommandControls;
class ListCommands;
class ListCounter;
class NameChoices;
class PlayerCommands;
class Preview;
class ShownFile;
class SortCommands;
class StatusLine;
class TagCommands;
class TextToolCommands;
class frmPLM_tagpanel;

class frmPLM : public QMainWindow {
    Q_OBJECT

public:
    /// `player` is the window's own for as long as it lives.
    frmPLM(AppContext& context, MediaPlayer& player);
    ~frmPLM() override;

    /// Takes files into the list as a drop does: folders are walked, list files are read.
    void AddPaths(std::vector<Text> paths);

    /// Two or more entries are selected at this moment.
    [[nodiscard]] bool MultipleSelection() const { return list_.SelectedCount() >= 2; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeLowerFloor();
    void MakeAreas(MediaPlayer& player);
    void ConnectWindow();
    void LoadSettings();
    void SaveOnClose();
    void RestoreLayout();
    void AlignLabels();
    void Work_BusyChanged(bool busy);
    void Work_Progressed();
    void cmdOptions_Click();
    void mnuHelpMe_Click();
    void mnuAbout_Click();

    AppContext& context_;
    std::unique_ptr<Ui::frmPLM> ui_;
    FileList list_;
    FileListModel model_;
    FileSelection selection_;
    WorkQueue work_;
    bool closeWhenDone_ = false;

    // From the lowest up: each may know those before it.
    std::unique_ptr<StatusLine> status_;
    std::unique_ptr<ListCounter> counter_;
    std::unique_ptr<NameChoices> names_;
    frmPLM_tagpanel* tags_ = nullptr;
    std::unique_ptr<CommandControls> controls_;
    std::unique_ptr<ShownFile> shown_;
    std::unique_ptr<Preview> preview_;
    std::unique_ptr<ListCommands> listCommands_;
    std::unique_ptr<TagCommands> tagCommands_;
    std::unique_ptr<SortCommands> sortCommands_;
    std::unique_ptr<PlayerCommands> playerCommands_;
    std::unique_ptr<TextToolCommands> textTool_;
};

}  // namespace mdlPLM
