// A sort run as it is seen from outside: what became of each file, told as soon as it is known.
#pragma once

#include "app/cli/action_log.h"
#include "app/cli/records.h"
#include "app/cli/terminal_prompts.h"
#include "app/sort/sort_engine.h"

namespace mdlPLM::cli {

/// Looks at a run after each of its steps and prints a record for every file that it has settled
/// and every folder that was made.
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
    void PutFolderFailures(const SortReport& now);
    void PutFile(const SortRun& run, SortMethod method);
    void Judge(const SortRun& run, SortMethod method, FileRecord& record);
    [[nodiscard]] Outcome WhatWasDone(FileRecord& record, SortMethod method) const;
    [[nodiscard]] Outcome WhySkipped(FileRecord& record);

    Report& report_;
    const PathSpelling& spelling_;
    ActionLog& disk_;
    PlanningPrompts& planner_;
    const NamingContext* naming_;
    std::vector<Action> actions_;  ///< done for the file in hand
    Text expected_;
    std::optional<GatheredFields> fields_;  ///< of the expected file
    // What the run had told when it was looked at last.
    std::size_t done_ = 0;
    std::size_t failures_ = 0;
};

}  // namespace mdlPLM::cli
