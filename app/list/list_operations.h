// What the user does with the list, beyond the list itself: counter, selections by tag, removal of
// missing files, deletion from disk.
#pragma once

#include <functional>
#include <vector>

#include "app/list/file_list.h"
#include "core/platform/disk.h"

namespace mdlPLM {

/// Sum of the known sizes of the listed files in megabytes (bytes / 1024 / 1024), rounded to 2
/// decimals. A missing file adds nothing.
double GetListSizeMb(const FileList& list);

/// How many files, on every counter: "12 files", and "1 files" too.
Text FilesText(std::size_t count);

/// The counter label: "<count> files (<size> Mb)".
Text CounterText(const FileList& list);

/// Works out up to `most` unknown sizes from row `from` on; returns the row to go on from (the row
/// count when all are known). The slices that keep the counter up to date behind the operation.
FileList::Index UpdateSizes(FileList& list, FileList::Index from, FileList::Index most);

/// A look at every listed file that can be taken in slices, so that a window can show how far it is
/// and stop it. The list stays as it is until what was found is applied, and must not change
/// otherwise meanwhile. Rows that were not looked at count as Other.
class ListScan {
public:
    enum class Finding : char { Other, Match, Gone };
    using Look = std::function<Finding(FileList::Index row)>;
    ListScan(FileList& list, Look look);

    /// Looks at up to `most` further rows; false when every row has been looked at.
    bool Step(FileList::Index most);
    [[nodiscard]] FileList::Index Done() const { return findings_.size(); }
    [[nodiscard]] FileList::Index Count(Finding finding) const;

    /// Selects exactly the rows that match. Before RemoveGone, which moves rows.
    void SelectMatches();
    /// Takes the rows that are gone out of the list.
    void RemoveGone();

private:
    [[nodiscard]] bool Is(FileList::Index row, Finding finding) const;
    FileList& list_;
    Look look_;
    std::vector<Finding> findings_;
};

enum class TagKind { V1, V2 };
/// True when the file's bytes say that it has that tag: "TAG" 128 bytes before its end, "ID3" at
/// its start. An unreadable file has none.
bool HasTag(TextView path, TagKind kind);

/// Selects exactly the files that have the tag; entries whose file is missing are removed.
void SelectByTag(FileList& list, TagKind kind);
/// The same in slices: to be stepped, then SelectMatches and RemoveGone.
ListScan ScanForTag(FileList& list, TagKind kind);

/// Removes every entry whose file no longer exists.
void RemoveNonExistent(FileList& list);
/// The same in slices: to be stepped, then RemoveGone.
ListScan ScanForMissing(FileList& list);

/// Deletes the selected files from disk and removes their entries; a file that could not be deleted
/// keeps its entry. One that is no longer there counts as deleted. Returns how many could not be
/// deleted.
std::size_t DeleteSelectedFromDisk(FileList& list, Disk& disk);
/// The same in slices, for the files selected at this moment: to be stepped, then RemoveGone, also
/// when it was stopped half-way. A match is a file that could not be deleted.
ListScan DeletionFromDisk(FileList& list, Disk& disk);

}  // namespace mdlPLM
