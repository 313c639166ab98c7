// A run of the sort engine as the main window drives it.
#pragma once

#include "app/list/list_tasks.h"
#include "app/sort/sort_engine.h"

namespace mdlPLM {

/// Keeps what the run refers to: settings, replacement list and input pattern stay as they were at
/// the start.
class SortTask : public ListTask {
public:
    SortTask(FileList& list, SortChoices choices, SortStart start, const NamingContext& naming,
             Disk& disk, Prompts& prompts)
        : what_(choices.Words(PLM_TRANSLATE("Texts", "Sorting"))),
          kept_(naming),
          naming_(kept_.Context()),
          run_(list, std::move(choices), start, naming_, disk, prompts) {}
    SortTask(const SortTask&) = delete;
    SortTask& operator=(const SortTask&) = delete;

    bool Step() override { return run_.Step(); }
    bool Stop() override {
        run_.Stop();  // the copy under way is finished first
        return false;
    }
    void Finish(bool /*stopped*/) override { run_.FlushRemovals(); }
    [[nodiscard]] TaskProgress Progress() const override {
        const SortProgress& progress = run_.Progress();
        return {what_, progress.Done, progress.Total};
    }
    [[nodiscard]] SortRun& Run() { return run_; }

private:
    Text what_;
    KeptNaming kept_;
    NamingContext naming_;
    SortRun run_;
};

}  // namespace mdlPLM
