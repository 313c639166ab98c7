// frmPLM: the current file is played; help and about.
#include "app/dialogs/about.h"
#include "app/dialogs/qt_help.h"
#include "app/dialogs/qt_player.h"
#include "app/shared/qt_text.h"
#include "app/tags/frmPLM_tagpanel.h"
#include "app/window/frmPLM.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

void frmPLM::ConnectPlayer() {
    player_.Watch({[this](const Text& file) { Player_Started(file); }, [this] { Player_Ended(); },
                   [this](const PlayerFault& fault) { Player_Failed(fault); },
                   [this] { TellOfPlaying(tr("Nothing is heard: there is no sound device.")); }});
    connect(ui_->cmdOpenMP3, &QPushButton::clicked, this, &frmPLM::PlayCurrentFile);
    connect(ui_->mnuPlayFile, &QAction::triggered, this, &frmPLM::PlayCurrentFile);
    connect(ui_->mnuStopPlay, &QAction::triggered, this, [this] { player_.Stop(); });
    ui_->cmdOpenMP3->installEventFilter(this);  // its tool tip is made when the mouse is on it
}

void frmPLM::ConnectHelp() {
    connect(ui_->mnuHelpMe, &QAction::triggered, this, &frmPLM::mnuHelpMe_Click);
    connect(ui_->mnuAbout, &QAction::triggered, this, &frmPLM::mnuAbout_Click);
}

void frmPLM::PlayCurrentFile() {
    const Text file = FileToPlay(CurrentPath(), MultipleSelection(), context_.Files);
    if (file.empty()) return;
    // What was said of another file holds no more; what was said of other work stays.
    if (!toldOfPlaying_.isEmpty() && status_ == toldOfPlaying_) TellOfPlaying({});
    player_.Play(file);
}

void frmPLM::TellOfPlaying(const QString& text) {
    toldOfPlaying_ = text;
    SetStatus(text);
}

void frmPLM::cmdOpenMP3_MouseMove() {
    ui_->cmdOpenMP3->setToolTip(ToQt(OpenToolTip(CurrentPath())));
}

void frmPLM::Player_Started(TextView file) { tags_->ShowPlayed(ToQt(NowPlayingToolTip(file))); }

void frmPLM::Player_Ended() { tags_->ShowPlayed({}); }

void frmPLM::Player_Failed(const PlayerFault& fault) {
    Player_Ended();
    TellOfPlaying(PlayerFaultText(fault));
}

void frmPLM::mnuHelpMe_Click() { SetStatus(OpenHelp(context_.ProgramFolder, context_.Files)); }

void frmPLM::mnuAbout_Click() {
    context_.Ask.Inform(AboutMessage(PLM_VERSION_MAJOR, PLM_VERSION_MINOR));
}

}  // namespace mdlPLM
