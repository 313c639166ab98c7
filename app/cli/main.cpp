// The engine on the command line: streams, arguments and Ctrl-C; all else is in the commands.
#include <csignal>
#include <exception>

#include "app/cli/commands.h"
#include "app/cli/report.h"
#include "app/cli/system_console.h"

namespace {

// The only thing that a signal handler may touch.
volatile std::sig_atomic_t interrupted = 0;

// The file at hand is finished, no further one is begun.
void Interrupt(int /*signal*/) { interrupted = 1; }

void TakeSignals() {
    // Without restarting: a question that waits for its answer has to end.
    struct sigaction action {};
    action.sa_handler = Interrupt;
    (void)sigaction(SIGINT, &action, nullptr);
    (void)sigaction(SIGTERM, &action, nullptr);
    // A reader that goes away is seen by the write that fails, between two files.
    action.sa_handler = SIG_IGN;
    (void)sigaction(SIGPIPE, &action, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    TakeSignals();
    mdlPLM::cli::SystemConsole console(interrupted);
    try {
        return mdlPLM::cli::RunProgram({argv + 1, argv + argc}, console);
    } catch (const std::exception& error) {
        console.Errors(mdlPLM::Bytes(mdlPLM::cli::ProgramName) + ": " + error.what() + "\n");
        return mdlPLM::cli::SomeFailed;
    }
}
