#include "app/window/qt_player_commands.h"

#include <QEvent>

#include "app/dialogs/qt_player.h"
#include "app/shared/qt_text.h"
#include "app/tags/frmPLM_tagpanel.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

PlayerCommands::PlayerCommands(const WindowParts& parts, const ShownFile& shown,
                               MediaPlayer& player)
    : parts_(parts), shown_(shown), player_(player) {
    player_.Watch({[this](const Text& file) { Player_Started(file); }, [this] { Player_Ended(); },
                   [this](const PlayerFault& fault) { Player_Failed(fault); },
                   [this] { Tell(tr("Nothing is heard: there is no sound device.")); }});
    const Ui::frmPLM& controls = parts_.Controls;
    connect(controls.cmdOpenMP3, &QPushButton::clicked, this, &PlayerCommands::Play);
    connect(controls.mnuPlayFile, &QAction::triggered, this, &PlayerCommands::Play);
    connect(controls.mnuStopPlay, &QAction::triggered, this, [this] { player_.Stop(); });
    controls.cmdOpenMP3->installEventFilter(this);  // its tool tip is made when the mouse is on it
}

PlayerCommands::~PlayerCommands() {
    player_.Watch({});
    player_.Stop();
}

bool PlayerCommands::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) cmdOpenMP3_MouseMove();
    return QObject::eventFilter(watched, event);
}

void PlayerCommands::Play() {
    const bool several = parts_.List.SelectedCount() >= 2;
    const Text file = FileToPlay(shown_.CurrentPath(), several, parts_.Context.Files);
    if (file.empty()) return;
    // What was said of another file holds no more; what was said of other work stays.
    if (!told_.isEmpty() && parts_.Status.Said() == told_) Tell({});
    player_.Play(file);
}

void PlayerCommands::Tell(const QString& text) {
    told_ = text;
    parts_.Status.Say(text);
}

void PlayerCommands::cmdOpenMP3_MouseMove() {
    parts_.Controls.cmdOpenMP3->setToolTip(ToQt(OpenToolTip(shown_.CurrentPath())));
}

void PlayerCommands::Player_Started(TextView file) {
    parts_.Tags.ShowPlayed(ToQt(NowPlayingToolTip(file)));
}

void PlayerCommands::Player_Ended() { parts_.Tags.ShowPlayed({}); }

void PlayerCommands::Player_Failed(const PlayerFault& fault) {
    Player_Ended();
    Tell(PlayerFaultText(fault));
}

}  // namespace mdlPLM
