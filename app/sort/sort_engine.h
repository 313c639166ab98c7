// The sort engine: the selected entries, one file per step, copied, moved or renamed to their clean
// names and folders. It knows no widget; whoever drives it calls Step until it is finished, so that
// a window can answer between steps (a large copy takes several).
#pragma once

#include <memory>
#include <vector>

#include "app/list/file_failures.h"
#include "app/list/file_list.h"
#include "app/sort/sort_choices.h"
#include "core/platform/disk.h"
#include "core/platform/prompts.h"

namespace mdlPLM {

/// The checks of the target folder (Copy and Move; Rename passes at once): an empty one is refused
/// with a message, a missing one is created after a question; one that cannot be created, or is no
/// folder, gives a message too. True when the sort may begin.
bool CheckTargetFolder(const SortChoices& choices, Disk& disk, Prompts& prompts);

/// Which button started it: only the whole-list sort counts artists beforehand.
enum class SortStart { All, ThisFile };

struct SortProgress {
    Text Method;                ///< "Copying file:", "Moving file:", "Renaming file:"
    Text Source;                ///< the file being handled (path)
    Text Target;                ///< where it goes (path)
    std::size_t Done = 0;       ///< entries looked at
    std::size_t Total = 0;      ///< entries selected at the start
    std::int64_t FileDone = 0;  ///< bytes of the copy under way
    std::int64_t FileTotal = 0;
};

/// What became of one entry.
struct SortedFile {
    enum class Outcome { Done, Skipped, Failed };
    Outcome What = Outcome::Done;
    Text Source;
    Text Target;  ///< where it is now, when it is done
    Text Reason;  ///< why not, when it is not
};

struct SortReport {
    /// Entries that leave the list.
    std::size_t Handled = 0;
    /// Those of them whose target existed and was left as it is.
    std::size_t LeftAlone = 0;
    /// Entries that stay without a failure: the file is missing or has no artist, "No" of a rename.
    std::size_t Skipped = 0;
    bool Cancelled = false;             ///< ended by Cancel in a question
    bool Stopped = false;               ///< ended by the stop flag
    std::vector<FileFailure> Failures;  ///< files, and folders that could not be made
    std::vector<SortedFile> Files;      ///< every entry that was looked at, in order
};

class SortRun {
public:
    /// Takes the entries selected now. `context` must outlive the run; the list must not change
    /// while the run is under way except through it. Rows that were handled are taken out of the
    /// list in few large changes (FlushRemovals), never one view reset per file.
    SortRun(FileList& list, SortChoices choices, SortStart start, const NamingContext& context,
            Disk& disk, Prompts& prompts);
    ~SortRun();
    SortRun(const SortRun&) = delete;
    SortRun& operator=(const SortRun&) = delete;

    /// Does the next piece of work: a step of the preparation (artist counts), one file, or a piece
    /// of a large copy. False when the run is finished.
    bool Step();
    /// The stop flag: the copy under way is finished, no further file is begun.
    void Stop() { stop_ = true; }
    [[nodiscard]] bool Finished() const { return finished_; }
    /// Takes the handled entries out of the list now (at the end of the run it happens by itself).
    void FlushRemovals();
    [[nodiscard]] const SortProgress& Progress() const { return progress_; }
    [[nodiscard]] const SortReport& Report() const { return report_; }
    /// The row that took (or will take) the last handled one's place once the handled entries are
    /// out of the list; Count() when there is none.
    [[nodiscard]] FileList::Index NextRow() const;

private:
    struct Implementation;
    std::unique_ptr<Implementation> impl_;
    SortProgress progress_;
    SortReport report_;
    bool stop_ = false;
    bool finished_ = false;
};

/// The one message at the end that names what failed and why; empty when nothing failed. It stays
/// short enough for a box: behind the first failures it says how many more there are.
Text FailureText(const std::vector<FileFailure>& failures, const Language& words = {});

/// "12 done, 3 skipped, 1 failed": the status line after a run. An entry whose target was left as
/// it is counts as skipped.
Text SummaryText(const SortReport& report, const Language& words = {});
/// What became of every entry, one line each.
Text ReportList(const SortReport& report, const Language& words = {});

}  // namespace mdlPLM
