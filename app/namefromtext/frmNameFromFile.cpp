#include "app/namefromtext/frmNameFromFile.h"

#include <QCloseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <array>

#include "app/namefromtext/qt_pair_lists.h"
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
      ui_(std::make_unique<Ui::frmNameFromFile>()) {
    ui_->setupUi(this);
    setWindowIcon(Icon(IconName::NameFromText));
    SetUpStatusLine();
    SetUpBoxes();
    lists_ = new PairLists({context_, host_, *ui_, *this}, this);
    ConnectText();
    ConnectButtons();
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

void frmNameFromFile::ConnectButtons() {
    using Form = frmNameFromFile;
    connect(lists_, &PairLists::FilesDropped, this, &Form::GatherDropped);
    connect(ui_->cmdRenameFiles, &QPushButton::clicked, this, &Form::cmdRenameFiles_Click);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QWidget::close);
    connect(ui_->mnuClose, &QAction::triggered, this, &QWidget::close);
    connect(cmdDetails_, &QPushButton::clicked, this, &Form::cmdDetails_Click);
    connect(cmdStop_, &QPushButton::clicked, &work_, &WorkQueue::Stop);
    connect(&work_, &WorkQueue::Progressed, this, &Form::ShowWorkProgress);
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
    if (work_.InStep()) return event->ignore();
    work_.Stop();
    KeepGeometry(*this, context_.Store);
    KeepSplitter(*ui_->splTop, context_.Store);
    KeepSplitter(*ui_->splLists, context_.Store);
    event->accept();
}

void frmNameFromFile::ShowStatus(const QString& text) {
    lblWork_->setText(text);
    lblWork_->setToolTip(text);
}

void frmNameFromFile::BeginWork() {
    cmdDetails_->hide();
    ShowStatus({});
}

// Short work is over before this shows anything.
void frmNameFromFile::ShowWorkProgress() {
    if (renaming_) return;
    EnableControls(false);
    const RunProgress progress = work_.Current()->Progress();
    ShowStatus(ToQt(progress.What));
    prgWork_->setRange(0, static_cast<int>(progress.Total));
    prgWork_->setValue(static_cast<int>(progress.Done));
    prgWork_->show();
    cmdStop_->show();
}

void frmNameFromFile::EndWork(const QString& said) {
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

}  // namespace mdlPLM
