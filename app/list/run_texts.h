// What a run did, in words.
#pragma once

#include "app/list/run.h"
#include "core/text/language.h"

namespace mdlPLM {

/// In what the words of the runs differ.
struct RunWording {
    /// What a file counts as that was as it should be already.
    FileFate Unchanged = FileFate::Done;
    const char* OneFailed = "";   ///< the heading above the one file that failed
    const char* ManyFailed = "";  ///< above several, with their number
};

/// Why a file was skipped, or failed; on one line. Empty without a reason.
Text ReasonText(const Cause& reason, const Language& words = {});

/// "12 done, 3 skipped, 1 failed": the status line after a run.
Text SummaryText(const RunReport& report, const RunWording& wording, const Language& words = {});

/// What became of every file, one line each, for a text that can be scrolled.
Text DetailsText(const RunReport& report, const RunWording& wording, const Language& words = {});

/// The one message at the end that names what failed and why; empty when nothing failed. It stays
/// short enough for a box: behind the first failures it says how many more there are.
Text FailureText(const RunReport& report, const RunWording& wording, const Language& words = {});

}  // namespace mdlPLM
