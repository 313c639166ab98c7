// The paths of a drop: text/uri-list (RFC 2483) decoded byte by byte, because a name that is no
// valid text is lost in a decoder that goes through characters.
#pragma once

#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

/// "%41" becomes "A"; a "%" without two hexadecimal digits behind it stays.
Bytes DecodePercent(BytesView encoded);

/// The path of a "file:" URI without a host or with "localhost"; empty for every other URI and for
/// a path with a NUL in it. A folder's closing separator is dropped.
Text PathFromFileUri(BytesView uri);

/// The files of a list in its order, lines ended by CR LF or LF. Comments and other URIs are left
/// out.
std::vector<Text> PathsFromUriList(BytesView list);

}  // namespace mdlPLM
