#include "app/dialogs/frmOptions.h"

#include "app/dialogs/options_form.h"
#include "app/dialogs/qt_replacement_model.h"
#include "app/shared/qt_entry_filter.h"
#include "app/shared/qt_save_settings.h"
#include "app/shared/qt_setting_controls.h"
#include "app/shared/qt_text.h"
#include "core/platform/path.h"
#include "ui_frmOptions.h"

namespace mdlPLM {

namespace {

using Form = Ui::frmOptions;

constexpr SettingControl<Form> SettingControls[] = {
    Bound<Form, &Form::chkID3, &Settings::bID3>(),
    Bound<Form, &Form::chkExtension, &Settings::bExtension>(),
    Bound<Form, &Form::txtExtension, &Settings::Extension>(),
    Bound<Form, &Form::chkLowext, &Settings::bLowExtension>(),
    Bound<Form, &Form::chkUndtospace, &Settings::bScoreToSpace>(),
    Bound<Form, &Form::chk20tospace, &Settings::b20toSpace>(),
    Bound<Form, &Form::chkSpaces, &Settings::bSpaces>(),
    Bound<Form, &Form::chkParenth, &Settings::bParentheses>(),
    Bound<Form, &Form::chkReplace, &Settings::bReplace>(),
    Bound<Form, &Form::chkMisses, &Settings::bMisses>(),
    Bound<Form, &Form::chkSetAttributes, &Settings::bSetAttributes>(),
    Bound<Form, &Form::chkReadOnly, &Settings::bReadOnly>(),
    Bound<Form, &Form::chkHidden, &Settings::bHidden>(),
    Bound<Form, &Form::chkArchive, &Settings::bArhive>(),
    Bound<Form, &Form::chkRemoveChars, &Settings::bRemoveChars>(),
    Bound<Form, &Form::txtRemoveChars, &Settings::strSettings>(),
    Bound<Form, &Form::chkRemHiddenID3, &Settings::bRemHiddenID3>(),
    Bound<Form, &Form::chkOptimizeID3v1, &Settings::bOptimizedID3v1>(),
    Bound<Form, &Form::optChange, &Settings::Change>(),
};
static_assert(AllWrittenBy(WrittenBy::OptionsDialog, SettingControls));
static_assert(std::size(SettingControls) == CountWrittenBy(WrittenBy::OptionsDialog));

QString CountText(std::size_t pairs) {
    if (pairs == 0) return frmOptions::tr("No pairs in the list.");
    if (pairs == 1) return frmOptions::tr("1 pair in the list.");
    return frmOptions::tr("%1 pairs in the list.").arg(pairs);
}

}  // namespace

frmOptions::frmOptions(AppContext& context, QWidget* parent)
    : QDialog(parent),
      context_(context),
      ui_(std::make_unique<Ui::frmOptions>()),
      editor_(context.Replacements),
      finds_(new ReplacementModel(editor_, &Replacement::Find, this)),
      puts_(new ReplacementModel(editor_, &Replacement::Put, this)) {
    ui_->setupUi(this);
    NumberButtons(*ui_->optChange, {ui_->optChange0, ui_->optChange1, ui_->optChange2,
                                    ui_->optChange3, ui_->optChange4});
    ui_->cmbReplace1->setModel(finds_);
    ui_->cmbReplace2->setModel(puts_);
    FilterEntry(*ui_->txtExtension, IsForbiddenInExtension);
    FilterEntry(*ui_->txtRemoveChars);
    for (QComboBox* combo : {ui_->cmbReplace1, ui_->cmbReplace2}) {
        combo->setCompleter(nullptr);
        FilterEntry(*combo->lineEdit());
    }
    ShowSettings();
    ShowPair();
    ConnectHandlers();
}

frmOptions::~frmOptions() = default;

void frmOptions::ShowSettings() {
    for (const auto& row : SettingControls) row.Load(*ui_, context_.Values);
    ShowCaseOption();
}

// The Tab key goes to the chosen one; left alone it would go to the first.
void frmOptions::ShowCaseOption() {
    const QAbstractButton* chosen = ui_->optChange->button(context_.Values.Change);
    if (chosen == nullptr) return;
    for (QAbstractButton* button : ui_->optChange->buttons())
        button->setFocusPolicy(button == chosen ? Qt::StrongFocus : Qt::ClickFocus);
}

void frmOptions::ConnectHandlers() {
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmOptions::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->cmdAddReplace, &QPushButton::clicked, this, &frmOptions::cmdAddReplace_Click);
    connect(ui_->cmdRemReplace, &QPushButton::clicked, this, &frmOptions::cmdRemReplace_Click);
    for (QComboBox* combo : {ui_->cmbReplace1, ui_->cmbReplace2}) {
        connect(combo, &QComboBox::activated, this, &frmOptions::cmbReplace_Click);
        connect(combo->lineEdit(), &QLineEdit::textEdited, this, &frmOptions::cmbReplace_Change);
    }
}

void frmOptions::ShowPair() {
    entered_ = editor_.ShownPair();
    finds_->Reset();
    puts_->Reset();
    const bool isNew = editor_.Shown() == ReplacementEditor::NewPair;
    const int row = isNew ? -1 : static_cast<int>(editor_.Shown());
    ui_->cmbReplace1->setCurrentIndex(row);
    ui_->cmbReplace2->setCurrentIndex(row);
    ui_->cmbReplace1->setEditText(ToQt(entered_.Find));
    ui_->cmbReplace2->setEditText(ToQt(entered_.Put));
    ui_->lblReplaceCount->setText(CountText(editor_.Pairs().size()));
}

void frmOptions::TakeSettings() {
    for (const auto& row : SettingControls) row.Take(*ui_, context_.Values);
}

void frmOptions::SaveReplacementList() {
    context_.Replacements = editor_.Finish(entered_);
    const Status saved = SaveReplacements(context_.ListsFolder, context_.Replacements);
    if (saved.Ok()) return;
    const QString what =
        tr("The replacement list could not be saved. It holds until the program ends.");
    context_.Ask.Critical({{},
                           FromQt(what).append(CrLf).append(ErrorMessage(saved.Number())),
                           JoinPath(context_.ListsFolder, ReplacesFile)});
}

void frmOptions::cmdOK_Click() {
    TakeSettings();
    StoreSettings(context_.Values, WrittenBy::OptionsDialog, context_.Store);
    SaveSettings(context_);
    SaveReplacementList();
    accept();
}

void frmOptions::cmdAddReplace_Click() {
    editor_.AddNew(entered_);
    ShowPair();
    ui_->cmbReplace1->setFocus();
}

void frmOptions::cmdRemReplace_Click() {
    editor_.Remove();
    ShowPair();
    ui_->cmbReplace1->setFocus();
}

void frmOptions::cmbReplace_Click(int row) {
    editor_.Show(static_cast<std::size_t>(row), entered_);
    ShowPair();
}

void frmOptions::cmbReplace_Change() {
    entered_ = {FromQt(ui_->cmbReplace1->currentText()), FromQt(ui_->cmbReplace2->currentText())};
}

}  // namespace mdlPLM
