// Pictures in the other-frames text, found by walking from frame to frame, so that the user sees
// the picture itself and not what the text rule makes of its bytes.
#pragma once

#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

struct FramePicture {
    BytesView MimeType;  ///< "image/jpeg"
    int Type = 0;        ///< what it shows: 3 is the front cover ("ID3v2.3.0, section 4.15")
    BytesView Data;      ///< the picture file, to the end of its frame; views into the text
};

/// The pictures of the "APIC" frames, in order. Never fails: what is no frame is stepped over, and
/// a size that cannot be is not believed.
std::vector<FramePicture> PicturesIn(BytesView otherFrames);

/// What the picture shows, such as "Front cover".
const char* PictureTypeName(int type);

/// The data without the zeros that unsynchronisation puts behind each 0xFF ("ID3v2.3.0, section
/// 5"); for a picture that cannot be decoded as it stands.
Bytes WithoutUnsynchronisation(BytesView data);

}  // namespace mdlPLM
