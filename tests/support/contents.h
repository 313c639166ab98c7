// Files counted by what they hold: however names change, nothing may be gone.
#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

#include "tests/support/temp_folder.h"

namespace mdlPLM::test {

using Contents = std::vector<Bytes>;

/// The contents of every file below a folder, sorted; a content that stands twice is there twice.
inline Contents ContentsBelow(TextView folder) {
    Contents contents;
    for (auto& [name, held] : ReadTree(folder))
        if (name.back() != '/') contents.push_back(std::move(held));
    std::sort(contents.begin(), contents.end());
    return contents;
}

/// Those of `before` that stand nowhere below the folder any more.
inline Contents LostSince(Contents before, TextView folder) {
    const Contents now = ContentsBelow(folder);
    std::sort(before.begin(), before.end());
    Contents lost;
    std::set_difference(before.begin(), before.end(), now.begin(), now.end(),
                        std::back_inserter(lost));
    return lost;
}

}  // namespace mdlPLM::test
