#include "core/names/list_entry.h"

#include "core/platform/path.h"

namespace mdlPLM {

namespace {

constexpr Pos MarkerLength = static_cast<Pos>(ListEntryMarker.size());

// What stands behind the marker, without the closing parenthesis.
Text FolderBehindMarker(TextView entry, Pos marker) {
    const Text rest = Mid(entry, marker + MarkerLength);
    return Left(rest, static_cast<Pos>(rest.size()) - 1);
}

}  // namespace

Text MakeListEntry(TextView path) {
    Text entry = FileNameOfPath(path);
    entry.append(ListEntryMarker).append(FolderOfPath(path));
    entry.push_back(u')');
    return entry;
}

Text GetListEntryFileName(TextView entry) {
    const Pos marker = InStr(entry, ListEntryMarker);
    return marker >= 2 ? Left(entry, marker - 1) : FileNameOfPath(entry);
}

Text GetListEntryFolder(TextView entry) {
    const Pos marker = InStr(entry, ListEntryMarker);
    return marker > 0 ? FolderBehindMarker(entry, marker) : FolderOfPath(entry);
}

Text GetListEntryPath(TextView entry) {
    const Pos marker = InStr(entry, ListEntryMarker);
    if (marker == 0) return Text(entry);
    return FolderBehindMarker(entry, marker) + Left(entry, marker - 1);
}

}  // namespace mdlPLM
