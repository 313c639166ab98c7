// The contents of the extended attribute "user.DOSATTRIB", in which file servers for Windows
// clients keep the attributes that have no file mode.
//
// Two forms are in use (xattr_DOSATTRIB in the interface definition xattr.idl of Samba): plain
// text, "0x22"; and a packed record: that text or an empty one with its NUL, then, each at a
// multiple of its size, the version twice (16 bits), from version 2 on the valid-field flags (32
// bits), the attributes (32 bits) and further fields; all little-endian.
#pragma once

#include <cstdint>
#include <optional>

#include "core/text/text.h"

namespace mdlPLM {

/// The attribute bits; nothing when the contents are in neither form.
std::optional<std::uint32_t> ParseDosAttributes(BytesView contents);

/// The contents with these attribute bits: a packed record stays one and keeps its other fields,
/// everything else becomes the plain form.
Bytes RenderDosAttributes(BytesView oldContents, std::uint32_t attributes);

}  // namespace mdlPLM
