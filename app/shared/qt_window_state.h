// Sizes and positions of windows, kept in a section of their own beside the settings.
#pragma once

#include "core/settings/settings_store.h"

class QSize;
class QSplitter;
class QWidget;

namespace mdlPLM {

/// Puts the size and place of a window into the store, under its object name. Nothing is saved to
/// disk by these functions.
void KeepGeometry(const QWidget& window, SettingsStore& store);
/// Takes size and place back; false when none was kept (the window stays as it is).
bool RestoreGeometry(QWidget& window, const SettingsStore& store);

/// Gives a window the size it wants, or as much of it as its screen has room for with the frame.
void FitOnScreen(QWidget& window, const QSize& wanted);

/// The same for the sizes of a splitter, under the names of its window and its own.
void KeepSplitter(const QSplitter& splitter, SettingsStore& store);
bool RestoreSplitter(QSplitter& splitter, const SettingsStore& store);

}  // namespace mdlPLM
