// Gathering files: the breadth-first walk of a folder, what a dropped item is, in slices.
#pragma once

#include <set>
#include <utility>
#include <vector>

#include "core/platform/disk.h"

namespace mdlPLM {

/// A walk that can be taken a step at a time. Files come before subfolders, level by level, in the
/// order listed; a folder is visited once (device and inode), so a loop of links ends. Folders that
/// cannot be listed are passed over.
class FolderWalk {
public:
    /// Files whose name ends in "." & `extension` (letter case ignored) below `folder`.
    FolderWalk(TextView folder, TextView extension);
    [[nodiscard]] bool Finished() const { return next_ >= folders_.size(); }
    /// Lists the next folder; appends the paths of its matching files to `paths`.
    void Step(std::vector<Text>& paths);
    [[nodiscard]] std::size_t FoldersSeen() const { return next_; }

private:
    std::vector<Text> folders_;
    std::size_t next_ = 0;
    Text ending_;
    std::set<std::pair<std::uint64_t, std::uint64_t>> visited_;
};

enum class DroppedKind { Folder, ListFile, SingleFile, Nothing };
/// A dropped item, or one named on the command line behind +list.
DroppedKind KindOfDropped(TextView path);

}  // namespace mdlPLM
