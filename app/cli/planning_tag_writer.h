// Tags that are not written: what would come of it is told.
#pragma once

#include "core/platform/disk.h"
#include "core/tags/save_tags.h"

namespace mdlPLM::cli {

class PlanningTagWriter final : public TagWriter {
public:
    /// `disk` tells where the contents of a file are that has its name only in the plan.
    explicit PlanningTagWriter(Disk& disk) : disk_(disk) {}
    SaveResult Save(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2,
                    SaveModes modes) override {
        return TrySaveTags(disk_.ContentsAt(path), v1, v2, modes);
    }
    SaveResult SaveID3v1(TextView path, const ID3v1Tag& /*v1*/) override {
        return TryWriteID3v1(disk_.ContentsAt(path));
    }

private:
    Disk& disk_;
};

}  // namespace mdlPLM::cli
