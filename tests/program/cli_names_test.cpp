#include "tests/program/cli_fixture.h"

namespace mdlPLM::test {
namespace {

class CliNames : public CliTest {};

Bytes Tagged(const Bytes& frames) { return WholeTag(frames) + Noise(200); }

TEST_F(CliNames, OldAndNewNameOfEachFileOfAFolder) {
    (void)Folder.File(u"in/abba_-_waterloo.MP3", Noise(200));
    (void)Folder.File(u"in/b.mp3", Tagged(TextFrame("TPE1", "Abba") + TextFrame("TIT2", "SOS") +
                                          TextFrame("TRCK", "2")));
    (void)Folder.File(u"in/sub/c - d.mp3", Noise(200));
    (void)Folder.File(u"in/cover.jpg");
    ExpectPrints({"names", "in"},
                 "in/abba_-_waterloo.MP3 -> Abba - Waterloo.mp3\n"
                 "in/b.mp3 -> 02 - Abba - Sos.mp3\n"
                 "in/sub/c - d.mp3 -> C - D.mp3\n");
}

TEST_F(CliNames, FieldsTellTheirSources) {
    (void)Folder.File(u"x - song.mp3", Tagged(TextFrame("TPE1", "Two")) + Trailer("One", 7));
    const ProgramResult result = Cli({"names", "--json", "x - song.mp3"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Out,
              "{\"path\":\"x - song.mp3\",\"new_path\":\"07 - Two - One.mp3\",\"fields\":{"
              "\"artist\":{\"value\":\"Two\",\"source\":\"v2\"},"
              "\"title\":{\"value\":\"One\",\"source\":\"v1\"},"
              "\"album\":{\"value\":\"An album\",\"source\":\"v1\"},"
              "\"track\":{\"value\":\"07\",\"source\":\"v1\"},"
              "\"year\":{\"value\":\"1999\",\"source\":\"v1\"},"
              "\"genre\":{\"value\":\"Rock\",\"source\":\"v1\"},"
              "\"comment\":{\"value\":\"A comment\",\"source\":\"v1\"}},"
              "\"outcome\":\"named\",\"reason\":null}\n");
    const std::vector<Json> pattern =
        Objects(Cli({"names", "--json", "--setting", "bID3=False", "x - song.mp3"}));
    ASSERT_EQ(pattern.size(), 1U);
    EXPECT_EQ(pattern[0]["fields"]["artist"], (Json{{"value", "x"}, {"source", "pattern"}}));
    EXPECT_EQ(pattern[0]["fields"]["album"], (Json{{"value", ""}, {"source", nullptr}}));
}

TEST_F(CliNames, AFileThatIsMissingIsNamedAndTheOthersAreDone) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    ExpectResult(Cli({"names", "gone.mp3", "a - b.mp3"}), 1, "a - b.mp3 -> A - B.mp3\n",
                 "pellmore-cli: gone.mp3: File not found\n");
    const std::vector<Json> objects = Objects(Cli({"names", "--json", "gone.mp3"}));
    EXPECT_EQ(objects, (std::vector<Json>{{{"path", "gone.mp3"},
                                           {"new_path", nullptr},
                                           {"outcome", "failed"},
                                           {"reason", "File not found"}}}));
}

TEST_F(CliNames, AFileWithoutANewNameIsNamedWithTheReason) {
    (void)Folder.File(u"x.mp3", Tagged(TextFrame("TIT2", "???")));
    (void)Folder.Unopenable(u"y - z.mp3");
    ExpectResult(Cli({"names", "--setting", "OutPattern=%title.mp3", "x.mp3", "y - z.mp3"}), 1, "",
                 "pellmore-cli: x.mp3: no name is left (\".mp3\")\n"
                 "pellmore-cli: y - z.mp3: Device unavailable\n");
    const std::vector<Json> objects = Objects(Cli({"names", "--json", "y - z.mp3"}));
    EXPECT_EQ(objects, (std::vector<Json>{{{"path", "y - z.mp3"},
                                           {"new_path", nullptr},
                                           {"outcome", "failed"},
                                           {"reason", "Device unavailable"}}}));
    ExpectPrints({"names", "--setting", "bID3=False", "y - z.mp3"}, "y - z.mp3 -> Y - Z.mp3\n");
}

TEST_F(CliNames, AFolderThatIsTooDeepIsNamed) {
    (void)Folder.TooDeep(u"in");
    const ProgramResult result = Cli({"names", "in"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "in/a.mp3 -> A.mp3\n");
    EXPECT_NE(result.Errors.find("d/: the folder is too deep"), Bytes::npos);
}

TEST_F(CliNames, WhatSeparatesNameAndFolderInAListIsPartOfAName) {
    (void)Folder.File(u"in (x)/abba - song     (live).mp3", Noise(200));
    ExpectPrints({"names", "in (x)"},
                 "in (x)/abba - song     (live).mp3 -> Abba - Song (Live).mp3\n");
}

TEST_F(CliNames, WithoutFilesItIsUsedWrongly) {
    ExpectResult(Cli({"names"}), 2, "", "pellmore-cli: no files were given\n");
    ExpectPrints({"names", "."}, "");
}

TEST_F(CliNames, NamesInNoEncodingAreTheirBytesInTextAndBase64InJson) {
    const Bytes name = "a\xFF - \xE4.mp3";
    (void)Folder.File(PathFromNative(name), Noise(200));
    ExpectPrints({"names", "."}, "./" + name + " -> A\xFF - \xE4.mp3\n");
    const std::vector<Json> objects = Objects(Cli({"names", "--json", name}));
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0]["path"], "a\uFFFD - \uFFFD.mp3");
    EXPECT_EQ(objects[0]["path_bytes"], "Yf8gLSDkLm1wMw==");
    EXPECT_EQ(objects[0]["new_path_bytes"], "Qf8gLSDkLm1wMw==");
}

TEST_F(CliNames, PathsComeFromStandardInputLineByLineOrEndedByNul) {
    for (const TextView name : {u"a - b.mp3", u"c - d.mp3", u"e\nf - g.mp3"})
        (void)Folder.File(name, Noise(200));
    ExpectResult(Cli({"names", "-"}, "a - b.mp3\n\nc - d.mp3"), 0,
                 "a - b.mp3 -> A - B.mp3\nc - d.mp3 -> C - D.mp3\n", "");
    const Bytes nul(1, '\0');
    ExpectResult(Cli({"names", "--null"}, "e\nf - g.mp3" + nul + "a - b.mp3" + nul), 0,
                 "e\nf - g.mp3 -> E f - G.mp3\na - b.mp3 -> A - B.mp3\n", "");
    ExpectResult(Cli({"names", "-0", "-"}, "a - b.mp3"), 0, "a - b.mp3 -> A - B.mp3\n", "");
    ExpectResult(Cli({"names", "c - d.mp3", "-"}, "a - b.mp3\n"), 0,
                 "c - d.mp3 -> C - D.mp3\na - b.mp3 -> A - B.mp3\n", "");
}

TEST_F(CliNames, ListFilesAreRead) {
    (void)Folder.File(u"m/a - b.mp3", Noise(200));
    (void)Folder.File(u"m/c - d.mp3", Noise(200));
    (void)Folder.File(u"m/one.m3u", "#EXTM3U\r\na - b.mp3\r\n");
    (void)Folder.File(u"m/two.pls", "[playlist]\nFile1=c - d.mp3\nTitle1=x\n");
    (void)Folder.File(u"three.srt", "a - b.mp3     (" + NativePath(Folder / u"m/") + ")\r\n");
    ExpectPrints({"names", "m/one.m3u", "m/two.pls", "three.srt"},
                 "m/a - b.mp3 -> A - B.mp3\nm/c - d.mp3 -> C - D.mp3\nm/a - b.mp3 -> A - B.mp3\n");
    ExpectResult(Cli({"names", "no.m3u"}), 1, "", "pellmore-cli: no.m3u: File not found\n");
}

TEST_F(CliNames, AnAbsolutePathStaysOne) {
    const Text path = Folder.File(u"a - b.mp3", Noise(200));
    ExpectPrints({"names", NativePath(path)}, NativePath(path) + " -> A - B.mp3\n");
}

TEST_F(CliNames, APatternWithFoldersFindsThemForARelativePathToo) {
    const Text path = Folder.File(u"Abba/Gold/1 - sos.mp3", Noise(200));
    const ProgramResult result =
        RunToEnd({PathFromNative(CommandLineFile()),
                  {"names", "--in-pattern", "%artist/%album/%track - %title.mp3", "--out-pattern",
                   "%album - %title.mp3", "1 - sos.mp3"},
                  Environment,
                  {},
                  FolderOfPath(path)});
    ExpectResult(result, 0, "1 - sos.mp3 -> Gold - Sos.mp3\n", "");
}

TEST_F(CliNames, SettingsPatternsAndListsComeFromTheCommandLine) {
    (void)Folder.File(u"a_b - c.mp3", Noise(200));
    (void)Folder.File(u"r.txt", "c\r\nsea\r\n");
    ExpectPrints({"names", "--setting", "bScoreToSpace=False", "--setting", "Change=3",
                  "--out-pattern", "%title by %artist.mp3", "a_b - c.mp3"},
                 "a_b - c.mp3 -> C BY A_B.mp3\n");
    ExpectPrints({"names", "--setting", "Change=0", "--replaces", "r.txt", "a_b - c.mp3"},
                 "a_b - c.mp3 -> a b - sea.mp3\n");
    ExpectPrints({"names", "--setting", "Change=0", "--setting", "bReplace=False", "--replaces",
                  "r.txt", "a_b - c.mp3"},
                 "a_b - c.mp3 -> a b - c.mp3\n");
}

TEST_F(CliNames, WrongSettingsAreMisuse) {
    for (const char* setting : {"Chnge=1", "Change=7", "bID3=maybe", "Change"})
        ExpectResult(Cli({"names", "--setting", setting, "x"}), 2, "",
                     Bytes("pellmore-cli: --setting: \"") + setting +
                         "\" is no setting with a value that it can have\n");
    ExpectResult(Cli({"names", "--replaces", "no.txt", "x"}), 2, "",
                 "pellmore-cli: no.txt: File not found\n");
}

TEST_F(CliNames, TheUsersOwnSettingsHoldUnlessTheyAreLeftOut) {
    (void)Home.File(u"config/PLM/PLM.ini", "[Settings]\nChange=3\nOutPattern=%title.mp3\n");
    (void)Folder.File(u"a - b.mp3", Noise(200));
    ExpectPrints({"names", "a - b.mp3"}, "a - b.mp3 -> B.mp3\n");
    ExpectPrints({"names", "--no-user-settings", "a - b.mp3"}, "a - b.mp3 -> A - B.mp3\n");
    ExpectPrints({"names", "--setting", "Change=4", "a - b.mp3"}, "a - b.mp3 -> b.mp3\n");
}

TEST_F(CliNames, OutputThatNobodyTakesIsAFailure) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    ExpectResult(Shell("pellmore-cli names . >/dev/full"), 1, "",
                 "pellmore-cli: standard output: Disk full\n");
    EXPECT_EQ(Shell("pellmore-cli --help >/dev/full").Status, 1);
    EXPECT_EQ(Shell("{ pellmore-cli names .; echo $? >status; } | :; cat status").Errors, "");
}

TEST_F(CliNames, NothingIsWrittenIntoTheHome) {
    (void)Folder.File(u"a - b.mp3", Noise(200));
    (void)Cli({"names", "."});
    EXPECT_EQ(ListTree(Home.Path()), Lines{});
}

TEST_F(CliNames, HelpAndVersion) {
    const ProgramResult help = Cli({"--help"});
    EXPECT_EQ(help.Status, 0);
    EXPECT_NE(help.Out.find("Usage: pellmore-cli"), Bytes::npos);
    EXPECT_EQ(help.Errors, "");
    EXPECT_EQ(Cli({"--version"}).Out.find("pellmore-cli "), 0U);
    const ProgramResult misuse = Cli({"name", "x"});
    EXPECT_EQ(misuse.Status, 2);
    EXPECT_EQ(misuse.Out, "");
}

}  // namespace
}  // namespace mdlPLM::test
