#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "core/platform/disk.h"
#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

constexpr std::size_t PieceSize = std::size_t{1} << 20;
constexpr mode_t KeptMode = 0777;

class PosixCopy final : public PiecewiseCopy {
public:
    PosixCopy(posix::Handle source, Bytes target, IfTargetExists ifExists)
        : source_(std::move(source)),
          target_(std::move(target)),
          ifExists_(ifExists),
          waits_(ifExists == IfTargetExists::Replace) {}
    ~PosixCopy() override { Abandon(); }
    PosixCopy(const PosixCopy&) = delete;
    PosixCopy& operator=(const PosixCopy&) = delete;

    Status Begin();
    void WaitForDisk() override { waits_ = true; }
    Status Step(bool& done) override;
    [[nodiscard]] std::int64_t Copied() const override { return copied_; }
    [[nodiscard]] std::int64_t Total() const override { return sourceData_.st_size; }

private:
    [[nodiscard]] Status CheckTarget() const;
    Status Finish();
    void KeepMetadata() const;
    Status TakeTargetName() const;
    void Abandon();

    posix::Handle source_;
    Bytes target_;
    IfTargetExists ifExists_;
    struct stat sourceData_ {};
    posix::Handle temporary_;
    Bytes temporaryPath_;  // empty: there is none (any more)
    std::int64_t copied_ = 0;
    posix::RangeCopier copier_;
    bool waits_ = false;
    bool done_ = false;
    Status failure_;
};

// What can be known beforehand is said before anything is copied.
Status PosixCopy::CheckTarget() const {
    if (target_.empty()) return ErrorNumber::BadFileName;
    struct stat existing {};
    if (::lstat(target_.c_str(), &existing) != 0)
        return errno == ENOENT ? Status() : posix::LastError();
    if (S_ISDIR(existing.st_mode)) return ErrorNumber::PathFileAccess;
    return ifExists_ == IfTargetExists::Fail ? ErrorNumber::FileAlreadyExists : ErrorNumber::None;
}

Status PosixCopy::Begin() {
    if (::fstat(source_.Get(), &sourceData_) != 0) return posix::LastError();
    if (!S_ISREG(sourceData_.st_mode)) return ErrorNumber::PathFileAccess;
    if (const Status possible = CheckTarget(); !possible.Ok()) return possible;
    return posix::CreateTemporaryBeside(target_, 0600, temporaryPath_, temporary_);
}

Status PosixCopy::Step(bool& done) {
    done = done_;
    if (done_ || !failure_.Ok()) return failure_;
    std::size_t got = 0;
    const posix::Range piece{copied_, copied_, PieceSize, Total() - copied_};
    failure_ = copier_.Copy(source_.Get(), temporary_.Get(), piece, got);
    copied_ += static_cast<std::int64_t>(got);
    if (failure_.Ok() && got < PieceSize) failure_ = Finish();
    if (!failure_.Ok()) Abandon();
    done = done_;
    return failure_;
}

Status PosixCopy::Finish() {
    if (copied_ < Total()) return ErrorNumber::InputPastEnd;
    KeepMetadata();
    if (waits_)
        if (const Status flushed = posix::Flush(temporary_.Get()); !flushed.Ok()) return flushed;
    if (const Status closed = temporary_.Close(); !closed.Ok()) return closed;
    if (const Status taken = TakeTargetName(); !taken.Ok()) return taken;
    temporaryPath_.clear();
    done_ = true;
    return {};
}

// A file system without attributes, modes or such times keeps what it can: no failure. The mode
// goes last, it may take the permission away that the attributes need to be set.
void PosixCopy::KeepMetadata() const {
    posix::CopyExtendedAttributes(source_.Get(), temporary_.Get());
    (void)::fchmod(temporary_.Get(), sourceData_.st_mode & KeptMode);
    const std::array<timespec, 2> times = {sourceData_.st_atim, sourceData_.st_mtim};
    (void)::futimens(temporary_.Get(), times.data());
}

Status PosixCopy::TakeTargetName() const {
    return ifExists_ == IfTargetExists::Fail ? posix::RenameNoReplace(temporaryPath_, target_)
                                             : posix::RenameReplace(temporaryPath_, target_);
}

void PosixCopy::Abandon() {
    (void)temporary_.Close();
    if (!temporaryPath_.empty()) ::unlink(temporaryPath_.c_str());
    temporaryPath_.clear();
}

}  // namespace

Status SystemDisk::BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                             std::unique_ptr<PiecewiseCopy>& copy) {
    posix::Handle source = posix::OpenHandle(posix::SystemPath(from), O_RDONLY);
    if (!source.IsOpen()) return posix::LastError();
    auto begun = std::make_unique<PosixCopy>(std::move(source), posix::SystemPath(to), ifExists);
    const Status status = begun->Begin();
    if (status.Ok()) copy = std::move(begun);
    return status;
}

}  // namespace mdlPLM
