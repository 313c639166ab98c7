// The main window with everything it needs, in a temporary folder of its own, and hands to use it.
#pragma once

#include <QApplication>
#include <QtTest/QtTest>
#include <deque>
#include <memory>

#include "app/dialogs/releasing_disk.h"
#include "app/shared/file_dialogs.h"
#include "app/shared/qt_text.h"
#include "app/window/frmPLM.h"
#include "tests/support/recording_disk.h"
#include "tests/support/scripted_player.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

class QListView;

namespace mdlPLM {

/// File dialogs answered from a script; the requests are kept. An unexpected one throws.
class ScriptedDialogs : public FileDialogs {
public:
    FileDialogResult OpenFiles(QWidget* parent, const FileDialogRequest& request) override;
    FileDialogResult SaveFile(QWidget* parent, const FileDialogRequest& request) override;
    Text BrowseForFolder(QWidget* parent, TextView title, TextView initialFolder) override;

    std::deque<FileDialogResult> Results;
    std::deque<Text> Folders;
    std::vector<FileDialogRequest> Requests;

private:
    FileDialogResult Next(const FileDialogRequest& request);
};

class MainWindow {
public:
    MainWindow();
    ~MainWindow();

    /// Makes the window and shows it, from the settings as they stand in Context.Values.
    void Open();
    /// Closes it and makes it again from what it stored.
    void Reopen();

    [[nodiscard]] frmPLM& Window() { return *window_; }
    template <class Control>
    Control& Get(const char* name) {
        auto* control = window_->findChild<Control*>(QLatin1String(name));
        if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }
    [[nodiscard]] QString TextOf(const char* name);
    void SetText(const char* name, const QString& text);
    void Click(const char* button);
    void Trigger(const char* menuEntry);
    /// Lines of a list, as shown.
    [[nodiscard]] QStringList Lines(const char* list);
    [[nodiscard]] QList<int> SelectedRows();
    /// A mouse click on a line, as a user makes it.
    void ClickLine(const char* list, int row, Qt::KeyboardModifiers modifiers = {});
    void Key(const char* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// A drop of these paths, all its events, and waits until the work is over.
    void Drop(const char* list, const std::vector<Text>& paths);
    void DropList(const char* list, const QByteArray& uriList);
    /// Makes every piece of long work take a turn of the event loop of its own.
    void WorkStepByStep();
    /// Until no work is under way.
    void Settle();
    /// Whether work is under way: what would change the list is at rest.
    [[nodiscard]] bool Busy();

    TempFolder Folder;
    ScriptedPrompts Ask;
    ScriptedDialogs Dialogs;
    ScriptedPlayers Players;
    MediaPlayer Player{Players.Factory()};
    RecordingDisk Disk;  ///< the machine's own, which can be made to fail
    ReleasingDisk Files{Disk, Player};
    SettingsStore Store;
    AppContext Context;

private:
    std::unique_ptr<frmPLM> window_;
};

}  // namespace mdlPLM
