// The files that a run works on, and those that it makes. "Replace" is meant for files that were
// there before: where a target belongs to the run itself (a name that repeats, names that change
// places) the user is asked, because one of the run's own files would be lost.
#pragma once

#include <set>
#include <unordered_set>
#include <utility>

#include "core/platform/disk.h"

namespace mdlPLM {

class OwnFiles {
public:
    /// A file of the run, under the name that it has now.
    void Add(TextView path, Disk& disk);
    /// True when one of the files has this name, in whatever letter case, or stands there by
    /// another way (through a linked folder, say).
    [[nodiscard]] bool Contains(TextView path, Disk& disk) const;

private:
    using Node = std::pair<std::uint64_t, std::uint64_t>;

    std::unordered_set<Text> names_;  // upper-case paths
    std::set<Node> nodes_;
};

}  // namespace mdlPLM
