// The search for the first audio header in any bytes agrees with a plain search over the whole.
#include <cstdio>
#include <cstdlib>

#include "core/tags/stream_info.h"

namespace {

using namespace mdlPLM;

void Require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const BytesView bytes(reinterpret_cast<const char*>(data), size);
    const ReadBytes read = [&](std::int64_t offset, std::size_t count) {
        return Bytes(bytes.substr(static_cast<std::size_t>(offset), count));
    };
    const auto found = FindHeader(read, 0, static_cast<std::int64_t>(size));
    Require((found ? found->Texts().Bits : "none") == PlainSearch(bytes), "another header");
    FileTags tags;
    tags.Exists = true;
    tags.FileSize = static_cast<std::int64_t>(size);
    (void)DescribeStream(tags, found);
    return 0;
}
