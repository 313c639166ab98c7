#include "app/namefromtext/rename_run.h"

#include <gtest/gtest.h>

#include "core/tags/file_tags.h"
#include "core/text/code_page.h"
#include "tests/support/child_process.h"
#include "tests/support/recording_disk.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using Tree = std::map<Bytes, Bytes>;

struct Running {
    TempFolder Folder;
    Settings Values;
    RunChoices Choices;
    RecordingDisk Files;
    ScriptedPrompts Ask;
    std::vector<RenamePair> Pairs;

    Running() { Choices.Tags.OutPattern = u"%track - %artist - %title.mp3"; }
    void Add(TextView oldName, TextView newName) {
        Pairs.push_back({Folder / oldName, Text(newName)});
    }
    void AddFile(TextView oldName, TextView newName) {
        Pairs.push_back({Folder.File(oldName, ToUtf8(oldName)), Text(newName)});
    }
    RenameRun Start() { return {Pairs, Choices, Values, Files, Ask}; }
    RenameReport Run() {
        RenameRun run = Start();
        while (run.Step()) {
        }
        return run.Report();
    }
    [[nodiscard]] Tree Left() const { return ReadTree(Folder.Path()); }
    [[nodiscard]] Text ExistsQuestion(TextView name) const {
        return u"The file \"" + (Folder / name) +
               u"\" already exists!\r\nDo you want to replace it?";
    }
};

TEST(MayRename, AsksWhenTheListsDiffer) {
    const auto asked = [](std::size_t oldFiles, std::size_t newNames, Answer answer) {
        ScriptedPrompts prompts({answer});
        const bool may = MayRename(oldFiles, newNames, prompts);
        EXPECT_EQ(may, answer == Answer::Yes);
        EXPECT_EQ(prompts.Log.size(), 1U);
        EXPECT_EQ(prompts.Log[0].Kind, PromptKind::YesNo);
        EXPECT_EQ(prompts.Log[0].What.Title, u"Pellmore");
        return prompts.Log[0].What.Body;
    };
    const Text fewer =
        u"There are fewer new filnames then old.\r\nDo you want to continue any way?";
    const Text more = u"There are more new filnames then old.\r\nDo you want to continue any way?";
    EXPECT_EQ(asked(3, 2, Answer::Yes), fewer);
    EXPECT_EQ(asked(3, 2, Answer::No), fewer);
    EXPECT_EQ(asked(2, 3, Answer::Yes), more);
    EXPECT_EQ(asked(0, 1, Answer::No), more);
}

TEST(MayRename, NoQuestionWhenThereIsNothingToAsk) {
    ScriptedPrompts prompts;
    EXPECT_TRUE(MayRename(3, 3, prompts));
    EXPECT_FALSE(MayRename(3, 0, prompts));
    EXPECT_FALSE(MayRename(0, 0, prompts));
    EXPECT_TRUE(prompts.Log.empty());
}

TEST(RenameRun, SettingsAreThoseOfItsStart) {
    Running running;
    running.AddFile(u"a.mp3", u"01 - A.mp3");
    running.AddFile(u"b.mp3", u"02 - B.mp3");
    running.Choices.chkConvert = true;
    RenameRun run = running.Start();
    EXPECT_TRUE(run.Step());
    running.Values.bSetAttributes = true;
    running.Values.bReadOnly = true;
    while (run.Step()) {
    }
    EXPECT_EQ(GetAttributes(running.Folder / u"02 - B.mp3") & ReadOnly, 0);
}

TEST(RenameRun, EveryFileGetsItsNameInItsOwnFolder) {
    Running running;
    running.AddFile(u"a.mp3", u"01 - A.mp3");
    running.AddFile(u"sub/b.mp3", u"02 - B.mp3");
    const RenameReport report = running.Run();
    EXPECT_EQ(running.Left(),
              (Tree{{"01 - A.mp3", "a.mp3"}, {"sub/", ""}, {"sub/02 - B.mp3", "sub/b.mp3"}}));
    EXPECT_EQ(report.Renamed, 2U);
    EXPECT_TRUE(report.Completed);
    EXPECT_TRUE(running.Ask.Log.empty());
    EXPECT_EQ(SummaryText(report), u"2 renamed");
}

TEST(RenameRun, OnePairPerStep) {
    Running running;
    running.AddFile(u"a.mp3", u"1.mp3");
    running.AddFile(u"b.mp3", u"2.mp3");
    RenameRun run = running.Start();
    EXPECT_EQ(run.Total(), 2U);
    EXPECT_EQ(run.Next().NewName, u"1.mp3");
    EXPECT_TRUE(run.Step());
    EXPECT_EQ(run.Done(), 1U);
    EXPECT_EQ(run.Next().NewName, u"2.mp3");
    EXPECT_EQ(running.Left(), (Tree{{"1.mp3", "a.mp3"}, {"b.mp3", "b.mp3"}}));
    EXPECT_FALSE(run.Step());
    EXPECT_TRUE(run.Finished());
    EXPECT_FALSE(run.Step());
}

TEST(RenameRun, NoPairsAreDoneAtOnce) {
    Running running;
    RenameRun run = running.Start();
    EXPECT_TRUE(run.Finished());
    EXPECT_TRUE(run.Report().Completed);
    EXPECT_FALSE(run.Step());
}

TEST(RenameRun, TheStopFlagEndsTheRunBeforeTheNextPair) {
    Running running;
    running.AddFile(u"a.mp3", u"1.mp3");
    running.AddFile(u"b.mp3", u"2.mp3");
    RenameRun run = running.Start();
    run.Step();
    run.Stop();
    EXPECT_FALSE(run.Step());
    EXPECT_EQ(running.Left(), (Tree{{"1.mp3", "a.mp3"}, {"b.mp3", "b.mp3"}}));
    EXPECT_TRUE(run.Report().Stopped);
    EXPECT_FALSE(run.Report().Completed);
}

TEST(RenameRun, ALetterCaseAloneIsRenamedWithoutAQuestion) {
    Running running;
    running.AddFile(u"track.mp3", u"Track.mp3");
    EXPECT_EQ(running.Run().Renamed, 1U);
    EXPECT_EQ(running.Left(), (Tree{{"Track.mp3", "track.mp3"}}));
    EXPECT_TRUE(running.Ask.Log.empty());
    ASSERT_EQ(running.Files.Changes().size(), 1U);
    EXPECT_EQ(running.Files.Changes()[0].IfExists, IfTargetExists::Fail);
}

TEST(RenameRun, TheOtherSpellingOfAnotherFileIsNotReplaced) {
    for (const IfExists choice : {IfExists::Prompt, IfExists::Replace}) {
        Running running;
        running.Choices.Exists = choice;
        running.AddFile(u"track.mp3", u"Track.mp3");
        WriteFile(running.Folder / u"Track.mp3", "other");
        const RenameReport report = running.Run();
        EXPECT_EQ(running.Left(), (Tree{{"Track.mp3", "other"}, {"track.mp3", "track.mp3"}}));
        EXPECT_EQ(running.Ask.Bodies(), std::vector<Text>{u"Error: 58\r\nFile already exists"});
        EXPECT_EQ(report.Failures.size(), 1U);
    }
}

TEST(RenameRun, TheSameNameIsDoneWithoutTouchingTheFile) {
    Running running;
    running.Choices.Exists = IfExists::Replace;
    running.AddFile(u"a.mp3", u"a.mp3");
    EXPECT_EQ(running.Run().Renamed, 1U);
    EXPECT_EQ(running.Left(), (Tree{{"a.mp3", "a.mp3"}}));
    EXPECT_TRUE(running.Files.Changes().empty());
}

TEST(RenameRun, YesReplacesTheExistingFile) {
    Running running;
    running.Ask.Answers = {Answer::Yes};
    running.AddFile(u"a.mp3", u"b.mp3");
    WriteFile(running.Folder / u"b.mp3", "other");
    EXPECT_EQ(running.Run().Renamed, 1U);
    EXPECT_EQ(running.Left(), (Tree{{"b.mp3", "a.mp3"}}));
    ASSERT_EQ(running.Ask.Log.size(), 1U);
    EXPECT_EQ(running.Ask.Log[0].Kind, PromptKind::YesNoCancel);
    EXPECT_EQ(running.Ask.Log[0].What.Body, running.ExistsQuestion(u"b.mp3"));
}

TEST(RenameRun, NoAndSkipLeaveBothFiles) {
    for (const IfExists choice : {IfExists::Prompt, IfExists::Skip}) {
        Running running;
        running.Choices.Exists = choice;
        running.Ask.Answers = {Answer::No};
        running.AddFile(u"a.mp3", u"b.mp3");
        running.AddFile(u"c.mp3", u"d.mp3");
        WriteFile(running.Folder / u"b.mp3", "other");
        const RenameReport report = running.Run();
        EXPECT_EQ(running.Left(),
                  (Tree{{"a.mp3", "a.mp3"}, {"b.mp3", "other"}, {"d.mp3", "c.mp3"}}));
        EXPECT_EQ(report.Kept, 1U);
        EXPECT_TRUE(report.Completed);
        EXPECT_EQ(SummaryText(report), u"1 renamed, 1 kept");
    }
}

TEST(RenameRun, ReplaceReplacesWithoutAQuestion) {
    Running running;
    running.Choices.Exists = IfExists::Replace;
    running.AddFile(u"a.mp3", u"b.mp3");
    WriteFile(running.Folder / u"b.mp3", "other");
    EXPECT_EQ(running.Run().Renamed, 1U);
    EXPECT_EQ(running.Left(), (Tree{{"b.mp3", "a.mp3"}}));
    EXPECT_TRUE(running.Ask.Log.empty());
}

TEST(RenameRun, CancelEndsTheRunAtOnce) {
    Running running;
    running.Ask.Answers = {Answer::Cancel};
    running.Choices.chkSaveID3v1 = running.Choices.chkSaveID3v2 = true;
    const Bytes contents = test::Noise(300);
    running.Pairs = {{running.Folder.File(u"a.mp3", contents), u"b.mp3"},
                     {running.Folder.File(u"c.mp3", contents), u"d.mp3"}};
    WriteFile(running.Folder / u"b.mp3", contents);
    const Tree before = running.Left();
    const RenameReport report = running.Run();
    EXPECT_EQ(running.Left(), before);
    EXPECT_TRUE(report.Cancelled);
    EXPECT_FALSE(report.Completed);
}

TEST(RenameRun, ANameThatRepeatsIsAskedForEvenUnderReplace) {
    Running running;
    running.Choices.Exists = IfExists::Replace;
    running.Ask.Answers = {Answer::No};
    running.AddFile(u"a.mp3", u"same.mp3");
    running.AddFile(u"b.mp3", u"Same.mp3");
    running.AddFile(u"c.mp3", u"same.mp3");
    running.Run();
    EXPECT_EQ(running.Left(),
              (Tree{{"Same.mp3", "b.mp3"}, {"c.mp3", "c.mp3"}, {"same.mp3", "a.mp3"}}));
    EXPECT_EQ(running.Ask.Bodies(), std::vector<Text>{running.ExistsQuestion(u"same.mp3")});
}

TEST(RenameRun, NamesThatChangePlacesLoseNoFile) {
    Running running;
    running.Choices.Exists = IfExists::Replace;
    running.Ask.Answers = {Answer::No, Answer::No};
    running.AddFile(u"a.mp3", u"b.mp3");
    running.AddFile(u"b.mp3", u"a.mp3");
    EXPECT_EQ(running.Run().Kept, 2U);
    EXPECT_EQ(running.Left(), (Tree{{"a.mp3", "a.mp3"}, {"b.mp3", "b.mp3"}}));
}

TEST(RenameRun, AFileOfTheRunIsKnownThroughALinkedFolderToo) {
    Running running;
    running.Choices.Exists = IfExists::Replace;
    running.Ask.Answers = {Answer::No};
    running.Pairs.push_back({running.Folder.File(u"real/a.mp3", "a"), u"c.mp3"});
    static_cast<void>(running.Folder.Link(u"linked", u"real"));
    static_cast<void>(running.Folder.File(u"real/b.mp3", "b"));
    running.Add(u"linked/b.mp3", u"c.mp3");
    EXPECT_EQ(running.Run().Kept, 1U);
    EXPECT_EQ(ReadTree(running.Folder / u"real"), (Tree{{"b.mp3", "b"}, {"c.mp3", "a"}}));
}

TEST(RenameRun, AnotherNameOfTheSameFileIsDone) {
    Running running;
    running.Choices.Exists = IfExists::Replace;
    running.AddFile(u"a.mp3", u"link.mp3");
    static_cast<void>(running.Folder.Link(u"link.mp3", u"a.mp3"));
    EXPECT_EQ(running.Run().Renamed, 1U);
    EXPECT_TRUE(running.Files.Changes().empty());
    EXPECT_EQ(ReadFile(running.Folder / u"a.mp3"), "a.mp3");
}

TEST(RenameRun, AFolderInTheWayIsNeverReplaced) {
    Running running;
    running.Choices.Exists = IfExists::Replace;
    running.AddFile(u"a.mp3", u"b.mp3");
    static_cast<void>(running.Folder.File(u"b.mp3/inside", "kept"));
    running.Run();
    EXPECT_EQ(running.Left(), (Tree{{"a.mp3", "a.mp3"}, {"b.mp3/", ""}, {"b.mp3/inside", "kept"}}));
    EXPECT_EQ(running.Ask.Log.size(), 1U);
}

TEST(RenameRun, AnAccessErrorSaysThatTheFileCouldBeInUse) {
    Running running;
    running.AddFile(u"a.mp3", u"1.mp3");
    running.AddFile(u"b.mp3", u"2.mp3");
    running.Files.FailCall(DiskOperation::Rename, ErrorNumber::PathFileAccess);
    const RenameReport report = running.Run();
    ASSERT_EQ(running.Ask.Log.size(), 1U);
    EXPECT_EQ(running.Ask.Log[0].Kind, PromptKind::Critical);
    EXPECT_EQ(running.Ask.Log[0].What.Body, u"Could not rename file! \r\nThe file \"" +
                                                (running.Folder / u"a.mp3") +
                                                u"\" could be in use.");
    EXPECT_EQ(running.Left(), (Tree{{"2.mp3", "b.mp3"}, {"a.mp3", "a.mp3"}}));
    EXPECT_TRUE(report.Completed);
    EXPECT_EQ(SummaryText(report), u"1 renamed, 1 failed");
}

TEST(RenameRun, OtherErrorsShowTheirNumberAndTheFileBesideIt) {
    Running running;
    running.AddFile(u"a.mp3", u"1.mp3");
    running.Files.FailCall(DiskOperation::Rename, ErrorNumber::PermissionDenied);
    const RenameReport report = running.Run();
    ASSERT_EQ(running.Ask.Log.size(), 1U);
    EXPECT_EQ(running.Ask.Log[0].What.Body, u"Error: 70\r\nPermission denied");
    EXPECT_EQ(running.Ask.Log[0].What.Detail, running.Folder / u"a.mp3");
    EXPECT_EQ(report.Failures[0].Path, running.Folder / u"a.mp3");
}

TEST(RenameRun, ANameTooLongForTheFileSystemIsAMessage) {
    Running running;
    running.AddFile(u"a.mp3", Text(5000, u'x') + u".mp3");
    running.Run();
    EXPECT_EQ(running.Ask.Bodies(), std::vector<Text>{u"Error: 52\r\nBad file name or number"});
    EXPECT_EQ(running.Left(), (Tree{{"a.mp3", "a.mp3"}}));
}

TEST(RenameRun, ANameThatIsNoFileNameIsNeverUsed) {
    for (const TextView name : {TextView(u"."), TextView(u".."), TextView(u"a/b.mp3"),
                                TextView(u"..\\b.mp3"), TextView(u"a\0b", 3)}) {
        Running running;
        running.Choices.chkSaveID3v1 = true;
        running.AddFile(u"a.mp3", name);
        EXPECT_EQ(running.Run().Failures.size(), 1U);
        EXPECT_EQ(running.Ask.Bodies(), std::vector<Text>{u"Error: 52\r\nBad file name or number"});
        EXPECT_EQ(running.Left(), (Tree{{"a.mp3", "a.mp3"}}));
    }
}

TEST(RenameRun, ANameOfNothingButItsExtensionIsNeverUsed) {
    for (const TextView name : {u"", u".mp3", u" .mp3"}) {
        Running running;
        running.Choices.chkSaveID3v1 = true;
        running.AddFile(u"a.mp3", name);
        const RenameReport report = running.Run();
        ASSERT_EQ(report.Failures.size(), 1U);
        EXPECT_TRUE(StartsWith(report.Failures[0].Reason, u"no name is left"));
        ASSERT_EQ(running.Ask.Log.size(), 1U);
        EXPECT_EQ(running.Ask.Log[0].What.Detail, running.Folder / u"a.mp3");
        EXPECT_EQ(running.Left(), (Tree{{"a.mp3", "a.mp3"}}));
    }
}

// A list can name folders; renaming one would rename the path of everything in it.
TEST(RenameRun, AFolderIsNotRenamed) {
    Running running;
    running.Values.bSetAttributes = running.Choices.chkConvert = true;
    (void)running.Folder.File(u"album/a.mp3", "sound");
    (void)running.Folder.Link(u"linked", u"album");
    running.Add(u"album", u"01 - x.mp3");
    running.Add(u"linked", u"02 - y.mp3");
    running.AddFile(u"b.mp3", u"03 - z.mp3");
    const RenameReport report = running.Run();
    EXPECT_TRUE(report.Completed);
    EXPECT_EQ(report.Renamed, 1U);
    ASSERT_EQ(report.Failures.size(), 2U);
    EXPECT_EQ(report.Failures[0].Path, running.Folder / u"album");
    EXPECT_EQ(running.Ask.Bodies(), (std::vector<Text>(2, u"Error: 75\r\nPath/File access error")));
    EXPECT_EQ(ReadFile(running.Folder / u"album/a.mp3"), "sound");
    EXPECT_TRUE(IsThere(running.Folder / u"linked"));
    EXPECT_TRUE(IsThere(running.Folder / u"03 - z.mp3"));
}

TEST(RenameRun, AFileThatVanishedIsPassedOver) {
    Running running;
    running.Choices.chkSaveID3v1 = running.Choices.chkSaveID3v2 = true;
    running.Add(u"gone.mp3", u"1.mp3");
    const RenameReport report = running.Run();
    EXPECT_EQ(report.Missing, 1U);
    EXPECT_TRUE(running.Left().empty());
    EXPECT_TRUE(running.Ask.Log.empty());
    EXPECT_EQ(SummaryText(report), u"1 missing");
}

TEST(RenameRun, AttributesAreSetAfterTheRenameWhenFilenamesAreFixed) {
    const auto attributes = [](bool convert, bool set) {
        Running running;
        running.Choices.chkConvert = convert;
        running.Values.bSetAttributes = set;
        running.Values.bReadOnly = running.Values.bArhive = true;
        running.AddFile(u"a.mp3", u"1.mp3");
        running.Run();
        const std::vector<DiskCall> changes = running.Files.Changes();
        EXPECT_EQ(changes[0].Operation, DiskOperation::Rename);
        if (changes.size() == 1) return -1;
        EXPECT_EQ(changes[1].Operation, DiskOperation::SetAttributes);
        EXPECT_EQ(changes[1].Path, running.Folder / u"1.mp3");
        return changes[1].Attributes;
    };
    EXPECT_EQ(attributes(true, true), ReadOnly + Archive);
    EXPECT_EQ(attributes(false, true), -1);
    EXPECT_EQ(attributes(true, false), -1);
}

TEST(RenameRun, AFileThatKeepsItsNameGetsItsAttributesThere) {
    Running running;
    running.Ask.Answers = {Answer::No};
    running.Choices.chkConvert = running.Values.bSetAttributes = true;
    running.AddFile(u"a.mp3", u"1.mp3");
    WriteFile(running.Folder / u"1.mp3", "other");
    EXPECT_EQ(running.Run().Kept, 1U);
    const std::vector<DiskCall> changes = running.Files.Changes();
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].Path, running.Folder / u"a.mp3");
}

TEST(RenameRun, AnAttributeThatCannotBeSetStopsNothing) {
    Running running;
    running.Choices.chkConvert = running.Values.bSetAttributes = true;
    running.AddFile(u"a.mp3", u"1.mp3");
    running.Files.FailCall(DiskOperation::SetAttributes, ErrorNumber::PermissionDenied);
    EXPECT_EQ(running.Run().Renamed, 1U);
    EXPECT_TRUE(running.Ask.Log.empty());
}

// --- tags ---

struct Tagging : Running {
    static Bytes Audio() { return test::Noise(500); }
    explicit Tagging(bool first = true, bool second = true) {
        Choices.chkSaveID3v1 = first;
        Choices.chkSaveID3v2 = second;
    }
    void AddAudio(TextView oldName, TextView newName, const Bytes& head = {},
                  const Bytes& end = {}) {
        Pairs.push_back({Folder.File(oldName, head + Audio() + end), Text(newName)});
    }
    [[nodiscard]] FileTags Read(TextView name) const {
        SilentErrors errors;
        return ReadFileTags(Folder / name, ID3v2Parts::Everything, errors);
    }
};

constexpr TextView NewName = u"07 - Abba - Waterloo.mp3";

TEST(RenameRun, WritesBothTagsFromTheNewName) {
    Tagging tagging;
    tagging.AddAudio(u"a.mp3", NewName);
    tagging.Run();
    const FileTags tags = tagging.Read(NewName);
    EXPECT_EQ(FieldText(tags.V1.Title), "Waterloo");
    EXPECT_EQ(FieldText(tags.V1.Artist), "Abba");
    EXPECT_EQ(tags.V1.Track, 7);
    EXPECT_EQ(tags.V1.Genre, NoGenre);
    EXPECT_EQ(tags.V2.Title, "Waterloo");
    EXPECT_EQ(tags.V2.Artist, "Abba");
    EXPECT_EQ(tags.V2.Track, "7");
    EXPECT_NE(ReadFile(tagging.Folder / NewName).find(Tagging::Audio()), Bytes::npos);
    EXPECT_TRUE(tagging.Ask.Log.empty());
}

TEST(RenameRun, WritesOnlyTheTagsThatAreAskedFor) {
    for (const bool first : {false, true}) {
        Tagging tagging(first, !first);
        tagging.AddAudio(u"a.mp3", NewName);
        tagging.Run();
        EXPECT_EQ(tagging.Read(NewName).V1.Present(), first);
        EXPECT_EQ(tagging.Read(NewName).V2.Present(), !first);
    }
    Tagging neither(false, false);
    neither.AddAudio(u"a.mp3", NewName);
    neither.Run();
    EXPECT_EQ(neither.Left(), (Tree{{ToUtf8(NewName), Tagging::Audio()}}));
}

TEST(RenameRun, AnArtistOfItsOwnStaysUnlessOneIsForAll) {
    for (const bool forAll : {false, true}) {
        Tagging tagging;
        tagging.Choices.Tags.chkArtist4All = forAll;
        tagging.Choices.Tags.txtArtist = u"Box Artist";
        tagging.AddAudio(u"a.mp3", NewName, test::WholeTag(test::TextFrame("TPE1", "Own")),
                         test::Trailer("Own Title"));
        tagging.AddAudio(u"b.mp3", u"08 - Abba - Fernando.mp3");
        tagging.Run();
        const FileTags own = tagging.Read(NewName);
        EXPECT_EQ(FieldText(own.V1.Artist), forAll ? "Box Artist" : "An artist");
        EXPECT_EQ(own.V2.Artist, forAll ? "Box Artist" : "Own");
        EXPECT_EQ(FieldText(own.V1.Title), "Own Title");
        EXPECT_EQ(own.V2.Title, "Waterloo");
        const FileTags none = tagging.Read(u"08 - Abba - Fernando.mp3");
        EXPECT_EQ(FieldText(none.V1.Artist), forAll ? "Box Artist" : "Abba");
        EXPECT_EQ(none.V2.Artist, forAll ? "Box Artist" : "Abba");
    }
}

TEST(RenameRun, GenreAndReleaseDateForAll) {
    Tagging tagging;
    tagging.Choices.Tags.chkGenre4All = tagging.Choices.Tags.chkRelease4All = true;
    tagging.Choices.Tags.cmbGenre = u"Pop";
    tagging.Choices.Tags.txtReleaseDate = u"1998-03-12";
    tagging.AddAudio(u"a.mp3", NewName);
    tagging.Run();
    const FileTags tags = tagging.Read(NewName);
    EXPECT_EQ(tags.V1.Genre, 13);
    EXPECT_EQ(FieldText(tags.V1.Comment), "1998-03-12");
    EXPECT_EQ(tags.V2.Genre, "Pop");
    EXPECT_EQ(tags.V2.Comments, "1998-03-12");
    EXPECT_NE(ReadFile(tagging.Folder / NewName).find("(13)Pop"), Bytes::npos);
}

// The tags of the old file go into the file that bears the new name already: intended.
TEST(RenameRun, AfterNoTheTagsAreWrittenAtTheNewPath) {
    Tagging tagging;
    tagging.Ask.Answers = {Answer::No};
    tagging.AddAudio(u"a.mp3", NewName, {}, test::Trailer("Old Title"));
    WriteFile(tagging.Folder / NewName, test::Noise(600));
    tagging.Run();
    EXPECT_EQ(ReadFile(tagging.Folder / u"a.mp3"), Tagging::Audio() + test::Trailer("Old Title"));
    const FileTags tags = tagging.Read(NewName);
    EXPECT_EQ(FieldText(tags.V1.Title), "Old Title");
    EXPECT_EQ(tags.V2.Title, "Waterloo");
    EXPECT_NE(ReadFile(tagging.Folder / NewName).find(test::Noise(600)), Bytes::npos);
}

TEST(RenameRun, TheTagsOfAMissingFileComeFromTheNewPath) {
    Tagging tagging;
    tagging.Add(u"gone.mp3", NewName);
    WriteFile(tagging.Folder / NewName, Tagging::Audio() + test::Trailer("Its Title"));
    EXPECT_EQ(tagging.Run().Missing, 1U);
    EXPECT_EQ(FieldText(tagging.Read(NewName).V1.Title), "Its Title");
    EXPECT_EQ(tagging.Read(NewName).V2.Title, "Waterloo");
}

TEST(RenameRun, AfterAFailedRenameNoTagIsWrittenAnywhere) {
    Tagging tagging;
    tagging.AddAudio(u"track.mp3", u"Track.mp3");
    WriteFile(tagging.Folder / u"Track.mp3", "other");
    const Tree before = tagging.Left();
    tagging.Run();
    EXPECT_EQ(tagging.Left(), before);
}

TEST(RenameRun, ATagThatCannotBeReadIsShownAndNotWritten) {
    Tagging tagging;
    const Bytes head = test::TagHeader(1000000);
    tagging.AddAudio(u"a.mp3", NewName, head);
    const RenameReport report = tagging.Run();
    EXPECT_EQ(tagging.Ask.Bodies(), std::vector<Text>{u"Error: 62\r\nInput past end of file"});
    EXPECT_EQ(tagging.Ask.Log[0].What.Detail, tagging.Folder / u"a.mp3");
    EXPECT_EQ(report.Renamed, 1U);
    EXPECT_EQ(report.Failures.size(), 1U);
    const Bytes contents = ReadFile(tagging.Folder / NewName);
    EXPECT_EQ(contents.substr(0, head.size() + 500), head + Tagging::Audio());
    EXPECT_EQ(contents.size(), head.size() + 500 + 128);
}

TEST(RenameRun, AnErrorOfATagThatIsNotAskedForIsNotShown) {
    Tagging first(true, false);
    first.AddAudio(u"a.mp3", NewName, test::TagHeader(1000000));
    first.Run();
    EXPECT_TRUE(first.Ask.Log.empty());
    Tagging second(false, true);
    second.AddAudio(u"a.mp3", NewName);
    second.Run();
    EXPECT_TRUE(second.Ask.Log.empty());
}

TEST(RenameRun, AFileTooShortForATrailerStaysAsItIs) {
    const std::pair<bool, bool> choices[] = {{true, false}, {true, true}, {false, true}};
    for (const auto& [first, second] : choices) {
        Tagging tagging(first, second);
        tagging.Pairs.push_back({tagging.Folder.File(u"a.mp3", "short"), Text(NewName)});
        tagging.Run();
        EXPECT_EQ(tagging.Ask.Bodies().at(0), u"Error: 63\r\nBad record number");
        EXPECT_EQ(ReadFile(tagging.Folder / NewName), "short");
    }
}

TEST(RenameRun, OtherFramesAreCarriedOverOrLeftOut) {
    for (const bool remove : {false, true}) {
        Tagging tagging(false, true);
        tagging.Values.bRemHiddenID3 = remove;
        tagging.AddAudio(u"a.mp3", NewName,
                         test::WholeTag(test::Frame("USLT", "hidden words") +
                                        test::TextFrame("TIT2", "Own Title")));
        tagging.Run();
        EXPECT_EQ(tagging.Read(NewName).V2.Title, "Own Title");
        EXPECT_EQ(ReadFile(tagging.Folder / NewName).find("hidden words") == Bytes::npos, remove);
    }
}

constexpr TextView NextName = u"08 - Abba - Fernando.mp3";

TEST(RenameRun, ReadOnlyIsSetAfterTheTagsSoThatEverybodyCanWriteThem) {
    for (const bool protectedBefore : {false, true}) {
        for (const bool first : {false, true}) {
            Tagging tagging(first, true);
            tagging.Choices.chkConvert = tagging.Values.bSetAttributes = true;
            tagging.Values.bReadOnly = true;
            tagging.AddAudio(u"a.mp3", NewName);
            if (protectedBefore) {
                ASSERT_TRUE(tagging.Files.SetAttributes(tagging.Folder / u"a.mp3", ReadOnly).Ok());
            }
            EXPECT_EQ(RunInChild([&] {
                          ObeyPermissions();
                          const RenameReport report = tagging.Run();
                          return static_cast<int>(report.Failures.size() + tagging.Ask.Log.size());
                      }),
                      0);
            EXPECT_EQ(tagging.Read(NewName).V1.Present(), first);
            EXPECT_EQ(tagging.Read(NewName).V2.Title, "Waterloo");
            EXPECT_EQ(GetAttributes(tagging.Folder / NewName), ReadOnly);
        }
    }
}

TEST(RenameRun, AProtectedFileStaysSoWhereNoAttributesAreSet) {
    Tagging tagging;
    tagging.AddAudio(u"a.mp3", NewName);
    ASSERT_TRUE(tagging.Files.SetAttributes(tagging.Folder / u"a.mp3", ReadOnly).Ok());
    EXPECT_EQ(RunInChild([&] {
                  ObeyPermissions();
                  (void)tagging.Run();
                  const Text denied = ErrorMessage(ErrorNumber::PermissionDenied);
                  return tagging.Ask.Bodies() == std::vector<Text>{denied, denied} ? 0 : 1;
              }),
              0);
    EXPECT_EQ(tagging.Left(), (Tree{{ToUtf8(NewName), Tagging::Audio()}}));
}

TEST(RenameRun, TagsOfManyFilesAreWrittenTogetherAndThenSettled) {
    Tagging tagging(false, true);
    tagging.AddAudio(u"a.mp3", NewName);
    tagging.AddAudio(u"b.mp3", NextName);
    RenameRun run = tagging.Start();
    EXPECT_TRUE(run.Step());
    EXPECT_TRUE(run.Step());
    EXPECT_EQ(run.Done(), 2U);
    EXPECT_EQ(run.Settled(), 0U);
    EXPECT_FALSE(run.Report().Completed);
    EXPECT_EQ(tagging.Left().size(), 4U);
    while (run.Step()) continue;
    EXPECT_EQ(run.Settled(), 2U);
    EXPECT_TRUE(run.Report().Completed);
    EXPECT_EQ(tagging.Left().size(), 2U);
    EXPECT_EQ(tagging.Read(NewName).V2.Title, "Waterloo");
    EXPECT_EQ(tagging.Read(NextName).V2.Title, "Fernando");
}

TEST(RenameRun, StoppedTheTagsThatWaitAreWritten) {
    Tagging tagging(false, true);
    tagging.AddAudio(u"a.mp3", NewName);
    tagging.AddAudio(u"b.mp3", NextName);
    RenameRun run = tagging.Start();
    run.Step();
    run.Stop();
    EXPECT_FALSE(run.Finished());
    while (run.Step()) continue;
    EXPECT_EQ(tagging.Read(NewName).V2.Title, "Waterloo");
    EXPECT_EQ(ReadFile(tagging.Folder / u"b.mp3"), Tagging::Audio());
    EXPECT_TRUE(run.Report().Stopped);
    EXPECT_FALSE(run.Report().Completed);
}

TEST(RenameRun, AFileWhoseTagsWaitGetsThemBeforeItIsHandledAgain) {
    Tagging tagging(false, true);
    tagging.AddAudio(u"a.mp3", NewName);
    tagging.Add(NewName, NextName);
    tagging.Run();
    EXPECT_EQ(tagging.Left().size(), 1U);
    EXPECT_EQ(tagging.Read(NextName).V2.Title, "Waterloo");
    EXPECT_TRUE(tagging.Ask.Log.empty());
}

// Notes how many files wait when a question comes.
class LookingPrompts final : public Prompts {
public:
    explicit LookingPrompts(const TempFolder& folder) : folder_(folder) {}
    Answer AskYesNo(const Message& /*question*/) override { return Answer::No; }
    Answer AskYesNoCancel(const Message& /*question*/) override {
        Seen = ListTree(folder_.Path());
        return Answer::Yes;
    }
    void Inform(const Message& /*message*/) override {}
    void Critical(const Message& /*message*/) override {}
    std::optional<Text> AskText(const Message& /*question*/) override { return {}; }
    std::vector<Bytes> Seen;

private:
    const TempFolder& folder_;
};

TEST(RenameRun, NothingWaitsWhileTheUserIsAsked) {
    Tagging tagging(false, true);
    tagging.AddAudio(u"a.mp3", NewName);
    tagging.AddAudio(u"b.mp3", NewName);
    LookingPrompts prompts(tagging.Folder);
    RenameRun run(tagging.Pairs, tagging.Choices, tagging.Values, tagging.Files, prompts);
    while (run.Step()) continue;
    EXPECT_EQ(prompts.Seen, (std::vector<Bytes>{ToUtf8(NewName), "b.mp3"}));
    EXPECT_EQ(run.Report().Renamed, 2U);
}

TEST(RenameRun, FailuresAreToldInTheOrderOfThePairs) {
    Tagging tagging(false, true);
    tagging.AddAudio(u"a.mp3", NewName);
    tagging.AddAudio(u"b.mp3", u"x/y.mp3");
    RenameRun run = tagging.Start();
    run.Step();
    WriteFile(tagging.Folder / NewName, "changed by another");
    while (run.Step()) continue;
    ASSERT_EQ(run.Report().Failures.size(), 2U);
    EXPECT_EQ(run.Report().Failures[0].Pair, 0U);
    EXPECT_EQ(run.Report().Failures[0].Path, tagging.Folder / NewName);
    EXPECT_EQ(run.Report().Failures[1].Pair, 1U);
    EXPECT_EQ(tagging.Ask.Log[0].What.Detail, tagging.Folder / NewName);
    EXPECT_EQ(ReadFile(tagging.Folder / NewName), "changed by another");
}

TEST(RenameRun, AFileThatAnotherProgramWritesToKeepsItsTags) {
    Tagging tagging;
    tagging.AddAudio(u"a.mp3", NewName);
    File other;
    ASSERT_TRUE(other.Open(tagging.Folder / u"a.mp3", File::Mode::ReadWrite).Ok());
    ASSERT_TRUE(other.Lock().Ok());
    EXPECT_EQ(tagging.Run().Renamed, 1U);
    EXPECT_EQ(tagging.Ask.Bodies(),
              std::vector<Text>{u"Another program is writing to this file. Nothing was written; "
                                u"save it again when that program is done."});
    EXPECT_EQ(tagging.Left(), (Tree{{ToUtf8(NewName), Tagging::Audio()}}));
}

TEST(RenameRun, AFileThatChangesBetweenReadAndWriteKeepsWhatItHolds) {
    for (const bool first : {false, true}) {
        Tagging tagging(first, !first);
        tagging.AddAudio(u"a.mp3", NewName);
        tagging.Files.Inject = [&](const DiskCall& call, std::size_t) {
            if (call.Operation == DiskOperation::Rename) WriteFile(call.Path, "changed");
            return Status();
        };
        tagging.Run();
        EXPECT_EQ(tagging.Ask.Bodies().size(), 1U);
        EXPECT_EQ(tagging.Left(), (Tree{{ToUtf8(NewName), "changed"}}));
    }
}

TEST(RenameRun, AFullDiskLeavesTheRenamedFileWhole) {
    Running running;
    running.AddFile(u"a.mp3", u"1.mp3");
    running.Files.FailCall(DiskOperation::Rename, ErrorNumber::DiskFull);
    running.Run();
    EXPECT_EQ(running.Left(), (Tree{{"a.mp3", "a.mp3"}}));
    EXPECT_EQ(running.Ask.Bodies(), std::vector<Text>{u"Error: 61\r\nDisk full"});
}

}  // namespace
}  // namespace mdlPLM
