#include "app/cli/terminal_prompts.h"

#include <gtest/gtest.h>

#include "tests/app/cli/fake_console.h"

namespace mdlPLM::cli {
namespace {

const Message Question = {
    u"PLM", u"The file \"x\" already exists!\r\nDo you want to replace it?", {}};

struct Terminal {
    Terminal() { Streams.Streams.Ask = true; }
    Answer YesNo(std::deque<Bytes> lines) {
        Streams.Lines = std::move(lines);
        return Ask.AskYesNo(Question);
    }
    Answer YesNoCancel(std::deque<Bytes> lines) {
        Streams.Lines = std::move(lines);
        return Ask.AskYesNoCancel(Question);
    }
    FakeConsole Streams;
    Report Results{Streams, {}};
    TerminalPrompts Ask{Streams, Results, false};
};

TEST(TerminalPrompts, PutsTheTextAndTakesTheWordsOfTheButtons) {
    Terminal terminal;
    EXPECT_EQ(terminal.YesNoCancel({"Yes"}), Answer::Yes);
    EXPECT_EQ(terminal.Streams.TakeTold(),
              "The file \"x\" already exists!\nDo you want to replace it? [Yes/No/Cancel] ");
    EXPECT_EQ(terminal.YesNo({"yes"}), Answer::Yes);
    EXPECT_EQ(terminal.Streams.TakeTold(),
              "The file \"x\" already exists!\nDo you want to replace it? [Yes/No] ");
    EXPECT_EQ(terminal.YesNo({" y "}), Answer::Yes);
    EXPECT_EQ(terminal.YesNo({"N"}), Answer::No);
    EXPECT_EQ(terminal.YesNoCancel({"no"}), Answer::No);
    EXPECT_EQ(terminal.YesNoCancel({"c"}), Answer::Cancel);
    EXPECT_FALSE(terminal.Ask.NobodyToAsk());
    EXPECT_EQ(terminal.Results.Status(), AllDone);
}

TEST(TerminalPrompts, AnEmptyLineAndTheEndGiveTheSafeAnswer) {
    Terminal terminal;
    EXPECT_EQ(terminal.YesNo({""}), Answer::No);
    EXPECT_EQ(terminal.YesNo({}), Answer::No);
    EXPECT_EQ(terminal.YesNoCancel({""}), Answer::Cancel);
    EXPECT_EQ(terminal.YesNoCancel({}), Answer::Cancel);
}

TEST(TerminalPrompts, AsksAgainWhenTheAnswerIsNone) {
    Terminal terminal;
    EXPECT_EQ(terminal.YesNo({"maybe", "cancel", "yeah", "y"}), Answer::Yes);
    EXPECT_EQ(terminal.Streams.TakeTold(),
              "The file \"x\" already exists!\nDo you want to replace it?"
              " [Yes/No]  [Yes/No]  [Yes/No]  [Yes/No] ");
}

TEST(TerminalPrompts, WithoutATerminalTheAnswerIsSafeAndTheQuestionIsTold) {
    Terminal terminal;
    terminal.Streams.Streams.Ask = false;
    EXPECT_EQ(terminal.YesNo({"yes"}), Answer::No);
    EXPECT_EQ(terminal.YesNoCancel({"yes"}), Answer::No);
    EXPECT_TRUE(terminal.Ask.NobodyToAsk());
    EXPECT_EQ(terminal.Results.Status(), SomeFailed);
    EXPECT_NE(terminal.Streams.Told.find("Do you want to replace it?"), Bytes::npos);
    EXPECT_EQ(terminal.Ask.AskText(Question), std::nullopt);
}

TEST(TerminalPrompts, YesForEverythingAnswersYesNoQuestionsOnly) {
    Terminal terminal;
    TerminalPrompts yes(terminal.Streams, terminal.Results, true);
    EXPECT_EQ(yes.AskYesNo(Question), Answer::Yes);
    EXPECT_EQ(terminal.Streams.TakeTold(), "");
    terminal.Streams.Lines = {"n"};
    EXPECT_EQ(yes.AskYesNoCancel(Question), Answer::No);
}

TEST(TerminalPrompts, BoxesAreFailuresOnTheErrorStream) {
    Terminal terminal;
    terminal.Ask.Inform({u"PLM", u"Told", u"about x"});
    terminal.Ask.Critical({u"PLM", u"Error: 53\r\nFile not found", {}});
    EXPECT_EQ(terminal.Streams.Told,
              "pellmore-cli: Told\nabout x\npellmore-cli: Error: 53\nFile not found\n");
    EXPECT_EQ(terminal.Results.Failures(), 2U);
}

TEST(TerminalPrompts, ATextIsTheLineThatIsTyped) {
    Terminal terminal;
    terminal.Streams.Lines = {"ogg"};
    EXPECT_EQ(terminal.Ask.AskText({{}, u"Extension: ", {}}), u"ogg");
    EXPECT_EQ(terminal.Ask.AskText({{}, u"Extension: ", {}}), std::nullopt);
}

TEST(TerminalPrompts, NoQuestionCanActOnTheTerminal) {
    Terminal terminal;
    terminal.Streams.Lines = {"y"};
    (void)terminal.Ask.AskYesNo({{}, u"The file \"\x1b[2J\" already exists!", {}});
    EXPECT_EQ(terminal.Streams.Told, "The file \"?[2J\" already exists! [Yes/No] ");
}

TEST(PlanningPrompts, GoesOnAndKeepsTheQuestion) {
    FakeConsole console;
    Report report(console, {});
    PlanningPrompts prompts(report);
    EXPECT_EQ(prompts.AskYesNo(Question), Answer::Yes);
    EXPECT_EQ(prompts.TakeQuestion(),
              u"The file \"x\" already exists!\nDo you want to replace it?");
    EXPECT_EQ(prompts.TakeQuestion(), u"");
    EXPECT_EQ(prompts.AskYesNoCancel(Question), Answer::No);
    EXPECT_FALSE(prompts.TakeQuestion().empty());
    EXPECT_EQ(prompts.AskText(Question), std::nullopt);
    EXPECT_EQ(console.Told, "");
}

}  // namespace
}  // namespace mdlPLM::cli
