// A rename run with its progress window, as a queue of work drives it: one pair in a step.
#pragma once

#include <memory>
#include <utility>

#include "app/list/list_tasks.h"
#include "app/namefromtext/rename_run.h"
#include "app/shared/name_from_text_host.h"

namespace mdlPLM {

/// Ended from outside it gives up the tags that wait to be written: those files keep what they
/// have.
class RenameTask final : public ListTask {
public:
    RenameTask(RenameRun run, std::unique_ptr<RunProgressWindow> window);

    /// One step more than there are pairs: the stop flag counts behind the last one too.
    bool Step() override;
    /// Closes the progress window.
    void Finish(bool stopped) override;
    [[nodiscard]] TaskProgress Progress() const override { return {{}, run_.Done(), run_.Total()}; }
    [[nodiscard]] const RunReport& Report() const { return run_.Report(); }

private:
    void ShowNextPair();

    RenameRun run_;
    std::unique_ptr<RunProgressWindow> window_;
};

}  // namespace mdlPLM
