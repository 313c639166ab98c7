#include "app/window/qt_command_controls.h"

#include <optional>

#include "app/shared/qt_icons.h"
#include "app/tags/frmPLM_tagpanel.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

namespace {

using Form = Ui::frmPLM;

enum class DuringWork { Rests, Stays };

struct Command {
    QPushButton* Form::*Button;
    QAction* Form::*Entry;
    std::optional<IconName> Picture;
    DuringWork Use;
};

constexpr Command Commands[] = {
    {&Form::cmdAddFiles, &Form::mnuAddFiles, IconName::AddFiles, DuringWork::Rests},
    {nullptr, &Form::mnuAddFolder, IconName::AddFolder, DuringWork::Rests},
    {&Form::cmdLoad, &Form::mnuLoad, IconName::OpenList, DuringWork::Rests},
    {&Form::cmdSave, &Form::mnuSave, IconName::SaveList, DuringWork::Rests},
    {&Form::cmdClear, &Form::mnuClear, IconName::ClearList, DuringWork::Rests},
    {nullptr, &Form::mnuExit, IconName::Exit, DuringWork::Stays},
    {&Form::cmdSelectAll, &Form::mnuSelectAll, IconName::SelectAll, DuringWork::Stays},
    {&Form::cmdSelectNone, &Form::mnuSelectNone, IconName::SelectNone, DuringWork::Stays},
    {nullptr, &Form::mnuSelInvert, IconName::SelectInvert, DuringWork::Stays},
    {nullptr, &Form::mnuSelV1Files, {}, DuringWork::Rests},
    {nullptr, &Form::mnuSelV2Files, {}, DuringWork::Rests},
    {nullptr, &Form::mnuEditName, IconName::Edit, DuringWork::Stays},
    {nullptr, &Form::mnuRemFromList, IconName::Remove, DuringWork::Rests},
    {nullptr, &Form::mnuRemFromHD, IconName::Delete, DuringWork::Rests},
    {nullptr, &Form::mnuNonExistent, {}, DuringWork::Rests},
    {nullptr, &Form::mnuSaveID3, IconName::SaveTags, DuringWork::Rests},
    {nullptr, &Form::mnuFixID3, IconName::FixTags, DuringWork::Rests},
    {nullptr, &Form::mnuMore, IconName::More, DuringWork::Stays},
    {&Form::cmdTargetDir, nullptr, IconName::BrowseFolder, DuringWork::Stays},
    {&Form::cmdSort, &Form::mnuSort, IconName::Sort, DuringWork::Rests},
    {&Form::cmdSortThisFile, &Form::mnuSortThisFile, IconName::SortOne, DuringWork::Rests},
    {&Form::cmdOptions, &Form::mnuOptions, IconName::Options, DuringWork::Rests},
    {&Form::cmdNameFromFile, &Form::mnuNameFromFile, IconName::NameFromText, DuringWork::Rests},
    {&Form::cmdOpenMP3, &Form::mnuPlayFile, IconName::Play, DuringWork::Stays},
    {nullptr, &Form::mnuStopPlay, IconName::Stop, DuringWork::Stays},
    {nullptr, &Form::mnuHelpMe, IconName::Help, DuringWork::Stays},
    {nullptr, &Form::mnuAbout, IconName::About, DuringWork::Stays},
};

}  // namespace

CommandControls::CommandControls(QWidget& window, const Ui::frmPLM& controls, frmPLM_tagpanel& tags)
    : window_(window), controls_(controls), tags_(tags) {
    SetIcons();
}

void CommandControls::SetIcons() {
    for (const Command& command : Commands) {
        if (!command.Picture) continue;
        const QIcon icon = Icon(*command.Picture);
        if (command.Button != nullptr) (controls_.*command.Button)->setIcon(icon);
        if (command.Entry != nullptr) (controls_.*command.Entry)->setIcon(icon);
    }
}

void CommandControls::Rest(bool rest) {
    if (rest) focusBefore_ = window_.focusWidget();
    for (const Command& command : Commands) {
        if (command.Use == DuringWork::Stays) continue;
        if (command.Button != nullptr) (controls_.*command.Button)->setEnabled(!rest);
        if (command.Entry != nullptr) (controls_.*command.Entry)->setEnabled(!rest);
    }
    tags_.Rest(rest);
    // A control that comes to rest passes the focus on; it gets it back unless the user moved it.
    if (rest)
        focusPassedOn_ = window_.focusWidget();
    else if (focusBefore_ != nullptr && window_.focusWidget() == focusPassedOn_)
        focusBefore_->setFocus();
}

}  // namespace mdlPLM
