#include "app/dialogs/player.h"

#include <utility>

namespace mdlPLM {

MediaPlayer::MediaPlayer(PlayerFactory make, PlayerEvents events)
    : make_(std::move(make)), events_(std::move(events)) {}

MediaPlayer::~MediaPlayer() = default;

bool MediaPlayer::Ready() {
    if (player_ != nullptr) return true;
    PlayerFault fault{PlayerFault::Kind::NoPlayer, file_, {}};
    player_ = make_(Watched(), fault);
    if (player_ != nullptr) return true;
    file_.clear();
    events_.Failed(fault);
    return false;
}

PlayerEvents MediaPlayer::Watched() {
    PlayerEvents watched;
    watched.Started = [this](const Text& file) { events_.Started(file); };
    watched.Ended = [this] {
        file_.clear();
        events_.Ended();
    };
    watched.Failed = [this](const PlayerFault& fault) {
        file_.clear();
        events_.Failed(fault);
    };
    watched.Unheard = [this] { events_.Unheard(); };
    return watched;
}

void MediaPlayer::Play(TextView path) {
    Stop();
    file_ = Text(path);
    if (Ready()) player_->Play(path);
}

void MediaPlayer::Stop() {
    if (player_ != nullptr && !file_.empty()) player_->Stop();
}

void MediaPlayer::Release(TextView path) {
    if (file_.empty()) return;
    if (file_ == path || IsSameFile(file_, path)) Stop();
}

Text FileToPlay(TextView currentPath, bool multipleSelection, Disk& disk) {
    if (multipleSelection || currentPath.empty() || !disk.Exists(currentPath)) return {};
    return Text(currentPath);
}

Text OpenToolTip(TextView currentPath) {
    return currentPath.empty() ? Text() : Text(u"Open: ").append(currentPath);
}

Text NowPlayingToolTip(TextView file) {
    return file.empty() ? Text() : Text(u"Now Playing: ").append(file);
}

}  // namespace mdlPLM
