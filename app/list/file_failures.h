// Files that a piece of work could not handle, and how they are told.
#pragma once

#include <vector>

#include "core/text/language.h"

namespace mdlPLM {

struct FileFailure {
    Text Path;
    Text Reason;
};

/// The heading, the first of the files and how many there are beside them: what fits into a message
/// box.
Text FailureBox(Text heading, const std::vector<FileFailure>& failures, const Language& words);

}  // namespace mdlPLM
