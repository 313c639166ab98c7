#include "app/list/list_tasks.h"

#include <gtest/gtest.h>

#include "core/platform/path.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

/// Runs a task to its end with a Publish after every `stepsPerSlice` steps.
void Perform(ListTask& task, int stepsPerSlice = 3) {
    int steps = 0;
    while (task.Step()) {
        if (++steps % stepsPerSlice == 0) task.Publish();
    }
    task.Finish(false);
}

std::vector<Text> Names(const FileList& list) {
    std::vector<Text> names;
    for (FileList::Index row = 0; row < list.Count(); ++row)
        names.push_back(FileNameOfPath(list.Path(row)));
    return names;
}

std::vector<Text> NewNames(const FileList& list) {
    std::vector<Text> names;
    for (FileList::Index row = 0; row < list.Count(); ++row) names.push_back(list.NewName(row));
    return names;
}

using Texts = std::vector<Text>;

class ListTasks : public ::testing::Test {
protected:
    ListTasks() { settings_.InPattern = u"%artist - %title.mp3"; }

    [[nodiscard]] NameMaker Maker() const {
        return {{settings_, replacements_, settings_.InPattern}, u"%title by %artist.mp3"};
    }
    AddRequest Request(Texts paths, AddAs as, bool preview) {
        AddRequest request;
        request.Paths = std::move(paths);
        request.As = as;
        request.Extension = u"mp3";
        if (preview) request.Preview = Maker();
        return request;
    }
    void Add(Texts paths, AddAs as = AddAs::Dropped, bool preview = false) {
        AddTask task(list_, Request(std::move(paths), as, preview), prompts_);
        Perform(task);
    }

    TempFolder folder_;
    Settings settings_;
    ReplacementList replacements_;
    ScriptedPrompts prompts_;
    FileList list_;
};

TEST_F(ListTasks, AFolderThatIsTooDeepIsToldAtTheEnd) {
    Add({folder_.TooDeep(u"deep"), folder_.File(u"last.mp3")});
    EXPECT_EQ(Names(list_), (Texts{u"a.mp3", u"last.mp3"}));
    ASSERT_EQ(prompts_.Log.size(), 1U);
    EXPECT_EQ(prompts_.Log[0].Kind, PromptKind::Critical);
    EXPECT_TRUE(StartsWith(prompts_.Log[0].What.Body, u"These were not searched:\n"));
}

TEST_F(ListTasks, AFileThatCannotBeReadHasNoNewName) {
    Add({folder_.Unopenable(u"a - b.mp3")}, AddAs::File, true);
    EXPECT_EQ(NewNames(list_), Texts{u""});
}

TEST_F(ListTasks, DroppedFolderGivesItsOwnFilesBeforeThoseOfItsSubfolders) {
    static_cast<void>(folder_.File(u"m/a sub/c.mp3"));
    static_cast<void>(folder_.File(u"m/z.mp3"));
    static_cast<void>(folder_.File(u"m/b.MP3"));
    static_cast<void>(folder_.File(u"m/b.txt"));
    Add({folder_ / u"m"});
    EXPECT_EQ(Names(list_), (Texts{u"b.MP3", u"z.mp3", u"c.mp3"}));
}

TEST_F(ListTasks, DroppedFileIsTakenWhateverItsExtension) {
    Add({folder_.File(u"a.txt"), folder_.File(u"b.mp3")});
    EXPECT_EQ(Names(list_), (Texts{u"a.txt", u"b.mp3"}));
}

TEST_F(ListTasks, DroppedItemsKeepTheirOrderWhateverTheirKind) {
    const Text list = folder_.File(u"l.m3u", "#EXTM3U\r\nin list.mp3\r\n");
    static_cast<void>(folder_.File(u"m/in folder.mp3"));
    Add({folder_.File(u"first.mp3"), list, folder_ / u"m", folder_.File(u"last.mp3")});
    EXPECT_EQ(Names(list_), (Texts{u"first.mp3", u"in list.mp3", u"in folder.mp3", u"last.mp3"}));
}

TEST_F(ListTasks, BlankDroppedItemIsPassedOver) {
    Add({u"", u"  ", folder_.File(u"a.mp3")});
    EXPECT_EQ(Names(list_), Texts{u"a.mp3"});
}

TEST_F(ListTasks, FilesOfFolderGetPreviewLineWhileNewNamesAreShown) {
    static_cast<void>(folder_.File(u"m/abba - waterloo.mp3"));
    Add({folder_ / u"m"}, AddAs::Dropped, true);
    EXPECT_EQ(NewNames(list_), Texts{u"Waterloo By Abba.mp3"});
}

TEST_F(ListTasks, FilesOfFolderGetNoPreviewLineWhileNoNewNamesAreShown) {
    static_cast<void>(folder_.File(u"m/abba - waterloo.mp3"));
    Add({folder_ / u"m"});
    EXPECT_EQ(NewNames(list_), Texts{u""});
}

TEST_F(ListTasks, ChosenFileGetsPreviewLineWhileNewNamesAreShown) {
    Add({folder_.File(u"abba - waterloo.mp3")}, AddAs::File, true);
    EXPECT_EQ(NewNames(list_), Texts{u"Waterloo By Abba.mp3"});
}

TEST_F(ListTasks, SingleDroppedFileGetsNoPreviewLine) {
    Add({folder_.File(u"abba - waterloo.mp3")}, AddAs::Dropped, true);
    EXPECT_EQ(NewNames(list_), Texts{u""});
}

TEST_F(ListTasks, FilesOfListFileGetNoPreviewLine) {
    static_cast<void>(folder_.File(u"abba - waterloo.mp3"));
    Add({folder_.File(u"l.m3u", "abba - waterloo.mp3\r\n")}, AddAs::ListFile, true);
    EXPECT_EQ(NewNames(list_), Texts{u""});
}

TEST_F(ListTasks, FolderThatWasChosenAsFileIsListedAsItIs) {
    Add({folder_.Folder(u"m")}, AddAs::File);
    EXPECT_EQ(Names(list_), Texts{u"m"});
}

TEST_F(ListTasks, OtherFileChosenAsPlaylistGivesTheMessageAndReadsNothing) {
    Add({folder_.File(u"a.m3u8", "b.mp3\r\n")}, AddAs::ListFile);
    EXPECT_EQ(list_.Count(), 0U);
    ASSERT_EQ(prompts_.Log.size(), 1U);
    EXPECT_EQ(prompts_.Log[0].Kind, PromptKind::Inform);
    EXPECT_EQ(prompts_.Log[0].What.Body,
              u"Only .srt, .m3u and .pls files are supported.\r\n"
              u"That was not a compatible playlist!");
}

TEST_F(ListTasks, AddingThatIsStoppedKeepsWhatItHasFound) {
    static_cast<void>(folder_.File(u"m/a.mp3"));
    static_cast<void>(folder_.File(u"m/sub/b.mp3"));
    AddTask task(list_, Request({folder_ / u"m"}, AddAs::Dropped, false), prompts_);
    while (task.Progress().What != u"Adding files: 1 found") ASSERT_TRUE(task.Step());
    EXPECT_TRUE(task.Step());
    task.Finish(true);
    EXPECT_EQ(Names(list_), Texts{u"a.mp3"});
}

TEST_F(ListTasks, LargeListFileIsReadInStepsAndKeepsItsPlace) {
    Bytes contents;
    for (int i = 0; i < 20000; ++i) contents += "/m/" + std::to_string(i) + ".mp3\r\n";
    const Text list = folder_.File(u"l.m3u", contents);
    AddTask task(list_,
                 Request({folder_.File(u"first.mp3"), list, folder_.File(u"last.mp3")},
                         AddAs::Dropped, true),
                 prompts_);
    std::vector<FileList::Index> counts;
    while (task.Step()) {
        task.Publish();
        if (counts.empty() || counts.back() != list_.Count()) counts.push_back(list_.Count());
    }
    task.Finish(false);
    EXPECT_GE(counts.size(), 5U);
    ASSERT_EQ(list_.Count(), 20002U);
    EXPECT_EQ(FileNameOfPath(list_.Path(0)), u"first.mp3");
    EXPECT_EQ(list_.Path(1), u"/m/0.mp3");
    EXPECT_EQ(list_.Path(20000), u"/m/19999.mp3");
    EXPECT_EQ(FileNameOfPath(list_.Path(20001)), u"last.mp3");
    EXPECT_EQ(task.Progress().What, u"Adding files: 20002 found");
}

TEST_F(ListTasks, LargeListFileThatIsStoppedKeepsWhatItHasNamed) {
    Bytes contents;
    for (int i = 0; i < 20000; ++i) contents += "/m/" + std::to_string(i) + ".mp3     (/m/)\r\n";
    AddTask task(list_, Request({folder_.File(u"l.srt", contents)}, AddAs::Dropped, false),
                 prompts_);
    while (task.Progress().What == u"Adding files: 0 found") ASSERT_TRUE(task.Step());
    task.Finish(true);
    EXPECT_GT(list_.Count(), 100U);
    EXPECT_LT(list_.Count(), 19999U);
}

TEST_F(ListTasks, NamesAreComputedForTheGivenRowsOnly) {
    Add({folder_.File(u"a - x.mp3"), folder_.File(u"b - y.mp3"), folder_.File(u"c - z.mp3"),
         folder_.File(u"d - q.mp3")});
    NamesTask task(list_, Maker(), {0, 1, 3});
    Perform(task, 2);
    EXPECT_EQ(NewNames(list_), (Texts{u"X By A.mp3", u"Y By B.mp3", u"", u"Q By D.mp3"}));
    EXPECT_EQ(task.Progress().Done, 3U);
    EXPECT_EQ(task.Progress().Total, 3U);
}

TEST_F(ListTasks, NamesThatAreStoppedStayAsFarAsTheyWereComputed) {
    Add({folder_.File(u"a - x.mp3"), folder_.File(u"b - y.mp3")});
    NamesTask task(list_, Maker(), {0, 1});
    EXPECT_TRUE(task.Step());
    task.Finish(true);
    EXPECT_EQ(NewNames(list_), (Texts{u"X By A.mp3", u""}));
}

TEST_F(ListTasks, PatternsOfTaskStayWhileTheBoxesChange) {
    Text pattern = u"%title.mp3";
    const NameMaker maker({settings_, replacements_, settings_.InPattern}, pattern);
    pattern = u"%artist.mp3";
    EXPECT_EQ(maker.NewName(folder_.File(u"abba - waterloo.mp3")), u"Waterloo.mp3");
}

TEST_F(ListTasks, SettingsOfTaskStayWhileThoseInForceChange) {
    settings_.bReplace = true;
    replacements_ = {{u"Waterloo", u"SOS"}};
    const NameMaker maker = Maker();
    settings_.Change = static_cast<int>(CaseOption::Upper);
    settings_.bReplace = false;
    settings_.InPattern = u"%title.mp3";
    replacements_.clear();
    EXPECT_EQ(maker.NewName(folder_.File(u"abba - waterloo.mp3")), u"SOS By Abba.mp3");
}

TEST_F(ListTasks, ScanTellsHowFarItIsAndAppliesOnceAtTheEnd) {
    Add({folder_ / u"gone.mp3", folder_.File(u"here.mp3")});
    int applied = 0;
    ScanTask task(u"Looking", list_, ScanForMissing(list_), [&](ListScan& scan, bool stopped) {
        ++applied;
        EXPECT_FALSE(stopped);
        scan.RemoveGone();
    });
    while (task.Step()) EXPECT_EQ(task.Progress().What, u"Looking");
    EXPECT_EQ(task.Progress().Done, 2U);
    EXPECT_EQ(task.Progress().Total, 2U);
    EXPECT_EQ(applied, 0);
    task.Finish(false);
    EXPECT_EQ(applied, 1);
    EXPECT_EQ(Names(list_), Texts{u"here.mp3"});
}

TEST_F(ListTasks, ScanThatIsStoppedSaysSo) {
    Add({folder_.File(u"a.mp3"), folder_.File(u"b.mp3")});
    bool wasStopped = false;
    ScanTask task(u"Looking", list_, ScanForMissing(list_),
                  [&](ListScan& /*scan*/, bool stopped) { wasStopped = stopped; });
    EXPECT_TRUE(task.Step());
    EXPECT_TRUE(task.Stop());
    task.Finish(true);
    EXPECT_TRUE(wasStopped);
}

}  // namespace
}  // namespace mdlPLM
