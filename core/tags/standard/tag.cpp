#include "core/tags/standard/tag.h"

#include <algorithm>

#include "core/tags/standard/unsynchronisation.h"

namespace mdlPLM::standard {

namespace {

constexpr unsigned FrameUnsynchronised = 0x02;  // ID3v2.4.0, section 4.1.2
constexpr unsigned OnlyInV24 = 0x1F;            // bits that ID3v2.3.0, section 3.3.1, leaves clear

struct TagText {
    BytesView Bytes;
    std::size_t Size = 0;  // as declared
};

// Without an extended header.
TagText FrameText(const TagHeader& header, BytesView text, std::size_t size) {
    const std::size_t tagEnd = std::min(size, text.size());
    const std::size_t skipped =
        header.Extended ? ExtendedHeaderSize(text.substr(0, tagEnd), header.Form) : 0;
    return {text.substr(skipped), size - skipped};
}

FrameList Walk(const TagHeader& header, const TagText& text) {
    return WalkFrames(text.Bytes, text.Size, header.Form);
}

struct WholeTag {
    std::shared_ptr<const Bytes> Own;
    FrameList List;
};

// Before ID3v2.4 the whole tag is unsynchronised, and frame sizes are those from before.
WholeTag WalkWhole(const TagHeader& header, BytesView inside) {
    WholeTag tag{std::make_shared<const Bytes>(Resynchronised(inside)), {}};
    tag.List = Walk(header, FrameText(header, *tag.Own, tag.Own->size()));
    return tag;
}

// A tag of ID3v2.4 that was given the header of ID3v2.3 has kept its frames: they have flags that
// ID3v2.3 does not know.
void MarkForm(Frame& frame) {
    const auto format = static_cast<unsigned char>(frame.Flags[1]);
    if (frame.Form == TagForm::V23 && (format & OnlyInV24) != 0) frame.Form = TagForm::V24;
}

enum class Unsynchronisation { OfMarked, OfAll, Undone };

void TakeFrames(Tag& tag, FrameList list, Unsynchronisation which) {
    tag.Frames = std::move(list.Frames);
    tag.Unread = list.Unread;
    for (Frame& frame : tag.Frames) {
        MarkForm(frame);
        if (frame.Form != TagForm::V24) continue;
        const auto format = static_cast<unsigned char>(frame.Flags[1]);
        const bool marked = (format & FrameUnsynchronised) != 0;
        frame.Unsynchronised =
            which == Unsynchronisation::OfAll || (which == Unsynchronisation::OfMarked && marked);
        if (which == Unsynchronisation::Undone)
            frame.Flags[1] = static_cast<char>(format & ~FrameUnsynchronised);
    }
}

void TakeWhole(Tag& tag, WholeTag whole) {
    tag.Own = std::move(whole.Own);
    TakeFrames(tag, std::move(whole.List), Unsynchronisation::Undone);
}

void ParseUnsynchronised(Tag& tag, BytesView inside) {
    tag.FramesEnd = static_cast<std::int64_t>(TagHeaderSize + inside.size());
    const bool possible = CanBeUnsynchronised(inside);
    if (possible && tag.Header.Form != TagForm::V24) {
        TakeWhole(tag, WalkWhole(tag.Header, inside));
        return;
    }
    FrameList list = Walk(tag.Header, FrameText(tag.Header, inside, tag.Header.Size));
    // In ID3v2.4 each frame is unsynchronised by itself, but some programs do it the old way.
    if (possible && !list.Clean) {
        WholeTag whole = WalkWhole(tag.Header, inside);
        if (whole.List.Clean) {
            TakeWhole(tag, std::move(whole));
            return;
        }
    }
    TakeFrames(tag, std::move(list), Unsynchronisation::OfAll);
}

}  // namespace

std::int64_t BytesToParse(BytesView head, std::int64_t fileSize) {
    const std::optional<TagHeader> header = ParseTagHeader(head);
    if (!header) return 0;
    const auto wanted = static_cast<std::int64_t>(TagHeaderSize + header->Size + Overreach);
    return std::min(wanted, fileSize);
}

Tag ParseTag(BytesView file) {
    Tag tag;
    const std::optional<TagHeader> header = ParseTagHeader(file);
    if (!header) return tag;
    tag.Present = true;
    tag.Header = *header;
    const BytesView text = file.substr(TagHeaderSize, header->Size + Overreach);
    if (header->Unsynchronised) {
        ParseUnsynchronised(tag, text.substr(0, header->Size));
        return tag;
    }
    const TagText frames = FrameText(*header, text, header->Size);
    FrameList list = Walk(*header, frames);
    tag.FramesEnd = static_cast<std::int64_t>(TagHeaderSize + text.size() - frames.Bytes.size() +
                                              list.End + list.Unread.size());
    TakeFrames(tag, std::move(list), Unsynchronisation::OfMarked);
    return tag;
}

}  // namespace mdlPLM::standard
