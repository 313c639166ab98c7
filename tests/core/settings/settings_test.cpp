#include "core/settings/settings.h"

#include <gtest/gtest.h>

#include <set>

#include "core/settings/settings_table.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

struct ExpectedRow {
    TextView ReadKey;
    TextView WrittenKey;
    TextView Default;
    WrittenBy Writer;
};

constexpr auto Window = WrittenBy::MainWindow;
constexpr auto Dialog = WrittenBy::OptionsDialog;

const std::vector<ExpectedRow>& ExpectedRows() {
    static const std::vector<ExpectedRow> rows = {
        {u"Genre", u"Genre", u"0", Window},
        {u"Alphabetical", u"Alphabetical", u"0", Window},
        {u"SubFolder", u"SubFolder", u"0", Window},
        {u"Convert", u"Convert", u"1", Window},
        {u"txtSubFolder", u"txtSubFolder", u"5", Window},
        {u"FileExists", u"FileExists", u"0", Window},
        {u"Move", u"Move", u"2", Window},
        {u"TargetDir", u"TargetDir", u"/opt/plm/", Window},
        {u"LastDir", u"LastDir", u"/opt/plm/", Window},
        {u"InPattern", u"InPattern", u"%artist - %title.mp3", Window},
        {u"OutPattern", u"OutPattern", u"%track - %artist - %title.mp3", Window},
        {u"bID3", u"bID3", u"True", Dialog},
        {u"bExtension", u"bExtension", u"True", Dialog},
        {u"Extension", u"Extension", u"mp3", Dialog},
        {u"bLowExtension", u"bLowExtension", u"True", Dialog},
        {u"bScoreToSpace", u"bScoreToSpace", u"True", Dialog},
        {u"b20toSpace", u"b20toSpace", u"True", Dialog},
        {u"bSpaces", u"bSpaces", u"True", Dialog},
        {u"bParentheses", u"bParentheses", u"False", Dialog},
        {u"bReplace", u"bReplace", u"False", Dialog},
        {u"bMisses", u"bMisses", u"True", Dialog},
        {u"bSetAttributes", u"bSetAttributes", u"False", Dialog},
        {u"bReadOnly", u"bReadOnly", u"False", Dialog},
        {u"bHidden", u"bHidden", u"False", Dialog},
        {u"bArhive", u"bArchive", u"False", Dialog},
        {u"bRemoveChars", u"bRemoveChars", u"False", Dialog},
        {u"bRemHiddenID3", u"bRemHiddenID3", u"False", Dialog},
        {u"bOptimizedID3v1", u"bOptimizedID3v1", u"False", Dialog},
        {u"Change", u"Change", u"1", Dialog},
    };
    return rows;
}

const SettingRow& RowOf(TextView readKey) {
    for (const SettingRow& row : SettingRows)
        if (row.ReadKey == readKey) return row;
    throw std::logic_error("no such key");
}

// A value that differs from the default, as text.
Text OtherText(const Settings& settings, const SettingRow& row) {
    const Text present = SettingText(settings, row);
    if (std::holds_alternative<bool Settings::*>(row.Field))
        return present == u"True" ? u"False" : u"True";
    if (std::holds_alternative<int Settings::*>(row.Field)) return present == u"0" ? u"1" : u"0";
    if (std::holds_alternative<long long Settings::*>(row.Field)) return u"17";
    return u" other; \"text\" = " + present + u" ";
}

TEST(Settings, EveryKeyHasItsDefaultAndItsWriter) {
    const SettingsStore store(u"");
    const Settings settings = LoadSettings(store, u"/opt/plm/");
    for (const ExpectedRow& expected : ExpectedRows()) {
        const SettingRow& row = RowOf(expected.ReadKey);
        EXPECT_EQ(row.WrittenKey, expected.WrittenKey);
        EXPECT_EQ(SettingText(settings, row), expected.Default);
        EXPECT_EQ(row.Writer, expected.Writer);
    }
    EXPECT_EQ(RowOf(u"strSettings").WrittenKey, u"strRemoveChars");
    EXPECT_EQ(RowOf(u"strSettings").Writer, Dialog);
    EXPECT_EQ(SettingText(settings, RowOf(u"strSettings")), DefaultRemoveChars());
    EXPECT_EQ(SettingRows.size(), ExpectedRows().size() + 1);
}

TEST(Settings, OnlyTheTwoPairsDifferInTheirKeys) {
    std::set<Text> differing;
    for (const SettingRow& row : SettingRows)
        if (row.ReadKey != row.WrittenKey) differing.insert(Text(row.ReadKey));
    EXPECT_EQ(differing, (std::set<Text>{u"bArhive", u"strSettings"}));
}

TEST(Settings, TheDefaultOfTheCharactersToRemove) {
    const Text characters = DefaultRemoveChars();
    EXPECT_EQ(characters.size(), 121U);
    EXPECT_EQ(Left(characters, 5), u"^`{}~");
    EXPECT_EQ(Mid(characters, 6, 4), u"\u007F\u20AC\u0081\u201A");
    for (const char16_t unassigned : TextView(u"\u0081\u008D\u008F\u0090\u009D"))
        EXPECT_NE(characters.find(unassigned), Text::npos);
    for (const char16_t kept : TextView(u"\u00A7\u00C4\u00C5\u00C6\u00D6\u00D8\u00DC"
                                        u"\u00E4\u00E5\u00E6\u00F6\u00F8\u00FC"))
        EXPECT_EQ(characters.find(kept), Text::npos);
    EXPECT_EQ(characters.back(), u'\u00FF');
    EXPECT_EQ(std::set<char16_t>(characters.begin(), characters.end()).size(), 121U);
}

TEST(Settings, EveryKeyComesBackButTheTwoPairs) {
    const TempFolder folder;
    SettingsStore written(folder / u"PLM.ini");
    const Settings defaults = LoadSettings(written, u"/opt/plm/");
    Settings settings = defaults;
    for (const SettingRow& row : SettingRows)
        ASSERT_TRUE(SetSetting(settings, row, OtherText(defaults, row)));
    StoreSettings(settings, WrittenBy::MainWindow, written);
    StoreSettings(settings, WrittenBy::OptionsDialog, written);
    ASSERT_TRUE(written.Save().Ok());
    SettingsStore read(folder / u"PLM.ini");
    ASSERT_TRUE(read.Load().Ok());
    const Settings got = LoadSettings(read, u"/opt/plm/");
    for (const SettingRow& row : SettingRows) {
        const bool comesBack = row.ReadKey == row.WrittenKey;
        EXPECT_EQ(SettingText(got, row), SettingText(comesBack ? settings : defaults, row));
        EXPECT_EQ(read.Get(SettingsSection, row.WrittenKey, u"none"), SettingText(settings, row));
    }
}

TEST(Settings, ArchiveAndTheRemovedCharactersAreBackToTheirDefaultsAfterARestart) {
    SettingsStore store(u"");
    Settings settings;
    settings.bArhive = true;
    settings.strSettings = u"#";
    StoreSettings(settings, WrittenBy::OptionsDialog, store);
    EXPECT_EQ(store.Get(u"Settings", u"bArchive", u""), u"True");
    EXPECT_EQ(store.Get(u"Settings", u"strRemoveChars", u""), u"#");
    const Settings restarted = LoadSettings(store, u"");
    EXPECT_FALSE(restarted.bArhive);
    EXPECT_EQ(restarted.strSettings, DefaultRemoveChars());
}

TEST(Settings, EachWriterWritesItsOwnKeysOnly) {
    for (const WrittenBy writer : {Window, Dialog}) {
        SettingsStore store(u"");
        StoreSettings(Settings(), writer, store);
        for (const SettingRow& row : SettingRows) {
            const bool there = store.Get(SettingsSection, row.WrittenKey, u"none") != u"none";
            EXPECT_EQ(there, row.Writer == writer);
        }
    }
}

Settings Loaded(TextView key, TextView value) {
    SettingsStore store(u"");
    store.Set(SettingsSection, key, value);
    return LoadSettings(store, u"");
}

TEST(Settings, BooleansAreReadInAnyLetterCaseAndAsNumbers) {
    for (const TextView yes : {u"True", u"true", u"TRUE", u"1", u"-1", u" True "})
        EXPECT_TRUE(Loaded(u"bReplace", yes).bReplace);
    for (const TextView no : {u"False", u"false", u"0"}) EXPECT_FALSE(Loaded(u"bID3", no).bID3);
}

TEST(Settings, AValueThatDoesNotConvertFallsBackToTheDefault) {
    for (const TextView bad : {u"", u"yes", u"2", u"Truely", u"\u0661"}) {
        EXPECT_TRUE(Loaded(u"bID3", bad).bID3);
        EXPECT_FALSE(Loaded(u"bReplace", bad).bReplace);
    }
    for (const TextView bad : {u"", u"x", u"1x", u"9", u"-1", u"99999999999999999999"}) {
        EXPECT_EQ(Loaded(u"Change", bad).Change, 1);
        EXPECT_EQ(Loaded(u"Move", bad).Move, 2);
        EXPECT_EQ(Loaded(u"FileExists", bad).FileExists, 0);
        EXPECT_EQ(Loaded(u"Convert", bad).Convert, 1);
    }
    EXPECT_EQ(Loaded(u"Move", u"7").Move, 2);
    EXPECT_EQ(Loaded(u"Change", u"4").Change, 4);
    EXPECT_EQ(Loaded(u"Convert", u"0").Convert, 0);
}

TEST(Settings, TheNumberOfSongsIsAWholeNumber) {
    EXPECT_EQ(Loaded(u"txtSubFolder", u"7.9").txtSubFolder, 7);
    EXPECT_EQ(Loaded(u"txtSubFolder", u"0").txtSubFolder, 0);
    EXPECT_EQ(Loaded(u"txtSubFolder", u"many").txtSubFolder, 5);
}

TEST(Settings, AnEmptyTextIsAValue) {
    EXPECT_EQ(Loaded(u"Extension", u"").Extension, u"");
    SettingsStore store(u"");
    store.Set(SettingsSection, u"TargetDir", u"");
    EXPECT_EQ(LoadSettings(store, u"/opt/").TargetDir, u"");
}

TEST(Settings, OneKeyIsSetFromItsText) {
    Settings settings;
    EXPECT_TRUE(SetSettingFromText(settings, u"bMisses", u"false"));
    EXPECT_FALSE(settings.bMisses);
    EXPECT_TRUE(SetSettingFromText(settings, u"change", u"4"));
    EXPECT_EQ(settings.Change, 4);
    EXPECT_TRUE(SetSettingFromText(settings, u"bArchive", u"True"));
    EXPECT_TRUE(settings.bArhive);
    EXPECT_TRUE(SetSettingFromText(settings, u"strSettings", u"#"));
    EXPECT_EQ(settings.strSettings, u"#");
}

TEST(Settings, AnUnknownKeyOrAValueThatDoesNotConvertSetsNothing) {
    Settings settings;
    EXPECT_FALSE(SetSettingFromText(settings, u"bUnknown", u"True"));
    EXPECT_FALSE(SetSettingFromText(settings, u"", u"True"));
    EXPECT_FALSE(SetSettingFromText(settings, u"Change", u"9"));
    EXPECT_EQ(settings.Change, 1);
}

}  // namespace
}  // namespace mdlPLM
