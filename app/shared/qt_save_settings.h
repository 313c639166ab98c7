// Saving the settings store on behalf of a window.
#pragma once

#include "app/shared/app_context.h"

namespace mdlPLM {

/// Writes the store. A store that cannot be written is told to the user once while the program
/// runs, and the program goes on.
void SaveSettings(AppContext& context);

}  // namespace mdlPLM
