// What the build puts into the system.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/platform/path.h"
#include "tests/support/places.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tools.h"

using namespace mdlPLM;
using namespace mdlPLM::test;

TEST(Install, PutsTheCommandLineItsManualAndItsCompletionsInPlace) {
    const TempFolder system;
    const Bytes build = NativePath(FolderOfPath(PathFromNative(CommandLineFile())));
    (void)OutputOf({"cmake", "--install", build, "--prefix", NativePath(system.Path())});
    const std::vector<Bytes> installed = ListTree(system.Path());
    for (const char* file : {"bin/pellmore", "bin/pellmore-cli", "share/man/man1/pellmore-cli.1.gz",
                             "share/bash-completion/completions/pellmore-cli",
                             "share/zsh/vendor-completions/_pellmore-cli"})
        EXPECT_EQ(std::count(installed.begin(), installed.end(), file), 1) << file;
    EXPECT_EQ(OutputOf({NativePath(system / u"bin/pellmore-cli"), "--version"}),
              OutputOf({CommandLineFile(), "--version"}));
}
