// Where the build put the programs under test, and where the sources lie.
#pragma once

#include "core/text/text.h"

namespace mdlPLM::test {

/// The real programs, as the system writes their paths.
Bytes ProgramFile();
Bytes CommandLineFile();

/// The library of system calls that fail on demand, to be loaded in front of a program.
Bytes FailingCallsFile();

/// The folder of the sources, and that of the files tests read.
Bytes SourceFolder();
Bytes TestDataFolder();

}  // namespace mdlPLM::test
