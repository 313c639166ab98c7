// The source box takes a long text piece by piece, as a queue of work drives it.
#pragma once

#include <utility>

#include "app/list/list_tasks.h"
#include "app/namefromtext/qt_source_box.h"

namespace mdlPLM {

class FillTask final : public ListTask {
public:
    /// `box` has a text coming, and outlives the task.
    FillTask(Text what, SourceBox& box) : what_(std::move(what)), box_(box) {}

    bool Step() override { return box_.FillStep(); }
    void Finish(bool stopped) override {
        if (stopped) box_.StopFilling();
    }
    /// In percent of the text.
    [[nodiscard]] RunProgress Progress() const override {
        return {what_, static_cast<std::size_t>(box_.FilledPercent()), 100};
    }

private:
    Text what_;
    SourceBox& box_;
};

}  // namespace mdlPLM
