// frmPLM: names are made, and the shown file with its old and its new name.
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <algorithm>
#include <numeric>

#include "app/dialogs/frmEdit.h"
#include "app/dialogs/frmOptions.h"
#include "app/shared/qt_box_text.h"
#include "app/shared/qt_entry_filter.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_prompts.h"
#include "app/shared/qt_text.h"
#include "app/tags/frmPLM_tagpanel.h"
#include "app/window/frmPLM.h"
#include "core/names/fix_file_name.h"
#include "core/platform/path.h"
#include "core/settings/user_lists.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

void frmPLM::SetUpPatterns() {
    for (const Text& pattern : LoadInPatterns(context_.ListsFolder))
        ui_->cmbInPattern->addItem(ToQt(pattern));
    for (const Text& pattern : LoadOutPatterns(context_.ListsFolder))
        ui_->cmbOutPattern->addItem(ToQt(pattern));
    for (QComboBox* box : {ui_->cmbInPattern, ui_->cmbOutPattern}) {
        box->setCompleter(nullptr);  // a pattern that begins like another one is not that one
        box->setCurrentIndex(-1);    // the pattern in force need not be one of the list
    }
    FilterEntry(*ui_->cmbInPattern->lineEdit(), IsForbiddenInInPattern);
    FilterEntry(*ui_->cmbOutPattern->lineEdit(), IsForbiddenInOutPattern);
    FilterEntry(*ui_->txtNewName);
    ui_->cmbOutPattern->installEventFilter(this);  // it has the focus of its line edit
}

void frmPLM::ConnectNames() {
    connect(ui_->cmbInPattern, &QComboBox::currentTextChanged, this, &frmPLM::ShowComputedName);
    connect(ui_->cmbOutPattern, &QComboBox::currentTextChanged, this,
            &frmPLM::cmbOutPattern_Change);
    connect(ui_->chkPreview, &QCheckBox::toggled, this, &frmPLM::chkPreview_Click);
    connect(&selection_, &FileSelection::Changed, this, &frmPLM::Selection_Changed);
    for (FileListView* view : {ui_->lstFiles, ui_->lstPreview})
        connect(view, &QListView::clicked, this, &frmPLM::List_Clicked);
    connect(ui_->lstPreview, &FileListView::LineOpened, this, &frmPLM::EditNewName);
    connect(ui_->mnuEditName, &QAction::triggered, this,
            [this] { EditNewName(selection_.CurrentRow()); });
    ShowPreviewList();
}

void frmPLM::ShowPreviewList() {
    ui_->wgtPreview->setVisible(PreviewShown());
    ui_->mnuEditName->setEnabled(PreviewShown() && !work_.Busy());
}

Text frmPLM::InPattern() const { return FromQt(ui_->cmbInPattern->currentText()); }

Text frmPLM::OutPattern() const { return FromQt(ui_->cmbOutPattern->currentText()); }

bool frmPLM::PreviewShown() const { return ui_->chkPreview->isChecked(); }

NameMaker frmPLM::Maker() const {
    const Text inPattern = InPattern();
    return {{context_.Values, context_.Replacements, inPattern}, OutPattern()};
}

void frmPLM::ComputeNames(std::vector<FileList::Index> rows) {
    work_.Start(std::make_unique<NamesTask>(list_, Maker(), std::move(rows), UserLanguage()),
                [this](bool stopped) { NamesComputed(stopped); });
}

void frmPLM::RecomputeNames(std::vector<FileList::Index> rows) {
    auto task = std::make_unique<NamesTask>(list_, Maker(), rows, UserLanguage());
    work_.Start(std::move(task), [this, rows = std::move(rows)](bool stopped) {
        NamesComputed(stopped);
        const int shown = ShownRow();
        if (shown < 0) return;
        const auto row = static_cast<FileList::Index>(shown);
        if (std::binary_search(rows.begin(), rows.end(), row)) ShowNameOf(row);
    });
}

void frmPLM::NamesComputed(bool stopped) {
    if (stopped) SetStatus(tr("Stopped. The other new names are not computed."));
}

void frmPLM::chkPreview_Click() {
    ShowPreviewList();
    SetStatus({});
    if (!PreviewShown()) {
        work_.Stop();  // the computing of names: during other work the box is at rest
        return list_.ClearNewNames();
    }
    std::vector<FileList::Index> rows(list_.Count());
    std::iota(rows.begin(), rows.end(), FileList::Index{0});
    ComputeNames(std::move(rows));
}

bool frmPLM::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->cmdOpenMP3) {
        if (event->type() == QEvent::MouseMove) cmdOpenMP3_MouseMove();
    } else if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            cmbOutPattern_Validate();
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmPLM::cmbOutPattern_Change() {
    outPatternEdited_ = true;
    ShowComputedName();
}

void frmPLM::cmbOutPattern_Validate() {
    // The box is left because it cannot be used now.
    if (work_.Busy() || sort_ != nullptr || textRun_) return;
    if (!std::exchange(outPatternEdited_, false) || !PreviewShown()) return;
    // Asked when the focus has arrived: a box in the midst of its way would hold it up. Meant are
    // the files that are selected now: the click that leaves the box may select others.
    const auto ask = [this, rows = list_.SelectedRows()] { AskToApplyPattern(rows); };
    QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
}

void frmPLM::AskToApplyPattern(std::vector<FileList::Index> rows) {
    const Message question{{},
                           u"The output pattern has been changed." + Text(CrLf) +
                               u"Would you like to apply the new pattern to selected files?",
                           {}};
    if (context_.Ask.AskYesNo(question) != Answer::Yes) return;
    rows.erase(std::lower_bound(rows.begin(), rows.end(), list_.Count()), rows.end());
    RecomputeNames(std::move(rows));
}

void frmPLM::Selection_Changed(bool byView) {
    if (sort_ != nullptr) return;  // the run takes its entries out; nothing is shown meanwhile
    if (list_.SelectedCount() == 1) return ShowFile(list_.SelectedRanges().front().first);
    const int current = selection_.CurrentRow();
    // A click that takes the last selected entry out still shows the entry that was clicked.
    if (byView && list_.SelectedCount() == 0 && current >= 0)
        return ShowFile(static_cast<FileList::Index>(current));
    BlankPanel();
    if (MultipleSelection()) tags_->ShowBatch();
    shownCurrent_ = true;
}

void frmPLM::List_Clicked() {
    if (!shownCurrent_) Selection_Changed(true);
}

void frmPLM::ShowFile(FileList::Index row) {
    shownPath_ = list_.Path(row);
    shownCurrent_ = true;
    BoxErrors errors(context_.Ask);
    tags_->ShowFile(shownPath_, errors);
    SetBoxText(*ui_->txtOldName, ToQt(FileNameOfPath(shownPath_)));
    ShowNameOf(row);
    ShowTargetDir();
}

int frmPLM::ShownRow() const {
    const auto shows = [this](int row) {
        return row >= 0 && list_.Path(static_cast<FileList::Index>(row)) == shownPath_;
    };
    const int row = list_.SelectedCount() == 1
                        ? static_cast<int>(list_.SelectedRanges().front().first)
                        : selection_.CurrentRow();
    return shows(row) ? row : -1;
}

void frmPLM::ShowNameOf(FileList::Index row) {
    const Text& computed = list_.NewName(row);
    if (PreviewShown() && !computed.empty())
        SetBoxText(*ui_->txtNewName, ToQt(computed));
    else
        ShowNewName();
}

void frmPLM::ShowNewName() {
    const TagPanel& panel = tags_->Panel();
    if (!panel.ReadingFault().Ok()) return ui_->txtNewName->clear();
    const Text inPattern = InPattern();
    const NamingContext naming{context_.Values, context_.Replacements, inPattern};
    SetBoxText(*ui_->txtNewName,
               ToQt(FixFileName2(shownPath_, OutPattern(), panel.Boxes(), naming)));
}

void frmPLM::ShowComputedName() {
    if (!shownPath_.empty() && !PreviewShown()) ShowNewName();
}

void frmPLM::EditNewName(int row) {
    if (row < 0 || !PreviewShown() || work_.Busy()) return;
    const auto line = static_cast<FileList::Index>(row);
    const std::optional<Text> name = frmEdit::EditName(this, list_.NewName(line));
    if (!name) return;
    list_.EditNewName(line, *name);
    if (ShownRow() == row) SetBoxText(*ui_->txtNewName, ToQt(*name));
}

void frmPLM::cmdOptions_Click() {
    frmOptions options(context_, this);
    if (options.exec() != QDialog::Accepted) return;
    const int shown = ShownRow();
    if (shown >= 0 && list_.NewName(static_cast<FileList::Index>(shown)).empty()) ShowNewName();
    std::vector<FileList::Index> rows(list_.Count());
    std::iota(rows.begin(), rows.end(), FileList::Index{0});
    RenewNames(std::move(rows));
}

Text frmPLM::CurrentPath() const {
    const int row = selection_.CurrentRow();
    return row < 0 ? Text() : list_.Path(static_cast<FileList::Index>(row));
}

void frmPLM::BlankPanel() {
    shownPath_.clear();
    shownCurrent_ = false;
    tags_->Clear();
    ui_->txtOldName->clear();
    ui_->txtNewName->clear();
    ShowTargetDir();
}

}  // namespace mdlPLM
