#include "app/list/saved_lists.h"

#include <algorithm>

#include "app/list/file_failures.h"
#include "core/names/fixing_rules.h"
#include "core/names/list_entry.h"
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

bool HasLineBreak(const FileList& list, FileList::Index row) {
    return list.Path(row).find_first_of(CrLf) != Text::npos ||
           list.Entry(row).find_first_of(CrLf) != Text::npos;
}

// A NUL is in no file name: such a line is rubbish.
bool IsNothing(const Text& named) { return Trim(named).empty() || named.find(u'\0') != Text::npos; }

bool IsBlank(TextView line) { return Trimmed(line).empty(); }

bool IsWholeEntry(TextView line) {
    return InStr(line, ListEntryMarker) > 0 && EndsWith(line, u")");
}

bool IsPieceOfEntry(TextView line) { return !IsBlank(line) && InStr(line, ListEntryMarker) == 0; }

bool HasExtension(TextView path) { return InStr(FileNameOfPath(path), u".") > 0; }

bool IsAbsolute(TextView path) { return !path.empty() && IsSeparator(path.front()); }

// A line of a ".pls" file that is nothing by itself.
bool IsPieceInPls(TextView line) {
    return !IsBlank(line) && InStr(line, u"=") == 0 && line.front() != u'[' && line.front() != u';';
}

using Lines = std::vector<Text>;

bool IsOneEntry(const Lines& lines) {
    const Text whole = Replace(JoinLines(lines), CrLf, u"");
    return IsWholeEntry(whole) && std::any_of(lines.begin(), lines.end(), IsPieceOfEntry);
}

// Lines that were added to the file in another way name files on their own: each has an extension,
// and they are absolute or not, all alike.
bool IsOneM3uPath(const Lines& lines) {
    if (StartsWith(lines.front(), u"#")) return false;
    Lines named;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(named),
                 [](const Text& line) { return !IsBlank(line) && !StartsWith(line, u"#"); });
    if (named.size() < 2) return false;
    return !std::all_of(named.begin(), named.end() - 1, HasExtension) ||
           (IsAbsolute(named.front()) && !std::all_of(named.begin(), named.end(), IsAbsolute));
}

bool IsOneName(const Lines& lines, ListFileKind kind) {
    if (lines.size() < 2) return false;
    if (kind == ListFileKind::SortingList) return IsOneEntry(lines);
    return kind == ListFileKind::M3u ? IsOneM3uPath(lines) : kind == ListFileKind::Pls;
}

Text TakeLine(TextView& rest, bool& endsInCrLf) {
    const std::size_t end = std::min(rest.find_first_of(CrLf), rest.size());
    Text line(rest.substr(0, end));
    endsInCrLf = StartsWith(rest.substr(end), CrLf);
    rest.remove_prefix(std::min(end + (endsInCrLf ? 2 : 1), rest.size()));
    return line;
}

/// Hands out the lines of a list file, those together that may be the pieces of one name. A name
/// with a line break can be told from two names only in a file whose lines end in CR LF, as they do
/// where such a list was written here, and in a ".pls" file, where every line has a key.
class LineGroups {
public:
    LineGroups(TextView text, ListFileKind kind) : rest_(text), kind_(kind) {
        const std::size_t end = text.find_first_of(CrLf);
        crLf_ = end != TextView::npos && StartsWith(text.substr(end), CrLf);
    }
    [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
    Lines Next() {
        bool ended = false;
        Lines lines{TakeLine(rest_, ended)};
        while (!AtEnd() && GoesOn(lines, ended)) lines.push_back(TakeLine(rest_, ended));
        return lines;
    }

private:
    [[nodiscard]] bool GoesOn(const Lines& lines, bool ended) const {
        if (kind_ != ListFileKind::Pls) return crLf_ && !ended;
        const TextView next = rest_.substr(0, rest_.find_first_of(CrLf));
        return !NamedInPls(lines.front()).empty() && IsPieceInPls(next);
    }

    TextView rest_;
    ListFileKind kind_;
    bool crLf_ = false;
};

Message LeftOutMessage(Text heading, const Lines& names, const Language& words) {
    std::vector<FileFailure> failures;
    for (const Text& name : names)
        failures.push_back({BlankControlCharacters(name), words(LineBreakReason)});
    return {u"PLM", FailureBox(std::move(heading), failures, words), {}};
}

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

std::vector<Text> NamesWithLineBreak(const FileList& list) {
    std::vector<Text> names;
    for (FileList::Index row = 0; row < list.Count(); ++row)
        if (HasLineBreak(list, row)) names.push_back(list.Path(row));
    return names;
}

Message NotWrittenMessage(const std::vector<Text>& names, TextView path, const Language& words) {
    return LeftOutMessage(
        words(PLM_TRANSLATE("Texts", "These were not written into \"%1\":"), {path}), names, words);
}

Bytes RenderListFile(const FileList& list, ListFileKind kind) {
    Bytes contents;
    for (FileList::Index row = 0; row < list.Count(); ++row) {
        if (HasLineBreak(list, row)) continue;
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

std::vector<Text> ParseListFile(BytesView contents, ListFileKind kind, TextView playlistPath,
                                std::vector<Text>& refused) {
    if (StartsWithMark(contents)) contents.remove_prefix(ByteOrderMark.size());
    const Text text = PathFromNative(contents);
    std::vector<Text> names;
    for (LineGroups groups(text, kind); !groups.AtEnd();) {
        const Lines lines = groups.Next();
        if (IsOneName(lines, kind)) {
            refused.push_back(Trim(Replace(JoinLines(lines), CrLf, u" ")));
            continue;
        }
        for (const Text& line : lines) {
            Text named = NamedIn(line, kind);
            if (IsNothing(named)) continue;
            names.push_back(kind == ListFileKind::SortingList
                                ? std::move(named)
                                : CompletePlaylistPath(named, playlistPath));
        }
    }
    return names;
}

Status LoadListFile(TextView path, FileList& list, Prompts& prompts, const Language& words) {
    if (Trim(path).empty()) return {};
    const ListFileKind kind = KindOfListFile(path);
    if (kind == ListFileKind::Other) {
        prompts.Inform(NotCompatible(path));
        return {};
    }
    Bytes contents;
    const Status read = ReadWholeFile(path, contents);
    // What was read before a failure stays.
    std::vector<Text> refused;
    const std::vector<Text> names = ParseListFile(contents, kind, path, refused);
    if (kind == ListFileKind::SortingList)
        list.AppendEntries(names);
    else
        list.Append(names);
    if (!refused.empty())
        prompts.Inform(LeftOutMessage(
            words(PLM_TRANSLATE("Texts", "These were not taken from \"%1\":"), {path}), refused,
            words));
    return read;
}

}  // namespace mdlPLM
