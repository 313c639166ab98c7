#include "app/window/qt_sort_commands.h"

#include <QButtonGroup>

#include "app/list/list_texts.h"
#include "app/shared/file_dialogs.h"
#include "app/shared/qt_enable_with_reason.h"
#include "app/shared/qt_language.h"
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

SortCommands::SortCommands(const WindowParts& parts, ShownFile& shown)
    : parts_(parts), shown_(shown) {
    ConnectControls();
    connect(&shown_, &ShownFile::Changed, this, &SortCommands::ShowTargetDir);
    connect(&parts_.Work, &WorkQueue::Progressed, this, &SortCommands::Sort_Progressed);
    parts_.Controls.txtTargetDir->setText(ToQt(parts_.Context.Values.TargetDir));
    optMethod_Click(parts_.Controls.optMethod->checkedId());
}

void SortCommands::ConnectControls() {
    const Ui::frmPLM& controls = parts_.Controls;
    connect(controls.optMethod, &QButtonGroup::idClicked, this, &SortCommands::optMethod_Click);
    connect(controls.cmdTargetDir, &QPushButton::clicked, this, &SortCommands::cmdTargetDir_Click);
    connect(controls.txtTargetDir, &QLineEdit::textEdited, this,
            &SortCommands::txtTargetDir_Change);
    const auto sortAll = [this] { StartSort(SortStart::All); };
    const auto sortThis = [this] { StartSort(SortStart::ThisFile); };
    connect(controls.cmdSort, &QPushButton::clicked, this, sortAll);
    connect(controls.mnuSort, &QAction::triggered, this, sortAll);
    connect(controls.cmdSortThisFile, &QPushButton::clicked, this, sortThis);
    connect(controls.mnuSortThisFile, &QAction::triggered, this, sortThis);
}

void SortCommands::optMethod_Click(int index) {
    const Ui::frmPLM& controls = parts_.Controls;
    const bool folders = index != Rename;
    for (QWidget* control : std::initializer_list<QWidget*>{
             controls.chkGenre, controls.chkAlphabetical, controls.chkSubFolder,
             controls.txtSubFolder, controls.cmdTargetDir, controls.lblSubFolder,
             controls.lblSubFolderArtist})
        EnableWithReason(*control, folders, tr("Not used while files are renamed."));
    controls.lblTargetDir->setText(folders ? tr("&Target folder:") : tr("File loca&tion:"));
    controls.txtTargetDir->setReadOnly(!folders);
    ShowTargetDir();
    if (folders) controls.txtTargetDir->selectAll();
}

void SortCommands::ShowTargetDir() {
    const bool rename = parts_.Controls.optMethod->checkedId() == Rename;
    const Text shown = rename ? FolderOfPath(shown_.Path()) : parts_.Context.Values.TargetDir;
    parts_.Controls.txtTargetDir->setText(ToQt(shown));
}

void SortCommands::cmdTargetDir_Click() {
    Text& target = parts_.Context.Values.TargetDir;
    const Text chosen = parts_.Context.Dialogs.BrowseForFolder(
        &parts_.Window, u"Please select the target directory:", target);
    if (chosen.empty()) return;
    target = chosen;
    ShowTargetDir();
}

// The setting keeps the target folder also while the box shows a file's own folder.
void SortCommands::txtTargetDir_Change(const QString& text) {
    parts_.Context.Values.TargetDir = FromQt(text);
}

SortChoices SortCommands::Choices() const {
    const Ui::frmPLM& controls = parts_.Controls;
    SortChoices choices;
    choices.Method = static_cast<SortMethod>(controls.optMethod->checkedId());
    choices.Exists = static_cast<IfExists>(controls.optExists->checkedId());
    choices.txtTargetDir = FromQt(controls.txtTargetDir->text());
    choices.chkConvert = controls.chkConvert->isChecked();
    choices.chkGenre = controls.chkGenre->isChecked();
    choices.chkAlphabetical = controls.chkAlphabetical->isChecked();
    choices.chkSubFolder = controls.chkSubFolder->isChecked();
    choices.txtSubFolder = FromQt(controls.txtSubFolder->text());
    choices.OutPattern = parts_.Names.OutPattern();
    choices.txtNewName = FromQt(controls.txtNewName->text());
    choices.Words = UserLanguage();
    return choices;
}

void SortCommands::StartSort(SortStart start) {
    if (parts_.Work.Busy()) return;
    parts_.Status.Say({});
    if (parts_.List.SelectedCount() == 0)
        return parts_.Status.Say(tr("No file is selected, so there is nothing to sort."));
    AppContext& context = parts_.Context;
    const SortChoices choices = Choices();
    if (!CheckTargetFolder(choices, context.Files, context.Ask)) return;
    const Text inPattern = parts_.Names.InPattern();
    auto task = std::make_unique<SortRun>(
        parts_.List, choices, start, NamingContext{context.Values, context.Replacements, inPattern},
        context.Files, ask_);
    sort_ = task.get();
    OpenSorting();
    parts_.Work.Start(
        std::move(task), [this](bool) { Sort_Done(); }, WorkQueue::Pace::StepByStep);
}

void SortCommands::OpenSorting() {
    shown_.Rest(true);  // the run takes its entries out; nothing is shown meanwhile
    delete sorting_;
    sorting_ = new frmSorting(&parts_.Window);
    connect(sorting_, &frmSorting::Ended, this, &SortCommands::frmSorting_Ended);
    focusBefore_ = parts_.Window.focusWidget();
    parts_.Window.setEnabled(false);
    sorting_->setEnabled(true);  // the window above it is disabled, this one is not
    ShowSorting();
    sorting_->show();
    removalsShown_.start();
}

void SortCommands::frmSorting_Ended() {
    parts_.Window.setEnabled(true);
    sorting_->deleteLater();
    if (sort_ == nullptr) return;
    parts_.Work.Stop();
    parts_.Counter.Show(tr("0 files"));
}

void SortCommands::Sort_Progressed() {
    if (sort_ == nullptr) return;
    if (labelsShown_.elapsed() >= LabelsEvery) ShowSorting();
    if (removalsShown_.elapsed() < RemovalsEvery) return;
    sort_->FlushRemovals();
    removalsShown_.start();
}

void SortCommands::ShowSorting() {
    if (sorting_ != nullptr) sorting_->ShowProgress(sort_->Progress());
    labelsShown_.start();
}

void SortCommands::HideProgress() {
    if (sorting_ != nullptr) sorting_->hide();
}

void SortCommands::Sort_Done() {
    const auto report = std::make_shared<const RunReport>(sort_->Report());
    SelectNext();
    sort_ = nullptr;
    shown_.Rest(false);
    parts_.Window.setEnabled(true);
    if (focusBefore_ != nullptr) focusBefore_->setFocus();
    shown_.Blank();
    parts_.Counter.Update();
    if (parts_.List.SelectedCount() >= 2) shown_.ShowSelection(ChangedBy::Program);
    CloseSorting(report->Cancelled.has_value());
    Report(report);
}

// What stayed is still selected; else the entry that took the last one's place is.
void SortCommands::SelectNext() {
    const FileList::Index next = sort_->NextRow();
    if (parts_.List.SelectedCount() == 0 && next < parts_.List.Count())
        parts_.List.SelectOnly(next);
    parts_.Selection.SetCurrentRow(static_cast<int>(next));
}

void SortCommands::CloseSorting(bool cancelled) {
    if (sorting_ == nullptr) return;
    if (cancelled) return sorting_->ShowDone();
    sorting_->hide();
    sorting_->deleteLater();
}

void SortCommands::Report(std::shared_ptr<const RunReport> report) {
    const Language words = UserLanguage();
    const CommandEnd end = report->Broken() ? CommandEnd::Stopped : CommandEnd::Reached;
    const Text failures = FailureText(*report, SortWording, words);
    parts_.Status.Say(ToQt(RunStatus(SummaryText(*report, SortWording, words), end, words)),
                      [report, words] { return DetailsText(*report, SortWording, words); });
    if (!failures.empty()) parts_.Context.Ask.Critical({u"PLM", failures, {}});
}

}  // namespace mdlPLM
