#include "app/namefromtext/frmNameFromFile.h"

#include <QCloseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <array>

#include "app/namefromtext/qt_pair_column.h"
#include "app/namefromtext/qt_sliced_work.h"
#include "app/shared/app_context.h"
#include "app/shared/name_from_text_host.h"
#include "app/shared/qt_elided_label.h"
#include "app/shared/qt_entry_filter.h"
#include "app/shared/qt_file_drops.h"
#include "app/shared/qt_icons.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"
#include "app/shared/qt_window_state.h"
#include "core/tags/genres.h"
#include "core/text/code_page.h"
#include "ui_frmNameFromFile.h"

namespace mdlPLM {

namespace {

// The blanks at the ends of the lines are part of the text.
constexpr std::array<const char*, 3> PatternHelp = {
    PLM_TRANSLATE("Texts",
                  "Here you define the inpattern that matches the text and the outpattern "
                  "that will be used for the new filenames. "),
    PLM_TRANSLATE("Texts",
                  "%track = TrackNr    %artist = Artist    %title = Title    %album = Album "),
    PLM_TRANSLATE("Texts", "The characters between are the separators. ")};

QString PatternHelpText() {
    QStringList lines;
    for (const char* line : PatternHelp) lines << ToQt(UserLanguage()(line));
    return lines.join(QStringLiteral("\r\n"));
}

void FillPatternBox(QComboBox& box, const std::vector<Text>& patterns, const Text& current) {
    box.setCompleter(nullptr);
    for (const Text& pattern : patterns) box.addItem(ToQt(pattern));
    box.setEditText(ToQt(current));
}

void SetStretch(QSplitter& splitter, int first, int second) {
    splitter.setStretchFactor(0, first);
    splitter.setStretchFactor(1, second);
}

}  // namespace

frmNameFromFile::frmNameFromFile(AppContext& context, NameFromTextHost& host, QWidget* parent)
    : QMainWindow(parent),
      context_(context),
      host_(host),
      ui_(std::make_unique<Ui::frmNameFromFile>()),
      oldFiles_(new PairColumn(lists_, PairColumn::Side::OldFiles, this)),
      newNames_(new PairColumn(lists_, PairColumn::Side::NewNames, this)),
      work_(new SlicedWork(this)) {
    ui_->setupUi(this);
    setWindowIcon(Icon(IconName::NameFromText));
    SetUpStatusLine();
    SetUpBoxes();
    SetUpLists();
    ConnectText();
    ConnectLists();
    Form_Load();
    RestoreGeometry(*this, context_.Store);
    RestoreSplitter(*ui_->splTop, context_.Store);
    RestoreSplitter(*ui_->splLists, context_.Store);
}

frmNameFromFile::~frmNameFromFile() = default;

void frmNameFromFile::SetUpBoxes() {
    ui_->fraLineEnds->hide();
    for (QLineEdit* box : findChildren<QLineEdit*>()) FilterEntry(*box);
    for (const Bytes& genre : SortedGenreNames()) ui_->cmbGenre->addItem(ToQt(FromCodePage(genre)));
    ui_->cmbGenre->setCurrentIndex(-1);
    ui_->cmdOpenSource->setIcon(Icon(IconName::OpenList));
    ui_->cmdAddFiles->setIcon(Icon(IconName::AddFiles));
    ui_->cmdRemoveFile->setIcon(Icon(IconName::Remove));
    ui_->cmdRemoveNew->setIcon(Icon(IconName::Remove));
    ui_->cmdClearOld->setIcon(Icon(IconName::ClearList));
    ui_->cmdClearNew->setIcon(Icon(IconName::ClearList));
    ui_->cmdScan->setIcon(Icon(IconName::NameFromText));
    ui_->scrColumn->setMinimumWidth(ui_->fraColumn->minimumSizeHint().width() +
                                    ui_->scrColumn->verticalScrollBar()->sizeHint().width());
    ui_->splTop->setSizes({550, 460});
    SetStretch(*ui_->splTop, 3, 2);
    SetStretch(*ui_->splLists, 3, 2);
}

void frmNameFromFile::SetUpLists() {
    ui_->lstOldFileNames->setModel(oldFiles_);
    ui_->lstNewFileNames->setModel(newNames_);
    ui_->lstOldFileNames->PairWith(ui_->lstNewFileNames);
    ui_->lstOldFileNames->SetHint(
        tr("The MP3 files to rename.\nFiles and folders can be dropped here."));
    ui_->lstNewFileNames->SetHint(tr("The names that a scan makes, each beside its file."));
    new FileDrops(ui_->lstOldFileNames->viewport(),
                  [this](std::vector<Text> paths) { GatherDropped(std::move(paths)); });
    connect(oldFiles_, &PairColumn::CountChanged, newNames_, &PairColumn::ShowPartners);
    connect(newNames_, &PairColumn::CountChanged, oldFiles_, &PairColumn::ShowPartners);
}

void frmNameFromFile::SetUpStatusLine() {
    lblWork_ = new ElidedLabel(this);
    prgWork_ = new QProgressBar(this);
    cmdDetails_ = new QPushButton(tr("S&how failed files..."), this);
    cmdStop_ = new QPushButton(Icon(IconName::Stop), tr("S&top"), this);
    lblWork_->setObjectName(QStringLiteral("lblWork"));
    lblWork_->setIndent(ui_->layCentral->contentsMargins().left());
    prgWork_->setObjectName(QStringLiteral("prgWork"));
    prgWork_->setMaximumWidth(180);
    prgWork_->setAccessibleName(tr("Progress"));
    cmdDetails_->setObjectName(QStringLiteral("cmdDetails"));
    cmdStop_->setObjectName(QStringLiteral("cmdStop"));
    statusBar()->addWidget(lblWork_, 1);
    for (QWidget* widget : {static_cast<QWidget*>(prgWork_), static_cast<QWidget*>(cmdStop_),
                            static_cast<QWidget*>(cmdDetails_)}) {
        statusBar()->addPermanentWidget(widget);
        // The lists above must not jump when long work begins.
        lblWork_->setMinimumHeight(qMax(lblWork_->minimumHeight(), widget->sizeHint().height()));
        widget->hide();
    }
}

void frmNameFromFile::ConnectText() {
    using Form = frmNameFromFile;
    connect(ui_->cmdOpenSource, &QPushButton::clicked, this, &Form::cmdOpenSource_Click);
    connect(ui_->mnuOpenSource, &QAction::triggered, this, &Form::cmdOpenSource_Click);
    connect(ui_->cmdTakeLineEnds, &QPushButton::clicked, this, &Form::cmdTakeLineEnds_Click);
    connect(ui_->txtSourceText, &SourceBox::TextComing, this, &Form::ShowComingText);
    connect(ui_->txtSourceText, &SourceBox::FilesDropped, this,
            [this](const std::vector<Text>& paths) { OpenSource(paths.front()); });
    connect(ui_->txtSourceText, &SourceBox::textChanged, this, &Form::ShowLineEndOffer);
    connect(ui_->cmdScan, &QPushButton::clicked, this, &Form::cmdScan_Click);
    connect(ui_->chkIgnoreFirst, &QCheckBox::toggled, ui_->txtIgnoreFirst, &QWidget::setEnabled);
    connect(ui_->chkIgnoreLast, &QCheckBox::toggled, ui_->txtIgnoreLast, &QWidget::setEnabled);
    connect(ui_->txtArtist, &QLineEdit::textChanged, this, &Form::txtArtist_Change);
    connect(ui_->txtAlbum, &QLineEdit::textChanged, this, &Form::txtAlbum_Change);
}

void frmNameFromFile::ConnectLists() {
    using Form = frmNameFromFile;
    const auto onClick = [this](QPushButton* button, auto handler) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    onClick(ui_->cmdAddFiles, &Form::cmdAddFiles_Click);
    onClick(ui_->cmdRemoveFile, &Form::cmdRemoveFile_Click);
    onClick(ui_->cmdRemoveNew, &Form::cmdRemoveNew_Click);
    onClick(ui_->cmdClearOld, &Form::cmdClearOld_Click);
    onClick(ui_->cmdClearNew, &Form::cmdClearNew_Click);
    onClick(ui_->cmdMoveUp, &Form::cmdMoveUp_Click);
    onClick(ui_->cmdMoveDn, &Form::cmdMoveDn_Click);
    onClick(ui_->cmdRenameFiles, &Form::cmdRenameFiles_Click);
    onClick(ui_->cmdClose, &QWidget::close);
    onClick(cmdStop_, &Form::cmdStop_Click);
    connect(work_, &SlicedWork::SliceDone, this, &Form::ShowWorkProgress);
    onClick(cmdDetails_, &Form::cmdDetails_Click);
    connect(ui_->mnuAddMP3, &QAction::triggered, this, &Form::cmdAddFiles_Click);
    connect(ui_->mnuClose, &QAction::triggered, this, &QWidget::close);
    PairedListView* const oldList = ui_->lstOldFileNames;
    PairedListView* const newList = ui_->lstNewFileNames;
    connect(oldList->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &Form::lstOldFileNames_Click);
    // A click on the file that is selected already shows its name again.
    connect(oldList, &QListView::clicked, this, &Form::lstOldFileNames_Click);
    connect(oldList, &PairedListView::DeletePressed, this, &Form::lstOldFileNames_KeyDown);
    connect(newList, &PairedListView::DeletePressed, this, &Form::lstNewFileNames_KeyDown);
    connect(newList, &QListView::doubleClicked, this, &Form::lstNewFileNames_DblClick);
    connect(newList, &PairedListView::EditPressed, this, &Form::lstNewFileNames_DblClick);
}

void frmNameFromFile::Form_Load() {
    ui_->lblPattern->setText(PatternHelpText());
    FillPatternBox(*ui_->cmbInPattern, LoadInPatterns(context_.ListsFolder), host_.InPattern());
    FillPatternBox(*ui_->cmbOutPattern, LoadOutPatterns(context_.ListsFolder), host_.OutPattern());
}

void frmNameFromFile::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (centred_ || isMaximized()) return;
    centred_ = true;
    FitOnScreen(*this, size());
    move(screen()->geometry().center() - rect().center());
}

void frmNameFromFile::closeEvent(QCloseEvent* event) {
    // A box is waiting for its answer in the middle of a piece of work.
    if (work_->Working()) return event->ignore();
    work_->Stop();
    CloseRun();
    KeepGeometry(*this, context_.Store);
    KeepSplitter(*ui_->splTop, context_.Store);
    KeepSplitter(*ui_->splLists, context_.Store);
    event->accept();
}

void frmNameFromFile::ShowStatus(const QString& text) {
    lblWork_->setText(text);
    lblWork_->setToolTip(text);
}

void frmNameFromFile::BeginWork(const QString& what) {
    workName_ = what;
    cmdDetails_->hide();
    ShowStatus({});
}

int frmNameFromFile::WorkPercent() const {
    if (scan_) return static_cast<int>(100 * scan_->Done() / scan_->Total());
    return gathering_ ? -1 : ui_->txtSourceText->FilledPercent();
}

// Short work is over before this shows anything.
void frmNameFromFile::ShowWorkProgress() {
    if (run_) return;
    EnableControls(false);
    const int percent = WorkPercent();
    ShowStatus(workName_);
    prgWork_->setRange(0, percent < 0 ? 0 : 100);
    prgWork_->setValue(percent);
    prgWork_->show();
    cmdStop_->show();
}

// What came together goes into its list in one go: a list lays all its rows out after each change.
void frmNameFromFile::EndWork(const QString& said) {
    if (scan_) {
        newNames_->Append(coming_);
        ShowNewCount();
    } else if (gathering_) {
        oldFiles_->Append(coming_);
        ShowOldCount();
    }
    coming_.clear();
    scan_.reset();
    gathering_.reset();
    prgWork_->hide();
    cmdStop_->hide();
    EnableControls(true);
    ShowStatus(said);
}

void frmNameFromFile::EnableControls(bool on) {
    if (on == ui_->centralwidget->isEnabled()) return;
    if (!on) focusBefore_ = focusWidget();
    ui_->centralwidget->setEnabled(on);
    ui_->mnuOpenSource->setEnabled(on);
    ui_->mnuAddMP3->setEnabled(on);
    if (on && focusBefore_ != nullptr) focusBefore_->setFocus();
}

void frmNameFromFile::cmdStop_Click() {
    work_->Stop();
    ui_->txtSourceText->StopFilling();
    EndWork(tr("Stopped."));
}

}  // namespace mdlPLM
