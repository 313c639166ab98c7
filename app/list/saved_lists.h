// Sorting lists (".srt") and playlists (".m3u", ".pls"). File names are in the system's own
// encoding: a name's bytes as they are, both ways. They are read by ListFileReader; lines are
// written with CR LF.
#pragma once

#include "app/list/file_list.h"
#include "app/list/list_formats.h"
#include "core/platform/errors.h"
#include "core/platform/prompts.h"
#include "core/text/language.h"

namespace mdlPLM {

/// What a text file may begin with, which is no part of its first line.
inline constexpr BytesView ListFileMark = "\xEF\xBB\xBF";
bool StartsWithMark(BytesView contents);

/// No list file can hold a name with a line break: such a name is left out, and told.
inline constexpr const char* LineBreakReason =
    PLM_TRANSLATE("Texts", "a list file cannot hold a name with a line break");
/// The paths of those files of the list.
std::vector<Text> NamesWithLineBreak(const FileList& list);
/// Such names in a message box, below what is said of them.
Message LeftOutMessage(Text heading, const std::vector<Text>& names, const Language& words);
/// The same after the list was saved at `path`.
Message NotWrittenMessage(const std::vector<Text>& names, TextView path, const Language& words);

/// The contents of a list file as it is written (bytes). `kind` is SortingList or M3u.
Bytes RenderListFile(const FileList& list, ListFileKind kind);
/// Writes it. The chosen kind decides the format, not the extension of `path`.
Status SaveListFile(const FileList& list, TextView path, ListFileKind kind);

/// A playlist's path made whole: one that holds "\\" or ":\" anywhere, or is absolute, stands;
/// where the playlist's own path begins with a drive or "\\" its first two characters are put
/// before; else it belongs to the playlist's folder.
Text CompletePlaylistPath(TextView entry, TextView playlistPath);

}  // namespace mdlPLM
