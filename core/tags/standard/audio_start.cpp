#include "core/tags/standard/audio_start.h"

#include <algorithm>

#include "core/tags/mpeg_header.h"

namespace mdlPLM::standard {

namespace {

constexpr std::int64_t BlockSize = 16384;
constexpr auto HeaderSize = static_cast<std::int64_t>(MpegHeaderSize);
constexpr char FirstSyncByte = '\xFF';

bool IsKnownHeader(const ReadBytes& read, std::int64_t at) {
    const Bytes bytes = read(at, MpegHeaderSize);
    return bytes.size() >= MpegHeaderSize && MpegHeader(bytes).IsKnown();
}

bool IsFollowed(const ReadBytes& read, const MpegHeader& header, std::int64_t at,
                std::int64_t end) {
    if (!header.IsKnown()) return false;
    const std::int64_t next = at + header.Distance();
    return next + HeaderSize > end || IsKnownHeader(read, next);
}

// Calls `find` with one block after the other and where it lies, until it gives a place. Blocks
// share the few bytes that a header may be cut in.
template <typename Find>
std::optional<std::int64_t> InBlocks(const ReadBytes& read, std::int64_t begin, std::int64_t end,
                                     const Find& find) {
    constexpr std::int64_t shared = HeaderSize - 1;
    for (std::int64_t at = begin; at < end; at += BlockSize - shared) {
        const Bytes block = read(at, static_cast<std::size_t>(std::min(BlockSize, end - at)));
        if (block.empty()) break;
        if (const std::optional<std::int64_t> found = find(block, at)) return found;
    }
    return std::nullopt;
}

}  // namespace

bool IsFirstFrame(const ReadBytes& read, std::int64_t at, std::int64_t end) {
    if (at + HeaderSize > end) return false;
    return IsFollowed(read, MpegHeader(read(at, MpegHeaderSize)), at, end);
}

std::optional<std::int64_t> FindFirstFrame(const ReadBytes& read, std::int64_t begin,
                                           std::int64_t end) {
    const auto inBlock = [&](BytesView block, std::int64_t at) -> std::optional<std::int64_t> {
        for (std::size_t i = block.find(FirstSyncByte); i != BytesView::npos;
             i = block.find(FirstSyncByte, i + 1)) {
            if (block.size() - i < MpegHeaderSize) break;
            const std::int64_t place = at + static_cast<std::int64_t>(i);
            if (IsFollowed(read, MpegHeader(block.substr(i)), place, end)) return place;
        }
        return std::nullopt;
    };
    return InBlocks(read, begin, end, inBlock);
}

std::int64_t FirstNonNul(const ReadBytes& read, std::int64_t begin, std::int64_t end) {
    const auto inBlock = [](BytesView block, std::int64_t at) -> std::optional<std::int64_t> {
        const std::size_t found = block.find_first_not_of('\0');
        if (found == BytesView::npos) return std::nullopt;
        return at + static_cast<std::int64_t>(found);
    };
    return InBlocks(read, begin, end, inBlock).value_or(std::max(begin, end));
}

}  // namespace mdlPLM::standard
