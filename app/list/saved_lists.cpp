#include "app/list/saved_lists.h"

#include <algorithm>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

struct Ending {
    TextView Letters;
    ListFileKind Kind;
};

constexpr Ending Endings[] = {
    {u".srt", ListFileKind::SortingList},
    {u".m3u", ListFileKind::M3u},
    {u".pls", ListFileKind::Pls},
};

constexpr Pos EndingLength = 4;

bool BeginsWithDriveOrNetwork(TextView path) {
    const Text start = UCase(Left(path, 2));
    return start == u"\\\\" ||
           (start.size() == 2 && start[1] == u':' && start[0] >= u'A' && start[0] <= u'Z');
}

}  // namespace

bool StartsWithMark(BytesView contents) {
    return contents.substr(0, ListFileMark.size()) == ListFileMark;
}

ListFileKind KindOfListFile(TextView path) {
    const Text ending = LCase(Right(path, EndingLength));
    const auto* found = std::find_if(std::begin(Endings), std::end(Endings),
                                     [&](const Ending& e) { return e.Letters == ending; });
    return found == std::end(Endings) ? ListFileKind::Other : found->Kind;
}

Bytes RenderListFile(const FileList& list, ListFileKind kind) {
    Bytes contents;
    for (FileList::Index row = 0; row < list.Count(); ++row) {
        const Text& line = kind == ListFileKind::M3u ? list.Path(row) : list.Entry(row);
        contents.append(NativePath(line)).append("\r\n");
    }
    // A name that begins so would lose its beginning as the mark of the whole file.
    if (StartsWithMark(contents)) contents.insert(0, ListFileMark);
    return contents;
}

Status SaveListFile(const FileList& list, TextView path, ListFileKind kind) {
    return WriteWholeFile(path, RenderListFile(list, kind));
}

Text CompletePlaylistPath(TextView entry, TextView playlistPath) {
    if (InStr(entry, u"\\\\") > 0 || InStr(entry, u":\\") > 0) return Text(entry);
    if (BeginsWithDriveOrNetwork(playlistPath)) return Left(playlistPath, 2).append(entry);
    const bool absolute = !entry.empty() && IsSeparator(entry.front());
    return absolute ? Text(entry) : FolderOfPath(playlistPath).append(entry);
}

}  // namespace mdlPLM
