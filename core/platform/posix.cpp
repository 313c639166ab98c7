#include "core/platform/posix.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <ctime>
#include <utility>

#include "core/platform/path.h"

namespace mdlPLM::posix {

namespace {

constexpr int MostLinks = 40;  // as many as the system itself follows
constexpr BytesView HexDigits = "0123456789abcdef";
constexpr BytesView TemporaryStart = "plm-";
constexpr BytesView TemporaryEnd = ".tmp";
constexpr std::size_t TemporaryDigits = 16;
constexpr std::size_t LongestEnding = 8;  // of a file name, its dot included

#ifdef F_OFD_SETLK
struct flock WholeFile() {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}
#endif

}  // namespace

Bytes SystemPath(TextView path) {
    if (path.find(u'\0') != TextView::npos) return {};
    return NativePath(path);
}

Status LastError() { return ErrorFromSystem(errno); }

Status LastErrorOfNewName() {
    return errno == ENOENT ? ErrorNumber::PathNotFound : ErrorFromSystem(errno);
}

Handle::Handle(Handle&& other) noexcept : descriptor_(other.Release()) {}

Handle& Handle::operator=(Handle&& other) noexcept {
    if (this != &other) {
        (void)Close();
        descriptor_ = other.Release();
    }
    return *this;
}

Handle::~Handle() { (void)Close(); }

Status Handle::Close() {
    if (!IsOpen()) return {};
    const int closed = ::close(descriptor_);
    descriptor_ = -1;
    // The descriptor is gone even when close is interrupted.
    return closed == 0 || errno == EINTR ? Status() : LastError();
}

int Handle::Release() { return std::exchange(descriptor_, -1); }

Handle OpenHandle(const Bytes& path, int flags, unsigned mode) {
    for (;;) {
        const int descriptor =
            ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
        if (descriptor >= 0 || errno != EINTR) return Handle(descriptor);
    }
}

DIR* OpenFolder(const Bytes& path) {
    for (;;) {
        DIR* const folder = ::opendir(path.c_str());
        if (folder != nullptr || errno != EINTR) return folder;
    }
}

Status ReadFully(int descriptor, std::int64_t offset, char* buffer, std::size_t count,
                 std::size_t& got) {
    got = 0;
    while (got < count) {
        const ssize_t n = ::pread(descriptor, buffer + got, count - got,
                                  static_cast<off_t>(offset) + static_cast<off_t>(got));
        if (n == 0) break;
        if (n > 0) {
            got += static_cast<std::size_t>(n);
        } else if (errno != EINTR) {
            return LastError();
        }
    }
    return {};
}

Status WriteFully(int descriptor, std::int64_t offset, BytesView bytes) {
    while (!bytes.empty()) {
        const ssize_t n = offset < 0 ? ::write(descriptor, bytes.data(), bytes.size())
                                     : ::pwrite(descriptor, bytes.data(), bytes.size(), offset);
        if (n == 0) return ErrorNumber::DiskFull;
        if (n > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(n));
            if (offset >= 0) offset += n;
        } else if (errno != EINTR) {
            return LastError();
        }
    }
    return {};
}

// EINVAL is said by what knows no waiting: no failure.
Status Flush(int descriptor) {
    int result = 0;
    do {
        result = ::fsync(descriptor);
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL ? Status() : LastError();
}

Bytes FolderOfNative(const Bytes& path) {
    const std::size_t last = path.rfind('/');
    return last == Bytes::npos ? Bytes() : path.substr(0, last + 1);
}

Status FollowLinks(Bytes& path) {
    for (int i = 0; i < MostLinks; ++i) {
        std::array<char, PATH_MAX> buffer{};
        const ssize_t length = ::readlink(path.c_str(), buffer.data(), buffer.size());
        // No link, or nothing at all: whoever opens the path finds out.
        if (length <= 0) return {};
        const Bytes next(buffer.data(), static_cast<std::size_t>(length));
        path = next.front() == '/' ? next : FolderOfNative(path).append(next);
    }
    return ErrorFromSystem(ELOOP);
}

// No leading dot: what a killed run leaves behind is to be seen and found.
Bytes TemporaryNameBeside(const Bytes& target) {
    // Straight from the system: a batch makes thousands of names. Where it has no numbers to give,
    // the name is taken by another file at worst, and the next one is tried.
    std::array<unsigned, 2> numbers{};
    if (::getentropy(numbers.data(), sizeof numbers) != 0)
        numbers = {static_cast<unsigned>(::getpid()), static_cast<unsigned>(::clock())};
    Bytes name = FolderOfNative(target).append(TemporaryStart);
    for (const unsigned number : numbers)
        for (int shift = 28; shift >= 0; shift -= 4) name += HexDigits[number >> shift & 0xFU];
    return name.append(TemporaryEnd);
}

// It keeps its ending, so that a song that was left under it can be found and played.
Bytes NameInBetween(const Bytes& from) {
    Bytes name = TemporaryNameBeside(from);
    name.resize(name.size() - TemporaryEnd.size());
    name.append(".renaming");
    const std::size_t dot = from.rfind('.');
    const bool inName = dot != Bytes::npos && dot >= FolderOfNative(from).size();
    if (inName && from.size() - dot <= LongestEnding) name.append(from, dot);
    return name;
}

bool IsTemporaryName(BytesView name) {
    if (name.size() != TemporaryStart.size() + TemporaryDigits + TemporaryEnd.size()) return false;
    const BytesView digits = name.substr(TemporaryStart.size(), TemporaryDigits);
    return name.substr(0, TemporaryStart.size()) == TemporaryStart &&
           name.substr(name.size() - TemporaryEnd.size()) == TemporaryEnd &&
           digits.find_first_not_of(HexDigits) == BytesView::npos;
}

// The lock belongs to the open file, not to the process: another descriptor of the process that is
// closed does not give it back.
LockHolder TakeLock(int descriptor) {
#ifdef F_OFD_SETLK
    struct flock lock = WholeFile();
    if (::fcntl(descriptor, F_OFD_SETLK, &lock) == 0) return LockHolder::Nobody;
    if (errno == EAGAIN || errno == EACCES) return LockHolder::Another;
#else
    (void)descriptor;
#endif
    return LockHolder::Unknown;
}

LockHolder HolderOfLock(int descriptor) {
#ifdef F_OFD_SETLK
    struct flock lock = WholeFile();
    if (::fcntl(descriptor, F_OFD_GETLK, &lock) == 0)
        return lock.l_type == F_UNLCK ? LockHolder::Nobody : LockHolder::Another;
#else
    (void)descriptor;
#endif
    return LockHolder::Unknown;
}

Status CreateTemporaryBeside(const Bytes& target, unsigned mode, Bytes& path, Handle& handle) {
    do {
        path = TemporaryNameBeside(target);
        handle = OpenHandle(path, O_RDWR | O_CREAT | O_EXCL, mode);
    } while (!handle.IsOpen() && errno == EEXIST);
    if (!handle.IsOpen()) return LastErrorOfNewName();
    (void)TakeLock(handle.Get());
    return {};
}

}  // namespace mdlPLM::posix
