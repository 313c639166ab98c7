// One piece of work in a process of its own, with one of its system calls struck.
#pragma once

#include <functional>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM::test {

/// See failing_calls.h for the words.
struct FaultPlan {
    Bytes What = "fail";
    long At = 0;  ///< 0: none is struck
    int Code = 0;
    Bytes Stranger;            ///< path
    std::vector<Bytes> Lines;  ///< how the disk is all the time
};

/// The plan in the words of ArmFaults; `under` with its trailing separator.
Bytes Rendered(const FaultPlan& plan, TextView under, TextView log);

struct StruckRun {
    static constexpr int Killed = -1;
    int Status = Killed;
    Bytes Out;
    Bytes Errors;
    Bytes Struck;  ///< the struck call and its path; empty: the work was done before that call
};

/// Runs `work` in a child process in the folder `under`. `aside` is a folder for what it prints.
StruckRun RunStruck(const FaultPlan& plan, TextView under, TextView aside,
                    const std::function<int()>& work);

}  // namespace mdlPLM::test
