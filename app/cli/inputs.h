// The files that a command works on.
#pragma once

#include <utility>
#include <vector>

#include "app/cli/session.h"
#include "app/list/file_list.h"

namespace mdlPLM::cli {

/// Paths as they are given and as they are shown. Inside the program every path is absolute, so
/// that an input pattern with folders finds them. As soon as one was given relative, those below
/// the base are shown relative.
class PathSpelling {
public:
    /// `base`: the folder that relative paths are below, with a separator at its end.
    explicit PathSpelling(Text base) : base_(std::move(base)) {}
    /// The absolute path of a given one.
    [[nodiscard]] Text Absolute(TextView given);
    /// A path as it is shown: a part of `path`.
    [[nodiscard]] TextView Shown(TextView path) const;

private:
    Text base_;
    bool relative_ = false;
};

/// Appends the files of the command line to the list, selected: folders are walked, list files are
/// read, other paths are taken as they are. False, and told, when none was given.
bool GatherFiles(Session& session, PathSpelling& spelling, FileList& list);

/// The same as bare paths, for commands that need no list.
bool GatherPaths(Session& session, PathSpelling& spelling, std::vector<Text>& paths);

}  // namespace mdlPLM::cli
