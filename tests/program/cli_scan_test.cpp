#include "core/tags/file_tags.h"
#include "tests/program/cli_fixture.h"
#include "tests/support/collected_errors.h"

namespace mdlPLM::test {
namespace {

class CliScan : public CliTest {
protected:
    void SetUp() override {
        (void)Folder.File(u"album.txt",
                          "Artist: Abba\r\nAlbum: Gold\r\nYear: 1992\r\n"
                          "Release date: 21 Sept 1992\r\n\r\n"
                          "1 - waterloo\r\n2 - s_o_s\r\n3 - fernando\r\n");
        for (const TextView name : {u"m/x.mp3", u"m/y.mp3", u"m/z.mp3"})
            (void)Folder.File(name, Noise(300));
    }
    Arguments Scan(const Arguments& more) const {
        Arguments all = {"scan",    "album.txt", "--in-pattern", "%track - %title.mp3",
                         "--lines", "6-8"};
        all.insert(all.end(), more.begin(), more.end());
        return all;
    }
    const Bytes Boxes = "Artist: Abba\nAlbum: Gold\nYear: 1992\nRelease date: 21 Sept 1992\n";
};

TEST_F(CliScan, PreScanAndNames) {
    ExpectPrints(Scan({}), Boxes +
                               "01 - Abba - Waterloo.mp3\n02 - Abba - S O S.mp3\n"
                               "03 - Abba - Fernando.mp3\n");
    const std::vector<Json> objects = Objects(Cli(Scan({"--json", "--to-files", "m/x.mp3"})));
    EXPECT_EQ(
        objects,
        (std::vector<Json>{
            {{"artist", "Abba"},
             {"album", "Gold"},
             {"year", "1992"},
             {"release_date", "21 Sept 1992"},
             {"outcome", "scanned"}},
            {{"path", "m/x.mp3"},
             {"new_path", "m/01 - Abba - Waterloo.mp3"},
             {"outcome", "named"},
             {"reason", nullptr}},
            {{"path", nullptr}, {"new_path", "02 - Abba - S O S.mp3"}, {"outcome", "named"}},
            {{"path", nullptr}, {"new_path", "03 - Abba - Fernando.mp3"}, {"outcome", "named"}}}));
}

TEST_F(CliScan, LinesAndTheirEndsAreChosen) {
    const auto names = [&](const Arguments& more) {
        Arguments all = {"scan", "album.txt", "--in-pattern", "%track - %title.mp3"};
        all.insert(all.end(), more.begin(), more.end());
        return Cli(all).Out.substr(Boxes.size());
    };
    EXPECT_EQ(names({"--lines", "7"}), "02 - Abba - S O S.mp3\n");
    EXPECT_EQ(names({"--lines", "8-"}), "03 - Abba - Fernando.mp3\n");
    EXPECT_EQ(names({"--lines", "99"}), "");
    EXPECT_EQ(names({"--lines", "6-7", "--ignore-last", "2"}),
              "01 - Abba - Waterl.mp3\n02 - Abba - S O.mp3\n");
    EXPECT_EQ(names({"--lines", "6", "--ignore-first", "5"}), "waterloo - Abba - .mp3\n");
}

TEST_F(CliScan, BoxesAreGivenAndUsedForAll) {
    EXPECT_EQ(Cli(Scan({"--artist", "Björn", "--lines", "6"})).Out,
              "Artist: Björn\nAlbum: Gold\nYear: 1992\nRelease date: 21 Sept 1992\n"
              "01 - Björn - Waterloo.mp3\n");
    EXPECT_EQ(Cli({"scan", "album.txt", "--in-pattern", "%track - %artist.mp3", "--lines", "6",
                   "--for-all", "artist", "--keep-texts"})
                  .Out,
              Boxes + "01 - Abba - .mp3\n");
}

TEST_F(CliScan, ATextWithoutCrLfIsOneLineUnlessItsOwnEndsAreTaken) {
    (void)Folder.File(u"lf.txt", "1 - a\n2 - b\n");
    const ProgramResult one = Cli({"scan", "lf.txt", "--in-pattern", "%track - %title.mp3"});
    EXPECT_EQ(one.Status, 0);
    EXPECT_NE(one.Errors.find("--any-line-ends"), Bytes::npos);
    const ProgramResult two =
        Cli({"scan", "lf.txt", "--in-pattern", "%track - %title.mp3", "--any-line-ends"});
    ExpectResult(two, 0,
                 "Artist: \nAlbum: \nYear: \nRelease date: \n01 -  - A.mp3\n02 -  - B.mp3\n", "");
}

TEST_F(CliScan, AppliedNamesRenameAndTag) {
    ExpectPrints(Scan({"--for-all", "artist", "--for-all", "album", "--for-all", "release-date",
                       "--genre", "Pop", "--apply", "--to-files", "m"}),
                 Boxes +
                     "renamed m/x.mp3 -> m/01 - Abba - Waterloo.mp3\n"
                     "renamed m/y.mp3 -> m/02 - Abba - S O S.mp3\n"
                     "renamed m/z.mp3 -> m/03 - Abba - Fernando.mp3\n3 renamed\n");
    EXPECT_EQ(ListTree(Folder / u"m"), (Lines{"01 - Abba - Waterloo.mp3", "02 - Abba - S O S.mp3",
                                              "03 - Abba - Fernando.mp3"}));
    CollectedErrors errors;
    const FileTags tags =
        ReadFileTags(Folder / u"m/02 - Abba - S O S.mp3", ID3v2Parts::Everything, errors);
    EXPECT_EQ(FieldText(tags.V1.Title), "S O S");
    EXPECT_EQ(FieldText(tags.V1.Album), "Gold");
    EXPECT_EQ(tags.V1.Track, 2);
    EXPECT_EQ(tags.V1.Genre, 13);
    EXPECT_EQ(tags.V2.Artist, "Abba");
    EXPECT_EQ(tags.V2.Comments, "21 Sept 1992");
}

TEST_F(CliScan, OneTagOrNoneIsWrittenWhenChosen) {
    CollectedErrors errors;
    EXPECT_EQ(Cli(Scan({"--apply", "--v1", "--to-files", "m"})).Status, 0);
    const Text path = Folder / u"m/01 - Abba - Waterloo.mp3";
    FileTags tags = ReadFileTags(path, ID3v2Parts::Everything, errors);
    EXPECT_TRUE(tags.V1.Present());
    EXPECT_FALSE(tags.V2.Present());
    WriteFile(path, Noise(300));
    EXPECT_EQ(Cli(Scan({"--apply", "--no-tags", "--to-files", "m"})).Status, 0);
    EXPECT_EQ(ReadFile(path), Noise(300));
}

TEST_F(CliScan, APlanTouchesNothing) {
    const auto before = ReadTree(Folder.Path());
    ExpectPrints(Scan({"--apply", "-n", "--to-files", "m"}),
                 Boxes +
                     "would rename m/x.mp3 -> m/01 - Abba - Waterloo.mp3\n"
                     "would rename m/y.mp3 -> m/02 - Abba - S O S.mp3\n"
                     "would rename m/z.mp3 -> m/03 - Abba - Fernando.mp3\nwould be: 3 renamed\n");
    EXPECT_EQ(ReadTree(Folder.Path()), before);
}

TEST_F(CliScan, DifferentCountsAreAskedAbout) {
    const Arguments two = Scan({"--apply", "--no-tags", "--to-files", "m/x.mp3", "m/y.mp3"});
    const Bytes question =
        "There are more new filnames then old.\nDo you want to continue any way?";
    const ProgramResult nobody = Cli(two);
    EXPECT_EQ(nobody.Status, 2);
    EXPECT_EQ(nobody.Errors, "pellmore-cli: " + question +
                                 "\n(There is no terminal to ask at.)\n"
                                 "pellmore-cli: with --yes the run goes on\n");
    EXPECT_EQ(
        RunAtTerminal(Call(two), {{"Do you want to continue any way? [Yes/No] ", "n\n"}}).Status,
        1);
    EXPECT_EQ(ListTree(Folder / u"m"), (Lines{"x.mp3", "y.mp3", "z.mp3"}));
    Arguments yes = two;
    yes.insert(yes.begin() + 1, "--yes");
    EXPECT_EQ(Cli(yes).Status, 0);
    EXPECT_EQ(ListTree(Folder / u"m"),
              (Lines{"01 - Abba - Waterloo.mp3", "02 - Abba - S O S.mp3", "z.mp3"}));
}

TEST_F(CliScan, ATargetThatExistsIsKept) {
    (void)Folder.File(u"m/02 - Abba - S O S.mp3", "there");
    const ProgramResult result =
        Cli(Scan({"--apply", "--no-tags", "--to-files", "m/x.mp3", "m/y.mp3", "gone.mp3"}));
    ExpectResult(result, 1,
                 Boxes +
                     "renamed m/x.mp3 -> m/01 - Abba - Waterloo.mp3\n"
                     "kept m/y.mp3 -> m/02 - Abba - S O S.mp3: There is a file of its new name\n"
                     "1 renamed, 1 kept, 1 missing\n",
                 "pellmore-cli: gone.mp3: File not found\n");
    EXPECT_EQ(ReadFile(Folder / u"m/02 - Abba - S O S.mp3"), "there");
}

TEST_F(CliScan, AFolderThatAListNamesIsNotRenamed) {
    (void)Folder.File(u"album/inside.mp3", "sound");
    (void)Folder.File(u"list.m3u", "album\nm/y.mp3\nm/z.mp3\n");
    const ProgramResult result = Cli(Scan({"--apply", "--no-tags", "--to-files", "list.m3u"}));
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Errors.find("album: Error: 75 Path/File access error"), Bytes::npos);
    EXPECT_EQ(ReadFile(Folder / u"album/inside.mp3"), "sound");
    EXPECT_TRUE(IsThere(Folder / u"m/02 - Abba - S O S.mp3"));
}

TEST_F(CliScan, AskingWithoutATerminalIsMisuse) {
    const ProgramResult result = Cli(Scan({"--apply", "--if-exists", "ask", "--to-files", "m"}));
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Errors, "pellmore-cli: --if-exists ask: there is no terminal to ask at\n");
    EXPECT_EQ(ListTree(Folder / u"m"), (Lines{"x.mp3", "y.mp3", "z.mp3"}));
}

TEST_F(CliScan, WrongOptionsAreMisuse) {
    const auto misuse = [&](const Arguments& more, const Bytes& message) {
        Arguments all = {"scan", "album.txt"};
        all.insert(all.end(), more.begin(), more.end());
        ExpectResult(Cli(all), 2, "", "pellmore-cli: " + message + "\n");
    };
    for (const char* lines : {"0-3", "5-4", "x", "1-x", "-3", ""})
        misuse({"--lines", lines}, "--lines: not FIRST-LAST");
    misuse({"--ignore-first", "0"}, "\"Ignore first\" needs a number of 1 or more.");
    misuse({"--ignore-last", "x"}, "\"Ignore last\" needs a number of 0 or more.");
    misuse({"--genre", "Pops"}, "--genre: not one of the 148 genres");
    misuse({"--apply"}, "--apply: --to-files names no files");
    ExpectResult(Cli({"scan", "gone.txt"}), 1, "", "pellmore-cli: gone.txt: File not found\n");
}

}  // namespace
}  // namespace mdlPLM::test
