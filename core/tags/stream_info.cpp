#include "core/tags/stream_info.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mdlPLM {

namespace {

constexpr std::size_t BlockSize = std::size_t{16} << 10;
constexpr auto HeaderSize = static_cast<std::int64_t>(MpegHeaderSize);
constexpr auto TrailerSize = static_cast<std::int64_t>(ID3v1Size);
constexpr char FirstSyncByte = '\xFF';

// The file's bytes through one block at a time.
class Window {
public:
    Window(const ReadBytes& read, std::int64_t end) : read_(read), end_(end) {}

    // From `offset` up to the end of a block, at least `least` bytes where the audio has them.
    BytesView At(std::int64_t offset, std::size_t least) {
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

private:
    const ReadBytes& read_;
    std::int64_t end_;
    std::int64_t start_ = 0;
    Bytes block_;
};

struct FoundHeader {
    MpegHeader Header;
    std::int64_t At = 0;
    bool Followed = false;  // by another one at its distance, or by the end
};

class HeaderSearch {
public:
    HeaderSearch(const ReadBytes& read, std::int64_t begin, std::int64_t end)
        : candidates_(read, end), followers_(read, end), begin_(begin), end_(end) {}

    std::optional<FoundHeader> Run() {
        std::optional<FoundHeader> first;
        for (std::int64_t at = NextSyncByte(begin_); at + HeaderSize <= end_;
             at = NextSyncByte(at + 1)) {
            const BytesView bytes = candidates_.At(at, MpegHeaderSize);
            if (bytes.size() < MpegHeaderSize) break;
            const MpegHeader header(bytes);
            if (!header.HasSync()) continue;
            if (IsFollowed(header, at)) return FoundHeader{header, at, true};
            if (!first) first = FoundHeader{header, at, false};
        }
        return first;
    }

private:
    std::int64_t NextSyncByte(std::int64_t at) {
        while (at < end_) {
            const BytesView bytes = candidates_.At(at, 1);
            if (bytes.empty()) break;
            const std::size_t found = bytes.find(FirstSyncByte);
            if (found != BytesView::npos) return at + static_cast<std::int64_t>(found);
            at += static_cast<std::int64_t>(bytes.size());
        }
        return end_;
    }

    bool IsFollowed(const MpegHeader& header, std::int64_t at) {
        if (!header.IsKnown()) return false;
        const std::int64_t next = at + header.Distance();
        if (next + HeaderSize > end_) return true;
        const BytesView bytes = followers_.At(next, MpegHeaderSize);
        return bytes.size() >= MpegHeaderSize && MpegHeader(bytes).IsKnown();
    }

    Window candidates_;
    Window followers_;  // its own block, so that a look ahead never moves the other back and forth
    std::int64_t begin_;
    std::int64_t end_;
};

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

ReadBytes BytesOf(const File& file) {
    return [&file](std::int64_t offset, std::size_t count) {
        Bytes bytes;
        if (!file.ReadAt(offset, count, bytes).Ok()) bytes.clear();
        return bytes;
    };
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

std::optional<MpegHeader> FindHeader(const ReadBytes& read, std::int64_t begin, std::int64_t end) {
    const auto found = HeaderSearch(read, begin, end).Run();
    return found ? std::optional(found->Header) : std::nullopt;
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

std::optional<MpegHeader> FindStreamHeader(const File& file, const FileTags& tags) {
    return FindHeader(BytesOf(file), AudioBegin(tags), AudioEnd(tags));
}

std::int64_t FindFirstFrame(const File& file, const FileTags& tags) {
    if (!tags.V2.Present()) return 0;
    const auto found = HeaderSearch(BytesOf(file), AudioBegin(tags), AudioEnd(tags)).Run();
    return found && found->Followed ? found->At : 0;
}

StreamLines ReadStream(const File& file, const FileTags& tags) {
    return DescribeStream(tags, FindStreamHeader(file, tags));
}

}  // namespace mdlPLM
