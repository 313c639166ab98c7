// "Edit Fixed Filename": one computed name, edited by hand.
#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "core/text/text.h"

namespace mdlPLM {

namespace Ui {
class frmEdit;
}

class frmEdit : public QDialog {
    Q_OBJECT

public:
    explicit frmEdit(TextView name, QWidget* parent = nullptr);
    ~frmEdit() override;

    /// Opens the dialog over `parent` and waits for it. The name as the user left it; nothing when
    /// the user cancelled.
    static std::optional<Text> EditName(QWidget* parent, TextView name);

    /// What stands in txtFixedName.
    [[nodiscard]] Text FixedName() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    Q_INVOKABLE void txtReplace_GotFocus();
    void cmdReplace_Click();

    std::unique_ptr<Ui::frmEdit> ui_;
};

}  // namespace mdlPLM
