#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <ctime>

#include "core/platform/stop_signals.h"

namespace mdlPLM {

namespace {

struct StopSignal {
    int Number;
    std::atomic<std::int64_t> First;  ///< when it came for the first time; 0: it has not
};
static_assert(std::atomic<std::int64_t>::is_always_lock_free);

// What the handler works with. It can be handed nothing, so this stands here.
std::array<StopSignal, 4> stopSignals = {{{SIGHUP, 0}, {SIGINT, 0}, {SIGQUIT, 0}, {SIGTERM, 0}}};
volatile std::sig_atomic_t stopAsked = 0;
std::array<int, 2> stopPipe = {-1, -1};

// One wish can come as two signals: a terminal that closes sends SIGHUP by itself and by its shell,
// timeout(1) sends its signal to the program and to the program's group.
constexpr std::int64_t SameWish = 500;  // milliseconds

std::int64_t Now() {
    timespec now{};
    (void)::clock_gettime(CLOCK_MONOTONIC, &now);
    // Never 0, not even when the machine has only just come up.
    return static_cast<std::int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1000000 + 1;
}

void EndAtOnce(int number) {
    struct sigaction action {};
    action.sa_handler = SIG_DFL;
    (void)::sigaction(number, &action, nullptr);
    (void)::raise(number);
}

// Calls nothing but what a handler may call.
void OnStopSignal(int number) {
    const int code = errno;
    for (StopSignal& signal : stopSignals) {
        if (signal.Number != number) continue;
        std::int64_t first = 0;
        if (!signal.First.compare_exchange_strong(first, Now()) && Now() - first >= SameWish)
            EndAtOnce(number);
    }
    stopAsked = 1;
    if (stopPipe[1] >= 0) (void)!::write(stopPipe[1], "", 1);
    errno = code;
}

void Take(int number, WaitingCalls waiting) {
    struct sigaction action {};
    if (::sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
    action = {};
    action.sa_handler = OnStopSignal;
    action.sa_flags = waiting == WaitingCalls::GoOn ? SA_RESTART : 0;
    (void)::sigaction(number, &action, nullptr);
}

}  // namespace

void TakeStopSignals(WaitingCalls waiting) {
    // A full pipe must not hold the handler up.
    if (stopPipe[0] < 0 && ::pipe2(stopPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        stopPipe = {-1, -1};
    for (const StopSignal& signal : stopSignals) Take(signal.Number, waiting);
}

const volatile std::sig_atomic_t& StopAsked() { return stopAsked; }

int StopSignalDescriptor() { return stopPipe[0]; }

}  // namespace mdlPLM
