// The engine on the command line: streams, arguments and signals; all else is in the commands.
#include <csignal>
#include <exception>

#include "app/cli/commands.h"
#include "app/cli/report.h"
#include "app/cli/system_console.h"
#include "core/platform/stop_signals.h"

namespace {

// A reader that goes away is seen by the write that fails, between two files.
void IgnoreBrokenPipes() {
    struct sigaction action {};
    action.sa_handler = SIG_IGN;
    (void)sigaction(SIGPIPE, &action, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    IgnoreBrokenPipes();
    // A question that waits for its answer has to end.
    mdlPLM::TakeStopSignals(mdlPLM::WaitingCalls::End);
    mdlPLM::cli::SystemConsole console(mdlPLM::StopAsked());
    try {
        return mdlPLM::cli::RunProgram({argv + 1, argv + argc}, console);
    } catch (const std::exception& error) {
        console.Errors(mdlPLM::Bytes(mdlPLM::cli::ProgramName) + ": " + error.what() + "\n");
        return mdlPLM::cli::SomeFailed;
    }
}
