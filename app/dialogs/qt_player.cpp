#include "app/dialogs/qt_player.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>
#include <utility>

#include "app/shared/qt_text.h"

namespace mdlPLM {
namespace {

using MakePlayer = Player* (*)(const PlayerEvents*, PlayerFault*);

MakePlayer FindPlayer(const QStringList& folders, QString& why) {
    for (const QString& folder : folders) {
        QLibrary library(QDir(folder).filePath(QStringLiteral("pellmore-player")));
        if (auto make = reinterpret_cast<MakePlayer>(library.resolve("plm_make_player")))
            return make;
        why = library.errorString();
    }
    return nullptr;
}

struct Words {
    Q_DECLARE_TR_FUNCTIONS(Player)
};

}  // namespace

QStringList PlayerFolders(const QString& programFolder) {
    return {programFolder, QDir(programFolder).filePath(QStringLiteral(PLM_PLAYER_FOLDER))};
}

PlayerFactory LoadedPlayers(QStringList folders) {
    return [folders = std::move(folders)](const PlayerEvents& events, PlayerFault& fault) {
        QString why;
        const MakePlayer make = FindPlayer(folders, why);
        if (make != nullptr) return std::unique_ptr<Player>(make(&events, &fault));
        fault.Why = PlayerFault::Kind::NoPlayer;
        fault.Detail = FromQt(why);
        return std::unique_ptr<Player>();
    };
}

QString PlayerFaultText(const PlayerFault& fault) {
    const QString detail = ToQt(fault.Detail).simplified();
    switch (fault.Why) {
        case PlayerFault::Kind::NoPlayer:
            return Words::tr("Nothing is played: Qt Multimedia is missing (%1).").arg(detail);
        case PlayerFault::Kind::MissingElements:
            return Words::tr(
                       "Nothing is played: please install GStreamer's base and good plug-ins "
                       "(missing: %1).")
                .arg(detail);
        case PlayerFault::Kind::NoSoundDevice:
            return Words::tr("Nothing is played: there is no sound device.");
        case PlayerFault::Kind::CannotPlay:
            break;
    }
    return Words::tr("The file \"%1\" cannot be played: %2").arg(ToQt(fault.File), detail);
}

}  // namespace mdlPLM
