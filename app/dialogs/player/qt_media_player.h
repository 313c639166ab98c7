// The player on Qt Multimedia. It lives in a library of its own that is loaded at the first play,
// so that nobody waits for it at start-up and the program runs where Qt Multimedia is missing.
#pragma once

#include <QAudioOutput>
#include <QIODevice>
#include <QMediaPlayer>
#include <QObject>
#include <memory>

#include "app/dialogs/player.h"
#include "core/platform/file.h"

namespace mdlPLM {

/// A file as a stream that is read once from its beginning. The sound system gets this and not the
/// file's address, for three reasons: a name in no encoding has no address; the file is closed when
/// this object says so; and a stream that cannot be wound is not wound at the start of playback,
/// which ends it at once when its length is not known yet. Emits readChannelFinished when all is
/// read.
class MusicStream final : public QIODevice {
public:
    Status Open(TextView path);
    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] qint64 bytesAvailable() const override { return file_.Size() - next_; }
    [[nodiscard]] bool atEnd() const override { return bytesAvailable() <= 0; }

protected:
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

private:
    File file_;
    qint64 next_ = 0;
};

class QtMediaPlayer final : public QObject, public Player {
public:
    explicit QtMediaPlayer(PlayerEvents events);
    ~QtMediaPlayer() override;
    void Play(TextView path) override;
    void Stop() override;

private:
    /// What one play needs; thrown away afterwards, which closes the file.
    struct Session {
        ~Session();
        std::unique_ptr<MusicStream> Music = std::make_unique<MusicStream>();
        QAudioOutput Output;
        QMediaPlayer Media;
        Text Path;
        bool Started = false;
    };
    void Connect();
    void NoteStatus(QMediaPlayer::MediaStatus status);
    void NoteError(const QString& reason);
    std::unique_ptr<Session> Take();
    void TakeLater(std::unique_ptr<Session> session);

    PlayerEvents events_;
    std::unique_ptr<Session> session_;
};

/// What is missing for playing on this machine; nothing when the player can be made. Making it
/// without what it needs would end the program.
bool CanPlay(PlayerFault& fault);

/// False when sound goes nowhere on this machine: GStreamer plays on without a device.
bool HasSoundDevice();

}  // namespace mdlPLM
