#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>

#include "app/cli/report.h"
#include "app/cli/system_console.h"
#include "core/platform/errors.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

constexpr std::size_t HeldAtMost = std::size_t{1} << 16;

// A terminal without the two escape sequences of the progress line calls itself "dumb".
bool HasCursor() {
    const char* const terminal = std::getenv("TERM");
    return terminal != nullptr && *terminal != '\0' && BytesView(terminal) != "dumb";
}

int ColumnsOf(int descriptor) {
    winsize size{};
    return ::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col
                                                                          : Terminals().Columns;
}

Terminals LookAtStreams() {
    Terminals kinds;
    const bool errors = ::isatty(STDERR_FILENO) == 1;
    kinds.Out = ::isatty(STDOUT_FILENO) == 1;
    kinds.Errors = errors && HasCursor();
    kinds.Ask = errors && ::isatty(STDIN_FILENO) == 1;
    if (errors) kinds.Columns = ColumnsOf(STDERR_FILENO);
    return kinds;
}

bool WriteAll(int descriptor, BytesView bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace

SystemConsole::SystemConsole(const volatile std::sig_atomic_t& interrupted)
    : interrupted_(interrupted), kinds_(LookAtStreams()) {}

SystemConsole::~SystemConsole() { Flush(); }

void SystemConsole::Out(BytesView bytes) {
    held_ += bytes;
    if (kinds_.Out || held_.size() >= HeldAtMost) Flush();
}

void SystemConsole::Flush() {
    const bool refused = !held_.empty() && !outFailed_ && !WriteAll(STDOUT_FILENO, held_);
    held_.clear();
    if (!refused) return;
    outFailed_ = true;
    // A reader that went away has seen enough.
    if (errno != EPIPE)
        Errors(Bytes(ProgramName) +
               ": standard output: " + ToUtf8(Describe(ErrorFromSystem(errno))) + "\n");
}

void SystemConsole::Errors(BytesView bytes) {
    Flush();
    // Where errors cannot be told there is nobody left to tell that.
    (void)WriteAll(STDERR_FILENO, bytes);
}

bool SystemConsole::ReadByte(char& byte) {
    ssize_t got = -1;
    do {
        got = ::read(STDIN_FILENO, &byte, 1);
    } while (got < 0 && errno == EINTR && !Interrupted());
    return got == 1;
}

bool SystemConsole::ReadLine(Bytes& line) {
    line.clear();
    char byte = '\0';
    while (ReadByte(byte)) {
        if (byte == '\n') return true;
        line += byte;
    }
    return !line.empty() && !Interrupted();
}

Bytes SystemConsole::ReadAll() {
    Bytes all;
    std::array<char, 1 << 16> piece{};
    for (;;) {
        const ssize_t got = ::read(STDIN_FILENO, piece.data(), piece.size());
        if (got > 0) {
            all.append(piece.data(), static_cast<std::size_t>(got));
        } else if (got == 0 || errno != EINTR || Interrupted()) {
            return all;
        }
    }
}

}  // namespace mdlPLM::cli
