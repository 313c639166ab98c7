// The album text: opening, pasting, pre-scan and line scan.
#include <QPalette>

#include "app/namefromtext/frmNameFromFile.h"
#include "app/namefromtext/line_scan_task.h"
#include "app/namefromtext/pre_scan.h"
#include "app/namefromtext/qt_fill_task.h"
#include "app/namefromtext/qt_pair_lists.h"
#include "app/shared/app_context.h"
#include "app/shared/file_dialogs.h"
#include "app/shared/name_from_text_host.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"
#include "core/platform/path.h"
#include "ui_frmNameFromFile.h"

namespace mdlPLM {

namespace {

// The longest text that an ID3v1 field holds.
constexpr int FieldLimit = 30;
constexpr QRgb WarningColour = 0xFFFFFFC0;

Text Shown(const QComboBox& box) { return FromQt(box.currentText()); }

Text WithoutSeparator(Text folder) {
    if (folder.size() > 1) folder.pop_back();
    return folder;
}

QString NamesMade(std::size_t count) {
    return count == 1 ? frmNameFromFile::tr("1 name made.")
                      : frmNameFromFile::tr("%1 names made.").arg(count);
}

}  // namespace

void frmNameFromFile::cmdOpenSource_Click() {
    FileDialogRequest request;
    request.Title = FromQt(tr("Open Sourcefile"));
    request.Filter = u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*";
    request.InitialFolder = lists_->FolderOr(host_.LastSourceFolder());
    const FileDialogResult chosen = context_.Dialogs.OpenFiles(this, request);
    if (!chosen.Paths.empty() && !Trim(chosen.Paths[0]).empty()) OpenSource(chosen.Paths[0]);
}

void frmNameFromFile::OpenSource(const Text& path) {
    if (!MayReadSource(path, context_.Ask, UserLanguage())) return;
    Text text;
    const Status status = ReadSourceFile(path, context_.Values, text);
    if (!status.Ok()) return context_.Ask.Critical({{}, ErrorMessage(status.Number()), path});
    host_.SetLastSourceFolder(WithoutSeparator(FolderOfPath(path)));
    ui_->txtSourceText->Load(text);
    ui_->txtSourceText->setFocus();  // its lines are selected next
    ShowComingText(true);
}

void frmNameFromFile::ShowComingText(bool preScan) {
    BeginWork();
    work_.Start(std::make_unique<FillTask>(FromQt(tr("Showing the text...")), *ui_->txtSourceText),
                [this, preScan](bool stopped) {
                    EndWork(stopped ? tr("Stopped.") : QString());
                    if (stopped) return;
                    if (preScan) PreScanText();
                    ShowLineEndOffer();
                });
}

void frmNameFromFile::ShowLineEndOffer() {
    ui_->fraLineEnds->setVisible(ui_->txtSourceText->Source().OffersLineEnds());
}

void frmNameFromFile::cmdTakeLineEnds_Click() {
    ui_->txtSourceText->TakeLineEndsAsCrLf();
    ShowLineEndOffer();
    ui_->txtSourceText->setFocus();
    PreScanText();
}

void frmNameFromFile::PreScanText() {
    const PreScanResult found = PreScan(ui_->txtSourceText->Source().Whole());
    const auto show = [](QLineEdit& box, const Text& text) {
        box.setText(ToQt(text));
        box.setCursorPosition(0);
    };
    show(*ui_->txtArtist, found.Artist);
    show(*ui_->txtAlbum, found.Album);
    show(*ui_->txtYear, found.Year);
    show(*ui_->txtReleaseDate, found.ReleaseDate);
}

ScanChoices frmNameFromFile::ReadScanChoices() const {
    ScanChoices choices;
    choices.InPattern = Shown(*ui_->cmbInPattern);
    choices.OutPattern = Shown(*ui_->cmbOutPattern);
    choices.chkIgnoreFirst = ui_->chkIgnoreFirst->isChecked();
    choices.txtIgnoreFirst = FromQt(ui_->txtIgnoreFirst->text());
    choices.chkIgnoreLast = ui_->chkIgnoreLast->isChecked();
    choices.txtIgnoreLast = FromQt(ui_->txtIgnoreLast->text());
    choices.txtArtist = FromQt(ui_->txtArtist->text());
    choices.txtAlbum = FromQt(ui_->txtAlbum->text());
    choices.txtYear = FromQt(ui_->txtYear->text());
    choices.chkArtist4All = ui_->chkArtist4All->isChecked();
    choices.chkAlbum4All = ui_->chkAlbum4All->isChecked();
    choices.chkYear4All = ui_->chkYear4All->isChecked();
    choices.chkConvert = host_.chkConvert();
    return choices;
}

void frmNameFromFile::cmdScan_Click() {
    ui_->cmbInPattern->setEditText(ToQt(Trim(Shown(*ui_->cmbInPattern))));
    Text whole = ui_->txtSourceText->Source().Whole();
    if (Trim(whole).empty()) return;
    const ScanChoices choices = ReadScanChoices();
    if (const std::optional<Text> fault = FaultOfIgnoreBoxes(choices, UserLanguage()))
        return context_.Ask.Inform({{}, *fault, {}});
    Text selected = ui_->txtSourceText->SelectedText();
    ScanChosenText(std::move(selected.empty() ? whole : selected), choices);
}

void frmNameFromFile::ScanChosenText(Text text, ScanChoices choices) {
    auto task = std::make_unique<LineScanTask>(
        FromQt(tr("Scanning...")),
        LineScan(std::move(text), std::move(choices), context_.Values, context_.Replacements));
    const LineScanTask& scan = *task;
    BeginWork();
    work_.Start(std::move(task), [this, &scan](bool stopped) {
        lists_->AddNames(scan.Names());
        EndWork(stopped ? tr("Stopped.") : NamesMade(scan.Names().size()));
    });
}

// The two warnings differ on purpose.
void frmNameFromFile::txtArtist_Change() {
    WarnAboutLength(*ui_->txtArtist, tr("Artist"),
                    tr("Artist (Optimized=More than 30 characters)"));
}

void frmNameFromFile::txtAlbum_Change() {
    WarnAboutLength(*ui_->txtAlbum, tr("Album"), tr("Album (More than 30 characters)"));
}

void frmNameFromFile::WarnAboutLength(QLineEdit& box, const QString& plainTip,
                                      const QString& warning) {
    const bool tooLong = box.text().size() > FieldLimit;
    QPalette palette;
    if (tooLong) {
        // Black, because the colour of the warning is a light one in a dark palette too.
        palette.setColor(QPalette::Base, QColor(WarningColour));
        palette.setColor(QPalette::Text, Qt::black);
    }
    box.setPalette(palette);
    box.setToolTip(tooLong ? warning : plainTip);
}

}  // namespace mdlPLM
