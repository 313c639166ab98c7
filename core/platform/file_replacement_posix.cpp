#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "core/platform/file_replacement.h"
#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

constexpr mode_t Permissions = 07777;
constexpr std::int64_t LargestPiece = std::int64_t{1} << 30;

bool IsSameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

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

// What the system refuses to a plain user (another owner) is left as it is.
void KeepOwner(const struct stat& old, int to) {
    struct stat now {};
    if (::fstat(to, &now) != 0) return;
    if (old.st_gid != now.st_gid) (void)!::fchown(to, static_cast<uid_t>(-1), old.st_gid);
    if (old.st_uid != now.st_uid) (void)!::fchown(to, old.st_uid, static_cast<gid_t>(-1));
}

}  // namespace

struct FileReplacement::Implementation {
    int Old = -1;
    struct stat OldData {};
    Bytes Target;  // links followed
    Bytes Temporary;
    posix::Handle New;
    posix::RangeCopier Copier;
    std::int64_t Written = 0;

    Implementation() = default;
    Implementation(const Implementation&) = delete;
    Implementation& operator=(const Implementation&) = delete;
    ~Implementation() {
        (void)New.Close();
        if (!Temporary.empty()) ::unlink(Temporary.c_str());
    }

    void KeepMetadata() const {
        KeepOwner(OldData, New.Get());
        CopyExtendedAttributes(Old, New.Get());
        (void)::fchmod(New.Get(), OldData.st_mode & Permissions);
    }

    [[nodiscard]] bool TargetIsStillOld() const {
        struct stat now {};
        return ::lstat(Target.c_str(), &now) == 0 && IsSameFile(now, OldData);
    }
};

FileReplacement::FileReplacement() : impl_(std::make_unique<Implementation>()) {}
FileReplacement::~FileReplacement() = default;

Status FileReplacement::Begin(TextView path, const File& old) {
    impl_->Old = old.handle_;
    if (::fstat(old.handle_, &impl_->OldData) != 0) return posix::LastError();
    impl_->Target = posix::SystemPath(path);
    if (const Status led = posix::FollowLinks(impl_->Target); !led.Ok()) return led;
    return posix::CreateTemporaryBeside(impl_->Target, 0600, impl_->Temporary, impl_->New);
}

Status FileReplacement::Append(BytesView bytes) {
    const Status status = posix::WriteFully(impl_->New.Get(), impl_->Written, bytes);
    impl_->Written += static_cast<std::int64_t>(bytes.size());
    return status;
}

Status FileReplacement::AppendOld(std::int64_t offset, std::int64_t count) {
    for (std::int64_t done = 0; done < count;) {
        const auto piece = static_cast<std::size_t>(std::min(count - done, LargestPiece));
        std::size_t got = 0;
        const Status status =
            impl_->Copier.Copy(impl_->Old, impl_->New.Get(),
                               {offset + done, impl_->Written, piece, count - done}, got);
        if (!status.Ok()) return status;
        if (got < piece) return ErrorNumber::InputPastEnd;
        impl_->Written += static_cast<std::int64_t>(got);
        done += static_cast<std::int64_t>(got);
    }
    return {};
}

Status FileReplacement::Commit() {
    impl_->KeepMetadata();
    if (const Status closed = impl_->New.Close(); !closed.Ok()) return closed;
    if (!impl_->TargetIsStillOld()) return ErrorNumber::PathFileAccess;
    if (::rename(impl_->Temporary.c_str(), impl_->Target.c_str()) != 0) return posix::LastError();
    impl_->Temporary.clear();
    return {};
}

}  // namespace mdlPLM
