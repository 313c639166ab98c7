#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>

#ifdef __linux__
#include <sys/xattr.h>
#endif

#include "core/platform/delete_and_write.h"
#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

constexpr mode_t Permissions = 07777;
constexpr std::uint64_t BlockSize = 512;  // the unit of st_blocks

bool IsSameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

#ifdef __linux__
// The attributes that belong to the user's view of the file; others are the system's business.
bool IsKept(BytesView attribute) {
    return attribute.substr(0, 5) == "user." || attribute == "system.posix_acl_access";
}

void CopyAttribute(int from, int to, const char* name) {
    const ssize_t size = ::fgetxattr(from, name, nullptr, 0);
    if (size < 0) return;
    Bytes value(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::fgetxattr(from, name, value.data(), value.size());
    if (got >= 0) (void)::fsetxattr(to, name, value.data(), static_cast<std::size_t>(got), 0);
}

void CopyExtendedAttributes(int from, int to) {
    const ssize_t size = ::flistxattr(from, nullptr, 0);
    if (size <= 0) return;
    Bytes names(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::flistxattr(from, names.data(), names.size());
    names.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1)
        if (IsKept(names.c_str() + at)) CopyAttribute(from, to, names.c_str() + at);
}
#else
void CopyExtendedAttributes(int /*from*/, int /*to*/) {}
#endif

// What the system refuses to a plain user (another owner) is left as it is.
void KeepOwner(const struct stat& old, int to) {
    struct stat now {};
    if (::fstat(to, &now) != 0) return;
    if (old.st_gid != now.st_gid) (void)!::fchown(to, static_cast<uid_t>(-1), old.st_gid);
    if (old.st_uid != now.st_uid) (void)!::fchown(to, old.st_uid, static_cast<gid_t>(-1));
}

void KeepMetadata(const struct stat& old, int from, int to) {
    KeepOwner(old, to);
    CopyExtendedAttributes(from, to);
    (void)::fchmod(to, old.st_mode & Permissions);
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
    KeepMetadata(data, old.handle_, made.Get());
    const Status written = posix::WriteFully(made.Get(), 0, contents);
    return written.Ok() ? made.Close() : written;
}

}  // namespace mdlPLM
