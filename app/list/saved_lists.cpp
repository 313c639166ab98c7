#include "app/list/saved_lists.h"

#include <algorithm>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/settings/user_lists.h"
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
constexpr BytesView ByteOrderMark = "\xEF\xBB\xBF";

bool StartsWithMark(BytesView contents) {
    return contents.substr(0, ByteOrderMark.size()) == ByteOrderMark;
}

bool BeginsWithDriveOrNetwork(TextView path) {
    const Text start = UCase(Left(path, 2));
    return start == u"\\\\" ||
           (start.size() == 2 && start[1] == u':' && start[0] >= u'A' && start[0] <= u'Z');
}

// What a line names, as it stands; empty when it names nothing.
Text NamedInSortingList(const Text& line) { return line; }

Text NamedInM3u(const Text& line) { return StartsWith(line, u"#") ? Text() : line; }

Text NamedInPls(const Text& line) {
    const Pos equals = InStr(4, line, u"=");
    if (UCase(Left(line, 4)) != u"FILE" || equals == 0) return {};
    return Mid(line, equals + 1);
}

Text NamedIn(const Text& line, ListFileKind kind) {
    switch (kind) {
        case ListFileKind::SortingList:
            return NamedInSortingList(line);
        case ListFileKind::M3u:
            return NamedInM3u(line);
        case ListFileKind::Pls:
            return NamedInPls(line);
        case ListFileKind::Other:
            break;
    }
    return {};
}

// A NUL is in no file name: such a line is rubbish.
bool IsNothing(const Text& named) { return Trim(named).empty() || named.find(u'\0') != Text::npos; }

Message NotCompatible(TextView path) {
    Text body = u"Only .srt, .m3u and .pls files are supported.";
    body.append(CrLf).append(u"That was not a compatible playlist!");
    return {u"PLM", body, Text(path)};
}

}  // namespace

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
    if (StartsWithMark(contents)) contents.insert(0, ByteOrderMark);
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

std::vector<Text> ParseListFile(BytesView contents, ListFileKind kind, TextView playlistPath) {
    if (StartsWithMark(contents)) contents.remove_prefix(ByteOrderMark.size());
    std::vector<Text> names;
    for (const Text& line : SplitLines(PathFromNative(contents))) {
        Text named = NamedIn(line, kind);
        if (IsNothing(named)) continue;
        names.push_back(kind == ListFileKind::SortingList
                            ? std::move(named)
                            : CompletePlaylistPath(named, playlistPath));
    }
    return names;
}

Status LoadListFile(TextView path, FileList& list, Prompts& prompts) {
    if (Trim(path).empty()) return {};
    const ListFileKind kind = KindOfListFile(path);
    if (kind == ListFileKind::Other) {
        prompts.Inform(NotCompatible(path));
        return {};
    }
    Bytes contents;
    const Status read = ReadWholeFile(path, contents);
    // What was read before a failure stays.
    const std::vector<Text> names = ParseListFile(contents, kind, path);
    if (kind == ListFileKind::SortingList)
        list.AppendEntries(names);
    else
        list.Append(names);
    return read;
}

}  // namespace mdlPLM
