// The data of a stream, with somebody at the keyboard.
#include <gtest/gtest.h>

#include "app/cli/commands.h"
#include "app/cli/report.h"
#include "core/platform/path.h"
#include "tests/app/cli/fake_console.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::cli {
namespace {

TEST(StreamCommand, AnInterruptionEndsTheSearchOfALargeFile) {
    const TempFolder folder;
    const Text large = folder.File(u"large.mp3");
    SetFileLength(large, 1LL << 40);
    FakeConsole console;
    int looks = 0;
    console.Stop = [&] { return ++looks > 20; };
    EXPECT_EQ(RunProgram({"stream", "--no-user-settings", NativePath(large)}, console), SomeFailed);
    EXPECT_EQ(console.Printed, "");
    EXPECT_EQ(console.Told, "pellmore-cli: stopped: 0 of 1 files done\n");
}

}  // namespace
}  // namespace mdlPLM::cli
