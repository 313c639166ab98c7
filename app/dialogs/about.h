// The about box.
#pragma once

#include "core/platform/prompts.h"

namespace mdlPLM {

/// Its text, by the version numbers of the build.
Message AboutMessage(int major, int revision);

}  // namespace mdlPLM
