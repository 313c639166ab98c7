// Dropped items become files, as a queue of work drives it.
#pragma once

#include <memory>
#include <utility>

#include "app/list/list_tasks.h"
#include "app/shared/name_from_text_host.h"

namespace mdlPLM {

class GatherTask final : public ListTask {
public:
    GatherTask(Text what, std::unique_ptr<FileGathering> gathering)
        : what_(std::move(what)), gathering_(std::move(gathering)) {}

    bool Step() override { return gathering_->Step(files_); }
    [[nodiscard]] RunProgress Progress() const override { return {what_, 0, 0}; }
    /// What has been found so far.
    [[nodiscard]] const std::vector<Text>& Files() const { return files_; }

private:
    Text what_;
    std::unique_ptr<FileGathering> gathering_;
    std::vector<Text> files_;
};

}  // namespace mdlPLM
