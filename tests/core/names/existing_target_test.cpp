#include "core/names/existing_target.h"

#include <gtest/gtest.h>

#include "tests/support/scripted_prompts.h"

namespace mdlPLM {
namespace {

TEST(ExistingTarget, TheQuestionNamesTheFileBetweenQuotes) {
    const Message question = ExistingTargetQuestion(u"/m/a.mp3");
    EXPECT_EQ(question.Body,
              u"The file \"/m/a.mp3\" already exists!\r\nDo you want to replace it?");
    EXPECT_EQ(question.Title, u"PLM");
}

TEST(ExistingTarget, PromptAsksAndTakesTheAnswer) {
    const std::pair<Answer, TargetDecision> cases[] = {
        {Answer::Yes, TargetDecision::Replace},
        {Answer::No, TargetDecision::Leave},
        {Answer::Cancel, TargetDecision::Cancel},
    };
    for (const auto& [answer, decision] : cases) {
        ScriptedPrompts prompts({answer});
        EXPECT_EQ(DecideExistingTarget(IfExists::Prompt, u"/m/a", prompts), decision);
        ASSERT_EQ(prompts.Log.size(), 1U);
        EXPECT_EQ(prompts.Log[0].Kind, PromptKind::YesNoCancel);
    }
}

TEST(ExistingTarget, SkipAndReplaceDoNotAsk) {
    ScriptedPrompts prompts;
    EXPECT_EQ(DecideExistingTarget(IfExists::Skip, u"/m/a", prompts), TargetDecision::Leave);
    EXPECT_EQ(DecideExistingTarget(IfExists::Replace, u"/m/a", prompts), TargetDecision::Replace);
    EXPECT_TRUE(prompts.Log.empty());
}

TEST(ExistingTarget, AttributesAreTheSumOfTheFlagsThatAreOn) {
    Settings settings;
    EXPECT_EQ(AttributesToSet(settings), 0);
    settings.bReadOnly = true;
    EXPECT_EQ(AttributesToSet(settings), 1);
    settings.bHidden = true;
    EXPECT_EQ(AttributesToSet(settings), 3);
    settings.bArhive = true;
    EXPECT_EQ(AttributesToSet(settings), 35);
}

}  // namespace
}  // namespace mdlPLM
