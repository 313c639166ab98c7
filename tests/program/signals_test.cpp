// The real window and the signals that ask a program to end.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

#include "tests/program/installed_program.h"

using namespace mdlPLM;
using namespace mdlPLM::test;

namespace {

/// Looks again and again until it is so; false when the program ends before.
bool WaitUntil(RunningProgram& program, const std::function<bool()>& so) {
    while (!so()) {
        if (!program.IsRunning()) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

class WindowAndSignals : public testing::TestWithParam<int> {
protected:
    WindowAndSignals() { Program.Environment["QT_QPA_PLATFORM"] = "offscreen"; }
    /// The program has taken its signals before it makes its files.
    bool WaitForFile(RunningProgram& running, const Bytes& name) const {
        return WaitUntil(running, [&] {
            const std::vector<Bytes> files = Program.Files();
            return std::count(files.begin(), files.end(), name) == 1;
        });
    }
    InstalledProgram Program;
};

}  // namespace

TEST_P(WindowAndSignals, TheWindowClosesAndKeepsItsSettings) {
    RunningProgram running(Program.Call({}, {}));
    ASSERT_TRUE(WaitForFile(running, "bin/outpattern.txt"));
    running.Send(GetParam());
    const ProgramResult result = running.Wait();
    EXPECT_EQ(result.Signal, 0);
    EXPECT_EQ(result.Status, 0);
    const Bytes settings = ReadFile(Program.SettingsFile());
    EXPECT_NE(settings.find("[Settings]"), Bytes::npos);
    EXPECT_NE(settings.find("OutPattern="), Bytes::npos);
}

TEST_P(WindowAndSignals, AQuestionGetsItsSafeAnswer) {
    TempFolder music;
    const Text song = music.File(u"a b.mp3", "x");
    RunningProgram running(Program.Call({"+ext="}, {song}));
    ASSERT_TRUE(WaitForFile(running, "bin/replaces.txt"));
    running.Send(GetParam());
    const ProgramResult result = running.Wait();
    EXPECT_EQ(result.Status, 2);
    EXPECT_NE(result.Errors.find("pellmore: there is no extension to give.\n"), Bytes::npos);
    EXPECT_TRUE(IsThere(song));
}

TEST_P(WindowAndSignals, AnotherOfTheKindEndsWhatHasNoEnd) {
    TempFolder music;
    const Text log = music / u"log";
    const Text song = music.File(u"in/a b.mp3", "x");
    Program.Environment["LD_PRELOAD"] = FailingCallsFile();
    Program.Environment["ASAN_OPTIONS"] = "verify_asan_link_order=0";
    Program.Environment["PLM_FAULTS"] =
        "under=" + NativePath(music / u"in/") + "\nlog=" + NativePath(log) + "\nat=1\nwhat=hang";
    RunningProgram running(Program.Call({"+list"}, {song}));
    ASSERT_TRUE(WaitUntil(running, [&] { return IsThere(log); }));
    EXPECT_FALSE(WaitUntil(running, [&] {
        running.Send(GetParam());
        return false;
    }));
    EXPECT_EQ(running.Wait().Signal, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Each, WindowAndSignals, testing::Values(SIGHUP, SIGINT, SIGQUIT, SIGTERM));

TEST_F(WindowAndSignals, WhatIsIgnoredAtTheStartStaysIgnored) {
    ProgramCall call = Program.Call({}, {});
    call.Arguments = {"-c", "trap '' HUP QUIT; exec '" + NativePath(call.Program) + "'"};
    call.Program = u"/bin/sh";
    RunningProgram running(call);
    ASSERT_TRUE(WaitForFile(running, "bin/outpattern.txt"));
    EXPECT_TRUE(running.HasSignalIn("SigIgn", SIGHUP));
    EXPECT_TRUE(running.HasSignalIn("SigIgn", SIGQUIT));
    EXPECT_TRUE(running.HasSignalIn("SigCgt", SIGINT));
    EXPECT_TRUE(running.HasSignalIn("SigCgt", SIGTERM));
    running.Send(SIGHUP);
    running.Send(SIGTERM);
    EXPECT_EQ(running.Wait().Status, 0);
}
