// Read-only is the write permission; hidden and archive are kept where file servers keep them.
#include <sys/stat.h>

#include <array>

#ifdef __linux__
#include <sys/xattr.h>
#endif

#include "core/platform/disk.h"
#include "core/platform/dos_attributes.h"
#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

constexpr const char* AttributeName = "user.DOSATTRIB";
constexpr int WithoutMode = Hidden | Archive;
constexpr mode_t AnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t Permissions = 07777;

#ifdef __linux__
Bytes Contents(std::array<char, 256>& buffer, ssize_t length) {
    return length > 0 ? Bytes(buffer.data(), static_cast<std::size_t>(length)) : Bytes();
}

Bytes ReadStored(const Bytes& path) {
    std::array<char, 256> buffer{};
    return Contents(buffer, ::getxattr(path.c_str(), AttributeName, buffer.data(), buffer.size()));
}

void WriteStored(const Bytes& path, const Bytes& contents) {
    (void)::setxattr(path.c_str(), AttributeName, contents.data(), contents.size(), 0);
}
#else
Bytes ReadStored(const Bytes& /*path*/) { return {}; }
void WriteStored(const Bytes& /*path*/, const Bytes& /*contents*/) {}
#endif

// What is to be stored; empty when it is stored already.
Bytes NewContents(const Bytes& path, int attributes) {
    const Bytes stored = ReadStored(path);
    const std::uint32_t old = ParseDosAttributes(stored).value_or(0);
    const std::uint32_t wanted = (old & ~static_cast<std::uint32_t>(WithoutMode | ReadOnly)) |
                                 static_cast<std::uint32_t>(attributes);
    return wanted == old ? Bytes() : RenderDosAttributes(stored, wanted);
}

Status SetMode(const Bytes& path, mode_t& mode, mode_t wanted) {
    if (mode != wanted && ::chmod(path.c_str(), wanted) != 0) return posix::LastError();
    mode = wanted;
    return {};
}

mode_t WithReadOnly(mode_t mode, bool readOnly) {
    return readOnly ? mode & ~AnyWrite : mode | S_IWUSR;
}

}  // namespace

int GetAttributes(TextView path) {
    const Bytes native = posix::SystemPath(path);
    struct stat data {};
    if (::stat(native.c_str(), &data) != 0) return 0;
    const auto stored = static_cast<int>(ParseDosAttributes(ReadStored(native)).value_or(0));
    const int readOnly = (data.st_mode & S_IWUSR) == 0 ? ReadOnly : 0;
    const int directory = S_ISDIR(data.st_mode) ? Directory : 0;
    return readOnly | directory | (stored & WithoutMode);
}

Status SystemDisk::SetAttributes(TextView path, int attributes) {
    const Bytes native = posix::SystemPath(path);
    struct stat data {};
    if (::stat(native.c_str(), &data) != 0) return posix::LastError();
    mode_t mode = data.st_mode & Permissions;
    const mode_t wanted = WithReadOnly(mode, (attributes & ReadOnly) != 0);
    const Bytes contents = NewContents(native, attributes & (WithoutMode | ReadOnly));
    if (!contents.empty()) {
        // The extended attribute can be set only while there is the write permission.
        if (const Status opened = SetMode(native, mode, mode | S_IWUSR); !opened.Ok())
            return opened;
        // A file system that takes none has no hidden and archived files: no failure.
        WriteStored(native, contents);
    }
    return SetMode(native, mode, wanted);
}

}  // namespace mdlPLM
