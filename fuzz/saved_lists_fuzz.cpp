// Sorting lists and playlists of any content: what is read agrees with a plain reckoning, loading
// appends, and a list that was written is read back line for line.
#include <algorithm>

#include "app/list/list_file_reader.h"
#include "core/names/list_entry.h"
#include "core/platform/path.h"
#include "core/settings/user_lists.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

class NoPrompts final : public Prompts {
public:
    Answer AskYesNo(const Message&) override { throw BrokenProperty("a question was asked"); }
    Answer AskYesNoCancel(const Message&) override { throw BrokenProperty("a question was asked"); }
    void Inform(const Message&) override { ++Informed; }
    void Critical(const Message&) override { throw BrokenProperty("a critical message"); }
    std::optional<Text> AskText(const Message&) override {
        throw BrokenProperty("a text is asked");
    }
    int Informed = 0;
};

std::vector<Text> PathsOf(const FileList& list) {
    std::vector<Text> paths;
    for (FileList::Index row = 0; row < list.Count(); ++row) paths.push_back(list.Path(row));
    return paths;
}

std::vector<Text> EntriesOf(const FileList& list) {
    std::vector<Text> entries;
    for (FileList::Index row = 0; row < list.Count(); ++row) entries.push_back(list.Entry(row));
    return entries;
}

Text Completed(const Text& path, TextView playlist) {
    if (path.find(u"\\\\") != Text::npos || path.find(u":\\") != Text::npos) return path;
    const char16_t first = playlist.empty() ? u' ' : LCase(playlist[0]);
    const bool drive = playlist.size() > 1 && playlist[1] == u':' && first >= u'a' && first <= u'z';
    if (drive || Left(playlist, 2) == u"\\\\") return Left(playlist, 2) + path;
    const bool absolute = !path.empty() && (path[0] == u'/' || path[0] == u'\\');
    return absolute ? path : Left(playlist, LastSeparator(playlist)) + path;
}

struct PlainLine {
    Text Words;
    bool CrLf = false;  ///< how it ends
};

std::vector<PlainLine> PlainLines(const Text& text) {
    std::vector<PlainLine> lines;
    PlainLine line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\r' && text[i] != u'\n') {
            line.Words += text[i];
            continue;
        }
        line.CrLf = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if (line.CrLf) ++i;
        lines.push_back(line);
        line = PlainLine();
    }
    if (!line.Words.empty()) lines.push_back(line);
    return lines;
}

bool Blank(const Text& line) { return Trim(line).empty(); }

bool Absolute(const Text& line) { return !line.empty() && (line[0] == u'/' || line[0] == u'\\'); }

bool NamesInPls(const Text& line) {
    const Pos equals = InStr(4, line, u"=");
    return UCase(Left(line, 4)) == u"FILE" && equals > 0 && !Mid(line, equals + 1).empty();
}

// Where one line goes on after a line break.
bool GoesOn(const std::vector<PlainLine>& lines, std::size_t first, std::size_t next,
            ListFileKind kind) {
    if (kind != ListFileKind::Pls) return lines[0].CrLf && !lines[next - 1].CrLf;
    const Text& line = lines[next].Words;
    return NamesInPls(lines[first].Words) && !Blank(line) && InStr(line, u"=") == 0 &&
           line[0] != u'[' && line[0] != u';';
}

bool OneSortingLine(const std::vector<PlainLine>& lines) {
    Text whole;
    bool piece = false;
    for (const PlainLine& line : lines) {
        whole += line.Words;
        piece = piece || (!Blank(line.Words) && InStr(line.Words, u"     (") == 0);
    }
    return piece && InStr(whole, u"     (") > 0 && Right(whole, 1) == u")";
}

bool OneM3uLine(const std::vector<PlainLine>& lines) {
    if (Left(lines[0].Words, 1) == u"#") return false;
    std::vector<Text> named;
    for (const PlainLine& line : lines)
        if (!Blank(line.Words) && Left(line.Words, 1) != u"#") named.push_back(line.Words);
    bool one = false;
    for (std::size_t i = 1; i < named.size(); ++i) {
        if (InStr(FileNameOfPath(named[i - 1]), u".") == 0) one = true;
        if (Absolute(named[0]) && !Absolute(named[i])) one = true;
    }
    return one;
}

bool OneName(const std::vector<PlainLine>& lines, ListFileKind kind) {
    if (lines.size() < 2) return false;
    if (kind == ListFileKind::SortingList) return OneSortingLine(lines);
    return kind == ListFileKind::M3u ? OneM3uLine(lines) : true;
}

void TakePlainLine(Text line, ListFileKind kind, TextView playlist, std::vector<Text>& names) {
    if (kind == ListFileKind::M3u && Left(line, 1) == u"#") return;
    if (kind == ListFileKind::Pls) {
        const Pos equals = InStr(4, line, u"=");
        if (UCase(Left(line, 4)) != u"FILE" || equals == 0) return;
        line = Mid(line, equals + 1);
    }
    if (Trim(line).empty() || line.find(u'\0') != Text::npos) return;
    names.push_back(kind == ListFileKind::SortingList ? line : Completed(line, playlist));
}

struct PlainList {
    std::vector<Text> Names;
    std::size_t Refused = 0;
};

PlainList PlainNames(BytesView contents, ListFileKind kind, TextView playlist) {
    if (contents.substr(0, 3) == "\xEF\xBB\xBF") contents.remove_prefix(3);
    const std::vector<PlainLine> lines = PlainLines(PathFromNative(contents));
    PlainList list;
    for (std::size_t first = 0; first < lines.size();) {
        std::size_t next = first + 1;
        while (next < lines.size() && GoesOn(lines, first, next, kind)) ++next;
        const std::vector<PlainLine> group(lines.begin() + static_cast<Pos>(first),
                                           lines.begin() + static_cast<Pos>(next));
        first = next;
        if (OneName(group, kind)) {
            ++list.Refused;
            continue;
        }
        for (const PlainLine& line : group) TakePlainLine(line.Words, kind, playlist, list.Names);
    }
    return list;
}

std::vector<Text> Parsed(BytesView contents, ListFileKind kind, TextView playlist,
                         std::size_t refusals) {
    std::vector<Text> refused;
    std::vector<Text> names = ParseListFile(contents, kind, playlist, refused);
    Require(refused.size() == refusals, "another number of names is refused");
    return names;
}

// What was read is written and read again; lines that a list cannot hold cannot have been read.
void CheckWrittenList(const FileList& list) {
    const Bytes sorting = RenderListFile(list, ListFileKind::SortingList);
    Require(NamesWithLineBreak(list).empty(), "a name with a line break was read");
    Require(Parsed(sorting, ListFileKind::SortingList, {}, 0) == EntriesOf(list),
            "a sorting list is not read back line for line");
    std::vector<Text> paths = PathsOf(list);
    const auto isPlain = [](const Text& path) { return !path.empty() && path[0] == u'/'; };
    if (!std::all_of(paths.begin(), paths.end(), isPlain)) return;
    const Bytes playlist = RenderListFile(list, ListFileKind::M3u);
    Require(Parsed(playlist, ListFileKind::M3u, u"/x/y.m3u", 0) == paths,
            "a playlist is not read back path for path");
}

void CheckLoading(BytesView contents, TextView ending, ListFileKind kind) {
    const ScratchFile scratch(contents, ToUtf8(u"list" + Text(ending)));
    FileList list;
    NoPrompts prompts;
    Require(LoadListFile(scratch.Path(), list, prompts).Ok(), "a list file cannot be read");
    const PlainList plain = PlainNames(contents, kind, scratch.Path());
    const std::vector<Text>& names = plain.Names;
    Require(list.Count() == names.size(), "another number of files");
    const std::vector<Text> loaded =
        kind == ListFileKind::SortingList ? EntriesOf(list) : PathsOf(list);
    Require(loaded == names, "other files than the list names");
    Require(LoadListFile(scratch.Path(), list, prompts).Ok(), "a second load fails");
    Require(list.Count() == 2 * names.size(), "loading does not append");
    Require(prompts.Informed == (plain.Refused > 0 ? 2 : 0), "what is refused is not told");
    RequireEqual(scratch.Contents(), contents, "a list file changed while it was read");
    CheckWrittenList(list);
}

}  // namespace

// The first line is a path of the list file as another system has it; the rest is its contents.
void FuzzSavedLists(BytesView bytes) {
    Input input(bytes);
    const Text path = input.LineText();
    const BytesView contents = input.Rest();
    for (const auto& [ending, kind] :
         {std::pair<TextView, ListFileKind>{u".srt", ListFileKind::SortingList},
          {u".m3u", ListFileKind::M3u},
          {u".pls", ListFileKind::Pls}}) {
        Require(KindOfListFile(path + UCase(ending)) == kind, "another kind by its ending");
        const PlainList plain = PlainNames(contents, kind, path);
        Require(Parsed(contents, kind, path, plain.Refused) == plain.Names,
                "other names than stand there");
        CheckLoading(contents, ending, kind);
    }
}

}  // namespace mdlPLM::fuzz
