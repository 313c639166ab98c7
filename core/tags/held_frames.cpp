#include "core/tags/held_frames.h"

#include <algorithm>

#include "core/tags/genres.h"
#include "core/tags/id3v2_writer.h"

namespace mdlPLM {

namespace {

constexpr std::size_t IdentifierSize = 4;
constexpr std::size_t FlagsOffset = 8;
constexpr char FirstSyncByte = '\xFF';

bool IsIdentifierCharacter(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

bool StartsFrame(BytesView text) {
    return text.size() >= FrameHeaderSize &&
           std::all_of(text.begin(), text.begin() + IdentifierSize, IsIdentifierCharacter);
}

std::size_t PlainSize(BytesView fourBytes) {
    std::size_t size = 0;
    for (const char byte : fourBytes.substr(0, 4))
        size = size << 8U | static_cast<unsigned char>(byte);
    return size;
}

// A frame ends where the next one starts, or padding, or the audio, or in the ten bytes behind the
// tag.
bool EndsFrame(BytesView tagText, std::size_t end) {
    if (end > tagText.size()) return false;
    return end + ID3v2HeaderSize >= tagText.size() || tagText[end] == '\0' ||
           tagText[end] == FirstSyncByte || StartsFrame(tagText.substr(end));
}

bool MeasureFrame(BytesView tagText, WalkedFrame& frame) {
    const BytesView sizeBytes = tagText.substr(frame.Start + IdentifierSize, 4);
    for (const bool sevenBit : {true, false}) {
        const std::size_t size =
            sevenBit ? static_cast<std::size_t>(DecodeSize(sizeBytes)) : PlainSize(sizeBytes);
        frame.Length = FrameHeaderSize + size;
        frame.SevenBitSize = sevenBit;
        if (EndsFrame(tagText, frame.Start + frame.Length)) return true;
    }
    return false;
}

BytesView IdentifierOf(BytesView tagText, const WalkedFrame& frame) {
    return tagText.substr(frame.Start, IdentifierSize);
}

struct ReadFrame {
    BytesView Identifier;
    BytesView Frame;
    Bytes Text;
};

// True when the reader's text is all that the frame says beside language, description and the flags
// that do not change its form.
bool IsTextRight(const ReadFrame& read) {
    BytesView content = read.Frame.substr(FrameHeaderSize);
    if (content.empty()) return true;
    if (read.Frame[FlagsOffset + 1] != '\0' || content.front() != '\0') return false;
    content.remove_prefix(1);
    if (read.Identifier == "COMM") content.remove_prefix(std::min<std::size_t>(3, content.size()));
    if (read.Identifier == "COMM" || read.Identifier == "WXXX")
        content.remove_prefix(std::min(content.find('\0'), content.size() - 1) + 1);
    return content == read.Text;
}

FrameKind KindOfGenre(const ReadFrame& read) {
    const Bytes name = ResolveGenre(read.Text);
    if (!IsTextRight(read) || name.empty()) return FrameKind::Unshown;
    return name == GenreNameOfNumber(-1) ? FrameKind::Unshown : FrameKind::Reference;
}

FrameKind KindOf(const ReadFrame& read) {
    if (read.Identifier == "TCON") return KindOfGenre(read);
    if (BuildFrame(read.Identifier, read.Text) == read.Frame) return FrameKind::Whole;
    return IsTextRight(read) ? FrameKind::InPart : FrameKind::Unshown;
}

FrameKind KindOf(BytesView tagText, const std::vector<WalkedFrame>& walked, BytesView identifier) {
    const std::size_t start = tagText.find(identifier);
    if (start == BytesView::npos) return FrameKind::Absent;
    const auto frame = std::find_if(walked.begin(), walked.end(),
                                    [&](const WalkedFrame& f) { return f.Start == start; });
    if (frame == walked.end() || !frame->SevenBitSize) return FrameKind::Unshown;
    return KindOf(
        {identifier, tagText.substr(start, frame->Length), GetFrameText(tagText, identifier)});
}

// Removes the walked frames for which `goes` is true.
template <class Goes>
Bytes WithoutFrames(BytesView tagText, Goes goes) {
    Bytes rest;
    std::size_t done = 0;
    for (const WalkedFrame& frame : WalkFrames(tagText)) {
        if (!goes(frame)) continue;
        rest.append(tagText.substr(done, frame.Start - done));
        done = frame.Start + frame.Length;
    }
    return rest.append(tagText.substr(std::min(done, tagText.size())));
}

}  // namespace

std::vector<WalkedFrame> WalkFrames(BytesView tagText) {
    std::vector<WalkedFrame> frames;
    WalkedFrame frame;
    while (StartsFrame(tagText.substr(frame.Start)) && MeasureFrame(tagText, frame)) {
        frames.push_back(frame);
        frame.Start += frame.Length;
    }
    return frames;
}

Bytes CutWalkedFrame(BytesView tagText, BytesView identifier) {
    bool found = false;
    return WithoutFrames(tagText, [&](const WalkedFrame& frame) {
        const bool goes = !found && IdentifierOf(tagText, frame) == identifier;
        found = found || goes;
        return goes;
    });
}

FrameKinds KindsOfFrames(BytesView tagText) {
    const std::vector<WalkedFrame> walked = WalkFrames(tagText);
    FrameKinds kinds{};
    std::transform(
        KnownFrames.begin(), KnownFrames.end(), kinds.begin(),
        [&](const KnownFrame& known) { return KindOf(tagText, walked, known.Identifier); });
    return kinds;
}

bool IsHandedOn(FrameKind kind, HandOn which) {
    return kind == FrameKind::InPart || kind == FrameKind::Unshown ||
           (kind == FrameKind::Reference && which == HandOn::NotWhole);
}

Bytes OtherFramesWith(BytesView tagText, const FrameKinds& kinds, HandOn which) {
    std::array<std::size_t, KnownFrames.size()> gone{};
    gone.fill(BytesView::npos);
    for (std::size_t i = 0; i < KnownFrames.size(); ++i)
        if (kinds[i] != FrameKind::Absent && !IsHandedOn(kinds[i], which))
            gone[i] = tagText.find(KnownFrames[i].Identifier);
    Bytes rest = WithoutFrames(tagText, [&](const WalkedFrame& frame) {
        return std::find(gone.begin(), gone.end(), frame.Start) != gone.end();
    });
    if (rest.find_first_not_of('\0') == Bytes::npos) rest.clear();
    return rest;
}

Bytes OnlyFrames(BytesView tagText, const std::vector<BytesView>& identifiers) {
    std::vector<BytesView> wanted = identifiers;
    Bytes frames;
    for (const WalkedFrame& frame : WalkFrames(tagText)) {
        const auto found = std::find(wanted.begin(), wanted.end(), IdentifierOf(tagText, frame));
        if (found == wanted.end()) continue;
        frames.append(tagText.substr(frame.Start, frame.Length));
        wanted.erase(found);
    }
    return frames;
}

}  // namespace mdlPLM