// The numbers of the errors that were reported, in their order.
#pragma once

#include "tests/support/collected_errors.h"

namespace mdlPLM::test {

inline std::vector<ErrorNumber> NumbersOf(const CollectedErrors& errors) {
    std::vector<ErrorNumber> numbers;
    for (const ReportedError& error : errors.Errors) numbers.push_back(error.Number);
    return numbers;
}

}  // namespace mdlPLM::test
