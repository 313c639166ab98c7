// The rename run of the name-from-text window: one pair, or a piece of what a pair leaves to do,
// per step, without a window. The i-th old file gets the i-th new name in its own folder and, when
// asked for, tags; its attributes come last, because one that is read-only takes no tags.
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "app/namefromtext/filled_tags.h"
#include "app/sort/file_mover.h"
#include "core/names/own_files.h"
#include "core/platform/disk.h"
#include "core/platform/prompts.h"
#include "core/tags/save_group.h"
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
    Language Words = {};  ///< why a file is not renamed or tagged is said in it
};

struct RunFailure {
    Text Path;
    Text Reason;
    std::size_t Pair = 0;  ///< its place
};

struct RenameReport {
    std::size_t Renamed = 0;           ///< renamed, or bearing the new name already
    std::size_t Kept = 0;              ///< left alone for the sake of a file that exists
    std::size_t Missing = 0;           ///< old file not there
    std::vector<RunFailure> Failures;  ///< in the order of the pairs
    bool Cancelled = false;            ///< ended by Cancel in a question
    bool Stopped = false;              ///< ended by the stop flag
    bool Completed = false;            ///< every pair was done: the closing steps are due
};

/// "3 renamed, 1 kept, 2 failed": the line under the lists after a run.
Text SummaryText(const RenameReport& report, const Language& words = {});

class RenameRun {
public:
    /// `settings` are those of this moment; `disk` and `prompts` must outlive the run.
    RenameRun(std::vector<RenamePair> pairs, RunChoices choices, Settings settings, Disk& disk,
              Prompts& prompts);
    RenameRun(const RenameRun&) = delete;
    RenameRun& operator=(const RenameRun&) = delete;
    /// Tags are saved through `writer`, which must outlive the run, instead of into the files.
    void WriteTagsThrough(TagWriter& writer) { writer_ = &writer; }

    [[nodiscard]] std::size_t Total() const { return pairs_.size(); }
    /// Pairs that were handled; the tags of the last ones may not be written yet.
    [[nodiscard]] std::size_t Done() const { return done_; }
    /// Pairs of which all is done, and all that failed is in the report.
    [[nodiscard]] std::size_t Settled() const { return settled_; }
    [[nodiscard]] bool Finished() const { return ended_ && settled_ == done_; }
    /// The next pair that is handled; only while there is one.
    [[nodiscard]] const RenamePair& Next() const { return pairs_[done_]; }
    /// Handles the next pair, or a piece of what has to be done before. False when the run has
    /// ended.
    bool Step();
    /// The stop flag: no further pair is begun, and the closing steps are not due. Tags that wait
    /// to be written are written in the steps that follow.
    void Stop();
    [[nodiscard]] const RenameReport& Report() const { return report_; }

private:
    struct OwnTags;
    /// A pair whose tags are being saved, and what is to be done then.
    struct Unsettled {
        std::size_t Pair = 0;
        Text Tagged;            ///< the path that the tags go to
        Text Attributed;        ///< the path that gets its attributes; empty: none
        std::size_t Saves = 0;  ///< results that are to come
    };

    void HandlePair(const RenamePair& pair);
    [[nodiscard]] Message NoNameLeft(const RenamePair& pair) const;
    void HandleFile(const RenamePair& pair, Unsettled& left);
    MoverRules MovingRules();
    [[nodiscard]] bool IsWaiting(TextView path) const;
    [[nodiscard]] bool SetsAttributes() const;
    void LiftProtection(const Text& path);
    void SetAttributes(const Text& path);
    OwnTags ReadOwnTags(const Text& path);
    void ReadOpenTags(const Text& path, OwnTags& own);
    std::size_t WriteTags(OwnTags& own, const RenamePair& pair, const Text& newPath);
    void SaveV1(File& file, const Text& path, const ID3v1Tag& tag);
    void SaveV2(File& file, const Text& path, const ID3v2Tag& tag);
    bool OpenAgain(File& file, const Text& path);
    void CommitTags();
    void Settle();
    void SettleFirst();
    /// `moved`: nothing for a file that is not there.
    void Count(std::optional<MoveResult> moved, const RenamePair& pair);
    void Fail(TextView path, const Message& message);
    void FailWith(TextView path, ErrorNumber number);

    std::vector<RenamePair> pairs_;
    RunChoices choices_;
    Settings settings_;
    Disk& disk_;
    Prompts& prompts_;
    TagWriter* writer_ = nullptr;  // none: into the files
    OwnFiles own_;
    FileMover mover_;
    SaveGroup group_;
    std::deque<SaveResult> results_;  // known, and not told yet
    std::deque<Unsettled> unsettled_;
    std::size_t done_ = 0;
    std::size_t settled_ = 0;
    bool ended_ = false;  // no further pair is begun
    RenameReport report_;
};

}  // namespace mdlPLM
