// What a command tells: its results on standard output, as lines for people or as JSON objects;
// what failed, and how far it is, on the error stream.
#pragma once

#include <chrono>
#include <vector>

#include "app/cli/console.h"
#include "app/cli/json_object.h"

namespace mdlPLM::cli {

/// The exit statuses of the program.
enum ExitStatus : int { AllDone = 0, SomeFailed = 1, UsedWrongly = 2 };

/// The name in front of every message.
inline constexpr BytesView ProgramName = "pellmore-cli";

struct ReportStyle {
    bool Json = false;
    bool DryRun = false;
};

/// A text that cannot act on a terminal: control characters but line feeds become "?".
Text Harmless(TextView text);

class Report {
public:
    Report(Console& console, ReportStyle style) : console_(console), style_(style) {}
    ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    [[nodiscard]] bool Json() const { return style_.Json; }
    [[nodiscard]] bool DryRun() const { return style_.DryRun; }

    /// A line of results for people; its end is added.
    void Line(BytesView line);
    /// An object of results for programs.
    void Object(const JsonObject& object);
    /// After each file of a command that changes files: what was written is to be seen soon, by
    /// whoever follows a log.
    void FlushSoon();

    /// A text for people: bytes in no encoding as they are; on a terminal, where they would act,
    /// control characters become "?".
    [[nodiscard]] Bytes Shown(TextView text) const;

    /// Names a file that failed, and why, on the error stream.
    void Fail(TextView path, TextView reason);
    /// A message that belongs to no file; does not change the exit status.
    void Tell(TextView message);
    /// Something went wrong that belongs to no file.
    void Fail(TextView message);
    /// The program was used wrongly.
    void Misuse(TextView message);

    /// True when it is time to show how far the work is: on a terminal, not more often than the eye
    /// can follow.
    [[nodiscard]] bool WantsProgress() const;
    /// Shows how far the work is, when that is wanted.
    void Progress(TextView text);
    /// Wipes the progress line away.
    void EndProgress();

    /// True when no further file should be begun: the user interrupted, or nobody takes the output.
    [[nodiscard]] bool ShouldStop() const;
    /// True while there are files to be done, `done` of `total` being done. An interruption before
    /// the last one is told.
    [[nodiscard]] bool MayBegin(std::size_t done, std::size_t total);
    [[nodiscard]] std::size_t Failures() const { return failures_; }
    /// The status that the results so far amount to.
    [[nodiscard]] ExitStatus Status() const;

private:
    void Error(TextView message);

    Console& console_;
    ReportStyle style_;
    std::size_t failures_ = 0;
    bool misused_ = false;
    bool progressShown_ = false;
    std::chrono::steady_clock::time_point lastProgress_;
    std::chrono::steady_clock::time_point lastFlush_;
};

}  // namespace mdlPLM::cli
