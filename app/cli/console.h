// Where the command line writes and reads, as an interface: the streams of the process, or those of
// a test.
#pragma once

#include "core/text/text.h"

namespace mdlPLM::cli {

/// What is known of the streams before anything is written.
struct Terminals {
    bool Out = false;     ///< standard output is a terminal
    bool Errors = false;  ///< the error stream is a terminal that can move its cursor
    bool Ask = false;     ///< questions can be put: standard input and the error stream are one
    int Columns = 80;     ///< width of the error stream's terminal
};

class Console {
public:
    virtual ~Console() = default;
    [[nodiscard]] virtual Terminals Kinds() const = 0;
    /// Writes to standard output; may hold it back until Flush.
    virtual void Out(BytesView bytes) = 0;
    virtual void Flush() = 0;
    /// True as soon as standard output has refused something (a full disk, a closed pipe).
    [[nodiscard]] virtual bool OutFailed() const = 0;
    /// Writes to the error stream, behind all that was written to standard output before.
    virtual void Errors(BytesView bytes) = 0;
    /// One line of standard input without its end; false at the end and when interrupted.
    virtual bool ReadLine(Bytes& line) = 0;
    /// All of standard input.
    virtual Bytes ReadAll() = 0;
    /// True once the program has been asked to stop (Ctrl-C, a closed terminal, kill).
    [[nodiscard]] virtual bool Interrupted() const = 0;
};

}  // namespace mdlPLM::cli
