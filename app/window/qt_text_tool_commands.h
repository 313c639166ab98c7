// The name-from-text window, opened from the main window.
#pragma once

#include <QPointer>
#include <memory>

#include "app/dialogs/player.h"
#include "app/window/qt_command_controls.h"
#include "app/window/qt_text_tool_host.h"
#include "app/window/qt_window_parts.h"

namespace mdlPLM {

class frmNameFromFile;

class TextToolCommands : public QObject {
    Q_OBJECT

public:
    TextToolCommands(const WindowParts& parts, CommandControls& controls, MediaPlayer& player);
    ~TextToolCommands() override;

    /// Its runs rest while the main window works.
    void Rest(bool rest);
    /// False when it has to stay: a run has to end well first, or its question to be answered.
    bool Close();

private:
    [[nodiscard]] TextToolHost::Controls HostControls();
    void cmdNameFromFile_Click();
    void TextRun_Begins();
    void TextRun_Ends();

    WindowParts parts_;
    CommandControls& controls_;
    MediaPlayer& player_;
    TextToolHost host_;
    QPointer<QWidget> focusBefore_;
    std::unique_ptr<frmNameFromFile> window_;  // last: a run under way ends with it
};

}  // namespace mdlPLM
