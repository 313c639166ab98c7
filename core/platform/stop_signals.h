// The signals that ask a program to end: SIGHUP (its terminal is closed), SIGINT and SIGQUIT (typed
// at its terminal), SIGTERM (kill). The first one asks: the file at hand is finished, no further
// one is begun. Another of the same kind ends the process at once, whatever it is at.
#pragma once

#include <csignal>

namespace mdlPLM {

/// What a signal does to a system call that waits, for an answer at a terminal for example.
enum class WaitingCalls { GoOn, End };

/// Takes the signals from here on. One that was ignored when the program began stays ignored, as
/// whoever started it (nohup) wants it. May be called again to change what becomes of calls that
/// wait.
void TakeStopSignals(WaitingCalls waiting);

/// Becomes 1 with the first signal; it holds as long as the process.
const volatile std::sig_atomic_t& StopAsked();

/// A descriptor that can be read from as soon as the first signal has come, for an event loop to
/// wait on; -1 when the system had none to give.
int StopSignalDescriptor();

}  // namespace mdlPLM
