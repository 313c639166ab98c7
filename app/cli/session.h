// One call of the program: what was asked, with the settings, lists and patterns in force.
#pragma once

#include <utility>

#include "app/cli/options.h"
#include "app/cli/report.h"
#include "core/platform/disk.h"
#include "core/platform/left_overs.h"
#include "core/settings/settings.h"

namespace mdlPLM::cli {

struct Session {
    /// `folder`: where relative paths are, with a separator at its end.
    Session(const Request& asked, Console& console, Text folder)
        : Asked(asked),
          Streams(console),
          Results(console, {asked.Common.Json, asked.Common.DryRun}),
          Folder(std::move(folder)) {}

    [[nodiscard]] NamingContext Naming() const { return {Values, Replacements, Values.InPattern}; }

    const Request& Asked;
    Console& Streams;
    Report Results;
    const Text Folder;
    Settings Values;  ///< the user's, with what the command line overrides
    ReplacementList Replacements;
    LeftOvers LeftBehind;  ///< told when the command is over
};

using mdlPLM::CurrentFolder;

/// Fills the settings and the replacement list: the user's own or the defaults, then --replaces,
/// the patterns and every --setting. False, and told, when something of that is wrong.
bool TakeSettings(Session& session);

/// What is to be done when a new name exists: the given choice, else the stored one on a terminal,
/// else "skip". Nothing, and told, for "ask" where nobody can be asked.
std::optional<IfExists> ExistsChoice(Session& session, std::optional<IfExists> given);

}  // namespace mdlPLM::cli
