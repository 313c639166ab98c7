#include "core/settings/user_lists.h"

#include <algorithm>

#include "core/platform/disk.h"
#include "core/platform/file.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "core/text/surrogates.h"

namespace mdlPLM {

namespace {

constexpr TextView InPatternFile = u"inpattern.txt";
constexpr TextView OutPatternFile = u"outpattern.txt";
constexpr TextView ByteOrderMark = u"\uFEFF";

void CreateNew(TextView path, BytesView contents) {
    File file;
    if (file.Open(path, File::Mode::CreateNew).Ok()) (void)file.WriteAt(0, contents);
}

Text ReadListFile(TextView folder, TextView name) {
    const Text path = JoinPath(folder, name);
    Bytes contents;
    const Status read = ReadWholeFile(path, contents);
    if (read.Number() == ErrorNumber::FileNotFound) CreateNew(path, {});
    return FromTextFile(contents);
}

// A byte of no encoding, copied from a file name, would make the whole file one that is not UTF-8;
// a text that begins with a byte order mark would lose it without another one in front.
Bytes ToTextFile(TextView text) {
    Bytes bytes = ToUtf8(text);
    if (StartsWith(text, ByteOrderMark)) bytes.insert(0, ToUtf8(ByteOrderMark));
    if (IsValidUtf8(bytes)) return bytes;
    Text held = FromUtf8(bytes);
    for (std::size_t i = 0; i < held.size(); ++i)
        if (IsHeldByteAt(held, i)) held[i] = u'?';
    return ToUtf8(held);
}

void TakeOver(TextView programFolder, TextView dataFolder, TextView name) {
    Bytes contents;
    if (ReadWholeFile(JoinPath(programFolder, name), contents).Ok())
        CreateNew(JoinPath(dataFolder, name), contents);
}

}  // namespace

std::vector<Text> SplitLines(TextView text) {
    std::vector<Text> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(CrLf), text.size());
        lines.emplace_back(text.substr(0, end));
        const std::size_t length = StartsWith(text.substr(end), CrLf) ? 2 : 1;
        text.remove_prefix(std::min(end + length, text.size()));
    }
    return lines;
}

Text JoinLines(const std::vector<Text>& lines) {
    Text text;
    for (const Text& line : lines) text.append(line).append(CrLf);
    return text;
}

ReplacementList ParseReplacements(TextView contents) {
    const std::vector<Text> lines = SplitLines(contents);
    ReplacementList list;
    for (std::size_t i = 0; i < lines.size(); i += 2)
        list.push_back({lines[i], i + 1 < lines.size() ? lines[i + 1] : Text()});
    if (list.empty()) list.emplace_back();
    return list;
}

Text RenderReplacements(const ReplacementList& list) {
    std::vector<Text> lines;
    for (const Replacement& pair : list) {
        lines.push_back(pair.Find);
        lines.push_back(pair.Put);
    }
    return JoinLines(lines);
}

std::vector<Text> ParsePatterns(TextView contents) {
    std::vector<Text> patterns = SplitLines(contents);
    patterns.erase(std::remove_if(patterns.begin(), patterns.end(),
                                  [](const Text& line) { return Trim(line).empty(); }),
                   patterns.end());
    return patterns;
}

bool IsInstalled(TextView programFolder) {
    return FileExists(JoinPath(programFolder, u"../share/pellmore/plm.txt"));
}

Text UserListsFolder(TextView programFolder, TextView dataFolder) {
    // To the superuser every folder can be written, also the system's own.
    if (IsWritableFolder(programFolder) && !IsInstalled(programFolder)) return Text(programFolder);
    // Nowhere to write: what can be read is beside the program.
    if (!CreateFolders(dataFolder).Ok() || !IsWritableFolder(dataFolder))
        return Text(programFolder);
    for (const TextView name : {ReplacesFile, InPatternFile, OutPatternFile})
        TakeOver(programFolder, dataFolder, name);
    return Text(dataFolder);
}

ReplacementList LoadReplacements(TextView folder) {
    return ParseReplacements(ReadListFile(folder, ReplacesFile));
}

Status SaveReplacements(TextView folder, const ReplacementList& list) {
    const Text path = JoinPath(folder, ReplacesFile);
    Bytes old;
    const Status read = ReadWholeFile(path, old);
    // A list that could not be read was not shown: it is not to be replaced by what was.
    if (!read.Ok() && read.Number() != ErrorNumber::FileNotFound) return read;
    return WriteWholeFile(path, ToTextFile(RenderReplacements(list)));
}

std::vector<Text> LoadInPatterns(TextView folder) {
    return ParsePatterns(ReadListFile(folder, InPatternFile));
}

std::vector<Text> LoadOutPatterns(TextView folder) {
    return ParsePatterns(ReadListFile(folder, OutPatternFile));
}

}  // namespace mdlPLM
