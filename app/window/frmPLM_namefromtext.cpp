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
                      [this] { player_.Stop(); }});
    connect(ui_->cmdNameFromFile, &QPushButton::clicked, this, &frmPLM::cmdNameFromFile_Click);
    connect(ui_->mnuNameFromFile, &QAction::triggered, this, &frmPLM::cmdNameFromFile_Click);
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
