// The search for the first audio header in any file agrees with a plain search over the whole.
#include <algorithm>

#include "core/tags/stream_info.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

MpegHeader HeaderAt(BytesView bytes, std::size_t at) { return MpegHeader(bytes.substr(at, 4)); }

bool IsFollowed(BytesView bytes, std::size_t at) {
    const MpegHeader header = HeaderAt(bytes, at);
    if (!header.IsKnown()) return false;
    const std::size_t next = at + static_cast<std::size_t>(header.Distance());
    return next + 4 > bytes.size() || HeaderAt(bytes, next).IsKnown();
}

Bytes PlainSearch(BytesView bytes) {
    Bytes first = "none";
    for (std::size_t at = 0; at + 4 <= bytes.size(); ++at) {
        if (!HeaderAt(bytes, at).HasSync()) continue;
        if (IsFollowed(bytes, at)) return HeaderAt(bytes, at).Texts().Bits;
        if (first == "none") first = HeaderAt(bytes, at).Texts().Bits;
    }
    return first;
}

Bytes BitsOf(const std::optional<MpegHeader>& found) {
    return found ? found->Texts().Bits : "none";
}

std::optional<MpegHeader> InSteps(HeaderSearch search) {
    while (search.Step()) {
    }
    return search.Found() ? std::optional(search.Found()->Header) : std::nullopt;
}

// The same search where the bytes lie across the end of a block that is read in one piece.
void CheckAcrossBlocks(BytesView bytes) {
    constexpr std::size_t block = 16384;
    const std::size_t before = block - std::min(block, bytes.size() / 2);
    const Bytes all = Bytes(before, '\0').append(bytes);
    const ReadBytes read = [&](std::int64_t offset, std::size_t count) {
        return all.substr(static_cast<std::size_t>(offset), count);
    };
    RequireEqual(BitsOf(FindHeader(read, 0, static_cast<std::int64_t>(all.size()))),
                 PlainSearch(bytes), "another header across blocks");
}

// The audio lies from the tag's last ten bytes to the trailer.
BytesView AudioOf(BytesView file, const FileTags& tags) {
    const auto size = static_cast<std::int64_t>(file.size());
    const std::int64_t end = size - (tags.V1.Present() ? 128 : 0);
    const std::int64_t begin = std::clamp<std::int64_t>(tags.V2Length - 10, 0, size);
    if (begin >= end) return {};
    return file.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
}

}  // namespace

void FuzzStream(BytesView input) {
    const ReadBytes read = [&](std::int64_t offset, std::size_t count) {
        return Bytes(input.substr(static_cast<std::size_t>(offset), count));
    };
    const auto size = static_cast<std::int64_t>(input.size());
    RequireEqual(BitsOf(FindHeader(read, 0, size)), PlainSearch(input), "another header");

    CheckAcrossBlocks(input);

    const ScratchFile scratch(input);
    const auto file = std::make_shared<File>();
    Require(file->Open(scratch.Path(), File::Mode::Read).Ok(), "a file cannot be opened");
    SilentErrors silent;
    const FileTags tags = ReadFileTags(*file, scratch.Path(), ID3v2Parts::NameFields, silent);
    RequireEqual(BitsOf(InSteps(SearchStream(file, tags))), PlainSearch(AudioOf(input, tags)),
                 "another header in a file");
    const StreamLines lines = ReadStream(*file, tags);
    const StreamLines again = ReadStream(*file, tags);
    RequireEqual(lines.Header, again.Header, "a second look differs");
    RequireEqual(lines.Length, again.Length, "a second length differs");
    RequireEqual(lines.Size, u"Size: " + NumberText(static_cast<long long>(size)) + u"b",
                 "another size");
}

}  // namespace mdlPLM::fuzz
