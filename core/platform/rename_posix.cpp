// Renaming that never replaces: "look, then rename" would lose a file that appears between the two.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <initializer_list>
#include <memory>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/platform/posix.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace posix {

namespace {

int CodeOf(int result) { return result == 0 ? 0 : errno; }

// The codes by which a file system or kernel says that it does not know this way of doing it.
bool IsRefusal(int code) {
    return code == EINVAL || code == ENOSYS || code == EOPNOTSUPP || code == EPERM ||
           code == EMLINK;
}

bool IsEmptyAndNamed(const Handle& claim, const Bytes& path) {
    struct stat a {};
    struct stat b {};
    return ::fstat(claim.Get(), &a) == 0 && ::lstat(path.c_str(), &b) == 0 &&
           a.st_dev == b.st_dev && a.st_ino == b.st_ino && b.st_size == 0;
}

int RenameInOneStep(const Bytes& from, const Bytes& to) {
    int code = 0;
    for (const auto way : {RenameByFlag, RenameByLink, RenameByClaim}) {
        code = way(from, to);
        if (!IsRefusal(code)) break;
    }
    return code;
}

BytesView NameOf(BytesView path) { return path.substr(path.rfind('/') + 1); }

// One folder can be written in many ways.
bool IsSameFolder(const Bytes& a, const Bytes& b) {
    struct stat first {};
    struct stat second {};
    return a == b || (::stat(a.empty() ? "." : a.c_str(), &first) == 0 &&
                      ::stat(b.empty() ? "." : b.c_str(), &second) == 0 &&
                      first.st_dev == second.st_dev && first.st_ino == second.st_ino);
}

bool DifferInLetterCaseOnly(const Bytes& a, const Bytes& b) {
    return EqualIgnoringCase(PathFromNative(NameOf(a)), PathFromNative(NameOf(b))) &&
           IsSameFolder(FolderOfNative(a), FolderOfNative(b));
}

// True when the folder has an entry of exactly this spelling.
bool IsSpeltSo(const Bytes& path) {
    const Bytes folder = FolderOfNative(path);
    const std::unique_ptr<DIR, int (*)(DIR*)> open(OpenFolder(folder.empty() ? "." : folder),
                                                   ::closedir);
    if (!open) return true;
    while (const dirent* item = ::readdir(open.get()))
        if (NameOf(path) == BytesView(item->d_name)) return true;
    return false;
}

enum class Twins { Strangers, OneEntry, TwoLinks };

// What stands under the target name: the source itself by another spelling, a second link to it, or
// another file. Some file systems give each spelling an inode number of its own: the listing tells.
Twins RelationOf(const Bytes& from, const Bytes& to) {
    struct stat a {};
    struct stat b {};
    if (::lstat(from.c_str(), &a) != 0 || ::lstat(to.c_str(), &b) != 0) return Twins::Strangers;
    const bool same = a.st_dev == b.st_dev && a.st_ino == b.st_ino;
    if (same && a.st_nlink == 1) return Twins::OneEntry;
    if (!DifferInLetterCaseOnly(from, to)) return Twins::Strangers;
    if (!IsSpeltSo(to)) return Twins::OneEntry;
    return same ? Twins::TwoLinks : Twins::Strangers;
}

// Where a plain rename between two spellings does nothing, a name in between brings it about.
Status Respell(const Bytes& from, const Bytes& to) {
    const Bytes between = NameInBetween(from);
    if (const int code = RenameInOneStep(from, between)) return ErrorFromSystem(code);
    const int code = RenameInOneStep(between, to);
    if (code != 0) (void)RenameInOneStep(between, from);
    return ErrorFromSystem(code);
}

Status TargetExists(const Bytes& from, const Bytes& to) {
    switch (RelationOf(from, to)) {
        case Twins::OneEntry:
            return NameOf(from) == NameOf(to) ? Status() : Respell(from, to);
        case Twins::TwoLinks:
            return {};
        case Twins::Strangers:
            break;
    }
    struct stat target {};
    const bool folder = ::lstat(to.c_str(), &target) == 0 && S_ISDIR(target.st_mode);
    return folder ? ErrorNumber::PathFileAccess : ErrorNumber::FileAlreadyExists;
}

}  // namespace

int RenameByFlag(const Bytes& from, const Bytes& to) {
#if defined(__linux__) && defined(SYS_renameat2)
    constexpr unsigned NoReplace = 1;  // RENAME_NOREPLACE of linux/fs.h
    return CodeOf(static_cast<int>(
        ::syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), NoReplace)));
#else
    (void)from;
    (void)to;
    return ENOSYS;
#endif
}

int RenameByLink(const Bytes& from, const Bytes& to) {
    if (::linkat(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), 0) != 0) return errno;
    const int code = CodeOf(::unlink(from.c_str()));
    if (code != 0) ::unlink(to.c_str());
    return code;
}

int RenameByClaim(const Bytes& from, const Bytes& to) {
    const Handle claim = OpenHandle(to, O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (!claim.IsOpen()) return errno;
    const int code = CodeOf(::rename(from.c_str(), to.c_str()));
    if (code != 0 && IsEmptyAndNamed(claim, to)) ::unlink(to.c_str());
    return code;
}

Status RenameError(const Bytes& from, const Bytes& to, int code) {
    if (code != ENOENT) return ErrorFromSystem(code);
    struct stat data {};
    if (::lstat(from.c_str(), &data) != 0) return ErrorNumber::FileNotFound;
    const Bytes folder = FolderOfNative(to);
    const bool there = folder.empty() || ::stat(folder.c_str(), &data) == 0;
    return there ? ErrorNumber::BadFileName : ErrorNumber::PathNotFound;
}

Status RenameNoReplace(const Bytes& from, const Bytes& to) {
    const int code = RenameInOneStep(from, to);
    return code == EEXIST ? TargetExists(from, to) : RenameError(from, to, code);
}

Status RenameReplace(const Bytes& from, const Bytes& to) {
    return RenameError(from, to, CodeOf(::rename(from.c_str(), to.c_str())));
}

}  // namespace posix

Status SystemDisk::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    const Bytes source = posix::SystemPath(from);
    const Bytes target = posix::SystemPath(to);
    if (ifExists == IfTargetExists::Fail) return posix::RenameNoReplace(source, target);
    if (posix::DifferInLetterCaseOnly(source, target)) {
        const Status respelt = posix::RenameNoReplace(source, target);
        if (respelt.Number() != ErrorNumber::FileAlreadyExists) return respelt;
    }
    return posix::RenameReplace(source, target);
}

}  // namespace mdlPLM
