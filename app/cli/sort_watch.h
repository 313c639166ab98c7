// A sort run as it is seen from outside: what became of each file, told as soon as it is known.
#pragma once

#include "app/cli/action_log.h"
#include "app/cli/records.h"
#include "app/cli/terminal_prompts.h"
#include "app/sort/sort_engine.h"

namespace mdlPLM::cli {

/// Looks at a run after each of its steps and prints what it has settled since, and the folders
/// that were made.
class SortWatch {
public:
    /// `naming`: what new names come from, for the fields of the records; nothing where names are
    /// kept.
    SortWatch(Report& report, const PathSpelling& spelling, ActionLog& disk,
              PlanningPrompts& planner, const NamingContext* naming)
        : report_(report), spelling_(spelling), disk_(disk), planner_(planner), naming_(naming) {}

    /// Before a step: the file that comes next, while it is still as it was.
    void Expect(const Text& path);
    /// After the step.
    void Look(const SortRun& run, SortMethod method);

private:
    void PutFolders();
    void PutFile(const FileOutcome& file, SortMethod method);

    Report& report_;
    const PathSpelling& spelling_;
    ActionLog& disk_;
    PlanningPrompts& planner_;
    const NamingContext* naming_;
    Text expected_;
    std::optional<GatheredFields> fields_;  ///< of the expected file
    std::size_t told_ = 0;                  ///< records of the run that have been printed
};

}  // namespace mdlPLM::cli
