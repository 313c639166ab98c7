// Opens the help text.
#pragma once

#include <QString>

#include "app/dialogs/help.h"

namespace mdlPLM {

/// Opens the help text in the system's own program for text files; a missing help text is its to
/// report. What is returned is for the status line and names the file in any case: whether
/// something came up that shows it is not known here.
QString OpenHelp(TextView programFolder, Disk& disk);

}  // namespace mdlPLM
