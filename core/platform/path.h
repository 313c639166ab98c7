// Paths as Text. Both "\" and "/" separate folders wherever a path is taken apart; where one is
// joined the system's own separator is written.
#pragma once

#include "core/text/text.h"

namespace mdlPLM {

#ifdef _WIN32
inline constexpr char16_t Separator = u'\\';
#else
inline constexpr char16_t Separator = u'/';
#endif

inline constexpr bool IsSeparator(char16_t c) { return c == u'\\' || c == u'/'; }

/// Path bytes as the system gives them, and back. Bytes in no encoding survive both ways.
Text PathFromNative(BytesView native);
Bytes NativePath(TextView path);

/// 1-based position of the last separator; 0 when there is none.
Pos LastSeparator(TextView path);

/// What follows the last separator.
Text FileNameOfPath(TextView path);

/// Up to and including the last separator; empty when there is none.
Text FolderOfPath(TextView path);

/// Folder and name with one separator between them; a separator the folder already ends in is not
/// doubled. An empty folder gives the name.
Text JoinPath(TextView folder, TextView name);

/// True when `name` can be one file name: not empty, not "." or "..", no separator, no NUL.
bool IsUsableFileName(TextView name);

}  // namespace mdlPLM
