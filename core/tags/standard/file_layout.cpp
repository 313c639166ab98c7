#include "core/tags/standard/file_layout.h"

#include <algorithm>

#include "core/tags/id3v1.h"
#include "core/tags/standard/audio_start.h"
#include "core/tags/standard/sizes.h"

namespace mdlPLM::standard {

namespace {

constexpr auto V1Size = static_cast<std::int64_t>(ID3v1Size);
constexpr auto V2HeaderSize = static_cast<std::int64_t>(TagHeaderSize);
constexpr std::int64_t EnhancedSize = 227;
constexpr std::int64_t ApeHeaderSize = 32;
constexpr std::int64_t MostLyricsV1 = 5100;
constexpr std::size_t MostPieces = 16;     // at the end; no file has so many
constexpr std::int64_t MostOverhang = 10;  // what a tag of this program may declare too much

constexpr BytesView ApeMark = "APETAGEX";
constexpr BytesView LyricsBegin = "LYRICSBEGIN";
constexpr BytesView LyricsEndV1 = "LYRICSEND";
constexpr BytesView LyricsEndV2 = "LYRICS200";

std::int64_t LengthOf(BytesView bytes) { return static_cast<std::int64_t>(bytes.size()); }

// --- from the end ---

// The bytes of a file between what stands at its start and what has been found at its end.
class Back {
public:
    Back(const ReadBytes& read, std::int64_t begin, std::int64_t end)
        : read_(read), begin_(begin), end_(end) {}

    std::vector<Piece> Run() {
        while (pieces_.size() < MostPieces && TakeOne()) {
        }
        std::reverse(pieces_.begin(), pieces_.end());
        return std::move(pieces_);
    }

private:
    // The `count` bytes before `back` bytes from the end; fewer than asked for: none.
    [[nodiscard]] Bytes Before(std::int64_t back, std::int64_t count) const {
        const std::int64_t at = end_ - back - count;
        if (at < begin_) return {};
        Bytes bytes = read_(at, static_cast<std::size_t>(count));
        if (LengthOf(bytes) < count) bytes.clear();
        return bytes;
    }

    bool Take(PieceKind kind, std::int64_t length) {
        if (length <= 0 || length > end_ - begin_) return false;
        end_ -= length;
        pieces_.push_back({kind, end_, length});
        return true;
    }

    bool TakeOne() { return TakeV1() || TakeEnhanced() || TakeApe() || TakeLyrics() || TakeV2(); }

    // The end of "APETAGEX" is no tag.
    bool TakeV1() {
        const Bytes start = Before(V1Size - 3, 3);
        if (start != "TAG") return false;
        if (Before(V1Size - 5, LengthOf(ApeMark)) == ApeMark) return false;
        return Take(PieceKind::ID3v1, V1Size);
    }

    bool TakeEnhanced() {
        const bool beforeV1 = !pieces_.empty() && pieces_.back().Kind == PieceKind::ID3v1;
        if (!beforeV1 || Before(EnhancedSize - 4, 4) != "TAG+") return false;
        return Take(PieceKind::Enhanced, EnhancedSize);
    }

    // Numbers of an APE tag have their least significant byte first.
    bool TakeApe() {
        const Bytes footer = Before(0, ApeHeaderSize);
        if (BytesView(footer).substr(0, ApeMark.size()) != ApeMark) return false;
        const auto number = [&](std::size_t at) {
            Bytes bytes = footer.substr(at, 4);
            std::reverse(bytes.begin(), bytes.end());
            return static_cast<std::int64_t>(PlainNumber(bytes));
        };
        constexpr std::int64_t hasHeader = 0x80000000;
        const std::int64_t size = number(12);
        const bool header = (number(20) & hasHeader) != 0;
        return size >= ApeHeaderSize && Take(PieceKind::Ape, size + (header ? ApeHeaderSize : 0));
    }

    bool TakeLyrics() {
        const Bytes end = Before(0, LengthOf(LyricsEndV2));
        if (end == LyricsEndV2) return TakeLyricsV2();
        if (end != LyricsEndV1) return false;
        const std::int64_t most = std::min(MostLyricsV1 + LengthOf(LyricsBegin), end_ - begin_);
        const Bytes text = Before(0, most);
        const std::size_t start = text.rfind(LyricsBegin);
        if (start == Bytes::npos) return false;
        return Take(PieceKind::Lyrics3, most - static_cast<std::int64_t>(start));
    }

    bool TakeLyricsV2() {
        constexpr std::int64_t digits = 6;
        const Bytes size = Before(LengthOf(LyricsEndV2), digits);
        if (!IsAllDigits(size)) return false;
        const std::int64_t length = std::stoll(size);
        const std::int64_t behind = LengthOf(LyricsEndV2) + digits;
        if (length < LengthOf(LyricsBegin)) return false;
        const Bytes start = Before(behind + length - LengthOf(LyricsBegin), LengthOf(LyricsBegin));
        return start == LyricsBegin && Take(PieceKind::Lyrics3, length + behind);
    }

    bool TakeV2() {
        Bytes footer = Before(0, V2HeaderSize);
        if (BytesView(footer).substr(0, 3) != "3DI") return false;
        footer.replace(0, 3, "ID3");
        const std::optional<TagHeader> header = ParseTagHeader(footer);
        if (!header || !header->Footer) return false;
        if (Before(header->Length() - V2HeaderSize, V2HeaderSize) != footer) return false;
        return Take(PieceKind::ID3v2AtEnd, header->Length());
    }

    const ReadBytes& read_;
    std::int64_t begin_;
    std::int64_t end_;
    std::vector<Piece> pieces_;
};

// --- from the start ---

// A plain tag of ID3v2.3 may be one of this program's own.
bool MayHideItsPadding(const TagHeader& header) {
    return header.Major == 3 && !header.Unsynchronised && !header.Extended;
}

class Layouter {
public:
    Layouter(const ReadBytes& read, std::int64_t size, const Tag& tag) : read_(read), tag_(tag) {
        layout_.Size = size;
        layout_.TagUsed = tag.Present ? std::min(tag.FramesEnd, size) : 0;
    }

    FileLayout Run() {
        layout_.Back = Back(read_, layout_.TagUsed, layout_.Size).Run();
        layout_.AudioEnd = layout_.Back.empty() ? layout_.Size : layout_.Back.front().At;
        TakeTrailer();
        if (tag_.Present)
            MeasureTag();
        else
            FindAudioFrom(0, 0);
        return std::move(layout_);
    }

private:
    void TakeTrailer() {
        const bool there = !layout_.Back.empty() && layout_.Back.back().Kind == PieceKind::ID3v1;
        if (there) layout_.Trailer = read_(layout_.Size - V1Size, ID3v1Size);
    }

    void FindAudioFrom(std::int64_t begin, std::int64_t otherwise) {
        layout_.AudioBegin = FindFirstFrame(read_, begin, layout_.AudioEnd).value_or(otherwise);
    }

    [[nodiscard]] std::int64_t TagLengthAt(std::int64_t at) const {
        if (at + V2HeaderSize > layout_.AudioEnd) return 0;
        const std::optional<TagHeader> header = ParseTagHeader(read_(at, TagHeaderSize));
        const bool real = header && header->Major == static_cast<unsigned char>(header->Form);
        return real && at + header->Length() <= layout_.AudioEnd ? header->Length() : 0;
    }

    void MeasureTag() {
        const std::int64_t declared = tag_.Header.Length();
        const std::int64_t end = std::clamp(declared, layout_.TagUsed, layout_.AudioEnd);
        const std::int64_t content = FirstNonNul(read_, layout_.TagUsed, layout_.AudioEnd);
        const bool overlaps = content <= end && TagLengthAt(content) > 0;
        std::int64_t next = overlaps ? content : end;
        const bool more = TagLengthAt(next) > 0;
        layout_.TagRoom = next;
        if (!more) MeasureRoom(end, content);
        layout_.Front.push_back({PieceKind::ID3v2, 0, layout_.TagRoom});
        for (std::int64_t length = TagLengthAt(next); length > 0; length = TagLengthAt(next)) {
            layout_.Front.push_back({PieceKind::ID3v2, next, length});
            next += length;
        }
        if (more) FindAudioFrom(next, next);
        layout_.TagBeyondFile =
            declared > layout_.AudioEnd + MostOverhang && layout_.TagRoom >= layout_.AudioEnd;
    }

    // `content` is the first byte behind the frames that is no padding.
    void MeasureRoom(std::int64_t end, std::int64_t content) {
        const bool hidden = MayHideItsPadding(tag_.Header);
        if (tag_.Unread.empty() && IsFirstFrame(read_, content, layout_.AudioEnd)) {
            layout_.AudioBegin = content;
            layout_.TagRoom = content <= end || hidden ? content : end;
            return;
        }
        const std::int64_t from = std::max(layout_.TagUsed, end - MostOverhang);
        const std::optional<std::int64_t> audio = FindFirstFrame(read_, from, layout_.AudioEnd);
        layout_.AudioBegin = audio.value_or(end);
        layout_.TagRoom = end;
        if (!audio) return;
        const bool padded = hidden && FirstNonNul(read_, end, *audio) == *audio;
        if (*audio < end || padded) layout_.TagRoom = *audio;
    }

    const ReadBytes& read_;
    const Tag& tag_;
    FileLayout layout_;
};

}  // namespace

FileLayout FindLayout(const ReadBytes& read, std::int64_t size, const Tag& tag) {
    return Layouter(read, size, tag).Run();
}

}  // namespace mdlPLM::standard
