// Sorting lists (".srt") and playlists (".m3u", ".pls"). File names are in the system's own
// encoding: a name's bytes as they are, both ways. They are read by ListFileReader; lines are
// written with CR LF.
#pragma once

#include "app/list/file_list.h"
#include "core/platform/errors.h"
#include "core/platform/prompts.h"

namespace mdlPLM {

enum class ListFileKind { SortingList, M3u, Pls, Other };

/// What a text file may begin with, which is no part of its first line.
inline constexpr BytesView ListFileMark = "\xEF\xBB\xBF";
bool StartsWithMark(BytesView contents);

/// By the last four characters of the path, letter case ignored.
ListFileKind KindOfListFile(TextView path);

/// The contents of a list file as it is written (bytes). `kind` is SortingList or M3u.
Bytes RenderListFile(const FileList& list, ListFileKind kind);
/// Writes it. The chosen kind decides the format, not the extension of `path`.
Status SaveListFile(const FileList& list, TextView path, ListFileKind kind);

/// A playlist's path made whole: one that holds "\\" or ":\" anywhere, or is absolute, stands;
/// where the playlist's own path begins with a drive or "\\" its first two characters are put
/// before; else it belongs to the playlist's folder.
Text CompletePlaylistPath(TextView entry, TextView playlistPath);

}  // namespace mdlPLM
