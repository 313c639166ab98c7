#include "core/tags/id3v2_writer.h"

#include "core/tags/frames.h"

namespace mdlPLM {

namespace {

constexpr char DiscardWhenAltered = '\x40';  // ID3v2.3.0, section 3.3.1, "file alter preservation"
constexpr BytesView Latin1{"\0", 1};

constexpr std::size_t UsualFrames = 512;  // bytes that the frames of most tags are below

// What a frame holds beside its text.
struct FrameForm {
    BytesView Identifier;
    BytesView Prefix;  // between encoding byte and text
    char FirstFlag;
};

constexpr std::array<FrameForm, 3> SpecialForms = {{
    {"COMM", {"eng\0", 4}, '\0'},
    {"WXXX", {"\0", 1}, '\0'},
    {"TENC", {}, DiscardWhenAltered},
}};

FrameForm FormOf(BytesView identifier) {
    for (const FrameForm& form : SpecialForms)
        if (form.Identifier == identifier) return form;
    return {identifier, {}, '\0'};
}

}  // namespace

// The first group takes all that is left, so that every size below 2^29 reads back.
void AppendSize(Bytes& bytes, std::int64_t size) {
    bytes.push_back(static_cast<char>(size >> 21));
    bytes.push_back(static_cast<char>(size >> 14 & 127));
    bytes.push_back(static_cast<char>(size >> 7 & 127));
    bytes.push_back(static_cast<char>(size & 127));
}

void AppendPlainSize(Bytes& bytes, std::int64_t size) {
    for (const int shift : {24, 16, 8, 0}) bytes.push_back(static_cast<char>(size >> shift & 255));
}

void AppendFrame(Bytes& bytes, BytesView identifier, BytesView text) {
    if (text.empty()) return;
    const FrameForm form = FormOf(identifier);
    bytes.append(identifier);
    AppendSize(bytes, static_cast<std::int64_t>(Latin1.size() + form.Prefix.size() + text.size()));
    bytes.push_back(form.FirstFlag);
    bytes.push_back('\0');
    bytes.append(Latin1).append(form.Prefix).append(text);
}

Bytes BuildFrame(BytesView identifier, BytesView text) {
    Bytes frame;
    AppendFrame(frame, identifier, text);
    return frame;
}

Bytes BuildTagHeader(std::int64_t size) {
    Bytes header = "ID3\3";
    header.append(2, '\0');  // revision and flags
    AppendSize(header, size);
    return header;
}

Bytes BuildFrames(const ID3v2Tag& tag) {
    std::array<const KnownFrame*, KnownFrames.size()> inOrder{};
    for (const KnownFrame& frame : KnownFrames) inOrder[frame.WriteRank] = &frame;
    Bytes frames;
    frames.reserve(UsualFrames + tag.OtherFrames.size());
    for (const KnownFrame* frame : inOrder)
        AppendFrame(frames, frame->Identifier, tag.*frame->Field);
    return frames.append(tag.OtherFrames);
}

}  // namespace mdlPLM
