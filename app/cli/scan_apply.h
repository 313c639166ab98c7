// Scanned names applied to files: the rename-and-tag run.
#pragma once

#include "app/cli/inputs.h"
#include "app/namefromtext/rename_run.h"

namespace mdlPLM::cli {

/// Gives the i-th file of the list the i-th name and, as the choices say, tags; prints a record for
/// each.
void ApplyNames(Session& session, const PathSpelling& spelling, const FileList& files,
                const std::vector<Text>& names, const RunChoices& choices);

}  // namespace mdlPLM::cli
