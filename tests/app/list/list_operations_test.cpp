#include "app/list/list_operations.h"

#include <gtest/gtest.h>

#include "core/platform/path.h"
#include "core/tags/id3v1.h"
#include "tests/support/recording_disk.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;

namespace {

using Names = std::vector<Text>;

constexpr std::int64_t Megabyte = std::int64_t{1024} * 1024;

class ListOperations : public ::testing::Test {
protected:
    Text Add(TextView name, BytesView contents = {}) {
        Text path = temp_.File(name, contents);
        list_.Append({path});
        return path;
    }
    void AddMissing(TextView name) { list_.Append({temp_ / name}); }

    [[nodiscard]] Names Listed() const {
        Names names;
        for (FileList::Index row = 0; row < list_.Count(); ++row) {
            names.push_back(FileNameOfPath(list_.Path(row)));
        }
        return names;
    }
    [[nodiscard]] Names Selected() const {
        Names names;
        for (const FileList::Index row : list_.SelectedRows()) {
            names.push_back(FileNameOfPath(list_.Path(row)));
        }
        return names;
    }

    TempFolder temp_;
    FileList list_;
};

Bytes Trailer() { return "TAG" + Bytes(ID3v1Size - 3, '\0'); }

}  // namespace

TEST(FilesText, IsTheSameForOneAndMany) {
    EXPECT_EQ(FilesText(0), u"0 files");
    EXPECT_EQ(FilesText(1), u"1 files");
    EXPECT_EQ(FilesText(1234567), u"1234567 files");
}

TEST_F(ListOperations, TheCounterShowsCountAndMegabytes) {
    EXPECT_EQ(CounterText(list_), u"0 files (0 Mb)");
    for (int i = 0; i < 1500; ++i) list_.Append({u"/m/a.mp3"});
    list_.SetSize(0, Megabyte);
    list_.SetSize(1, Megabyte / 2);
    EXPECT_EQ(CounterText(list_), u"1500 files (1.5 Mb)");
}

TEST_F(ListOperations, TheSizeIsRoundedToTwoDecimals) {
    struct {
        std::int64_t Bytes;
        double Mb;
        TextView Label;
    } const cases[] = {
        {1, 0, u"1 files (0 Mb)"},
        {5242, 0, u"1 files (0 Mb)"},
        {5243, 0.01, u"1 files (0.01 Mb)"},
        {3 * Megabyte, 3, u"1 files (3 Mb)"},
        {1294496, 1.23, u"1 files (1.23 Mb)"},
        {5120000 * Megabyte, 5120000, u"1 files (5120000 Mb)"},
    };
    list_.Append({u"/m/a.mp3"});
    for (const auto& each : cases) {
        list_.SetSize(0, each.Bytes);
        EXPECT_DOUBLE_EQ(GetListSizeMb(list_), each.Mb);
        EXPECT_EQ(CounterText(list_), each.Label);
    }
}

TEST_F(ListOperations, SizesAreWorkedOutInSlices) {
    for (int i = 1; i <= 5; ++i) {
        Add(NumberText(static_cast<long long>(i)) + u".mp3",
            Bytes(static_cast<std::size_t>(i), 'x'));
    }
    EXPECT_EQ(UpdateSizes(list_, 0, 2), 2U);
    EXPECT_EQ(list_.Size(1), 2);
    EXPECT_EQ(list_.Size(2), -1);
    list_.SetSize(2, 3);
    EXPECT_EQ(UpdateSizes(list_, 2, 1), 4U);
    EXPECT_EQ(UpdateSizes(list_, 4, 0), 4U);
    EXPECT_EQ(UpdateSizes(list_, 4, 100), 5U);
    EXPECT_EQ(list_.Size(4), 5);
    EXPECT_EQ(UpdateSizes(list_, 0, 100), list_.Count());
}

TEST_F(ListOperations, AFileThatHasGoneDropsOutOfTheSum) {
    Add(u"a.mp3", Bytes(Megabyte, 'x'));
    AddMissing(u"gone.mp3");
    list_.Append({temp_.Folder(u"folder")});
    UpdateSizes(list_, 0, 10);
    EXPECT_EQ(list_.Size(1), 0);
    EXPECT_EQ(list_.Size(2), 0);
    EXPECT_EQ(CounterText(list_), u"3 files (1 Mb)");
}

TEST_F(ListOperations, TagsAreKnownByTheirThreeBytes) {
    struct {
        const char* What;
        Bytes Contents;
        bool V1;
        bool V2;
    } const cases[] = {
        {"both", "ID3..." + Trailer(), true, true},
        {"trailer alone", Trailer(), true, false},
        {"one byte too short", Trailer().substr(0, 127), false, false},
        {"trailer not at the end", Trailer() + "x", false, false},
        {"lower case", "id3" + Bytes(200, 'x'), false, false},
        {"three bytes", "ID3", false, true},
        {"two bytes", "ID", false, false},
        {"empty", "", false, false},
        {"v2 behind the start", "xID3" + Bytes(200, 'x'), false, false},
    };
    for (const auto& each : cases) {
        const Text path = temp_.File(u"x.mp3", each.Contents);
        EXPECT_EQ(HasTag(path, TagKind::V1), each.V1) << each.What;
        EXPECT_EQ(HasTag(path, TagKind::V2), each.V2) << each.What;
    }
    EXPECT_FALSE(HasTag(temp_ / u"missing.mp3", TagKind::V2));
    EXPECT_FALSE(HasTag(temp_.Path(), TagKind::V2));
}

TEST_F(ListOperations, SelectingByTagSelectsExactlyThoseAndDropsMissingOnes) {
    Add(u"both.mp3", "ID3" + Trailer());
    AddMissing(u"gone.mp3");
    Add(u"none.mp3", "sound");
    Add(u"v2.mp3", "ID3 sound");
    Add(u"v1.mp3", "sound" + Trailer());
    list_.Select(1, true);
    list_.Select(2, true);
    SelectByTag(list_, TagKind::V1);
    EXPECT_EQ(Listed(), (Names{u"both.mp3", u"none.mp3", u"v2.mp3", u"v1.mp3"}));
    EXPECT_EQ(Selected(), (Names{u"both.mp3", u"v1.mp3"}));
    SelectByTag(list_, TagKind::V2);
    EXPECT_EQ(Selected(), (Names{u"both.mp3", u"v2.mp3"}));
    EXPECT_EQ(list_.SelectedCount(), 2U);
}

TEST_F(ListOperations, MissingFilesAreRemovedAndSelectionsKept) {
    AddMissing(u"gone.mp3");
    Add(u"a.mp3");
    AddMissing(u"gone too.mp3");
    Add(u"b.mp3");
    list_.SelectAll();
    list_.Select(3, false);
    RemoveNonExistent(list_);
    EXPECT_EQ(Listed(), (Names{u"a.mp3", u"b.mp3"}));
    EXPECT_EQ(Selected(), (Names{u"a.mp3"}));
}

TEST_F(ListOperations, SelectedFilesAreDeletedFromDiskAndList) {
    Add(u"a.mp3", "x");
    Add(u"b.mp3", "x");
    Add(u"c.mp3", "x");
    list_.Select(0, true);
    list_.Select(2, true);
    SystemDisk disk;
    EXPECT_EQ(DeleteSelectedFromDisk(list_, disk), 0U);
    EXPECT_EQ(Listed(), (Names{u"b.mp3"}));
    EXPECT_EQ(ListTree(temp_.Path()), (std::vector<Bytes>{"b.mp3"}));
}

TEST_F(ListOperations, AFileThatCannotBeDeletedKeepsItsEntry) {
    Add(u"a.mp3", "x");
    Add(u"b.mp3", "x");
    list_.Append({temp_.Folder(u"folder")});
    list_.SelectAll();
    RecordingDisk disk;
    disk.FailCall(DiskOperation::DeleteFile, ErrorNumber::PermissionDenied);
    EXPECT_EQ(DeleteSelectedFromDisk(list_, disk), 2U);
    EXPECT_EQ(Listed(), (Names{u"a.mp3", u"folder"}));
    EXPECT_EQ(Selected(), Listed());
    EXPECT_EQ(ListTree(temp_.Path()), (std::vector<Bytes>{"a.mp3", "folder/"}));
}

TEST_F(ListOperations, AFileThatIsNoLongerThereCountsAsDeleted) {
    AddMissing(u"gone.mp3");
    AddMissing(u"no folder/gone.mp3");
    list_.SelectAll();
    SystemDisk disk;
    EXPECT_EQ(DeleteSelectedFromDisk(list_, disk), 0U);
    EXPECT_EQ(list_.Count(), 0U);
}

TEST_F(ListOperations, DeletingALinkLeavesTheFileItLeadsTo) {
    const Text file = temp_.File(u"a.mp3", "x");
    list_.Append({temp_.Link(u"link.mp3", u"a.mp3")});
    list_.SelectAll();
    SystemDisk disk;
    EXPECT_EQ(DeleteSelectedFromDisk(list_, disk), 0U);
    EXPECT_EQ(ListTree(temp_.Path()), (std::vector<Bytes>{"a.mp3"}));
}

TEST_F(ListOperations, AScanLeavesTheListAloneUntilItIsApplied) {
    for (int i = 0; i < 10; ++i) {
        const Text name = NumberText(static_cast<long long>(i)) + u".mp3";
        i % 2 == 0 ? (void)Add(name, "ID3") : AddMissing(name);
    }
    ListScan scan = ScanForTag(list_, TagKind::V2);
    EXPECT_TRUE(scan.Step(4));
    EXPECT_EQ(scan.Done(), 4U);
    EXPECT_EQ(scan.Count(ListScan::Finding::Match), 2U);
    EXPECT_TRUE(scan.Step(5));
    EXPECT_FALSE(scan.Step(5));
    EXPECT_FALSE(scan.Step(5));
    EXPECT_EQ(scan.Done(), 10U);
    EXPECT_EQ(list_.Count(), 10U);
    EXPECT_EQ(list_.SelectedCount(), 0U);
    scan.SelectMatches();
    scan.RemoveGone();
    EXPECT_EQ(Listed(), (Names{u"0.mp3", u"2.mp3", u"4.mp3", u"6.mp3", u"8.mp3"}));
    EXPECT_EQ(list_.SelectedCount(), 5U);
}

TEST_F(ListOperations, ADeletionTakesTheFilesThatWereSelectedAtItsStart) {
    for (const TextView name : {u"a.mp3", u"b.mp3", u"c.mp3"}) Add(name, "x");
    list_.Select(0, true);
    list_.Select(1, true);
    SystemDisk disk;
    ListScan deletion = DeletionFromDisk(list_, disk);
    EXPECT_TRUE(deletion.Step(1));
    list_.SelectOnly(2);
    EXPECT_FALSE(deletion.Step(2));
    deletion.RemoveGone();
    EXPECT_EQ(Listed(), (Names{u"c.mp3"}));
    EXPECT_EQ(ListTree(temp_.Path()), (std::vector<Bytes>{"c.mp3"}));
}

TEST_F(ListOperations, AStoppedDeletionRemovesWhatIsDeletedSoFar) {
    for (const TextView name : {u"a.mp3", u"b.mp3", u"c.mp3"}) Add(name, "x");
    list_.SelectAll();
    SystemDisk disk;
    ListScan deletion = DeletionFromDisk(list_, disk);
    EXPECT_TRUE(deletion.Step(2));
    deletion.RemoveGone();
    EXPECT_EQ(Listed(), (Names{u"c.mp3"}));
    EXPECT_EQ(ListTree(temp_.Path()), (std::vector<Bytes>{"c.mp3"}));
}
