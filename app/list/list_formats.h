// The kinds of list files: their endings, and how they stand in the filters of file dialogs. List
// files, dropped items, dialogs and the command line read this table.
#pragma once

#include <array>
#include <span>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

enum class ListFileKind { SortingList, M3u, Pls, Other };

struct ListFormat {
    TextView Ending;  ///< lower case, with its dot, of any length
    ListFileKind Kind = ListFileKind::Other;
    TextView LoadLabel;  ///< in front of "(*.srt)" in the dialog that loads a list
    TextView SaveLabel;  ///< and in the one that saves it; empty: it is only read
};

inline constexpr std::array<ListFormat, 3> ListFormats = {{
    {u".srt", ListFileKind::SortingList, u"Sorting File ", u"Sorting File "},
    {u".m3u", ListFileKind::M3u, u"Playlist File ", u"M3U Playlist"},
    {u".pls", ListFileKind::Pls, u"Playlist File ", {}},
}};

using ListFormatRows = std::span<const ListFormat>;

/// By the end of the path, letter case ignored.
ListFileKind KindOfListFile(TextView path, ListFormatRows formats = ListFormats);

bool IsWritten(const ListFormat& format);
/// The formats that are written, in the order of the filters of the save dialog.
std::vector<ListFormat> WrittenFormats(ListFormatRows formats = ListFormats);

/// All endings as a sentence names them: ".srt, .m3u and .pls".
Text EndingsInWords(ListFormatRows formats, TextView lastWord);

/// Filters for FileDialogRequest. The one for adding files offers MP3 files, all list files in one
/// (PlaylistsFilter, from 1) and all files.
Text AddFilesFilter(ListFormatRows formats = ListFormats);
inline constexpr int PlaylistsFilter = 2;
Text LoadListFilter(ListFormatRows formats = ListFormats);
Text SaveListFilter(ListFormatRows formats = ListFormats);
/// The kind that the filter of the save dialog stands for, from 1.
ListFileKind KindOfSaveFilter(int index);

}  // namespace mdlPLM
