#include "app/dialogs/player.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/dialogs/releasing_disk.h"

namespace mdlPLM {
namespace {

/// What happened, in order, as words.
using Log = std::vector<std::string>;

std::string Plain(TextView text) { return std::string(text.begin(), text.end()); }

/// A player that does what the test says and writes down what it is told.
class ScriptedPlayer final : public Player {
public:
    ScriptedPlayer(PlayerEvents events, Log& log) : events_(std::move(events)), log_(log) {}
    void Play(TextView path) override {
        log_.push_back("play " + Plain(path));
        events_.Started(Text(path));
    }
    void Stop() override {
        log_.emplace_back("stop");
        events_.Ended();
    }
    void ReachEnd() { events_.Ended(); }
    void Break(const PlayerFault& fault) { events_.Failed(fault); }
    void MissDevice() { events_.Unheard(); }

private:
    PlayerEvents events_;
    Log& log_;
};

class PlayerTest : public testing::Test {
protected:
    MediaPlayer Make() {
        return MediaPlayer(
            [this](const PlayerEvents& events, PlayerFault& fault) -> std::unique_ptr<Player> {
                log.emplace_back("made");
                if (!available) {
                    fault = {PlayerFault::Kind::MissingElements, {}, u"volume"};
                    return nullptr;
                }
                auto made = std::make_unique<ScriptedPlayer>(events, log);
                scripted = made.get();
                return made;
            },
            {[this](const Text& file) { toolTip = NowPlayingToolTip(file); },
             [this] { toolTip.clear(); },
             [this](const PlayerFault& fault) {
                 toolTip.clear();
                 faults.push_back(fault);
             },
             [this] { log.emplace_back("unheard"); }});
    }
    Log log;
    bool available = true;
    ScriptedPlayer* scripted = nullptr;
    Text toolTip = u"untouched";
    std::vector<PlayerFault> faults;
};

TEST_F(PlayerTest, NothingIsMadeBeforeTheFirstPlay) {
    MediaPlayer player = Make();
    player.Stop();
    player.Release(u"/m/a.mp3");
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(toolTip, u"untouched");
    player.Play(u"/m/a.mp3");
    player.Play(u"/m/b.mp3");
    EXPECT_EQ(log, (Log{"made", "play /m/a.mp3", "stop", "play /m/b.mp3"}));
}

TEST_F(PlayerTest, TheToolTipNamesTheFileFromTheStartToTheEndOfPlayback) {
    MediaPlayer player = Make();
    player.Play(u"/m/a.mp3");
    EXPECT_EQ(toolTip, u"Now Playing: /m/a.mp3");
    EXPECT_EQ(player.FileName(), u"/m/a.mp3");
    player.Stop();
    EXPECT_EQ(toolTip, u"");
    EXPECT_EQ(player.FileName(), u"");
    player.Play(u"/m/b.mp3");
    EXPECT_EQ(toolTip, u"Now Playing: /m/b.mp3");
    scripted->ReachEnd();
    EXPECT_EQ(toolTip, u"");
    EXPECT_EQ(player.FileName(), u"");
}

TEST_F(PlayerTest, StopIsToldToThePlayerOnlyWhileSomethingPlays) {
    MediaPlayer player = Make();
    player.Play(u"/m/a.mp3");
    scripted->ReachEnd();
    player.Stop();
    EXPECT_EQ(log, (Log{"made", "play /m/a.mp3"}));
}

TEST_F(PlayerTest, WithoutAPlayerPlayingOnlySaysWhyAndIsTriedAgain) {
    available = false;
    MediaPlayer player = Make();
    player.Play(u"/m/a.mp3");
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].Why, PlayerFault::Kind::MissingElements);
    EXPECT_EQ(faults[0].Detail, u"volume");
    EXPECT_EQ(player.FileName(), u"");
    player.Stop();
    player.Release(u"/m/a.mp3");
    available = true;
    player.Play(u"/m/a.mp3");
    EXPECT_EQ(log, (Log{"made", "made", "play /m/a.mp3"}));
}

TEST_F(PlayerTest, AFileThatBreaksIsNoLongerHeld) {
    MediaPlayer player = Make();
    player.Play(u"/m/a.mp3");
    scripted->Break({PlayerFault::Kind::CannotPlay, u"/m/a.mp3", u"no music in it"});
    EXPECT_EQ(player.FileName(), u"");
    EXPECT_EQ(toolTip, u"");
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].File, u"/m/a.mp3");
}

TEST_F(PlayerTest, AFileThatNobodyHearsIsPlayedAllTheSame) {
    MediaPlayer player = Make();
    player.Play(u"/m/a.mp3");
    scripted->MissDevice();
    EXPECT_EQ(log.back(), "unheard");
    EXPECT_EQ(player.FileName(), u"/m/a.mp3");
    EXPECT_EQ(toolTip, u"Now Playing: /m/a.mp3");
}

TEST_F(PlayerTest, OnlyThePlayedFileIsReleased) {
    MediaPlayer player = Make();
    player.Play(u"/m/a.mp3");
    player.Release(u"/m/b.mp3");
    EXPECT_EQ(player.FileName(), u"/m/a.mp3");
    player.Release(u"/m/a.mp3");
    EXPECT_EQ(player.FileName(), u"");
    EXPECT_EQ(log.back(), "stop");
}

/// A disk on which some files exist; writes down what is done to it.
class ListedDisk final : public Disk {
public:
    ListedDisk(std::vector<Text> files, Log& log) : files_(std::move(files)), log_(log) {}
    bool Exists(TextView path) override {
        return std::find(files_.begin(), files_.end(), path) != files_.end();
    }
    bool IsFolder(TextView) override { return false; }
    bool IsSameFile(TextView a, TextView b) override { return a == b; }
    Status Rename(TextView from, TextView to, IfTargetExists) override {
        return Note("rename " + Plain(from) + " " + Plain(to));
    }
    Status BeginCopy(TextView from, TextView to, IfTargetExists,
                     std::unique_ptr<PiecewiseCopy>&) override {
        return Note("copy " + Plain(from) + " " + Plain(to));
    }
    Status CreateFolder(TextView path) override { return Note("folder " + Plain(path)); }
    Status DeleteFile(TextView path) override { return Note("delete " + Plain(path)); }
    Status SetAttributes(TextView path, int attributes) override {
        return Note("attributes " + Plain(path) + " " + std::to_string(attributes));
    }

private:
    Status Note(std::string what) {
        log_.push_back(std::move(what));
        return ErrorNumber::DiskFull;
    }
    std::vector<Text> files_;
    Log& log_;
};

TEST(FileToPlay, IsTheCurrentExistingFileOfASingleSelection) {
    Log log;
    ListedDisk disk({u"/m/a.mp3"}, log);
    EXPECT_EQ(FileToPlay(u"/m/a.mp3", false, disk), u"/m/a.mp3");
    EXPECT_EQ(FileToPlay(u"/m/a.mp3", true, disk), u"");
    EXPECT_EQ(FileToPlay(u"/m/gone.mp3", false, disk), u"");
    EXPECT_EQ(FileToPlay(u"", false, disk), u"");
}

TEST(OpenToolTip, NamesTheCurrentEntrysFullPath) {
    EXPECT_EQ(OpenToolTip(u"/m/a.mp3"), u"Open: /m/a.mp3");
    EXPECT_EQ(OpenToolTip(u""), u"");
}

struct NotingUser final : FileUser {
    explicit NotingUser(Log& log) : Notes(log) {}
    void Release(TextView path) override { Notes.push_back("release " + Plain(path)); }
    Log& Notes;
};

TEST(ReleasingDisk, LetsGoOfAFileBeforeItIsTouched) {
    Log log;
    ListedDisk disk({u"/a"}, log);
    NotingUser user(log);
    ReleasingDisk releasing(disk, user);
    std::unique_ptr<PiecewiseCopy> copy;
    const std::vector<Status> results = {
        releasing.Rename(u"/a", u"/b", IfTargetExists::Fail),
        releasing.Rename(u"/a", u"/b", IfTargetExists::Replace),
        releasing.BeginCopy(u"/a", u"/b", IfTargetExists::Fail, copy),
        releasing.BeginCopy(u"/a", u"/b", IfTargetExists::Replace, copy),
        releasing.DeleteFile(u"/a"),
        releasing.SetAttributes(u"/a", 33),
        releasing.CreateFolder(u"/f"),
    };
    EXPECT_EQ(log, (Log{"release /a", "rename /a /b",                //
                        "release /a", "release /b", "rename /a /b",  //
                        "copy /a /b",                                //
                        "release /b", "copy /a /b",                  //
                        "release /a", "delete /a",                   //
                        "attributes /a 33", "folder /f"}));
    for (const Status& result : results) EXPECT_EQ(result.Number(), ErrorNumber::DiskFull);
    EXPECT_TRUE(releasing.Exists(u"/a"));
    EXPECT_FALSE(releasing.Exists(u"/b"));
    EXPECT_FALSE(releasing.IsFolder(u"/a"));
    EXPECT_TRUE(releasing.IsSameFile(u"/a", u"/a"));
}

}  // namespace
}  // namespace mdlPLM
