#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "core/platform/posix.h"

namespace mdlPLM::posix {

namespace {

constexpr std::int64_t SmallestBuffer = std::int64_t{1} << 14;
constexpr std::int64_t LargestBuffer = std::int64_t{1} << 20;

// As large as what is there, or small files would be copied slower than their buffer is made. A
// file that grows meanwhile is read in more pieces.
std::size_t BufferFor(const Range& range) {
    const auto most = static_cast<std::int64_t>(range.Count);
    return static_cast<std::size_t>(
        std::min(most, std::clamp(range.Expected, SmallestBuffer, LargestBuffer)));
}

#ifdef __linux__
// The codes by which a pair of file systems says that bytes cannot be copied inside the kernel.
bool IsRefusal(int code) {
    return code == EXDEV || code == EINVAL || code == ENOSYS || code == EOPNOTSUPP ||
           code == EBADF || code == EPERM;
}

Status CopyInKernel(int source, int target, const Range& range, std::size_t& got, bool& refused) {
    while (got < range.Count) {
        off_t from = range.From + static_cast<off_t>(got);
        off_t to = range.To + static_cast<off_t>(got);
        const ssize_t n = ::copy_file_range(source, &from, target, &to, range.Count - got, 0);
        // Some virtual file systems answer 0 before the end; the buffer finds out.
        refused = got == 0 && (n == 0 ? range.Expected > 0 : n < 0 && IsRefusal(errno));
        if (n == 0 || refused) return {};
        if (n > 0) {
            got += static_cast<std::size_t>(n);
        } else if (errno != EINTR) {
            return LastError();
        }
    }
    return {};
}
#endif

}  // namespace

Status RangeCopier::Copy(int source, int target, const Range& range, std::size_t& got) {
    got = 0;
#ifdef __linux__
    if (!byBuffer_) {
        const Status status = CopyInKernel(source, target, range, got, byBuffer_);
        if (!byBuffer_) return status;
    }
#endif
    return CopyByBuffer(source, target, range, got);
}

Status RangeCopier::CopyByBuffer(int source, int target, const Range& range, std::size_t& got) {
    if (buffer_.empty()) buffer_.resize(BufferFor(range));
    while (got < range.Count) {
        std::size_t read = 0;
        const std::size_t most = std::min(range.Count - got, buffer_.size());
        const auto done = static_cast<std::int64_t>(got);
        Status status = ReadFully(source, range.From + done, buffer_.data(), most, read);
        if (status.Ok())
            status = WriteFully(target, range.To + done, BytesView(buffer_).substr(0, read));
        if (!status.Ok() || read == 0) return status;
        got += read;
    }
    return {};
}

}  // namespace mdlPLM::posix
