// Tags of every version as bytes, for tests: what is right, and what is wrong in a known way.
#pragma once

#include "core/tags/standard/edit.h"
#include "core/tags/standard/standard_plan.h"
#include "core/tags/standard/tag.h"

namespace mdlPLM::standard::test {

/// Bytes that may hold NULs: all characters of a literal.
template <std::size_t Size>
Bytes B(const char (&literal)[Size]) {
    return Bytes(literal, Size - 1);
}

/// A frame with its header; `flags` are two bytes.
Bytes Frame22(BytesView id, const Bytes& content);
Bytes Frame23(BytesView id, const Bytes& content, const Bytes& flags = B("\0\0"));
Bytes Frame24(BytesView id, const Bytes& content, const Bytes& flags = B("\0\0"));
/// A frame whose size is in seven bits a byte in ID3v2.3, as the classic way writes it.
Bytes SevenBitFrame(BytesView id, const Bytes& content);

/// A text frame in single bytes.
Bytes Text23(BytesView id, BytesView text);
Bytes Text24(BytesView id, BytesView text);

struct TagParts {
    int Major = 3;
    int Flags = 0;
    std::size_t Padding = 0;
    std::int64_t SizeError = 0;  ///< what the header declares too much
};
/// A tag with its header.
Bytes TagOf(const Bytes& frames, const TagParts& parts = {});

/// A NUL behind every FF that needs one, and behind one at the end.
Bytes Unsynchronised(BytesView bytes);

/// As zlib does it.
Bytes Deflated(BytesView bytes);

/// A number in four bytes.
Bytes Plain(std::size_t number);
Bytes SevenBit(std::size_t number);

/// UTF-16 without a mark.
Bytes Little(TextView text);
Bytes Big(TextView text);

/// `count` frames of audio, all of one kind.
Bytes Audio(std::size_t count = 5);
inline constexpr std::size_t AudioFrameSize = 417;

/// The bytes of a file as the layout reads them.
ReadBytes Reader(const Bytes& file);
FileLayout LayoutOf(const Bytes& file);

/// The identifiers of the frames, with blanks between them.
Bytes Ids(const Tag& tag);

/// An edit of one field.
TagEdit Edit(Field field, TextView text);

/// A file after a plan was performed.
Bytes Performed(const Bytes& file, const SavePlan& plan);

/// A file after its tags were saved the standard way.
Bytes SavedFile(const Bytes& file, const TagEdit& edit, const TrailerEdit& trailer = {});

/// A tag after it was saved into a file of its own, without padding: header and frames.
Bytes Saved(const Bytes& file, const TagEdit& edit);

}  // namespace mdlPLM::standard::test
