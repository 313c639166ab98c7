#include "core/platform/tidy_disk.h"

#include <gtest/gtest.h>

#include <ctime>

#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

const Text LeftOver = u"plm-0123456789abcdef.tmp";

TEST(TidyDisk, LooksThroughTheFoldersThatARunUses) {
    const TempFolder folder;
    for (const TextView name : {u"in/", u"out/", u"other/"})
        (void)folder.File(Text(name) + LeftOver, "x");
    (void)folder.File(u"in/song.mp3", "x");
    LeftOvers tidy([] { return std::int64_t{std::time(nullptr)} + 7200; });
    TidyDisk disk(tidy);
    std::unique_ptr<PiecewiseCopy> copy;
    ASSERT_TRUE(disk.BeginCopy(folder / u"in/song.mp3", folder / u"out/song.mp3",
                               IfTargetExists::Fail, copy)
                    .Ok());
    EXPECT_EQ(tidy.TakeRemoved(),
              (std::vector<Text>{folder / (u"in/" + LeftOver), folder / (u"out/" + LeftOver)}));
    ASSERT_TRUE(
        disk.Rename(folder / u"in/song.mp3", folder / u"other/b.mp3", IfTargetExists::Fail).Ok());
    EXPECT_EQ(tidy.TakeRemoved(), std::vector<Text>{folder / (u"other/" + LeftOver)});
}

}  // namespace
}  // namespace mdlPLM
