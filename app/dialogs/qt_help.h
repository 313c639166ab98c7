// Opens the help text.
#pragma once

#include <QString>

#include "app/dialogs/help.h"

namespace mdlPLM {

/// Opens the help text in the system's own program for text files. Empty when that was started; a
/// missing help text is its to report. Else one line for the status line.
QString OpenHelp(TextView programFolder, Disk& disk);

}  // namespace mdlPLM
