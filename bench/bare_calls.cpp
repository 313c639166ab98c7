#include "bench/bare_calls.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <memory>
#include <stdexcept>

#include "bench/measure.h"

namespace mdlPLM::bench {

namespace {

constexpr std::size_t HeadSize = 4096;
constexpr std::size_t TrailerSize = 128;
constexpr unsigned NoReplace = 1;  // RENAME_NOREPLACE of linux/fs.h

void Check(bool ok, const Bytes& path) {
    if (!ok) throw std::runtime_error("cannot read or write " + path);
}

void WriteBare(int file, BytesView bytes, std::int64_t offset, const Bytes& path) {
    Check(::pwrite(file, bytes.data(), bytes.size(), offset) == static_cast<ssize_t>(bytes.size()),
          path);
}

}  // namespace

void ReadBare(const Bytes& path) {
    char buffer[HeadSize];
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat data {};
    Check(file >= 0 && ::fstat(file, &data) == 0, path);
    Check(::pread(file, buffer, HeadSize, 0) >= 0, path);
    const auto trailer = data.st_size - static_cast<off_t>(TrailerSize);
    Check(::pread(file, buffer, TrailerSize, trailer) >= 0, path);
    ::close(file);
    Keep(buffer);
}

void ReadFolderBare(const Bytes& folder) {
    DIR* const open = ::opendir(folder.c_str());
    if (open == nullptr) throw std::runtime_error("cannot list " + folder);
    while (const dirent* item = ::readdir(open)) {
        if (item->d_name[0] == '.') continue;
        const Bytes path = folder + "/" + item->d_name;
        item->d_type == DT_DIR ? ReadFolderBare(path) : ReadBare(path);
    }
    ::closedir(open);
}

void CopyBare(const Bytes& from, const Bytes& to) {
    const int source = ::open(from.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat data {};
    Check(source >= 0 && ::fstat(source, &data) == 0, from);
    const int target = ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    Check(target >= 0, to);
    const auto size = static_cast<std::size_t>(data.st_size);
    Check(::copy_file_range(source, nullptr, target, nullptr, size, 0) == data.st_size, to);
    const timespec times[2] = {data.st_atim, data.st_mtim};
    Check(::fchmod(target, data.st_mode & 0777) == 0 && ::futimens(target, times) == 0, to);
    ::close(source);
    Check(::close(target) == 0, to);
}

void CopyBareInTwoSteps(const Bytes& from, const Bytes& to) {
    const Bytes between = to + ".tmp";
    CopyBare(from, between);
    Check(::syscall(SYS_renameat2, AT_FDCWD, between.c_str(), AT_FDCWD, to.c_str(), NoReplace) == 0,
          to);
}

void SaveBareInPlace(const Bytes& path, const SavePlan& plan) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    Check(file >= 0, path);
    WriteBare(file, plan.Trailer, plan.TrailerPlace, path);
    WriteBare(file, plan.Head, 0, path);
    Check(::close(file) == 0, path);
}

void SaveBareAnew(const Bytes& path, const SavePlan& plan) {
    const auto size = static_cast<std::size_t>(plan.NewSize);
    const std::unique_ptr<char[]> contents(new char[size]);
    plan.Head.copy(contents.get(), plan.Head.size());
    plan.Trailer.copy(contents.get() + plan.TrailerPlace, plan.Trailer.size());
    const int old = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const auto carried = static_cast<std::size_t>(plan.CarriedLength);
    Check(old >= 0 && ::pread(old, contents.get() + plan.Head.size(), carried, plan.CarriedFrom) ==
                          plan.CarriedLength,
          path);
    ::close(old);
    Check(::unlink(path.c_str()) == 0, path);
    const int made = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    Check(made >= 0, path);
    WriteBare(made, {contents.get(), size}, 0, path);
    Check(::close(made) == 0, path);
}

}  // namespace mdlPLM::bench
