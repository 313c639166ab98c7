#include "tests/support/recording_disk.h"

#include <gtest/gtest.h>

#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

TEST(RecordingDisk, NotesCallsAndHandsThemOn) {
    const TempFolder folder;
    const Text a = folder.File(u"a", "one");
    RecordingDisk disk;
    EXPECT_TRUE(disk.Exists(a));
    EXPECT_TRUE(disk.Rename(a, folder / u"b", IfTargetExists::Fail).Ok());
    EXPECT_TRUE(disk.SetAttributes(folder / u"b", ReadOnly).Ok());
    EXPECT_EQ(disk.Calls().size(), 3U);
    ASSERT_EQ(disk.Changes().size(), 2U);
    EXPECT_EQ(disk.Changes()[0].To, folder / u"b");
    EXPECT_EQ(disk.Changes()[1].Attributes, ReadOnly);
    EXPECT_EQ(ReadFile(folder / u"b"), "one");
}

TEST(RecordingDisk, FailsTheCallItIsToldTo) {
    const TempFolder folder;
    const Text a = folder.File(u"a", "one");
    RecordingDisk disk;
    disk.FailCall(DiskOperation::CopyStep, ErrorNumber::DiskFull);
    std::unique_ptr<PiecewiseCopy> copy;
    ASSERT_TRUE(disk.BeginCopy(a, folder / u"b", IfTargetExists::Fail, copy).Ok());
    bool done = true;
    EXPECT_EQ(copy->Step(done).Number(), ErrorNumber::DiskFull);
    EXPECT_FALSE(done);
    copy.reset();
    EXPECT_EQ(ListTree(folder.Path()), std::vector<Bytes>{"a"});
    disk.FailCall(DiskOperation::DeleteFile, ErrorNumber::PermissionDenied, 1);
    EXPECT_TRUE(disk.DeleteFile(a).Ok());
    EXPECT_EQ(disk.DeleteFile(a).Number(), ErrorNumber::PermissionDenied);
}

TEST(MemoryDisk, BehavesLikeADisk) {
    MemoryDisk disk;
    disk.Folders = {u"/m"};
    disk.Files = {u"/m/a", u"/m/b"};
    EXPECT_TRUE(disk.IsFolder(u"/m/"));
    EXPECT_EQ(disk.Rename(u"/m/a", u"/m/b", IfTargetExists::Fail).Number(),
              ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(disk.Rename(u"/m/a", u"/n/a", IfTargetExists::Fail).Number(),
              ErrorNumber::PathNotFound);
    EXPECT_TRUE(disk.CreateFolder(u"/m/sub/").Ok());
    EXPECT_TRUE(disk.Rename(u"/m/a", u"/m/sub/a", IfTargetExists::Fail).Ok());
    disk.CopySteps = 2;
    std::unique_ptr<PiecewiseCopy> copy;
    ASSERT_TRUE(disk.BeginCopy(u"/m/b", u"/m/c", IfTargetExists::Fail, copy).Ok());
    bool done = false;
    EXPECT_TRUE(copy->Step(done).Ok());
    EXPECT_FALSE(done);
    EXPECT_TRUE(copy->Step(done).Ok());
    EXPECT_TRUE(done);
    EXPECT_EQ(disk.Files, (std::set<Text>{u"/m/b", u"/m/c", u"/m/sub/a"}));
}

TEST(ScriptedPrompts, AnswersInOrderAndRefusesToGuess) {
    ScriptedPrompts prompts({Answer::Yes, Answer::Cancel});
    EXPECT_EQ(prompts.AskYesNo({u"PLM", u"one", {}}), Answer::Yes);
    EXPECT_EQ(prompts.AskYesNoCancel({{}, u"two", {}}), Answer::Cancel);
    prompts.Inform({{}, u"three", {}});
    EXPECT_THROW(prompts.AskYesNo({{}, u"four", {}}), std::logic_error);
    EXPECT_EQ(prompts.Bodies(), (std::vector<Text>{u"one", u"two", u"three", u"four"}));
    EXPECT_EQ(prompts.Log[0].What.Title, u"PLM");
}

}  // namespace
}  // namespace mdlPLM
