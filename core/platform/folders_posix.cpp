// The folders that the system has for the program.
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/platform/posix.h"

namespace mdlPLM {

namespace {

Bytes FromEnvironment(const char* name) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): never set here
    return value == nullptr ? Bytes() : Bytes(value);
}

// XDG base directories: a path that is not absolute is to be ignored.
Bytes AbsoluteFromEnvironment(const char* name) {
    const Bytes value = FromEnvironment(name);
    return value.empty() || value.front() != '/' ? Bytes() : value;
}

Bytes HomeFolder() {
    Bytes home = AbsoluteFromEnvironment("HOME");
    if (!home.empty()) return home;
    const passwd* const user = ::getpwuid(::getuid());
    return user == nullptr || user->pw_dir == nullptr ? Bytes("/") : Bytes(user->pw_dir);
}

Text WithSeparator(const Bytes& folder) { return JoinPath(PathFromNative(folder), {}); }

Text UserFolder(const char* variable, const char* belowHome) {
    const Bytes base = AbsoluteFromEnvironment(variable);
    const Text folder = base.empty()
                            ? JoinPath(PathFromNative(HomeFolder()), PathFromNative(belowHome))
                            : PathFromNative(base);
    return JoinPath(JoinPath(folder, u"PLM"), {});
}

Status CreateMissing(const Bytes& folder) {
    if (::mkdir(folder.c_str(), 0777) == 0) return {};
    const int code = errno;
    struct stat data {};
    if (::stat(folder.c_str(), &data) == 0 && S_ISDIR(data.st_mode)) return {};
    return ErrorFromSystem(code);
}

}  // namespace

Status CreateFolders(TextView path) {
    const Bytes native = posix::SystemPath(path);
    std::size_t end = 0;
    do {
        end = native.find('/', end + 1);
        const Status status = CreateMissing(native.substr(0, end));
        if (!status.Ok()) return status;
    } while (end < native.size());
    return {};
}

Text ProgramFolder() {
    std::array<char, PATH_MAX> buffer{};
    const ssize_t length = ::readlink("/proc/self/exe", buffer.data(), buffer.size());
    if (length <= 0) return u"./";
    return FolderOfPath(PathFromNative({buffer.data(), static_cast<std::size_t>(length)}));
}

Text ConfigurationFolder() { return UserFolder("XDG_CONFIG_HOME", ".config"); }

Text DataFolder() { return UserFolder("XDG_DATA_HOME", ".local/share"); }

Text CurrentFolder() {
    std::error_code error;
    const std::filesystem::path current = std::filesystem::current_path(error);
    return error ? Text() : WithSeparator(current.native());
}

Text AbsolutePath(TextView path) {
    const Text current = CurrentFolder();
    if (path.empty() || path.front() == Separator || current.empty()) return Text(path);
    while (StartsWith(path, u"./")) path.remove_prefix(2);
    return path == u"." ? current : current + Text(path);
}

Text TemporaryFolder() {
    const Bytes folder = AbsoluteFromEnvironment("TMPDIR");
    return WithSeparator(folder.empty() ? "/tmp" : folder);
}

bool IsWritableFolder(TextView folder) {
    const Bytes native = posix::SystemPath(folder);
    return IsFolder(folder) && ::access(native.c_str(), W_OK | X_OK) == 0;
}

}  // namespace mdlPLM
