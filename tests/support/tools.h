// Programs of the system that tests use as peers: encoders, taggers, probes.
#pragma once

#include <vector>

#include "core/text/text.h"

namespace mdlPLM::test {

/// What a program prints, errors included; throws when it cannot be run or ends with a failure.
/// The command is searched for in the user's path and given its arguments as they stand.
Bytes OutputOf(const std::vector<Bytes>& command);

/// One second of music encoded by a real encoder, without any tag (some 16 kB, 128 kbps joint
/// stereo, 44100 Hz). Made once per process.
const Bytes& RealMp3();

/// The checksum of the decoded samples of a file.
Bytes DecodedSamples(TextView path);

}  // namespace mdlPLM::test
