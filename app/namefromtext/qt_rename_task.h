// A rename run with its progress window, as a queue of work drives it: one pair in a step.
#pragma once

#include <memory>
#include <utility>

#include "app/list/list_tasks.h"
#include "app/namefromtext/rename_run.h"
#include "app/shared/name_from_text_host.h"

namespace mdlPLM {

/// Ended from outside it still writes the tags that wait: their files have been renamed already.
class RenameTask final : public ListTask {
public:
    RenameTask(std::unique_ptr<RenameRun> run, std::unique_ptr<RunProgressWindow> window);

    /// One step more than there are pairs: the stop flag counts behind the last one too.
    bool Step() override;
    bool Stop() override;
    /// Closes the progress window.
    void Finish(bool stopped) override;
    [[nodiscard]] RunProgress Progress() const override {
        return {{}, run_->Done(), run_->Total()};
    }
    [[nodiscard]] const RenameReport& Renamed() const { return run_->Report(); }

private:
    void ShowNextPair();

    std::unique_ptr<RenameRun> run_;
    std::unique_ptr<RunProgressWindow> window_;
};

}  // namespace mdlPLM
