// Batches whose files get in each other's way. Whatever the order, no file of a batch is lost;
// files are counted by their contents.
#include <array>
#include <random>

#include "app/list/folder_walk.h"
#include "tests/app/sort/sort_fixture.h"
#include "tests/support/contents.h"
#include "tests/support/says_no.h"

using namespace mdlPLM;

namespace {

using test::Contents;
using test::ContentsBelow;
using test::LostSince;

// The new name turns the three words of the old one by a place: "A - B - C" wants to be
// "B - C - A", which wants to be "C - A - B", which wants to be the first.
class Batches : public SortTest {
protected:
    Batches() {
        choices_.chkConvert = true;
        settings_.InPattern = u"%artist - %album - %title.mp3";
        choices_.OutPattern = u"%album - %title - %artist.mp3";
    }

    /// Each file holds its own name.
    void AddNamed(const std::vector<Text>& names) {
        for (const Text& name : names) Add(name, NativePath(name));
    }
    /// Every file goes where it is already, so that new names meet old ones.
    void SortInPlace() { choices_.txtTargetDir = temp_ / u"in"; }

    SortReport SortSayingNo(std::size_t mostSteps = 1000000) {
        const NamingContext context = Context();
        SortRun run(list_, choices_, SortStart::All, context, disk_, no_);
        for (std::size_t step = 0; run.Step(); ++step)
            if (step + 1 == mostSteps) run.Stop();
        return ReportOf(run);
    }

    test::SaysNo no_;
};

}  // namespace

TEST_F(Batches, ANameThatRepeatsIsAskedForEvenUnderReplaceWhereAFileWouldBeLost) {
    choices_.Exists = IfExists::Replace;
    choices_.OutPattern = u"%album.mp3";
    const std::vector<Text> names = {u"A - Same - 1.mp3", u"B - Same - 2.mp3", u"C - Same - 3.mp3"};
    for (const SortMethod method : Methods) {
        list_.Clear();
        AddNamed(names);
        choices_.Method = method;
        choices_.txtTargetDir = temp_.Folder(u"to " + NumberText(static_cast<long long>(method)));
        const Contents before = ContentsBelow(temp_ / u"in");
        no_.Asked = 0;
        SortSayingNo();
        EXPECT_EQ(no_.Asked, 2);
        EXPECT_EQ(LostSince(before, temp_.Path()), Contents{});
    }
}

TEST_F(Batches, AYesReplacesAFileOfTheBatch) {
    choices_.Exists = IfExists::Replace;
    choices_.Method = SortMethod::Move;
    choices_.OutPattern = u"%album.mp3";
    AddNamed({u"A - Same - 1.mp3", u"B - Same - 2.mp3"});
    prompts_.Answers = {Answer::Yes};
    EXPECT_EQ(Sort(), Counts(2));
    EXPECT_EQ(ContentsBelow(temp_.Path()), (Contents{"B - Same - 2.mp3"}));
}

TEST_F(Batches, ACopyOfOneFileIsNotReplacedByThatOfAnotherWithoutAQuestion) {
    choices_.Exists = IfExists::Replace;
    choices_.OutPattern = u"%album.mp3";
    WriteFile(target_ + u"/Same.mp3", "there before");
    AddNamed({u"A - Same - 1.mp3", u"B - Same - 2.mp3", u"C - Same - 3.mp3"});
    prompts_.Answers = {Answer::No, Answer::Yes};
    EXPECT_EQ(Sort(), Counts(3));
    EXPECT_EQ(prompts_.Log.size(), 2U);
    EXPECT_EQ(ReadFile(target_ + u"/Same.mp3"), "C - Same - 3.mp3");
    EXPECT_EQ(InSource().size(), 3U);
}

TEST_F(Batches, ACopyDoesNotReplaceAFileOfTheBatchThatIsYetToCome) {
    choices_.Exists = IfExists::Replace;
    choices_.txtTargetDir = temp_ / u"in";
    AddNamed({u"A - B - C.mp3", u"B - C - A.mp3"});
    const Contents before = ContentsBelow(temp_ / u"in");
    SortSayingNo();
    EXPECT_GE(no_.Asked, 1);
    EXPECT_EQ(LostSince(before, temp_ / u"in"), Contents{});
}

TEST_F(Batches, FilesThatWereThereBeforeAreReplacedWithoutAQuestion) {
    choices_.Exists = IfExists::Replace;
    AddNamed({u"A - B - C.mp3"});
    for (const SortMethod method : Methods) {
        list_.Clear();
        AddNamed({u"A - B - C.mp3", u"D - E - F.mp3"});
        choices_.Method = method;
        const Text place = method == SortMethod::Rename ? temp_ / u"in" : target_;
        WriteFile(place + u"/B - C - A.mp3", "there before");
        EXPECT_EQ(Sort(), Counts(2));
        EXPECT_EQ(ReadFile(place + u"/B - C - A.mp3"), "A - B - C.mp3");
    }
}

TEST_F(Batches, AFileOfTheBatchIsKnownThroughALinkedFolderToo) {
    choices_.Exists = IfExists::Replace;
    choices_.Method = SortMethod::Move;
    AddNamed({u"A - B - C.mp3", u"B - C - A.mp3"});
    choices_.txtTargetDir = temp_.Link(u"linked", u"in");
    const Contents before = ContentsBelow(temp_ / u"in");
    SortSayingNo();
    EXPECT_EQ(LostSince(before, temp_ / u"in"), Contents{});
    EXPECT_EQ(no_.Asked, 1);
}

TEST_F(Batches, AMoveToAnotherFileSystemKnowsItsFilesToo) {
    choices_.Exists = IfExists::Replace;
    choices_.Method = SortMethod::Move;
    choices_.OutPattern = u"%album.mp3";
    AddNamed({u"A - Same - 1.mp3", u"B - Same - 2.mp3"});
    disk_.Inject = [](const DiskCall& call, std::size_t) -> Status {
        return call.Operation == DiskOperation::Rename ? ErrorNumber::DifferentDrive
                                                       : ErrorNumber::None;
    };
    SortSayingNo();
    EXPECT_EQ(no_.Asked, 1);
    EXPECT_EQ(ContentsBelow(temp_.Path()), (Contents{"A - Same - 1.mp3", "B - Same - 2.mp3"}));
}

// Exchanges, rings and chains: in every order of the list, under every method and choice.
TEST_F(Batches, FilesThatWantEachOthersNamesLoseNothingInAnyOrder) {
    SortInPlace();
    const std::array<std::vector<Text>, 4> sets = {{
        {u"A - B - C.mp3", u"B - C - A.mp3", u"C - A - B.mp3"},                    // a ring
        {u"A - B - C.mp3", u"B - C - A.mp3", u"Z - Z - Z.mp3"},                    // a chain
        {u"A - B - A.mp3", u"B - A - A.mp3", u"A - A - B.mp3", u"b - a - a.mp3"},  // spellings too
        {u"A - A - A.mp3", u"A-A - A - A.mp3", u"A - B - C.mp3"},                  // its own name
    }};
    for (const std::vector<Text>& set : sets) {
        std::vector<Text> order = set;
        std::sort(order.begin(), order.end());
        do {
            for (const SortMethod method : Methods) {
                for (const IfExists exists : Choices) {
                    const TempFolder fresh;
                    list_.Clear();
                    for (const Text& name : order) AddPath(fresh.File(name, NativePath(name)));
                    choices_.Method = method;
                    choices_.Exists = exists;
                    choices_.txtTargetDir = fresh.Path();
                    const Contents before = ContentsBelow(fresh.Path());
                    const SortReport report = SortSayingNo();
                    EXPECT_EQ(LostSince(before, fresh.Path()), Contents{});
                    EXPECT_TRUE(report.Failures.empty());
                    EXPECT_EQ(report.Handled + report.Skipped, order.size());
                }
            }
        } while (std::next_permutation(order.begin(), order.end()));
    }
}

TEST_F(Batches, AnExchangeIsThereAfterASecondSortByAnotherName) {
    SortInPlace();
    choices_.Method = SortMethod::Rename;
    choices_.Exists = IfExists::Skip;
    AddNamed({u"A - B - C.mp3", u"B - C - A.mp3"});
    // The first is in the way of nobody once the second has gone.
    EXPECT_EQ(SortSayingNo(), Counts(1, 1));
    EXPECT_EQ(Listed(), (Names{u"A - B - C.mp3"}));
    EXPECT_EQ(SortSayingNo(), Counts(1));
    EXPECT_EQ(ReadFile(temp_ / u"in/B - C - A.mp3"), "A - B - C.mp3");
    EXPECT_EQ(ReadFile(temp_ / u"in/C - A - B.mp3"), "B - C - A.mp3");
}

TEST_F(Batches, ATargetInsideTheSourceFolderIsSortedOverAndOverWithoutLoss) {
    settings_.InPattern = choices_.OutPattern = u"%artist - %title.mp3";
    for (const SortMethod method : {SortMethod::Copy, SortMethod::Move}) {
        for (const IfExists exists : Choices) {
            const TempFolder fresh;
            for (const TextView name : {u"a_-_one.mp3", u"b/a - one.mp3", u"b/c - two.mp3"})
                static_cast<void>(fresh.File(u"in/" + Text(name), NativePath(name)));
            choices_.Method = method;
            choices_.Exists = exists;
            choices_.chkAlphabetical = true;
            choices_.txtTargetDir = fresh.Folder(u"in/sorted");
            const Contents before = ContentsBelow(fresh.Path());
            for (int round = 0; round < 3; ++round) {
                list_.Clear();
                FolderWalk walk(fresh / u"in", u"mp3");
                std::vector<Text> paths;
                while (!walk.Finished()) walk.Step(paths);
                list_.Append(paths);
                list_.SelectAll();
                SortSayingNo();
                EXPECT_EQ(LostSince(before, fresh.Path()), Contents{});
            }
            EXPECT_TRUE(IsThere(fresh / u"in/sorted/A/A - One.mp3"));
            EXPECT_TRUE(IsThere(fresh / u"in/sorted/C/C - Two.mp3"));
        }
    }
}

TEST_F(Batches, AListThatIsSortedTwiceSkipsWhatHasGone) {
    choices_.Method = SortMethod::Move;
    AddNamed({u"A - B - C.mp3", u"D - E - F.mp3"});
    const FileList again = list_;
    EXPECT_EQ(SortSayingNo(), Counts(2));
    const auto sorted = ReadTree(target_);
    list_ = again;
    EXPECT_EQ(SortSayingNo(), Counts(0, 2));
    EXPECT_EQ(ReadTree(target_), sorted);
}

TEST_F(Batches, OneFileTwiceInTheListIsSortedOnce) {
    for (const SortMethod method : Methods) {
        for (const IfExists exists : Choices) {
            list_.Clear();
            choices_.Method = method;
            choices_.Exists = exists;
            choices_.txtTargetDir = temp_.Folder(u"to");
            AddNamed({u"A - B - C.mp3", u"A - B - C.mp3"});
            const Contents before = ContentsBelow(temp_ / u"in");
            SortSayingNo();
            EXPECT_EQ(LostSince(before, temp_.Path()), Contents{});
        }
    }
}

TEST_F(Batches, StoppedAtAnyStepTheRunGoesOnAsIfItHadNotBeen) {
    const std::vector<Text> names = {u"A - B - C.mp3", u"D - E - F.mp3", u"G - H - I.mp3",
                                     u"J - K - L.mp3"};
    for (const SortMethod method : Methods) {
        choices_.Method = method;
        choices_.chkAlphabetical = true;
        for (std::size_t steps = 1; steps <= names.size() + 1; ++steps) {
            const TempFolder fresh;
            list_.Clear();
            for (const Text& name : names) AddPath(fresh.File(u"in/" + name, NativePath(name)));
            choices_.txtTargetDir = fresh.Folder(u"to");
            const SortReport first = SortSayingNo(steps);
            EXPECT_EQ(first.Stopped, steps < names.size());
            EXPECT_EQ(first.Handled, std::min(steps, names.size()));
            EXPECT_EQ(list_.Count(), names.size() - first.Handled);
            EXPECT_EQ(first.Handled + SortSayingNo().Handled, names.size());
            const Text place = method == SortMethod::Rename ? u"in/" : u"to/";
            const Contents sorted = ContentsBelow(fresh / place);
            EXPECT_EQ(sorted.size(), names.size());
            EXPECT_TRUE(IsThere(fresh / (method == SortMethod::Rename ? u"in/K - L - J.mp3"
                                                                      : u"to/K/K - L - J.mp3")));
        }
    }
}

// Many small batches of few names, so that they meet all the time.
TEST_F(Batches, RandomBatchesLoseNoFileOfTheirs) {
    std::mt19937 random(20010911);
    const auto pick = [&](std::size_t below) { return random() % below; };
    const std::array<Text, 3> words = {u"A", u"B", u"b"};
    for (int batch = 0; batch < 120; ++batch) {
        const TempFolder fresh;
        list_.Clear();
        const std::array<Text, 2> folders = {fresh.Folder(u"one"), fresh.Folder(u"two")};
        for (std::size_t i = 0; i < 6; ++i) {
            const Text name = words[pick(3)] + u" - " + words[pick(3)] + u" - " + words[pick(3)];
            const Text path = folders[pick(2)] + u"/" + name + u".mp3";
            if (!IsThere(path)) WriteFile(path, std::to_string(i));
            AddPath(path);
        }
        const Contents before = ContentsBelow(fresh.Path());
        choices_.Method = *(Methods.begin() + pick(3));
        choices_.Exists = *(Choices.begin() + pick(3));
        choices_.chkAlphabetical = pick(2) == 0;
        choices_.txtTargetDir = folders[pick(2)];
        SortSayingNo(1 + pick(8));
        SortSayingNo();
        EXPECT_EQ(LostSince(before, fresh.Path()), Contents{}) << "batch " << batch;
    }
}
