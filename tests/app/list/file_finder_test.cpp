#include "app/list/file_finder.h"

#include <gtest/gtest.h>

#include "core/platform/path.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using Origin = FoundFiles::Origin;
using Paths = std::vector<Text>;

class FindingFiles : public ::testing::Test {
protected:
    /// What a thing is made of, and where from.
    Paths Of(const Text& thing, Origin from, AddAs as = AddAs::Dropped) {
        Paths names;
        finder_.Begin(thing, as);
        FoundFiles found;
        while (finder_.Step(found)) {
            EXPECT_EQ(found.From, from);
            for (const Text& path : PathsOf(std::move(found))) names.push_back(path);
        }
        EXPECT_TRUE(found.Names.empty());
        return names;
    }

    TempFolder folder_;
    ScriptedPrompts prompts_;
    FileFinder finder_{u"mp3", prompts_};
};

TEST_F(FindingFiles, AFolderIsWalkedForTheExtension) {
    const Text a = folder_.File(u"f/a.mp3");
    const Text b = folder_.File(u"f/deep/b.MP3");
    (void)folder_.File(u"f/c.ogg");
    EXPECT_EQ(Of(folder_ / u"f", Origin::Folder), (Paths{a, b}));
    EXPECT_TRUE(finder_.Result().Ok());
}

TEST_F(FindingFiles, AListFileIsReadAndItsEntriesBecomePaths) {
    const Text sorting = folder_.File(u"l.srt", "a.mp3     (/m/)\r\nb.mp3     (/m/)\r\n");
    const Text playlist = folder_.File(u"l.m3u", "#EXTM3U\n/m/c.mp3\n");
    EXPECT_EQ(Of(sorting, Origin::ListFile), (Paths{u"/m/a.mp3", u"/m/b.mp3"}));
    EXPECT_EQ(Of(playlist, Origin::ListFile), Paths{u"/m/c.mp3"});
}

TEST_F(FindingFiles, AnythingElseIsTakenAsItIs) {
    const Text text = folder_.File(u"x.txt");
    EXPECT_EQ(Of(text, Origin::Itself), Paths{text});
    EXPECT_EQ(Of(u"/nowhere/a.mp3", Origin::Itself), Paths{u"/nowhere/a.mp3"});
    EXPECT_EQ(Of(u"  ", Origin::Itself), Paths{});
}

TEST_F(FindingFiles, WhatIsChosenAsAFileOrAListIsNoOtherThing) {
    const Text list = folder_.File(u"l.srt", "a.mp3     (/m/)\r\n");
    EXPECT_EQ(Of(list, Origin::Itself, AddAs::File), Paths{list});
    EXPECT_EQ(Of(folder_.File(u"x.mp3"), Origin::ListFile, AddAs::ListFile), Paths{});
    EXPECT_EQ(prompts_.Log.size(), 1U);  // that was not a compatible playlist
}

TEST_F(FindingFiles, OnlyASingleFileIsAtHand) {
    FoundFiles found;
    EXPECT_FALSE(finder_.IsAtHand());
    finder_.Begin(u"/m/b.mp3");
    EXPECT_TRUE(finder_.IsAtHand());
    EXPECT_TRUE(finder_.Step(found));
    EXPECT_FALSE(finder_.IsAtHand());
    finder_.Begin(folder_.Path());
    EXPECT_FALSE(finder_.IsAtHand());
    finder_.Begin(folder_.File(u"l.m3u"));
    EXPECT_FALSE(finder_.IsAtHand());
}

TEST_F(FindingFiles, AnotherThingEndsTheOneBefore) {
    (void)folder_.File(u"f/a.mp3");
    finder_.Begin(folder_ / u"f");
    EXPECT_EQ(Of(u"/m/b.mp3", Origin::Itself), Paths{u"/m/b.mp3"});
}

TEST_F(FindingFiles, AListFileThatCannotBeOpenedIsInTheResultOnly) {
    EXPECT_EQ(Of(folder_ / u"missing.m3u", Origin::ListFile), Paths{});
    EXPECT_EQ(finder_.Result().Number(), ErrorNumber::FileNotFound);
    EXPECT_TRUE(prompts_.Log.empty());
    (void)Of(u"/m/b.mp3", Origin::Itself);
    EXPECT_TRUE(finder_.Result().Ok());
}

TEST_F(FindingFiles, FoldersThatAreTooDeepAreThoseOfTheThing) {
    (void)folder_.TooDeep(u"deep");
    (void)Of(folder_.Path(), Origin::Folder);
    EXPECT_EQ(finder_.TooDeep().size(), 1U);
    EXPECT_TRUE(finder_.Result().Ok());
    finder_.Begin(u"/m/b.mp3");
    EXPECT_TRUE(finder_.TooDeep().empty());
}

}  // namespace
}  // namespace mdlPLM
