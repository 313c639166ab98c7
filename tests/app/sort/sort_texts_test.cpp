#include "app/sort/sort_engine.h"
#include "tests/app/sort/sort_fixture.h"

using namespace mdlPLM;

namespace {

class TargetFolderCheck : public SortTest {
protected:
    bool Check() { return CheckTargetFolder(choices_, disk_, prompts_); }
    Text missing_ = target_ + u"/new";
};

}  // namespace

TEST_F(TargetFolderCheck, RenamingNeedsNoTargetFolder) {
    choices_.Method = SortMethod::Rename;
    choices_.txtTargetDir.clear();
    EXPECT_TRUE(Check());
    choices_.txtTargetDir = missing_;
    EXPECT_TRUE(Check());
    EXPECT_TRUE(prompts_.Log.empty());
    EXPECT_FALSE(IsThere(missing_));
}

TEST_F(TargetFolderCheck, AnExistingFolderPassesWithoutAQuestion) {
    for (const SortMethod method : {SortMethod::Copy, SortMethod::Move}) {
        choices_.Method = method;
        EXPECT_TRUE(Check());
    }
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(TargetFolderCheck, AnEmptyTargetIsRefusedWithAMessage) {
    for (const SortMethod method : {SortMethod::Copy, SortMethod::Move}) {
        prompts_.Log.clear();
        choices_.Method = method;
        choices_.txtTargetDir.clear();
        EXPECT_FALSE(Check());
        ASSERT_EQ(prompts_.Log.size(), 1U);
        EXPECT_EQ(prompts_.Log[0].Kind, PromptKind::Inform);
        EXPECT_EQ(prompts_.Log[0].What.Title, u"PLM");
        EXPECT_EQ(prompts_.Log[0].What.Body, u"You must choose a target directory first!");
    }
}

TEST_F(TargetFolderCheck, AMissingFolderIsCreatedOnYes) {
    choices_.txtTargetDir = missing_;
    prompts_.Answers = {Answer::Yes};
    EXPECT_TRUE(Check());
    EXPECT_EQ(InTarget(), (Tree{"new/"}));
    ASSERT_EQ(prompts_.Log.size(), 1U);
    EXPECT_EQ(prompts_.Log[0].Kind, PromptKind::YesNo);
    EXPECT_EQ(prompts_.Log[0].What.Title, u"PLM");
    EXPECT_EQ(prompts_.Log[0].What.Body, u"The target directory \"" + missing_ +
                                             u"\" does not exist!\n"
                                             u"Would you like to create it?");
}

TEST_F(TargetFolderCheck, AMissingFolderStaysMissingOnNo) {
    choices_.txtTargetDir = missing_;
    prompts_.Answers = {Answer::No};
    EXPECT_FALSE(Check());
    EXPECT_EQ(InTarget(), Tree{});
    EXPECT_EQ(prompts_.Log.size(), 1U);
}

TEST_F(TargetFolderCheck, OnlyOneLevelIsCreatedAndMoreGivesAMessage) {
    choices_.txtTargetDir = missing_ + u"/deeper";
    prompts_.Answers = {Answer::Yes};
    EXPECT_FALSE(Check());
    EXPECT_EQ(InTarget(), Tree{});
    ASSERT_EQ(prompts_.Log.size(), 2U);
    EXPECT_EQ(prompts_.Log[1].Kind, PromptKind::Critical);
    EXPECT_EQ(prompts_.Log[1].What.Title, u"PLM");
    EXPECT_EQ(prompts_.Log[1].What.Body, u"The target directory \"" + missing_ +
                                             u"/deeper\" could not be created: Path not found.");
}

TEST_F(TargetFolderCheck, AFolderThatMayNotBeCreatedGivesAMessage) {
    choices_.txtTargetDir = missing_;
    prompts_.Answers = {Answer::Yes};
    disk_.FailCall(DiskOperation::CreateFolder, ErrorNumber::PermissionDenied);
    EXPECT_FALSE(Check());
    ASSERT_EQ(prompts_.Log.size(), 2U);
    EXPECT_EQ(prompts_.Log[1].What.Body, u"The target directory \"" + missing_ +
                                             u"\" could not be created: Permission denied.");
}

TEST_F(TargetFolderCheck, ATargetThatIsAFileGivesAMessage) {
    choices_.txtTargetDir = temp_.File(u"target/file", "x");
    EXPECT_FALSE(Check());
    ASSERT_EQ(prompts_.Log.size(), 1U);
    EXPECT_EQ(prompts_.Log[0].Kind, PromptKind::Critical);
    EXPECT_EQ(prompts_.Log[0].What.Body,
              u"The target directory \"" + choices_.txtTargetDir + u"\" is not a folder.");
    EXPECT_EQ(ReadFile(choices_.txtTargetDir), "x");
}
