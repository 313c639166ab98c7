// Tags of many files, one file per step: read, changed and written before the next, so that a
// window can show how far it is and stop it.
#pragma once

#include <functional>
#include <vector>

#include "app/list/file_failures.h"
#include "core/tags/file_tags.h"
#include "core/tags/save_tags.h"

namespace mdlPLM {

struct TagReport {
    std::vector<std::size_t> Written;  ///< places of the paths of the files that were written
    std::size_t Unchanged = 0;         ///< files on which there was nothing to do
    std::vector<FileFailure> Failures;
    bool Stopped = false;
};

class TagRun {
public:
    /// Works out the change of a file from what it holds.
    using Edit = std::function<TagChange(TextView path, const FileTags& tags)>;

    TagRun(std::vector<Text> paths, Edit edit, Language words = {});
    /// Tags are saved through `writer`, which must outlive the run, instead of into the files.
    void WriteThrough(TagWriter& writer) { writer_ = &writer; }

    /// Handles the next file; false when the run is finished.
    bool Step();
    /// No further file is begun.
    void Stop();
    [[nodiscard]] bool Finished() const { return stopped_ || done_ == paths_.size(); }
    [[nodiscard]] std::size_t Done() const { return done_; }
    [[nodiscard]] std::size_t Total() const { return paths_.size(); }
    /// The file that the next step handles; empty at the end.
    [[nodiscard]] const Text& Current() const;
    [[nodiscard]] const TagReport& Report() const { return report_; }

private:
    SaveResult ChangeFile(TextView path);
    SaveResult ChangeClosedFile(TextView path);

    std::vector<Text> paths_;
    Edit edit_;
    Language words_;
    TagWriter* writer_ = nullptr;  // none: into the files
    std::size_t done_ = 0;
    bool stopped_ = false;
    TagReport report_;
};

/// Reads the tags of a file for a change of them: its texts and its tag text. The first error, or
/// FileNotFound for a missing file, stands for a file that must not be written.
Status ReadForChange(TextView path, FileTags& tags);

/// The one message at the end: names the files that failed and why; empty when none did. Behind the
/// first ones it says how many more there are.
Text TagFailureText(const std::vector<FileFailure>& failures, const Language& words = {});

/// "12 done, 3 skipped, 1 failed": the status line after a run.
Text TagSummaryText(const TagReport& report, const Language& words = {});

}  // namespace mdlPLM
