// What the flags of a frame put around its content: ID3v2.3.0, section 3.3.1; ID3v2.4.0, section
// 4.1.
#pragma once

#include <memory>

#include "core/tags/standard/frame_walk.h"

namespace mdlPLM::standard {

/// The content of a frame, into the tag's own bytes where it stands there as it is.
struct Content {
    bool Readable = false;  ///< false when it is encrypted, or damaged
    BytesView View;
    std::shared_ptr<const Bytes> Own;
};

/// A content that is compressed is read when it holds at most 32 times as many bytes, and 1024,
/// whatever size it declares.
Content ContentOf(const Frame& frame);

/// A frame as it is carried over into a tag of ID3v2.3 or ID3v2.4: the same flags and content
/// wherever it is of that form. What an older or newer form has otherwise is put as the new one has
/// it: without unsynchronisation and compression, a picture as APIC. An encrypted frame, or one
/// that is damaged, keeps its content.
struct CarriedFrame {
    std::array<char, 2> Flags{};
    BytesView Body;
    Bytes Own;  ///< where Body is empty: the content that was made anew
    [[nodiscard]] BytesView View() const { return Own.empty() ? Body : BytesView(Own); }
};
CarriedFrame CarryOver(const Frame& frame, TagForm form);

/// The first flag byte of a frame as a tag of that form has it: what is to become of the frame when
/// tag or file is altered, and whether it is read-only.
char StatusFlags(const Frame& frame, TagForm form);

}  // namespace mdlPLM::standard
