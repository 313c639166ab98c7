// The options dialog: how names are cleaned, what happens to sorted files and to tags.
#pragma once

#include <QDialog>
#include <memory>

#include "app/dialogs/replacement_editor.h"

namespace mdlPLM {

namespace Ui {
class frmOptions;
}
struct AppContext;
class ReplacementModel;

class frmOptions : public QDialog {
    Q_OBJECT

public:
    /// Shows the settings in force. OK puts what was chosen into `context`, into the settings store
    /// and into the replacement list's file; every other way of closing changes nothing.
    explicit frmOptions(AppContext& context, QWidget* parent = nullptr);
    ~frmOptions() override;

private:
    void ShowSettings();
    void ShowCaseOption();
    void ConnectHandlers();
    void ShowPair();
    void TakeSettings();
    void SaveReplacementList();

    void cmdOK_Click();
    void cmdAddReplace_Click();
    void cmdRemReplace_Click();
    void cmbReplace_Click(int row);
    void cmbReplace_Change();

    AppContext& context_;
    std::unique_ptr<Ui::frmOptions> ui_;
    ReplacementEditor editor_;
    Replacement entered_;  ///< what the user sees in the two boxes
    ReplacementModel* finds_;
    ReplacementModel* puts_;
};

}  // namespace mdlPLM
