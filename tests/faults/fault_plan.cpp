// The plan of a fault and what it means for a call. Nothing of the standard library is used here,
// so that nothing of it is counted.
#include "tests/faults/fault_plan.h"

#include <errno.h>
#include <limits.h>
#include <signal.h>
#include <stdlib.h>
#include <string.h>

#include "tests/faults/failing_calls.h"

namespace mdlPLM::test {

namespace {

constexpr int AtWorkingFolder = -100;
constexpr int MostAlways = 8;

struct Call {
    const char* Name;
    unsigned Kind;
    const char* From;
    const char* To;
    long Bytes;
};

struct Refusal {
    char Call[24];
    int Code;
};

struct Plan {
    bool Armed;
    char Under[PATH_MAX];
    char Log[PATH_MAX];
    char Stranger[PATH_MAX];
    char What[16];
    int Code;
    long At;
    Refusal Always[MostAlways];
    int AlwaysCount;
    bool FoldersAreDisks;
    long Later;
    long Count;
    bool Begun;
};

Plan plan;

long Raw(long number, long a = 0, long b = 0, long c = 0, long d = 0) {
    return Real<long(long, ...)>("syscall")(number, a, b, c, d);
}

long Raw(long number, const char* path, long b, long c) {
    return Raw(number, AtWorkingFolder, reinterpret_cast<long>(path), b, c);
}

bool IsBelow(const char* path) { return strncmp(path, plan.Under, strlen(plan.Under)) == 0; }

// The path that counts: a relative one belongs to the working folder.
bool Concerns(const char* path) {
    if (path == nullptr || *path == '\0') return false;
    if (*path == '/') return IsBelow(path);
    char folder[PATH_MAX] = {};
    return Raw(SYS_getcwd, reinterpret_cast<long>(folder), sizeof folder - 1) > 0 &&
           IsBelow(strcat(folder, "/"));
}

// The path of an open file, as the system knows it.
struct OpenPath {
    explicit OpenPath(int descriptor) {
        char link[32] = "/proc/self/fd/";
        char digits[12] = {};
        int count = 0;
        for (int rest = descriptor; rest > 0 || count == 0; rest /= 10)
            digits[count++] = static_cast<char>('0' + rest % 10);
        char* end = link + strlen(link);
        while (count > 0) *end++ = digits[--count];
        (void)Raw(SYS_readlinkat, link, reinterpret_cast<long>(Path), sizeof Path - 1);
        if (Path[0] != '/') Path[0] = '\0';  // a pipe is called by no path
    }
    char Path[PATH_MAX] = {};
};

void Append(const char* file, const char* a, const char* b) {
    constexpr long flags = 02001 | Create;  // O_WRONLY | O_APPEND
    const long log = Raw(SYS_openat, file, flags, 0600);
    const char* const texts[] = {a, " ", b, "\n"};
    for (const char* text : texts)
        (void)Raw(SYS_write, log, reinterpret_cast<long>(text), static_cast<long>(strlen(text)));
    (void)Raw(SYS_close, log);
}

void PutStranger() {
    constexpr long flags = 0201 | Create;  // O_WRONLY | O_EXCL
    const long file = Raw(SYS_openat, plan.Stranger, flags, 0600);
    if (file < 0) return Append(plan.Log, "nobody", plan.Stranger);
    (void)Raw(SYS_write, file, reinterpret_cast<long>("stranger"), 8);
    (void)Raw(SYS_close, file);
    Append(plan.Log, "stranger", plan.Stranger);
}

// The folders right below the watched one count as disks of their own.
bool CrossesDisks(const Call& call) {
    if (!plan.FoldersAreDisks || call.To == nullptr || (call.Kind & Transfers) != 0) return false;
    const char* a = call.From + strlen(plan.Under);
    const char* b = call.To + strlen(plan.Under);
    while (*a != '\0' && *a == *b && *a != '/') ++a, ++b;
    return !(*a == '/' && *b == '/');
}

int AlwaysFails(const Call& call) {
    if (CrossesDisks(call)) return EXDEV;
    for (int i = 0; i < plan.AlwaysCount; ++i)
        if (strcmp(plan.Always[i].Call, call.Name) == 0) return plan.Always[i].Code;
    return 0;
}

bool Is(const char* what) { return strcmp(plan.What, what) == 0; }

bool FailsFromHereOn(const Call& call) {
    if (Is("full")) return (call.Kind & NeedsSpace) != 0;
    if (Is("readonly")) return (call.Kind & Changes) != 0;
    return Is("gone");
}

// The code that such a call fails with in life, where the plan names none.
int CodeFor(const Call& call) {
    if (plan.Code != 0) return plan.Code;
    if ((call.Kind & NeedsSpace) != 0) return ENOSPC;
    return (call.Kind & Changes) != 0 ? EACCES : EIO;
}

// A call that the planned fault means nothing to is not counted.
bool Counts(const Call& call) {
    if (Is("half")) return (call.Kind & Transfers) != 0 && call.Bytes > 1;
    return !Is("interrupt") || (call.Kind & Restarts) != 0;
}

// What becomes of the call: 0 it is made, a code it fails, -1 half of it is done.
int Strike(const Call& call) {
    if (Is("stranger")) return PutStranger(), 0;
    Append(plan.Log, call.Name, call.From);
    if (Is("kill")) (void)Raw(SYS_kill, Raw(SYS_getpid), SIGKILL);
    while (Is("hang")) (void)Raw(SYS_ppoll);
    if (Is("signal")) return (void)Raw(SYS_kill, Raw(SYS_getpid), plan.Code), 0;
    if (Is("half")) return -1;
    if (Is("interrupt")) return EINTR;
    plan.Begun = true;
    return Is("fail") || FailsFromHereOn(call) ? CodeFor(call) : 0;
}

int Judge(const Call& call) {
    if (!plan.Armed || !(Concerns(call.From) || Concerns(call.To))) return 0;
    if (const int code = AlwaysFails(call); code != 0) return code;
    if (Counts(call) && ++plan.Count == plan.At) return Strike(call);
    return plan.Begun && FailsFromHereOn(call) ? CodeFor(call) : 0;
}

bool Fails(int verdict) {
    if (verdict > 0) errno = verdict;
    return verdict > 0;
}

void Take(char* to, const char* value, unsigned long room, unsigned long length) {
    const unsigned long count = length < room - 1 ? length : room - 1;
    memcpy(to, value, count);
    to[count] = '\0';
}

void TakeAlways(const char* value) {
    Refusal& refusal = plan.Always[plan.AlwaysCount++];
    const char* const blank = strchr(value, ' ');
    Take(refusal.Call, value, sizeof refusal.Call, static_cast<unsigned long>(blank - value));
    refusal.Code = atoi(blank + 1);
}

void TakeLine(const char* line, unsigned long length) {
    const char* const equals = strchr(line, '=');
    const char* const value = equals + 1;
    const unsigned long rest = length - static_cast<unsigned long>(value - line);
    const struct {
        const char* Key;
        char* Place;
        unsigned long Room;
    } texts[] = {{"under=", plan.Under, sizeof plan.Under},
                 {"log=", plan.Log, sizeof plan.Log},
                 {"stranger=", plan.Stranger, sizeof plan.Stranger},
                 {"what=", plan.What, sizeof plan.What}};
    for (const auto& text : texts)
        if (strncmp(line, text.Key, strlen(text.Key)) == 0)
            Take(text.Place, value, text.Room, rest);
    if (strncmp(line, "at=", 3) == 0) plan.At = atol(value);
    if (strncmp(line, "code=", 5) == 0) plan.Code = atoi(value);
    if (strncmp(line, "later=", 6) == 0) plan.Later = atol(value);
    if (strncmp(line, "disks=", 6) == 0) plan.FoldersAreDisks = true;
    if (strncmp(line, "always=", 7) == 0) TakeAlways(value);
}

}  // namespace

bool Fails(const char* call, unsigned kind, const char* from, const char* to) {
    return Fails(Judge({call, kind, from, to, 0}));
}

bool FailsOpen(const char* call, unsigned kind, int descriptor) {
    return plan.Armed && Fails(call, kind, OpenPath(descriptor).Path);
}

// How many bytes the call may transfer: fewer than asked for, or -1 when it fails.
long Granted(const char* call, unsigned kind, int descriptor, unsigned long count) {
    if (!plan.Armed) return static_cast<long>(count);
    const OpenPath file(descriptor);
    const auto bytes = static_cast<long>(count);
    const int verdict = Judge({call, kind | Transfers | Restarts, file.Path, nullptr, bytes});
    if (Fails(verdict)) return -1;
    return verdict < 0 ? bytes / 2 : bytes;
}

long SecondsLater() { return plan.Armed ? plan.Later : 0; }

void ArmFaults(const char* text) {
    plan = Plan();
    if (text == nullptr) return;
    while (*text != '\0') {
        const unsigned long length = strcspn(text, "\n");
        if (length > 0) TakeLine(text, length);
        text += length + (text[length] == '\n' ? 1 : 0);
    }
    plan.Armed = true;
}

}  // namespace mdlPLM::test

namespace {
__attribute__((constructor)) void ArmFromEnvironment() {
    mdlPLM::test::ArmFaults(getenv("PLM_FAULTS"));
}
}  // namespace
