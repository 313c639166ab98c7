// Tags of many files, a file or a piece of one per step, so that a window can show how far it is
// and stop it. Each file is read and changed before the next; those that are written anew get their
// names some at a time (see save_group.h), and what became of a file is told only then.
#pragma once

#include <functional>
#include <vector>

#include "app/list/run_texts.h"
#include "core/platform/left_overs.h"
#include "core/tags/file_tags.h"
#include "core/tags/save_group.h"

namespace mdlPLM {

/// Its records are in the order of the paths.
class TagRun : public Run {
public:
    /// Works out the change of a file from what it holds.
    using Edit = std::function<TagChange(TextView path, const FileTags& tags)>;

    TagRun(std::vector<Text> paths, Edit edit);
    /// Tags are saved through `writer`, which must outlive the run, instead of into the files.
    void WriteThrough(TagWriter& writer) { writer_ = &writer; }

    /// What the work is called while it is under way.
    void SetName(Text what) { what_ = std::move(what); }
    /// What killed runs have left beside the files is removed on the way. `leftOvers` must outlive
    /// the run.
    void Tidy(LeftOvers& leftOvers) { leftOvers_ = &leftOvers; }

    /// Handles the next file, or a piece of what has to be done before; false when the run is
    /// finished.
    bool Step() override;
    /// No further file is begun; those that wait for their names get them in the steps that follow.
    bool Stop() override;
    [[nodiscard]] RunProgress Progress() const override { return {what_, done_, paths_.size()}; }
    [[nodiscard]] bool Finished() const { return AllBegun() && report_.Files.size() == done_; }
    /// Files that were handled; what became of the last ones may not be known yet.
    [[nodiscard]] std::size_t Done() const { return done_; }
    [[nodiscard]] std::size_t Total() const { return paths_.size(); }
    /// The next file that is handled; empty at the end.
    [[nodiscard]] const Text& Current() const;

private:
    [[nodiscard]] bool AllBegun() const { return stopped_ || done_ == paths_.size(); }
    void ChangeFile(TextView path);
    SaveResult ChangeClosedFile(TextView path);
    void TakeResults();
    [[nodiscard]] FileOutcome OutcomeOf(const SaveResult& result) const;

    std::vector<Text> paths_;
    Edit edit_;
    Text what_;
    TagWriter* writer_ = nullptr;  // none: into the files
    LeftOvers* leftOvers_ = nullptr;
    SaveGroup group_;
    std::size_t done_ = 0;
    bool stopped_ = false;
};

/// Why a save failed.
Cause CauseOf(const SaveResult& result);

/// Reads the tags of a file for a change of them: its texts and its tag text. The first error, or
/// FileNotFound for a missing file, stands for a file that must not be written.
Status ReadForChange(TextView path, FileTags& tags);

/// The same, and keeps it open and locked for a save in `group`.
SaveResult OpenForChange(SaveGroup& group, TextView path, File& file, FileTags& tags);

/// How a run over tags speaks of itself.
extern const RunWording TagWording;

}  // namespace mdlPLM
