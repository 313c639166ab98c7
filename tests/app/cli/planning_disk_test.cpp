// A disk that only pretends answers as the machine's own would, and leaves that one alone.
#include "app/cli/planning_disk.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <random>

#include "app/cli/action_log.h"
#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::cli {
namespace {

constexpr auto Fail = IfTargetExists::Fail;
constexpr auto ReplaceIt = IfTargetExists::Replace;

Status CopyWhole(Disk& disk, TextView from, TextView to, IfTargetExists ifExists) {
    std::unique_ptr<PiecewiseCopy> copy;
    Status status = disk.BeginCopy(from, to, ifExists, copy);
    for (bool done = false; status.Ok() && !done;) status = copy->Step(done);
    return status;
}

TEST(PlanningDisk, ARenamedFileIsAtItsNewNameAndNotAtItsOldOne) {
    const TempFolder folder;
    const Text from = folder.File(u"a.mp3", "a");
    const Text to = folder / u"b.mp3";
    PlanningDisk disk;
    EXPECT_TRUE(disk.Rename(from, to, Fail).Ok());
    EXPECT_FALSE(disk.Exists(from));
    EXPECT_TRUE(disk.Exists(to));
    EXPECT_EQ(ReadFile(disk.ContentsAt(to)), "a");
    EXPECT_EQ(disk.Rename(from, folder / u"c.mp3", Fail).Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(ListTree(folder.Path()), std::vector<Bytes>{"a.mp3"});
}

TEST(PlanningDisk, AFolderThatIsPlannedCanBeFilled) {
    const TempFolder folder;
    const Text from = folder.File(u"a.mp3", "a");
    PlanningDisk disk;
    EXPECT_EQ(disk.CreateFolder(folder / u"x/y").Number(), ErrorNumber::PathNotFound);
    EXPECT_TRUE(disk.CreateFolder(folder / u"x").Ok());
    EXPECT_EQ(disk.CreateFolder(folder / u"x").Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_TRUE(disk.CreateFolder(folder / u"x/y").Ok());
    EXPECT_TRUE(disk.IsFolder(folder / u"x/y"));
    EXPECT_TRUE(disk.IsFolder(folder / u"x//y/"));
    EXPECT_TRUE(CopyWhole(disk, from, folder / u"x//y/a.mp3", Fail).Ok());
    EXPECT_TRUE(disk.Exists(folder / u"x/y/a.mp3"));
    EXPECT_TRUE(disk.Exists(from));
    EXPECT_FALSE(disk.IsSameFile(from, folder / u"x/y/a.mp3"));
    EXPECT_EQ(ListTree(folder.Path()), std::vector<Bytes>{"a.mp3"});
}

TEST(PlanningDisk, OneFolderByTwoNamesIsOneFolder) {
    const TempFolder folder;
    const Text from = folder.File(u"real/a.mp3");
    (void)folder.Link(u"link", u"real");
    PlanningDisk disk;
    EXPECT_TRUE(disk.IsSameFile(from, folder / u"link/a.mp3"));
    EXPECT_TRUE(disk.Rename(from, folder / u"real/b.mp3", Fail).Ok());
    EXPECT_TRUE(disk.Exists(folder / u"link/b.mp3"));
    EXPECT_FALSE(disk.Exists(folder / u"link/a.mp3"));
}

TEST(PlanningDisk, ANameMayHoldTheOtherSeparator) {
    const TempFolder folder;
    const Text from = folder.File(u"a.mp3", "a");
    const Text to = folder / u"b\\c.mp3";
    PlanningDisk disk;
    EXPECT_TRUE(disk.Rename(from, to, Fail).Ok());
    EXPECT_TRUE(disk.Exists(to));
    EXPECT_EQ(ReadFile(disk.ContentsAt(to)), "a");
}

TEST(PlanningDisk, WhatPermissionsWouldForbidFails) {
    const TempFolder folder;
    const Text file = folder.File(u"kept/a.mp3", "a");
    const Text secret = folder.File(u"b.mp3", "b");
    ASSERT_EQ(::chmod(NativePath(folder / u"kept").c_str(), 0555), 0);
    ASSERT_EQ(::chmod(NativePath(secret).c_str(), 0000), 0);
    const int wrong = RunInChild([&] {
        ObeyPermissions();
        const auto denied = [](Status status) {
            return status.Number() == ErrorNumber::PermissionDenied ? 0 : 1;
        };
        int count = 0;
        for (Disk* disk : {static_cast<Disk*>(std::make_unique<PlanningDisk>().release()),
                           static_cast<Disk*>(std::make_unique<SystemDisk>().release())}) {
            count += denied(disk->Rename(file, folder / u"kept/c.mp3", Fail));
            count += denied(disk->Rename(secret, folder / u"kept/c.mp3", Fail));
            count += denied(disk->CreateFolder(folder / u"kept/x"));
            count += denied(disk->DeleteFile(file));
            count += denied(CopyWhole(*disk, secret, folder / u"c.mp3", Fail));
        }
        return count;
    });
    ASSERT_EQ(::chmod(NativePath(folder / u"kept").c_str(), 0755), 0);
    EXPECT_EQ(wrong, 0);
}

// The same steps, drawn at random, on a pretended and a real disk.
class TwoDisks {
public:
    explicit TwoDisks(unsigned seed) : random_(seed) {
        for (const Text name : {u"a", u"b", u"c", u"x/a", u"x/d"})
            for (const TempFolder* folder : {&pretended_, &real_})
                (void)folder->File(name, NativePath(name));
        before_ = ReadTree(pretended_.Path());
    }
    void Walk() {
        for (int step = 0; step < 40; ++step) TakeStep();
        EXPECT_EQ(ReadTree(pretended_.Path()), before_);
    }

private:
    static constexpr TextView Names[] = {u"a",   u"b",   u"c",   u"d", u"A",   u"x",
                                         u"x/a", u"x/d", u"x/e", u"y", u"y/a", u"y/b"};
    TextView Name() { return Names[random_() % std::size(Names)]; }

    void TakeStep() {
        const TextView from = Name();
        const TextView to = Name();
        const IfTargetExists ifExists = random_() % 2 == 0 ? Fail : ReplaceIt;
        const auto act = random_() % 4;
        const auto take = [&](Disk& disk, const TempFolder& folder) {
            if (act == 0) return CopyWhole(disk, folder / from, folder / to, ifExists);
            if (act == 1) return disk.CreateFolder(folder / to);
            if (act == 2 && !real_system_.IsFolder(real_ / to)) return disk.DeleteFile(folder / to);
            // Whole folders are renamed by nobody.
            if (real_system_.IsFolder(real_ / from)) return Status();
            return disk.Rename(folder / from, folder / to, ifExists);
        };
        const Status pretended = take(planning_, pretended_);
        const Status real = take(real_system_, real_);
        EXPECT_EQ(pretended.Number(), real.Number())
            << act << ' ' << NativePath(from) << ' ' << NativePath(to);
        Compare();
    }

    void Compare() {
        for (const TextView name : Names) {
            const bool exists = real_system_.Exists(real_ / name);
            ASSERT_EQ(planning_.Exists(pretended_ / name), exists) << NativePath(name);
            const bool folder = real_system_.IsFolder(real_ / name);
            ASSERT_EQ(planning_.IsFolder(pretended_ / name), folder) << NativePath(name);
            if (exists && !folder) {
                ASSERT_EQ(ReadFile(planning_.ContentsAt(pretended_ / name)),
                          ReadFile(real_ / name));
            }
        }
    }

    std::mt19937 random_;
    TempFolder pretended_;
    TempFolder real_;
    std::map<Bytes, Bytes> before_;
    PlanningDisk planning_;
    SystemDisk real_system_;
};

TEST(PlanningDisk, AnswersAsTheRealOneWhateverIsDone) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        TwoDisks(seed).Walk();
        if (HasFailure()) return;
    }
}

TEST(ActionLog, TellsWhatSucceeded) {
    const TempFolder folder;
    const Text from = folder.File(u"a.mp3", "a");
    const Text other = folder.File(u"b.mp3", "b");
    PlanningDisk planning;
    ActionLog log(planning);
    EXPECT_FALSE(log.Rename(from, other, Fail).Ok());
    EXPECT_TRUE(CopyWhole(log, from, other, ReplaceIt).Ok());
    EXPECT_TRUE(log.CreateFolder(folder / u"x").Ok());
    EXPECT_TRUE(log.Rename(from, folder / u"x/a.mp3", Fail).Ok());
    EXPECT_TRUE(log.DeleteFile(other).Ok());
    const std::vector<Action> actions = log.Take();
    ASSERT_EQ(actions.size(), 4U);
    EXPECT_EQ(actions[0].Kind, ActionKind::Copy);
    EXPECT_TRUE(actions[0].Replaced);
    EXPECT_EQ(actions[1].Kind, ActionKind::CreateFolder);
    EXPECT_EQ(actions[1].From, folder / u"x");
    EXPECT_EQ(actions[2].Kind, ActionKind::Rename);
    EXPECT_EQ(actions[2].To, folder / u"x/a.mp3");
    EXPECT_FALSE(actions[2].Replaced);
    EXPECT_EQ(actions[3].Kind, ActionKind::Delete);
    EXPECT_TRUE(log.Take().empty());
}

}  // namespace
}  // namespace mdlPLM::cli
