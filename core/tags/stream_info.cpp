#include "core/tags/stream_info.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mdlPLM {

namespace {

constexpr std::size_t BlockSize = std::size_t{16} << 10;
constexpr auto HeaderSize = static_cast<std::int64_t>(MpegHeaderSize);
constexpr char FirstSyncByte = '\xFF';
constexpr auto PieceSize = static_cast<std::int64_t>(BlockSize);
// Each look at what follows may read a block.
constexpr int LooksPerPiece = 512;
constexpr std::int64_t FirstFrameWithin = std::int64_t{16} << 20;

Text WithOneDecimal(double value) {
    std::array<char, 64> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                       std::chars_format::fixed, 1);
    return FromAscii({digits.data(), static_cast<std::size_t>(written.ptr - digits.data())});
}

std::int64_t AudioEnd(const FileTags& tags) {
    return tags.FileSize - (tags.V1.Present() ? TrailerSize : 0);
}

// A tag that was saved in place declares ten bytes more than it has: its last ten are audio.
std::int64_t AudioBegin(const FileTags& tags) {
    return std::max<std::int64_t>(0, tags.V2Length - static_cast<std::int64_t>(ID3v2HeaderSize));
}

Bytes BytesAt(const File& file, std::int64_t offset, std::size_t count) {
    Bytes bytes;
    if (!file.ReadAt(offset, count, bytes).Ok()) bytes.clear();
    return bytes;
}

ReadBytes BytesOf(const File& file) {
    return [&file](std::int64_t offset, std::size_t count) { return BytesAt(file, offset, count); };
}

void DescribeHeader(const MpegHeader& header, StreamLines& lines) {
    const MpegTexts texts = header.Texts();
    lines.Version = FromAscii(texts.Version);
    lines.Layer = FromAscii(texts.Layer);
    lines.Bitrate = FromAscii(texts.Bitrate);
    lines.Frequency = FromAscii(texts.Frequency);
    lines.Copyright = FromAscii(texts.Copyright);
    lines.Original = FromAscii(texts.Original);
    lines.Protection = FromAscii(texts.Protection);
    lines.Emphasis = FromAscii(texts.Emphasis);
    lines.Header = u"Header:" + FromAscii(texts.Bits);
}

}  // namespace

HeaderSearch::HeaderSearch(ReadBytes read, std::int64_t begin, std::int64_t end)
    : candidates_(read, end),
      followers_(std::move(read), end),
      begin_(begin),
      end_(std::max(begin, end)),
      at_(begin) {}

BytesView HeaderSearch::Window::At(std::int64_t offset, std::size_t least) {
    if (offset >= end_) return {};
    const bool held = offset >= start_ && offset + static_cast<std::int64_t>(least) <=
                                              start_ + static_cast<std::int64_t>(block_.size());
    if (!held) {
        const auto count = std::min(static_cast<std::int64_t>(BlockSize), end_ - offset);
        block_ = read_(offset, static_cast<std::size_t>(count));
        start_ = offset;
    }
    return BytesView(block_).substr(static_cast<std::size_t>(offset - start_));
}

bool HeaderSearch::Step() {
    if (!over_) over_ = !LookThroughPiece();
    return !over_;
}

bool HeaderSearch::LookThroughPiece() {
    const std::int64_t pieceEnd = at_ + PieceSize;
    for (int looks = 0; looks < LooksPerPiece; ++looks) {
        at_ = NextSyncByte(pieceEnd);
        if (at_ + HeaderSize > end_) return false;
        if (at_ >= pieceEnd) break;
        const BytesView bytes = candidates_.At(at_, MpegHeaderSize);
        if (bytes.size() < MpegHeaderSize || Accepts(bytes)) return false;
        ++at_;
    }
    return true;
}

bool HeaderSearch::Accepts(BytesView bytes) {
    const MpegHeader header(bytes);
    if (!header.HasSync()) return false;
    const bool followed = IsFollowed(header);
    if (followed || !found_) found_ = FoundHeader{header, at_, followed};
    return followed;
}

// The next byte that a header can begin with, `to` when there is none before it, or the end when
// the bytes cannot be read.
std::int64_t HeaderSearch::NextSyncByte(std::int64_t to) {
    std::int64_t at = at_;
    while (at < std::min(to, end_)) {
        const BytesView bytes = candidates_.At(at, 1);
        if (bytes.empty()) return end_;
        const std::size_t found = bytes.find(FirstSyncByte);
        if (found != BytesView::npos) return at + static_cast<std::int64_t>(found);
        at += static_cast<std::int64_t>(bytes.size());
    }
    return std::min(at, end_);
}

bool HeaderSearch::IsFollowed(const MpegHeader& header) {
    if (!header.IsKnown()) return false;
    const std::int64_t next = at_ + header.Distance();
    if (next + HeaderSize > end_) return true;
    const BytesView bytes = followers_.At(next, MpegHeaderSize);
    return bytes.size() >= MpegHeaderSize && MpegHeader(bytes).IsKnown();
}

std::optional<MpegHeader> FindHeader(const ReadBytes& read, std::int64_t begin, std::int64_t end) {
    HeaderSearch search(read, begin, end);
    while (search.Step()) {
    }
    return search.Found() ? std::optional(search.Found()->Header) : std::nullopt;
}

double PlayingTime(const FileTags& tags, int frameLength) {
    constexpr std::int64_t trailerShare = 138;
    constexpr double framesPerSecond = 38.4;
    const std::int64_t audio =
        tags.FileSize - tags.V2Length - (tags.V1.Present() ? trailerShare : 0);
    if (frameLength <= 0 || audio <= 0) return 0;
    return static_cast<double>(audio) / frameLength / framesPerSecond;
}

StreamLines DescribeStream(const FileTags& tags, const std::optional<MpegHeader>& header) {
    StreamLines lines;
    if (!tags.Exists) return lines;
    if (tags.V1.Present()) lines.ID3v1 = tags.V1HasTrackByte ? u"ID3v1: 1.1" : u"ID3v1: 1.0";
    if (tags.V2.Present()) lines.ID3v2 = u"ID3v2: " + FromAscii(tags.V2.Version);
    lines.Size = u"Size: " + NumberText(static_cast<long long>(tags.FileSize)) + u"b";
    if (!header) return lines;
    DescribeHeader(*header, lines);
    const double seconds = PlayingTime(tags, header->FrameLength());
    if (seconds > 0) lines.Length = u"Length: " + WithOneDecimal(seconds) + u" s";
    return lines;
}

HeaderSearch SearchStream(std::shared_ptr<const File> file, const FileTags& tags) {
    const auto read = [file = std::move(file)](std::int64_t offset, std::size_t count) {
        return BytesAt(*file, offset, count);
    };
    return {read, AudioBegin(tags), AudioEnd(tags)};
}

std::int64_t FindFirstFrame(const File& file, const FileTags& tags) {
    if (!tags.V2.Present()) return 0;
    HeaderSearch search(BytesOf(file), AudioBegin(tags), AudioEnd(tags));
    while (search.Done() < FirstFrameWithin && search.Step()) {
    }
    const std::optional<FoundHeader>& found = search.Found();
    return search.Over() && found && found->Followed ? found->At : 0;
}

StreamLines ReadStream(const File& file, const FileTags& tags) {
    return DescribeStream(tags, FindHeader(BytesOf(file), AudioBegin(tags), AudioEnd(tags)));
}

}  // namespace mdlPLM
