#include "app/list/saved_lists.h"

#include "app/list/file_failures.h"
#include "core/names/fixing_rules.h"
#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

bool BeginsWithDriveOrNetwork(TextView path) {
    const Text start = UCase(Left(path, 2));
    return start == u"\\\\" ||
           (start.size() == 2 && start[1] == u':' && start[0] >= u'A' && start[0] <= u'Z');
}

bool HasLineBreak(const FileList& list, FileList::Index row) {
    return list.Path(row).find_first_of(CrLf) != Text::npos ||
           list.Entry(row).find_first_of(CrLf) != Text::npos;
}

}  // namespace

bool StartsWithMark(BytesView contents) {
    return contents.substr(0, ListFileMark.size()) == ListFileMark;
}

std::vector<Text> NamesWithLineBreak(const FileList& list) {
    std::vector<Text> names;
    for (FileList::Index row = 0; row < list.Count(); ++row)
        if (HasLineBreak(list, row)) names.push_back(list.Path(row));
    return names;
}

Message LeftOutMessage(Text heading, const std::vector<Text>& names, const Language& words) {
    std::vector<FileFailure> failures;
    for (const Text& name : names)
        failures.push_back({BlankControlCharacters(name), words(LineBreakReason)});
    return {u"PLM", FailureBox(std::move(heading), failures, words), {}};
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
