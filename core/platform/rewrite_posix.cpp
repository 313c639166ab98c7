#include "core/platform/rewrite.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

constexpr std::int64_t PieceSize = std::int64_t{4} << 20;

std::int64_t LengthOf(BytesView bytes) { return static_cast<std::int64_t>(bytes.size()); }

// Said before anything is written: a write beyond the limit would end the program.
Status CheckLimit(std::int64_t size) {
    rlimit limit{};
    const bool over = ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY &&
                      static_cast<rlim_t>(size) > limit.rlim_cur;
    return over ? ErrorNumber::DiskFull : ErrorNumber::None;
}

// In a folder where everybody may write a file gives way only to its owner and the folder's.
bool MayBeReplaced(const struct stat& folder, const struct stat& file) {
    const uid_t user = ::geteuid();
    return (folder.st_mode & S_ISVTX) == 0 || user == 0 || user == folder.st_uid ||
           user == file.st_uid;
}

// The disk writes in the background what will have to be waited for.
void StartFlushing(int descriptor) {
#ifdef SYNC_FILE_RANGE_WRITE
    (void)::sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
#else
    (void)descriptor;
#endif
}

class PosixRewrite final : public Rewrite {
public:
    PosixRewrite(Bytes target, const File& old, const NewContents& contents)
        : target_(std::move(target)), old_(HandleOf(old)), contents_(contents) {}
    ~PosixRewrite() override {
        (void)temporary_.Close();
        if (!temporaryPath_.empty()) ::unlink(temporaryPath_.c_str());
    }
    PosixRewrite(const PosixRewrite&) = delete;
    PosixRewrite& operator=(const PosixRewrite&) = delete;

    Status Create();
    Status Step(bool& written) override;
    Status Flush() override;
    Status TakeName() override;

private:
    Status CarryPiece();
    Status Complete();

    Bytes target_;
    int old_;
    NewContents contents_;
    posix::Handle temporary_;
    Bytes temporaryPath_;  // empty: there is none (any more)
    std::int64_t carried_ = 0;
    posix::RangeCopier copier_;
};

Status PosixRewrite::Create() {
    const Status made = posix::CreateTemporaryBeside(target_, 0600, temporaryPath_, temporary_);
    if (!made.Ok()) temporaryPath_.clear();
    return made.Ok() ? posix::WriteFully(temporary_.Get(), 0, contents_.Head) : made;
}

Status PosixRewrite::Step(bool& written) {
    if (carried_ < contents_.CarriedLength)
        if (const Status carried = CarryPiece(); !carried.Ok()) return carried;
    written = carried_ == contents_.CarriedLength;
    return written ? Complete() : Status();
}

Status PosixRewrite::CarryPiece() {
    const std::int64_t rest = contents_.CarriedLength - carried_;
    const auto count = static_cast<std::size_t>(std::min(rest, PieceSize));
    const std::int64_t to = LengthOf(contents_.Head) + carried_;
    std::size_t got = 0;
    const Status copied = copier_.Copy(old_, temporary_.Get(),
                                       {contents_.CarriedFrom + carried_, to, count, rest}, got);
    carried_ += static_cast<std::int64_t>(got);
    return copied.Ok() && got < count ? Status(ErrorNumber::InputPastEnd) : copied;
}

Status PosixRewrite::Complete() {
    const std::int64_t end = LengthOf(contents_.Head) + contents_.CarriedLength;
    const Status written = posix::WriteFully(temporary_.Get(), end, contents_.Tail);
    if (!written.Ok()) return written;
    struct stat data {};
    if (::fstat(old_, &data) != 0) return posix::LastError();
    posix::CopyMetadata(data, old_, temporary_.Get());
    StartFlushing(temporary_.Get());
    return {};
}

Status PosixRewrite::Flush() {
    const Status flushed = posix::Flush(temporary_.Get());
    return flushed.Ok() ? temporary_.Close() : flushed;
}

Status PosixRewrite::TakeName() {
    const Status taken = posix::RenameReplace(temporaryPath_, target_);
    if (taken.Ok()) temporaryPath_.clear();
    return taken;
}

}  // namespace

std::int64_t NewContents::Size() const { return LengthOf(Head) + CarriedLength + LengthOf(Tail); }

Status Rewrite::Begin(TextView path, const File& old, const NewContents& contents,
                      std::unique_ptr<Rewrite>& begun) {
    Bytes target = posix::SystemPath(path);
    if (const Status led = posix::FollowLinks(target); !led.Ok()) return led;
    if (const Status small = CheckLimit(contents.Size()); !small.Ok()) return small;
    auto made = std::make_unique<PosixRewrite>(std::move(target), old, contents);
    const Status status = made->Create();
    if (status.Ok()) begun = std::move(made);
    return status;
}

Status Rewrite::Check(TextView path, const File& old, std::int64_t newSize) {
    Bytes target = posix::SystemPath(path);
    if (const Status led = posix::FollowLinks(target); !led.Ok()) return led;
    if (const Status small = CheckLimit(newSize); !small.Ok()) return small;
    const Bytes folder = posix::FolderOfNative(target).append(".");
    struct stat around {};
    struct stat data {};
    if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0 ||
        ::stat(folder.c_str(), &around) != 0 || ::fstat(HandleOf(old), &data) != 0)
        return posix::LastError();
    return MayBeReplaced(around, data) ? ErrorNumber::None : ErrorNumber::PermissionDenied;
}

}  // namespace mdlPLM
