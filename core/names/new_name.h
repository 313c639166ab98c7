// Whether a name can be given to a file.
#pragma once

#include "core/settings/settings.h"
#include "core/text/language.h"

namespace mdlPLM {

/// True when a name is empty or nothing but its extension; blanks count as nothing. An extension
/// that the settings put behind a name without a dot has no dot either.
bool IsNothingLeft(TextView name, const Settings& settings);

/// Why a file cannot get this new name, in words; empty when it can.
Text FaultOfNewName(TextView name, const Settings& settings, const Language& words = {});

}  // namespace mdlPLM
