#pragma once

#include <QString>

#include "app/shared/app_context.h"

namespace mdlPLM {

/// The result of a run, and behind it what killed runs have left behind and was removed since this
/// was asked last; without that the result alone. An empty result leaves the rest to stand alone.
QString WithRemovedLeftOvers(const QString& result, AppContext& context);

}  // namespace mdlPLM
