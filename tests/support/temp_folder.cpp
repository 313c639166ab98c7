#include "tests/support/temp_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "core/platform/disk.h"
#include "core/platform/path.h"

namespace mdlPLM {

namespace {

namespace fs = std::filesystem;

constexpr long long NanosecondsPerSecond = 1'000'000'000;

fs::path Native(TextView path) { return {NativePath(path)}; }

[[noreturn]] void Fail(const char* what, TextView path) {
    throw std::runtime_error(std::string(what) + " " + NativePath(path));
}

// Write protection set by a test must not keep its folder from going.
void AllowRemoval(const fs::path& folder) {
    std::error_code ignored;
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ignored);
    for (const auto& item : fs::directory_iterator(folder, ignored))
        if (item.is_directory(ignored) && !item.is_symlink(ignored)) AllowRemoval(item.path());
}

}  // namespace

TempFolder::TempFolder() {
    Bytes name = NativePath(TemporaryFolder()) + "plm_test_XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) Fail("no temporary folder", TemporaryFolder());
    path_ = JoinPath(PathFromNative(name), {});
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    AllowRemoval(Native(path_));
    fs::remove_all(Native(path_), ignored);
}

Text TempFolder::operator/(TextView name) const { return JoinPath(path_, name); }

Text TempFolder::File(TextView name, BytesView contents) const {
    Text path = *this / name;
    WriteFile(path, contents);
    return path;
}

Text TempFolder::Folder(TextView name) const {
    Text path = *this / name;
    fs::create_directories(Native(path));
    return path;
}

Text TempFolder::Link(TextView name, TextView target) const {
    Text path = *this / name;
    fs::create_symlink(Native(target), Native(path));
    return path;
}

Text TempFolder::TooDeep(TextView name) const {
    constexpr int Levels = 20;
    const Bytes longName(250, 'd');
    Text path = Folder(name);
    (void)File(Text(name) + u"/a.mp3");
    int folder = ::open(NativePath(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int level = 0; level < Levels; ++level) {
        if (::mkdirat(folder, longName.c_str(), 0777) != 0) Fail("cannot create", path);
        const int next = ::openat(folder, longName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ::close(folder);
        folder = next;
    }
    const int file = ::openat(folder, "a.mp3", O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (file < 0) Fail("cannot create a file below", path);
    ::close(file);
    ::close(folder);
    return path;
}

Text TempFolder::Unopenable(TextView name) const {
    Text path = *this / name;
    if (::mknod(NativePath(path).c_str(), S_IFSOCK | 0600, 0) != 0) Fail("cannot create", path);
    return path;
}

void WriteFile(TextView path, BytesView contents) {
    fs::create_directories(Native(path).parent_path());
    std::ofstream file(Native(path), std::ios::binary | std::ios::trunc);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    file.close();
    if (!file) Fail("cannot write", path);
}

void SetFileLength(TextView path, long long bytes) {
    fs::resize_file(Native(path), static_cast<std::uintmax_t>(bytes));
}

Bytes ReadFile(TextView path) {
    std::ifstream file(Native(path), std::ios::binary);
    if (!file || fs::is_directory(Native(path))) Fail("cannot read", path);
    Bytes contents(fs::file_size(Native(path)), '\0');
    file.read(contents.data(), static_cast<std::streamsize>(contents.size()));
    if (!file) Fail("cannot read", path);
    return contents;
}

bool IsThere(TextView path) { return fs::exists(fs::symlink_status(Native(path))); }

std::vector<Bytes> ListTree(TextView folder) {
    const fs::path root = Native(folder);
    std::vector<Bytes> names;
    for (const auto& item : fs::recursive_directory_iterator(root)) {
        const bool isFolder = !item.is_symlink() && item.is_directory();
        names.push_back(item.path().lexically_relative(root).string() + (isFolder ? "/" : ""));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::map<Bytes, Bytes> ReadTree(TextView folder) {
    std::map<Bytes, Bytes> tree;
    for (const Bytes& name : ListTree(folder)) {
        const bool isFile = name.back() != '/';
        tree[name] = isFile ? ReadFile(JoinPath(folder, PathFromNative(name))) : Bytes();
    }
    return tree;
}

void SetModificationTime(TextView path, long long nanoseconds) {
    const timespec time = {static_cast<time_t>(nanoseconds / NanosecondsPerSecond),
                           static_cast<long>(nanoseconds % NanosecondsPerSecond)};
    const std::array<timespec, 2> times = {time, time};
    if (::utimensat(AT_FDCWD, NativePath(path).c_str(), times.data(), 0) != 0)
        Fail("cannot set the time of", path);
}

long long ModificationTime(TextView path) {
    struct stat data {};
    if (::stat(NativePath(path).c_str(), &data) != 0) Fail("cannot tell the time of", path);
    return data.st_mtim.tv_sec * NanosecondsPerSecond + data.st_mtim.tv_nsec;
}

}  // namespace mdlPLM
