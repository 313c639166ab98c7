// What the name-from-text window needs of the main window, handed in by it: the window knows
// neither frmPLM nor the dialogs.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "core/settings/settings.h"

class QWidget;

namespace mdlPLM {

/// The progress window of a rename run. It is on the screen from its making to its destruction, and
/// so long the main window rests. It leaves the window that it was opened for alone (that one
/// disables what must rest by itself).
class RunProgressWindow {
public:
    virtual ~RunProgressWindow() = default;
    /// Pair `number` (1-based) of `total` is about to be handled.
    virtual void ShowPair(TextView oldName, TextView newName, std::size_t number,
                          std::size_t total) = 0;
    /// The stop flag: its button was pressed, or it was closed by other means. False when opened.
    [[nodiscard]] virtual bool StopRequested() const = 0;
    /// The button says "Done!".
    virtual void ShowDone() = 0;
};

/// Dropped items to files, a step at a time: folders are walked, list files are read or left out,
/// single files are taken as they are.
class FileGathering {
public:
    virtual ~FileGathering() = default;
    /// Appends the next files to `paths`; false when nothing is left.
    virtual bool Step(std::vector<Text>& paths) = 0;
};

class NameFromTextHost {
public:
    virtual ~NameFromTextHost() = default;
    /// The texts of the main window's pattern boxes at this moment.
    [[nodiscard]] virtual Text InPattern() const = 0;
    [[nodiscard]] virtual Text OutPattern() const = 0;
    /// The main window's check box "Fix Filenames".
    [[nodiscard]] virtual bool chkConvert() const = 0;
    /// The main window's choice for a target that exists.
    [[nodiscard]] virtual IfExists ExistsChoice() const = 0;
    /// The one-name edit dialog, modal over `parent`; nothing when it was cancelled.
    virtual std::optional<Text> EditName(QWidget* parent, TextView name) = 0;
    virtual std::unique_ptr<RunProgressWindow> OpenProgress(QWidget* parent) = 0;
    virtual std::unique_ptr<FileGathering> GatherFiles(std::vector<Text> dropped) = 0;
    /// The folder of the last source file: kept for the life of the process, empty at its start.
    [[nodiscard]] virtual Text LastSourceFolder() const = 0;
    virtual void SetLastSourceFolder(TextView folder) = 0;
};

}  // namespace mdlPLM
