#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <utility>

#include "core/platform/file.h"
#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

// A read of more than this is checked against the file's length before memory is taken for it: the
// count may come from a damaged file.
constexpr std::size_t LargeRead = std::size_t{1} << 20;

constexpr int OpenFlags[] = {O_RDONLY, O_RDWR, O_RDWR | O_CREAT | O_EXCL};

std::size_t CountWithinFile(int handle, std::int64_t offset, std::size_t count) {
    struct stat data {};
    if (::fstat(handle, &data) != 0 || !S_ISREG(data.st_mode)) return count;
    const std::int64_t rest = std::max<std::int64_t>(0, data.st_size - offset);
    return std::min(count, static_cast<std::size_t>(rest));
}

std::int64_t Nanoseconds(const timespec& time) {
    constexpr std::int64_t second = 1'000'000'000;
    return std::int64_t{time.tv_sec} * second + time.tv_nsec;
}

FileState StateOf(const struct stat& data) {
    return {{data.st_dev, data.st_ino},
            data.st_size,
            Nanoseconds(data.st_ctim),
            Nanoseconds(data.st_mtim)};
}

bool IsSameState(const FileState& a, const FileState& b) {
    return a.Identity == b.Identity && a.Size == b.Size && a.ChangeTime == b.ChangeTime;
}

bool HoldsBytes(mode_t mode) { return !S_ISDIR(mode) && !S_ISFIFO(mode) && !S_ISSOCK(mode); }

}  // namespace

File::File(File&& other) noexcept : handle_(other.handle_), state_(other.state_) {
    other.handle_ = Closed;
}

File& File::operator=(File&& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(state_, other.state_);
    return *this;
}

File::~File() { (void)Close(); }

Status File::Open(TextView path, Mode mode) {
    if (const Status closed = Close(); !closed.Ok()) return closed;
    const int flags = OpenFlags[static_cast<int>(mode)];
    posix::Handle handle = posix::OpenHandle(posix::SystemPath(path), flags, 0666);
    if (!handle.IsOpen())
        return mode == Mode::CreateNew ? posix::LastErrorOfNewName() : posix::LastError();
    struct stat data {};
    if (::fstat(handle.Get(), &data) != 0) return posix::LastError();
    if (!HoldsBytes(data.st_mode)) return ErrorNumber::PathFileAccess;
    handle_ = handle.Release();
    state_ = StateOf(data);
    return {};
}

Status File::Lock() {
    const bool taken = posix::TakeLock(handle_) != posix::LockHolder::Another;
    return taken ? ErrorNumber::None : ErrorNumber::FileAlreadyOpen;
}

bool File::IsLockedByAnother() const {
    return posix::HolderOfLock(handle_) == posix::LockHolder::Another;
}

Status File::LookAgain() {
    struct stat data {};
    if (::fstat(handle_, &data) != 0) return posix::LastError();
    state_ = StateOf(data);
    return {};
}

void File::LookAgainAfterRename() {
    const FileState before = state_;
    if (LookAgain().Ok() && state_.Size == before.Size && state_.WriteTime == before.WriteTime)
        return;
    state_ = before;
}

// What takes a file's name away, or gives the name to another file, changes its time of change.
Status File::Compare(bool& unchanged) const {
    struct stat data {};
    if (::fstat(handle_, &data) != 0) return posix::LastError();
    unchanged = data.st_nlink > 0 && IsSameState(StateOf(data), state_);
    return {};
}

Status File::CompareAt(TextView path, bool& unchanged) const {
    struct stat data {};
    const bool there = ::stat(posix::SystemPath(path).c_str(), &data) == 0;
    unchanged = there && IsSameState(StateOf(data), state_);
    return there || errno == ENOENT || errno == ENOTDIR ? Status() : posix::LastError();
}

Status File::ReadAt(std::int64_t offset, std::size_t count, Bytes& out) const {
    out.clear();
    if (offset < 0) return ErrorNumber::BadRecordNumber;
    if (count > LargeRead) count = CountWithinFile(handle_, offset, count);
    out.resize(count);
    std::size_t got = 0;
    const Status status = ReadAt(offset, count, out.data(), got);
    out.resize(got);
    return status;
}

Status File::ReadAt(std::int64_t offset, std::size_t count, char* buffer, std::size_t& got) const {
    got = 0;
    if (offset < 0) return ErrorNumber::BadRecordNumber;
    return posix::ReadFully(handle_, offset, buffer, count, got);
}

Status File::WriteAt(std::int64_t offset, BytesView bytes) {
    if (offset < 0) return ErrorNumber::BadRecordNumber;
    return posix::WriteFully(handle_, offset, bytes);
}

Status File::SetSize(std::int64_t size) {
    if (size < 0) return ErrorNumber::BadRecordNumber;
    int result = 0;
    do {
        result = ::ftruncate(handle_, size);
    } while (result != 0 && errno == EINTR);
    return result == 0 ? Status() : posix::LastError();
}

Status File::Flush() { return posix::Flush(handle_); }

Status File::Close() {
    if (!IsOpen()) return {};
    posix::Handle closing(std::exchange(handle_, Closed));
    return closing.Close();
}

}  // namespace mdlPLM
