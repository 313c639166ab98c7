#include "core/tags/save_group.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <vector>

#include "core/platform/path.h"
#include "core/tags/id3v2_writer.h"
#include "tests/support/file_limit.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using test::Noise;
using Outcomes = std::vector<SaveOutcome>;

constexpr auto Written = SaveOutcome::Written;
constexpr auto Failed = SaveOutcome::Failed;
constexpr SaveModes TagOnly = {TagMode::Leave, TagMode::Write};

const Bytes Audio = Noise(3000);
const Bytes Roomy = test::WholeTag(test::TextFrame("TIT2", "Old title"), 200);

TagChange Titled(Bytes title) {
    TagChange change;
    change.V2.Title = std::move(title);
    change.Modes = TagOnly;
    return change;
}

// The file that a first tag with this title makes of some audio.
Bytes FirstTag(const Bytes& title, const Bytes& audio) {
    const Bytes frame = BuildFrame("TIT2", title);
    const auto length = static_cast<std::int64_t>(frame.size());
    return BuildTagHeader(2 * length) + frame + test::Nuls(frame.size()) + audio;
}

class Group : public testing::Test {
protected:
    Text Make(std::size_t number, const Bytes& contents = Audio) {
        return folder_.File(NumberText(static_cast<long long>(number)) + u".mp3", contents);
    }
    void Save(const Text& path, const Bytes& title = "New title") {
        File file;
        const SaveResult opened = group_.Open(path, file);
        if (opened.Outcome == Failed) return group_.Add(opened);
        group_.Save({path, file}, Titled(title));
        EXPECT_FALSE(file.IsOpen());
    }
    std::vector<SaveResult> Results() {
        std::vector<SaveResult> results;
        for (SaveResult result; group_.Take(result);) results.push_back(result);
        return results;
    }
    Outcomes Take() {
        Outcomes outcomes;
        for (const SaveResult& result : Results()) outcomes.push_back(result.Outcome);
        return outcomes;
    }
    [[nodiscard]] std::size_t Temporaries() const {
        const std::vector<Bytes> names = ListTree(folder_.Path());
        return static_cast<std::size_t>(
            std::count_if(names.begin(), names.end(),
                          [](const Bytes& name) { return name.substr(0, 4) == "plm-"; }));
    }

    TempFolder folder_;
    SaveGroup group_;
};

TEST_F(Group, WhatIsWrittenAnewWaitsForItsNameAndWhatGoesInPlaceDoesNot) {
    const Text first = Make(1);
    const Text second = Make(2);
    const Text inPlace = Make(3, Roomy + Audio);
    Save(first);
    Save(second);
    Save(inPlace);
    EXPECT_EQ(Temporaries(), 2U);
    EXPECT_TRUE(ReadFile(first) == Audio);
    EXPECT_EQ(ReadFile(inPlace).substr(21, 9), "New title");
    EXPECT_EQ(Take(), Outcomes{}) << "told in the order of the files";
    EXPECT_FALSE(group_.Working());
    group_.Commit();
    EXPECT_EQ(Take(), (Outcomes{Written, Written, Written}));
    EXPECT_TRUE(ReadFile(first) == FirstTag("New title", Audio));
    EXPECT_TRUE(ReadFile(second) == FirstTag("New title", Audio));
    EXPECT_EQ(Temporaries(), 0U);
    EXPECT_EQ(Take(), Outcomes{});
}

TEST_F(Group, WhatDoesNotWaitForAnotherFileIsToldAtOnce) {
    Save(Make(1, Roomy + Audio));
    Save(folder_ / u"missing.mp3");
    EXPECT_EQ(Take(), (Outcomes{Written, Failed}));
}

TEST_F(Group, SoManyFilesAreEnough) {
    for (std::size_t i = 0; i < SaveGroup::Limits().Files; ++i) {
        EXPECT_FALSE(group_.Working()) << i;
        Save(Make(i));
    }
    EXPECT_EQ(Temporaries(), SaveGroup::Limits().Files);
    EXPECT_TRUE(group_.Working());
    for (std::size_t i = 0; i < SaveGroup::Limits().Files; ++i)
        group_.Step();  // one is flushed each
    EXPECT_EQ(Take(), Outcomes{});
    EXPECT_EQ(Temporaries(), SaveGroup::Limits().Files);
    group_.Step();
    EXPECT_FALSE(group_.Working());
    EXPECT_EQ(Take(), Outcomes(SaveGroup::Limits().Files, Written));
    EXPECT_EQ(Temporaries(), 0U);
}

TEST_F(Group, SoManyBytesAreEnough) {
    group_ = SaveGroup({64, 6000});
    Save(Make(1));
    EXPECT_FALSE(group_.Working());
    Save(Make(2));
    EXPECT_TRUE(group_.Working());
    while (group_.Working()) group_.Step();
    EXPECT_EQ(Take(), (Outcomes{Written, Written}));
    EXPECT_EQ(SaveGroup::Limits().Bytes, 64 << 20);
}

TEST_F(Group, AFileThatWaitsDoesNotHoldBackAllOthers) {
    group_ = SaveGroup({3, 1 << 20});
    Save(Make(1));
    for (std::size_t i = 2; i < 12; ++i) {
        Save(Make(i, Roomy + Audio));
        EXPECT_FALSE(group_.Working()) << i;
    }
    Save(Make(12, Roomy + Audio));
    EXPECT_TRUE(group_.Working());
    while (group_.Working()) group_.Step();
    EXPECT_EQ(Take(), Outcomes(12, Written));
}

TEST_F(Group, AFileThatWaitsGetsItsNameBeforeItIsOpenedAgain) {
    const Text path = Make(1);
    const Text link = folder_.Link(u"link.mp3", u"1.mp3");
    const Text hard = folder_ / u"hard.mp3";
    ASSERT_EQ(::link(NativePath(path).c_str(), NativePath(hard).c_str()), 0);
    Save(path, "One");
    Save(link, "Two, and longer than before");
    EXPECT_EQ(Take(), Outcomes{Written});
    group_.Commit();
    EXPECT_EQ(Take(), Outcomes{Written});
    const Bytes contents = ReadFile(path);
    EXPECT_NE(contents.find("Two, and"), Bytes::npos);
    EXPECT_EQ(contents.substr(contents.size() - Audio.size()), Audio);
    EXPECT_TRUE(ReadFile(hard) == Audio) << "another link parts from the one that is named";
    Save(hard, "One");
    Save(hard, "Three");
    group_.Commit();
    EXPECT_EQ(Take(), (Outcomes{Written, Written}));
}

TEST_F(Group, AFileThatChangesWhileItWaitsIsLeftAlone) {
    const Text changed = Make(1);
    const Text replaced = Make(2);
    const Text removed = Make(3);
    const Text same = Make(4);
    for (const Text& path : {changed, replaced, removed, same}) Save(path);
    WriteFile(changed, "changed by another");
    ASSERT_EQ(
        std::rename(NativePath(folder_.File(u"x", Audio)).c_str(), NativePath(replaced).c_str()),
        0);
    ASSERT_EQ(std::remove(NativePath(removed).c_str()), 0);
    group_.Commit();
    const std::vector<SaveResult> results = Results();
    ASSERT_EQ(results.size(), 4U);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(results[i].Obstacle, SaveObstacle::Changed) << i;
    EXPECT_EQ(results[3].Outcome, Written);
    EXPECT_EQ(ReadFile(changed), "changed by another");
    EXPECT_TRUE(ReadFile(replaced) == Audio);
    EXPECT_EQ(ListTree(folder_.Path()), (std::vector<Bytes>{"1.mp3", "2.mp3", "4.mp3"}));
}

TEST_F(Group, OthersAreKeptAwayFromAFileThatWaits) {
    const Text path = Make(1);
    Save(path);
    SaveGroup other;
    File file;
    EXPECT_EQ(other.Open(path, file).Obstacle, SaveObstacle::InUse);
    EXPECT_FALSE(file.IsOpen());
    group_.Commit();
    EXPECT_EQ(other.Open(path, file).Outcome, SaveOutcome::NoWork);
    EXPECT_TRUE(file.IsOpen());
}

TEST_F(Group, AGroupThatGoesLeavesTheFilesAsTheyWere) {
    const Text path = Make(1);
    Save(path);
    group_ = SaveGroup();
    EXPECT_TRUE(ReadFile(path) == Audio);
    EXPECT_EQ(ListTree(folder_.Path()), std::vector<Bytes>{"1.mp3"});
}

TEST_F(Group, AFileThatCannotBeWrittenDoesNotKeepTheOthers) {
    const Text small = Make(1);
    const Text large = Make(2, Noise(9000));
    const Text last = Make(3);
    {
        const test::FileLimit limit(5000);
        for (const Text& path : {small, large, last}) Save(path);
    }
    group_.Commit();
    EXPECT_EQ(Take(), (Outcomes{Written, Failed, Written}));
    EXPECT_TRUE(ReadFile(large) == Noise(9000));
    EXPECT_EQ(Temporaries(), 0U);
}

// Room for a few open files only: those that wait give theirs up in time.
TEST_F(Group, FilesThatWaitMakeRoomForTheNext) {
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &old), 0);
    File probe;
    ASSERT_TRUE(probe.Open(Make(0), File::Mode::Read).Ok());
    const int next = ::dup(0);  // the lowest number that is free
    ::close(next);
    const rlimit few{static_cast<rlim_t>(next) + 7, old.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    std::vector<Text> paths;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &old), 0);
    for (std::size_t i = 1; i <= 10; ++i) paths.push_back(Make(i));
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    for (const Text& path : paths) Save(path);
    group_.Commit();
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &old), 0);
    EXPECT_EQ(Take(), Outcomes(10, Written));
    for (const Text& path : paths) EXPECT_TRUE(ReadFile(path) == FirstTag("New title", Audio));
}

TEST_F(Group, StoppedWithAnEndlessFileItGivesThatOneUp) {
    const Text first = Make(1);
    Save(first);
    const Text endless = Make(2, test::Trailer("V1"));
    ASSERT_EQ(::truncate(NativePath(endless).c_str(), std::int64_t{1} << 36), 0);
    Save(endless);
    EXPECT_TRUE(group_.Working());
    group_.Stop();
    while (group_.Working()) group_.Step();
    const std::vector<SaveResult> results = Results();
    ASSERT_EQ(results.size(), 2U);
    EXPECT_EQ(results[0].Outcome, Written);
    EXPECT_EQ(results[1].Obstacle, SaveObstacle::Stopped);
    EXPECT_EQ(ReasonOf(results[1]),
              u"The work was stopped before this file was written. It is as it was.");
    EXPECT_EQ(Temporaries(), 0U);
}

TEST_F(Group, StoppedWithALongFileItFinishesIt) {
    const Bytes audio(std::size_t{5} << 20, 'x');
    const Text path = Make(1, audio);
    Save(path);
    EXPECT_TRUE(group_.Working());
    EXPECT_TRUE(group_.Holds([&] {
        File file;
        EXPECT_TRUE(file.Open(path, File::Mode::Read).Ok());
        return file.Identity();
    }()));
    group_.Stop();
    while (group_.Working()) group_.Step();
    EXPECT_EQ(Take(), Outcomes{Written});
    EXPECT_TRUE(ReadFile(path) == FirstTag("New title", audio));
}

TEST_F(Group, ATrailerAloneIsWrittenAndTheFileStaysOpenForMore) {
    const Text path = Make(1);
    File file;
    ASSERT_EQ(group_.Open(path, file).Outcome, SaveOutcome::NoWork);
    group_.SaveID3v1({path, file}, ParseID3v1(test::Trailer("V1")));
    EXPECT_TRUE(file.IsOpen());
    group_.Save({path, file}, Titled("V2"));
    group_.Commit();
    EXPECT_EQ(Take(), (Outcomes{Written, Written}));
    EXPECT_TRUE(ReadFile(path) == FirstTag("V2", Audio + test::Trailer("V1")));
}

TEST_F(Group, ATrailerIsNotWrittenIntoAFileThatHasChanged) {
    const Text path = Make(1);
    File file;
    ASSERT_EQ(group_.Open(path, file).Outcome, SaveOutcome::NoWork);
    WriteFile(path, Noise(500));
    group_.SaveID3v1({path, file}, ParseID3v1(test::Trailer("V1")));
    EXPECT_EQ(Results().at(0).Obstacle, SaveObstacle::Changed);
    EXPECT_TRUE(ReadFile(path) == Noise(500));
}

TEST_F(Group, TheBytesAreThoseOfThePlan) {
    std::vector<Bytes> expected;
    std::vector<Text> paths;
    for (std::size_t i = 0; i < 100; ++i) {
        const Bytes tag = i % 3 == 0 ? Bytes() : test::WholeTag(Noise(i * 7), i % 5 * 40);
        const Bytes trailer = i % 2 == 0 ? Bytes() : test::Trailer("Old", 3);
        const Bytes before = tag + Noise(500 + i * 13) + trailer;
        TagChange change = Titled(Bytes(1 + i * 3, 't'));
        change.V1 = ParseID3v1(test::Trailer("New", 9));
        change.Modes.V1 = std::array{TagMode::Leave, TagMode::Write, TagMode::Remove}[i % 3];
        const OldFile old{static_cast<std::int64_t>(before.size()), !trailer.empty(), !tag.empty(),
                          static_cast<std::int64_t>(tag.size())};
        const SavePlan plan = PlanSave(old, change.V1, change.V2, change.Modes);
        ASSERT_NE(plan.Way, SaveWay::Refused);
        const Text path = Make(i, before);
        paths.push_back(path);
        File file;
        ASSERT_EQ(group_.Open(path, file).Outcome, SaveOutcome::NoWork);
        group_.Save({path, file}, change);
        while (group_.Working()) group_.Step();
        Bytes after = before;
        if (plan.Way == SaveWay::Rewrite) {
            after = plan.Head +
                    before.substr(static_cast<std::size_t>(plan.CarriedFrom),
                                  static_cast<std::size_t>(plan.CarriedLength)) +
                    plan.Trailer;
        } else {
            after.resize(std::max(after.size(), static_cast<std::size_t>(plan.NewSize)));
            after.replace(0, plan.Head.size(), plan.Head);
            const auto place = static_cast<std::size_t>(plan.TrailerPlace);
            after.replace(place, plan.Trailer.size(), plan.Trailer);
        }
        expected.push_back(after);
    }
    group_.Commit();
    EXPECT_EQ(Take(), Outcomes(100, Written));
    for (std::size_t i = 0; i < paths.size(); ++i) EXPECT_TRUE(ReadFile(paths[i]) == expected[i]);
}

}  // namespace
}  // namespace mdlPLM
