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
    BytesView Text;
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

// `built` is room for a frame; a walk goes over many of them.
FrameKind KindOf(const ReadFrame& read, Bytes& built) {
    if (read.Identifier == "TCON") return KindOfGenre(read);
    built.clear();
    AppendFrame(built, read.Identifier, read.Text);
    if (built == read.Frame) return FrameKind::Whole;
    return IsTextRight(read) ? FrameKind::InPart : FrameKind::Unshown;
}

// A tag text with its frames and the places where the reader finds the known ones.
class Walk {
public:
    explicit Walk(BytesView tagText)
        : text_(tagText), frames_(WalkFrames(tagText)), starts_(PlacesOfFrames(tagText)) {}

    [[nodiscard]] FrameKinds Kinds() const {
        FrameKinds kinds{};
        Bytes built;
        for (std::size_t i = 0; i < kinds.size(); ++i) kinds[i] = KindOfKnown(i, built);
        return kinds;
    }

    [[nodiscard]] Bytes Others(const FrameKinds& kinds, HandOn which) const {
        Bytes known;
        Bytes all;
        all.reserve(text_.size());
        for (const WalkedFrame& frame : frames_) {
            const std::size_t place = KnownPlaceOf(frame);
            const BytesView bytes = text_.substr(frame.Start, frame.Length);
            const bool isKnown = place < kinds.size();
            if (isKnown && !IsHandedOn(kinds[place], which)) continue;
            if (isKnown) known.append(bytes);
            all.append(bytes);
        }
        const BytesView rest = text_.substr(End());
        if (all.size() == known.size() && IsOnlyNuls(rest)) return known;
        return all.append(rest);
    }

private:
    [[nodiscard]] FrameKind KindOfKnown(std::size_t place, Bytes& built) const {
        const std::size_t start = starts_[place];
        if (start == BytesView::npos) return FrameKind::Absent;
        const auto frame = std::find_if(frames_.begin(), frames_.end(),
                                        [&](const WalkedFrame& f) { return f.Start == start; });
        if (frame == frames_.end() || !frame->SevenBitSize) return FrameKind::Unshown;
        const BytesView bytes = text_.substr(start, frame->Length);
        const BytesView identifier = KnownFrames[place].Identifier;
        return KindOf({identifier, bytes, FrameTextAt(bytes, 0, identifier)}, built);
    }

    [[nodiscard]] std::size_t KnownPlaceOf(const WalkedFrame& frame) const {
        return static_cast<std::size_t>(std::find(starts_.begin(), starts_.end(), frame.Start) -
                                        starts_.begin());
    }

    [[nodiscard]] std::size_t End() const {
        return frames_.empty() ? 0 : frames_.back().Start + frames_.back().Length;
    }

    BytesView text_;
    std::vector<WalkedFrame> frames_;
    FramePlaces starts_;
};

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
    Bytes rest(tagText);
    for (const WalkedFrame& frame : WalkFrames(tagText)) {
        if (IdentifierOf(tagText, frame) != identifier) continue;
        rest.erase(frame.Start, frame.Length);
        break;
    }
    return rest;
}

FrameKinds KindsOfFrames(BytesView tagText) { return Walk(tagText).Kinds(); }

bool IsHandedOn(FrameKind kind, HandOn which) {
    return kind == FrameKind::InPart || kind == FrameKind::Unshown ||
           (kind == FrameKind::Reference && which == HandOn::NotWhole);
}

HeldFrames HoldFrames(BytesView tagText, HandOn which) {
    const Walk walk(tagText);
    const FrameKinds kinds = walk.Kinds();
    return {kinds, which, walk.Others(kinds, which)};
}

bool IsOnlyNuls(BytesView bytes) {
    return bytes.empty() ||
           (bytes.front() == '\0' && bytes.substr(1) == bytes.substr(0, bytes.size() - 1));
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