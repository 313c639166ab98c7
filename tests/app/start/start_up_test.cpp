#include "app/start/start_up.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "core/platform/path.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;

namespace {

/// A process played by the test: its folders, what is typed, what is printed, what is opened.
struct Start {
    TempFolder Folder;
    std::istringstream In;
    std::ostringstream Out;
    std::ostringstream Errors;
    bool Display = false;
    std::optional<Text> BoxAnswer;
    std::vector<Text> Boxes;
    std::vector<Text> Opened;
    int Windows = 0;
    Status StoreRead;
    int Change = -1;

    int Run(const std::vector<Text>& arguments) {
        const StartFolders folders{Folder / u"config/PLM.ini", Folder / u"program/",
                                   Folder / u"data/"};
        (void)CreateFolders(folders.Program);
        const auto box = [this](const Message& question) {
            Boxes.push_back(question.Body);
            return BoxAnswer;
        };
        const auto window = [this](StartData& data, const std::vector<Text>& paths) {
            ++Windows;
            Opened = paths;
            StoreRead = data.StoreRead;
            Change = data.Values.Change;
            return data.Replacements.empty() ? 99 : 0;
        };
        return RunProgram(arguments, {In, Out, Errors, folders, Display, box, window});
    }
    bool TouchedTheDisk() { return !ListTree(Folder / u"program/").empty(); }
};

Environment Variables(std::map<std::string, std::string> values) {
    return [values = std::move(values)](const char* name) {
        const auto found = values.find(name);
        return found == values.end() ? nullptr : found->second.c_str();
    };
}

}  // namespace

TEST(StartUp, HelpAndVersionArePrintedAndNothingElseHappens) {
    Start help;
    EXPECT_EQ(help.Run({u"--help"}), 0);
    EXPECT_NE(help.Out.str().find("+rename="), std::string::npos);
    EXPECT_NE(help.Out.str().find("+ext="), std::string::npos);
    EXPECT_NE(help.Out.str().find("+list"), std::string::npos);
    EXPECT_EQ(help.Errors.str(), "");
    EXPECT_FALSE(help.TouchedTheDisk());
    Start version;
    EXPECT_EQ(version.Run({u"--version"}), 0);
    EXPECT_EQ(version.Out.str(), "Pellmore 1.0\n");
    EXPECT_FALSE(version.TouchedTheDisk());
}

TEST(StartUp, HelpThatCannotBePrintedIsAFailure) {
    Start start;
    start.Out.setstate(std::ios::badbit);
    EXPECT_EQ(start.Run({u"--help"}), 1);
}

TEST(StartUp, ACommandLineWithoutASwitchDoesNothing) {
    Start start;
    start.Display = true;
    const Text file = start.Folder.File(u"a b.mp3", "x");
    EXPECT_EQ(start.Run({file}), 2);
    EXPECT_EQ(start.Out.str(), "");
    EXPECT_NE(start.Errors.str().find("pellmore +list"), std::string::npos);
    EXPECT_EQ(start.Windows, 0);
    EXPECT_TRUE(IsThere(file));
    EXPECT_FALSE(start.TouchedTheDisk());
}

TEST(StartUp, WithoutADisplayTheWindowSaysWhatItNeeds) {
    for (const std::vector<Text>& arguments :
         {std::vector<Text>{}, std::vector<Text>{u"+list", u"/m/a.mp3"}}) {
        Start start;
        EXPECT_EQ(start.Run(arguments), 2);
        EXPECT_NE(start.Errors.str().find("DISPLAY"), std::string::npos);
        EXPECT_NE(start.Errors.str().find("+rename="), std::string::npos);
        EXPECT_EQ(start.Windows, 0);
        EXPECT_FALSE(start.TouchedTheDisk());
    }
}

TEST(StartUp, TheWindowOpensWithSettingsAndReplacementsLoaded) {
    Start start;
    start.Display = true;
    EXPECT_EQ(start.Run({}), 0);
    EXPECT_EQ(start.Windows, 1);
    EXPECT_TRUE(start.Opened.empty());
    EXPECT_EQ(ListTree(start.Folder / u"program/"), std::vector<Bytes>{"replaces.txt"});
}

TEST(StartUp, ListOpensTheWindowWithItsPaths) {
    Start start;
    start.Display = true;
    EXPECT_EQ(start.Run({u"+list", u"/m/a b.mp3", u"/m"}), 0);
    EXPECT_EQ(start.Opened, (std::vector<Text>{u"/m/a b.mp3", u"/m"}));
}

// A sorting list that is saved from them is of use in another folder too.
TEST(StartUp, RelativePathsAreListedWhole) {
    Start start;
    start.Display = true;
    EXPECT_EQ(start.Run({u"+list", u"a b.mp3", u"./m", u"..", u"."}), 0);
    const Text here = CurrentFolder();
    EXPECT_EQ(here.back(), Separator);
    EXPECT_EQ(start.Opened,
              (std::vector<Text>{here + u"a b.mp3", here + u"m", here + u"..", here}));
}

TEST(StartUp, BatchModeWithoutFilesEndsAtOnce) {
    Start start;
    EXPECT_EQ(start.Run({u"+rename=\"%artist - %title.mp3\""}), 2);
    EXPECT_FALSE(start.TouchedTheDisk());
    EXPECT_EQ(start.Windows, 0);
}

TEST(StartUp, BatchModeUsesTheStoredSettingsAndReplacements) {
    Start start;
    WriteFile(start.Folder / u"config/PLM.ini",
              "[Settings]\nInPattern=%title by %artist.mp3\nbReplace=True\n");
    WriteFile(start.Folder / u"program/replaces.txt", "Waterloo\r\nSOS\r\n");
    const Text file = start.Folder.File(u"Waterloo by ABBA.mp3", "no tag");
    EXPECT_EQ(start.Run({u"+rename=%artist - %title.mp3", file}), 0);
    EXPECT_TRUE(IsThere(start.Folder / u"Abba - SOS.mp3"));
    EXPECT_FALSE(IsThere(file));
    EXPECT_EQ(start.Out.str(), "");
    EXPECT_EQ(start.Errors.str(), "");
}

TEST(StartUp, TheExtensionIsAskedForAtTheTerminal) {
    Start start;
    start.In.str("ogg\r\n");
    const Text file = start.Folder.File(u"a b.mp3", "x");
    EXPECT_EQ(start.Run({u"+ext=\"\"", file}), 0);
    EXPECT_EQ(start.Out.str(), "Enter new file extension (excluding \".\"): ");
    EXPECT_TRUE(IsThere(start.Folder / u"a b.ogg"));
    EXPECT_TRUE(start.Boxes.empty());
}

TEST(StartUp, TheExtensionIsAskedForInABoxWhereThereIsADisplay) {
    Start start;
    start.Display = true;
    start.BoxAnswer = u"ogg";
    const Text file = start.Folder.File(u"a.mp3", "x");
    EXPECT_EQ(start.Run({u"+ext=", file}), 0);
    EXPECT_EQ(start.Boxes, std::vector<Text>{u"Enter new file extension (excluding \".\"): "});
    EXPECT_TRUE(IsThere(start.Folder / u"a.ogg"));
    EXPECT_EQ(start.Out.str(), "");
}

TEST(StartUp, NoExtensionGivenLeavesTheFilesAlone) {
    for (const std::string typed : {"", "\n"}) {
        Start start;
        start.In.str(typed);
        const Text file = start.Folder.File(u"a.mp3", "x");
        EXPECT_EQ(start.Run({u"+ext=", file}), 2);
        EXPECT_TRUE(IsThere(file));
        EXPECT_NE(start.Errors.str(), "");
    }
    Start cancelled;
    cancelled.Display = true;
    const Text file = cancelled.Folder.File(u"a.mp3", "x");
    EXPECT_EQ(cancelled.Run({u"+ext=", file}), 2);
    EXPECT_TRUE(IsThere(file));
}

TEST(StartUp, BatchModeTellsWhichFilesHaveNoNewName) {
    Start start;
    const Text closed = start.Folder.Unopenable(u"a - b\n.mp3");
    EXPECT_EQ(start.Run({u"+rename=%title.mp3", closed, start.Folder / u"missing.mp3"}), 1);
    EXPECT_EQ(start.Errors.str(),
              "pellmore: " + NativePath(start.Folder.Path()) + "a - b .mp3: Device unavailable\n");
    EXPECT_EQ(start.Out.str(), "");
}

TEST(StartUp, BatchModeTellsByItsStatusWhatCouldNotBeRenamed) {
    Start start;
    const Text good = start.Folder.File(u"a.mp3", "x");
    const Text missing = start.Folder / u"missing.mp3";
    EXPECT_EQ(start.Run({u"+ext=ogg", missing, good}), 1);
    EXPECT_TRUE(IsThere(start.Folder / u"a.ogg"));
    EXPECT_EQ(start.Errors.str(), "");
}

TEST(StartUp, SettingsThatCannotBeReadLeaveTheDefaults) {
    Start start;
    (void)start.Folder.Folder(u"config/PLM.ini");
    const Text file = start.Folder.File(u"a.mp3", "x");
    EXPECT_EQ(start.Run({u"+ext=ogg", file}), 0);
    EXPECT_TRUE(IsThere(start.Folder / u"a.ogg"));
    EXPECT_EQ(start.Errors.str(),
              "pellmore: the settings in \"" + NativePath(start.Folder / u"config/PLM.ini") +
                  "\" could not be read; the defaults hold. Path/File access error\n");
}

TEST(StartUp, DamagedSettingsAreToldAndStay) {
    Start start;
    start.Display = true;
    const Text settings = start.Folder.File(u"config/PLM.ini", "[Settings]\nChange=4\n");
    SetFileLength(settings, 2 << 20);
    EXPECT_EQ(start.Run({}), 0);
    EXPECT_EQ(start.StoreRead.Number(), ErrorNumber::Overflow);
    EXPECT_EQ(start.Change, 1);
    const Text file = start.Folder.File(u"a.mp3", "x");
    EXPECT_EQ(start.Run({u"+ext=ogg", file}), 0);
    EXPECT_NE(start.Errors.str().find("PLM.ini\" could not be read; the defaults hold. The file "
                                      "has more than a megabyte, so it is damaged."),
              std::string::npos);
    EXPECT_EQ(ReadFile(settings).size(), std::size_t{2} << 20);
}

TEST(StartUp, KnowsWhetherAWindowCanBeAskedFor) {
    EXPECT_FALSE(HasDisplay(Variables({})));
    EXPECT_FALSE(HasDisplay(Variables({{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}})));
    EXPECT_TRUE(HasDisplay(Variables({{"DISPLAY", ":0"}})));
    EXPECT_TRUE(HasDisplay(Variables({{"WAYLAND_DISPLAY", "wayland-0"}})));
    EXPECT_TRUE(HasDisplay(Variables({{"QT_QPA_PLATFORM", "offscreen"}})));
    EXPECT_TRUE(HasDisplay(Variables({{"QT_QPA_PLATFORM", "xcb"}, {"DISPLAY", ":0"}})));
    EXPECT_FALSE(HasDisplay(Variables({{"QT_QPA_PLATFORM", "xcb"}})));
    EXPECT_FALSE(HasDisplay(Variables({{"QT_QPA_PLATFORM", "wayland;xcb"}})));
}
