// Before a whole-list sort with an artist threshold: how many of the files each artist has, and a
// folder for those who have enough, wherever such a file goes.
#pragma once

#include <map>
#include <set>
#include <vector>

#include "app/sort/sort_folders.h"

namespace mdlPLM {

class ArtistFolders {
public:
    ArtistFolders(const SortRules& rules, Disk& disk) : rules_(rules), disk_(disk) {}

    /// Counts one file. Artists are compared as they stand; a file that is missing or has none does
    /// not count.
    void Count(TextView source);

    /// The folders that the counted files earn, parents included, outermost first.
    [[nodiscard]] std::vector<FolderLevels> Earned() const;

private:
    struct Artist {
        long long Files = 0;
        std::set<FolderLevels> Places;  ///< where files of this artist go
    };
    const SortRules& rules_;
    Disk& disk_;
    std::map<Text, Artist> artists_;
};

}  // namespace mdlPLM
