// The header of a tag and what may follow it: ID3v2.2.0, section 3.1; ID3v2.3.0, sections 3.1 and
// 3.2; ID3v2.4.0, sections 3.1, 3.2 and 3.4.
#pragma once

#include <cstdint>
#include <optional>

#include "core/text/text.h"

namespace mdlPLM::standard {

inline constexpr std::size_t TagHeaderSize = 10;

/// The form of a tag's frames.
enum class TagForm : char { V22 = 2, V23 = 3, V24 = 4 };

struct TagHeader {
    unsigned char Major = 3;  ///< as it stands
    unsigned char Revision = 0;
    /// That of `Major`; a version that does not exist is read as ID3v2.3.
    TagForm Form = TagForm::V23;
    bool Unsynchronised = false;
    bool Extended = false;  ///< an extended header follows
    bool Experimental = false;
    bool Footer = false;   ///< one ends the tag, and is not counted in `Size`
    std::size_t Size = 0;  ///< of what lies between header and footer, as declared

    /// Bytes from the header to the end of the footer.
    [[nodiscard]] std::int64_t Length() const;
};

/// Nothing when the bytes do not begin with a whole header. A size that is not in seven bits a byte
/// is read as a plain number.
std::optional<TagHeader> ParseTagHeader(BytesView bytes);

/// The ten bytes of a header of ID3v2.3 or ID3v2.4. Of the flags only the experimental one is kept:
/// tags are written without the other three.
Bytes RenderTagHeader(const TagHeader& header);

/// Bytes of the extended header that `text`, which follows a header that promises one, begins with;
/// 0 where there is none in spite of that.
std::size_t ExtendedHeaderSize(BytesView text, TagForm form);

}  // namespace mdlPLM::standard
