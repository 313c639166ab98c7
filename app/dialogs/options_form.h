// What the options dialog takes, without its widgets.
#pragma once

#include "core/text/text.h"

namespace mdlPLM {

/// True for the keys that the extension box swallows: 22, the key that pastes, and the characters
/// "\", "/", ":", "?", "<", ">" and "|".
bool IsForbiddenInExtension(char16_t c);

}  // namespace mdlPLM
