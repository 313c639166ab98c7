#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/platform/posix.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

bool ReadStat(TextView path, struct stat& data) {
    return ::stat(posix::SystemPath(path).c_str(), &data) == 0;
}

// The listing tells files from folders; only links and file systems that leave it open cost a look.
bool IsFolderItem(int folder, const dirent& item) {
    if (item.d_type != DT_LNK && item.d_type != DT_UNKNOWN) return item.d_type == DT_DIR;
    struct stat data {};
    return ::fstatat(folder, item.d_name, &data, 0) == 0 && S_ISDIR(data.st_mode);
}

bool IsDots(BytesView name) { return name == "." || name == ".."; }

Status FlushAt(const Bytes& path) {
    const posix::Handle handle = posix::OpenHandle(path, O_RDONLY);
    return handle.IsOpen() ? posix::Flush(handle.Get()) : posix::LastError();
}

}  // namespace

void SortByName(std::vector<FolderItem>& items) {
    std::vector<std::pair<Text, FolderItem>> keyed;
    keyed.reserve(items.size());
    for (FolderItem& item : items) {
        Text key = UCase(item.Name);
        keyed.emplace_back(std::move(key), std::move(item));
    }
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) {
        const int order = a.first.compare(b.first);
        return order != 0 ? order < 0 : a.second.Name < b.second.Name;
    });
    std::transform(keyed.begin(), keyed.end(), items.begin(),
                   [](auto& pair) { return std::move(pair.second); });
}

Status FolderReader::Open(TextView folder) {
    Close();
    folder_ = posix::OpenFolder(posix::SystemPath(folder));
    return IsOpen() ? Status() : posix::LastErrorOfNewName();
}

void FolderReader::Close() {
    if (IsOpen()) ::closedir(static_cast<DIR*>(folder_));
    folder_ = nullptr;
}

Status FolderReader::Read(std::size_t most, std::vector<FolderItem>& items) {
    auto* const folder = static_cast<DIR*>(folder_);
    for (; most > 0; --most) {
        errno = 0;
        const dirent* item = ::readdir(folder);
        if (item == nullptr) {
            const Status status = errno == 0 ? Status() : posix::LastError();
            Close();
            return status;
        }
        if (IsDots(item->d_name)) continue;
        items.push_back({PathFromNative(item->d_name), IsFolderItem(::dirfd(folder), *item)});
    }
    return {};
}

bool FileExists(TextView path) {
    struct stat data {};
    return ReadStat(path, data);
}

bool IsFolder(TextView path) {
    struct stat data {};
    return ReadStat(path, data) && S_ISDIR(data.st_mode);
}

PathKind KindOfPath(TextView path) {
    struct stat data {};
    if (!ReadStat(path, data)) return PathKind::Nothing;
    return S_ISDIR(data.st_mode) ? PathKind::Folder : PathKind::File;
}

std::int64_t FileLength(TextView path) {
    struct stat data {};
    return ReadStat(path, data) && !S_ISDIR(data.st_mode) ? data.st_size : -1;
}

bool IdentityOf(TextView path, FileIdentity& identity) {
    struct stat data {};
    if (!ReadStat(path, data)) return false;
    identity = {data.st_dev, data.st_ino};
    return true;
}

bool IsSameFile(TextView a, TextView b) {
    FileIdentity first;
    FileIdentity second;
    return IdentityOf(a, first) && IdentityOf(b, second) && first == second;
}

Status ListFolder(TextView folder, std::vector<FolderItem>& items) {
    items.clear();
    FolderReader reader;
    if (const Status status = reader.Open(folder); !status.Ok()) return status;
    const Status status = reader.Read(std::numeric_limits<std::size_t>::max(), items);
    SortByName(items);
    return status;
}

bool SystemDisk::Exists(TextView path) { return FileExists(path); }
bool SystemDisk::IsFolder(TextView path) { return mdlPLM::IsFolder(path); }
bool SystemDisk::IsSameFile(TextView a, TextView b) { return mdlPLM::IsSameFile(a, b); }

Status SystemDisk::CreateFolder(TextView path) {
    const Bytes native = posix::SystemPath(path);
    return ::mkdir(native.c_str(), 0777) == 0 ? Status() : posix::LastErrorOfNewName();
}

Status SystemDisk::DeleteFile(TextView path) {
    const Bytes native = posix::SystemPath(path);
    return ::unlink(native.c_str()) == 0 ? Status() : posix::LastError();
}

Status SystemDisk::Flush(TextView path) {
    const Bytes native = posix::SystemPath(path);
    const Status flushed = FlushAt(native);
    if (!flushed.Ok()) return flushed;
    // The name is kept in the folder. A folder that may be written but not read cannot be waited
    // for: no failure.
    const Bytes folder = posix::FolderOfNative(native);
    static_cast<void>(FlushAt(folder.empty() ? "." : folder));
    return {};
}

}  // namespace mdlPLM
