// One open file: bytes at offsets. The handle is closed when the object goes.
#pragma once

#include <cstdint>

#include "core/platform/errors.h"

namespace mdlPLM {

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
    /// Length in bytes at the moment of opening.
    [[nodiscard]] std::int64_t Size() const { return size_; }

    /// Reads up to `count` bytes at `offset` (0-based) into `out` (resized to what was read; a file
    /// that ends earlier gives fewer bytes and no error). A negative offset is BadRecordNumber.
    Status ReadAt(std::int64_t offset, std::size_t count, Bytes& out) const;
    /// The same into `buffer`, which holds `count` bytes; `got` is what was read.
    Status ReadAt(std::int64_t offset, std::size_t count, char* buffer, std::size_t& got) const;

    /// Writes all of `bytes` at `offset`; a short write is an error (DiskFull when it is that).
    Status WriteAt(std::int64_t offset, BytesView bytes);

    /// Cuts the file to `size` bytes or lengthens it with NULs; Size() stays that of opening.
    Status SetSize(std::int64_t size);

    /// Waits until what was written is on the disk. Failures are reported, not swallowed.
    Status Flush();

    /// Closes and reports what the system says only then (a full network drive).
    Status Close();

private:
    friend Status DeleteAndWrite(TextView path, const File& old, BytesView contents);
    static constexpr int Closed = -1;
    int handle_ = Closed;
    std::int64_t size_ = 0;
};

}  // namespace mdlPLM
