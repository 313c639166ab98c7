// Unsynchronisation: a NUL behind each byte FF that a decoder could take for the start of audio
// (ID3v2.3.0, section 5; ID3v2.4.0, section 6.1). Tags are written without it.
#pragma once

#include "core/text/text.h"

namespace mdlPLM::standard {

/// False when the bytes hold what unsynchronisation takes away: some programs say they have done it
/// and have not.
bool CanBeUnsynchronised(BytesView bytes);

/// Without the NUL behind each FF.
Bytes Resynchronised(BytesView bytes);

}  // namespace mdlPLM::standard
