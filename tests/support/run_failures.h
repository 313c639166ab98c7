// What a run could not do, as tests compare it: the path and the reason in words.
#pragma once

#include <vector>

#include "app/list/file_failures.h"
#include "app/list/run_texts.h"

namespace mdlPLM {

inline bool operator==(const FileFailure& a, const FileFailure& b) {
    return a.Path == b.Path && a.Reason == b.Reason;
}

inline std::vector<FileFailure> FailuresOf(const RunReport& report) {
    std::vector<FileFailure> failures;
    for (const FileOutcome& file : report.Files)
        if (file.What == FileFate::Failed) failures.push_back({file.Path, ReasonText(file.Reason)});
    return failures;
}

/// Places of the files that were done.
inline std::vector<std::size_t> PlacesDone(const RunReport& report) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < report.Files.size(); ++i)
        if (report.Files[i].What == FileFate::Done) places.push_back(i);
    return places;
}

}  // namespace mdlPLM
