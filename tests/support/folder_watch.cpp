#include "tests/support/folder_watch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>

#include "core/platform/path.h"

namespace mdlPLM::test {

namespace {

struct Kind {
    std::uint32_t Mask;
    const char* Word;
};

constexpr std::array Kinds{
    Kind{IN_CREATE, "created "},      Kind{IN_DELETE, "deleted "},
    Kind{IN_CLOSE_WRITE, "written "}, Kind{IN_MOVED_FROM, "renamed away "},
    Kind{IN_MOVED_TO, "renamed to "},
};

constexpr std::uint32_t Watched =
    IN_CREATE | IN_DELETE | IN_CLOSE_WRITE | IN_MOVED_FROM | IN_MOVED_TO;

Bytes WordFor(std::uint32_t mask) {
    for (const Kind& kind : Kinds)
        if ((mask & kind.Mask) != 0) return kind.Word;
    return "? ";
}

}  // namespace

FolderWatch::FolderWatch(TextView folder) : handle_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (::inotify_add_watch(handle_, NativePath(folder).c_str(), Watched) < 0)
        throw std::runtime_error("the folder cannot be watched");
}

FolderWatch::~FolderWatch() { ::close(handle_); }

std::vector<Bytes> FolderWatch::Seen() const {
    std::vector<Bytes> seen;
    std::array<char, 65536> buffer{};
    const ssize_t size = ::read(handle_, buffer.data(), buffer.size());
    for (ssize_t at = 0; at < size;) {
        inotify_event event{};
        std::memcpy(&event, buffer.data() + at, sizeof event);
        const char* const name = buffer.data() + at + sizeof event;
        seen.push_back(WordFor(event.mask) + (event.len == 0 ? "" : name));
        at += static_cast<ssize_t>(sizeof event + event.len);
    }
    return seen;
}

}  // namespace mdlPLM::test
