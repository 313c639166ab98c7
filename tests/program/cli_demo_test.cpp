#include "app/cli/sample_collection.h"
#include "tests/program/cli_fixture.h"

namespace mdlPLM::test {
namespace {

class CliDemo : public CliTest {};

TEST_F(CliDemo, ShowsNamesSortsACopyAndPrintsTheTree) {
    const ProgramResult result = Cli({"demo"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, "");
    const Text made = Home / u"pellmore-demo-1/";
    for (const Bytes& part :
         {NativePath(made) + "collection\n",
          Bytes("collection/the_paper_boats_-_harbour%20lights.MP3 -> "
                "The Paper Boats - Harbour Lights.mp3\n"),
          Bytes("copied collection/TRACK01.MP3 -> "
                "sorted/Pop/A/Aurora Lane/Aurora Lane - 01 - Night Train.mp3\n"),
          Bytes("\nPop/\n    A/\n        Aurora Lane/\n"
                "            Aurora Lane - 01 - Night Train.mp3\n")})
        EXPECT_NE(result.Out.find(part), Bytes::npos) << part;
    EXPECT_EQ(ListTree(made + u"collection").size(), cli::SampleFiles().size() + 3);
    const Lines sorted = ListTree(made + u"sorted");
    EXPECT_NE(std::find(sorted.begin(), sorted.end(),
                        "Folk/I/Ivar Strand/Ivar Strand - Polska Från Öland.mp3"),
              sorted.end());
}

TEST_F(CliDemo, TheCommandsItShowsDoWhatItShows) {
    const Bytes shown = Cli({"demo"}).Out;
    const Bytes there = "cd '" + NativePath(Home / u"pellmore-demo-1") + "' && ";
    ASSERT_EQ(Shell(there + "rm -r sorted").Status, 0);
    int commands = 0;
    for (std::size_t at = shown.find("\n$ "); at != Bytes::npos; at = shown.find("\n$ ", at + 1)) {
        const std::size_t end = shown.find('\n', at + 1);
        const ProgramResult result = Shell(there + shown.substr(at + 3, end - at - 3));
        ExpectResult(result, 0, shown.substr(end + 1, result.Out.size()), "");
        ++commands;
    }
    EXPECT_EQ(commands, 2);
}

TEST_F(CliDemo, EveryOneHasAFolderOfItsOwnAndTheUsersSettingsDoNotMatter) {
    (void)Home.File(u"config/PLM/PLM.ini", "[Settings]\nChange=3\nbID3=False\n");
    const ProgramResult first = Cli({"demo"});
    const ProgramResult second = Cli({"demo"});
    EXPECT_EQ(second.Status, 0);
    EXPECT_TRUE(IsThere(Home / u"pellmore-demo-2/sorted/Pop"));
    EXPECT_EQ(Replace(FromUtf8(second.Out), u"demo-2", u"demo-1"), FromUtf8(first.Out));
}

TEST_F(CliDemo, WithoutARoomForItThatIsSaid) {
    Environment["TMPDIR"] = NativePath(Home / u"gone");
    const ProgramResult result = Cli({"demo"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "");
    EXPECT_NE(result.Errors.find("pellmore-demo-: Path not found"), Bytes::npos);
}

}  // namespace
}  // namespace mdlPLM::test
