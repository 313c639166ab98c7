// Saving the settings store on behalf of a window.
#pragma once

#include "app/shared/app_context.h"

namespace mdlPLM {

/// Says that the settings could not be read, if so, and what holds instead. Nothing is said when
/// they are not saved later.
void TellUnreadSettings(AppContext& context, Status read);

/// Writes the store. A store that cannot be written is told to the user once while the program
/// runs, and the program goes on.
void SaveSettings(AppContext& context);

}  // namespace mdlPLM
