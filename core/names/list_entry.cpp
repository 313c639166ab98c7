#include "core/names/list_entry.h"

#include "core/platform/path.h"

namespace mdlPLM {

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
    if (marker == 0) return FolderOfPath(entry);
    // What stands behind the marker, without the closing parenthesis.
    const Text rest = Mid(entry, marker + static_cast<Pos>(ListEntryMarker.size()));
    return Left(rest, static_cast<Pos>(rest.size()) - 1);
}

Text GetListEntryPath(TextView entry) {
    const Pos marker = InStr(entry, ListEntryMarker);
    if (marker == 0) return Text(entry);
    return GetListEntryFolder(entry) + Left(entry, marker - 1);
}

}  // namespace mdlPLM
