#include "core/platform/path.h"

#include <algorithm>

#include "core/text/code_page.h"

namespace mdlPLM {

Text PathFromNative(BytesView native) { return FromUtf8(native); }

Bytes NativePath(TextView path) { return ToUtf8(path); }

Pos LastSeparator(TextView path) {
    const std::size_t found = path.find_last_of(u"\\/");
    return found == TextView::npos ? 0 : static_cast<Pos>(found) + 1;
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
