#include "tests/support/recording_disk.h"

#include <algorithm>
#include <iterator>

#include "core/platform/path.h"

namespace mdlPLM {

namespace {

bool IsQuestion(const DiskCall& call) {
    return call.Operation == DiskOperation::Exists || call.Operation == DiskOperation::IsFolder ||
           call.Operation == DiskOperation::IsSameFile;
}

Text WithoutSeparator(TextView path) {
    while (path.size() > 1 && IsSeparator(path.back())) path.remove_suffix(1);
    return Text(path);
}

}  // namespace

class RecordingDisk::Copy final : public PiecewiseCopy {
public:
    Copy(RecordingDisk& disk, DiskCall call, std::unique_ptr<PiecewiseCopy> inner)
        : disk_(disk), call_(std::move(call)), inner_(std::move(inner)) {
        call_.Operation = DiskOperation::CopyStep;
    }
    void WaitForDisk() override {
        DiskCall call = call_;
        call.Operation = DiskOperation::CopyWaits;
        disk_.calls_.push_back(std::move(call));
        inner_->WaitForDisk();
    }
    Status Step(bool& done) override {
        done = false;
        const Status noted = disk_.Note(call_);
        return noted.Ok() ? inner_->Step(done) : noted;
    }
    [[nodiscard]] std::int64_t Copied() const override { return inner_->Copied(); }
    [[nodiscard]] std::int64_t Total() const override { return inner_->Total(); }

private:
    RecordingDisk& disk_;
    DiskCall call_;
    std::unique_ptr<PiecewiseCopy> inner_;
};

RecordingDisk::RecordingDisk() : inner_(system_) {}
RecordingDisk::RecordingDisk(Disk& inner) : inner_(inner) {}
RecordingDisk::~RecordingDisk() = default;

void RecordingDisk::FailCall(DiskOperation operation, ErrorNumber error, std::size_t nth) {
    Inject = [operation, error, nth](const DiskCall& call, std::size_t) mutable -> Status {
        const bool now = call.Operation == operation && nth-- == 0;
        return now ? error : ErrorNumber::None;
    };
}

std::vector<DiskCall> RecordingDisk::Changes() const {
    std::vector<DiskCall> changes;
    std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(changes), [](const auto& call) {
        return !IsQuestion(call) && call.Operation != DiskOperation::CopyStep &&
               call.Operation != DiskOperation::CopyWaits && call.Operation != DiskOperation::Flush;
    });
    return changes;
}

std::size_t RecordingDisk::Count(DiskOperation operation) const {
    return static_cast<std::size_t>(
        std::count_if(calls_.begin(), calls_.end(),
                      [&](const DiskCall& call) { return call.Operation == operation; }));
}

Status RecordingDisk::Note(DiskCall call) {
    calls_.push_back(std::move(call));
    if (IsQuestion(calls_.back())) return {};
    const std::size_t index = fallible_++;
    return Inject ? Inject(calls_.back(), index) : Status();
}

bool RecordingDisk::Exists(TextView path) {
    (void)Note({DiskOperation::Exists, Text(path), {}});
    return inner_.Exists(path);
}

bool RecordingDisk::IsFolder(TextView path) {
    (void)Note({DiskOperation::IsFolder, Text(path), {}});
    return inner_.IsFolder(path);
}

bool RecordingDisk::IsSameFile(TextView a, TextView b) {
    (void)Note({DiskOperation::IsSameFile, Text(a), Text(b)});
    return inner_.IsSameFile(a, b);
}

Status RecordingDisk::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    const Status noted = Note({DiskOperation::Rename, Text(from), Text(to), ifExists});
    return noted.Ok() ? inner_.Rename(from, to, ifExists) : noted;
}

Status RecordingDisk::BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                                std::unique_ptr<PiecewiseCopy>& copy) {
    const DiskCall call = {DiskOperation::BeginCopy, Text(from), Text(to), ifExists};
    if (const Status noted = Note(call); !noted.Ok()) return noted;
    std::unique_ptr<PiecewiseCopy> inner;
    const Status begun = inner_.BeginCopy(from, to, ifExists, inner);
    if (begun.Ok()) copy = std::make_unique<Copy>(*this, call, std::move(inner));
    return begun;
}

Status RecordingDisk::CreateFolder(TextView path) {
    const Status noted = Note({DiskOperation::CreateFolder, Text(path), {}});
    return noted.Ok() ? inner_.CreateFolder(path) : noted;
}

Status RecordingDisk::DeleteFile(TextView path) {
    const Status noted = Note({DiskOperation::DeleteFile, Text(path), {}});
    return noted.Ok() ? inner_.DeleteFile(path) : noted;
}

Status RecordingDisk::Flush(TextView path) {
    const Status noted = Note({DiskOperation::Flush, Text(path), {}});
    return noted.Ok() ? inner_.Flush(path) : noted;
}

Status RecordingDisk::SetAttributes(TextView path, int attributes) {
    DiskCall call = {DiskOperation::SetAttributes, Text(path), {}};
    call.Attributes = attributes;
    const Status noted = Note(std::move(call));
    return noted.Ok() ? inner_.SetAttributes(path, attributes) : noted;
}

class MemoryDisk::Copy final : public PiecewiseCopy {
public:
    Copy(MemoryDisk& disk, Text from, Text to, IfTargetExists ifExists)
        : disk_(disk), from_(std::move(from)), to_(std::move(to)), ifExists_(ifExists) {}
    Status Step(bool& done) override {
        done = ++copied_ >= disk_.CopySteps;
        if (!done) return {};
        const Status status = disk_.CheckMove(from_, to_, ifExists_);
        done = status.Ok();
        if (done) disk_.Files.insert(to_);
        return status;
    }
    [[nodiscard]] std::int64_t Copied() const override { return copied_; }
    [[nodiscard]] std::int64_t Total() const override { return disk_.CopySteps; }

private:
    MemoryDisk& disk_;
    Text from_;
    Text to_;
    IfTargetExists ifExists_;
    std::int64_t copied_ = 0;
};

bool MemoryDisk::Exists(TextView path) { return Files.count(Text(path)) != 0 || IsFolder(path); }

bool MemoryDisk::IsFolder(TextView path) { return Folders.count(WithoutSeparator(path)) != 0; }

bool MemoryDisk::IsSameFile(TextView a, TextView b) { return a == b && Exists(a); }

Status MemoryDisk::CheckMove(TextView from, TextView to, IfTargetExists ifExists) {
    if (Files.count(Text(from)) == 0) return ErrorNumber::FileNotFound;
    if (IsFolder(to)) return ErrorNumber::PathFileAccess;
    if (!IsFolder(FolderOfPath(to))) return ErrorNumber::PathNotFound;
    const bool inTheWay = Files.count(Text(to)) != 0 && from != to;
    return inTheWay && ifExists == IfTargetExists::Fail ? ErrorNumber::FileAlreadyExists
                                                        : ErrorNumber::None;
}

Status MemoryDisk::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    const Status status = CheckMove(from, to, ifExists);
    if (!status.Ok()) return status;
    Files.erase(Text(from));
    Files.insert(Text(to));
    return {};
}

Status MemoryDisk::BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                             std::unique_ptr<PiecewiseCopy>& copy) {
    const Status status = CheckMove(from, to, ifExists);
    if (status.Ok()) copy = std::make_unique<Copy>(*this, Text(from), Text(to), ifExists);
    return status;
}

Status MemoryDisk::CreateFolder(TextView path) {
    if (Exists(path)) return ErrorNumber::FileAlreadyExists;
    const Text folder = WithoutSeparator(path);
    if (!IsFolder(FolderOfPath(folder))) return ErrorNumber::PathNotFound;
    Folders.insert(folder);
    return {};
}

Status MemoryDisk::DeleteFile(TextView path) {
    if (IsFolder(path)) return ErrorNumber::PathFileAccess;
    return Files.erase(Text(path)) != 0 ? ErrorNumber::None : ErrorNumber::FileNotFound;
}

Status MemoryDisk::SetAttributes(TextView path, int /*attributes*/) {
    return Exists(path) ? ErrorNumber::None : ErrorNumber::FileNotFound;
}

}  // namespace mdlPLM
