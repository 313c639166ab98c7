// A small collection of real MP3 files with bad names and tags, made without an encoder: for a
// first look at the program, and for tests.
#pragma once

#include <vector>

#include "core/platform/errors.h"

namespace mdlPLM::cli {

/// A silent MPEG 1.0 layer 3 stream of about that many seconds: 128 kbps, 44100 Hz, joint stereo
/// (ISO/IEC 11172-3). Every frame stands for itself and has nothing but its header and a side
/// information of zeros.
Bytes SilentStream(int seconds);

struct SampleFile {
    Bytes Name;  ///< as the system takes it, with its folder below the collection's
    Bytes Contents;
};
const std::vector<SampleFile>& SampleFiles();

/// An album description for the files of the folder "album", one line per track.
Bytes SampleAlbumText();

/// Writes the files below `folder`, which is there and empty.
Status MakeSampleCollection(TextView folder);

}  // namespace mdlPLM::cli
