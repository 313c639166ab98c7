// The commands. Each tells its results and failures through the session's report.
#pragma once

#include "app/cli/session.h"

namespace mdlPLM::cli {

void RunNames(Session& session);
void RunSort(Session& session);
void RunTags(Session& session);
void RunStream(Session& session);
void RunScan(Session& session);
void RunList(Session& session);
void RunSettings(Session& session);
void RunDemo(Session& session);

/// The command of the session's request, with the settings that it asks for.
void RunCommand(Session& session);

/// The whole program but for its streams: reads the arguments (the program's own name left out),
/// runs the command and gives the exit status.
int RunProgram(const std::vector<Bytes>& arguments, Console& console);

}  // namespace mdlPLM::cli
