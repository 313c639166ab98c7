// A run over the tags of many files as the main window drives it.
#pragma once

#include "app/list/list_tasks.h"
#include "app/tags/tag_run.h"

namespace mdlPLM {

class TagTask : public ListTask {
public:
    using Ended = std::function<void(const TagReport& report)>;
    TagTask(Text what, TagRun run, Ended ended)
        : what_(std::move(what)), run_(std::move(run)), ended_(std::move(ended)) {}

    bool Step() override { return run_.Step(); }
    bool Stop() override {
        run_.Stop();
        return run_.Finished();
    }
    void Finish(bool /*stopped*/) override { ended_(run_.Report()); }
    [[nodiscard]] RunProgress Progress() const override {
        return {what_, run_.Done(), run_.Total()};
    }

private:
    Text what_;
    TagRun run_;
    Ended ended_;
};

}  // namespace mdlPLM
