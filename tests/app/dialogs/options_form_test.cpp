#include "app/dialogs/options_form.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace mdlPLM;

namespace {

Settings MainWindowChoices() {
    Settings settings;
    settings.Genre = 1;
    settings.Move = 0;
    settings.TargetDir = u"/music/";
    settings.InPattern = u"%title";
    settings.txtSubFolder = 9;
    return settings;
}

}  // namespace

TEST(OptionsForm, EachCheckBoxAndEachSettingStandsInOneRow) {
    std::set<std::string> controls;
    for (const OptionRow& row : OptionRows) controls.insert(row.Control);
    EXPECT_EQ(controls.size(), OptionRows.size());
    Settings all;
    for (const OptionRow& row : OptionRows) all.*row.Value = false;
    for (const OptionRow& row : OptionRows) {
        EXPECT_FALSE(all.*row.Value) << row.Control;
        all.*row.Value = true;
    }
}

TEST(OptionsForm, TakesOverEveryOption) {
    for (const OptionRow& row : OptionRows) {
        Settings edited;
        edited.*row.Value = !(edited.*row.Value);
        Settings inForce;
        TakeOverOptions(edited, inForce);
        EXPECT_EQ(inForce.*row.Value, edited.*row.Value) << row.Control;
    }
    Settings edited;
    edited.Extension = u"ogg";
    edited.strSettings = u"#";
    edited.Change = 4;
    Settings inForce;
    TakeOverOptions(edited, inForce);
    EXPECT_EQ(inForce.Extension, u"ogg");
    EXPECT_EQ(inForce.strSettings, u"#");
    EXPECT_EQ(inForce.Change, 4);
}

TEST(OptionsForm, LeavesTheMainWindowsChoicesAlone) {
    Settings inForce = MainWindowChoices();
    TakeOverOptions(Settings(), inForce);
    EXPECT_EQ(inForce.Genre, 1);
    EXPECT_EQ(inForce.Move, 0);
    EXPECT_EQ(inForce.TargetDir, u"/music/");
    EXPECT_EQ(inForce.InPattern, u"%title");
    EXPECT_EQ(inForce.txtSubFolder, 9);
}

TEST(OptionsForm, ExtensionBoxSwallowsPathCharactersAndThePasteKey) {
    for (const char16_t c : Text(u"\\/:?<>|")) EXPECT_TRUE(IsForbiddenInExtension(c)) << int(c);
    EXPECT_TRUE(IsForbiddenInExtension(22));
    for (const char16_t c : Text(u"mp3.MP3 \"*\u0003\u0018\u0008"))
        EXPECT_FALSE(IsForbiddenInExtension(c)) << int(c);
}
