// A run over the tags of many files as the main window drives it.
#pragma once

#include "app/list/list_tasks.h"
#include "app/tags/tag_run.h"
#include "core/platform/left_overs.h"

namespace mdlPLM {

class TagTask : public ListTask {
public:
    using Ended = std::function<void(const TagReport& report)>;
    /// `leftOvers`, where there are any to be removed, must outlive the task.
    TagTask(Text what, TagRun run, Ended ended, LeftOvers* leftOvers = nullptr)
        : what_(std::move(what)),
          run_(std::move(run)),
          ended_(std::move(ended)),
          leftOvers_(leftOvers) {}

    bool Step() override {
        if (leftOvers_ != nullptr) leftOvers_->LookBeside(run_.Current());
        return run_.Step();
    }
    bool Stop() override {
        run_.Stop();
        return run_.Finished();
    }
    void Finish(bool /*stopped*/) override { ended_(run_.Report()); }
    [[nodiscard]] TaskProgress Progress() const override {
        return {what_, run_.Done(), run_.Total()};
    }

private:
    Text what_;
    TagRun run_;
    Ended ended_;
    LeftOvers* leftOvers_;
};

}  // namespace mdlPLM
