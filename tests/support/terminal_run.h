// A program run at a terminal, with somebody who answers.
#pragma once

#include "tests/support/run_program.h"

namespace mdlPLM::test {

/// Waits for a text to appear behind what was seen before, then types.
struct TerminalStep {
    Bytes WaitFor;
    Bytes Type;
};

/// Runs the program with all three streams on one terminal of 80 columns; Out is everything that
/// appeared there (what was typed included), Input is not used. Throws when a text that is waited
/// for does not come before the program ends.
ProgramResult RunAtTerminal(const ProgramCall& call, const std::vector<TerminalStep>& steps);

}  // namespace mdlPLM::test
