// Dropped files, and the run that renames and tags.
#include <QPushButton>

#include "app/list/list_texts.h"
#include "app/namefromtext/frmNameFromFile.h"
#include "app/namefromtext/qt_gather_task.h"
#include "app/namefromtext/qt_pair_lists.h"
#include "app/namefromtext/qt_rename_task.h"
#include "app/shared/app_context.h"
#include "app/shared/name_from_text_host.h"
#include "app/shared/qt_enable_with_reason.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_left_overs_text.h"
#include "app/shared/qt_text.h"
#include "ui_frmNameFromFile.h"

namespace mdlPLM {

// What came together goes into its list in one go: a list lays all its rows out after each change.
void frmNameFromFile::GatherDropped(std::vector<Text> dropped) {
    if (work_.Busy()) return;
    BeginWork();
    auto task = std::make_unique<GatherTask>(FromQt(tr("Looking for files...")),
                                             host_.GatherFiles(std::move(dropped)));
    const GatherTask& gathering = *task;
    work_.Start(std::move(task), [this, &gathering](bool stopped) {
        lists_->AddFiles(gathering.Files());
        EndWork(stopped ? tr("Stopped.") : QString());
    });
}

RunChoices frmNameFromFile::ReadRunChoices() const {
    RunChoices choices;
    choices.chkSaveID3v1 = ui_->chkSaveID3v1->isChecked();
    choices.chkSaveID3v2 = ui_->chkSaveID3v2->isChecked();
    choices.chkConvert = host_.chkConvert();
    choices.Exists = host_.ExistsChoice();
    choices.Words = UserLanguage();
    RunTagChoices& tags = choices.Tags;
    tags.chkArtist4All = ui_->chkArtist4All->isChecked();
    tags.chkAlbum4All = ui_->chkAlbum4All->isChecked();
    tags.chkYear4All = ui_->chkYear4All->isChecked();
    tags.chkGenre4All = ui_->chkGenre4All->isChecked();
    tags.chkRelease4All = ui_->chkRelease4All->isChecked();
    tags.txtArtist = FromQt(ui_->txtArtist->text());
    tags.txtAlbum = FromQt(ui_->txtAlbum->text());
    tags.txtYear = FromQt(ui_->txtYear->text());
    tags.cmbGenre = FromQt(ui_->cmbGenre->currentText());
    tags.txtReleaseDate = FromQt(ui_->txtReleaseDate->text());
    tags.OutPattern = FromQt(ui_->cmbOutPattern->currentText());
    return choices;
}

std::vector<RenamePair> frmNameFromFile::Pairs() const {
    const NamePairs& lists = lists_->Pairs();
    std::vector<RenamePair> pairs;
    for (std::size_t i = 0; i < lists.Pairs(); ++i)
        pairs.push_back({lists.OldFiles()[i].Path, lists.NewNames()[i]});
    return pairs;
}

void frmNameFromFile::RestRenaming(bool rest) {
    EnableWithReason(*ui_->cmdRenameFiles, !rest, tr("Not while the main window works."));
}

void frmNameFromFile::cmdRenameFiles_Click() {
    const NamePairs& lists = lists_->Pairs();
    if (!MayRename(lists.OldFiles().size(), lists.NewNames().size(), context_.Ask)) return;
    auto run = std::make_unique<RenameRun>(Pairs(), ReadRunChoices(), context_.Values,
                                           context_.Files, context_.Ask);
    renaming_ = true;
    BeginWork();
    EnableControls(false);
    auto task = std::make_unique<RenameTask>(std::move(run), host_.OpenProgress(this));
    const RenameTask& renaming = *task;
    work_.Start(
        std::move(task), [this, &renaming](bool) { EndRun(renaming.Renamed()); },
        WorkQueue::Pace::StepByStepLater);
}

void frmNameFromFile::EndRun(const RenameReport& report) {
    renaming_ = false;
    if (report.Completed) ClearAfterRun();
    failures_ = report.Failures;
    const Language words = UserLanguage();
    const CommandEnd end = report.Completed ? CommandEnd::Reached : CommandEnd::Stopped;
    EndWork(
        WithRemovedLeftOvers(ToQt(RunStatus(SummaryText(report, words), end, words)), context_));
    cmdDetails_->setVisible(!failures_.empty());
}

// The genre and its check box stay as they are.
void frmNameFromFile::ClearAfterRun() {
    lists_->Clear();
    ui_->txtSourceText->ClearText();
    for (QLineEdit* box : {ui_->txtAlbum, ui_->txtArtist, ui_->txtReleaseDate, ui_->txtYear})
        box->clear();
    for (QCheckBox* box :
         {ui_->chkIgnoreFirst, ui_->chkIgnoreLast, ui_->chkAlbum4All, ui_->chkArtist4All,
          ui_->chkRelease4All, ui_->chkYear4All, ui_->chkSaveID3v1, ui_->chkSaveID3v2})
        box->setChecked(false);
}

void frmNameFromFile::cmdDetails_Click() {
    Text lines;
    for (const RunFailure& failure : failures_)
        lines += failure.Path + u": " + Replace(failure.Reason, CrLf, u" ") + Text(CrLf);
    context_.Ask.Inform({{}, lines, {}});
}

}  // namespace mdlPLM
