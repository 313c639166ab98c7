#include <sys/stat.h>
#include <sys/xattr.h>

#include "tests/program/cli_fixture.h"

namespace mdlPLM::test {
namespace {

using Tree = std::map<Bytes, Bytes>;

class CliSort : public CliTest {
protected:
    // Three files of two artists and one without.
    void MakeFiles() {
        (void)Folder.File(u"in/abba_-_sos.MP3", "1" + Noise(200));
        (void)Folder.File(u"in/abba - waterloo.mp3", "2" + Noise(200) + Trailer("W"));
        (void)Folder.File(u"in/kent - 747.mp3", "3" + Noise(200));
        (void)Folder.File(u"in/alone.mp3", "4" + Noise(200));
    }
    [[nodiscard]] Lines TreeOf(TextView name) const { return ListTree(Folder / name); }
};

TEST_F(CliSort, CopiesUnderNewNamesIntoTheTargetFolder) {
    MakeFiles();
    (void)Folder.Folder(u"out");
    ExpectPrints({"sort", "--to", "out", "--method", "copy", "in"},
                 "copied in/abba - waterloo.mp3 -> out/An Artist - W.mp3\n"
                 "copied in/abba_-_sos.MP3 -> out/Abba - Sos.mp3\n"
                 "copied in/alone.mp3 -> out/Alone.mp3\n"
                 "copied in/kent - 747.mp3 -> out/Kent - 747.mp3\n"
                 "4 done, 0 skipped, 0 failed\n");
    EXPECT_EQ(TreeOf(u"out"),
              (Lines{"Abba - Sos.mp3", "Alone.mp3", "An Artist - W.mp3", "Kent - 747.mp3"}));
    EXPECT_EQ(TreeOf(u"in").size(), 4U);
}

TEST_F(CliSort, ACopyAndAMoveKeepTheUsersAttributes) {
    const auto attribute = [this](TextView name) {
        char value[20];
        const ssize_t length =
            ::getxattr(NativePath(Folder / name).c_str(), "user.comment", value, sizeof value);
        return length < 0 ? Bytes("none") : Bytes(value, static_cast<std::size_t>(length));
    };
    const Text source = Folder.File(u"in/abba - sos.mp3", Noise(200));
    // A file system that takes none keeps none.
    (void)::setxattr(NativePath(source).c_str(), "user.comment", "mine", 4, 0);
    const Bytes before = attribute(u"in/abba - sos.mp3");
    (void)Folder.Folder(u"copied");
    (void)Folder.Folder(u"moved");
    EXPECT_EQ(Cli({"sort", "--to", "copied", "--method", "copy", "in"}).Status, 0);
    EXPECT_EQ(attribute(u"copied/Abba - Sos.mp3"), before);
    EXPECT_EQ(Cli({"sort", "--to", "moved", "--method", "move", "in"}).Status, 0);
    EXPECT_EQ(attribute(u"moved/Abba - Sos.mp3"), before);
}

TEST_F(CliSort, MovesIntoGenreLetterAndArtistFolders) {
    MakeFiles();
    (void)Folder.Folder(u"out");
    const ProgramResult result =
        Cli({"sort", "--to", "out", "--method", "move", "--genre", "--letter", "--artist", "2",
             "--setting", "bID3=False", "in"});
    ExpectResult(result, 0,
                 "created folder out/Rock\n"
                 "created folder out/Rock/A\n"
                 "created folder out/Rock/A/Abba\n"
                 "created folder out/Unknown\n"
                 "created folder out/Unknown/A\n"
                 "created folder out/Unknown/A/Abba\n"
                 "moved in/abba - waterloo.mp3 -> out/Rock/A/Abba/Abba - Waterloo.mp3\n"
                 "moved in/abba_-_sos.MP3 -> out/Unknown/A/Abba/Abba - Sos.mp3\n"
                 "skipped in/alone.mp3: Its name has no artist\n"
                 "created folder out/Unknown/K\n"
                 "moved in/kent - 747.mp3 -> out/Unknown/K/Kent - 747.mp3\n"
                 "3 done, 1 skipped, 0 failed\n",
                 "");
    EXPECT_EQ(TreeOf(u"in"), Lines{"alone.mp3"});
}

TEST_F(CliSort, RenamesInPlace) {
    MakeFiles();
    (void)Folder.File(u"in/Kent - 748.mp3", Noise(200));
    ExpectPrints({"sort", "--method", "rename", "--setting", "bID3=False", "in"},
                 "renamed in/abba - waterloo.mp3 -> in/Abba - Waterloo.mp3\n"
                 "renamed in/abba_-_sos.MP3 -> in/Abba - Sos.mp3\n"
                 "renamed in/alone.mp3 -> in/Alone.mp3\n"
                 "renamed in/kent - 747.mp3 -> in/Kent - 747.mp3\n"
                 "unchanged in/Kent - 748.mp3\n"
                 "5 done, 0 skipped, 0 failed\n");
}

TEST_F(CliSort, KeepsNamesWhenToldTo) {
    (void)Folder.File(u"a_b.mp3", Noise(200));
    (void)Folder.Folder(u"out");
    ExpectPrints({"sort", "--to", "out", "--keep-names", "a_b.mp3"},
                 "copied a_b.mp3 -> out/a_b.mp3\n1 done, 0 skipped, 0 failed\n");
    const std::vector<Json> objects =
        Objects(Cli({"sort", "--to", "out", "--keep-names", "--json", "a_b.mp3"}));
    EXPECT_EQ(objects, (std::vector<Json>{{{"path", "a_b.mp3"},
                                           {"new_path", "out/a_b.mp3"},
                                           {"outcome", "kept"},
                                           {"reason", "There is a file of its new name"}}}));
}

TEST_F(CliSort, AnExistingTargetIsSkippedOrReplaced) {
    (void)Folder.File(u"a - b.mp3", "new" + Noise(200));
    const Text target = Folder.File(u"out/A - B.mp3", "old");
    const Bytes kept =
        "kept a - b.mp3 -> out/A - B.mp3: There is a file of its new name\n0 done, 1 skipped, 0 "
        "failed\n";
    ExpectPrints({"sort", "--to", "out", "a - b.mp3"}, kept);
    ExpectPrints({"sort", "--to", "out", "--if-exists", "skip", "a - b.mp3"}, kept);
    EXPECT_EQ(ReadFile(target), "old");
    ExpectPrints({"sort", "--to", "out", "--if-exists", "replace", "a - b.mp3"},
                 "copied a - b.mp3 -> out/A - B.mp3, replacing the file there\n"
                 "1 done, 0 skipped, 0 failed\n");
    EXPECT_EQ(ReadFile(target), "new" + Noise(200));
}

// Three songs of one new name: none of them takes the place of another.
TEST_F(CliSort, UnderReplaceACopyOfTheRunIsAskedAboutAndKeptWithoutATerminal) {
    for (const TextView name : {u"a", u"b", u"c"})
        (void)Folder.File(u"in/" + Text(name) + u".mp3",
                          WholeTag(TextFrame("TPE1", "Abba") + TextFrame("TIT2", "SOS")) +
                              Noise(200) + ToUtf8(name));
    const Arguments call = {"sort", "--to",        "out",     "--method",
                            "copy", "--if-exists", "replace", "in"};
    const Bytes question = "already exists!\nDo you want to replace it?";
    (void)Folder.Folder(u"out");
    const ProgramResult nobody = Cli(call);
    EXPECT_EQ(nobody.Status, 1);
    EXPECT_EQ(nobody.Out,
              "copied in/a.mp3 -> out/Abba - Sos.mp3\n"
              "kept in/b.mp3 -> out/Abba - Sos.mp3: There is a file of its new name\n"
              "kept in/c.mp3 -> out/Abba - Sos.mp3: There is a file of its new name\n"
              "1 done, 2 skipped, 0 failed\n");
    EXPECT_NE(nobody.Errors.find(question + "\n(There is no terminal to ask at.)"), Bytes::npos);
    const Bytes copied = ReadFile(Folder / u"out/Abba - Sos.mp3");
    EXPECT_EQ(copied.back(), 'a');
    WriteFile(Folder / u"out/Abba - Sos.mp3", "there before");
    const Bytes asked = "already exists!\r\nDo you want to replace it? [Yes/No/Cancel] ";
    const ProgramResult answered = RunAtTerminal(Call(call), {{asked, "n\n"}, {asked, "yes\n"}});
    EXPECT_EQ(answered.Status, 0);
    EXPECT_EQ(ReadFile(Folder / u"out/Abba - Sos.mp3").back(), 'c');
    EXPECT_EQ(TreeOf(u"in").size(), 3U);
}

TEST_F(CliSort, AFileThatCannotBeReadIsNotRenamedByItsOldName) {
    (void)Folder.Unopenable(u"abba_-_sos.mp3");
    (void)Folder.File(u"x.mp3", WholeTag(TextFrame("TIT2", ".")) + Noise(200));
    ExpectResult(Cli({"sort", "--method", "rename", "--setting", "OutPattern=%title.mp3",
                      "abba_-_sos.mp3", "x.mp3"}),
                 1, "0 done, 0 skipped, 2 failed\n",
                 "pellmore-cli: abba_-_sos.mp3: Device unavailable\n"
                 "pellmore-cli: x.mp3: no name is left (\".mp3\")\n");
    EXPECT_EQ(ListTree(Folder.Path()), (Lines{"abba_-_sos.mp3", "x.mp3"}));
}

TEST_F(CliSort, TheStoredChoiceIsForTerminalsOnly) {
    (void)Folder.File(u"a - b.mp3", "new" + Noise(200));
    const Text target = Folder.File(u"out/A - B.mp3", "old");
    (void)Home.File(u"config/PLM/PLM.ini", "[Settings]\nFileExists=2\n");
    EXPECT_EQ(Cli({"sort", "--to", "out", "a - b.mp3"}).Status, 0);
    EXPECT_EQ(ReadFile(target), "old");
    EXPECT_EQ(RunAtTerminal(Call({"sort", "--to", "out", "a - b.mp3"}), {}).Status, 0);
    EXPECT_EQ(ReadFile(target), "new" + Noise(200));
}

TEST_F(CliSort, AskingWithoutATerminalIsMisuse) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    ExpectResult(Cli({"sort", "--to", ".", "--if-exists", "ask", "a - b.mp3"}), 2, "",
                 "pellmore-cli: --if-exists ask: there is no terminal to ask at\n");
}

TEST_F(CliSort, ATerminalIsAskedWithTheSystemsOwnTexts) {
    (void)Folder.File(u"a - b.mp3", "1" + Noise(200));
    (void)Folder.File(u"c - d.mp3", "2" + Noise(200));
    (void)Folder.File(u"e - f.mp3", "3" + Noise(200));
    for (const TextView name : {u"out/A - B.mp3", u"out/C - D.mp3", u"out/E - F.mp3"})
        (void)Folder.File(name, "old");
    const Bytes out = NativePath(Folder / u"out");
    const ProgramResult result = RunAtTerminal(
        Call({"sort", "--to", "out", "a - b.mp3", "c - d.mp3", "e - f.mp3"}),
        {{"The file \"" + out +
              "/A - B.mp3\" already exists!\r\n"
              "Do you want to replace it? [Yes/No/Cancel] ",
          "y\n"},
         {"/C - D.mp3\" already exists!\r\nDo you want to replace it? [Yes/No/Cancel] ", "no\n"},
         {"/E - F.mp3\" already exists!\r\nDo you want to replace it? [Yes/No/Cancel] ", "\n"}});
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Out.find("copied a - b.mp3 -> out/A - B.mp3, replacing the file there\r\n"),
              Bytes::npos);
    EXPECT_NE(
        result.Out.find("kept c - d.mp3 -> out/C - D.mp3: There is a file of its new name\r\n"),
        Bytes::npos);
    EXPECT_NE(result.Out.find("cancelled e - f.mp3 -> out/E - F.mp3\r\n"), Bytes::npos);
    EXPECT_NE(result.Out.find("stopped: 1 done, 1 skipped, 0 failed"), Bytes::npos);
    EXPECT_EQ(ReadFile(Folder / u"out/A - B.mp3"), "1" + Noise(200));
    EXPECT_EQ(ReadFile(Folder / u"out/C - D.mp3"), "old");
    EXPECT_EQ(ReadFile(Folder / u"out/E - F.mp3"), "old");
}

TEST_F(CliSort, AMissingTargetFolderIsMadeAfterAYes) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    const Bytes out = NativePath(Folder / u"out");
    const Bytes question =
        "The target directory \"" + out + "\" does not exist!\nWould you like to create it?";
    ExpectResult(Cli({"sort", "--to", "out", "a - b.mp3"}), 2, "",
                 "pellmore-cli: " + question +
                     "\n(There is no terminal to ask at.)\n"
                     "pellmore-cli: with --yes the target folder is created\n");
    EXPECT_FALSE(IsThere(Folder / u"out"));

    const Bytes typed = Bytes("does not exist!\r\nWould you like to create it? [Yes/No] ");
    const ProgramResult no =
        RunAtTerminal(Call({"sort", "--to", "out", "a - b.mp3"}), {{typed, "n\n"}});
    EXPECT_EQ(no.Status, 1);
    EXPECT_NE(no.Out.find("nothing was sorted"), Bytes::npos);
    EXPECT_FALSE(IsThere(Folder / u"out"));

    EXPECT_EQ(RunAtTerminal(Call({"sort", "--to", "out", "a - b.mp3"}), {{typed, "y\n"}}).Status,
              0);
    EXPECT_EQ(TreeOf(u"out"), Lines{"A - B.mp3"});
    ExpectPrints({"sort", "--yes", "--to", "other", "a - b.mp3"},
                 "created folder other\ncopied a - b.mp3 -> other/A - B.mp3\n"
                 "1 done, 0 skipped, 0 failed\n");
}

TEST_F(CliSort, ATargetThatIsNoFolderOrCannotBeMadeIsAFailure) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    (void)Folder.File(u"file", "x");
    const Bytes folder = NativePath(Folder.Path());
    ExpectResult(Cli({"sort", "--to", "file", "a - b.mp3"}), 1, "",
                 "pellmore-cli: The target directory \"" + folder + "file\" is not a folder.\n");
    ExpectResult(Cli({"sort", "--yes", "--to", "no/out", "a - b.mp3"}), 1, "",
                 "pellmore-cli: The target directory \"" + folder +
                     "no/out\" could not be created: Path not found.\n");
}

TEST_F(CliSort, WithoutATargetItIsUsedWrongly) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    const Bytes message = "pellmore-cli: You must choose a target directory first! (--to DIR)\n";
    ExpectResult(Cli({"sort", "a - b.mp3"}), 2, "", message);
    ExpectResult(Cli({"sort", "--to", "", "a - b.mp3"}), 2, "", message);
    ExpectResult(Cli({"sort", "--method", "move", "a - b.mp3"}), 2, "", message);
    ExpectResult(Cli({"sort", "--to", "."}), 2, "", "pellmore-cli: no files were given\n");
}

TEST_F(CliSort, WhatFailsIsNamedAndTheRestIsDone) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    (void)Folder.File(u"c - d.mp3", Noise(200));
    (void)Folder.File(u"out/Unknown/x");
    (void)Folder.Folder(u"out/Unknown/A - B.mp3");
    ExpectResult(Cli({"sort", "--to", "out", "--genre", "--if-exists", "replace", "a - b.mp3",
                      "gone.mp3", "c - d.mp3"}),
                 1, "copied c - d.mp3 -> out/Unknown/C - D.mp3\n1 done, 1 skipped, 1 failed\n",
                 "pellmore-cli: a - b.mp3: Path/File access error\n"
                 "pellmore-cli: gone.mp3: The file is missing\n");
}

TEST_F(CliSort, JsonTellsPathsFieldsOutcomeAndReason) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    (void)Folder.Folder(u"out");
    const ProgramResult result =
        Cli({"sort", "--to", "out", "--letter", "--json", "a - b.mp3", "gone.mp3"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, "pellmore-cli: gone.mp3: The file is missing\n");
    const std::vector<Json> objects = Objects(result);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0], (Json{{"folder", "out/A"}, {"outcome", "created"}}));
    EXPECT_EQ(objects[1]["path"], "a - b.mp3");
    EXPECT_EQ(objects[1]["new_path"], "out/A/A - B.mp3");
    EXPECT_EQ(objects[1]["fields"]["title"], (Json{{"value", "b"}, {"source", "pattern"}}));
    EXPECT_EQ(objects[1]["outcome"], "copied");
    EXPECT_EQ(objects[1]["reason"], nullptr);
    EXPECT_EQ(objects[2], (Json{{"path", "gone.mp3"},
                                {"new_path", nullptr},
                                {"outcome", "failed"},
                                {"reason", "The file is missing"}}));
}

TEST_F(CliSort, APlanDoesNothingAndShowsFoldersAndQuestions) {
    MakeFiles();
    (void)Folder.File(u"out/x");
    const Tree before = ReadTree(Folder.Path());
    ExpectPrints({"sort", "--dry-run", "--to", "new", "--genre", "in/kent - 747.mp3"},
                 "would create folder new\n"
                 "    The target directory \"" +
                     NativePath(Folder / u"new") +
                     "\" does not exist!\n"
                     "    Would you like to create it?\n"
                     "would create folder new/Unknown\n"
                     "would copy in/kent - 747.mp3 -> new/Unknown/Kent - 747.mp3\n"
                     "would be: 1 done, 0 skipped, 0 failed\n");
    (void)Folder.File(u"out/Kent - 747.mp3", "old");
    ExpectPrints({"sort", "-n", "--to", "out", "--if-exists", "ask", "in/kent - 747.mp3"},
                 "would ask about in/kent - 747.mp3 -> out/Kent - 747.mp3\n"
                 "    The file \"" +
                     NativePath(Folder / u"out/Kent - 747.mp3") +
                     "\" already exists!\n"
                     "    Do you want to replace it?\n"
                     "would be: 0 done, 1 skipped, 0 failed\n");
    ExpectPrints({"sort", "-n", "--to", "out", "--if-exists", "replace", "in/kent - 747.mp3"},
                 "would copy in/kent - 747.mp3 -> out/Kent - 747.mp3, replacing the file there\n"
                 "would be: 1 done, 0 skipped, 0 failed\n");
    const std::vector<Json> objects = Objects(
        Cli({"sort", "-n", "--json", "--to", "out", "--if-exists", "ask", "in/kent - 747.mp3"}));
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0]["outcome"], "asks");
    EXPECT_EQ(objects[0]["dry_run"], true);
    EXPECT_NE(objects[0]["question"].get<Bytes>().find("Do you want to replace it?"), Bytes::npos);
    ASSERT_EQ(::unlink(NativePath(Folder / u"out/Kent - 747.mp3").c_str()), 0);
    EXPECT_EQ(ReadTree(Folder.Path()), before);
}

TEST_F(CliSort, AttributesOfTheSettingsAreSet) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    (void)Folder.Folder(u"out");
    EXPECT_EQ(Cli({"sort", "--to", "out", "--setting", "bSetAttributes=True", "--setting",
                   "bReadOnly=True", "a - b.mp3"})
                  .Status,
              0);
    struct stat data {};
    ASSERT_EQ(::stat(NativePath(Folder / u"out/A - B.mp3").c_str(), &data), 0);
    EXPECT_EQ(data.st_mode & 0222U, 0U);
}

TEST_F(CliSort, StoredChoicesHoldUntilTheCommandLineSaysOtherwise) {
    (void)Home.File(u"config/PLM/PLM.ini",
                    "[Settings]\nGenre=1\nAlphabetical=1\nSubFolder=1\ntxtSubFolder=1\nMove=1\n"
                    "Convert=0\n");
    (void)Folder.File(u"abba - x.mp3", Noise(200));
    (void)Folder.Folder(u"out");
    EXPECT_EQ(Cli({"sort", "-n", "--to", "out", "abba - x.mp3"}).Out,
              "would create folder out/Unknown\nwould create folder out/Unknown/A\n"
              "would create folder out/Unknown/A/abba\n"
              "would move abba - x.mp3 -> out/Unknown/A/abba/abba - x.mp3\n"
              "would be: 1 done, 0 skipped, 0 failed\n");
    EXPECT_EQ(Cli({"sort", "-n", "--to", "out", "--no-genre", "--no-letter", "--no-artist",
                   "--fix-names", "--method", "copy", "abba - x.mp3"})
                  .Out,
              "would copy abba - x.mp3 -> out/Abba - X.mp3\n"
              "would be: 1 done, 0 skipped, 0 failed\n");
}

TEST_F(CliSort, CtrlCInAQuestionEndsTheRunBeforeTheFileAndSaysWhatWasDone) {
    (void)Folder.File(u"a - b.mp3", "1" + Noise(200));
    (void)Folder.File(u"c - d.mp3", "2" + Noise(200));
    (void)Folder.File(u"e - f.mp3", "3" + Noise(200));
    (void)Folder.File(u"out/C - D.mp3", "old");
    const ProgramResult result =
        RunAtTerminal(Call({"sort", "--to", "out", "a - b.mp3", "c - d.mp3", "e - f.mp3"}),
                      {{"[Yes/No/Cancel] ", "\x03"}});
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Out.find("copied a - b.mp3 -> out/A - B.mp3\r\n"), Bytes::npos);
    EXPECT_NE(result.Out.find("stopped: 1 done, 0 skipped, 0 failed"), Bytes::npos);
    EXPECT_EQ(ListTree(Folder / u"out"), (Lines{"A - B.mp3", "C - D.mp3"}));
    EXPECT_EQ(ReadFile(Folder / u"out/C - D.mp3"), "old");
}

TEST_F(CliSort, ATerminalSeesHowFarTheWorkIsAndAPipeDoesNot) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    (void)Folder.Folder(u"out");
    const ProgramResult seen = RunAtTerminal(Call({"sort", "--to", "out", "a - b.mp3"}), {});
    EXPECT_NE(seen.Out.find("\r\x1b[K0 of 1  Copying file:"), Bytes::npos) << seen.Out;
    EXPECT_NE(seen.Out.find("\r\x1b[Kcopied a - b.mp3"), Bytes::npos);
    Environment["TERM"] = "dumb";
    const ProgramResult dumb =
        RunAtTerminal(Call({"sort", "--to", "out", "--if-exists", "replace", "a - b.mp3"}), {});
    EXPECT_EQ(dumb.Status, 0);
    EXPECT_EQ(dumb.Out.find('\x1b'), Bytes::npos);
}

}  // namespace
}  // namespace mdlPLM::test
