#include "app/dialogs/player/qt_media_player.h"

#include <QMetaObject>
#include <QUrl>
#include <utility>

#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"
#include "core/tags/stream_info.h"

namespace mdlPLM {

Status MusicStream::Open(TextView path) {
    const Status opened = file_.Open(path, File::Mode::Read);
    if (!opened.Ok()) return opened;
    // Nothing would ever be asked of an empty one, nor its end be noticed.
    if (file_.Size() == 0) return ErrorNumber::InputPastEnd;
    // The sound system takes the padding that may follow a tag for something else than music.
    SilentErrors unread;
    next_ = FindFirstFrame(file_, ReadFileTags(file_, path, ID3v2Parts::NameFields, unread));
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    return {};
}

qint64 MusicStream::readData(char* data, qint64 most) {
    std::size_t got = 0;
    const Status read = file_.ReadAt(next_, static_cast<std::size_t>(most), data, got);
    if (!read.Ok()) return -1;
    next_ += static_cast<qint64>(got);
    if (got == 0 || atEnd()) emit readChannelFinished();
    return static_cast<qint64>(got);
}

// A player that goes while sound runs through it ends the program, so the sound is taken from it
// first. One that met an error before there was any sound would need a second for that.
QtMediaPlayer::Session::~Session() {
    if (Media.hasAudio()) Media.setSource(QUrl());
}

QtMediaPlayer::QtMediaPlayer(PlayerEvents events) : events_(std::move(events)) {}

QtMediaPlayer::~QtMediaPlayer() = default;

void QtMediaPlayer::Play(TextView path) {
    Stop();
    auto session = std::make_unique<Session>();
    session->Path = Text(path);
    const Status opened = session->Music->Open(path);
    if (!opened.Ok()) {
        events_.Failed({PlayerFault::Kind::CannotPlay, session->Path,
                        UserLanguage()(Describe(opened.Number()))});
        return;
    }
    session_ = std::move(session);
    session_->Media.setAudioOutput(&session_->Output);
    Connect();
    // Without an address of any kind nothing would be played; the stream is what counts.
    session_->Media.setSourceDevice(session_->Music.get(), QUrl(QStringLiteral("music.mp3")));
    if (session_ != nullptr) session_->Media.play();
}

void QtMediaPlayer::Connect() {
    QMediaPlayer& media = session_->Media;
    connect(&media, &QMediaPlayer::mediaStatusChanged, this, &QtMediaPlayer::NoteStatus);
    connect(&media, &QMediaPlayer::errorOccurred, this,
            [this](QMediaPlayer::Error, const QString& reason) { NoteError(reason); });
    // Only a stream that has gone is at its end for the sound system; one that has nothing more to
    // give is waited for.
    MusicStream* music = session_->Music.get();
    connect(
        music, &QIODevice::readChannelFinished, this,
        [this, music] {
            if (session_ != nullptr && session_->Music.get() == music) session_->Music.reset();
        },
        Qt::QueuedConnection);
}

void QtMediaPlayer::NoteStatus(QMediaPlayer::MediaStatus status) {
    if (session_ == nullptr) return;
    const bool running =
        status == QMediaPlayer::LoadedMedia || status == QMediaPlayer::BufferedMedia;
    if (running && !session_->Started) {
        session_->Started = true;
        events_.Started(session_->Path);
        if (!HasSoundDevice()) events_.Unheard();
    } else if (status == QMediaPlayer::EndOfMedia) {
        TakeLater(Take());
        events_.Ended();
    }
}

void QtMediaPlayer::NoteError(const QString& reason) {
    if (session_ == nullptr) return;
    PlayerFault fault{PlayerFault::Kind::CannotPlay, session_->Path, FromQt(reason)};
    TakeLater(Take());
    events_.Failed(fault);
}

void QtMediaPlayer::Stop() {
    if (Take() != nullptr) events_.Ended();
}

std::unique_ptr<QtMediaPlayer::Session> QtMediaPlayer::Take() {
    if (session_ != nullptr) session_->Media.disconnect(this);
    return std::move(session_);
}

// Called from within a signal of the very player that goes.
void QtMediaPlayer::TakeLater(std::unique_ptr<Session> session) {
    QMetaObject::invokeMethod(
        this, [gone = std::shared_ptr<Session>(std::move(session))] {}, Qt::QueuedConnection);
}

}  // namespace mdlPLM

extern "C" Q_DECL_EXPORT mdlPLM::Player* plm_make_player(const mdlPLM::PlayerEvents* events,
                                                         mdlPLM::PlayerFault* fault) {
    if (!mdlPLM::CanPlay(*fault)) return nullptr;
    return new mdlPLM::QtMediaPlayer(*events);
}
