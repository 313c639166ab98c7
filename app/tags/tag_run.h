// Tags of many files, a file or a piece of one per step, so that a window can show how far it is
// and stop it. Each file is read and changed before the next; those that are written anew get their
// names some at a time (see save_group.h), and what became of a file is told only then.
#pragma once

#include <functional>
#include <vector>

#include "app/list/file_failures.h"
#include "core/tags/file_tags.h"
#include "core/tags/save_group.h"

namespace mdlPLM {

struct TagReport {
    std::vector<std::size_t> Written;  ///< places of the paths of the files that were written
    std::size_t Unchanged = 0;         ///< files on which there was nothing to do
    std::vector<FileFailure> Failures;
    bool Stopped = false;
};

/// What became of one file.
struct TagOutcome {
    std::size_t Place = 0;  ///< of its path
    TextView Path;
    SaveOutcome Outcome = SaveOutcome::NoWork;
    Text Reason;  ///< when it failed
};

class TagRun {
public:
    /// Works out the change of a file from what it holds.
    using Edit = std::function<TagChange(TextView path, const FileTags& tags)>;

    TagRun(std::vector<Text> paths, Edit edit, Language words = {});
    /// Tags are saved through `writer`, which must outlive the run, instead of into the files.
    void WriteThrough(TagWriter& writer) { writer_ = &writer; }

    /// `tell` gets the outcome of every file, in the order of the paths.
    using Tell = std::function<void(const TagOutcome& outcome)>;
    void TellEach(Tell tell) { tell_ = std::move(tell); }

    /// Handles the next file, or a piece of what has to be done before; false when the run is
    /// finished.
    bool Step();
    /// No further file is begun; those that wait for their names get them in the steps that follow.
    void Stop();
    [[nodiscard]] bool Finished() const { return AllBegun() && told_ == done_; }
    /// Files that were handled; what became of the last ones may not be known yet.
    [[nodiscard]] std::size_t Done() const { return done_; }
    [[nodiscard]] std::size_t Total() const { return paths_.size(); }
    /// The next file that is handled; empty at the end.
    [[nodiscard]] const Text& Current() const;
    [[nodiscard]] const TagReport& Report() const { return report_; }

private:
    [[nodiscard]] bool AllBegun() const { return stopped_ || done_ == paths_.size(); }
    void ChangeFile(TextView path);
    SaveResult ChangeClosedFile(TextView path);
    void TakeResults();
    void Count(const SaveResult& result);

    std::vector<Text> paths_;
    Edit edit_;
    Language words_;
    TagWriter* writer_ = nullptr;  // none: into the files
    Tell tell_;
    SaveGroup group_;
    std::size_t done_ = 0;
    std::size_t told_ = 0;
    bool stopped_ = false;
    TagReport report_;
};

/// Reads the tags of a file for a change of them: its texts and its tag text. The first error, or
/// FileNotFound for a missing file, stands for a file that must not be written.
Status ReadForChange(TextView path, FileTags& tags);

/// The same, and keeps it open and locked for a save in `group`.
SaveResult OpenForChange(SaveGroup& group, TextView path, File& file, FileTags& tags);

/// The one message at the end: names the files that failed and why; empty when none did. Behind the
/// first ones it says how many more there are.
Text TagFailureText(const std::vector<FileFailure>& failures, const Language& words = {});

/// "12 done, 3 skipped, 1 failed": the status line after a run.
Text TagSummaryText(const TagReport& report, const Language& words = {});

}  // namespace mdlPLM
