#include "app/window/frmPLM.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <algorithm>

#include "app/dialogs/about.h"
#include "app/dialogs/frmOptions.h"
#include "app/dialogs/qt_help.h"
#include "app/shared/qt_icons.h"
#include "app/shared/qt_save_settings.h"
#include "app/shared/qt_setting_controls.h"
#include "app/shared/qt_window_state.h"
#include "app/tags/frmPLM_tagpanel.h"
#include "app/window/qt_list_commands.h"
#include "app/window/qt_player_commands.h"
#include "app/window/qt_sort_commands.h"
#include "app/window/qt_tag_commands.h"
#include "app/window/qt_text_tool_commands.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

namespace {

using Form = Ui::frmPLM;

/// The settings that a control of this window shows. The folders are kept where they are used.
constexpr SettingControl<Form> SettingControls[] = {
    Bound<Form, &Form::cmbInPattern, &Settings::InPattern>(),
    Bound<Form, &Form::cmbOutPattern, &Settings::OutPattern>(),
    Bound<Form, &Form::chkGenre, &Settings::Genre>(),
    Bound<Form, &Form::chkAlphabetical, &Settings::Alphabetical>(),
    Bound<Form, &Form::chkSubFolder, &Settings::SubFolder>(),
    Bound<Form, &Form::chkConvert, &Settings::Convert>(),
    Bound<Form, &Form::txtSubFolder, &Settings::txtSubFolder>(),
    Bound<Form, &Form::optExists, &Settings::FileExists>(),
    Bound<Form, &Form::optMethod, &Settings::Move>(),
};
static_assert(AllWrittenBy(WrittenBy::MainWindow, SettingControls));

}  // namespace

frmPLM::frmPLM(AppContext& context, MediaPlayer& player)
    : context_(context),
      ui_(std::make_unique<Ui::frmPLM>()),
      model_(list_),
      selection_(list_, model_),
      work_(this) {
    ui_->setupUi(this);
    setWindowIcon(Icon(IconName::Program));
    MakeLowerFloor();
    LoadSettings();
    MakeAreas(player);
    ConnectWindow();
    counter_->Update();
    status_->SayRemovedLeftOvers();
}

frmPLM::~frmPLM() = default;

void frmPLM::MakeLowerFloor() {
    status_ = std::make_unique<StatusLine>(context_, *ui_->stsBar,
                                           ui_->layCentral->contentsMargins().left());
    counter_ = std::make_unique<ListCounter>(list_, *ui_->lblFiles);
    names_ = std::make_unique<NameChoices>(context_, *ui_);
    tags_ = new frmPLM_tagpanel(context_.Values, context_.Replacements);
    ui_->scrTags->setWidget(tags_);
    controls_ = std::make_unique<CommandControls>(*this, *ui_, *tags_);
}

void frmPLM::MakeAreas(MediaPlayer& player) {
    const WindowParts parts{context_,   *this, *ui_,     *tags_,    list_,
                            selection_, work_, *status_, *counter_, *names_};
    shown_ = std::make_unique<ShownFile>(parts);
    listCommands_ = std::make_unique<ListCommands>(parts, model_, *shown_);
    sortCommands_ = std::make_unique<SortCommands>(parts, *shown_);
    RestoreLayout();  // before the preview hides what is not shown
    preview_ = std::make_unique<Preview>(parts, *shown_);
    tagCommands_ = std::make_unique<TagCommands>(parts, *shown_, *preview_, player);
    playerCommands_ = std::make_unique<PlayerCommands>(parts, *shown_, player);
    textTool_ = std::make_unique<TextToolCommands>(parts, *controls_, player);
}

void frmPLM::ConnectWindow() {
    connect(status_.get(), &StatusLine::StopClicked, &work_, &WorkQueue::Stop);
    connect(&work_, &WorkQueue::BusyChanged, this, &frmPLM::Work_BusyChanged);
    connect(&work_, &WorkQueue::Progressed, this, &frmPLM::Work_Progressed);
    connect(ui_->mnuExit, &QAction::triggered, this, &QWidget::close);
    connect(ui_->cmdOptions, &QPushButton::clicked, this, &frmPLM::cmdOptions_Click);
    connect(ui_->mnuOptions, &QAction::triggered, this, &frmPLM::cmdOptions_Click);
    connect(ui_->mnuHelpMe, &QAction::triggered, this, &frmPLM::mnuHelpMe_Click);
    connect(ui_->mnuAbout, &QAction::triggered, this, &frmPLM::mnuAbout_Click);
}

void frmPLM::AddPaths(std::vector<Text> paths) { listCommands_->AddPaths(std::move(paths)); }

void frmPLM::LoadSettings() {
    NumberButtons(*ui_->optMethod, {ui_->optMethod0, ui_->optMethod1, ui_->optMethod2});
    NumberButtons(*ui_->optExists, {ui_->optExists0, ui_->optExists1, ui_->optExists2});
    for (const auto& row : SettingControls) row.Load(*ui_, context_.Values);
}

void frmPLM::SaveOnClose() {
    for (const auto& row : SettingControls) row.Take(*ui_, context_.Values);
    StoreSettings(context_.Values, WrittenBy::MainWindow, context_.Store);
    KeepGeometry(*this, context_.Store);
    KeepSplitter(*ui_->splMain, context_.Store);
    KeepSplitter(*ui_->splLists, context_.Store);
    SaveSettings(context_);
}

// One column of labels for both groups.
void frmPLM::AlignLabels() {
    int width = 0;
    for (const QLabel* label : {ui_->lblInPattern, ui_->lblOutPattern, ui_->lblOldName,
                                ui_->lblNewName, ui_->lblTargetDir, ui_->lblExists})
        width = std::max(width, label->sizeHint().width());
    ui_->lblOutPattern->setMinimumWidth(width);
    ui_->lblTargetDir->setMinimumWidth(width);
}

void frmPLM::RestoreLayout() {
    AlignLabels();
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
    if (!textTool_->Close()) return event->ignore();
    sortCommands_->HideProgress();
    SaveOnClose();
    event->accept();
}

void frmPLM::Work_BusyChanged(bool busy) {
    controls_->Rest(busy);
    listCommands_->Rest(busy);
    preview_->Rest(busy);
    textTool_->Rest(busy);
    if (busy) return;
    status_->EndProgress();
    if (closeWhenDone_) QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

void frmPLM::Work_Progressed() {
    // While the window cannot be used, a window above it shows how far the work is.
    if (isEnabled()) status_->ShowProgress(work_.Current()->Progress());
}

void frmPLM::cmdOptions_Click() {
    frmOptions options(context_, this);
    if (options.exec() == QDialog::Accepted) preview_->RenewAll();
}

void frmPLM::mnuHelpMe_Click() { status_->Say(OpenHelp(context_.ProgramFolder, context_.Files)); }

void frmPLM::mnuAbout_Click() {
    context_.Ask.Inform(AboutMessage(PLM_VERSION_MAJOR, PLM_VERSION_MINOR));
}

}  // namespace mdlPLM
