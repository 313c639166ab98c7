// The start of the program, as far as it goes without a window: what a command line leads to, what
// is read first, what is printed.
#pragma once

#include <functional>
#include <iosfwd>

#include "app/start/command_line.h"
#include "core/settings/settings_store.h"
#include "core/text/language.h"

namespace mdlPLM {

/// What is read before the command line is looked at: settings first, then "replaces.txt".
struct StartData {
    SettingsStore Store;
    Status StoreRead;  ///< the defaults are in force when it could not be read
    Settings Values;
    Text ProgramFolder;
    Text ListsFolder;  ///< where the three text files are, with trailing separator
    ReplacementList Replacements;
};

/// Where it is read from.
struct StartFolders {
    Text SettingsFile;
    Text Program;  ///< with trailing separator, as the next
    Text Data;
};
StartFolders SystemFolders();
StartData LoadStartData(const StartFolders& folders);

/// What the program is started in.
struct Surroundings {
    std::istream& In;
    std::ostream& Out;
    std::ostream& Errors;
    StartFolders Folders;
    bool HasDisplay = false;
    /// Both are called only where there is a display; they are the first to touch the window
    /// system.
    std::function<std::optional<Text>(const Message&)> AskInBox;
    std::function<int(StartData&, const std::vector<Text>& listPaths)> OpenWindow;
    Language Words = {};  ///< of what is printed
    /// True once the program has been asked to end (a signal).
    std::function<bool()> ShouldStop = {};
};

/// Looks up a variable of the environment; null when there is none.
using Environment = std::function<const char*(const char*)>;

/// True when a window can be asked for: a display is named, or a platform that needs none.
bool HasDisplay(const Environment& environment);

/// Does what the arguments ask for and returns the exit status.
int RunProgram(const std::vector<Text>& arguments, const Surroundings& surroundings);

Text HelpText(const Language& words = {});
Text VersionText();
/// What a window needs, and how to go on without one.
Text NoDisplayText(const Language& words = {});

}  // namespace mdlPLM
