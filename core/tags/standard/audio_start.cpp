#include "core/tags/standard/audio_start.h"

#include <algorithm>

#include "core/tags/mpeg_header.h"

namespace mdlPLM::standard {

namespace {

constexpr std::int64_t BlockSize = 16384;
constexpr auto HeaderSize = static_cast<std::int64_t>(MpegHeaderSize);
constexpr std::int64_t MostSearched = std::int64_t{16} << 20;

bool IsKnownHeader(const ReadBytes& read, std::int64_t at) {
    const Bytes bytes = read(at, MpegHeaderSize);
    return bytes.size() >= MpegHeaderSize && MpegHeader(bytes).IsKnown();
}

}  // namespace

bool IsFirstFrame(const ReadBytes& read, std::int64_t at, std::int64_t end) {
    if (at + HeaderSize > end) return false;
    const MpegHeader header(read(at, MpegHeaderSize));
    if (!header.IsKnown()) return false;
    const std::int64_t next = at + header.Distance();
    return next + HeaderSize > end || IsKnownHeader(read, next);
}

std::optional<std::int64_t> FindFirstFrame(const ReadBytes& read, std::int64_t begin,
                                           std::int64_t end) {
    HeaderSearch search(read, begin, end);
    while (search.Done() < MostSearched && search.Step()) {
    }
    const std::optional<FoundHeader>& found = search.Found();
    if (!found || !found->Followed) return std::nullopt;
    return found->At;
}

std::int64_t FirstNonNul(const ReadBytes& read, std::int64_t begin, std::int64_t end) {
    for (std::int64_t at = begin; at < end; at += BlockSize) {
        const Bytes block = read(at, static_cast<std::size_t>(std::min(BlockSize, end - at)));
        const std::size_t found = block.find_first_not_of('\0');
        if (found != Bytes::npos) return at + static_cast<std::int64_t>(found);
        if (block.empty()) break;
    }
    return std::max(begin, end);
}

}  // namespace mdlPLM::standard
