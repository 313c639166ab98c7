// What the tests of the sort engine share: a folder with files, a list of them, a disk that writes
// down what is done to it, and the questions answered by a script.
#pragma once

#include <gtest/gtest.h>

#include <array>

#include "app/sort/sort_engine.h"
#include "core/platform/path.h"
#include "tests/support/recording_disk.h"
#include "tests/support/run_failures.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {

/// What came of a sort.
struct SortReport {
    std::size_t Handled = 0;  ///< entries that leave the list
    std::size_t Skipped = 0;  ///< entries that stay without a failure
    bool Cancelled = false;
    bool Stopped = false;
    std::vector<FileFailure> Failures;
};

inline SortReport ReportOf(const SortRun& run) {
    const RunReport& report = run.Report();
    const std::size_t allRight = report.Count(FileFate::Done) + report.Count(FileFate::Unchanged) +
                                 report.Count(FileFate::Skipped);
    return {run.Handled(), allRight - run.Handled(), report.Cancelled.has_value(), report.Stopped,
            FailuresOf(report)};
}

class SortTest : public ::testing::Test {
protected:
    static constexpr std::array<SortMethod, 3> Methods = {SortMethod::Copy, SortMethod::Move,
                                                          SortMethod::Rename};
    static constexpr std::array<IfExists, 3> Choices = {IfExists::Prompt, IfExists::Skip,
                                                        IfExists::Replace};

    SortTest() : target_(temp_.Folder(u"target")) {
        choices_.Method = SortMethod::Copy;
        choices_.txtTargetDir = target_;
        choices_.chkConvert = false;
        choices_.OutPattern = u"%artist - %title.mp3";
        settings_.InPattern = u"%artist - %title.mp3";
    }

    /// A file in the folder "in" that is put into the list and selected.
    Text Add(TextView name, BytesView contents = "sound") {
        Text path = temp_.File(u"in/" + Text(name), contents);
        AddPath(path);
        return path;
    }
    void AddPath(const Text& path) {
        list_.Append({path});
        list_.Select(list_.Count() - 1, true);
    }

    [[nodiscard]] NamingContext Context() const {
        return {settings_, replacements_, settings_.InPattern};
    }

    /// Runs a sort to its end.
    SortReport Sort(SortStart start = SortStart::All) {
        const NamingContext context = Context();
        SortRun run(list_, choices_, start, context, disk_, prompts_);
        while (run.Step()) {
        }
        EXPECT_TRUE(run.Finished());
        nextRow_ = run.NextRow();
        return ReportOf(run);
    }

    [[nodiscard]] std::vector<Text> Listed() const {
        std::vector<Text> names;
        for (FileList::Index row = 0; row < list_.Count(); ++row) {
            names.push_back(FileNameOfPath(list_.Path(row)));
        }
        return names;
    }
    [[nodiscard]] std::vector<Bytes> InTarget() const { return ListTree(target_); }
    [[nodiscard]] std::vector<Bytes> InSource() const { return ListTree(temp_ / u"in"); }

    TempFolder temp_;
    Text target_;
    Settings settings_;
    ReplacementList replacements_;
    RecordingDisk disk_;
    ScriptedPrompts prompts_;
    FileList list_;
    SortChoices choices_;
    FileList::Index nextRow_ = 0;
};

using Tree = std::vector<Bytes>;
using Names = std::vector<Text>;

inline SortReport Counts(std::size_t handled, std::size_t skipped = 0) {
    SortReport report;
    report.Handled = handled;
    report.Skipped = skipped;
    return report;
}

inline bool operator==(const SortReport& a, const SortReport& b) {
    return a.Handled == b.Handled && a.Skipped == b.Skipped && a.Cancelled == b.Cancelled &&
           a.Stopped == b.Stopped && a.Failures == b.Failures;
}

}  // namespace mdlPLM
