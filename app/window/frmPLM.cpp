#include "app/window/frmPLM.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/namefromtext/frmNameFromFile.h"
#include "app/shared/qt_elided_label.h"
#include "app/shared/qt_icons.h"
#include "app/shared/qt_save_settings.h"
#include "app/shared/qt_text.h"
#include "app/shared/qt_window_state.h"
#include "app/tags/frmPLM_tagpanel.h"
#include "app/window/frmSorting.h"
#include "app/window/qt_text_tool_host.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

namespace {

struct ControlIcon {
    const char* Name;  ///< of a button or a menu entry
    IconName Icon;
};

constexpr ControlIcon ControlIcons[] = {
    {"cmdAddFiles", IconName::AddFiles},
    {"mnuAddFiles", IconName::AddFiles},
    {"mnuAddFolder", IconName::AddFolder},
    {"cmdLoad", IconName::OpenList},
    {"mnuLoad", IconName::OpenList},
    {"cmdSave", IconName::SaveList},
    {"mnuSave", IconName::SaveList},
    {"cmdClear", IconName::ClearList},
    {"mnuClear", IconName::ClearList},
    {"mnuExit", IconName::Exit},
    {"cmdSelectAll", IconName::SelectAll},
    {"mnuSelectAll", IconName::SelectAll},
    {"cmdSelectNone", IconName::SelectNone},
    {"mnuSelectNone", IconName::SelectNone},
    {"mnuSelInvert", IconName::SelectInvert},
    {"mnuEditName", IconName::Edit},
    {"mnuRemFromList", IconName::Remove},
    {"mnuRemFromHD", IconName::Delete},
    {"mnuSaveID3", IconName::SaveTags},
    {"mnuFixID3", IconName::FixTags},
    {"mnuMore", IconName::More},
    {"cmdTargetDir", IconName::BrowseFolder},
    {"cmdSort", IconName::Sort},
    {"mnuSort", IconName::Sort},
    {"cmdSortThisFile", IconName::SortOne},
    {"mnuSortThisFile", IconName::SortOne},
    {"cmdOptions", IconName::Options},
    {"mnuOptions", IconName::Options},
    {"cmdNameFromFile", IconName::NameFromText},
    {"mnuNameFromFile", IconName::NameFromText},
    {"cmdStop", IconName::Stop},
    {"cmdOpenMP3", IconName::Play},
    {"mnuPlayFile", IconName::Play},
    {"mnuStopPlay", IconName::Stop},
    {"mnuHelpMe", IconName::Help},
    {"mnuAbout", IconName::About},
};

/// What would change the list, or needs it to stand still. At rest while long work is under way.
constexpr const char* RestingControls[] = {
    "cmdAddFiles",     "mnuAddFiles",     "mnuAddFolder",    "cmdLoad",       "mnuLoad",
    "cmdSave",         "mnuSave",         "cmdClear",        "mnuClear",      "mnuRemFromList",
    "mnuRemFromHD",    "mnuNonExistent",  "mnuSelV1Files",   "mnuSelV2Files", "cmdSort",
    "mnuSort",         "cmdSortThisFile", "mnuSortThisFile", "cmdSaveID3",    "mnuSaveID3",
    "cmdFixID3",       "mnuFixID3",       "cmdOptions",      "mnuOptions",    "cmdNameFromFile",
    "mnuNameFromFile",
};

void SetIcon(QObject& control, const QIcon& icon) {
    if (auto* button = qobject_cast<QAbstractButton*>(&control)) button->setIcon(icon);
    if (auto* entry = qobject_cast<QAction*>(&control)) entry->setIcon(icon);
}

void SetEnabled(QObject& control, bool enabled) {
    if (auto* widget = qobject_cast<QWidget*>(&control)) widget->setEnabled(enabled);
    if (auto* entry = qobject_cast<QAction*>(&control)) entry->setEnabled(enabled);
}

void Choose(const QButtonGroup& group, int index) {
    if (QAbstractButton* button = group.button(index)) button->setChecked(true);
}

}  // namespace

frmPLM::frmPLM(AppContext& context, MediaPlayer& player)
    : context_(context),
      player_(player),
      ui_(std::make_unique<Ui::frmPLM>()),
      model_(list_),
      selection_(list_, model_),
      work_(this) {
    ui_->setupUi(this);
    setWindowIcon(Icon(IconName::Program));
    SetUpStatusLine();
    for (const ControlIcon& row : ControlIcons)
        SetIcon(*findChild<QObject*>(QLatin1String(row.Name)), Icon(row.Icon));
    SetUpLists();
    SetUpPatterns();
    SetUpTags();
    LoadSettings();
    RestoreLayout();
    ConnectWindow();
    ConnectList();
    ConnectNames();
    ConnectTags();
    ConnectPlayer();
    ConnectHelp();
    ConnectNameFromFile();
    ConnectSort();
    UpdateCounter();
}

frmPLM::~frmPLM() {
    player_.Watch({});
    player_.Stop();
}

void frmPLM::SetUpStatusLine() {
    lblStatus_ = new ElidedLabel(this);
    lblStatus_->setObjectName(QStringLiteral("lblStatus"));
    lblStatus_->setIndent(ui_->layCentral->contentsMargins().left());
    cmdDetails_ = new QToolButton(this);
    cmdDetails_->setObjectName(QStringLiteral("cmdDetails"));
    cmdDetails_->setText(tr("Details..."));
    prgWork_ = new QProgressBar(this);
    prgWork_->setObjectName(QStringLiteral("prgWork"));
    prgWork_->setMaximumWidth(220);
    prgWork_->setAccessibleName(tr("Progress"));
    prgWork_->setFormat(tr("%v of %m"));
    cmdStop_ = new QToolButton(this);
    cmdStop_->setObjectName(QStringLiteral("cmdStop"));
    cmdStop_->setText(tr("Stop"));
    cmdStop_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    ui_->stsBar->addWidget(lblStatus_, 1);
    for (QWidget* widget : {static_cast<QWidget*>(cmdDetails_), static_cast<QWidget*>(prgWork_),
                            static_cast<QWidget*>(cmdStop_)}) {
        ui_->stsBar->addPermanentWidget(widget);
        // The lists above must not jump when long work begins.
        lblStatus_->setMinimumHeight(
            std::max(lblStatus_->minimumHeight(), widget->sizeHint().height()));
        widget->hide();
    }
}

void frmPLM::ConnectWindow() {
    connect(ui_->mnuExit, &QAction::triggered, this, &QWidget::close);
    connect(cmdStop_, &QToolButton::clicked, &work_, &WorkQueue::Stop);
    connect(cmdDetails_, &QToolButton::clicked, this, &frmPLM::cmdDetails_Click);
    connect(&work_, &WorkQueue::BusyChanged, this, &frmPLM::Work_BusyChanged);
    connect(&work_, &WorkQueue::Progressed, this, &frmPLM::Work_Progressed);
    connect(ui_->cmdOptions, &QPushButton::clicked, this, &frmPLM::cmdOptions_Click);
    connect(ui_->mnuOptions, &QAction::triggered, this, &frmPLM::cmdOptions_Click);
}

void frmPLM::LoadSettings() {
    const Settings& values = context_.Values;
    for (int index = 0; index < 3; ++index) {
        ui_->optMethod->setId(findChild<QAbstractButton*>(QStringLiteral("optMethod%1").arg(index)),
                              index);
        ui_->optExists->setId(findChild<QAbstractButton*>(QStringLiteral("optExists%1").arg(index)),
                              index);
    }
    ui_->cmbInPattern->setEditText(ToQt(values.InPattern));
    ui_->cmbOutPattern->setEditText(ToQt(values.OutPattern));
    for (QComboBox* box : {ui_->cmbInPattern, ui_->cmbOutPattern})
        box->lineEdit()->setCursorPosition(0);  // its beginning is what tells one from the other
    ui_->chkGenre->setChecked(values.Genre == 1);
    ui_->chkAlphabetical->setChecked(values.Alphabetical == 1);
    ui_->chkSubFolder->setChecked(values.SubFolder == 1);
    ui_->chkConvert->setChecked(values.Convert == 1);
    ui_->txtSubFolder->setText(ToQt(NumberText(values.txtSubFolder)));
    Choose(*ui_->optExists, values.FileExists);
    targetDir_ = values.TargetDir;
    ui_->txtTargetDir->setText(ToQt(targetDir_));
    Choose(*ui_->optMethod, values.Move);
    optMethod_Click(ui_->optMethod->checkedId());
}

void frmPLM::TakeControls() {
    Settings& values = context_.Values;
    values.InPattern = InPattern();
    values.OutPattern = OutPattern();
    values.Genre = ui_->chkGenre->isChecked() ? 1 : 0;
    values.Alphabetical = ui_->chkAlphabetical->isChecked() ? 1 : 0;
    values.SubFolder = ui_->chkSubFolder->isChecked() ? 1 : 0;
    values.Convert = ui_->chkConvert->isChecked() ? 1 : 0;
    values.txtSubFolder = IntegerPart(FromQt(ui_->txtSubFolder->text()));
    values.FileExists = ui_->optExists->checkedId();
    values.Move = ui_->optMethod->checkedId();
    values.TargetDir = targetDir_;
}

void frmPLM::SaveOnClose() {
    TakeControls();
    StoreSettings(context_.Values, WrittenBy::MainWindow, context_.Store);
    KeepGeometry(*this, context_.Store);
    KeepSplitter(*ui_->splMain, context_.Store);
    KeepSplitter(*ui_->splLists, context_.Store);
    SaveSettings(context_);
}

void frmPLM::RestoreLayout() {
    // One column of labels for both groups.
    int labels = 0;
    for (const QLabel* label : {ui_->lblInPattern, ui_->lblOutPattern, ui_->lblOldName,
                                ui_->lblNewName, ui_->lblTargetDir, ui_->lblExists})
        labels = std::max(labels, label->sizeHint().width());
    ui_->lblOutPattern->setMinimumWidth(labels);
    ui_->lblTargetDir->setMinimumWidth(labels);
    // Large letters need more room than the usual.
    const int letters = fontMetrics().horizontalAdvance(QString(50, u'n'));
    const int list = std::max(760, 2 * letters);
    const int panel = std::max(400, letters);
    ui_->splMain->setSizes({list, panel});
    // A list that is not shown has no size of its own to be kept.
    ui_->splLists->setSizes({list / 2, list / 2});
    ui_->splMain->setStretchFactor(0, 3);
    ui_->splMain->setStretchFactor(1, 1);
    if (!RestoreGeometry(*this, context_.Store))
        FitOnScreen(*this, QSize(list + panel + 20, std::max(780, 2 * letters)));
    RestoreSplitter(*ui_->splMain, context_.Store);
    RestoreSplitter(*ui_->splLists, context_.Store);
}

void frmPLM::closeEvent(QCloseEvent* event) {
    if (work_.Busy()) {
        closeWhenDone_ = true;
        work_.Stop();
    }
    // What is under way may need a little longer to end well, or an answer.
    if (work_.Busy()) return event->ignore();
    // A run of the other window ends well first, or its question is answered.
    if (textTool_ != nullptr && textTool_->isVisible() && !textTool_->close())
        return event->ignore();
    if (sorting_ != nullptr) sorting_->hide();
    SaveOnClose();
    event->accept();
}

void frmPLM::SetStatus(const QString& text, Details details) {
    status_ = text;
    lblStatus_->setText(text);
    lblStatus_->setToolTip(text);
    details_ = std::move(details);
    cmdDetails_->setVisible(details_ != nullptr);
}

QString frmPLM::RunStatus(const QString& summary, bool stopped) {
    return stopped ? tr("Stopped. %1").arg(summary) : summary;
}

void frmPLM::RestControls(bool rest) {
    if (rest) focusBeforeWork_ = focusWidget();
    for (const char* name : RestingControls)
        SetEnabled(*findChild<QObject*>(QLatin1String(name)), !rest);
    tags_->RestStreamSearch(rest);
    // A control that comes to rest passes the focus on; it gets it back unless the user moved it.
    if (rest)
        focusPassedOn_ = focusWidget();
    else if (focusBeforeWork_ != nullptr && focusWidget() == focusPassedOn_)
        focusBeforeWork_->setFocus();
}

void frmPLM::Work_BusyChanged(bool busy) {
    RestControls(busy);
    ui_->lstFiles->viewport()->setAcceptDrops(!busy);
    ui_->lstPreview->viewport()->setAcceptDrops(!busy);
    ShowPreviewList();
    const bool names = dynamic_cast<const NamesTask*>(work_.Current()) != nullptr;
    ui_->chkPreview->setEnabled(!busy || names);
    if (textTool_ != nullptr) textTool_->RestRenaming(busy);
    if (busy) return;
    lblStatus_->setText(status_);
    prgWork_->hide();
    cmdStop_->hide();
    if (closeWhenDone_) QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

void frmPLM::Work_Progressed() {
    if (sort_ != nullptr) Sort_Progressed();
    if (!isEnabled()) return;  // frmSorting shows it
    const RunProgress progress = work_.Current()->Progress();
    lblStatus_->setText(ToQt(progress.What));
    // A bar without a total says that work goes on.
    prgWork_->setRange(0, static_cast<int>(progress.Total));
    prgWork_->setValue(static_cast<int>(progress.Done));
    prgWork_->show();
    cmdStop_->show();
}

void frmPLM::cmdDetails_Click() {
    QDialog dialog(this);
    dialog.setObjectName(QStringLiteral("dlgDetails"));
    dialog.setWindowTitle(lblStatus_->text());
    dialog.resize(640, 360);
    auto* text = new QPlainTextEdit(ToQt(details_()), &dialog);
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setAccessibleName(tr("Details"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    dialog.exec();
}

}  // namespace mdlPLM
