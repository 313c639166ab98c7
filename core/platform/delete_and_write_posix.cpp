#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "core/platform/delete_and_write.h"
#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

constexpr std::uint64_t BlockSize = 512;  // the unit of st_blocks

bool IsSameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool IsStill(const struct stat& old, const Bytes& path) {
    struct stat now {};
    return ::lstat(path.c_str(), &now) == 0 && IsSameFile(now, old);
}

// Deleting a file frees its room only when this is its last name.
std::uint64_t RoomFor(const struct stat& old, const struct statvfs& system) {
    const std::uint64_t blocks = ::geteuid() == 0 ? system.f_bfree : system.f_bavail;
    const std::uint64_t freed =
        old.st_nlink == 1 ? static_cast<std::uint64_t>(old.st_blocks) * BlockSize : 0;
    return blocks * system.f_frsize + freed;
}

// A file system that does not tell its size is taken to have room.
bool HasRoom(int descriptor, const struct stat& old, std::uint64_t size) {
    rlimit limit{};
    if (::getrlimit(RLIMIT_FSIZE, &limit) == 0 && size > limit.rlim_cur) return false;
    struct statvfs system {};
    if (::fstatvfs(descriptor, &system) != 0 || system.f_blocks == 0) return true;
    return size <= RoomFor(old, system);
}

}  // namespace

Status DeleteAndWrite(TextView path, const File& old, BytesView contents) {
    struct stat data {};
    if (::fstat(old.handle_, &data) != 0) return posix::LastError();
    Bytes target = posix::SystemPath(path);
    if (const Status led = posix::FollowLinks(target); !led.Ok()) return led;
    if (!IsStill(data, target)) return ErrorNumber::PathFileAccess;
    if (!HasRoom(old.handle_, data, contents.size())) return ErrorNumber::DiskFull;
    if (::unlink(target.c_str()) != 0) return posix::LastError();
    posix::Handle made = posix::OpenHandle(target, O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (!made.IsOpen()) return posix::LastError();
    posix::CopyMetadata(data, old.handle_, made.Get());
    const Status written = posix::WriteFully(made.Get(), 0, contents);
    return written.Ok() ? made.Close() : written;
}

}  // namespace mdlPLM
