#include "core/platform/left_overs.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>

#include "core/platform/path.h"
#include "core/platform/posix.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

constexpr const char16_t* Left = u"plm-0123456789abcdef.tmp";

/// What ended an hour ago has been there long enough: the clock is turned on instead of waiting.
class LeftOversTest : public testing::Test {
protected:
    [[nodiscard]] bool IsGone(TextView name) const { return !IsThere(Folder / name); }

    std::int64_t Now = std::time(nullptr) + 7200;
    LeftOvers Tidy{[this] { return Now; }};
    TempFolder Folder;
};

TEST_F(LeftOversTest, AreRemovedAndTold) {
    const Text file = Folder.File(Left, "half a song");
    (void)Folder.File(u"song.mp3", "a song");
    Tidy.LookIn(Folder.Path());
    EXPECT_EQ(Tidy.TakeRemoved(), std::vector<Text>{file});
    EXPECT_EQ(Tidy.TakeRemoved(), std::vector<Text>{});
    EXPECT_EQ(ListTree(Folder.Path()), std::vector<Bytes>{"song.mp3"});
}

TEST_F(LeftOversTest, OnlyNamesOfJustThatFormAreMeant) {
    const std::vector<Text> others = {u"plm-0123456789abcde.tmp",   u"plm-0123456789abcdef0.tmp",
                                      u"plm-0123456789abcdeg.tmp",  u"plm-0123456789ABCDEF.tmp",
                                      u"PLM-0123456789abcdef.tmp",  u"plm-0123456789abcdef.TMP",
                                      u"plm-0123456789abcdef.tmp~", u"xplm-0123456789abcdef.tmp",
                                      u"plm-0123456789abcdef.mp3",  u"plm-.tmp",
                                      u"plm_0123456789abcdef.tmp"};
    for (const Text& name : others) (void)Folder.File(name, "x");
    Tidy.LookIn(Folder.Path());
    EXPECT_EQ(Tidy.TakeRemoved(), std::vector<Text>{});
    EXPECT_EQ(ListTree(Folder.Path()).size(), others.size());
}

TEST_F(LeftOversTest, WhatWasTouchedWithinTheHourStays) {
    const Text file = Folder.File(Left, "being written");
    Now = std::time(nullptr) + 3500;
    Tidy.LookIn(Folder.Path());
    EXPECT_TRUE(IsThere(file));
    // A copy that is about to take its name has the time of its source already.
    SetModificationTime(file, 1'000'000'000);
    Now = std::time(nullptr);
    LeftOvers([this] { return Now; }).LookIn(Folder.Path());
    EXPECT_TRUE(IsThere(file));
}

TEST_F(LeftOversTest, WhatComesFromTheFutureStays) {
    SetModificationTime(Folder.File(Left, "x"), (Now + 10) * 1'000'000'000);
    Tidy.LookIn(Folder.Path());
    EXPECT_FALSE(IsGone(Left));
}

TEST_F(LeftOversTest, WhatIsLockedByWhoeverWritesItStays) {
    Bytes temporary;
    posix::Handle handle;
    ASSERT_TRUE(
        posix::CreateTemporaryBeside(NativePath(Folder / u"song.mp3"), 0600, temporary, handle)
            .Ok());
    Tidy.LookIn(Folder.Path());
    EXPECT_TRUE(IsThere(PathFromNative(temporary)));
    ASSERT_TRUE(handle.Close().Ok());
    Now += 3600;
    Tidy.LookIn(Folder.Path());
    EXPECT_EQ(Tidy.TakeRemoved(), std::vector<Text>{PathFromNative(temporary)});
}

TEST_F(LeftOversTest, OnlyRegularFilesAreMeant) {
    (void)Folder.Folder(Left);
    const Text target = Folder.File(u"target", "x");
    (void)Folder.Link(u"plm-00000000000000aa.tmp", u"target");
    ASSERT_EQ(::mkfifo(NativePath(Folder / u"plm-00000000000000bb.tmp").c_str(), 0600), 0);
    Tidy.LookIn(Folder.Path());
    EXPECT_EQ(Tidy.TakeRemoved(), std::vector<Text>{});
    EXPECT_EQ(ListTree(Folder.Path()).size(), 4U);
}

// Only the superuser can give a file away; to everybody else it stays his own, and goes.
TEST_F(LeftOversTest, FilesOfOtherUsersStay) {
    const Text file = Folder.File(Left, "x");
    constexpr uid_t nobody = 65534;
    const bool givenAway = ::chown(NativePath(file).c_str(), nobody, nobody) == 0;
    Tidy.LookIn(Folder.Path());
    EXPECT_EQ(IsThere(file), givenAway);
}

// Listing it for every file would make large folders slow.
TEST_F(LeftOversTest, AFolderIsLookedThroughOnceInAnHour) {
    Tidy.LookIn(Folder.Path());
    (void)Folder.File(Left, "x");
    Tidy.LookIn(Folder.Path());
    EXPECT_FALSE(IsGone(Left));
    Now += 3599;
    Tidy.LookIn(Folder.Path());
    EXPECT_FALSE(IsGone(Left));
    Now += 1;
    Tidy.LookIn(Folder.Path());
    EXPECT_TRUE(IsGone(Left));
}

TEST_F(LeftOversTest, BesideAFileTheFolderOfWhatALinkLeadsToIsMeant) {
    (void)Folder.File(u"music/song.mp3", "x");
    (void)Folder.File(Text(u"music/") + Left, "x");
    (void)Folder.File(Left, "x");
    Tidy.LookBeside(Folder.Link(u"link.mp3", u"music/song.mp3"));
    EXPECT_TRUE(IsGone(Text(u"music/") + Left));
    EXPECT_FALSE(IsGone(Left));
}

TEST_F(LeftOversTest, TheCurrentFolderNeedsNoName) {
    (void)Folder.File(Left, "x");
    const int found = RunInChild([&] {
        if (::chdir(NativePath(Folder.Path()).c_str()) != 0) return 1;
        Tidy.LookBeside(u"song.mp3");
        return Tidy.TakeRemoved() == std::vector<Text>{Left} ? 0 : 2;
    });
    EXPECT_EQ(found, 0);
    EXPECT_TRUE(IsGone(Left));
}

// Where letter case is not told apart, the file itself has another name for a moment.
TEST_F(LeftOversTest, AFileThatWasBeingRenamedIsNoLeftOver) {
    for (const TextView name : {u"Song.mp3", u"Song", u"Song.tmp", u"a.tmp/Song"}) {
        const Text between = PathFromNative(posix::NameInBetween(NativePath(Folder / name)));
        EXPECT_EQ(FolderOfPath(between), FolderOfPath(Folder / name));
        const Text file = Folder.File(between.substr(Folder.Path().size()), "the song");
        Tidy.LookIn(FolderOfPath(file));
        EXPECT_TRUE(IsThere(file)) << NativePath(file);
    }
    EXPECT_EQ(Tidy.TakeRemoved(), std::vector<Text>{});
    const Bytes between = posix::NameInBetween("/music/Song.mp3");
    EXPECT_EQ(between.substr(0, 11), "/music/plm-");
    EXPECT_EQ(between.substr(between.size() - 13), ".renaming.mp3");
}

TEST_F(LeftOversTest, WhatCannotBeListedOrRemovedIsPassedOver) {
    const Text file = Folder.File(u"locked/" + Text(Left), "x");
    const Text folder = FolderOfPath(file);
    ASSERT_EQ(::chmod(NativePath(folder).c_str(), 0500), 0);
    EXPECT_EQ(RunInChild([&] {
                  ObeyPermissions();
                  Tidy.LookIn(folder);
                  Tidy.LookIn(Folder / u"none");
                  Tidy.LookIn(Text(u"a\0b", 3));
                  return static_cast<int>(Tidy.TakeRemoved().size());
              }),
              0);
    ASSERT_EQ(::chmod(NativePath(folder).c_str(), 0700), 0);
    EXPECT_TRUE(IsThere(file));
}

}  // namespace
}  // namespace mdlPLM
