#include "app/cli/sample_collection.h"
#include "tests/program/cli_fixture.h"
#include "tests/support/tools.h"

namespace mdlPLM::test {
namespace {

class CliStream : public CliTest {};

TEST_F(CliStream, TheLinesOfThePanel) {
    (void)Folder.File(u"a.mp3", cli::SilentStream(2) + Trailer("x", 1));
    ExpectPrints({"stream", "a.mp3"},
                 "a.mp3\n"
                 "    MPEG 1.0\n"
                 "    layer 3\n"
                 "    128kbps\n"
                 "    44100Hz JStereo\n"
                 "    Copyrighted: No\n"
                 "    Original: Yes\n"
                 "    CRCs: No\n"
                 "    Emphasis: None\n"
                 "    Header:11111111111110111001000001100100\n"
                 "    ID3v1: 1.1\n"
                 "    Size: 31820b\n"
                 "    Length: 2.0 s\n");
}

TEST_F(CliStream, JsonHasNumbersBesideTheTexts) {
    (void)Folder.File(u"a.mp3", cli::SilentStream(2));
    (void)Folder.File(u"noise.mp3", Nuls(200));
    const ProgramResult result = Cli({"stream", "--json", "a.mp3", "noise.mp3", "gone.mp3"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, "pellmore-cli: gone.mp3: File not found\n");
    const std::vector<Json> objects = Objects(result);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0]["bitrate"], "128kbps");
    EXPECT_EQ(objects[0]["bitrate_kbps"], 128);
    EXPECT_EQ(objects[0]["frequency_hz"], 44100);
    EXPECT_EQ(objects[0]["size_bytes"], 31692);
    EXPECT_NEAR(objects[0]["length_seconds"].get<double>(), 1.97, 0.01);
    EXPECT_EQ(objects[0]["id3v1"], nullptr);
    EXPECT_EQ(objects[0]["outcome"], "read");
    EXPECT_EQ(objects[1]["version"], nullptr);
    EXPECT_EQ(objects[1]["length_seconds"], nullptr);
    EXPECT_EQ(objects[1]["size_bytes"], 200);
    EXPECT_EQ(objects[2]["outcome"], "failed");
    EXPECT_EQ(objects[2]["reason"], "File not found");
}

// The frames are made by hand: a decoder must find nothing wrong with them.
TEST_F(CliStream, TheSilentStreamIsARealOne) {
    const Text path = Folder.File(u"a.mp3", cli::SilentStream(2));
    const Bytes said = OutputOf({"ffmpeg", "-nostdin", "-v", "error", "-xerror", "-i",
                                 NativePath(path), "-f", "null", "-"});
    EXPECT_EQ(said, "");
}

}  // namespace
}  // namespace mdlPLM::test
