// What a file has beside its contents and its name, handed on to the file that takes its place.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#ifdef __linux__
#include <sys/xattr.h>
#endif

#include "core/platform/posix.h"

namespace mdlPLM::posix {

namespace {

constexpr mode_t Permissions = 07777;

#ifdef __linux__
constexpr const char* AccessList = "system.posix_acl_access";

// Others are the system's business.
bool IsTheUsers(BytesView attribute) { return attribute.substr(0, 5) == "user."; }

void CopyAttribute(int from, int to, const char* name) {
    const ssize_t size = ::fgetxattr(from, name, nullptr, 0);
    if (size < 0) return;
    Bytes value(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::fgetxattr(from, name, value.data(), value.size());
    if (got >= 0) (void)::fsetxattr(to, name, value.data(), static_cast<std::size_t>(got), 0);
}

bool HasAccessList(int file) { return ::fgetxattr(file, AccessList, nullptr, 0) >= 0; }

// A folder may give every new file a list, but this one is new by its number only.
void DropAccessListOfFolder(int from, int to) {
    if (HasAccessList(to) && !HasAccessList(from)) (void)::fremovexattr(to, AccessList);
}
#else
void DropAccessListOfFolder(int /*from*/, int /*to*/) {}
#endif

// What the system refuses to a plain user (another owner) is left as it is.
void KeepOwner(const struct stat& old, int to) {
    struct stat now {};
    if (::fstat(to, &now) != 0) return;
    if (old.st_gid != now.st_gid) (void)!::fchown(to, static_cast<uid_t>(-1), old.st_gid);
    if (old.st_uid != now.st_uid) (void)!::fchown(to, old.st_uid, static_cast<gid_t>(-1));
}

}  // namespace

void CopyExtendedAttributes(int from, int to) {
#ifdef __linux__
    const ssize_t size = ::flistxattr(from, nullptr, 0);
    if (size <= 0) return;
    Bytes names(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::flistxattr(from, names.data(), names.size());
    names.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1)
        if (IsTheUsers(names.c_str() + at)) CopyAttribute(from, to, names.c_str() + at);
    // The list may take the permission away that the others need to be set.
    CopyAttribute(from, to, AccessList);
#else
    (void)from;
    (void)to;
#endif
}

void CopyMetadata(const struct stat& old, int from, int to) {
    KeepOwner(old, to);
    DropAccessListOfFolder(from, to);
    CopyExtendedAttributes(from, to);
    (void)::fchmod(to, old.st_mode & Permissions);
}

}  // namespace mdlPLM::posix
