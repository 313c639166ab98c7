#include "app/start/command_line.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "core/platform/path.h"
#include "tests/support/recording_disk.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using Paths = std::vector<Text>;

TEST(CommandLineText, AnEmptyOneIsANormalStart) {
    for (const TextView text : {u"", u"   "}) {
        const BatchJob job = ParseCommandLine(text);
        EXPECT_FALSE(job.EndProgram);
        EXPECT_EQ(job.Mode, BatchMode::None);
    }
}

TEST(CommandLineText, RenameTakesItsPatternAndThePaths) {
    const BatchJob job =
        ParseCommandLine(u"+rename=\"%artist - %title.mp3\" C:\\x\\a b.mp3 D:\\c.mp3");
    EXPECT_TRUE(job.EndProgram);
    EXPECT_EQ(job.Mode, BatchMode::Rename);
    EXPECT_EQ(job.Argument, u"%artist - %title.mp3");
    EXPECT_EQ(job.Paths, (Paths{u"C:\\x\\a b.mp3", u"D:\\c.mp3"}));
    EXPECT_FALSE(job.AskExtension);
}

TEST(CommandLineText, ExtensionTakesItsValueAndThePaths) {
    const BatchJob job = ParseCommandLine(u"+ext=\"ogg\" C:\\x\\a b.mp3 D:\\c.mp3");
    EXPECT_TRUE(job.EndProgram);
    EXPECT_EQ(job.Mode, BatchMode::Extension);
    EXPECT_EQ(job.Argument, u"ogg");
    EXPECT_EQ(job.Paths, (Paths{u"C:\\x\\a b.mp3", u"D:\\c.mp3"}));
}

TEST(CommandLineText, AnEmptyExtensionIsAskedFor) {
    const BatchJob job = ParseCommandLine(u"+ext=\"\" C:\\a.mp3");
    EXPECT_TRUE(job.AskExtension);
    EXPECT_EQ(job.Argument, u"");
    EXPECT_EQ(job.Paths, Paths{u"C:\\a.mp3"});
}

TEST(CommandLineText, WithoutPathsTheProgramEndsAtOnce) {
    for (const TextView text :
         {u"+rename=\"%artist - %title.mp3\"", u"+ext=\"\"", u"+ext=\"\"  ", u"\"\"", u"+ext=\""}) {
        const BatchJob job = ParseCommandLine(text);
        EXPECT_TRUE(job.EndProgram);
        EXPECT_FALSE(job.AskExtension);
        EXPECT_TRUE(job.Paths.empty());
    }
}

TEST(CommandLineText, WithoutASwitchTheProgramEndsWithoutDoingAnything) {
    for (const TextView text :
         {u"C:\\a.mp3", u"+rename=x C:\\a.mp3", u"hello", u"\"C:\\a b.mp3\""}) {
        const BatchJob job = ParseCommandLine(text);
        EXPECT_TRUE(job.EndProgram);
        EXPECT_EQ(job.Mode, BatchMode::None);
        EXPECT_TRUE(job.Paths.empty());
    }
}

TEST(CommandLineText, SwitchesAreReadInAnyLetterCase) {
    EXPECT_EQ(ParseCommandLine(u"+ReName=\"%Title\" C:\\a").Argument, u"%Title");
    EXPECT_EQ(ParseCommandLine(u"+EXT=\"OGG\" C:\\a").Argument, u"OGG");
}

TEST(CommandLineText, TheExtensionRightBehindOverridesTheRename) {
    const BatchJob job = ParseCommandLine(u"+rename=\"%title\" +ext=\"ogg\" C:\\a.mp3");
    EXPECT_EQ(job.Mode, BatchMode::Extension);
    EXPECT_EQ(job.Argument, u"ogg");
    EXPECT_EQ(job.Paths, Paths{u"C:\\a.mp3"});
    // One blank further away it is no switch any more, but the start of a path.
    const BatchJob apart = ParseCommandLine(u"+rename=\"%title\"  +ext=\"ogg\" C:\\a.mp3");
    EXPECT_EQ(apart.Mode, BatchMode::Rename);
    EXPECT_EQ(apart.Paths, (Paths{u"+ext=ogg", u"C:\\a.mp3"}));
}

TEST(CommandLineText, WithoutTheClosingQuoteTheValueIsEmpty) {
    const BatchJob job = ParseCommandLine(u"+ext=\"C:\\a.mp3");
    EXPECT_EQ(job.Argument, u"");
    EXPECT_TRUE(job.AskExtension);
    EXPECT_EQ(job.Paths, Paths{u"C:\\a.mp3"});
}

TEST(CommandLineText, QuotesAroundPathsAreTakenOff) {
    EXPECT_EQ(ParseCommandLine(u"+ext=\"ogg\" \"C:\\a b.mp3\" \"D:\\c.mp3\"").Paths,
              (Paths{u"C:\\a b.mp3", u"D:\\c.mp3"}));
}

TEST(CommandLineText, ANetworkPathInFrontIsWhole) {
    EXPECT_EQ(ParseCommandLine(u"+ext=\"ogg\" \\\\server\\x\\a.mp3 C:\\b.mp3").Paths,
              (Paths{u"\\\\server\\x\\a.mp3", u"C:\\b.mp3"}));
}

TEST(CommandLineText, ThePathBeforeANetworkPathLosesTwoCharacters) {
    EXPECT_EQ(ParseCommandLine(u"+ext=\"ogg\" C:\\a.mp3 \\\\server\\b.mp3 D:\\c.mp3").Paths,
              (Paths{u"C:\\a.m", u"\\\\server\\b.mp3", u"D:\\c.mp3"}));
    EXPECT_EQ(ParseCommandLine(u"+ext=\"ogg\" \\\\s\\a.mp3 \\\\s\\b.mp3 \\\\s\\c.mp3").Paths,
              (Paths{u"\\\\s\\a.m", u"\\\\s\\b.m", u"\\\\s\\c.mp3"}));
}

TEST(CommandLineText, APathOfOtherSystemsIsTaken) {
    EXPECT_EQ(ParseCommandLine(u"+ext=\"ogg\" /home/me/a b.mp3").Paths, Paths{u"/home/me/a b.mp3"});
}

TEST(CommandLineText, TheSplittingAlwaysEnds) {
    const TextView rubbish[] = {u"\\\\\\\\\\\\", u":::::", u"\\\\:\\\\:", u"C:\\\\a",  u"a\\\\",
                                u": :",          u"C:C:",  u"\\\\ \\\\",  u"\\ \\\\:", u":"};
    for (const TextView text : rubbish) {
        const Text line = u"+ext=\"x\" " + Text(text);
        EXPECT_LE(ParseCommandLine(line).Paths.size(), line.size());
    }
}

StartRequest Parse(const std::vector<Text>& arguments) { return ParseArguments(arguments); }

TEST(Arguments, NoneOpenTheWindow) { EXPECT_EQ(Parse({}).Kind, StartKind::Window); }

TEST(Arguments, EachOneBehindTheSwitchIsOnePath) {
    const StartRequest request = Parse({u"+rename=%title.mp3", u"/m/a b.mp3", u" c: \\\\d ", u""});
    EXPECT_EQ(request.Kind, StartKind::Batch);
    EXPECT_TRUE(request.Job.EndProgram);
    EXPECT_EQ(request.Job.Mode, BatchMode::Rename);
    EXPECT_EQ(request.Job.Argument, u"%title.mp3");
    EXPECT_EQ(request.Job.Paths, (Paths{u"/m/a b.mp3", u" c: \\\\d "}));
}

TEST(Arguments, TheValueComesWithOrWithoutItsQuotes) {
    for (const TextView value : {u"+ext=ogg", u"+ext=\"ogg\"", u"+EXT=ogg"}) {
        const StartRequest request = Parse({Text(value), u"a.mp3"});
        EXPECT_EQ(request.Job.Mode, BatchMode::Extension);
        EXPECT_EQ(request.Job.Argument, u"ogg");
        EXPECT_FALSE(request.Job.AskExtension);
    }
}

TEST(Arguments, AnEmptyExtensionIsAskedFor) {
    for (const TextView value : {u"+ext=", u"+ext=\"\""}) {
        EXPECT_TRUE(Parse({Text(value), u"a.mp3"}).Job.AskExtension);
        EXPECT_FALSE(Parse({Text(value)}).Job.AskExtension);
    }
}

TEST(Arguments, TheExtensionRightBehindOverridesTheRename) {
    const StartRequest request = Parse({u"+rename=%title", u"+ext=ogg", u"a.mp3"});
    EXPECT_EQ(request.Job.Mode, BatchMode::Extension);
    EXPECT_EQ(request.Job.Paths, Paths{u"a.mp3"});
    EXPECT_EQ(Parse({u"+ext=ogg", u"+ext=mp2"}).Job.Paths, Paths{u"+ext=mp2"});
}

TEST(Arguments, AListOpensTheWindowWithIt) {
    const StartRequest request = Parse({u"+list", u"/m", u"a.m3u"});
    EXPECT_EQ(request.Kind, StartKind::List);
    EXPECT_EQ(request.ListPaths, (Paths{u"/m", u"a.m3u"}));
    EXPECT_TRUE(Parse({u"+list"}).ListPaths.empty());
}

TEST(Arguments, HelpAndVersion) {
    EXPECT_EQ(Parse({u"--help"}).Kind, StartKind::Help);
    EXPECT_EQ(Parse({u"--version"}).Kind, StartKind::Version);
}

TEST(Arguments, WithoutASwitchIsMisuse) {
    for (const TextView first : {u"/m/a.mp3", u"--other", u"rename=x", u"", u"+list=x"}) {
        const StartRequest request = Parse({Text(first), u"b.mp3"});
        EXPECT_EQ(request.Kind, StartKind::Misuse);
        EXPECT_TRUE(request.Job.EndProgram);
        EXPECT_TRUE(request.Job.Paths.empty());
    }
}

TEST(ExtensionBox, AsksOnlyWhenTheJobSaysSo) {
    ScriptedPrompts silent;
    BatchJob settled = Parse({u"+ext=ogg", u"a"}).Job;
    EXPECT_TRUE(SettleExtension(settled, silent));
    ScriptedPrompts prompts;
    prompts.Texts = {u"mp3"};
    BatchJob job = Parse({u"+ext=", u"a"}).Job;
    EXPECT_TRUE(SettleExtension(job, prompts));
    EXPECT_EQ(job.Argument, u"mp3");
    EXPECT_EQ(prompts.Bodies(), Paths{u"Enter new file extension (excluding \".\"): "});
}

TEST(ExtensionBox, CancelAndAnEmptyAnswerLeaveNothingToDo) {
    for (const std::optional<Text>& answer : {std::optional<Text>(), std::optional<Text>(u"")}) {
        ScriptedPrompts prompts;
        prompts.Texts = {answer};
        BatchJob job = Parse({u"+ext=", u"a"}).Job;
        EXPECT_FALSE(SettleExtension(job, prompts));
        RecordingDisk disk;
        const Settings settings;
        const ReplacementList list;
        EXPECT_EQ(RunBatch(job, {settings, list, u""}, disk).ExitStatus(), 2);
        EXPECT_TRUE(disk.Changes().empty());
    }
}

TEST(NewExtension, StandsBehindTheLastDotOfTheName) {
    EXPECT_EQ(NameWithExtension(u"a.b.mp3", u"ogg"), u"a.b.ogg");
    EXPECT_EQ(NameWithExtension(u"a.", u"ogg"), u"a.ogg");
    EXPECT_EQ(NameWithExtension(u"a", u"ogg"), u"aogg");
    EXPECT_EQ(NameWithExtension(u"a.mp3", u""), u"a.");
}

class Batch : public testing::Test {
protected:
    BatchResult Run(const std::vector<Text>& arguments) {
        return RunBatch(ParseArguments(arguments).Job, {settings_, replacements_, inPattern_},
                        disk_);
    }
    [[nodiscard]] std::map<Bytes, Bytes> Files() const { return ReadTree(folder_.Path()); }
    using Tree = std::map<Bytes, Bytes>;

    const TempFolder folder_;
    Settings settings_;
    ReplacementList replacements_;
    Text inPattern_ = u"%artist - %title.mp3";
    RecordingDisk disk_;
};

TEST_F(Batch, RenamesByThePatternInEachFilesFolder) {
    const Text one = folder_.File(u"x/some_band - a song.mp3", "1");
    const Text two = folder_.File(u"y/other - tune.mp3", "2");
    const BatchResult result = Run({u"+rename=%title - %artist.mp3", one, two});
    EXPECT_EQ(result.Renamed, 2U);
    EXPECT_EQ(result.ExitStatus(), 0);
    EXPECT_EQ(Files(), (Tree{{"x/", ""},
                             {"x/A Song - Some Band.mp3", "1"},
                             {"y/", ""},
                             {"y/Tune - Other.mp3", "2"}}));
}

TEST_F(Batch, ChangesExtensions) {
    const BatchResult result = Run({u"+ext=ogg", folder_.File(u"a b.mp3", "1"),
                                    folder_.File(u"c", "2"), folder_.File(u"d.x/e", "3")});
    EXPECT_EQ(result.Renamed, 3U);
    EXPECT_EQ(Files(), (Tree{{"a b.ogg", "1"}, {"cogg", "2"}, {"d.x/", ""}, {"d.x/eogg", "3"}}));
}

TEST_F(Batch, AFileThatHasItsNameAlreadyIsNotTouched) {
    const BatchResult result = Run({u"+ext=mp3", folder_.File(u"a.mp3", "1")});
    EXPECT_EQ(result.Unchanged, 1U);
    EXPECT_EQ(result.ExitStatus(), 0);
    EXPECT_TRUE(disk_.Changes().empty());
}

TEST_F(Batch, NeverReplacesAFile) {
    const BatchResult result =
        Run({u"+ext=ogg", folder_.File(u"a.mp3", "1"), folder_.File(u"b.mp3", "2")});
    EXPECT_EQ(result.Renamed, 2U);
    const BatchResult second =
        Run({u"+ext=ogg", folder_.File(u"a.mp3", "3"), folder_.File(u"c.mp3", "4")});
    EXPECT_EQ(second.Renamed, 1U);
    EXPECT_EQ(second.Failed, 1U);
    EXPECT_EQ(second.ExitStatus(), 1);
    EXPECT_EQ(Files(), (Tree{{"a.mp3", "3"}, {"a.ogg", "1"}, {"b.ogg", "2"}, {"c.ogg", "4"}}));
}

TEST_F(Batch, OfTwoFilesWithOneNewNameTheSecondStays) {
    const BatchResult result = Run({u"+rename=%title.mp3", folder_.File(u"x - same.mp3", "1"),
                                    folder_.File(u"y - same.mp3", "2")});
    EXPECT_EQ(result.Renamed, 1U);
    EXPECT_EQ(result.Failed, 1U);
    EXPECT_EQ(Files(), (Tree{{"Same.mp3", "1"}, {"y - same.mp3", "2"}}));
}

TEST_F(Batch, AFailureIsPassedOverAndTheNextFileIsRenamed) {
    disk_.FailCall(DiskOperation::Rename, ErrorNumber::PermissionDenied);
    const BatchResult result =
        Run({u"+ext=ogg", folder_ / u"missing.mp3", folder_.Folder(u"folder.mp3"),
             folder_.File(u"a.mp3", "1"), folder_.File(u"b.mp3", "2")});
    EXPECT_EQ(result.Failed, 3U);
    EXPECT_EQ(result.Renamed, 1U);
    EXPECT_EQ(result.ExitStatus(), 1);
    EXPECT_EQ(Files(), (Tree{{"a.mp3", "1"}, {"b.ogg", "2"}, {"folder.mp3/", ""}}));
}

TEST_F(Batch, ANewNameThatIsNoFileNameIsNeverUsed) {
    const Text path = folder_.File(u"a.mp3", "1");
    (void)folder_.Folder(u"a.x");
    settings_.bExtension = false;
    settings_.bReplace = true;
    replacements_ = {{u"Song", u"x/y"}};
    const Text song = folder_.File(u"band - song.mp3", "2");
    for (const auto& arguments :
         {std::vector<Text>{u"+ext=x/y", path}, std::vector<Text>{u"+ext=x\\y", path},
          std::vector<Text>{u"+rename=%title.mp3", song}}) {
        const BatchResult result = Run(arguments);
        EXPECT_EQ(result.Failed, 1U) << arguments.size();
        EXPECT_EQ(result.ExitStatus(), 1);
    }
    EXPECT_EQ(Files(), (Tree{{"a.mp3", "1"}, {"a.x/", ""}, {"band - song.mp3", "2"}}));
}

TEST_F(Batch, AFileWithoutANewNameIsToldWithTheReason) {
    const Text dots = folder_.File(u"band - ....mp3", "1");
    const Text closed = folder_.Unopenable(u"band - song.mp3");
    const Text hidden = folder_.File(u".hidden", "2");
    const BatchResult named = Run({u"+rename=%title.mp3", dots, closed});
    EXPECT_EQ(named.Failed, 2U);
    EXPECT_EQ(named.ExitStatus(), 1);
    ASSERT_EQ(named.Nameless.size(), 2U);
    EXPECT_EQ(named.Nameless[0].Path, dots);
    EXPECT_EQ(named.Nameless[0].Reason, u"no name is left (\".mp3\")");
    EXPECT_EQ(named.Nameless[1].Path, closed);
    EXPECT_EQ(named.Nameless[1].Reason, u"Device unavailable");
    EXPECT_EQ(Run({u"+ext=ogg", hidden, closed, folder_ / u"missing.mp3"}).Nameless.size(), 1U);
    EXPECT_TRUE(IsThere(hidden));
    EXPECT_TRUE(IsThere(folder_ / u"band - song.ogg"));
    settings_.bID3 = false;
    EXPECT_EQ(Run({u"+rename=%title.mp3", folder_ / u"band - song.ogg"}).Renamed, 1U);
}

TEST_F(Batch, ANameWithTheListMarkerStaysWhole) {
    const BatchResult result =
        Run({u"+rename=%title - %artist.mp3", folder_.File(u"abba - song     (live).mp3", "1")});
    EXPECT_EQ(result.Renamed, 1U);
    EXPECT_EQ(Files(), (Tree{{"Song (Live) - Abba.mp3", "1"}}));
}

TEST_F(Batch, WithoutFilesThereIsNothingThatCouldBeDone) {
    EXPECT_EQ(Run({u"+rename=%title"}).ExitStatus(), 2);
    EXPECT_EQ(Run({u"+ext=ogg"}).ExitStatus(), 2);
    EXPECT_EQ(Run({folder_.File(u"a.mp3")}).ExitStatus(), 2);
    EXPECT_TRUE(disk_.Calls().empty());
}

TEST_F(Batch, AnotherLinkToTheSameFileNeedsNoRenaming) {
    const Text path = folder_.File(u"a.mp3", "1");
    ASSERT_EQ(::link(NativePath(path).c_str(), NativePath(folder_ / u"a.ogg").c_str()), 0);
    const BatchResult result = Run({u"+ext=ogg", path});
    EXPECT_EQ(result.Unchanged, 1U);
    EXPECT_EQ(Files(), (Tree{{"a.mp3", "1"}, {"a.ogg", "1"}}));
}

TEST_F(Batch, AChangeOfLetterCaseIsAPlainRename) {
    EXPECT_EQ(Run({u"+ext=mp3", folder_.File(u"a.MP3", "1")}).Renamed, 1U);
    EXPECT_EQ(Files(), (Tree{{"a.mp3", "1"}}));
}

TEST_F(Batch, NamesWithTheListMarkerStayInTheirFolder) {
    EXPECT_EQ(Run({u"+ext=ogg", folder_.File(u"a     (b).mp3", "1")}).Renamed, 1U);
    EXPECT_EQ(Files(), (Tree{{"a     (b).ogg", "1"}}));
}

TEST_F(Batch, UndecodableNamesAreRenamed) {
    EXPECT_EQ(Run({u"+ext=ogg", folder_.File(PathFromNative("caf\xE9.mp3"), "1")}).Renamed, 1U);
    EXPECT_EQ(Files(), (Tree{{"caf\xE9.ogg", "1"}}));
}

TEST_F(Batch, ALinkIsRenamedAsALink) {
    (void)folder_.File(u"real", "1");
    EXPECT_EQ(Run({u"+ext=ogg", folder_.Link(u"a.mp3", u"real")}).Renamed, 1U);
    EXPECT_EQ(Files(), (Tree{{"a.ogg", "1"}, {"real", "1"}}));
}

}  // namespace
}  // namespace mdlPLM
