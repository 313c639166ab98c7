#include "app/window/qt_preview.h"

#include <QFocusEvent>
#include <algorithm>
#include <utility>

#include "app/dialogs/frmEdit.h"
#include "app/list/qt_file_list_view.h"
#include "app/shared/qt_language.h"
#include "app/window/preview_rows.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

Preview::Preview(const WindowParts& parts, ShownFile& shown) : parts_(parts), shown_(shown) {
    const Ui::frmPLM& controls = parts_.Controls;
    controls.cmbOutPattern->installEventFilter(this);  // it has the focus of its line edit
    connect(controls.cmbOutPattern, &QComboBox::currentTextChanged, this,
            &Preview::cmbOutPattern_Change);
    connect(controls.chkPreview, &QCheckBox::toggled, this, &Preview::chkPreview_Click);
    connect(controls.lstPreview, &FileListView::LineOpened, this, &Preview::EditNewName);
    connect(controls.mnuEditName, &QAction::triggered, this,
            [this] { EditNewName(parts_.Selection.CurrentRow()); });
    ShowList();
}

void Preview::ShowList() {
    const bool shown = parts_.Names.PreviewShown();
    parts_.Controls.wgtPreview->setVisible(shown);
    parts_.Controls.mnuEditName->setEnabled(shown && !parts_.Work.Busy());
}

void Preview::Rest(bool rest) {
    ShowList();
    const bool names = dynamic_cast<const NamesTask*>(parts_.Work.Current()) != nullptr;
    parts_.Controls.chkPreview->setEnabled(!rest || names);
}

void Preview::Compute(std::vector<FileList::Index> rows) {
    parts_.Work.Start(std::make_unique<NamesTask>(parts_.List, parts_.Names.Maker(),
                                                  std::move(rows), UserLanguage()),
                      [this](bool stopped) { NamesComputed(stopped); });
}

// Lines that were computed before: the name box of the shown file follows them.
void Preview::Recompute(std::vector<FileList::Index> rows) {
    auto task =
        std::make_unique<NamesTask>(parts_.List, parts_.Names.Maker(), rows, UserLanguage());
    parts_.Work.Start(std::move(task), [this, rows = std::move(rows)](bool stopped) {
        NamesComputed(stopped);
        ShowComputed(rows);
    });
}

void Preview::NamesComputed(bool stopped) {
    if (stopped) parts_.Status.Say(tr("Stopped. The other new names are not computed."));
}

void Preview::ShowComputed(const std::vector<FileList::Index>& rows) {
    const std::optional<FileList::Index> shown = shown_.Row();
    if (shown && std::binary_search(rows.begin(), rows.end(), *shown)) shown_.ShowNameOf(*shown);
}

void Preview::Renew(std::vector<FileList::Index> rows) {
    if (parts_.Names.PreviewShown()) Recompute(RowsToRenew(parts_.List, std::move(rows)));
}

void Preview::RenewAll() {
    const std::optional<FileList::Index> shown = shown_.Row();
    if (shown && parts_.List.NewName(*shown).empty()) shown_.ShowNewName();
    Renew(AllRows(parts_.List));
}

void Preview::chkPreview_Click() {
    ShowList();
    parts_.Status.Say({});
    if (parts_.Names.PreviewShown()) return Compute(AllRows(parts_.List));
    parts_.Work.Stop();  // the computing of names: during other work the box is at rest
    parts_.List.ClearNewNames();
}

bool Preview::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            cmbOutPattern_Validate();
    }
    return QObject::eventFilter(watched, event);
}

void Preview::cmbOutPattern_Validate() {
    // The box is left because it cannot be used now.
    if (parts_.Work.Busy() || !parts_.Controls.cmbOutPattern->isEnabled()) return;
    if (!std::exchange(outPatternEdited_, false) || !parts_.Names.PreviewShown()) return;
    // Asked when the focus has arrived: a box in the midst of its way would hold it up. Meant are
    // the files that are selected now: the click that leaves the box may select others.
    const auto ask = [this, rows = parts_.List.SelectedRows()] { AskToApplyPattern(rows); };
    QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
}

void Preview::AskToApplyPattern(std::vector<FileList::Index> rows) {
    const Message question{{},
                           u"The output pattern has been changed." + Text(CrLf) +
                               u"Would you like to apply the new pattern to selected files?",
                           {}};
    if (parts_.Context.Ask.AskYesNo(question) != Answer::Yes) return;
    Recompute(RowsThatExist(parts_.List, std::move(rows)));
}

void Preview::EditNewName(int row) {
    if (row < 0 || !parts_.Names.PreviewShown() || parts_.Work.Busy()) return;
    const auto line = static_cast<FileList::Index>(row);
    const std::optional<Text> name = frmEdit::EditName(&parts_.Window, parts_.List.NewName(line));
    if (!name) return;
    parts_.List.EditNewName(line, *name);
    if (shown_.Row() == line) shown_.ShowName(*name);
}

}  // namespace mdlPLM
