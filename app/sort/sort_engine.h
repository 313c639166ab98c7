// The sort engine: the selected entries, one file per step, copied, moved or renamed to their clean
// names and folders. It knows no widget; whoever drives it calls Step until it is finished, so that
// a window can answer between steps (a large copy takes several).
#pragma once

#include <memory>
#include <vector>

#include "app/list/file_list.h"
#include "app/list/run_texts.h"
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

class SortRun : public Run {
public:
    /// Takes the entries selected now. Settings, replacement list and input pattern stay as they
    /// are now. The list must not change while the run is under way except through it. Rows that
    /// were handled are taken out of the list in few large changes (FlushRemovals), never one view
    /// reset per file.
    SortRun(FileList& list, SortChoices choices, SortStart start, const NamingContext& naming,
            Disk& disk, Prompts& prompts);
    ~SortRun() override;
    SortRun(const SortRun&) = delete;
    SortRun& operator=(const SortRun&) = delete;

    /// Does the next piece of work: a step of the preparation (artist counts), one file, or a piece
    /// of a large copy. False when the run is finished.
    bool Step() override;
    /// The copy under way is finished, no further file is begun.
    bool Stop() override;
    void Finish(bool stopped) override;
    [[nodiscard]] RunProgress Progress() const override { return progress_; }
    [[nodiscard]] bool Finished() const { return finished_; }
    /// Takes the handled entries out of the list now (at the end of the run it happens by itself).
    void FlushRemovals();
    /// Entries that leave the list, or have left it: what is in its place, and what "No" lets go.
    [[nodiscard]] std::size_t Handled() const;
    /// The row that took (or will take) the last handled one's place once the handled entries are
    /// out of the list; Count() when there is none.
    [[nodiscard]] FileList::Index NextRow() const;

private:
    struct Implementation;
    const KeptNaming kept_;
    const NamingContext naming_;
    std::unique_ptr<Implementation> impl_;
    RunProgress progress_;
    bool stop_ = false;
    bool finished_ = false;
};

/// How a sort speaks of itself.
extern const RunWording SortWording;

}  // namespace mdlPLM
