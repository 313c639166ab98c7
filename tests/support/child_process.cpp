#include "tests/support/child_process.h"

#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>

// There in a build that counts the lines it reaches; NOLINT: the compiler's own name.
extern "C" void __gcov_dump() __attribute__((weak));  // NOLINT

namespace mdlPLM {

namespace {

constexpr int Broken = 255;

int Guarded(const std::function<int()>& work) {
    try {
        return work();
    } catch (...) {
        return Broken;
    }
}

}  // namespace

int RunInChild(const std::function<int()>& work) {
    (void)std::fflush(nullptr);
    const pid_t child = ::fork();
    // _exit: neither buffers nor objects of the parent are finished twice.
    if (child == 0) {
        const int result = Guarded(work);
        if (__gcov_dump != nullptr) __gcov_dump();
        ::_exit(result);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return Broken;
    return WEXITSTATUS(status);
}

void LimitFileSize(unsigned long long bytes) {
    (void)std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {bytes, bytes};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) ::_exit(Broken);
}

void ObeyPermissions() {
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> none{};
    if (::syscall(SYS_capset, &header, none.data()) != 0) ::_exit(Broken);
}

}  // namespace mdlPLM
