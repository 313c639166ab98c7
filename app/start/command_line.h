// The command line: batch renaming without a window, and what opens the window.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "core/platform/disk.h"
#include "core/platform/prompts.h"
#include "core/settings/settings.h"
#include "core/text/language.h"

namespace mdlPLM {

enum class BatchMode { None, Rename, Extension };

/// What a command line asks for.
struct BatchJob {
    BatchMode Mode = BatchMode::None;
    bool EndProgram = false;    ///< no window is to be opened, whatever the mode
    bool AskExtension = false;  ///< "+ext=" with an empty extension
    Text Argument;              ///< the rename pattern or the new extension
    std::vector<Text> Paths;    ///< the files, in order
};

/// The whole command line as one text, where the system gives it so: paths are split at the drive
/// letter (or the two backslashes) of the next path, which lets names hold blanks.
BatchJob ParseCommandLine(TextView commandLine);

/// Arguments that the system hands over one by one, the program's own name left out: each argument
/// after the switch is one path; the switch's value comes with or without its double quotes.
enum class StartKind { Window, Batch, List, Help, Version, Misuse };
struct StartRequest {
    StartKind Kind = StartKind::Window;
    BatchJob Job;                 ///< for Batch
    std::vector<Text> ListPaths;  ///< for List
};
StartRequest ParseArguments(const std::vector<Text>& arguments);

/// The prompt of the input box that asks for the extension.
inline constexpr TextView ExtensionPrompt = u"Enter new file extension (excluding \".\"): ";

/// Asks for the extension when the job says so. False when none was given (the box cancelled or
/// left empty): then nothing can be done.
bool SettleExtension(BatchJob& job, Prompts& prompts);

/// A file that has no new name, and why.
struct NamelessFile {
    Text Path;
    Text Reason;
};

/// Counts of a batch run; ExitStatus is 0 when every file was renamed or needed no renaming, 1 when
/// some could not be or were not begun, 2 when there was nothing that could be done.
struct BatchResult {
    std::size_t Renamed = 0;
    std::size_t Unchanged = 0;
    std::size_t Failed = 0;
    /// Those of them that have no new name. A rename that fails is not told.
    std::vector<NamelessFile> Nameless;
    std::size_t NotBegun = 0;  ///< the run was asked to end before them
    [[nodiscard]] int ExitStatus() const;
};

struct BatchManner {
    Language Words = {};  ///< of the reasons
    /// As soon as it says so, no further file is begun.
    std::function<bool()> ShouldStop = {};
};

/// Renames the files of a job; one that cannot be renamed (missing, a folder, a new name that is
/// taken) is counted and passed over. Nothing is ever replaced.
BatchResult RunBatch(const BatchJob& job, const NamingContext& context, Disk& disk,
                     const BatchManner& manner = {});

/// The new name of one file under "+ext": up to and including the last ".", then the extension; a
/// name without a "." gets it appended with no dot.
Text NameWithExtension(TextView name, TextView extension);

}  // namespace mdlPLM
