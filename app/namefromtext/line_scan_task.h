// A line scan as a queue of work drives it.
#pragma once

#include <utility>

#include "app/list/list_tasks.h"
#include "app/namefromtext/line_scan.h"

namespace mdlPLM {

class LineScanTask final : public ListTask {
public:
    static constexpr std::size_t LinesPerStep = 200;

    LineScanTask(Text what, LineScan scan) : what_(std::move(what)), scan_(std::move(scan)) {}

    bool Step() override { return scan_.Step(LinesPerStep, names_); }
    /// In percent of the text.
    [[nodiscard]] RunProgress Progress() const override {
        return {what_, 100 * scan_.Done() / scan_.Total(), 100};
    }
    /// What the scan has made so far.
    [[nodiscard]] const std::vector<Text>& Names() const { return names_; }

private:
    Text what_;
    LineScan scan_;
    std::vector<Text> names_;
};

}  // namespace mdlPLM
