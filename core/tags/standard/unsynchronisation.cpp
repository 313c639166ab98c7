#include "core/tags/standard/unsynchronisation.h"

#include <algorithm>

namespace mdlPLM::standard {

namespace {

constexpr char SyncByte = '\xFF';
constexpr unsigned char SecondSyncByte = 0xE0;

}  // namespace

bool CanBeUnsynchronised(BytesView bytes) {
    for (std::size_t at = bytes.find(SyncByte); at != BytesView::npos && at + 1 < bytes.size();
         at = bytes.find(SyncByte, at + 1))
        if (static_cast<unsigned char>(bytes[at + 1]) >= SecondSyncByte) return false;
    return true;
}

Bytes Resynchronised(BytesView bytes) {
    Bytes result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find(SyncByte), bytes.size() - 1) + 1;
        result.append(bytes.substr(0, end));
        bytes.remove_prefix(end);
        const bool sync = result.back() == SyncByte;
        if (sync && !bytes.empty() && bytes.front() == '\0') bytes.remove_prefix(1);
    }
    return result;
}

}  // namespace mdlPLM::standard
