// The replacement list and the pattern files of any content: lines are split the same way whatever
// ends them, and a list that was saved is loaded again as it was.
#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/settings/user_lists.h"
#include "core/text/code_page.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

std::vector<Text> PlainLines(Text text) {
    text = Replace(Replace(text, u"\r\n", u"\n"), u"\r", u"\n");
    std::vector<Text> lines;
    while (!text.empty()) {
        const Pos end = InStr(text, u"\n");
        lines.push_back(end > 0 ? Left(text, end - 1) : text);
        text = end > 0 ? Mid(text, end + 1) : Text();
    }
    return lines;
}

void CheckLines(const Text& text) {
    const std::vector<Text> lines = SplitLines(text);
    Require(lines == PlainLines(text), "other lines");
    Require(SplitLines(JoinLines(lines)) == lines, "joined lines are split otherwise");
    std::size_t blank = 0;
    for (const Text& line : lines) blank += Trim(line).empty() ? 1 : 0;
    Require(ParsePatterns(text).size() == lines.size() - blank, "another number of patterns");
}

void CheckReplacements(const Text& text) {
    const ReplacementList list = ParseReplacements(text);
    const std::size_t lines = PlainLines(text).size();
    Require(list.size() == std::max<std::size_t>(1, (lines + 1) / 2), "another number of pairs");
    Require(ParseReplacements(RenderReplacements(list)) == list, "a list is rendered otherwise");
}

void CheckFiles(BytesView contents) {
    const Text& folder = ScratchFolder();
    const Text file = JoinPath(folder, ReplacesFile);
    Require(WriteWholeFile(file, contents).Ok(), "a list cannot be written");
    const ReplacementList read = LoadReplacements(folder);
    Require(read == ParseReplacements(FromTextFile(contents)), "another list is read");
    Bytes after;
    Require(ReadWholeFile(file, after).Ok() && after == contents, "reading changed the file");
    Require(SaveReplacements(folder, read).Ok(), "a list cannot be saved");
    Require(LoadReplacements(folder) == read, "a saved list is read otherwise");
}

}  // namespace

void FuzzUserLists(BytesView bytes) {
    const Text text = FromTextFile(bytes);
    CheckLines(text);
    CheckReplacements(text);
    CheckFiles(bytes);
}

}  // namespace mdlPLM::fuzz
