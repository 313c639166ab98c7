// The real program in batch mode: real files, tags by other programs, no display.
#include <gtest/gtest.h>

#include "tests/program/installed_program.h"
#include "tests/support/real_mp3.h"
#include "tests/support/tools.h"

using namespace mdlPLM;
using namespace mdlPLM::test;

namespace {

constexpr const char* AskedAtTerminal = "Enter new file extension (excluding \".\"): ";

struct BatchMode : testing::Test {
    InstalledProgram Program;
    TempFolder Music;

    /// A file by a real encoder, with the tags that other programs write into it.
    Text Song(TextView name, const std::vector<Bytes>& tagger = {}) {
        Text path = Music.File(name, EncodedMp3());
        if (tagger.empty()) return path;
        std::vector<Bytes> command = tagger;
        command.push_back(NativePath(path));
        OutputOf(command);
        return path;
    }
    ProgramResult Rename(const Bytes& pattern, const std::vector<Text>& files) {
        return Program.Run({"+rename=" + pattern}, files);
    }
    std::vector<Bytes> Names() const { return ListTree(Music.Path()); }
};

void ExpectSilent(const ProgramResult& result, int status) {
    EXPECT_EQ(result.Status, status);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Errors, "");
}

}  // namespace

TEST_F(BatchMode, RenamesFilesByTheirTags) {
    const Text v2 = Song(u"track one (live).mp3",
                         {"id3v2", "--id3v2-only", "-a", "Abba", "-t", "waterloo", "-T", "1"});
    const Text v1 = Song(u"TRACK_02.MP3",
                         {"id3v2", "--id3v1-only", "-a", "Roxette", "-t", "The Look", "-T", "2"});
    const Text both = Song(u"x y  z.mp3", {"eyeD3", "-Q", "--encoding", "latin1", "-a",
                                           "Bj\xC3\xB6rk", "-t", "J\xC3\xB3ga", "-n", "3"});
    const Bytes contents = ReadFile(both);
    ExpectSilent(Rename("\"%track - %artist - %title.mp3\"", {v2, v1, both}), 0);
    EXPECT_EQ(Names(),
              (std::vector<Bytes>{"01 - Abba - Waterloo.mp3", "02 - Roxette - The Look.mp3",
                                  "03 - Bj\xC3\xB6rk - J\xC3\xB3ga.mp3"}));
    EXPECT_EQ(ReadFile(Music / u"03 - Bj\u00F6rk - J\u00F3ga.mp3"), contents);
}

TEST_F(BatchMode, RenamesFilesWithoutTagsByTheirNames) {
    const Text song = Song(u"abba_-_dancing%20queen.MP3");
    ExpectSilent(Rename("%title (%artist).mp3", {song}), 0);
    EXPECT_EQ(Names(), std::vector<Bytes>{"Dancing Queen (Abba).mp3"});
}

TEST_F(BatchMode, AFileWithoutANewNameIsNamedWithTheReason) {
    const Text closed = Music.Unopenable(u"abba - one.mp3");
    const Text dots = Song(u"abba - two.mp3", {"id3v2", "--id3v2-only", "-t", "???"});
    const ProgramResult result = Rename("%title.mp3", {closed, dots});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Errors, "pellmore: " + NativePath(closed) +
                                 ": Device unavailable\npellmore: " + NativePath(dots) +
                                 ": no name is left (\".mp3\")\n");
    EXPECT_EQ(Names(), (std::vector<Bytes>{"abba - one.mp3", "abba - two.mp3"}));
}

TEST_F(BatchMode, UsesTheStoredSettings) {
    WriteFile(Program.SettingsFile(),
              "[Settings]\nChange=3\nbLowExtension=False\nbExtension=False\n");
    const Text song = Song(u"abba - waterloo.mp3");
    ExpectSilent(Rename("%title - %artist.mp3", {song}), 0);
    EXPECT_EQ(Names(), std::vector<Bytes>{"WATERLOO - ABBA.MP3"});
    EXPECT_EQ(ReadFile(Program.SettingsFile()),
              "[Settings]\nChange=3\nbLowExtension=False\nbExtension=False\n");
}

TEST_F(BatchMode, CreatesTheReplacementListBesideTheProgramAndNothingElse) {
    ExpectSilent(Rename("%artist - %title.mp3", {Song(u"abba - waterloo.mp3")}), 0);
    EXPECT_EQ(Program.Files(), (std::vector<Bytes>{"bin/", "bin/pellmore", "bin/replaces.txt"}));
}

TEST_F(BatchMode, GivesAnotherExtension) {
    const Text first = Song(u"a b.c.mp3");
    const Text second = Song(u"sub folder.d/no dot");
    ExpectSilent(Program.Run({"+ext=\"ogg\""}, {first, second}), 0);
    EXPECT_EQ(Names(),
              (std::vector<Bytes>{"a b.c.ogg", "sub folder.d/", "sub folder.d/no dotogg"}));
}

TEST_F(BatchMode, AsksForTheExtensionAtTheTerminal) {
    const ProgramResult result = Program.Run({"+ext=\"\""}, {Song(u"a b.mp3")}, "mp2\n");
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Out, AskedAtTerminal);
    EXPECT_EQ(result.Errors, "");
    EXPECT_EQ(Names(), std::vector<Bytes>{"a b.mp2"});
}

TEST_F(BatchMode, WithoutAnAnswerNothingIsRenamed) {
    const ProgramResult result = Program.Run({"+ext="}, {Song(u"a b.mp3")});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, Bytes(AskedAtTerminal) + "\n");
    EXPECT_EQ(result.Errors, "pellmore: there is no extension to give.\n");
    EXPECT_EQ(Names(), std::vector<Bytes>{"a b.mp3"});
}

TEST_F(BatchMode, AFileThatCannotBeRenamedIsSkippedSilently) {
    const Text good = Song(u"a.mp3");
    const Text taken = Song(u"b.mp3");
    WriteFile(Music / u"b.ogg", "stays");
    ExpectSilent(Program.Run({"+ext=ogg"}, {Music / u"missing.mp3", taken, good}), 1);
    EXPECT_EQ(Names(), (std::vector<Bytes>{"a.ogg", "b.mp3", "b.ogg"}));
    EXPECT_EQ(ReadFile(Music / u"b.ogg"), "stays");
    EXPECT_EQ(ReadFile(taken), EncodedMp3());
}

TEST_F(BatchMode, AFileThatHasItsNameAlreadyIsDone) {
    ExpectSilent(Program.Run({"+ext=mp3"}, {Song(u"a.mp3")}), 0);
    EXPECT_EQ(Names(), std::vector<Bytes>{"a.mp3"});
}

TEST_F(BatchMode, WithoutFilesItEndsAtOnce) {
    const ProgramResult result = Program.Run({"+rename=\"%artist - %title.mp3\""}, {});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Errors, "pellmore: there is no file to rename.\n");
}

TEST_F(BatchMode, NamesThatAreNoTextCanBeRenamed) {
    const Text song = Song(PathFromNative("bl\xE5tt.mp3"));
    ExpectSilent(Program.Run({"+ext=ogg"}, {song}), 0);
    EXPECT_EQ(Names(), std::vector<Bytes>{"bl\xE5tt.ogg"});
    ExpectSilent(Rename("renamed.mp3", {Music / PathFromNative("bl\xE5tt.ogg")}), 0);
}

TEST_F(BatchMode, AnInputPatternWithFoldersFindsThemFromInsideThem) {
    WriteFile(Program.SettingsFile(),
              "[Settings]\nInPattern=%artist\\%album\\%track - %title.mp3\n");
    Song(u"abba/gold/07 - waterloo.mp3");
    Program.StartIn(Music / u"abba/gold");
    ExpectSilent(Rename("%artist - %album - %title.mp3", {u"07 - waterloo.mp3"}), 0);
    EXPECT_EQ(Names(),
              (std::vector<Bytes>{"abba/", "abba/gold/", "abba/gold/Abba - Gold - Waterloo.mp3"}));
}

TEST_F(BatchMode, RemovesWhatAKilledRunHasLeftBehindAndSaysSo) {
    const Text left = Music.File(u"plm-0123456789abcdef.tmp", "half a song");
    const Text song = Song(u"a b.mp3");
    Program.Environment["LD_PRELOAD"] = FailingCallsFile();
    Program.Environment["ASAN_OPTIONS"] = "verify_asan_link_order=0";
    Program.Environment["PLM_FAULTS"] = "under=/nowhere/\nwhat=none\nlater=7200";
    const ProgramResult result = Program.Run({"+ext=ogg"}, {song});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, "pellmore: left behind by a run that was ended, and removed: " +
                                 NativePath(left) + "\n");
    EXPECT_EQ(Names(), std::vector<Bytes>{"a b.ogg"});
}

TEST_F(BatchMode, WorksInAFolderGivenWithoutItsPath) {
    (void)Song(u"a b.mp3");
    Program.StartIn(Music.Path());
    ExpectSilent(Program.Run({"+ext=ogg"}, {u"a b.mp3"}), 0);
    EXPECT_EQ(Names(), std::vector<Bytes>{"a b.ogg"});
}
