// What the status line says after a command on the list.
#pragma once

#include "app/list/list_operations.h"
#include "core/text/language.h"

namespace mdlPLM {

/// The end that a command came to.
enum class CommandEnd { Reached, Stopped };

/// "1 file", "12 files".
Text CountOfFiles(std::size_t count, const Language& words = {});

/// What a run came to: its summary, and that it was stopped.
Text RunStatus(TextView summary, CommandEnd end, const Language& words = {});

Text AddedText(std::size_t count, CommandEnd end, const Language& words = {});
Text SavedListText(std::size_t count, TextView path, const Language& words = {});
Text RemovedText(std::size_t count, const Language& words = {});
/// After DeletionFromDisk, ScanForMissing and ScanForTag. Half a selection would look like a whole
/// one, so a search for tags that is stopped selects nothing.
Text DeletedText(const ListScan& scan, const Language& words = {});
Text MissingText(const ListScan& scan, const Language& words = {});
Text SelectedByTagText(const ListScan& scan, CommandEnd end, const Language& words = {});

}  // namespace mdlPLM
