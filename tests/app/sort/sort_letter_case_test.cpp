// Sorting where the file system does not tell upper from lower case.
#include <array>
#include <random>

#include "tests/app/sort/sort_fixture.h"
#include "tests/support/contents.h"
#include "tests/support/folding_disk.h"
#include "tests/support/says_no.h"

using namespace mdlPLM;

namespace {

using test::Contents;
using test::ContentsBelow;
using test::LostSince;

class SortFolding : public SortTest {
protected:
    SortFolding() { choices_.chkConvert = true; }
    SortReport SortHere() {
        const NamingContext context = Context();
        SortRun run(list_, choices_, SortStart::All, context, folding_, no_);
        while (run.Step()) {
        }
        return ReportOf(run);
    }
    FoldingDisk folding_;
    test::SaysNo no_;
};

}  // namespace

TEST_F(SortFolding, AChangeOfLetterCaseAloneIsMadeWithoutAQuestion) {
    for (const bool numbered : {false, true}) {
        folding_.EachSpellingHasANumber = numbered;
        for (const SortMethod method : {SortMethod::Move, SortMethod::Rename}) {
            list_.Clear();
            const TempFolder fresh;
            AddPath(fresh.File(u"abba - one.mp3", "one"));
            choices_.Method = method;
            choices_.txtTargetDir = fresh.Path();
            EXPECT_EQ(SortHere(), Counts(1));
            EXPECT_EQ(ListTree(fresh.Path()), (Tree{"Abba - One.mp3"}));
        }
    }
    EXPECT_EQ(no_.Asked, 0);
}

TEST_F(SortFolding, ACopyOverItsOwnOtherSpellingLeavesTheFile) {
    Add(u"abba - one.mp3", "one");
    choices_.txtTargetDir = temp_ / u"IN";
    choices_.Exists = IfExists::Replace;
    EXPECT_EQ(SortHere(), Counts(1));
    EXPECT_EQ(ContentsBelow(temp_.Path()), (Contents{"one"}));
}

TEST_F(SortFolding, ATargetOfAnotherSpellingExists) {
    for (const SortMethod method : {SortMethod::Copy, SortMethod::Move}) {
        list_.Clear();
        Add(u"abba - one.mp3", "new");
        WriteFile(target_ + u"/ABBA - ONE.mp3", "old");
        choices_.Method = method;
        choices_.Exists = IfExists::Skip;
        SortHere();
        EXPECT_EQ(ReadFile(target_ + u"/ABBA - ONE.mp3"), "old");
    }
    list_.Clear();
    Add(u"abba - one.mp3", "new");
    choices_.Exists = IfExists::Replace;
    EXPECT_EQ(SortHere(), Counts(1));
    EXPECT_EQ(ReadTree(target_), (std::map<Bytes, Bytes>{{"ABBA - ONE.mp3", "new"}}));
}

TEST_F(SortFolding, FoldersThatDifferInLetterCaseAreOne) {
    choices_.chkConvert = false;
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"0";
    choices_.Method = SortMethod::Move;
    for (const TextView name : {u"ABBA - one.mp3", u"Abba - two.mp3", u"abba - three.mp3"})
        Add(name, NativePath(name));
    Add(u"last of the list - x.mp3");
    EXPECT_EQ(SortHere(), Counts(4));
    EXPECT_EQ(InTarget(), (Tree{"ABBA/", "ABBA/ABBA - one.mp3", "ABBA/Abba - two.mp3",
                                "ABBA/abba - three.mp3", "last of the list - x.mp3"}));
}

TEST_F(SortFolding, NamesThatDifferInLetterCaseAreOneName) {
    choices_.chkConvert = false;
    for (const SortMethod method : {SortMethod::Copy, SortMethod::Move}) {
        for (const IfExists exists : Choices) {
            const TempFolder fresh;
            list_.Clear();
            AddPath(fresh.File(u"1/a - b.mp3", "one"));
            AddPath(fresh.File(u"2/A - B.mp3", "two"));
            choices_.Method = method;
            choices_.Exists = exists;
            choices_.txtTargetDir = fresh.Folder(u"to");
            const Contents before = ContentsBelow(fresh.Path());
            SortHere();
            EXPECT_EQ(LostSince(before, fresh.Path()), Contents{});
            EXPECT_EQ(ListTree(fresh / u"to").size(), 1U);
        }
    }
}

TEST_F(SortFolding, RandomBatchesLoseNoFileOfTheirs) {
    std::mt19937 random(19840704);
    const auto pick = [&](std::size_t below) { return random() % below; };
    const std::array<Text, 3> words = {u"A", u"B", u"b"};
    settings_.InPattern = u"%artist - %album - %title.mp3";
    choices_.OutPattern = u"%album - %title - %artist.mp3";
    for (int batch = 0; batch < 60; ++batch) {
        const TempFolder fresh;
        list_.Clear();
        const std::array<Text, 2> folders = {fresh.Folder(u"one"), fresh.Folder(u"two")};
        for (std::size_t i = 0; i < 6; ++i) {
            const Text name = words[pick(3)] + u" - " + words[pick(3)] + u" - " + words[pick(3)];
            const Text path = folders[pick(2)] + u"/" + name + u".mp3";
            if (!folding_.Exists(path)) WriteFile(path, std::to_string(i));
            AddPath(path);
        }
        const Contents before = ContentsBelow(fresh.Path());
        choices_.Method = *(Methods.begin() + pick(3));
        choices_.Exists = *(Choices.begin() + pick(3));
        choices_.txtTargetDir = folders[pick(2)];
        folding_.EachSpellingHasANumber = pick(2) == 0;
        SortHere();
        EXPECT_EQ(LostSince(before, fresh.Path()), Contents{}) << "batch " << batch;
    }
}
