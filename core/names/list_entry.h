// A line of the file list: the file name, five blanks, "(", the folder with its trailing separator,
// ")", as in "song.mp3     (/home/me/music/)". Every helper goes by the first marker it finds.
#pragma once

#include "core/text/text.h"

namespace mdlPLM {

inline constexpr TextView ListEntryMarker = u"     (";

/// The list line of a full path.
Text MakeListEntry(TextView path);

/// Name part of a list line, or of a path when there is no marker at position 2 or later.
Text GetListEntryFileName(TextView entry);

/// Folder part with its trailing separator. Of a path: up to its last separator; a result that does
/// not end in one gets one appended.
Text GetListEntryFolder(TextView entry);

/// Full path; a text without a marker is returned unchanged.
Text GetListEntryPath(TextView entry);

}  // namespace mdlPLM
