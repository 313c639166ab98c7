#include "core/tags/bare_tag.h"

#include <algorithm>

#include "core/tags/frame_walk.h"
#include "core/tags/frames.h"
#include "core/tags/id3v2_writer.h"

namespace mdlPLM {

namespace {

constexpr std::size_t MajorOffset = 3;
constexpr std::size_t TagFlagsOffset = 5;
constexpr std::size_t TagSizeOffset = 6;
constexpr unsigned UnsynchronisedTag = 0x80;
constexpr unsigned ExtendedHeader = 0x40;

constexpr std::size_t SizeOffset = 4;  // in a frame
constexpr std::size_t StatusFlagsOffset = 8;
constexpr std::size_t FormatFlagsOffset = 9;
// The second flag byte of a frame of version 4.
constexpr unsigned CompressedOrEncrypted = 0x0C;
constexpr unsigned UnsynchronisedFrame = 0x02;
constexpr unsigned HasLength = 0x01;
constexpr std::size_t LengthSize = 4;

unsigned ByteAt(BytesView bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

// Nothing that was unsynchronised holds a sync; some programs set the flag and change nothing.
bool HoldsSync(BytesView bytes) {
    for (std::size_t at = bytes.find('\xFF'); at != BytesView::npos;
         at = bytes.find('\xFF', at + 1))
        if ((ByteAt(bytes, at + 1) & 0xE0U) == 0xE0U) return true;
    return false;
}

Bytes WithoutInsertedNuls(BytesView bytes) {
    Bytes result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t next = bytes.find(BytesView("\xFF\0", 2));
        const std::size_t taken = next == BytesView::npos ? bytes.size() : next + 1;
        result.append(bytes.substr(0, taken));
        bytes.remove_prefix(std::min(next == BytesView::npos ? taken : taken + 1, bytes.size()));
    }
    return result;
}

// Some programs count the four bytes of the size with the rest where they should not, or the other
// way round, so it ends where the frames begin.
BytesView WithoutExtendedHeader(BytesView text, unsigned major) {
    if (!WalkFrames(text).empty()) return text;
    const auto plain = static_cast<std::size_t>(DecodePlainSize(text));
    const auto sevenBit = static_cast<std::size_t>(DecodeSize(text.substr(0, LengthSize)));
    const std::array<std::size_t, 4> lengths = {
        major == 3 ? plain + LengthSize : sevenBit,  // as the standards have it
        major == 3 ? plain : sevenBit + LengthSize, sevenBit, plain + LengthSize};
    for (const std::size_t length : lengths)
        if (length > LengthSize && length < text.size() && !WalkFrames(text.substr(length)).empty())
            return text.substr(length);
    return text;
}

struct FrameForm {
    unsigned Major = 0;
    bool WholeTag = false;  // the tag's header says that every frame is unsynchronised
};

Bytes BareFrame(BytesView frame, bool sevenBitSize, FrameForm form) {
    unsigned flags = ByteAt(frame, FormatFlagsOffset);
    const bool own = form.Major == 4 && (flags & UnsynchronisedFrame) != 0;
    BytesView content = frame.substr(FrameHeaderSize);
    if (!(own || form.WholeTag) || HoldsSync(content)) return Bytes(frame);
    const bool counted = own && (flags & HasLength) != 0 && (flags & CompressedOrEncrypted) == 0;
    if (counted) content.remove_prefix(std::min(LengthSize, content.size()));
    if (own) flags &= ~(UnsynchronisedFrame | (counted ? HasLength : 0U));
    const Bytes bare = WithoutInsertedNuls(content);
    Bytes result(frame.substr(0, SizeOffset));
    (sevenBitSize ? AppendSize : AppendPlainSize)(result, static_cast<std::int64_t>(bare.size()));
    result.push_back(frame[StatusFlagsOffset]);
    result.push_back(static_cast<char>(flags));
    return result.append(bare);
}

Bytes WithBareFrames(BytesView text, FrameForm form) {
    Bytes bare;
    bare.reserve(text.size());
    std::size_t end = 0;
    for (const WalkedFrame& frame : WalkFrames(text)) {
        const BytesView bytes = text.substr(frame.Start, frame.Length);
        bare += BareFrame(bytes, frame.SevenBitSize, form);
        end = frame.Start + frame.Length;
    }
    return bare.append(text.substr(end));
}

// The sizes of version 3 do not count the inserted NULs, but some programs count them.
Bytes BareOfVersion3(BytesView text, bool unsynchronised, bool extended) {
    const auto skipped = [&](BytesView whole) {
        return extended ? WithoutExtendedHeader(whole, 3) : whole;
    };
    if (!unsynchronised || HoldsSync(text)) return Bytes(skipped(text));
    const Bytes synchronised = WithoutInsertedNuls(text);
    const FrameWalk notCounted = WalkTag(skipped(synchronised));
    const FrameWalk counted = WalkTag(skipped(text));
    const std::size_t most = notCounted.Frames.size();
    const bool isCounted = counted.Frames.size() != most
                               ? counted.Frames.size() > most
                               : counted.EndsCleanly && !notCounted.EndsCleanly;
    return isCounted ? WithBareFrames(skipped(text), {3, true}) : Bytes(skipped(synchronised));
}

}  // namespace

std::optional<Bytes> BareTagText(const RawTag& tag) {
    const unsigned major = ByteAt(tag.Header, MajorOffset);
    const unsigned flags = ByteAt(tag.Header, TagFlagsOffset);
    if (tag.Header.size() < ID3v2HeaderSize || (major != 3 && major != 4)) return {};
    const bool unsynchronised = (flags & UnsynchronisedTag) != 0;
    const bool extended = (flags & ExtendedHeader) != 0;
    if (major == 3 && !unsynchronised && !extended) return {};
    const auto declared = static_cast<std::size_t>(DecodeSize(tag.Header.substr(TagSizeOffset, 4)));
    const BytesView own = tag.Text.substr(0, declared);
    const BytesView behind = tag.Text.substr(own.size());
    Bytes bare = major == 3 ? BareOfVersion3(own, unsynchronised, extended)
                            : WithBareFrames(extended ? WithoutExtendedHeader(own, 4) : own,
                                             {4, unsynchronised});
    bare.append(behind);
    if (bare == tag.Text) return {};
    return bare;
}

}  // namespace mdlPLM
