#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <memory>

#include "core/platform/left_overs.h"
#include "core/platform/path.h"
#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

constexpr std::int64_t OldEnough = 3600;  // seconds

std::int64_t SystemTime() {
    timespec now{};
    (void)::clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec;
}

// The time of change counts too: a copy has its source's time of modification before it has its
// name, and where locks are not known that time alone would give it away.
std::int64_t LastTouched(const struct stat& data) {
    return std::max<std::int64_t>(data.st_mtim.tv_sec, data.st_ctim.tv_sec);
}

// Looked at through a descriptor of its own, so that it is one and the same file throughout.
bool IsLeftOver(const Bytes& path, std::int64_t now) {
    const posix::Handle file = posix::OpenHandle(path, O_RDONLY | O_NOFOLLOW);
    struct stat data {};
    return file.IsOpen() && ::fstat(file.Get(), &data) == 0 && S_ISREG(data.st_mode) &&
           data.st_uid == ::geteuid() && now - LastTouched(data) >= OldEnough &&
           posix::HolderOfLock(file.Get()) == posix::LockHolder::Nobody;
}

// A folder that cannot be opened or read to its end is looked through as far as it goes.
std::vector<Bytes> TemporaryNamesIn(const Bytes& folder) {
    std::vector<Bytes> names;
    const auto close = [](DIR* open) { (void)::closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> open(
        ::opendir(folder.empty() ? "." : folder.c_str()), close);
    if (open == nullptr) return names;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the stream is nobody else's
    while (const dirent* const entry = ::readdir(open.get()))
        if (posix::IsTemporaryName(entry->d_name)) names.emplace_back(entry->d_name);
    return names;
}

}  // namespace

LeftOvers::LeftOvers() : LeftOvers(SystemTime) {}

void LeftOvers::LookIn(TextView folder) {
    const std::int64_t now = clock_();
    const auto looked = looked_.find(folder);
    if (looked != looked_.end() && now - looked->second < OldEnough) return;
    looked_.insert_or_assign(Text(folder), now);
    LookNow(folder, now);
}

void LeftOvers::LookNow(TextView folder, std::int64_t now) {
    const Bytes native = posix::SystemPath(folder);
    if (native.empty() && !folder.empty()) return;
    for (const Bytes& name : TemporaryNamesIn(native)) {
        const Text path =
            folder.empty() ? PathFromNative(name) : JoinPath(folder, PathFromNative(name));
        const Bytes file = posix::SystemPath(path);
        if (IsLeftOver(file, now) && ::unlink(file.c_str()) == 0) removed_.push_back(path);
    }
}

void LeftOvers::LookBeside(TextView file) {
    Bytes native = posix::SystemPath(file);
    if (native.empty() || !posix::FollowLinks(native).Ok()) return;
    LookIn(PathFromNative(posix::FolderOfNative(native)));
}

}  // namespace mdlPLM
