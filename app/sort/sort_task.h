// A run of the sort engine as the main window drives it.
#pragma once

#include "app/list/list_tasks.h"
#include "app/sort/sort_engine.h"

namespace mdlPLM {

/// Keeps what the run refers to; its input pattern stays as it was at the start.
class SortTask : public ListTask {
public:
    SortTask(FileList& list, SortChoices choices, SortStart start, const NamingContext& naming,
             Disk& disk, Prompts& prompts)
        : what_(choices.Words(PLM_TRANSLATE("Texts", "Sorting"))),
          inPattern_(naming.InPattern),
          naming_{naming.Values, naming.Replacements, inPattern_},
          run_(list, std::move(choices), start, naming_, disk, prompts) {}

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
    Text inPattern_;
    NamingContext naming_;
    SortRun run_;
};

}  // namespace mdlPLM
