#include "app/cli/report.h"

#include <gtest/gtest.h>

#include "core/platform/path.h"
#include "tests/app/cli/fake_console.h"

namespace mdlPLM::cli {
namespace {

constexpr BytesView Wipe = "\r\x1b[K";

TEST(Report, FailuresAreNamedAndMakeTheStatus) {
    FakeConsole console;
    Report report(console, {});
    EXPECT_EQ(report.Status(), AllDone);
    report.Tell(u"by the way");
    EXPECT_EQ(report.Status(), AllDone);
    report.Fail(u"a.mp3", u"Permission denied");
    EXPECT_EQ(report.Status(), SomeFailed);
    report.Misuse(u"no");
    EXPECT_EQ(report.Status(), UsedWrongly);
    EXPECT_EQ(report.Failures(), 1U);
    EXPECT_EQ(console.Told,
              "pellmore-cli: by the way\n"
              "pellmore-cli: a.mp3: Permission denied\n"
              "pellmore-cli: no\n");
    EXPECT_EQ(console.Printed, "");
}

TEST(Report, AnInterruptionAndARefusedOutputAreFailures) {
    FakeConsole console;
    Report report(console, {});
    EXPECT_FALSE(report.ShouldStop());
    console.Stop = [] { return true; };
    EXPECT_TRUE(report.ShouldStop());
    EXPECT_EQ(report.Status(), SomeFailed);
    console.Stop = {};
    console.OutTakes = false;
    EXPECT_TRUE(report.ShouldStop());
    EXPECT_EQ(report.Status(), SomeFailed);
}

TEST(Report, NamesReachATerminalWithoutControlCharacters) {
    FakeConsole console;
    Report report(console, {});
    const Text name = PathFromNative("a\x1b[2J\n\xFF\xC2\x9B");
    EXPECT_EQ(report.Shown(name), "a\x1b[2J\n\xFF\xC2\x9B");
    console.Streams.Out = true;
    EXPECT_EQ(report.Shown(name), "a?[2J?\xFF?");
    report.Fail(name, u"bad\x1b");
    EXPECT_EQ(console.Told, "pellmore-cli: a?[2J?\xFF?: bad?\n");
}

TEST(Report, ProgressIsForTerminalsOnly) {
    FakeConsole console;
    Report report(console, {});
    report.Progress(u"1 of 2");
    report.EndProgress();
    EXPECT_EQ(console.Told, "");
}

TEST(Report, ProgressStaysOnOneLineAndIsWipedAway) {
    FakeConsole console;
    console.Streams = {true, true, true, 10};
    Report report(console, {});
    report.Progress(u"1 of 2  long name\n");
    EXPECT_EQ(console.TakeTold(), Bytes(Wipe) + "1 of 2  l");
    report.Progress(u"too soon after the first");
    EXPECT_EQ(console.TakeTold(), "");
    report.Line("result");
    EXPECT_EQ(console.TakeTold(), Wipe);
    report.Line("another");
    EXPECT_EQ(console.TakeTold(), "");
    EXPECT_EQ(console.Printed, "result\nanother\n");
}

TEST(Report, ProgressIsGoneBehindAMessageAndAtTheEnd) {
    FakeConsole console;
    console.Streams.Errors = true;
    {
        Report report(console, {});
        report.Progress(u"p");
        report.Tell(u"m");
        EXPECT_EQ(console.TakeTold(), Bytes(Wipe) + "p" + Bytes(Wipe) + "pellmore-cli: m\n");
    }
    EXPECT_EQ(console.TakeTold(), "");
    {
        Report report(console, {});
        report.Progress(u"p");
    }
    EXPECT_EQ(console.TakeTold(), Bytes(Wipe) + "p" + Bytes(Wipe));
}

TEST(Report, FilesAreCountedOnATerminalWhileTheResultsGoElsewhere) {
    FakeConsole console;
    console.Streams.Errors = true;
    EXPECT_TRUE(Report(console, {}).MayBegin(1, 20));
    EXPECT_EQ(console.TakeTold(), Bytes(Wipe) + "1 of 20 files" + Bytes(Wipe));
    console.Streams.Out = true;
    EXPECT_TRUE(Report(console, {}).MayBegin(1, 20));
    EXPECT_EQ(console.TakeTold(), "");
}

TEST(Report, AnInterruptionBeforeTheLastFileIsTold) {
    FakeConsole console;
    Report report(console, {});
    EXPECT_TRUE(report.MayBegin(0, 2));
    EXPECT_FALSE(report.MayBegin(2, 2));
    console.Stop = [] { return true; };
    EXPECT_FALSE(report.MayBegin(2, 2));
    EXPECT_EQ(console.Told, "");
    EXPECT_FALSE(report.MayBegin(1, 2));
    EXPECT_EQ(console.Told, "pellmore-cli: stopped: 1 of 2 files done\n");
    console.Stop = {};
    console.OutTakes = false;
    EXPECT_FALSE(report.MayBegin(1, 2));
    EXPECT_EQ(console.TakeTold(), "pellmore-cli: stopped: 1 of 2 files done\n");
}

}  // namespace
}  // namespace mdlPLM::cli
