// One open file: bytes at offsets. The handle is closed when the object goes.
#pragma once

#include <cstdint>

#include "core/platform/errors.h"

namespace mdlPLM {

/// What identifies a file or folder, whatever name it is reached by.
struct FileIdentity {
    std::uint64_t Device = 0;
    std::uint64_t Node = 0;
    friend bool operator==(const FileIdentity& a, const FileIdentity& b) {
        return a.Device == b.Device && a.Node == b.Node;
    }
};

/// What a file was like when it was looked at: whatever changes it changes this.
struct FileState {
    FileIdentity Identity;
    std::int64_t Size = 0;        ///< bytes
    std::int64_t ChangeTime = 0;  ///< nanoseconds since 1970, of the last change of anything
    std::int64_t WriteTime = 0;   ///< the same, of its contents
};

class File {
public:
    enum class Mode {
        Read,       ///< an existing file, for reading
        ReadWrite,  ///< an existing file, for reading and writing; never created, never cut
        CreateNew,  ///< a new file, for writing; fails with FileAlreadyExists when there is one
    };

    File() = default;
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File();

    /// Opens `path`. A folder is refused with PathFileAccess.
    Status Open(TextView path, Mode mode);
    [[nodiscard]] bool IsOpen() const { return handle_ != Closed; }
    /// Length in bytes when it was last looked at, as a rule at the moment of opening.
    [[nodiscard]] std::int64_t Size() const { return state_.Size; }
    [[nodiscard]] const FileIdentity& Identity() const { return state_.Identity; }

    /// Asks other programs not to write to the file until it is closed. FileAlreadyOpen when one of
    /// them has asked first. Only programs that ask as well are kept away, and a file system that
    /// knows no locks keeps nobody away: no failure. For a file that is open for writing.
    Status Lock();
    /// True when another program has asked so.
    [[nodiscard]] bool IsLockedByAnother() const;

    /// Looks at the file once more, after changes of our own.
    Status LookAgain();
    /// The same after a rename of our own: a change of the contents that was not ours still shows.
    void LookAgainAfterRename();
    /// `unchanged`: nothing of the file has been changed since it was last looked at: neither its
    /// bytes nor its name.
    Status Compare(bool& unchanged) const;
    /// The same, and `path`, links followed, leads to it. A path that leads nowhere any more is no
    /// error.
    Status CompareAt(TextView path, bool& unchanged) const;

    /// Reads up to `count` bytes at `offset` (0-based) into `out` (resized to what was read; a file
    /// that ends earlier gives fewer bytes and no error). A negative offset is BadRecordNumber.
    Status ReadAt(std::int64_t offset, std::size_t count, Bytes& out) const;
    /// The same into `buffer`, which holds `count` bytes; `got` is what was read.
    Status ReadAt(std::int64_t offset, std::size_t count, char* buffer, std::size_t& got) const;

    /// Writes all of `bytes` at `offset`; a short write is an error (DiskFull when it is that).
    Status WriteAt(std::int64_t offset, BytesView bytes);

    /// Cuts the file to `size` bytes or lengthens it with NULs; Size() stays as it was looked at.
    Status SetSize(std::int64_t size);

    /// Waits until what was written is on the disk. Failures are reported, not swallowed.
    Status Flush();

    /// Closes and reports what the system says only then (a full network drive).
    Status Close();

private:
    friend class Rewrite;
    static constexpr int Closed = -1;
    int handle_ = Closed;
    FileState state_;
};

}  // namespace mdlPLM
