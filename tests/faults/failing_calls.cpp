// System calls that fail on demand. These definitions take the place of the C library's: linked
// into a test they work on its own calls, loaded in front of a program (LD_PRELOAD) on that
// program's. The headers that declare the calls are left out: they do so with attributes of their
// own.
#include "tests/faults/failing_calls.h"

#include <errno.h>
#include <stdarg.h>

#include "tests/faults/fault_plan.h"

using namespace mdlPLM::test;

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const unsigned mode = (flags & Create) != 0 ? va_arg(rest, unsigned) : 0;
    va_end(rest);
    const unsigned nature = (flags & Create) != 0 ? Changes | NeedsSpace : Looks;
    if (Fails("open", nature | Restarts, path)) return -1;
    return Real<int(const char*, int, ...)>("open")(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const unsigned mode = (flags & Create) != 0 ? va_arg(rest, unsigned) : 0;
    va_end(rest);
    return open(path, flags, mode);
}

// The descriptor is gone all the same.
int close(int descriptor) {
    const bool fails = FailsOpen("close", Restarts, descriptor);
    const int code = errno;
    const int result = Real<int(int)>("close")(descriptor);
    if (fails) errno = code;
    return fails ? -1 : result;
}

long read(int descriptor, void* buffer, unsigned long count) {
    const long granted = Granted("read", Looks, descriptor, count);
    return granted < 0 ? -1
                       : Real<long(int, void*, unsigned long)>("read")(descriptor, buffer, granted);
}

long pread(int descriptor, void* buffer, unsigned long count, long at) {
    const long granted = Granted("pread", Looks, descriptor, count);
    if (granted < 0) return -1;
    return Real<long(int, void*, unsigned long, long)>("pread")(descriptor, buffer, granted, at);
}

long write(int descriptor, const void* bytes, unsigned long count) {
    const long granted = Granted("write", Changes | NeedsSpace, descriptor, count);
    if (granted < 0) return -1;
    return Real<long(int, const void*, unsigned long)>("write")(descriptor, bytes, granted);
}

long pwrite(int descriptor, const void* bytes, unsigned long count, long at) {
    const long granted = Granted("pwrite", Changes | NeedsSpace, descriptor, count);
    if (granted < 0) return -1;
    return Real<long(int, const void*, unsigned long, long)>("pwrite")(descriptor, bytes, granted,
                                                                       at);
}

long copy_file_range(int from, long* fromAt, int to, long* toAt, unsigned long count,
                     unsigned flags) {
    const long granted = Granted("copy_file_range", Changes | NeedsSpace, to, count);
    if (granted < 0) return -1;
    using Signature = long(int, long*, int, long*, unsigned long, unsigned);
    return Real<Signature>("copy_file_range")(from, fromAt, to, toAt, granted, flags);
}

int ftruncate(int descriptor, long size) {
    if (FailsOpen("ftruncate", Changes | NeedsSpace | Restarts, descriptor)) return -1;
    return Real<int(int, long)>("ftruncate")(descriptor, size);
}

// Nothing is waited for: a disk that fails does so by plan.
int fsync(int descriptor) {
    return FailsOpen("fsync", Changes | NeedsSpace | Restarts, descriptor) ? -1 : 0;
}

int fchmod(int descriptor, unsigned mode) {
    if (FailsOpen("fchmod", Changes, descriptor)) return -1;
    return Real<int(int, unsigned)>("fchmod")(descriptor, mode);
}

int fchown(int descriptor, unsigned user, unsigned group) {
    if (FailsOpen("fchown", Changes, descriptor)) return -1;
    return Real<int(int, unsigned, unsigned)>("fchown")(descriptor, user, group);
}

int futimens(int descriptor, const void* times) {
    if (FailsOpen("futimens", Changes, descriptor)) return -1;
    return Real<int(int, const void*)>("futimens")(descriptor, times);
}

int fstat(int descriptor, void* data) {
    if (FailsOpen("fstat", Looks, descriptor)) return -1;
    return Real<int(int, void*)>("fstat")(descriptor, data);
}

int stat(const char* path, void* data) {
    if (Fails("stat", Looks, path)) return -1;
    return Real<int(const char*, void*)>("stat")(path, data);
}

int lstat(const char* path, void* data) {
    if (Fails("lstat", Looks, path)) return -1;
    return Real<int(const char*, void*)>("lstat")(path, data);
}

int access(const char* path, int mode) {
    if (Fails("access", Looks, path)) return -1;
    return Real<int(const char*, int)>("access")(path, mode);
}

int chmod(const char* path, unsigned mode) {
    if (Fails("chmod", Changes, path)) return -1;
    return Real<int(const char*, unsigned)>("chmod")(path, mode);
}

int mkdir(const char* path, unsigned mode) {
    if (Fails("mkdir", Changes | NeedsSpace, path)) return -1;
    return Real<int(const char*, unsigned)>("mkdir")(path, mode);
}

int unlink(const char* path) {
    if (Fails("unlink", Changes, path)) return -1;
    return Real<int(const char*)>("unlink")(path);
}

long readlink(const char* path, char* buffer, unsigned long size) {
    if (Fails("readlink", Looks, path)) return -1;
    return Real<long(const char*, char*, unsigned long)>("readlink")(path, buffer, size);
}

long getxattr(const char* path, const char* name, void* value, unsigned long size) {
    if (Fails("getxattr", Looks, path)) return -1;
    return Real<long(const char*, const char*, void*, unsigned long)>("getxattr")(path, name, value,
                                                                                  size);
}

int setxattr(const char* path, const char* name, const void* value, unsigned long size, int flags) {
    if (Fails("setxattr", Changes | NeedsSpace, path)) return -1;
    return Real<int(const char*, const char*, const void*, unsigned long, int)>("setxattr")(
        path, name, value, size, flags);
}

void* opendir(const char* path) {
    if (Fails("opendir", Looks | Restarts, path)) return nullptr;
    return Real<void*(const char*)>("opendir")(path);
}

void* readdir(void* folder) {
    if (FailsOpen("readdir", Looks, Real<int(void*)>("dirfd")(folder))) return nullptr;
    return Real<void*(void*)>("readdir")(folder);
}

int rename(const char* from, const char* to) {
    if (Fails("rename", Changes, from, to)) return -1;
    return Real<int(const char*, const char*)>("rename")(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    if (Fails("linkat", Changes | NeedsSpace, from, to)) return -1;
    using Signature = int(int, const char*, int, const char*, int);
    return Real<Signature>("linkat")(fromFolder, from, toFolder, to, flags);
}

// Locks alone; what else this call does is not done to files.
int fcntl(int descriptor, int command, ...) {
    constexpr int setLock = 37;  // F_OFD_SETLK
    va_list rest;
    va_start(rest, command);
    void* const value = va_arg(rest, void*);
    va_end(rest);
    if (command == setLock && FailsOpen("fcntl", Looks, descriptor)) return -1;
    return Real<int(int, int, ...)>("fcntl")(descriptor, command, value);
}

int fcntl64(int descriptor, int command, ...) {
    va_list rest;
    va_start(rest, command);
    void* const value = va_arg(rest, void*);
    va_end(rest);
    return fcntl(descriptor, command, value);
}

int clock_gettime(int clock, void* time) {
    const int result = Real<int(int, void*)>("clock_gettime")(clock, time);
    constexpr int timeOfDay = 0;  // CLOCK_REALTIME; seconds stand first in what it gives
    if (result == 0 && clock == timeOfDay) *static_cast<long*>(time) += SecondsLater();
    return result;
}

// renameat2 has no function of its own in every C library.
long syscall(long number, ...) {
    va_list rest;
    va_start(rest, number);
    long value[6];
    for (long& each : value) each = va_arg(rest, long);
    va_end(rest);
    const auto path = [&](int at) { return reinterpret_cast<const char*>(value[at]); };
    if (number == SYS_renameat2 && Fails("renameat2", Changes, path(1), path(3))) return -1;
    return Real<long(long, ...)>("syscall")(number, value[0], value[1], value[2], value[3],
                                            value[4], value[5]);
}

}  // extern "C"
