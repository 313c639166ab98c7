// What the windows share. The application owns one and hands it to each window.
#pragma once

#include "core/platform/disk.h"
#include "core/platform/left_overs.h"
#include "core/platform/prompts.h"
#include "core/settings/settings_store.h"
#include "core/settings/user_lists.h"

namespace mdlPLM {

class FileDialogs;

struct AppContext {
    Settings Values;               ///< the one Settings value in force
    ReplacementList Replacements;  ///< "replaces.txt"
    SettingsStore& Store;
    Disk& Files;
    Prompts& Ask;  ///< boxes over the active window
    FileDialogs& Dialogs;
    Text ListsFolder;               ///< where the three text files are, with trailing separator
    Text ProgramFolder;             ///< with trailing separator
    bool StoreFailureTold = false;  ///< see SaveSettings
    /// Looks through the folders that are written to; none: nothing is removed from them.
    LeftOvers* LeftBehind = nullptr;
};

}  // namespace mdlPLM
