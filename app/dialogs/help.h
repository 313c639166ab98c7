// Where the help text is.
#pragma once

#include "core/platform/disk.h"

namespace mdlPLM {

inline constexpr TextView HelpFileName = u"plm.txt";

/// The help text beside the program, or where an installation puts it ("../share/pellmore"). One
/// that is nowhere has its place beside the program: who opens it says that it is missing.
Text HelpFilePath(TextView programFolder, Disk& disk);

}  // namespace mdlPLM
