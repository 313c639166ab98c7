// Work on many files, taken in small steps so that a window answers in between, and what became of
// each file: the one record that windows, the command line and tests read.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/platform/errors.h"
#include "core/platform/prompts.h"

namespace mdlPLM {

enum class FileFate {
    Done,
    Unchanged,  ///< it was as it should be already
    Skipped,
    Failed,
};

/// Why a file was skipped, or failed.
enum class Why {
    None,
    TargetExists,      ///< there is a file of its new name, and that one is left alone
    Missing,           ///< the file is not there
    NoArtist,          ///< its name has no artist to sort it by
    NoNameLeft,        ///< its new name would be nothing but an extension; Detail: that name
    SourceStays,       ///< it was copied, but the file that was to be moved could not be removed
    AnotherWrites,     ///< another program is writing to it
    ChangedMeanwhile,  ///< it is not any more what was read
    GivenUp,           ///< the work on it was stopped
    SystemError,       ///< see Error; Detail: what it happened with, when that is not the file
};

struct Cause {
    Why What = Why::None;
    ErrorNumber Error = ErrorNumber::None;
    Text Detail = {};

    [[nodiscard]] bool Any() const { return What != Why::None; }
};

struct FileOutcome {
    Text Path = {};
    Text NewPath = {};  ///< where it is now, or would have gone; empty: nowhere else
    FileFate What = FileFate::Done;
    Cause Reason = {};      ///< when it was skipped, or failed
    bool Replaced = false;  ///< a file that stood in the new place was replaced
    Text Question = {};     ///< what the user was asked about it, if anything
    std::optional<Answer> Answered = {};
    bool Folder = false;  ///< not a file of the run but a folder that could not be made for it
};

struct RunReport {
    std::vector<FileOutcome> Files = {};        ///< in the order in which they were settled
    std::optional<FileOutcome> Cancelled = {};  ///< the file at whose question the user gave up
    bool Stopped = false;                       ///< ended by the stop flag

    [[nodiscard]] std::size_t Count(FileFate what) const;
    /// True when the run did not come to its end.
    [[nodiscard]] bool Broken() const { return Stopped || Cancelled.has_value(); }
};

struct RunProgress {
    Text What = {};              ///< the work as a whole, for a status line
    std::size_t Done = 0;        ///< files looked at
    std::size_t Total = 0;       ///< 0: cannot be told
    Text Each = {};              ///< what is done to the present file: "Copying file:"
    Text Source = {};            ///< the present file (path)
    Text Target = {};            ///< where it goes (path)
    std::int64_t FileDone = 0;   ///< bytes of the present file
    std::int64_t FileTotal = 0;  ///< 0: it is not done in pieces
};

/// Whoever drives it calls Step until that is false, Publish now and then, and Finish at the end.
class Run {
public:
    virtual ~Run() = default;
    /// One file, one folder, a piece of a large file; false when nothing is left.
    virtual bool Step() = 0;
    /// Brings what the steps have found to where it is shown.
    virtual void Publish() {}
    /// The end, reached by itself or because the user `stopped` it.
    virtual void Finish(bool /*stopped*/) { Publish(); }
    /// Asked to end. True when it may be ended at once; else it ends by itself, soon, in Step.
    virtual bool Stop() { return true; }
    [[nodiscard]] virtual RunProgress Progress() const = 0;
    [[nodiscard]] const RunReport& Report() const { return report_; }

protected:
    Run() = default;
    Run(const Run&) = default;
    Run(Run&&) = default;
    Run& operator=(const Run&) = default;
    Run& operator=(Run&&) = default;

    RunReport report_;
};

}  // namespace mdlPLM
