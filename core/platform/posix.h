// What the POSIX sources of this room share. Not for other rooms.
#pragma once

#include <dirent.h>
#include <sys/stat.h>

#include <cstdint>

#include "core/platform/errors.h"

namespace mdlPLM::posix {

/// Path bytes for a system call. A path that holds a NUL names no file: it becomes the empty path,
/// which every call answers with "no such file", instead of naming the file before the NUL.
Bytes SystemPath(TextView path);

/// The error of the system call that has just failed.
Status LastError();

/// The same where the call makes a name in a folder: a missing one is then the folder.
Status LastErrorOfNewName();

/// A file descriptor that closes itself.
class Handle {
public:
    Handle() = default;
    explicit Handle(int descriptor) : descriptor_(descriptor) {}
    Handle(Handle&& other) noexcept;
    Handle& operator=(Handle&& other) noexcept;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle();
    [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int Get() const { return descriptor_; }
    Status Close();
    /// Hands the descriptor over: it is not closed here any more.
    int Release();

private:
    int descriptor_ = -1;
};

/// open(2), begun again when a signal interrupts it; the descriptor is not handed to child
/// processes, and a FIFO does not hold the caller up.
Handle OpenHandle(const Bytes& path, int flags, unsigned mode = 0);

/// opendir(3), begun again when a signal interrupts it; null when the folder cannot be opened.
DIR* OpenFolder(const Bytes& path);

/// Reads up to `count` bytes at `offset`; fewer only at the end of the file.
Status ReadFully(int descriptor, std::int64_t offset, char* buffer, std::size_t count,
                 std::size_t& got);

/// Writes all bytes at `offset`, or at the descriptor's own position when `offset` is negative.
Status WriteFully(int descriptor, std::int64_t offset, BytesView bytes);

/// Waits until what was written is on the disk.
Status Flush(int descriptor);

/// A piece of one file that becomes a piece of another.
struct Range {
    std::int64_t From = 0;
    std::int64_t To = 0;
    std::size_t Count = 0;
    std::int64_t Expected = 0;  ///< bytes that the source is known to hold from `From` on
};

/// Copies ranges inside the kernel where the pair of file systems takes it, else by a buffer.
class RangeCopier {
public:
    /// `got` is less than the count only where the source ends.
    Status Copy(int source, int target, const Range& range, std::size_t& got);

private:
    Status CopyByBuffer(int source, int target, const Range& range, std::size_t& got);

    bool byBuffer_ = false;
    Bytes buffer_;
};

/// Leads `path` to the file that a chain of symbolic links ends in, whether it exists or not.
Status FollowLinks(Bytes& path);

/// A new, empty file under a name of its own in the folder of `target`. The name is short, so that
/// it fits where the target's name does. It is locked for as long as the descriptor is open, where
/// the file system knows locks: that tells it from what a killed run has left behind.
Status CreateTemporaryBeside(const Bytes& target, unsigned mode, Bytes& path, Handle& handle);

/// A name of that kind that nothing in the folder of `target` has.
Bytes TemporaryNameBeside(const Bytes& target);

/// A name beside `from` that the file itself bears for a moment, while it is renamed. It is not of
/// the form of a temporary file: what a killed run leaves under it is the user's own file.
Bytes NameInBetween(const Bytes& from);

/// True for a name (without its folder) of the form that temporary files have.
bool IsTemporaryName(BytesView name);

/// Who keeps others from writing to a file, as far as it is known.
enum class LockHolder {
    Nobody,
    Another,  ///< another open file, of this process or of another one
    Unknown,  ///< the system or the file system knows no such locks
};
/// Asks for the lock of the whole file, however long it becomes, and does not wait for it. Nobody:
/// it is the open file's own now, until that is closed; another descriptor of the same file in
/// this program meets it as well.
LockHolder TakeLock(int descriptor);
/// Who holds that lock, the open file itself left out.
LockHolder HolderOfLock(int descriptor);

/// The folder of a path with its trailing separator, "" when there is none.
Bytes FolderOfNative(const Bytes& path);

/// Takes `from` to the name `to` in one step that never replaces anything. See rename_posix.cpp.
Status RenameNoReplace(const Bytes& from, const Bytes& to);

/// Takes `from` to the name `to` in one step; a file of that name is replaced.
Status RenameReplace(const Bytes& from, const Bytes& to);

/// The error of a rename that ended in `code`: what is missing may be the file or the folder, and a
/// name that the file system does not take is missing on some.
Status RenameError(const Bytes& from, const Bytes& to, int code);

/// The ways of never replacing, tried in this order; each leaves both names as they were when it
/// fails. They give the system's code, 0 for success.
int RenameByFlag(const Bytes& from, const Bytes& to);
int RenameByLink(const Bytes& from, const Bytes& to);
int RenameByClaim(const Bytes& from, const Bytes& to);

/// Gives the file open as `to` the `user.*` attributes and the POSIX access control list of the one
/// open as `from`, as far as its file system takes them: no failure.
void CopyExtendedAttributes(int from, int to);

/// Makes the file open as `to` the successor of the one open as `from`, which has `old`: owner and
/// group as far as the system lets them be set, CopyExtendedAttributes, and last the mode. The
/// times are left to the caller.
void CopyMetadata(const struct stat& old, int from, int to);

}  // namespace mdlPLM::posix
