// How the real program starts: what it prints, when it opens its window, when it refuses.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>

#include "tests/program/installed_program.h"

using namespace mdlPLM;
using namespace mdlPLM::test;

namespace {

bool Contains(const Bytes& text, const Bytes& part) { return text.find(part) != Bytes::npos; }

/// Until the program has come so far; false when it ended before, or never comes so far.
bool WaitFor(RunningProgram& program, const std::function<bool()>& reached) {
    const auto giveUp = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!reached()) {
        if (!program.IsRunning() || std::chrono::steady_clock::now() > giveUp) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

}  // namespace

TEST(ProgramStart, PrintsItsHelp) {
    const InstalledProgram program;
    const ProgramResult result = program.Run({"--help"}, {});
    EXPECT_EQ(result.Status, 0);
    EXPECT_TRUE(Contains(result.Out, "pellmore +rename=\"PATTERN\" FILE..."));
    EXPECT_EQ(result.Errors, "");
    EXPECT_EQ(program.Files(), (std::vector<Bytes>{"bin/", "bin/pellmore"}));
}

TEST(ProgramStart, SpeaksTheUsersLanguageWithoutAWindow) {
    InstalledProgram program;
    program.Environment["LC_ALL"] = "sv_SE.UTF-8";
    const ProgramResult help = program.Run({"--help"}, {});
    EXPECT_EQ(help.Status, 0);
    EXPECT_TRUE(Contains(help.Out, "Pellmore ordnar en personlig MP3-samling."));
    EXPECT_TRUE(Contains(help.Out, "pellmore +rename=\"MÖNSTER\" FIL..."));
    EXPECT_EQ(help.Errors, "");
    const ProgramResult refused = program.Run({"--nonsense"}, {});
    EXPECT_EQ(refused.Status, 2);
    EXPECT_TRUE(Contains(refused.Errors, "pellmore: en kommandorad börjar med en av"));
    EXPECT_TRUE(Contains(program.Run({"+rename=x"}, {}).Errors, "det finns ingen fil att döpa om"));
    EXPECT_TRUE(Contains(program.Run({}, {}).Errors, "fönstret behöver en grafisk skärm"));
}

TEST(ProgramStart, PrintsItsVersion) {
    const ProgramResult result = InstalledProgram().Run({"--version"}, {});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Out, "Pellmore 1.0\n");
}

TEST(ProgramStart, RefusesACommandLineWithoutASwitch) {
    const InstalledProgram program;
    const ProgramResult result = program.Run({"-platform", "offscreen"}, {});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, "");
    EXPECT_TRUE(Contains(result.Errors, "a command line begins with one of its switches"));
    EXPECT_EQ(program.Files(), (std::vector<Bytes>{"bin/", "bin/pellmore"}));
}

TEST(ProgramStart, WithoutADisplayItSaysWhatTheWindowNeeds) {
    const InstalledProgram program;
    for (const std::vector<Bytes>& arguments :
         {std::vector<Bytes>{}, std::vector<Bytes>{"+list", "/tmp"}}) {
        const ProgramResult result = program.Run(arguments, {});
        EXPECT_EQ(result.Status, 2);
        EXPECT_EQ(result.Out, "");
        EXPECT_TRUE(Contains(result.Errors, "the window needs a graphical display"));
        EXPECT_TRUE(Contains(result.Errors, "+rename="));
    }
}

TEST(ProgramStart, ADisplayThatCannotBeReachedIsNoCrash) {
    InstalledProgram program;
    program.Environment["DISPLAY"] = ":4077";
    const ProgramResult result = program.Run({}, {});
    EXPECT_EQ(result.Status, 2);
    EXPECT_TRUE(Contains(result.Errors, "the window needs a graphical display"));
}

TEST(ProgramStart, AnInstalledProgramKeepsItsListsWithTheUser) {
    InstalledProgram program;
    program.InstallHelp();
    program.Environment["QT_QPA_PLATFORM"] = "offscreen";
    RunningProgram running(program.Call({}, {}));
    EXPECT_TRUE(WaitFor(running, [&program] {
        const std::vector<Bytes> files = program.Files();
        return std::count(files.begin(), files.end(), "data/PLM/outpattern.txt") == 1;
    }));
    const std::vector<Bytes> files = program.Files();
    EXPECT_EQ(std::count(files.begin(), files.end(), "bin/outpattern.txt"), 0);
}

TEST(ProgramStart, OpensItsWindowAndReadsThePatternsForIt) {
    InstalledProgram program;
    program.Environment["QT_QPA_PLATFORM"] = "offscreen";
    RunningProgram running(program.Call({}, {}));
    EXPECT_TRUE(WaitFor(running, [&program] {
        const std::vector<Bytes> files = program.Files();
        return std::count(files.begin(), files.end(), "bin/inpattern.txt") == 1 &&
               std::count(files.begin(), files.end(), "bin/outpattern.txt") == 1;
    }));
    EXPECT_TRUE(running.IsRunning());
}
