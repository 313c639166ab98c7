#include "app/list/folder_walk.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;

namespace {

class FolderWalking : public ::testing::Test {
protected:
    void Files(const std::vector<Text>& names) {
        for (const Text& name : names) (void)temp_.File(name, "x");
    }
    /// What a walk of the temporary folder finds, as paths from there.
    std::vector<Text> Found(TextView extension = u"mp3") {
        FolderWalk walk(temp_.Path(), extension);
        std::vector<Text> paths;
        while (!walk.Finished()) walk.Step(paths);
        for (Text& path : paths) path = path.substr(temp_.Path().size());
        return paths;
    }
    TempFolder temp_;
};

using Paths = std::vector<Text>;

}  // namespace

TEST_F(FolderWalking, FilesComeBeforeSubfoldersLevelByLevel) {
    Files({u"b/deep/1.mp3", u"b/2.mp3", u"a/3.mp3", u"z.mp3", u"c.mp3"});
    EXPECT_EQ(Found(), (Paths{u"c.mp3", u"z.mp3", u"a/3.mp3", u"b/2.mp3", u"b/deep/1.mp3"}));
}

TEST_F(FolderWalking, OnlyFilesWithTheExtensionAreTakenWhateverItsLetterCase) {
    Files({u"a.mp3", u"b.MP3", u"c.Mp3", u"d.mp33", u"e.mp", u"f.xmp3", u"mp3", u"g.mp3.txt"});
    const Paths expected = {u"a.mp3", u"b.MP3", u"c.Mp3"};
    EXPECT_EQ(Found(), expected);
    EXPECT_EQ(Found(u"MP3"), expected);
}

TEST_F(FolderWalking, DotFilesAndDotFoldersAreListedToo) {
    Files({u".hidden.mp3", u".mp3", u".folder/a.mp3"});
    EXPECT_EQ(Found(), (Paths{u".hidden.mp3", u".mp3", u".folder/a.mp3"}));
}

TEST_F(FolderWalking, AFolderNamedLikeAFileIsAFolder) {
    Files({u"album.mp3/a.mp3"});
    EXPECT_EQ(Found(), (Paths{u"album.mp3/a.mp3"}));
}

TEST_F(FolderWalking, AFolderThatIsTooDeepIsTold) {
    const Text outer = temp_.TooDeep(u"deep");
    Files({u"z/b.mp3"});
    FolderWalk walk(temp_.Path(), u"mp3");
    Paths paths;
    while (!walk.Finished()) walk.Step(paths);
    EXPECT_EQ(paths, (Paths{outer + u"/a.mp3", temp_ / u"z/b.mp3"}));
    ASSERT_EQ(walk.TooDeep().size(), 1U);
    EXPECT_TRUE(StartsWith(walk.TooDeep()[0], outer + u"/dddd"));
    EXPECT_GT(walk.TooDeep()[0].size(), 4095U);
    const Message told = TooDeepMessage(walk.TooDeep(), {});
    EXPECT_TRUE(StartsWith(told.Body, u"These were not searched:\n\"" + outer));
    EXPECT_TRUE(EndsWith(told.Body, u"ddd/\": " + FromUtf8(TooDeepReason)));
    EXPECT_LT(told.Body.size(), 400U);
}

TEST_F(FolderWalking, NamesThatAreNoValidTextAreFound) {
    const Text name = PathFromNative("b\xE5nd.mp3");
    Files({name});
    ASSERT_EQ(Found(), Paths{name});
    EXPECT_EQ(NativePath(Found()[0]), "b\xE5nd.mp3");
}

TEST_F(FolderWalking, LinkedFilesAndFoldersAreFollowed) {
    TempFolder elsewhere;
    (void)elsewhere.File(u"album/a.mp3", "x");
    Files({u"real.mp3"});
    (void)temp_.Link(u"link.mp3", u"real.mp3");
    (void)temp_.Link(u"folder", elsewhere.Path() + u"album");
    EXPECT_EQ(Found(), (Paths{u"link.mp3", u"real.mp3", u"folder/a.mp3"}));
}

TEST_F(FolderWalking, ALoopOfLinksEnds) {
    Files({u"a/1.mp3", u"a/b/2.mp3"});
    (void)temp_.Link(u"a/b/up", u"..");
    (void)temp_.Link(u"a/b/top", temp_.Path());
    (void)temp_.Link(u"a/b/self", u"self");
    EXPECT_EQ(Found(), (Paths{u"a/1.mp3", u"a/b/2.mp3"}));
}

TEST_F(FolderWalking, AFolderReachedByTwoWaysIsVisitedOnce) {
    Files({u"real/1.mp3"});
    (void)temp_.Link(u"alias", u"real");
    EXPECT_EQ(Found(), (Paths{u"alias/1.mp3"}));
}

TEST_F(FolderWalking, FoldersThatCannotBeListedArePassedOver) {
    Files({u"a/1.mp3", u"b/2.mp3"});
    FolderWalk walk(temp_.Path(), u"mp3");
    std::vector<Text> paths;
    walk.Step(paths);
    // Gone between the look at its parent and its own turn.
    WriteFile(temp_ / u"c", "x");
    ASSERT_EQ(::rename(NativePath(temp_ / u"a").c_str(), NativePath(temp_ / u"moved").c_str()), 0);
    while (!walk.Finished()) walk.Step(paths);
    EXPECT_EQ(paths, (Paths{temp_ / u"b/2.mp3"}));
}

TEST_F(FolderWalking, AFolderThatIsMissingOrAFileGivesNothing) {
    for (const Text& path : {temp_ / u"missing/", temp_.File(u"file.mp3", "x")}) {
        FolderWalk walk(path, u"mp3");
        std::vector<Text> paths;
        while (!walk.Finished()) walk.Step(paths);
        EXPECT_EQ(paths, Paths{});
    }
}

TEST_F(FolderWalking, OneStepListsOneFolder) {
    Files({u"1.mp3", u"a/2.mp3", u"b/3.mp3"});
    FolderWalk walk(temp_.Path(), u"mp3");
    std::vector<Text> paths;
    for (std::size_t seen = 1; seen <= 3; ++seen) {
        EXPECT_FALSE(walk.Finished());
        walk.Step(paths);
        EXPECT_EQ(paths.size(), seen);
    }
    EXPECT_TRUE(walk.Finished());
    walk.Step(paths);
    EXPECT_EQ(paths.size(), 3U);
}

TEST_F(FolderWalking, TheFolderMayComeWithoutItsSeparator) {
    Files({u"a/1.mp3"});
    FolderWalk walk(temp_ / u"a", u"mp3");
    std::vector<Text> paths;
    walk.Step(paths);
    EXPECT_EQ(paths, (Paths{temp_ / u"a/1.mp3"}));
}

TEST_F(FolderWalking, AFolderWhoseNameEndsInABackslashIsWalked) {
    Files({u"odd\\/1.mp3", u"odd\\/deep\\/2.mp3"});
    FolderWalk walk(temp_ / u"odd\\", u"mp3");
    std::vector<Text> paths;
    while (!walk.Finished()) walk.Step(paths);
    EXPECT_EQ(paths, (Paths{temp_ / u"odd\\/1.mp3", temp_ / u"odd\\/deep\\/2.mp3"}));
}

TEST_F(FolderWalking, AFolderOfThousandsTakesSeveralStepsAndKeepsItsOrder) {
    constexpr std::size_t Count = 9000;
    for (std::size_t i = 0; i < Count; ++i) {
        Files({NumberText(static_cast<long long>(i * 7919 % Count + 10000)) + u".mp3"});
    }
    Files({u"folder/last.mp3", u"no song.txt"});
    FolderWalk walk(temp_.Path(), u"mp3");
    std::vector<Text> paths;
    std::size_t steps = 0;
    for (std::size_t before = 0; !walk.Finished(); ++steps, before = paths.size()) {
        walk.Step(paths);
        EXPECT_LE(paths.size() - before, 5000U);
    }
    EXPECT_GE(steps, 5U);
    ASSERT_EQ(paths.size(), Count + 1);
    EXPECT_TRUE(std::is_sorted(paths.begin(), paths.end() - 1));
    EXPECT_EQ(paths.back(), temp_ / u"folder/last.mp3");
}

TEST_F(FolderWalking, DroppedItemsAreToldApart) {
    Files({u"a.mp3", u"list.srt", u"list.SRT", u"list.m3u", u"list.pls", u"list.m3u8", u"x.txt"});
    const std::pair<Text, DroppedKind> cases[] = {
        {temp_.Folder(u"folder"), DroppedKind::Folder},
        {temp_.Folder(u"folder.m3u"), DroppedKind::Folder},
        {temp_.Path(), DroppedKind::Folder},
        {temp_ / u"list.srt", DroppedKind::ListFile},
        {temp_ / u"list.SRT", DroppedKind::ListFile},
        {temp_ / u"list.m3u", DroppedKind::ListFile},
        {temp_ / u"list.pls", DroppedKind::ListFile},
        {temp_ / u"list.m3u8", DroppedKind::SingleFile},
        {temp_ / u"a.mp3", DroppedKind::SingleFile},
        {temp_ / u"x.txt", DroppedKind::SingleFile},
        {temp_ / u"missing.mp3", DroppedKind::SingleFile},
        {temp_.Link(u"to folder", u"folder"), DroppedKind::Folder},
        {u"", DroppedKind::Nothing},
        {u"   ", DroppedKind::Nothing},
    };
    for (const auto& [path, kind] : cases) {
        EXPECT_EQ(KindOfDropped(path), kind) << NativePath(path);
    }
}
