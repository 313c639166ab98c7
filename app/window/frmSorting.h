// The progress window of a sort: what is being done, how far it is, and the button that ends it.
#pragma once

#include <QDialog>
#include <memory>

#include "app/sort/sort_engine.h"

namespace mdlPLM {

namespace Ui {
class frmSorting;
}

class frmSorting : public QDialog {
    Q_OBJECT

public:
    explicit frmSorting(QWidget* parent = nullptr);
    ~frmSorting() override;

    void ShowProgress(const RunProgress& progress);
    /// The sort was cancelled from a question: the button says "Done!".
    void ShowDone();

    /// Closing the window by any means is pressing its button.
    void reject() override;

signals:
    /// The button was pressed, or the window was closed. Once.
    void Ended();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void cmdPause_Click();

    std::unique_ptr<Ui::frmSorting> ui_;
    bool ended_ = false;
};

}  // namespace mdlPLM
