#include "core/platform/path.h"

#include <algorithm>

#include "core/text/code_page.h"

namespace mdlPLM {

Text PathFromNative(BytesView native) { return FromUtf8(native); }

Bytes NativePath(TextView path) { return ToUtf8(path); }

// From the end, and by hand: searches for one of several characters look for each in turn.
Pos LastSeparator(TextView path) {
    std::size_t length = path.size();
    while (length > 0 && !IsSeparator(path[length - 1])) --length;
    return static_cast<Pos>(length);
}

Text FileNameOfPath(TextView path) { return Mid(path, LastSeparator(path) + 1); }

Text FolderOfPath(TextView path) { return Left(path, LastSeparator(path)); }

Text JoinPath(TextView folder, TextView name) {
    Text path(folder);
    if (!path.empty() && !IsSeparator(path.back())) path.push_back(Separator);
    return path.append(name);
}

bool IsUsableFileName(TextView name) {
    return !name.empty() && name != u"." && name != u".." &&
           std::none_of(name.begin(), name.end(),
                        [](char16_t c) { return IsSeparator(c) || c == 0; });
}

}  // namespace mdlPLM
