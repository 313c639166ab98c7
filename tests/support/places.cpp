// The one source that is compiled with the places, so that all others compile alike in every
// checkout.
#include "tests/support/places.h"

namespace mdlPLM::test {

Bytes ProgramFile() { return PLM_PROGRAM; }

Bytes CommandLineFile() { return PLM_CLI; }

Bytes FailingCallsFile() { return PLM_FAILING_CALLS; }

Bytes SourceFolder() { return PLM_SOURCE; }

Bytes TestDataFolder() { return SourceFolder() + "/tests/data"; }

}  // namespace mdlPLM::test
