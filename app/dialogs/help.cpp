#include "app/dialogs/help.h"

#include <array>

#include "core/platform/path.h"

namespace mdlPLM {

Text HelpFilePath(TextView programFolder, Disk& disk) {
    Text beside = JoinPath(programFolder, HelpFileName);
    if (disk.Exists(beside)) return beside;
    Text installed(programFolder);
    for (TextView part : {u"..", u"share", u"pellmore"}) installed = JoinPath(installed, part);
    installed = JoinPath(installed, HelpFileName);
    return disk.Exists(installed) ? installed : beside;
}

}  // namespace mdlPLM
