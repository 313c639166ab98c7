#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <exception>
#include <limits>

#include "core/platform/disk.h"
#include "core/platform/file.h"
#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

constexpr std::size_t PieceSize = std::size_t{64} << 10;
constexpr mode_t Permissions = 07777;

// What a file holds is not what its length says: one of the system's own can have no end.
Status ReadToEnd(const File& file, std::size_t most, Bytes& contents) {
    std::size_t got = 0;
    do {
        const std::size_t length = contents.size();
        contents.resize(length + PieceSize);
        const Status status = file.ReadAt(static_cast<std::int64_t>(length), PieceSize,
                                          contents.data() + length, got);
        contents.resize(length + got);
        if (!status.Ok()) return status;
        if (contents.size() > most) return ErrorNumber::Overflow;
    } while (got == PieceSize);
    return {};
}

Status WriteInPlace(const Bytes& path, BytesView contents) {
    posix::Handle handle = posix::OpenHandle(path, O_WRONLY);
    if (!handle.IsOpen()) return posix::LastError();
    const Status written = posix::WriteFully(handle.Get(), -1, contents);
    return written.Ok() ? handle.Close() : written;
}

// What is to become the file: an existing one hands its mode and, where that may be done, its owner
// on to what replaces it.
Status CreateSuccessor(const Bytes& path, const struct stat* old, Bytes& temporary,
                       posix::Handle& handle) {
    const mode_t mode = old == nullptr ? 0666 : old->st_mode & Permissions;
    const Status created = posix::CreateTemporaryBeside(path, mode, temporary, handle);
    if (!created.Ok() || old == nullptr) return created;
    if (old->st_uid != ::geteuid() || old->st_gid != ::getegid())
        (void)!::fchown(handle.Get(), old->st_uid, old->st_gid);
    (void)::fchmod(handle.Get(), mode);
    return {};
}

Status Complete(posix::Handle& handle, BytesView contents) {
    const Status written = posix::WriteFully(handle.Get(), 0, contents);
    if (!written.Ok()) return written;
    // What is renamed over the old file must be on the disk before its name is.
    const Status flushed = posix::Flush(handle.Get());
    return flushed.Ok() ? handle.Close() : flushed;
}

Status ReplaceContents(const Bytes& path, const struct stat* old, BytesView contents) {
    Bytes temporary;
    posix::Handle handle;
    Status status = CreateSuccessor(path, old, temporary, handle);
    if (!status.Ok()) return status;
    status = Complete(handle, contents);
    if (status.Ok() && ::rename(temporary.c_str(), path.c_str()) != 0) status = posix::LastError();
    if (!status.Ok()) ::unlink(temporary.c_str());
    return status;
}

}  // namespace

Status ReadWholeFile(TextView path, Bytes& contents) {
    return ReadWholeFile(path, std::numeric_limits<std::size_t>::max(), contents);
}

Status ReadWholeFile(TextView path, std::size_t most, Bytes& contents) {
    contents.clear();
    File file;
    if (const Status opened = file.Open(path, File::Mode::Read); !opened.Ok()) return opened;
    const auto size = static_cast<std::size_t>(file.Size());
    if (size > most) return ErrorNumber::Overflow;
    try {
        contents.reserve(size + PieceSize);
        return ReadToEnd(file, most, contents);
    } catch (const std::exception&) {
        return ErrorNumber::OutOfMemory;
    }
}

Status WriteWholeFile(TextView path, BytesView contents) {
    Bytes native = posix::SystemPath(path);
    if (native.empty()) return ErrorNumber::BadFileName;
    if (const Status followed = posix::FollowLinks(native); !followed.Ok()) return followed;
    struct stat old {};
    if (::stat(native.c_str(), &old) != 0) return ReplaceContents(native, nullptr, contents);
    if (S_ISDIR(old.st_mode)) return ErrorNumber::PathFileAccess;
    // A device or a pipe is written to, never replaced; a write-protected file is to stay.
    if (!S_ISREG(old.st_mode)) return WriteInPlace(native, contents);
    if (::access(native.c_str(), W_OK) != 0) return posix::LastError();
    return ReplaceContents(native, &old, contents);
}

}  // namespace mdlPLM
