// What stands between a system call and the fault that a test has planned for it.
#pragma once

#include <dlfcn.h>
#include <sys/syscall.h>

namespace mdlPLM::test {

// <fcntl.h> declares calls that are defined here, with attributes of its own.
constexpr int Create = 0100;  // O_CREAT

enum Nature : unsigned {
    Looks = 0,
    Changes = 1,     // fails on a disk that may only be read
    NeedsSpace = 2,  // fails on a full disk
    Transfers = 4,   // can do half of what it was asked to
    Restarts = 8,    // is made again when a signal interrupts it
};

/// The C library's own function of that name.
template <class Signature>
Signature* Real(const char* name) {
    return reinterpret_cast<Signature*>(::dlsym(RTLD_NEXT, name));
}

/// True when the call on that path is to fail; errno is set then.
bool Fails(const char* call, unsigned nature, const char* from, const char* to = nullptr);

/// The same for a call on an open file.
bool FailsOpen(const char* call, unsigned nature, int descriptor);

/// How many bytes the call may transfer: at most `count`, or -1 when it fails.
long Granted(const char* call, unsigned nature, int descriptor, unsigned long count);

/// How many seconds later than it is the time of day is to be.
long SecondsLater();

}  // namespace mdlPLM::test
