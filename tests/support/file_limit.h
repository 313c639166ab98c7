// A disk that is full for this process: while the object lives, no file can be written beyond a
// length. Works for every user, root too.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace mdlPLM::test {

class FileLimit {
public:
    explicit FileLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limit{bytes, old_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        (void)std::signal(SIGXFSZ, oldHandler_);
    }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;

private:
    rlimit old_{};
    void (*oldHandler_)(int);
};

}  // namespace mdlPLM::test
