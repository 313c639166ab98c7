#include "tests/faults/fault_run.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

#include "core/platform/path.h"
#include "tests/faults/failing_calls.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::test {

namespace {

constexpr int Broken = 125;

void Redirect(int stream, const Bytes& file) {
    const int opened = ::open(file.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600);
    if (::dup2(opened, stream) < 0) ::_exit(Broken);
    ::close(opened);
}

[[noreturn]] void BeChild(const Bytes& plan, TextView under, TextView aside,
                          const std::function<int()>& work) {
    Redirect(STDIN_FILENO, NativePath(JoinPath(aside, u"in")));
    Redirect(STDOUT_FILENO, NativePath(JoinPath(aside, u"out")));
    Redirect(STDERR_FILENO, NativePath(JoinPath(aside, u"errors")));
    if (::chdir(NativePath(under).c_str()) != 0) ::_exit(Broken);
    ArmFaults(plan.c_str());
    try {
        ::_exit(work());
    } catch (const std::exception& thrown) {
        (void)std::fprintf(stderr, "thrown: %s", thrown.what());
        (void)std::fflush(stderr);
    }
    ::_exit(Broken);
}

Bytes ReadIfThere(TextView path) { return IsThere(path) ? ReadFile(path) : Bytes(); }

}  // namespace

Bytes Rendered(const FaultPlan& plan, TextView under, TextView log) {
    Bytes text = "under=" + NativePath(under) + "\nlog=" + NativePath(log) + "\nwhat=" + plan.What +
                 "\nat=" + std::to_string(plan.At) + "\ncode=" + std::to_string(plan.Code) +
                 "\nstranger=" + plan.Stranger + "\n";
    for (const Bytes& line : plan.Lines) text += line + "\n";
    return text;
}

StruckRun RunStruck(const FaultPlan& plan, TextView under, TextView aside,
                    const std::function<int()>& work) {
    const Text log = JoinPath(aside, u"log");
    (void)::unlink(NativePath(log).c_str());
    (void)std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) BeChild(Rendered(plan, under, log), under, aside, work);
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child)
        throw std::runtime_error("no child process");
    return {WIFEXITED(status) ? WEXITSTATUS(status) : StruckRun::Killed,
            ReadIfThere(JoinPath(aside, u"out")), ReadIfThere(JoinPath(aside, u"errors")),
            ReadIfThere(log)};
}

}  // namespace mdlPLM::test
