// A window as a user of the keyboard, or one who listens, meets it.
#pragma once

#include <QStringList>

class QWidget;

namespace mdlPLM {

/// What keeps such a user from using what the active window shows now: controls without a name that
/// is read out, controls that Tab does not reach, keys that two of them share.
QStringList KeyboardFaults(QWidget& window);

/// Entries of the window's menus without a key, and keys that two entries of a menu share.
QStringList MenuFaults(const QWidget& window);

}  // namespace mdlPLM
