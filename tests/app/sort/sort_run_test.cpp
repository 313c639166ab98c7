// The run over the list: which entries, in which order, how it is stopped, what the list looks like
// on the way and at the end.
#include "core/names/existing_target.h"
#include "tests/app/sort/sort_fixture.h"

using namespace mdlPLM;

namespace {

/// Counts how often the rows of a list changed.
class Resets : public FileList::Observer {
public:
    void RowsAboutToChange() override {}
    void RowsChanged() override { ++Count; }
    void NamesChanged(FileList::Index, FileList::Index) override {}
    void SelectionChanged() override {}
    int Count = 0;
};

/// Files in memory only, so that copies take as many steps as a test wants.
class SortInMemory : public SortTest {
protected:
    SortInMemory() {
        memory_.Folders = {u"/in", u"/to"};
        choices_.txtTargetDir = u"/to";
    }
    void AddFiles(int count) {
        for (int i = 0; i < count; ++i) {
            const Text path = u"/in/" + NumberText(static_cast<long long>(i)) + u".mp3";
            memory_.Files.insert(path);
            AddPath(path);
        }
    }
    std::unique_ptr<SortRun> Start() {
        return std::make_unique<SortRun>(list_, choices_, SortStart::All, context_, memory_,
                                         prompts_);
    }

    MemoryDisk memory_;
    NamingContext context_ = Context();
};

}  // namespace

TEST_F(SortInMemory, NothingSelectedFinishesAtOnce) {
    AddFiles(2);
    list_.SelectNone();
    const auto run = Start();
    EXPECT_FALSE(run->Step());
    EXPECT_TRUE(run->Finished());
    EXPECT_EQ(ReportOf(*run), Counts(0));
    EXPECT_EQ(run->NextRow(), list_.Count());
    EXPECT_EQ(memory_.Files.size(), 2U);
}

TEST_F(SortInMemory, OnlySelectedEntriesAreSorted) {
    AddFiles(5);
    list_.Select(0, false);
    list_.Select(3, false);
    const auto run = Start();
    while (run->Step()) {
    }
    EXPECT_EQ(ReportOf(*run), Counts(3));
    EXPECT_EQ(Listed(), (Names{u"0.mp3", u"3.mp3"}));
    EXPECT_EQ(memory_.Files.count(u"/to/1.mp3"), 1U);
    EXPECT_EQ(memory_.Files.count(u"/to/0.mp3"), 0U);
}

TEST_F(SortInMemory, TheEntriesSelectedAtTheStartAreTheOnesSorted) {
    AddFiles(3);
    const auto run = Start();
    EXPECT_TRUE(run->Step());
    list_.SelectNone();
    while (run->Step()) {
    }
    EXPECT_EQ(ReportOf(*run), Counts(3));
}

TEST_F(SortInMemory, OneStepHandlesOneFileInListOrder) {
    AddFiles(3);
    const auto run = Start();
    EXPECT_EQ(run->Progress().Total, 3U);
    EXPECT_EQ(run->Progress().Done, 0U);
    EXPECT_TRUE(run->Step());
    EXPECT_EQ(run->Progress().Done, 1U);
    EXPECT_EQ(run->Progress().Source, u"/in/0.mp3");
    EXPECT_EQ(run->Progress().Target, u"/to/0.mp3");
    EXPECT_TRUE(run->Step());
    EXPECT_EQ(run->Progress().Source, u"/in/1.mp3");
    EXPECT_FALSE(run->Step());
    EXPECT_EQ(run->Progress().Done, 3U);
    EXPECT_TRUE(run->Finished());
    EXPECT_FALSE(run->Step());
}

TEST_F(SortInMemory, TheMethodIsNamed) {
    const std::pair<SortMethod, TextView> texts[] = {{SortMethod::Copy, u"Copying file:"},
                                                     {SortMethod::Move, u"Moving file:"},
                                                     {SortMethod::Rename, u"Renaming file:"}};
    for (const auto& [method, text] : texts) {
        choices_.Method = method;
        EXPECT_EQ(Start()->Progress().Each, text);
    }
}

TEST_F(SortInMemory, ALargeCopyTakesSeveralSteps) {
    AddFiles(2);
    memory_.CopySteps = 3;
    const auto run = Start();
    EXPECT_TRUE(run->Step());
    EXPECT_EQ(run->Progress().Done, 0U);
    EXPECT_EQ(run->Progress().FileDone, 1);
    EXPECT_EQ(run->Progress().FileTotal, 3);
    EXPECT_EQ(memory_.Files.count(u"/to/0.mp3"), 0U);
    EXPECT_TRUE(run->Step());
    EXPECT_EQ(run->Progress().FileDone, 2);
    EXPECT_TRUE(run->Step());
    EXPECT_EQ(run->Progress().Done, 1U);
    EXPECT_EQ(run->Progress().FileTotal, 0);
    EXPECT_EQ(memory_.Files.count(u"/to/0.mp3"), 1U);
    while (run->Step()) {
    }
    EXPECT_EQ(ReportOf(*run), Counts(2));
}

TEST_F(SortInMemory, StoppingFinishesTheCopyUnderWayAndBeginsNoFurtherFile) {
    AddFiles(3);
    memory_.CopySteps = 3;
    const auto run = Start();
    EXPECT_TRUE(run->Step());
    run->Stop();
    while (run->Step()) {
    }
    SortReport expected = Counts(1);
    expected.Stopped = true;
    EXPECT_EQ(ReportOf(*run), expected);
    EXPECT_EQ(memory_.Files.count(u"/to/0.mp3"), 1U);
    EXPECT_EQ(memory_.Files.count(u"/to/1.mp3"), 0U);
    EXPECT_EQ(Listed(), (Names{u"1.mp3", u"2.mp3"}));
}

TEST_F(SortInMemory, StoppingDuringTheLastCopyIsNoStop) {
    AddFiles(1);
    memory_.CopySteps = 2;
    const auto run = Start();
    EXPECT_TRUE(run->Step());
    run->Stop();
    EXPECT_FALSE(run->Step());
    EXPECT_EQ(ReportOf(*run), Counts(1));
}

TEST_F(SortInMemory, ARunThatIsDroppedInMidCopyLeavesNothingBehind) {
    AddFiles(1);
    memory_.CopySteps = 3;
    {
        const auto run = Start();
        EXPECT_TRUE(run->Step());
    }
    EXPECT_EQ(memory_.Files, (std::set<Text>{u"/in/0.mp3"}));
    EXPECT_EQ(list_.Count(), 1U);
}

TEST_F(SortInMemory, CancelEndsTheRunAndHandledFilesStayHandled) {
    AddFiles(4);
    memory_.Files.insert(u"/to/1.mp3");
    memory_.Files.insert(u"/to/2.mp3");
    prompts_.Answers = {Answer::No, Answer::Cancel};
    const auto run = Start();
    while (run->Step()) {
    }
    SortReport expected = Counts(2);
    expected.Cancelled = true;
    EXPECT_EQ(ReportOf(*run), expected);
    EXPECT_EQ(run->Progress().Done, 2U);
    EXPECT_EQ(Listed(), (Names{u"2.mp3", u"3.mp3"}));
    EXPECT_EQ(memory_.Files.count(u"/to/3.mp3"), 0U);
}

TEST_F(SortInMemory, HandledEntriesLeaveTheListInOneChange) {
    AddFiles(100);
    Resets resets;
    list_.SetObserver(&resets);
    const auto run = Start();
    while (run->Step()) {
    }
    list_.SetObserver(nullptr);
    EXPECT_EQ(resets.Count, 1);
    EXPECT_EQ(list_.Count(), 0U);
}

TEST_F(SortInMemory, FlushingInBetweenTakesOutWhatIsHandledSoFar) {
    AddFiles(6);
    list_.Select(1, false);
    memory_.Files.erase(u"/in/2.mp3");
    const auto run = Start();
    EXPECT_TRUE(run->Step());
    EXPECT_EQ(list_.Count(), 6U);
    run->FlushRemovals();
    EXPECT_EQ(Listed(), (Names{u"1.mp3", u"2.mp3", u"3.mp3", u"4.mp3", u"5.mp3"}));
    EXPECT_TRUE(run->Step());
    EXPECT_TRUE(run->Step());
    EXPECT_TRUE(run->Step());
    run->FlushRemovals();
    run->FlushRemovals();
    EXPECT_EQ(Listed(), (Names{u"1.mp3", u"2.mp3", u"5.mp3"}));
    EXPECT_FALSE(run->Step());
    EXPECT_EQ(Listed(), (Names{u"1.mp3", u"2.mp3"}));
    EXPECT_EQ(ReportOf(*run), Counts(4, 1));
    EXPECT_TRUE(list_.Selected(1));
    EXPECT_FALSE(list_.Selected(0));
}

TEST_F(SortInMemory, TheNextRowIsTheOneThatTookTheLastSortedOnesPlace) {
    AddFiles(6);
    list_.SelectNone();
    list_.Select(1, true);
    list_.Select(3, true);
    const auto run = Start();
    EXPECT_TRUE(run->Step());
    EXPECT_EQ(run->NextRow(), 1U);
    run->FlushRemovals();
    EXPECT_EQ(run->NextRow(), 1U);
    EXPECT_FALSE(run->Step());
    EXPECT_EQ(Listed(), (Names{u"0.mp3", u"2.mp3", u"4.mp3", u"5.mp3"}));
    EXPECT_EQ(list_.Path(run->NextRow()), u"/in/4.mp3");
}

TEST_F(SortInMemory, TheNextRowIsCountedAsIfWhatIsHandledWereGone) {
    AddFiles(6);
    list_.SelectNone();
    list_.Select(1, true);
    list_.Select(3, true);
    list_.Select(5, true);
    const auto run = Start();
    EXPECT_TRUE(run->Step());
    EXPECT_TRUE(run->Step());
    EXPECT_EQ(run->NextRow(), 2U);
    run->FlushRemovals();
    EXPECT_EQ(list_.Path(run->NextRow()), u"/in/4.mp3");
}

TEST_F(SortInMemory, ThereIsNoNextRowBehindTheLastOfTheList) {
    AddFiles(3);
    list_.Select(0, false);
    const auto run = Start();
    while (run->Step()) {
    }
    EXPECT_EQ(list_.Count(), 1U);
    EXPECT_EQ(run->NextRow(), list_.Count());
}

TEST_F(SortInMemory, ThereIsNoNextRowWhenNothingWasHandled) {
    AddFiles(3);
    memory_.Files.clear();
    const auto run = Start();
    while (run->Step()) {
    }
    EXPECT_EQ(ReportOf(*run), Counts(0, 3));
    EXPECT_EQ(run->NextRow(), 3U);
}

TEST_F(SortInMemory, TheLastEntryIsKnownAfterEntriesBeforeItWereTakenOut) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"0";
    for (const TextView name : {u"A - 1.mp3", u"A - 2.mp3", u"no artist.mp3", u"last.mp3"}) {
        memory_.Files.insert(u"/in/" + Text(name));
        AddPath(u"/in/" + Text(name));
    }
    const auto run = Start();
    while (run->Step()) run->FlushRemovals();
    EXPECT_EQ(ReportOf(*run), Counts(3, 1));
    EXPECT_EQ(memory_.Files, (std::set<Text>{u"/in/A - 1.mp3", u"/in/A - 2.mp3", u"/in/last.mp3",
                                             u"/in/no artist.mp3", u"/to/A/A - 1.mp3",
                                             u"/to/A/A - 2.mp3", u"/to/last.mp3"}));
}

TEST_F(SortInMemory, TheReportSaysWhatBecameOfEveryEntry) {
    AddFiles(4);
    memory_.Files.erase(u"/in/1.mp3");
    memory_.Files.insert(u"/to/2.mp3");
    choices_.Exists = IfExists::Skip;
    memory_.CopySteps = 2;
    RecordingDisk failing(memory_);
    failing.FailCall(DiskOperation::BeginCopy, ErrorNumber::DiskFull, 1);
    SortRun run(list_, choices_, SortStart::All, context_, failing, prompts_);
    while (run.Step()) {
    }
    const std::vector<FileOutcome>& files = run.Report().Files;
    ASSERT_EQ(files.size(), 4U);
    EXPECT_TRUE(files[0].What == FileFate::Done && files[0].Path == u"/in/0.mp3");
    EXPECT_EQ(files[0].NewPath, u"/to/0.mp3");
    EXPECT_TRUE(files[1].What == FileFate::Skipped && files[1].Path == u"/in/1.mp3");
    EXPECT_EQ(files[1].Reason.What, Why::Missing);
    EXPECT_TRUE(files[2].What == FileFate::Skipped && files[2].Path == u"/in/2.mp3");
    EXPECT_EQ(files[2].Reason.What, Why::TargetExists);
    EXPECT_EQ(files[2].NewPath, u"/to/2.mp3");
    EXPECT_TRUE(files[3].What == FileFate::Failed && files[3].Path == u"/in/3.mp3");
    EXPECT_EQ(files[3].Reason.Error, ErrorNumber::DiskFull);
    // The entry whose target was left alone leaves the list, but it is not what was done.
    EXPECT_EQ(run.Handled(), 2U);
    EXPECT_EQ(SummaryText(run.Report(), SortWording), u"1 done, 2 skipped, 1 failed");
}

TEST_F(SortInMemory, TheReportHoldsTheQuestionsAndTheirAnswers) {
    AddFiles(4);
    for (const TextView name : {u"/to/0.mp3", u"/to/1.mp3", u"/to/2.mp3"})
        memory_.Files.insert(Text(name));
    prompts_.Answers = {Answer::Yes, Answer::No, Answer::Cancel};
    const auto run = Start();
    while (run->Step()) {
    }
    const std::vector<FileOutcome>& files = run->Report().Files;
    ASSERT_EQ(files.size(), 2U);
    EXPECT_TRUE(files[0].Replaced);
    EXPECT_EQ(files[0].Answered, Answer::Yes);
    EXPECT_EQ(files[0].Question, ExistingTargetQuestion(u"/to/0.mp3").Body);
    EXPECT_FALSE(files[1].Replaced);
    EXPECT_EQ(files[1].Answered, Answer::No);
    ASSERT_TRUE(run->Report().Cancelled);
    EXPECT_EQ(run->Report().Cancelled->Path, u"/in/2.mp3");
    EXPECT_EQ(run->Report().Cancelled->Answered, Answer::Cancel);
}

TEST_F(SortInMemory, AFileThatIsInItsPlaceIsUnchangedAndCountsAsSorted) {
    AddFiles(1);
    choices_.txtTargetDir = u"/in";
    const auto run = Start();
    while (run->Step()) {
    }
    ASSERT_EQ(run->Report().Files.size(), 1U);
    EXPECT_EQ(run->Report().Files[0].What, FileFate::Unchanged);
    EXPECT_EQ(SummaryText(run->Report(), SortWording), u"1 done, 0 skipped, 0 failed");
}

TEST_F(SortInMemory, AThousandFilesGoWithoutTouchingTheOthers) {
    AddFiles(2000);
    list_.SelectWhere([](FileList::Index row) { return row % 2 == 0; });
    choices_.Method = SortMethod::Move;
    const auto run = Start();
    for (int step = 1; run->Step(); ++step) {
        if (step % 64 == 0) run->FlushRemovals();
    }
    EXPECT_EQ(ReportOf(*run), Counts(1000));
    ASSERT_EQ(list_.Count(), 1000U);
    for (FileList::Index row = 0; row < 1000; ++row) {
        ASSERT_EQ(memory_.Files.count(list_.Path(row)), 1U);
    }
}
