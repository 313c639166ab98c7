// What a run could not do, as tests compare it: the path and the reason in words.
#pragma once

#include <vector>

#include "app/list/run_texts.h"

namespace mdlPLM {

struct NamedFailure {
    Text Path;
    Text Reason;
};

inline bool operator==(const NamedFailure& a, const NamedFailure& b) {
    return a.Path == b.Path && a.Reason == b.Reason;
}

inline std::vector<NamedFailure> FailuresOf(const RunReport& report) {
    std::vector<NamedFailure> failures;
    for (const FileOutcome& file : report.Files)
        if (file.What == FileFate::Failed) failures.push_back({file.Path, ReasonText(file.Reason)});
    return failures;
}

}  // namespace mdlPLM
