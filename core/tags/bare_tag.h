// The text of a tag freed of what only its header explains: an extended header and
// unsynchronisation (ID3v2.3.0, sections 3.2 and 5; ID3v2.4.0, sections 3.2, 4.1.2 and 6.1). The
// header of a tag that is written says of neither, so what is handed on into one must be bare.
#pragma once

#include <optional>

#include "core/tags/id3v2.h"

namespace mdlPLM {

/// A tag as its file holds it.
struct RawTag {
    BytesView Header;  ///< its ten bytes; empty: nothing is known of it
    BytesView Text;    ///< what follows them, up to ten bytes behind the tag
};

/// The bare text, when it is not the text as it stands: without the extended header, every inserted
/// NUL taken out, and the sizes of the frames those that they then have. The bytes behind the tag
/// stay as they are. A tag whose header says what is not so is left as it stands, and so are
/// versions other than 3 and 4.
std::optional<Bytes> BareTagText(const RawTag& tag);

}  // namespace mdlPLM
