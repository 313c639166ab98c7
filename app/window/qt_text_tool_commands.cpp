#include "app/window/qt_text_tool_commands.h"

#include <QButtonGroup>

#include "app/namefromtext/frmNameFromFile.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

TextToolCommands::TextToolCommands(const WindowParts& parts, CommandControls& controls,
                                   MediaPlayer& player)
    : parts_(parts), controls_(controls), player_(player), host_(parts.Context, HostControls()) {
    connect(parts_.Controls.cmdNameFromFile, &QPushButton::clicked, this,
            &TextToolCommands::cmdNameFromFile_Click);
    connect(parts_.Controls.mnuNameFromFile, &QAction::triggered, this,
            &TextToolCommands::cmdNameFromFile_Click);
}

TextToolCommands::~TextToolCommands() = default;

TextToolHost::Controls TextToolCommands::HostControls() {
    const Ui::frmPLM& controls = parts_.Controls;
    return {[this] { return parts_.Names.InPattern(); },
            [this] { return parts_.Names.OutPattern(); },
            [&controls] { return controls.chkConvert->isChecked(); },
            [&controls] { return static_cast<IfExists>(controls.optExists->checkedId()); },
            [this] { TextRun_Begins(); },
            [this] { TextRun_Ends(); }};
}

// One window at a time; closed, it is made anew with the patterns of that moment.
void TextToolCommands::cmdNameFromFile_Click() {
    if (window_ == nullptr || !window_->isVisible())
        window_ = std::make_unique<frmNameFromFile>(parts_.Context, host_, &parts_.Window);
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void TextToolCommands::Rest(bool rest) {
    if (window_ != nullptr) window_->RestRenaming(rest);
}

bool TextToolCommands::Close() {
    return window_ == nullptr || !window_->isVisible() || window_->close();
}

// Two runs at once would write into the same files, and a choice made meanwhile would look as if it
// held for the run.
void TextToolCommands::TextRun_Begins() {
    player_.Stop();
    focusBefore_ = parts_.Window.focusWidget();
    controls_.Rest(true);
    parts_.Window.setEnabled(false);
    window_->setEnabled(true);  // the window above it is disabled, this one is not
}

void TextToolCommands::TextRun_Ends() {
    parts_.Window.setEnabled(true);
    controls_.Rest(false);
    if (focusBefore_ != nullptr) focusBefore_->setFocus();
}

}  // namespace mdlPLM
