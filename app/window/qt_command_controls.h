// The buttons and menu entries of the main window's commands: their icons, and which of them rest
// while work is under way.
#pragma once

#include <QPointer>
#include <QWidget>

namespace mdlPLM {

namespace Ui {
class frmPLM;
}
class frmPLM_tagpanel;

class CommandControls {
public:
    /// All three outlive it.
    CommandControls(QWidget& window, const Ui::frmPLM& controls, frmPLM_tagpanel& tags);

    /// Rests what would change the list, or needs it to stand still; or lets it be used again.
    void Rest(bool rest);

private:
    void SetIcons();

    QWidget& window_;
    const Ui::frmPLM& controls_;
    frmPLM_tagpanel& tags_;
    QPointer<QWidget> focusBefore_;
    QPointer<QWidget> focusPassedOn_;
};

}  // namespace mdlPLM
