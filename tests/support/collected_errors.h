// What tag operations report, kept for the test to look at.
#pragma once

#include <vector>

#include "core/platform/errors.h"

namespace mdlPLM {

struct ReportedError {
    ErrorNumber Number;
    Text Path;
    friend bool operator==(const ReportedError& a, const ReportedError& b) {
        return a.Number == b.Number && a.Path == b.Path;
    }
};

class CollectedErrors final : public ErrorSink {
public:
    void Report(ErrorNumber number, TextView path) override {
        Errors.push_back({number, Text(path)});
    }
    [[nodiscard]] bool Empty() const { return Errors.empty(); }

    std::vector<ReportedError> Errors;
};

}  // namespace mdlPLM
