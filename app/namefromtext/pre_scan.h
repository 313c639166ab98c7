// The pre-scan: artist, album, year and release date from keys that stand anywhere in the text of
// an album description.
#pragma once

#include "core/text/text.h"

namespace mdlPLM {

/// The value that follows the first place of the key `strTag` in `strSRC`, letter case ignored: up
/// to the next CR LF, without line ends and the characters that decorate such notes, trimmed. With
/// no CR LF behind it the value loses the last character of the text; this is intended. Empty when
/// the key is absent or nothing follows it.
Text GetATag(TextView strSRC, TextView strTag);

struct PreScanResult {
    Text Artist;
    Text Album;
    Text Year;
    Text ReleaseDate;
};

/// Tries the keys of each box in their order; every box gets a value, if only the empty one.
PreScanResult PreScan(TextView source);

/// The characters that are taken out of artist, album and release date. The Nordic and German
/// letters among a few others are not in it; the other accented letters go, deliberately.
Text PreScanRemovalSet();

}  // namespace mdlPLM
