// A program run to its end by a test, with an environment of its own.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM::test {

struct ProgramCall {
    Text Program;  ///< path
    std::vector<Bytes> Arguments;
    std::map<Bytes, Bytes> Environment;  ///< all of it: nothing is inherited
    Bytes Input;                         ///< what is typed, then the end of the input
    Text Folder;                         ///< where it is started; empty: where the test is
};

struct ProgramResult {
    int Status = -1;  ///< exit status; -1 when a signal ended it
    Bytes Out;
    Bytes Errors;
    int Signal = 0;  ///< the one that ended it; 0: it came to its own end
};

/// Throws when the program cannot be started.
ProgramResult RunToEnd(const ProgramCall& call);

/// A program that runs beside the test; it is ended with the object at the latest.
class RunningProgram {
public:
    explicit RunningProgram(const ProgramCall& call);
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    [[nodiscard]] bool IsRunning();
    /// Waits for its end.
    ProgramResult Wait();
    /// Sends it a signal, while it runs.
    void Send(int signal);
    /// What the system says of the process (/proc/PID/status); empty when it is gone.
    [[nodiscard]] Bytes SystemStatus();
    /// True when the set of signals that the system calls by that name (SigCgt, SigIgn) holds it.
    [[nodiscard]] bool HasSignalIn(const Bytes& set, int signal);

private:
    struct Streams;
    std::unique_ptr<Streams> streams_;
    int process_ = -1;
    int status_ = 0;
    bool ended_ = false;
};

}  // namespace mdlPLM::test
