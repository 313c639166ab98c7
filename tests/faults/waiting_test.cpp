// What the program waits for, and what it takes again when a signal comes between.
#include <gtest/gtest.h>

#include <cerrno>
#include <iostream>

#include "app/list/folder_walk.h"
#include "app/tags/tag_run.h"
#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "tests/faults/fault_run.h"
#include "tests/support/run_failures.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::test {
namespace {

struct Place {
    TempFolder Folder;
    Text Under = Folder.Folder(u"under") + u"/";

    StruckRun Run(const FaultPlan& plan, const std::function<int()>& work) const {
        return RunStruck(plan, Under, Folder.Path(), work);
    }
};

enum class Wait { No, Asked };

int CopyOne(TextView to, IfTargetExists ifExists, Wait wait) {
    SystemDisk disk;
    std::unique_ptr<PiecewiseCopy> copy;
    if (const Status begun = disk.BeginCopy(u"one", to, ifExists, copy); !begun.Ok()) return 1;
    if (wait == Wait::Asked) copy->WaitForDisk();
    for (bool done = false; !done;)
        if (const Status status = copy->Step(done); !status.Ok()) return 2;
    return 0;
}

/// The disk says that it could not keep what was written.
const FaultPlan NothingKept{"fail", 0, 0, {}, {"always=fsync 5"}};

TEST(Waiting, WhatReplacesAFileIsOnTheDiskBeforeItTakesTheName) {
    const Place place;
    WriteFile(place.Under + u"one", "new");
    WriteFile(place.Under + u"two", "old");
    const auto copy = [] { return CopyOne(u"two", IfTargetExists::Replace, Wait::No); };
    EXPECT_EQ(place.Run(NothingKept, copy).Status, 2);
    EXPECT_EQ(ReadTree(place.Under), (std::map<Bytes, Bytes>{{"one", "new"}, {"two", "old"}}));
    EXPECT_EQ(place.Run({}, copy).Status, 0);
    EXPECT_EQ(ReadFile(place.Under + u"two"), "new");
}

TEST(Waiting, WhatIsMovedIsOnTheDiskBeforeItTakesTheName) {
    const Place place;
    WriteFile(place.Under + u"one", "new");
    const auto copy = [] { return CopyOne(u"two", IfTargetExists::Fail, Wait::Asked); };
    EXPECT_EQ(place.Run(NothingKept, copy).Status, 2);
    EXPECT_EQ(ListTree(place.Under), std::vector<Bytes>{"one"});
    EXPECT_EQ(place.Run({}, copy).Status, 0);
}

TEST(Waiting, APlainCopyDoesNotWait) {
    const Place place;
    WriteFile(place.Under + u"one", "new");
    const auto copy = [] { return CopyOne(u"two", IfTargetExists::Fail, Wait::No); };
    EXPECT_EQ(place.Run(NothingKept, copy).Status, 0);
    EXPECT_EQ(ReadFile(place.Under + u"two"), "new");
}

// The words of each failure, a line each.
int TagFiles(const std::vector<Text>& paths) {
    TagRun run(paths, [](TextView, const FileTags&) {
        TagChange change;
        change.V2.Title = "New title";
        change.Modes.V2 = TagMode::Write;
        return change;
    });
    while (run.Step()) continue;
    const std::vector<FileFailure> failures = FailuresOf(run.Report());
    for (const FileFailure& failure : failures)
        std::cerr << NativePath(failure.Path + u": " + failure.Reason) << std::endl;
    return static_cast<int>(failures.size());
}

// An error that stays, a quota that shows only when the disk is asked: the whole batch.
TEST(Waiting, TagsThatAreWrittenAnewAreOnTheDiskBeforeTheNameIsTaken) {
    const std::map<Bytes, Bytes> before = {{"one", Noise(500)},
                                           {"three", Noise(500)},
                                           {"two", WholeTag(TextFrame("TIT2", "a")) + Noise(500)}};
    for (const auto& [plan, reason] :
         {std::pair{NothingKept, "Device I/O error"},
          std::pair{FaultPlan{"fail", 0, 0, {}, {"always=fsync 122"}}, "Disk full"}}) {
        const Place place;
        for (const auto& [name, contents] : before)
            WriteFile(place.Under + PathFromNative(name), contents);
        const auto tag = [] { return TagFiles({u"one", u"two", u"three"}); };
        const StruckRun failed = place.Run(plan, tag);
        EXPECT_EQ(failed.Status, 3);
        EXPECT_EQ(failed.Errors,
                  Bytes("one: ") + reason + "\ntwo: " + reason + "\nthree: " + reason + "\n");
        EXPECT_TRUE(ReadTree(place.Under) == before);
        EXPECT_EQ(place.Run({}, tag).Status, 0);
        for (const auto& [name, contents] : ReadTree(place.Under)) {
            EXPECT_EQ(contents.substr(0, 3), "ID3");
            EXPECT_EQ(contents.substr(contents.size() - 500), Noise(500));
        }
    }
}

TEST(Waiting, TagsThatAreWrittenInPlaceDoNotWait) {
    const Place place;
    WriteFile(place.Under + u"one", WholeTag(TextFrame("TIT2", "a"), 200) + Noise(500));
    EXPECT_EQ(place.Run(NothingKept, [] { return TagFiles({u"one"}); }).Status, 0);
    EXPECT_NE(ReadFile(place.Under + u"one").find("New title"), Bytes::npos);
}

TEST(Interrupted, OpeningAFolderIsTakenAgain) {
    const Place place;
    WriteFile(place.Under + u"a.mp3", "a");
    WriteFile(place.Under + u"sub/b.mp3", "b");
    const Text under = place.Under;
    const auto walk = [under] {
        FolderWalk folders(under, u"mp3");
        std::vector<Text> paths;
        while (!folders.Finished()) folders.Step(paths);
        return static_cast<int>(paths.size());
    };
    bool opened = false;
    FaultPlan plan{"interrupt", 1, EINTR, {}, {}};
    for (; plan.At < 100; ++plan.At) {
        const StruckRun run = place.Run(plan, walk);
        EXPECT_EQ(run.Status, 2) << run.Struck;
        opened = opened || run.Struck.rfind("opendir", 0) == 0;
        if (run.Struck.empty()) break;
    }
    EXPECT_TRUE(opened);
    EXPECT_LT(plan.At, 100);
}

}  // namespace
}  // namespace mdlPLM::test
