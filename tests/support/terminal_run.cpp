#include "tests/support/terminal_run.h"

#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>

#include "core/platform/path.h"

namespace mdlPLM::test {

namespace {

constexpr int CannotRun = 127;

std::vector<char*> Pointers(std::vector<Bytes>& texts) {
    std::vector<char*> pointers;
    for (Bytes& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// The system would drop what a program says right behind an interrupt with what it said before.
void KeepOutputBehindInterrupts() {
    termios settings{};
    if (::tcgetattr(STDIN_FILENO, &settings) != 0) ::_exit(CannotRun);
    settings.c_lflag |= NOFLSH;
    if (::tcsetattr(STDIN_FILENO, TCSANOW, &settings) != 0) ::_exit(CannotRun);
}

[[noreturn]] void Become(const ProgramCall& call) {
    std::vector<Bytes> words{NativePath(call.Program)};
    words.insert(words.end(), call.Arguments.begin(), call.Arguments.end());
    std::vector<Bytes> variables;
    for (const auto& [name, value] : call.Environment) variables.push_back(name + "=" + value);
    const Bytes folder = NativePath(call.Folder);
    if (folder.empty() || ::chdir(folder.c_str()) == 0)
        ::execve(words[0].c_str(), Pointers(words).data(), Pointers(variables).data());
    ::_exit(CannotRun);
}

// Reads what has come into `text`; false at the end.
bool ReadSome(int from, Bytes& text) {
    std::array<char, 4096> buffer{};
    const ssize_t got = ::read(from, buffer.data(), buffer.size());
    if (got > 0) text.append(buffer.data(), static_cast<std::size_t>(got));
    return got > 0 || (got < 0 && errno == EINTR);
}

// Where the wanted text ends, once it has come; nothing when the program ends without it.
std::size_t WaitForText(int terminal, Bytes& seen, std::size_t from, const Bytes& wanted) {
    for (;;) {
        const std::size_t found = seen.find(wanted, from);
        if (found != Bytes::npos) return found + wanted.size();
        if (!ReadSome(terminal, seen)) return Bytes::npos;
    }
}

}  // namespace

ProgramResult RunAtTerminal(const ProgramCall& call, const std::vector<TerminalStep>& steps) {
    int terminal = -1;
    const winsize size = {24, 80, 0, 0};
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        KeepOutputBehindInterrupts();
        Become(call);
    }
    ProgramResult result;
    Bytes missing;
    std::size_t position = 0;
    for (const TerminalStep& step : steps) {
        position = WaitForText(terminal, result.Out, position, step.WaitFor);
        if (position == Bytes::npos) missing = step.WaitFor;
        if (!missing.empty()) break;
        (void)!::write(terminal, step.Type.data(), step.Type.size());
    }
    // A question that nobody expects is not waited for: the input ends here.
    (void)!::write(terminal, "\x04", 1);
    while (ReadSome(terminal, result.Out)) {
    }
    ::close(terminal);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status)) result.Status = WEXITSTATUS(status);
    if (!missing.empty())
        throw std::runtime_error("\"" + missing + "\" did not come:\n" + result.Out);
    return result;
}

}  // namespace mdlPLM::test
