// The rename run of the name-from-text window: one pair per step, without a window. The i-th old
// file gets the i-th new name in its own folder and, when asked for, tags.
#pragma once

#include <vector>

#include "app/namefromtext/filled_tags.h"
#include "core/names/own_files.h"
#include "core/platform/disk.h"
#include "core/platform/prompts.h"
#include "core/tags/save_tags.h"
#include "core/text/language.h"

namespace mdlPLM {

/// Asks when the counts of the two lists differ. True when the run may begin; without a new name
/// there is nothing to do.
bool MayRename(std::size_t oldFiles, std::size_t newNames, Prompts& prompts);

struct RenamePair {
    Text OldPath;
    Text NewName;
};

struct RunChoices {
    RunTagChoices Tags;
    bool chkSaveID3v1 = false;
    bool chkSaveID3v2 = false;
    bool chkConvert = false;  ///< the main window's "Fix Filenames": attributes are set with it
    IfExists Exists = IfExists::Prompt;
    Language Words;  ///< why a file is not renamed is said in it
};

struct RunFailure {
    Text Path;
    Text Reason;
};

struct RunReport {
    std::size_t Renamed = 0;  ///< renamed, or bearing the new name already
    std::size_t Kept = 0;     ///< left alone for the sake of a file that exists
    std::size_t Missing = 0;  ///< old file not there
    std::vector<RunFailure> Failures;
    bool Cancelled = false;  ///< ended by Cancel in a question
    bool Stopped = false;    ///< ended by the stop flag
    bool Completed = false;  ///< every pair was done: the closing steps are due
};

/// "3 renamed, 1 kept, 2 failed": the line under the lists after a run.
Text SummaryText(const RunReport& report, const Language& words = {});

class RenameRun {
public:
    /// `settings` are those of this moment; `disk` and `prompts` must outlive the run.
    RenameRun(std::vector<RenamePair> pairs, RunChoices choices, Settings settings, Disk& disk,
              Prompts& prompts);
    /// Tags are saved through `writer`, which must outlive the run, instead of into the files.
    void WriteTagsThrough(TagWriter& writer) { writer_ = &writer; }

    [[nodiscard]] std::size_t Total() const { return pairs_.size(); }
    [[nodiscard]] std::size_t Done() const { return done_; }
    [[nodiscard]] bool Finished() const { return finished_; }
    /// The pair that the next step handles; only while the run is not finished.
    [[nodiscard]] const RenamePair& Next() const { return pairs_[done_]; }
    /// Handles the next pair. False when the run has ended.
    bool Step();
    /// The stop flag: no further pair is begun, and the closing steps are not due.
    void Stop();
    [[nodiscard]] const RunReport& Report() const { return report_; }

private:
    enum class Outcome { Named, Kept, Missing, Failed, Cancelled };
    struct OwnTags;

    void HandlePair(const RenamePair& pair);
    [[nodiscard]] Message NoNameLeft(const RenamePair& pair) const;
    Outcome RenameTo(const RenamePair& pair, const Text& newPath);
    Outcome RenameFile(const RenamePair& pair, const Text& newPath, IfTargetExists ifExists);
    Outcome TakeExistingTarget(const RenamePair& pair, const Text& newPath);
    void SetAttributes(TextView path);
    OwnTags ReadOwnTags(TextView path);
    void WriteTags(const OwnTags& own, const RenamePair& pair, const Text& newPath);
    SaveResult SaveV1(const Text& path, const ID3v1Tag& tag);
    SaveResult SaveV2(const Text& path, const ID3v2Tag& tag);
    void Note(const Text& path, SaveResult result);
    void CountOutcome(Outcome outcome);
    void Fail(TextView path, const Message& message);
    void FailWith(TextView path, ErrorNumber number);

    std::vector<RenamePair> pairs_;
    RunChoices choices_;
    Settings settings_;
    Disk& disk_;
    Prompts& prompts_;
    TagWriter* writer_ = nullptr;  // none: into the files
    OwnFiles own_;
    std::size_t done_ = 0;
    bool finished_ = false;
    RunReport report_;
};

}  // namespace mdlPLM
