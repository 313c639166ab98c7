#include "core/tags/held_frames.h"

#include <algorithm>
#include <utility>

#include "core/tags/genres.h"
#include "core/tags/id3v2_writer.h"

namespace mdlPLM {

namespace {

constexpr std::size_t IdentifierSize = 4;
constexpr std::size_t FlagsOffset = 8;
constexpr unsigned LastEncoding = 3;
// Flag bits that no version knows; they are 0 in a frame.
constexpr unsigned NoStatusFlag = 0x0F;
constexpr unsigned NoFormatFlag = 0x10;

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

// Letters that stand where no walk comes to: what follows them tells a frame from other bytes.
bool LooksLikeFrame(BytesView text) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    return text.size() > FrameHeaderSize && (byte(FlagsOffset) & NoStatusFlag) == 0 &&
           (byte(FlagsOffset + 1) & NoFormatFlag) == 0 && byte(FrameHeaderSize) <= LastEncoding;
}

std::size_t EndOf(const std::vector<WalkedFrame>& frames) {
    return frames.empty() ? 0 : frames.back().Start + frames.back().Length;
}

// Finds real frames: walked ones, and behind the end of the walk those that look like one.
class Finder {
public:
    explicit Finder(BytesView tagText) : text_(tagText), frames_(WalkFrames(tagText)) {}

    [[nodiscard]] std::optional<WalkedFrame> Find(BytesView identifier) const {
        for (const WalkedFrame& frame : frames_)
            if (IdentifierOf(text_, frame) == identifier) return frame;
        for (std::size_t at = Next(identifier, EndOf(frames_)); at != BytesView::npos;
             at = Next(identifier, at + 1)) {
            const std::vector<WalkedFrame> more = WalkFrames(text_.substr(at));
            if (!more.empty()) return WalkedFrame{at, more[0].Length, more[0].SevenBitSize};
        }
        return {};
    }

    // The one that a box shows, where the walk does not come to, even if its size leads nowhere:
    // then as far as it is shown.
    [[nodiscard]] std::optional<WalkedFrame> FindShown(BytesView identifier) const {
        const std::size_t at = text_.find(identifier);
        if (at == BytesView::npos || at < EndOf(frames_) || Next(identifier, at) != at) return {};
        const std::vector<WalkedFrame> more = WalkFrames(text_.substr(at));
        if (!more.empty()) return WalkedFrame{at, more[0].Length, more[0].SevenBitSize};
        const auto size =
            static_cast<std::size_t>(DecodeSize(text_.substr(at + IdentifierSize, IdentifierSize)));
        return WalkedFrame{at, std::min(FrameHeaderSize + size, text_.size() - at), true};
    }

private:
    [[nodiscard]] std::size_t Next(BytesView identifier, std::size_t from) const {
        std::size_t at = text_.find(identifier, from);
        while (at != BytesView::npos && !LooksLikeFrame(text_.substr(at)))
            at = text_.find(identifier, at + 1);
        return at;
    }

    BytesView text_;
    std::vector<WalkedFrame> frames_;
};

// A bare tag text with its frames and the places where the reader finds the known ones.
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

    [[nodiscard]] BytesView TextOfKnown(std::size_t place) const {
        return FrameTextAt(text_, starts_[place], KnownFrames[place].Identifier);
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
        const BytesView rest = text_.substr(EndOf(frames_));
        if (all.size() == known.size() && IsOnlyNuls(rest)) return known;
        return all.append(rest);
    }

private:
    [[nodiscard]] FrameKind KindOfKnown(std::size_t place, Bytes& built) const {
        const std::size_t start = starts_[place];
        if (start == BytesView::npos) return FrameKind::Absent;
        const BytesView identifier = KnownFrames[place].Identifier;
        const auto frame = std::find_if(frames_.begin(), frames_.end(),
                                        [&](const WalkedFrame& f) { return f.Start == start; });
        if (frame == frames_.end()) return KindOfUnwalked(start, identifier);
        if (!frame->SevenBitSize) return FrameKind::Unshown;
        const BytesView bytes = text_.substr(start, frame->Length);
        return KindOf({identifier, bytes, FrameTextAt(bytes, 0, identifier)}, built);
    }

    [[nodiscard]] FrameKind KindOfUnwalked(std::size_t start, BytesView identifier) const {
        const bool isReal =
            start >= EndOf(frames_) ||
            std::any_of(frames_.begin(), frames_.end(), [&](const WalkedFrame& frame) {
                return IdentifierOf(text_, frame) == identifier;
            });
        return isReal ? FrameKind::Unshown : FrameKind::Inside;
    }

    [[nodiscard]] std::size_t KnownPlaceOf(const WalkedFrame& frame) const {
        return static_cast<std::size_t>(std::find(starts_.begin(), starts_.end(), frame.Start) -
                                        starts_.begin());
    }

    BytesView text_;
    std::vector<WalkedFrame> frames_;
    FramePlaces starts_;
};

// The reader does not bare a tag: a field that reads otherwise there is not to be written.
FrameKinds KindsInFile(const Walk& walk, BytesView fileText) {
    FrameKinds kinds = walk.Kinds();
    const FramePlaces starts = PlacesOfFrames(fileText);
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const BytesView read = FrameTextAt(fileText, starts[i], KnownFrames[i].Identifier);
        if (kinds[i] != FrameKind::Absent && kinds[i] != FrameKind::Inside &&
            read != walk.TextOfKnown(i))
            kinds[i] = FrameKind::Unshown;
    }
    return kinds;
}

struct PlacedFrame {
    WalkedFrame Frame;
    std::size_t Place = 0;  // among the known frames
};

// Of the known frames that are handed on those that are found, in the order of the text.
std::vector<PlacedFrame> FoundFrames(const HeldFrames& held) {
    const Finder finder(held.OtherFrames);
    std::vector<PlacedFrame> found;
    for (std::size_t i = 0; i < KnownFrames.size(); ++i) {
        if (!IsHandedOn(held.Kinds[i], held.Which)) continue;
        if (const auto frame = finder.Find(KnownFrames[i].Identifier)) found.push_back({*frame, i});
    }
    std::sort(found.begin(), found.end(), [](const PlacedFrame& a, const PlacedFrame& b) {
        return a.Frame.Start < b.Frame.Start;
    });
    return found;
}

void HandOnAlone(ID3v2Tag& record, const HeldFrames& held) {
    record.OtherFrames.clear();
    std::size_t end = 0;
    for (const auto& [frame, place] : FoundFrames(held)) {
        if (frame.Start < end) continue;
        record.OtherFrames.append(held.OtherFrames, frame.Start, frame.Length);
        (record.*KnownFrames[place].Field).clear();
        end = frame.Start + frame.Length;
    }
}

void HandOnAll(ID3v2Tag& record, HeldFrames& held) {
    for (std::size_t i = 0; i < KnownFrames.size(); ++i)
        if (IsHandedOn(held.Kinds[i], held.Which) &&
            held.OtherFrames.find(KnownFrames[i].Identifier) != Bytes::npos)
            (record.*KnownFrames[i].Field).clear();
    record.OtherFrames = std::move(held.OtherFrames);
}

}  // namespace

Bytes CutFoundFrame(BytesView tagText, BytesView identifier) {
    const Finder finder(tagText);
    std::optional<WalkedFrame> frame = finder.FindShown(identifier);
    if (!frame) frame = finder.Find(identifier);
    Bytes rest(tagText);
    if (frame) rest.erase(frame->Start, frame->Length);
    return rest;
}

FrameKinds KindsOfFrames(const RawTag& tag) {
    const std::optional<Bytes> bare = BareTagText(tag);
    return bare ? KindsInFile(Walk(*bare), tag.Text) : Walk(tag.Text).Kinds();
}

bool IsHandedOn(FrameKind kind, HandOn which) {
    return kind == FrameKind::InPart || kind == FrameKind::Unshown || kind == FrameKind::Inside ||
           (kind == FrameKind::Reference && which == HandOn::NotWhole);
}

HeldFrames HoldFrames(const RawTag& tag, HandOn which) {
    const std::optional<Bytes> bare = BareTagText(tag);
    const Walk walk(bare ? BytesView(*bare) : tag.Text);
    const FrameKinds kinds = bare ? KindsInFile(walk, tag.Text) : walk.Kinds();
    return {kinds, which, walk.Others(kinds, which)};
}

void GiveWay(HeldFrames& held, std::size_t place) {
    FrameKind& kind = held.Kinds[place];
    if (IsHandedOn(kind, held.Which))
        held.OtherFrames = CutFoundFrame(held.OtherFrames, KnownFrames[place].Identifier);
    kind = FrameKind::Absent;
}

void HandOnTo(ID3v2Tag& record, HeldFrames held, HiddenFrames hidden) {
    for (std::size_t i = 0; i < KnownFrames.size(); ++i)
        if (held.Kinds[i] == FrameKind::Inside) (record.*KnownFrames[i].Field).clear();
    if (hidden == HiddenFrames::Drop)
        HandOnAlone(record, held);
    else
        HandOnAll(record, held);
    if (IsOnlyNuls(record.OtherFrames)) record.OtherFrames.clear();
}

bool IsOnlyNuls(BytesView bytes) {
    return bytes.empty() ||
           (bytes.front() == '\0' && bytes.substr(1) == bytes.substr(0, bytes.size() - 1));
}

}  // namespace mdlPLM
