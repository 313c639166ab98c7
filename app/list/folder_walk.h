// Gathering files: the breadth-first walk of a folder, what a dropped item is, in slices.
#pragma once

#include <set>
#include <utility>
#include <vector>

#include "core/platform/disk.h"
#include "core/platform/prompts.h"
#include "core/text/language.h"

namespace mdlPLM {

/// A walk that can be taken a step at a time. Files come before subfolders, level by level, sorted
/// by name; a folder is visited once (device and inode), so a loop of links ends. Folders that
/// cannot be listed are passed over, but those that are too deep are told.
class FolderWalk {
public:
    /// Files whose name ends in "." & `extension` (letter case ignored) below `folder`.
    FolderWalk(TextView folder, TextView extension);
    [[nodiscard]] bool Finished() const;
    /// Lists the next folder; appends the paths of its matching files to `paths`. A folder of many
    /// thousand items takes several steps.
    void Step(std::vector<Text>& paths);
    /// The folders so far whose path is too long for the system: nothing in them can be opened.
    [[nodiscard]] const std::vector<Text>& TooDeep() const { return tooDeep_; }

private:
    void OpenNext();
    void ReadSome();
    void HandOutSome(std::vector<Text>& paths);
    [[nodiscard]] bool IsWanted(const FolderItem& item) const;

    std::vector<Text> folders_;
    std::size_t next_ = 0;
    Text ending_;
    std::set<std::pair<std::uint64_t, std::uint64_t>> visited_;
    std::vector<Text> tooDeep_;
    Text folder_;  ///< the one that is being listed
    FolderReader reader_;
    std::vector<FolderItem> items_;  ///< of that folder: the wanted files and its subfolders
    std::size_t handedOut_ = 0;
};

/// Why a folder of TooDeep is not searched.
inline constexpr const char* TooDeepReason =
    PLM_TRANSLATE("Texts", "the folder is too deep: its path is too long to be opened");
/// Those folders in a message box.
Message TooDeepMessage(const std::vector<Text>& folders, const Language& words);

enum class DroppedKind { Folder, ListFile, SingleFile, Nothing };
/// A dropped item, or one named on the command line behind +list.
DroppedKind KindOfDropped(TextView path);

}  // namespace mdlPLM
