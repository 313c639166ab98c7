// Programs of the system that tests use as peers, and what they say.
#pragma once

#include <vector>

#include "core/text/text.h"

namespace mdlPLM::test {

/// What a program prints, errors included; throws when it cannot be run or ends with a failure.
/// The command is searched for in the user's path and given its arguments as they stand.
Bytes OutputOf(const std::vector<Bytes>& command);

/// The checksum of the decoded samples of a file.
Bytes DecodedSamples(TextView path);

}  // namespace mdlPLM::test
