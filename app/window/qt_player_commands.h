// The current file is played.
#pragma once

#include "app/dialogs/player.h"
#include "app/window/qt_shown_file.h"

namespace mdlPLM {

class PlayerCommands : public QObject {
    Q_OBJECT

public:
    /// Watches the player until it is destroyed, and then stops it.
    PlayerCommands(const WindowParts& parts, const ShownFile& shown, MediaPlayer& player);
    ~PlayerCommands() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Play();
    void Tell(const QString& text);
    void cmdOpenMP3_MouseMove();
    void Player_Started(TextView file);
    void Player_Ended();
    void Player_Failed(const PlayerFault& fault);

    WindowParts parts_;
    const ShownFile& shown_;
    MediaPlayer& player_;
    QString told_;  ///< what the player said last
};

}  // namespace mdlPLM
