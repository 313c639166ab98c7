// The new names of the listed files: when they are computed, and what is edited by hand.
#pragma once

#include "app/window/qt_shown_file.h"

namespace mdlPLM {

class Preview : public QObject {
    Q_OBJECT

public:
    Preview(const WindowParts& parts, ShownFile& shown);

    /// Computes the names of these rows anew, as RowsToRenew chooses them.
    void Renew(std::vector<FileList::Index> rows);
    /// What names are made from has changed.
    void RenewAll();
    /// Only its own work can be ended by hiding the names.
    void Rest(bool rest);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowList();
    void Compute(std::vector<FileList::Index> rows);
    void Recompute(std::vector<FileList::Index> rows);
    void NamesComputed(bool stopped);
    void ShowComputed(const std::vector<FileList::Index>& rows);
    void chkPreview_Click();
    void cmbOutPattern_Change() { outPatternEdited_ = true; }
    void cmbOutPattern_Validate();
    void AskToApplyPattern(std::vector<FileList::Index> rows);
    void EditNewName(int row);

    WindowParts parts_;
    ShownFile& shown_;
    bool outPatternEdited_ = false;
};

}  // namespace mdlPLM
