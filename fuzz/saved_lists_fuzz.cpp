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

std::vector<Text> PlainNames(BytesView contents, ListFileKind kind, TextView playlist) {
    if (contents.substr(0, 3) == "\xEF\xBB\xBF") contents.remove_prefix(3);
    std::vector<Text> names;
    for (Text line : SplitLines(PathFromNative(contents))) {
        if (kind == ListFileKind::M3u && Left(line, 1) == u"#") continue;
        if (kind == ListFileKind::Pls) {
            const Pos equals = InStr(4, line, u"=");
            if (UCase(Left(line, 4)) != u"FILE" || equals == 0) continue;
            line = Mid(line, equals + 1);
        }
        if (Trim(line).empty() || line.find(u'\0') != Text::npos) continue;
        names.push_back(kind == ListFileKind::SortingList ? line : Completed(line, playlist));
    }
    return names;
}

// What was read is written and read again; lines that a list cannot hold cannot have been read.
void CheckWrittenList(const FileList& list) {
    const Bytes sorting = RenderListFile(list, ListFileKind::SortingList);
    Require(ParseListFile(sorting, ListFileKind::SortingList, {}) == EntriesOf(list),
            "a sorting list is not read back line for line");
    std::vector<Text> paths = PathsOf(list);
    const auto isPlain = [](const Text& path) { return !path.empty() && path[0] == u'/'; };
    if (!std::all_of(paths.begin(), paths.end(), isPlain)) return;
    const Bytes playlist = RenderListFile(list, ListFileKind::M3u);
    Require(ParseListFile(playlist, ListFileKind::M3u, u"/x/y.m3u") == paths,
            "a playlist is not read back path for path");
}

void CheckLoading(BytesView contents, TextView ending, ListFileKind kind) {
    const ScratchFile scratch(contents, ToUtf8(u"list" + Text(ending)));
    FileList list;
    NoPrompts prompts;
    Require(LoadListFile(scratch.Path(), list, prompts).Ok(), "a list file cannot be read");
    const std::vector<Text> names = PlainNames(contents, kind, scratch.Path());
    Require(list.Count() == names.size(), "another number of files");
    const std::vector<Text> loaded =
        kind == ListFileKind::SortingList ? EntriesOf(list) : PathsOf(list);
    Require(loaded == names, "other files than the list names");
    Require(LoadListFile(scratch.Path(), list, prompts).Ok(), "a second load fails");
    Require(list.Count() == 2 * names.size() && prompts.Informed == 0, "loading does not append");
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
        Require(ParseListFile(contents, kind, path) == PlainNames(contents, kind, path),
                "other names than stand there");
        CheckLoading(contents, ending, kind);
    }
}

}  // namespace mdlPLM::fuzz
