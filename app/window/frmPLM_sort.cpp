// frmPLM: files are sorted.
#include <QButtonGroup>
#include <QElapsedTimer>
#include <QLineEdit>

#include "app/shared/file_dialogs.h"
#include "app/shared/qt_enable_with_reason.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"
#include "app/sort/sort_engine.h"
#include "app/window/frmPLM.h"
#include "app/window/frmSorting.h"
#include "core/platform/path.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

namespace {

constexpr int Rename = static_cast<int>(SortMethod::Rename);
/// The list is shown without what has been sorted so far this often (milliseconds).
constexpr qint64 RemovalsEvery = 500;
/// The labels follow as fast as an eye does (milliseconds).
constexpr qint64 LabelsEvery = 40;

}  // namespace

void frmPLM::ConnectSort() {
    connect(ui_->optMethod, &QButtonGroup::idClicked, this, &frmPLM::optMethod_Click);
    connect(ui_->cmdTargetDir, &QPushButton::clicked, this, &frmPLM::cmdTargetDir_Click);
    connect(ui_->txtTargetDir, &QLineEdit::textEdited, this,
            [this](const QString& text) { targetDir_ = FromQt(text); });
    const auto sortAll = [this] { StartSort(SortStart::All); };
    const auto sortThis = [this] { StartSort(SortStart::ThisFile); };
    connect(ui_->cmdSort, &QPushButton::clicked, this, sortAll);
    connect(ui_->mnuSort, &QAction::triggered, this, sortAll);
    connect(ui_->cmdSortThisFile, &QPushButton::clicked, this, sortThis);
    connect(ui_->mnuSortThisFile, &QAction::triggered, this, sortThis);
}

void frmPLM::optMethod_Click(int index) {
    const bool folders = index != Rename;
    for (QWidget* control : std::initializer_list<QWidget*>{
             ui_->chkGenre, ui_->chkAlphabetical, ui_->chkSubFolder, ui_->txtSubFolder,
             ui_->cmdTargetDir, ui_->lblSubFolder, ui_->lblSubFolderArtist})
        EnableWithReason(*control, folders, tr("Not used while files are renamed."));
    ui_->lblTargetDir->setText(folders ? tr("&Target folder:") : tr("File loca&tion:"));
    ui_->txtTargetDir->setReadOnly(!folders);
    ShowTargetDir();
    if (folders) ui_->txtTargetDir->selectAll();
}

void frmPLM::ShowTargetDir() {
    const bool rename = ui_->optMethod->checkedId() == Rename;
    const Text shown = rename ? FolderOfPath(shownPath_) : targetDir_;
    ui_->txtTargetDir->setText(ToQt(shown));
}

void frmPLM::cmdTargetDir_Click() {
    const Text chosen =
        context_.Dialogs.BrowseForFolder(this, u"Please select the target directory:", targetDir_);
    if (chosen.empty()) return;
    targetDir_ = chosen;
    ShowTargetDir();
}

SortChoices frmPLM::Choices() const {
    SortChoices choices;
    choices.Method = static_cast<SortMethod>(ui_->optMethod->checkedId());
    choices.Exists = static_cast<IfExists>(ui_->optExists->checkedId());
    choices.txtTargetDir = FromQt(ui_->txtTargetDir->text());
    choices.chkConvert = ui_->chkConvert->isChecked();
    choices.chkGenre = ui_->chkGenre->isChecked();
    choices.chkAlphabetical = ui_->chkAlphabetical->isChecked();
    choices.chkSubFolder = ui_->chkSubFolder->isChecked();
    choices.txtSubFolder = FromQt(ui_->txtSubFolder->text());
    choices.OutPattern = OutPattern();
    choices.txtNewName = FromQt(ui_->txtNewName->text());
    choices.Words = UserLanguage();
    return choices;
}

void frmPLM::StartSort(SortStart start) {
    if (work_.Busy()) return;
    SetStatus({});
    if (list_.SelectedCount() == 0)
        return SetStatus(tr("No file is selected, so there is nothing to sort."));
    const SortChoices choices = Choices();
    if (!CheckTargetFolder(choices, context_.Files, context_.Ask)) return;
    const Text inPattern = InPattern();
    auto task = std::make_unique<SortRun>(
        list_, choices, start, NamingContext{context_.Values, context_.Replacements, inPattern},
        context_.Files, sortAsk_);
    sort_ = task.get();
    OpenSorting();
    work_.Start(
        std::move(task), [this](bool) { Sort_Done(); }, WorkQueue::Pace::StepByStep);
}

void frmPLM::OpenSorting() {
    delete sorting_;
    sorting_ = new frmSorting(this);
    connect(sorting_, &frmSorting::Ended, this, &frmPLM::frmSorting_Ended);
    focusBeforeRun_ = focusWidget();
    setEnabled(false);
    sorting_->setEnabled(true);  // the window above it is disabled, this one is not
    ShowSorting();
    sorting_->show();
    removalsShown_.start();
}

void frmPLM::frmSorting_Ended() {
    setEnabled(true);
    sorting_->deleteLater();
    if (sort_ == nullptr) return;
    work_.Stop();
    ui_->lblFiles->setText(tr("0 files"));
}

void frmPLM::Sort_Progressed() {
    if (labelsShown_.elapsed() >= LabelsEvery) ShowSorting();
    if (removalsShown_.elapsed() >= RemovalsEvery) {
        sort_->FlushRemovals();
        removalsShown_.start();
    }
}

void frmPLM::ShowSorting() {
    if (sorting_ != nullptr) sorting_->ShowProgress(sort_->Progress());
    labelsShown_.start();
}

void frmPLM::Sort_Done() {
    const auto whole = std::make_shared<const RunReport>(sort_->Report());
    const RunReport& report = *whole;
    const FileList::Index next = sort_->NextRow();
    // What stayed is still selected; else the entry that took the last one's place is.
    if (list_.SelectedCount() == 0 && next < list_.Count()) list_.SelectOnly(next);
    selection_.SetCurrentRow(static_cast<int>(next));
    sort_ = nullptr;
    setEnabled(true);
    if (focusBeforeRun_ != nullptr) focusBeforeRun_->setFocus();
    ResetFileView();
    if (MultipleSelection()) Selection_Changed(false);
    if (sorting_ != nullptr && report.Cancelled) {
        sorting_->ShowDone();
    } else if (sorting_ != nullptr) {
        sorting_->hide();
        sorting_->deleteLater();
    }
    const Language words = UserLanguage();
    SetStatus(RunStatus(ToQt(SummaryText(report, SortWording, words)), report.Broken()),
              [whole, words] { return DetailsText(*whole, SortWording, words); });
    const Text failures = FailureText(report, SortWording, words);
    if (!failures.empty()) context_.Ask.Critical({u"PLM", failures, {}});
}

}  // namespace mdlPLM
