#include "tests/program/cli_fixture.h"

namespace mdlPLM::test {
namespace {

class CliList : public CliTest {
protected:
    void SetUp() override {
        (void)Folder.File(u"m/a.mp3", Noise(200));
        (void)Folder.File(u"m/b\xDCFF.mp3", Noise(200));
        (void)Folder.File(u"in.m3u", "#EXTM3U\nm/a.mp3\nm/gone.mp3\n");
        folder_ = NativePath(Folder.Path());
    }
    Bytes folder_;
};

TEST_F(CliList, PathsOneToALine) {
    ExpectPrints({"list", "m", "in.m3u"}, "m/a.mp3\nm/b\xFF.mp3\nm/a.mp3\nm/gone.mp3\n");
    ExpectPrints({"list", "--existing", "in.m3u"}, "m/a.mp3\n");
    EXPECT_EQ(Objects(Cli({"list", "--json", "in.m3u"})),
              (std::vector<Json>{{{"path", "m/a.mp3"}, {"exists", true}},
                                 {{"path", "m/gone.mp3"}, {"exists", false}}}));
}

TEST_F(CliList, ListFilesOnStandardOutputHoldWholePaths) {
    ExpectPrints({"list", "--as", "m3u", "m"},
                 folder_ + "m/a.mp3\r\n" + folder_ + "m/b\xFF.mp3\r\n");
    ExpectPrints({"list", "--as", "srt", "m/a.mp3"}, "a.mp3     (" + folder_ + "m/)\r\n");
}

TEST_F(CliList, AFileIsWrittenByItsNameOrAsAskedAndReadBack) {
    ExpectPrints({"list", "m", "-o", "out.srt"}, "written out.srt: 2 files\n");
    EXPECT_EQ(ReadFile(Folder / u"out.srt"),
              "a.mp3     (" + folder_ + "m/)\r\nb\xFF.mp3     (" + folder_ + "m/)\r\n");
    ExpectPrints({"list", "out.srt", "--as", "m3u", "--output", "out.txt"},
                 "written out.txt: 2 files\n");
    EXPECT_EQ(ReadFile(Folder / u"out.txt"), folder_ + "m/a.mp3\r\n" + folder_ + "m/b\xFF.mp3\r\n");
    EXPECT_EQ(Objects(Cli({"list", "m/a.mp3", "--json", "-o", "one.m3u"})),
              (std::vector<Json>{{{"path", "one.m3u"}, {"files", 1}, {"outcome", "written"}}}));
}

TEST_F(CliList, ANameWithALineBreakIsRefusedAndTheOthersAreWritten) {
    (void)Folder.File(u"n/a.mp3");
    (void)Folder.File(u"n/b\nc.mp3");
    (void)Folder.File(u"n/d.mp3");
    const Bytes refused =
        "pellmore-cli: n/b?c.mp3: a list file cannot hold a name with a line break\n";
    ExpectResult(Cli({"list", "n", "-o", "out.m3u"}), 1, "written out.m3u: 2 files\n", refused);
    EXPECT_EQ(ReadFile(Folder / u"out.m3u"), folder_ + "n/a.mp3\r\n" + folder_ + "n/d.mp3\r\n");
    ExpectResult(Cli({"list", "n", "--as", "srt"}), 1,
                 "a.mp3     (" + folder_ + "n/)\r\nd.mp3     (" + folder_ + "n/)\r\n", refused);
    WriteFile(Folder / u"old.m3u", "n/a.mp3\r\nn/b\nc.mp3\r\nn/d.mp3\r\n");
    const ProgramResult read = Cli({"list", "old.m3u"});
    EXPECT_EQ(read.Status, 1);
    EXPECT_EQ(read.Out, "n/a.mp3\nn/d.mp3\n");
    EXPECT_NE(read.Errors.find("\"n/b c.mp3\": a list file cannot hold"), Bytes::npos);
}

TEST_F(CliList, AnExistingListIsReplacedOnlyWhenAsked) {
    const Text path = Folder.File(u"old.m3u", "old");
    ExpectResult(Cli({"list", "m", "-o", "old.m3u"}), 1, "",
                 "pellmore-cli: old.m3u: File already exists\n");
    EXPECT_EQ(ReadFile(path), "old");
    const Bytes question =
        "The file \"old.m3u\" already exists!\r\n"
        "Do you want to replace it? [Yes/No/Cancel] ";
    EXPECT_EQ(RunAtTerminal(Call({"list", "m/a.mp3", "-o", "old.m3u"}), {{question, "n\n"}}).Status,
              1);
    EXPECT_EQ(ReadFile(path), "old");
    EXPECT_EQ(RunAtTerminal(Call({"list", "m/a.mp3", "-o", "old.m3u"}), {{question, "y\n"}}).Status,
              0);
    EXPECT_EQ(ReadFile(path), folder_ + "m/a.mp3\r\n");
    EXPECT_EQ(Cli({"list", "m", "-o", "old.m3u", "--if-exists", "replace"}).Status, 0);
    EXPECT_EQ(ReadFile(path), folder_ + "m/a.mp3\r\n" + folder_ + "m/b\xFF.mp3\r\n");
}

TEST_F(CliList, APlanWritesNothing) {
    const Text path = Folder.File(u"old.m3u", "old");
    ExpectPrints({"list", "m", "-n", "-o", "new.srt"}, "would write new.srt: 2 files\n");
    EXPECT_FALSE(IsThere(Folder / u"new.srt"));
    ExpectPrints({"list", "m", "-n", "-o", "old.m3u", "--if-exists", "ask"},
                 "The file \"old.m3u\" already exists!\nDo you want to replace it?\n");
    EXPECT_EQ(Objects(Cli({"list", "m", "-n", "--json", "-o", "old.m3u", "--if-exists", "ask"})),
              (std::vector<Json>{
                  {{"path", "old.m3u"},
                   {"outcome", "asks"},
                   {"question", "The file \"old.m3u\" already exists!\nDo you want to replace it?"},
                   {"dry_run", true}}}));
    ExpectPrints({"list", "m", "-n", "-o", "old.m3u", "--if-exists", "replace"},
                 "would write old.m3u: 2 files\n");
    EXPECT_EQ(ReadFile(path), "old");
}

TEST_F(CliList, AskingWithoutATerminalIsMisuse) {
    const Text path = Folder.File(u"old.m3u", "old");
    ExpectResult(Cli({"list", "m", "-o", "old.m3u", "--if-exists", "ask"}), 2, "",
                 "pellmore-cli: --if-exists ask: there is no terminal to ask at\n");
    EXPECT_EQ(ReadFile(path), "old");
}

TEST_F(CliList, WhatCannotBeWrittenIsNamed) {
    ExpectResult(Cli({"list", "m", "-o", "no/out.srt"}), 1, "",
                 "pellmore-cli: no/out.srt: Path not found\n");
    ExpectResult(Cli({"list", "m", "-o", "out.pls"}), 2, "",
                 "pellmore-cli: --output: a name in .srt or .m3u, or --as, tells what to write\n");
}

}  // namespace
}  // namespace mdlPLM::test
