// What killed runs have left behind is removed by the next run in the folder, which says so.
#include "tests/program/cli_fixture.h"

namespace mdlPLM::test {
namespace {

constexpr const char16_t* Left = u"plm-0123456789abcdef.tmp";

class CliLeftOvers : public CliTest {
protected:
    CliLeftOvers() {
        (void)Folder.File(u"in/abba - one.mp3", "x" + Noise(300));
        (void)Folder.File(u"in/" + Text(Left), "half a song");
        (void)Folder.File(u"out/" + Text(Left), "half a song");
    }
    /// Two hours later.
    [[nodiscard]] ProgramResult CliLater(const Arguments& arguments) const {
        ProgramCall call = Call(arguments);
        call.Environment["LD_PRELOAD"] = FailingCallsFile();
        call.Environment["ASAN_OPTIONS"] = "verify_asan_link_order=0";
        call.Environment["PLM_FAULTS"] = "under=/nowhere/\nwhat=none\nlater=7200";
        return RunToEnd(call);
    }
    [[nodiscard]] Bytes Told(TextView name) const {
        return "pellmore-cli: " + NativePath(Folder / name) +
               ": left behind by a run that was ended; removed\n";
    }
    [[nodiscard]] bool IsLeftIn(TextView folder) const {
        return IsThere(Folder / (Text(folder) + u"/" + Left));
    }
};

TEST_F(CliLeftOvers, ASortRemovesThemFromSourceAndTarget) {
    const ProgramResult result =
        CliLater({"sort", "--method", "copy", "--to", "out", "in/abba - one.mp3"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, Told(u"in/" + Text(Left)) + Told(u"out/" + Text(Left)));
    EXPECT_FALSE(IsLeftIn(u"in") || IsLeftIn(u"out"));
}

TEST_F(CliLeftOvers, TagSavesRemoveThem) {
    const ProgramResult result = CliLater({"tags", "--set", "title=One", "in/abba - one.mp3"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, Told(u"in/" + Text(Left)));
    EXPECT_FALSE(IsLeftIn(u"in"));
    EXPECT_TRUE(IsLeftIn(u"out"));
}

TEST_F(CliLeftOvers, NamesFromTextRemoveThem) {
    (void)Folder.File(u"album.txt", "1. Waterloo\r\n");
    const ProgramResult result =
        CliLater({"scan", "album.txt", "--in-pattern", "%track. %title.mp3", "--out-pattern",
                  "%title.mp3", "--apply", "--to-files", "in/abba - one.mp3"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, Told(u"in/" + Text(Left)));
    EXPECT_FALSE(IsLeftIn(u"in"));
}

TEST_F(CliLeftOvers, AListThatIsSavedRemovesThem) {
    const ProgramResult result = CliLater({"list", "--output", "out/all.srt", "in/abba - one.mp3"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_FALSE(IsLeftIn(u"out"));
    EXPECT_TRUE(IsLeftIn(u"in"));
}

TEST_F(CliLeftOvers, SettingsThatAreStoredRemoveThem) {
    const Text left = Home.File(u"config/PLM/" + Text(Left), "half the settings");
    EXPECT_EQ(CliLater({"settings", "Move=1"}).Status, 0);
    EXPECT_FALSE(IsThere(left));
}

TEST_F(CliLeftOvers, APlanRemovesNothing) {
    EXPECT_EQ(
        CliLater({"sort", "--dry-run", "--method", "copy", "--to", "out", "in/abba - one.mp3"})
            .Errors,
        "");
    EXPECT_EQ(CliLater({"tags", "--dry-run", "--set", "title=One", "in/abba - one.mp3"}).Errors,
              "");
    EXPECT_TRUE(IsLeftIn(u"in") && IsLeftIn(u"out"));
}

TEST_F(CliLeftOvers, WithinTheHourTheyStay) {
    const ProgramResult result =
        Cli({"sort", "--method", "copy", "--to", "out", "in/abba - one.mp3"});
    EXPECT_EQ(result.Errors, "");
    EXPECT_TRUE(IsLeftIn(u"in") && IsLeftIn(u"out"));
}

}  // namespace
}  // namespace mdlPLM::test
