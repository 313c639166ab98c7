// pellmore-cli and the signals that ask it to end. That the file at hand is finished wherever the
// signal comes is shown beside the faults.
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <thread>

#include "tests/program/cli_fixture.h"

namespace mdlPLM::test {
namespace {

class CliSignals : public CliTest {
protected:
    /// Looks again and again until it is so; false when the program ends before.
    static bool WaitUntil(RunningProgram& program, const std::function<bool()>& so) {
        while (!so()) {
            if (!program.IsRunning()) return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return true;
    }
    /// The call with a signal sent to the program before its first call on a file.
    [[nodiscard]] ProgramCall Struck(const ProgramCall& call, int signal) const {
        return Struck(call, "signal\ncode=" + std::to_string(signal));
    }
    [[nodiscard]] ProgramCall Struck(ProgramCall call, const Bytes& what) const {
        call.Environment["LD_PRELOAD"] = FailingCallsFile();
        call.Environment["ASAN_OPTIONS"] = "verify_asan_link_order=0";
        call.Environment["PLM_FAULTS"] = "under=" + NativePath(Folder.Path()) +
                                         "\nlog=" + NativePath(Home / u"log") +
                                         "\nat=1\nwhat=" + what;
        return call;
    }
    /// The same line typed into a shell that ignores the signal, as nohup does.
    [[nodiscard]] ProgramCall Ignoring(const Bytes& signal, const Bytes& arguments) const {
        const Bytes line = "trap '' " + signal + "; exec '" + CommandLineFile() + "' " + arguments;
        return {u"/bin/sh", {"-c", line}, Environment, {}, Folder.Path()};
    }
};

TEST_F(CliSignals, EachOfThemEndsTheRunAndIsTold) {
    (void)Folder.File(u"abba - one.mp3", "x");
    (void)Folder.File(u"kent - two.mp3", "x");
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
        const ProgramResult result =
            RunToEnd(Struck(Call({"names", "abba - one.mp3", "kent - two.mp3"}), signal));
        EXPECT_EQ(result.Signal, 0);
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Out, "");
        EXPECT_EQ(result.Errors, "pellmore-cli: stopped: 0 of 2 files done\n");
    }
}

TEST_F(CliSignals, WhatIsIgnoredAtTheStartStaysIgnored) {
    (void)Folder.File(u"abba - one.mp3", "x");
    const std::vector<std::pair<Bytes, int>> signals = {
        {"HUP", SIGHUP}, {"INT", SIGINT}, {"QUIT", SIGQUIT}, {"TERM", SIGTERM}};
    for (const auto& [name, number] : signals) {
        const ProgramCall call = Ignoring(name, "names 'abba - one.mp3'");
        ExpectResult(RunToEnd(Struck(call, number)), 0, "abba - one.mp3 -> Abba - One.mp3\n", "");
        EXPECT_TRUE(IsThere(Home / u"log")) << "no signal was sent";
        std::filesystem::remove(NativePath(Home / u"log"));
    }
}

// The folder was not looked through to its end: half of it is no list of it.
TEST_F(CliSignals, AListIsNotWrittenByHalves) {
    (void)Folder.File(u"music/abba - one.mp3", "x");
    const Text list = Folder.File(u"all.srt", "the old list");
    const ProgramResult result = RunToEnd(
        Struck(Call({"list", "--if-exists", "replace", "--output", "all.srt", "music"}), SIGTERM));
    ExpectResult(result, 1, "", "pellmore-cli: stopped: no list was written\n");
    EXPECT_EQ(ReadFile(list), "the old list");
}

// Four terabytes of nothing: read to its end it would take an hour.
TEST_F(CliSignals, TheSearchOfAFileWithoutEndIsEnded) {
    const Text path = Folder.File(u"endless.mp3", "x");
    std::filesystem::resize_file(NativePath(path), std::uintmax_t{1} << 42);
    RunningProgram program(Call({"stream", "endless.mp3"}));
    ASSERT_TRUE(WaitUntil(program, [&] { return program.HasSignalIn("SigCgt", SIGTERM); }));
    program.Send(SIGTERM);
    ExpectResult(program.Wait(), 1, "", "pellmore-cli: stopped: 0 of 1 files done\n");
}

TEST_F(CliSignals, AnotherOfTheKindEndsWhatHasNoEnd) {
    (void)Folder.File(u"abba - one.mp3", "x");
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
        RunningProgram program(Struck(Call({"names", "abba - one.mp3"}), "hang"));
        ASSERT_TRUE(WaitUntil(program, [&] { return IsThere(Home / u"log"); }));
        // Sent again until it ends: those that come at once are one wish.
        EXPECT_FALSE(WaitUntil(program, [&] {
            program.Send(signal);
            return false;
        }));
        EXPECT_EQ(program.Wait().Signal, signal);
        std::filesystem::remove(NativePath(Home / u"log"));
    }
}

}  // namespace
}  // namespace mdlPLM::test
