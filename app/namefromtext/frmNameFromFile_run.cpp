// The two lists and the run that renames and tags.
#include <QPushButton>

#include "app/namefromtext/frmNameFromFile.h"
#include "app/namefromtext/qt_pair_column.h"
#include "app/namefromtext/qt_sliced_work.h"
#include "app/shared/app_context.h"
#include "app/shared/file_dialogs.h"
#include "app/shared/name_from_text_host.h"
#include "app/shared/qt_enable_with_reason.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"
#include "core/platform/path.h"
#include "ui_frmNameFromFile.h"

namespace mdlPLM {

void frmNameFromFile::cmdAddFiles_Click() {
    FileDialogRequest request;
    request.Title = FromQt(tr("Add MP3 files"));
    request.Filter = u"MP3 Files (*.mp3;*.mp2)|*.mp3;*.mp2|All Files (*.*)|*.*";
    request.InitialFolder = lists_.OldFiles().empty() ? context_.Values.LastDir
                                                      : FolderOfPath(lists_.OldFiles()[0].Path);
    request.Multiple = true;
    const FileDialogResult chosen = context_.Dialogs.OpenFiles(this, request);
    if (chosen.Paths.empty()) return;
    oldFiles_->Append(chosen.Paths);
    ShowOldCount();
}

void frmNameFromFile::GatherDropped(std::vector<Text> dropped) {
    if (work_->Running()) return;
    gathering_ = host_.GatherFiles(std::move(dropped));
    BeginWork(tr("Looking for files..."));
    work_->Start([this] { return gathering_->Step(coming_); }, [this] { EndWork({}); });
}

void frmNameFromFile::cmdRemoveFile_Click() {
    oldFiles_->Remove(ui_->lstOldFileNames->SelectedRow());
    ShowOldCount();
}

void frmNameFromFile::cmdRemoveNew_Click() {
    newNames_->Remove(ui_->lstNewFileNames->SelectedRow());
    ShowNewCount();
}

void frmNameFromFile::cmdClearOld_Click() {
    oldFiles_->Clear();
    ShowOldCount();
}

void frmNameFromFile::cmdClearNew_Click() {
    newNames_->Clear();
    ShowNewCount();
}

void frmNameFromFile::cmdMoveUp_Click() { MoveSelected(NamePairs::Direction::Up); }

void frmNameFromFile::cmdMoveDn_Click() { MoveSelected(NamePairs::Direction::Down); }

void frmNameFromFile::MoveSelected(NamePairs::Direction direction) {
    const int row = ui_->lstOldFileNames->SelectedRow();
    if (row >= 0) ui_->lstOldFileNames->SelectRow(oldFiles_->MoveOldFile(row, direction));
}

void frmNameFromFile::lstOldFileNames_Click() {
    const int row = ui_->lstOldFileNames->SelectedRow();
    if (row >= 0 && row < newNames_->rowCount()) ui_->lstNewFileNames->SelectRow(row);
}

// The counters are left alone by this key, on purpose.
void frmNameFromFile::lstOldFileNames_KeyDown() {
    oldFiles_->Remove(ui_->lstOldFileNames->SelectedRow());
}

void frmNameFromFile::lstNewFileNames_KeyDown() {
    newNames_->Remove(ui_->lstNewFileNames->SelectedRow());
}

void frmNameFromFile::lstNewFileNames_DblClick() {
    const int row = ui_->lstNewFileNames->SelectedRow();
    if (row < 0) return;
    const Text name = lists_.NewNames()[static_cast<std::size_t>(row)];
    if (const std::optional<Text> edited = host_.EditName(this, name))
        newNames_->SetNewName(row, *edited);
}

void frmNameFromFile::ShowOldCount() {
    ui_->lblNrOldFiles->setText(ToQt(FilesText(lists_.OldFiles().size())));
}

void frmNameFromFile::ShowNewCount() {
    ui_->lblNrNewFiles->setText(ToQt(FilesText(lists_.NewNames().size())));
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
    std::vector<RenamePair> pairs;
    for (std::size_t i = 0; i < lists_.Pairs(); ++i)
        pairs.push_back({lists_.OldFiles()[i].Path, lists_.NewNames()[i]});
    return pairs;
}

void frmNameFromFile::RestRenaming(bool rest) {
    EnableWithReason(*ui_->cmdRenameFiles, !rest, tr("Not while the main window works."));
}

void frmNameFromFile::cmdRenameFiles_Click() {
    if (!MayRename(lists_.OldFiles().size(), lists_.NewNames().size(), context_.Ask)) return;
    run_ = std::make_unique<RenameRun>(Pairs(), ReadRunChoices(), context_.Values, context_.Files,
                                       context_.Ask);
    BeginWork({});
    EnableControls(false);
    progress_ = host_.OpenProgress(this);
    ShowNextPair();
    work_->StartPieceByPiece([this] { return RunPair(); }, [this] { EndRun(); });
}

// One turn more than there are pairs: the stop flag counts behind the last one too.
bool frmNameFromFile::RunPair() {
    if (progress_->StopRequested()) run_->Stop();
    if (run_->Finished()) return false;
    run_->Step();
    ShowNextPair();
    return !run_->Report().Cancelled;
}

void frmNameFromFile::ShowNextPair() {
    if (run_->Done() == run_->Total()) return;
    const RenamePair& pair = run_->Next();
    progress_->ShowPair(FileNameOfPath(pair.OldPath), pair.NewName, run_->Done() + 1,
                        run_->Total());
}

void frmNameFromFile::EndRun() {
    const RenameReport report = run_->Report();
    if (!report.Stopped) progress_->ShowDone();
    if (report.Completed) ClearAfterRun();
    failures_ = report.Failures;
    CloseRun();
    const QString summary = ToQt(SummaryText(report, UserLanguage()));
    EndWork(report.Completed ? summary : tr("Stopped. %1").arg(summary));
    cmdDetails_->setVisible(!failures_.empty());
}

void frmNameFromFile::CloseRun() {
    progress_.reset();
    run_.reset();
}

// The genre and its check box stay as they are.
void frmNameFromFile::ClearAfterRun() {
    cmdClearOld_Click();
    cmdClearNew_Click();
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
