#include "app/sort/sort_folders.h"

#include "core/tags/id3v1.h"
#include "tests/app/sort/sort_fixture.h"

using namespace mdlPLM;

namespace {

/// A file with an ID3v1 trailer of that genre number.
Bytes SongOfGenre(int genre) {
    ID3v1Tag tag;
    tag.Tag = "TAG";
    tag.Genre = static_cast<char>(genre);
    return "sound" + RenderID3v1(tag);
}

constexpr int Rock = 17;
constexpr int PopFunk = 62;

class SortFolders : public SortTest {
protected:
    /// Names of files that are copied with these choices, and where they end up.
    Tree Sorted(const Names& names, SortStart start = SortStart::All) {
        for (const Text& name : names) Add(name);
        Sort(start);
        return InTarget();
    }
    /// Keeps the last entry of the list out of the way: it is an exception.
    void AddUnselectedEnd() {
        AddPath(temp_ / u"in/end.mp3");
        list_.Select(list_.Count() - 1, false);
    }
};

}  // namespace

TEST(FolderName, IsOneFolderName) {
    struct {
        TextView Given;
        TextView Expected;
    } const cases[] = {
        {u"Rock", u"Rock"},    {u"Pop/Funk", u"Pop Funk"},
        {u"a\\b:c", u"a b c"}, {u"<x|y*>", u" x y  "},
        {u"Why?\"", u"Why"},   {u"", u""},
        {u".", u""},           {u"..", u""},
        {u"???", u""},         {u"...", u"..."},
        {u".?", u""},          {u"Abba ", u"Abba "},
        {u" ", u""},           {u"   ", u""},
        {u"*|", u""},          {u"\n\t", u""},
        {u"a\nb", u"a b"},     {u"\x7F\x01x", u"  x"},
    };
    for (const auto& each : cases) EXPECT_EQ(FolderName(each.Given), each.Expected);
}

TEST(LetterFolder, IsTheFirstCharacterInUpperCase) {
    struct {
        Text Given;
        Text Expected;
    } const cases[] = {
        {u"abba.mp3", u"A"},
        {u"Abba.mp3", u"A"},
        {u"99 x.mp3", u"9"},
        {u"\u00E5ngest", u"\u00C5"},
        {u"\u00DFa", u"\u00DF"},
        {u"+x", u"+"},
        {u"\U0001F3B5x", u"\U0001F3B5"},
        {u"\U00010428x", u"\U00010428"},
        {Text(1, char16_t(0xDC80)) + u"x", Text(1, char16_t(0xDC80))},
        {u"", u""},
    };
    for (const auto& each : cases) EXPECT_EQ(LetterOf(each.Given), each.Expected);
}

TEST(ArtistOfName, StandsBeforeTheFirstSpacedDash) {
    EXPECT_EQ(ArtistOf(u"Abba - Waterloo.mp3"), u"Abba");
    EXPECT_EQ(ArtistOf(u"Abba - Live - Waterloo.mp3"), u"Abba");
    EXPECT_EQ(ArtistOf(u"Abba  - Waterloo.mp3"), u"Abba ");
    EXPECT_EQ(ArtistOf(u" - Waterloo.mp3"), u"");
    EXPECT_EQ(ArtistOf(u"Abba-Waterloo.mp3"), std::nullopt);
    EXPECT_EQ(ArtistOf(u"Abba -Waterloo.mp3"), std::nullopt);
    EXPECT_EQ(ArtistOf(u""), std::nullopt);
}

TEST_F(SortFolders, WithoutFolderOptionsFilesLandInTheTarget) {
    EXPECT_EQ(Sorted({u"abba - waterloo.mp3", u"x.mp3"}), (Tree{"abba - waterloo.mp3", "x.mp3"}));
}

TEST_F(SortFolders, GenreFolderIsTheNameOfTheTrailersGenre) {
    choices_.chkGenre = true;
    Add(u"a.mp3", SongOfGenre(Rock));
    Add(u"b.mp3", SongOfGenre(PopFunk));
    Add(u"c.mp3", SongOfGenre(255));
    Add(u"d.mp3", "no trailer at all");
    EXPECT_EQ(Sort(), Counts(4));
    EXPECT_EQ(InTarget(), (Tree{"Pop Funk/", "Pop Funk/b.mp3", "Rock/", "Rock/a.mp3", "Unknown/",
                                "Unknown/c.mp3", "Unknown/d.mp3"}));
}

TEST_F(SortFolders, LetterFolderIsTheFirstCharacterOfTheNewName) {
    choices_.chkAlphabetical = true;
    EXPECT_EQ(Sorted({u"abba.mp3", u"Zappa.mp3", u"99.mp3", u"\u00E5.mp3", u"\U0001F3B5.mp3"}),
              (Tree{"9/", "9/99.mp3", "A/", "A/abba.mp3", "Z/", "Z/Zappa.mp3", "\u00C5/",
                    "\u00C5/\u00E5.mp3", "\U0001F3B5/", "\U0001F3B5/\U0001F3B5.mp3"}));
}

TEST_F(SortFolders, LetterFolderThatNoFolderCanBeCalledIsLeftOut) {
    choices_.chkAlphabetical = true;
    EXPECT_EQ(Sorted({u".hidden.mp3", u"?x.mp3", u"*x.mp3"}),
              (Tree{"*x.mp3", ".hidden.mp3", "?x.mp3"}));
}

TEST_F(SortFolders, LetterComesFromTheFixedName) {
    choices_.chkAlphabetical = true;
    choices_.chkConvert = true;
    EXPECT_EQ(Sorted({u"_abba_-_waterloo.mp3", u"zappa - peaches.mp3"}),
              (Tree{"A/", "A/Abba - Waterloo.mp3", "Z/", "Z/Zappa - Peaches.mp3"}));
}

TEST_F(SortFolders, GenreLetterAndArtistNestInThisOrder) {
    choices_.chkGenre = choices_.chkAlphabetical = choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"0";
    Add(u"Abba - Waterloo.mp3", SongOfGenre(Rock));
    AddUnselectedEnd();
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(InTarget(),
              (Tree{"Rock/", "Rock/A/", "Rock/A/Abba/", "Rock/A/Abba/Abba - Waterloo.mp3"}));
}

TEST_F(SortFolders, ATargetThatEndsInASeparatorGivesADoubledOne) {
    choices_.txtTargetDir = target_ + u"/";
    Add(u"abba.mp3");
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(disk_.Changes().back().To, target_ + u"//abba.mp3");
    choices_.chkAlphabetical = true;
    Add(u"abba.mp3");
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(disk_.Changes().back().To, target_ + u"//A/abba.mp3");
    EXPECT_EQ(InTarget(), (Tree{"A/", "A/abba.mp3", "abba.mp3"}));
}

TEST_F(SortFolders, ThresholdZeroGivesEveryArtistAFolder) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"0";
    Add(u"Abba - Waterloo.mp3");
    Add(u"Zappa - Peaches.mp3");
    AddUnselectedEnd();
    EXPECT_EQ(Sort(SortStart::ThisFile), Counts(2));
    EXPECT_EQ(InTarget(),
              (Tree{"Abba/", "Abba/Abba - Waterloo.mp3", "Zappa/", "Zappa/Zappa - Peaches.mp3"}));
}

TEST_F(SortFolders, ThresholdIsTheIntegerPartAndTextCountsAsZero) {
    for (const TextView threshold : {u"abc", u"", u"0.9", u"-4"}) {
        choices_.txtSubFolder = threshold;
        EXPECT_EQ(ArtistThreshold(choices_), 0);
    }
    choices_.txtSubFolder = u"2.9";
    EXPECT_EQ(ArtistThreshold(choices_), 2);
    choices_.txtSubFolder = u"3 songs";
    EXPECT_EQ(ArtistThreshold(choices_), 3);
}

TEST_F(SortFolders, TheLastEntryOfTheListIsExemptAtThresholdZero) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"0";
    EXPECT_EQ(Sorted({u"Abba - Waterloo.mp3", u"Zappa - Peaches.mp3"}),
              (Tree{"Abba/", "Abba/Abba - Waterloo.mp3", "Zappa - Peaches.mp3"}));
    EXPECT_EQ(list_.Count(), 0U);
}

TEST_F(SortFolders, TheLastEntryIsSortedEvenWithoutAnArtistAtThresholdZero) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"0";
    EXPECT_EQ(Sorted({u"one.mp3", u"two.mp3"}), (Tree{"two.mp3"}));
    EXPECT_EQ(Listed(), (Names{u"one.mp3"}));
}

TEST_F(SortFolders, TheLastEntryIsNoExceptionAboveThresholdZero) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"1";
    EXPECT_EQ(Sorted({u"Abba - Waterloo.mp3", u"two.mp3"}),
              (Tree{"Abba/", "Abba/Abba - Waterloo.mp3"}));
    EXPECT_EQ(Listed(), (Names{u"two.mp3"}));
}

TEST_F(SortFolders, AFileWithoutAnArtistIsSkippedSilentlyAndStaysAtAnyThreshold) {
    choices_.chkSubFolder = choices_.chkGenre = choices_.chkAlphabetical = true;
    for (const TextView threshold : {u"0", u"1", u"5"}) {
        choices_.txtSubFolder = threshold;
        list_.Clear();
        Add(u"no artist.mp3");
        AddUnselectedEnd();
        EXPECT_EQ(Sort(), Counts(0, 1));
        EXPECT_EQ(Listed(), (Names{u"no artist.mp3", u"end.mp3"}));
    }
    // Not even the folders of its genre and letter were made.
    EXPECT_EQ(InTarget(), Tree{});
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(SortFolders, AnArtistThatNoFolderCanBeCalledIsLeftOut) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"0";
    Add(u" - Waterloo.mp3");
    Add(u".. - Up.mp3");
    Add(u"   - Blank.mp3");
    Add(u"A:B - Song.mp3");
    AddUnselectedEnd();
    EXPECT_EQ(Sort(), Counts(4));
    EXPECT_EQ(InTarget(), (Tree{"   - Blank.mp3", " - Waterloo.mp3", ".. - Up.mp3", "A B/",
                                "A B/A:B - Song.mp3"}));
}

TEST_F(SortFolders, ArtistComesFromTheFixedNameWhenNamesAreFixed) {
    choices_.chkSubFolder = choices_.chkConvert = true;
    choices_.txtSubFolder = u"0";
    Add(u"abba_-_waterloo.mp3");
    Add(u"abba_-_fernando.mp3");
    AddUnselectedEnd();
    EXPECT_EQ(Sort(), Counts(2));
    EXPECT_EQ(InTarget(), (Tree{"Abba/", "Abba/Abba - Fernando.mp3", "Abba/Abba - Waterloo.mp3"}));
}

TEST_F(SortFolders, ArtistOfOneFileIgnoresTheNewNameBox) {
    choices_.chkSubFolder = choices_.chkConvert = choices_.chkAlphabetical = true;
    choices_.txtSubFolder = u"0";
    choices_.txtNewName = u"Zappa - Mine.mp3";
    Add(u"abba - waterloo.mp3");
    AddUnselectedEnd();
    EXPECT_EQ(Sort(SortStart::ThisFile), Counts(1));
    EXPECT_EQ(InTarget(), (Tree{"Z/", "Z/Abba/", "Z/Abba/Zappa - Mine.mp3"}));
}

TEST_F(SortFolders, TwoFilesOfAnArtistStayBelowAThresholdOfThree) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"3";
    EXPECT_EQ(Sorted({u"Abba - A.mp3", u"Abba - B.mp3"}), (Tree{"Abba - A.mp3", "Abba - B.mp3"}));
    EXPECT_EQ(list_.Count(), 0U);
}

TEST_F(SortFolders, ThreeFilesOfAnArtistReachAThresholdOfThree) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"3";
    EXPECT_EQ(Sorted({u"Abba - A.mp3", u"Abba - B.mp3", u"Zappa - Z.mp3", u"Abba - C.mp3"}),
              (Tree{"Abba/", "Abba/Abba - A.mp3", "Abba/Abba - B.mp3", "Abba/Abba - C.mp3",
                    "Zappa - Z.mp3"}));
}

TEST_F(SortFolders, ArtistsAreComparedAsTheyStand) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"2";
    EXPECT_EQ(Sorted({u"Abba - A.mp3", u"ABBA - B.mp3"}), (Tree{"ABBA - B.mp3", "Abba - A.mp3"}));
}

TEST_F(SortFolders, OnlyTheWholeListSortCountsArtists) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"2";
    EXPECT_EQ(Sorted({u"Abba - A.mp3", u"Abba - B.mp3"}, SortStart::ThisFile),
              (Tree{"Abba - A.mp3", "Abba - B.mp3"}));
}

TEST_F(SortFolders, AnArtistFolderThatStandsIsUsedAboveThresholdZero) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"5";
    ASSERT_FALSE(temp_.Folder(u"target/Abba").empty());
    EXPECT_EQ(Sorted({u"Abba - A.mp3", u"Zappa - B.mp3"}, SortStart::ThisFile),
              (Tree{"Abba/", "Abba/Abba - A.mp3", "Zappa - B.mp3"}));
}

TEST_F(SortFolders, OnlySelectedFilesThatAreThereCount) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"2";
    Add(u"Abba - A.mp3");
    AddPath(temp_ / u"in/Abba - gone.mp3");
    Add(u"Abba - unselected.mp3");
    list_.Select(2, false);
    EXPECT_EQ(Sort(), Counts(1, 1));
    EXPECT_EQ(InTarget(), (Tree{"Abba - A.mp3"}));
}

TEST_F(SortFolders, ArtistFoldersAreMadeInsideEachGenreAndLetterWhereFilesGo) {
    choices_.chkSubFolder = choices_.chkGenre = choices_.chkAlphabetical = true;
    choices_.txtSubFolder = u"3";
    Add(u"Abba - A.mp3", SongOfGenre(Rock));
    Add(u"Abba - B.mp3", SongOfGenre(PopFunk));
    Add(u"Abba - C.mp3", SongOfGenre(Rock));
    EXPECT_EQ(Sort(), Counts(3));
    EXPECT_EQ(InTarget(), (Tree{"Pop Funk/", "Pop Funk/A/", "Pop Funk/A/Abba/",
                                "Pop Funk/A/Abba/Abba - B.mp3", "Rock/", "Rock/A/", "Rock/A/Abba/",
                                "Rock/A/Abba/Abba - A.mp3", "Rock/A/Abba/Abba - C.mp3"}));
}

TEST_F(SortFolders, CountingTakesItsTimeInSlices) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"50";
    for (int i = 0; i < 100; ++i) Add(u"Abba - " + NumberText(static_cast<long long>(i)) + u".mp3");
    const NamingContext context = Context();
    SortRun run(list_, choices_, SortStart::All, context, disk_, prompts_);
    int steps = 0;
    for (; disk_.Changes().empty() && run.Step(); ++steps) EXPECT_EQ(run.Progress().Done, 0U);
    EXPECT_GE(steps, 3);
    EXPECT_EQ(disk_.Changes().front().Operation, DiskOperation::CreateFolder);
    while (run.Step()) {
    }
    EXPECT_EQ(ReportOf(run), Counts(100));
    EXPECT_EQ(InTarget().size(), 101U);
}

TEST_F(SortFolders, StoppingWhileCountingSortsNothing) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"2";
    Add(u"Abba - A.mp3");
    Add(u"Abba - B.mp3");
    const NamingContext context = Context();
    SortRun run(list_, choices_, SortStart::All, context, disk_, prompts_);
    EXPECT_TRUE(run.Step());
    run.Stop();
    EXPECT_FALSE(run.Step());
    EXPECT_TRUE(run.Report().Stopped);
    EXPECT_EQ(InTarget(), Tree{});
    EXPECT_EQ(list_.Count(), 2U);
}

TEST_F(SortFolders, AGenreFolderThatCannotBeMadeIsNamedInTheMessageAndTheRunGoesOn) {
    choices_.chkGenre = true;
    const Text inTheWay = temp_.File(u"target/Rock", "a file of the user's");
    const Text failing = Add(u"a.mp3", SongOfGenre(Rock));
    Add(u"b.mp3", SongOfGenre(PopFunk));
    SortReport expected = Counts(1);
    expected.Failures = {{failing, u"File already exists (\"" + target_ + u"/Rock\")"}};
    EXPECT_EQ(Sort(), expected);
    EXPECT_EQ(ReadFile(inTheWay), "a file of the user's");
    EXPECT_EQ(Listed(), (Names{u"a.mp3"}));
    EXPECT_EQ(InTarget(), (Tree{"Pop Funk/", "Pop Funk/b.mp3", "Rock"}));
}

TEST_F(SortFolders, AnEarnedArtistFolderThatCannotBeMadeIsNamedAndItsFilesGoToTheTarget) {
    choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"1";
    const Text inTheWay = temp_.File(u"target/Abba", "a file of the user's");
    Add(u"Abba - A.mp3");
    SortReport expected = Counts(1);
    expected.Failures = {{inTheWay, u"File already exists"}};
    EXPECT_EQ(Sort(), expected);
    EXPECT_EQ(InTarget(), (Tree{"Abba", "Abba - A.mp3"}));
}

TEST_F(SortFolders, RenamingKnowsNoFolders) {
    choices_.Method = SortMethod::Rename;
    choices_.chkGenre = choices_.chkAlphabetical = choices_.chkSubFolder = true;
    choices_.txtSubFolder = u"1";
    Add(u"no artist.mp3");
    Add(u"abba - waterloo.mp3");
    EXPECT_EQ(Sort(), Counts(2));
    EXPECT_TRUE(IsThere(temp_ / u"in/Abba - Waterloo.mp3"));
    EXPECT_EQ(InTarget(), Tree{});
}
