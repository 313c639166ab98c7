// Where a sorted file goes: the target folder and, below it, a folder for its genre, its first
// letter and its artist.
#pragma once

#include <optional>
#include <vector>

#include "app/list/run.h"
#include "app/sort/sort_choices.h"
#include "core/platform/disk.h"
#include "core/settings/settings.h"

namespace mdlPLM {

/// `text` as one folder name, with the characters replaced that no file name may hold; empty when
/// it is no usable name, or nothing but blanks.
Text FolderName(TextView text);

/// The letter folder of a name: its first character in upper case, a surrogate pair whole.
Text LetterOf(TextView newName);

/// What stands before the first " - " of a name; nothing when there is no " - ".
std::optional<Text> ArtistOf(TextView name);

/// What a file is sorted by.
struct SortNames {
    Text NewName;     ///< the name it gets
    Text ArtistName;  ///< the name whose beginning is its artist
    Text Genre;       ///< of its trailer, when a genre folder is wanted
    Cause Fault;      ///< why it gets no name, if it gets none
};

/// What all names and folders of one sort depend on.
struct SortRules {
    SortChoices Choices;
    bool Multiple = false;  ///< two or more entries are sorted; else the new-name box counts
    const NamingContext& Context;
};

/// The names of the file at `source`, which is opened once at most. The new-name box decides
/// nothing about the artist.
SortNames NamesOf(TextView source, const SortRules& rules, Disk& disk);

/// The target folder and the folders below it that lead to a file's place, outermost first.
using FolderLevels = std::vector<Text>;

/// Adds the folder of a genre, letter or artist, unless no folder can be called so.
void Descend(FolderLevels& levels, TextView text);

/// Creates what is missing below the target folder itself. When that fails, `failed` is the folder
/// that could not be made.
Status EnsureFolders(const FolderLevels& levels, Disk& disk, Text& failed);

/// The target folder with the genre and the letter folder of a file, as far as they are wanted.
FolderLevels FoldersOf(const SortNames& names, const SortChoices& choices);

/// How many files an artist needs for a folder; 0: every artist has one.
long long ArtistThreshold(const SortChoices& choices);

/// Adds the artist's folder where the file belongs into it. False when the file has no artist and
/// therefore is not sorted at all.
bool AddArtistFolder(FolderLevels& levels, TextView artistName, const SortChoices& choices,
                     Disk& disk);

}  // namespace mdlPLM
