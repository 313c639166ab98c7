// The work that faults are tried on: everything that changes files of the user.
#pragma once

#include <functional>
#include <iosfwd>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM::test {

/// How the files come through.
enum class Carries {
    Whole,         ///< every file holds what it held, or gives way to another one whole
    OldOrNew,  ///< every file has its old contents or its new ones, whole, under its name
    Audio,     ///< tags change around the audio
};

struct Scenario {
    const char* Name;
    void (*MakeFiles)(TextView folder);
    /// Done in that folder; the status as the programs have it.
    std::function<int()> Work;
    Carries How = Carries::Whole;
    /// How the disk is, in the words of failing_calls.h.
    std::vector<Bytes> Disk = {};
    /// Where a file goes depends on what can be read of it; its name does not.
    bool AnyFolder = false;
    /// A file that somebody else may make meanwhile, below the folder.
    const char* Target = nullptr;
};
void PrintTo(const Scenario& scenario, std::ostream* out);

const std::vector<Scenario>& Scenarios();

/// What every file's audio begins and ends with; between them is its own name.
extern const Bytes AudioBegin;
extern const Bytes AudioEnd;

}  // namespace mdlPLM::test
