// The two lists of the name-from-text window: old files and new names. Position is the only link
// between a file and its new name.
#pragma once

#include <optional>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

class NamePairs {
public:
    using Index = std::size_t;

    struct OldFile {
        Text Path;   ///< what is renamed
        Text Entry;  ///< what is shown
    };

    [[nodiscard]] const std::vector<OldFile>& OldFiles() const { return old_; }
    [[nodiscard]] const std::vector<Text>& NewNames() const { return new_; }
    /// Pairs of a run: the smaller of both counts.
    [[nodiscard]] Index Pairs() const;

    void AddOldFiles(const std::vector<Text>& paths);
    void AddNewNames(const std::vector<Text>& names);
    void SetNewName(Index index, Text name);
    void RemoveOldFile(Index index);
    void RemoveNewName(Index index);
    void ClearOldFiles() { old_.clear(); }
    void ClearNewNames() { new_.clear(); }

    /// Exchanges an old file with its neighbour; where it stands then. Nothing at the top / bottom.
    enum class Direction { Up, Down };
    Index MoveOldFile(Index index, Direction direction);

private:
    std::vector<OldFile> old_;
    std::vector<Text> new_;
};

}  // namespace mdlPLM
