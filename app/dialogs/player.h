// Playing the current file, without the toolkit: what would be played, what the tool tips say, and
// a player that is made when it is first used and lets go of a file before the file is touched.
#pragma once

#include <functional>
#include <memory>

#include "core/platform/disk.h"

namespace mdlPLM {

/// Why a file is not played; the window words it.
struct PlayerFault {
    enum class Kind {
        NoPlayer,         ///< the part of the program that plays, or what it needs, is not there
        MissingElements,  ///< the sound system lacks elements; `Detail` lists them
        NoSoundDevice,    ///< nothing to play on
        CannotPlay,       ///< this file; `Detail` is the sound system's reason
    };
    Kind Why = Kind::CannotPlay;
    Text File;
    Text Detail;
};

/// What a player reports. Each may be called while Play or Stop is still running, or later.
struct PlayerEvents {
    std::function<void(const Text& file)> Started = [](const Text&) {};
    std::function<void()> Ended = [] {};  ///< at the end of the file, or stopped
    std::function<void(const PlayerFault& fault)> Failed = [](const PlayerFault&) {};
    std::function<void()> Unheard = [] {};  ///< it has started, but there is no sound device
};

/// A component that plays one file at a time.
class Player {
public:
    virtual ~Player() = default;
    /// Plays `path` from its beginning, in place of what is being played.
    virtual void Play(TextView path) = 0;
    /// Ends playback. When it returns, the file is not held open any more.
    virtual void Stop() = 0;
};

/// Makes the player; nothing when it cannot be made, with the reason in `fault`.
using PlayerFactory =
    std::function<std::unique_ptr<Player>(const PlayerEvents& events, PlayerFault& fault)>;

/// Somebody who may hold a file open and lets go of it when told.
class FileUser {
public:
    virtual ~FileUser() = default;
    /// Called before the file at `path` is renamed, moved, written or deleted.
    virtual void Release(TextView path) = 0;
};

/// The main window's player.
class MediaPlayer final : public FileUser {
public:
    /// Nothing is made or loaded before the first Play.
    explicit MediaPlayer(PlayerFactory make, PlayerEvents events = {});
    ~MediaPlayer() override;
    MediaPlayer(const MediaPlayer&) = delete;
    MediaPlayer& operator=(const MediaPlayer&) = delete;

    /// Who is told from now on.
    void Watch(PlayerEvents events) { events_ = std::move(events); }
    void Play(TextView path);
    void Stop();
    void Release(TextView path) override;
    /// The file that is being played; empty when none is.
    [[nodiscard]] const Text& FileName() const { return file_; }

private:
    bool Ready();
    [[nodiscard]] PlayerEvents Watched();

    PlayerFactory make_;
    PlayerEvents events_;
    std::unique_ptr<Player> player_;
    Text file_;
};

/// The file that a play command plays: the path of the current entry (empty when there is none)
/// when it exists and fewer than two entries are selected; else nothing.
Text FileToPlay(TextView currentPath, bool multipleSelection, Disk& disk);

/// Tool tip of the open button: "Open: " and the path; empty when no entry is current.
Text OpenToolTip(TextView currentPath);

/// Tool tip of the tab picture while `file` is played; empty for none.
Text NowPlayingToolTip(TextView file);

}  // namespace mdlPLM
