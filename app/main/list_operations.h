// What the user does with the list, beyond the list itself: counter, selections by tag, removal of
// missing files, deletion from disk.
#pragma once

#include "app/main/file_list.h"
#include "core/platform/disk.h"

namespace mdlPLM {

/// Sum of the known sizes of the listed files in megabytes (bytes / 1024 / 1024), rounded to 2
/// decimals. A missing file adds nothing.
double GetListSizeMb(const FileList& list);

/// The counter label: "<count> files (<size> Mb)".
Text CounterText(const FileList& list);

/// Works out up to `most` unknown sizes from row `from` on; returns the row to go on from (the row
/// count when all are known). The slices that keep the counter up to date behind the operation.
FileList::Index UpdateSizes(FileList& list, FileList::Index from, FileList::Index most);

enum class TagKind { V1, V2 };
/// True when the file's bytes say that it has that tag: "TAG" 128 bytes before its end, "ID3" at
/// its start. An unreadable file has none.
bool HasTag(TextView path, TagKind kind);

/// Selects exactly the files that have the tag; entries whose file is missing are removed.
void SelectByTag(FileList& list, TagKind kind);

/// Removes every entry whose file no longer exists.
void RemoveNonExistent(FileList& list);

/// Deletes the selected files from disk and removes their entries; a file that could not be deleted
/// keeps its entry. Returns how many could not be deleted.
std::size_t DeleteSelectedFromDisk(FileList& list, Disk& disk);

}  // namespace mdlPLM
