// Finds and loads the part of the program that plays, and words what keeps it from playing.
#pragma once

#include <QString>
#include <QStringList>

#include "app/dialogs/player.h"

namespace mdlPLM {

/// Where the library of the player may be, in the order they are tried: beside the program, then
/// where an installation puts it.
QStringList PlayerFolders(const QString& programFolder);

/// Makes players from the library found in one of `folders`; it is loaded by the first call.
PlayerFactory LoadedPlayers(QStringList folders);

/// One line for the status line: what is the matter, and where something can be done, what.
QString PlayerFaultText(const PlayerFault& fault);

}  // namespace mdlPLM
