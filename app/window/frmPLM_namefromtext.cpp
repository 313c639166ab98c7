// The name-from-text window, opened from the main window.
#include <QButtonGroup>
#include <memory>

#include "app/namefromtext/frmNameFromFile.h"
#include "app/window/frmPLM.h"
#include "app/window/qt_text_tool_host.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

void frmPLM::ConnectNameFromFile() {
    textHost_ = std::make_unique<TextToolHost>(
        context_, TextToolHost::Controls{
                      [this] { return InPattern(); }, [this] { return OutPattern(); },
                      [this] { return ui_->chkConvert->isChecked(); },
                      [this] { return static_cast<IfExists>(ui_->optExists->checkedId()); },
                      [this] { TextRun_Begins(); }, [this] { TextRun_Ends(); }});
    connect(ui_->cmdNameFromFile, &QPushButton::clicked, this, &frmPLM::cmdNameFromFile_Click);
    connect(ui_->mnuNameFromFile, &QAction::triggered, this, &frmPLM::cmdNameFromFile_Click);
}

// Two runs at once would write into the same files, and a choice made meanwhile would look as if it
// held for the run.
void frmPLM::TextRun_Begins() {
    player_.Stop();
    textRun_ = true;
    focusBeforeRun_ = focusWidget();
    RestControls(true);
    setEnabled(false);
    textTool_->setEnabled(true);  // the window above it is disabled, this one is not
}

void frmPLM::TextRun_Ends() {
    setEnabled(true);
    RestControls(false);
    textRun_ = false;
    if (focusBeforeRun_ != nullptr) focusBeforeRun_->setFocus();
}

// One window at a time; closed, it is made anew with the patterns of that moment.
void frmPLM::cmdNameFromFile_Click() {
    if (textTool_ == nullptr || !textTool_->isVisible())
        textTool_ = std::make_unique<frmNameFromFile>(context_, *textHost_, this);
    textTool_->show();
    textTool_->raise();
    textTool_->activateWindow();
}

}  // namespace mdlPLM
