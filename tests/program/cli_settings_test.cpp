#include "core/platform/disk.h"
#include "core/settings/settings_table.h"
#include "tests/program/cli_fixture.h"

namespace mdlPLM::test {
namespace {

/// A value of each kind of setting that is not its default.
Text OtherValue(const SettingRow& row) {
    const Settings defaults;
    const Text present = SettingText(defaults, row);
    for (const TextView value : {u"True", u"False", u"1", u"0", u"2"}) {
        Settings changed;
        if (SetSetting(changed, row, value) && SettingText(changed, row) != present)
            return SettingText(changed, row);
    }
    return {};
}

class CliSettings : public CliTest {
protected:
    [[nodiscard]] Text Path() const { return Home / u"config/PLM/PLM.ini"; }
};

TEST_F(CliSettings, EveryKeyOfTheTableWithItsValue) {
    const ProgramResult result = Cli({"settings", "--no-user-settings"});
    EXPECT_EQ(result.Status, 0);
    Bytes expected;
    for (const SettingRow& row : SettingRows)
        expected += ToUtf8(row.ReadKey) + "=" + ToUtf8(SettingText(Settings(), row)) + "\n";
    EXPECT_EQ(result.Out, expected);
}

TEST_F(CliSettings, SingleKeysAreShownWithWhatOverridesThem) {
    ExpectPrints({"settings", "change", "Extension", "--setting", "Change=3"},
                 "Change=3\nExtension=mp3\n");
    EXPECT_EQ(Objects(Cli({"settings", "--json", "bID3"})),
              (std::vector<Json>{{{"key", "bID3"}, {"value", "True"}}}));
}

TEST_F(CliSettings, EveryKeyOfTheTableCanBeOverridden) {
    Arguments arguments = {"settings", "--no-user-settings"};
    Bytes expected;
    for (const SettingRow& row : SettingRows) {
        const Bytes setting = ToUtf8(row.ReadKey) + "=" + ToUtf8(OtherValue(row));
        arguments.insert(arguments.end(), {"--setting", setting});
        expected += setting + "\n";
        EXPECT_NE(OtherValue(row), SettingText(Settings(), row)) << setting;
    }
    ExpectPrints(arguments, expected);
}

TEST_F(CliSettings, StoresAKeyAsTheOtherProgramWouldRead) {
    (void)Home.File(u"config/PLM/PLM.ini", "[Window]\nx=1\n[Settings]\nMove=1\n");
    ExpectPrints({"settings", "Change=3", "OutPattern=%title.mp3"},
                 "Change=3\nOutPattern=%title.mp3\n");
    SettingsStore store(Path());
    ASSERT_TRUE(store.Load().Ok());
    const Settings settings = LoadSettings(store, u"/p/");
    EXPECT_EQ(settings.Change, 3);
    EXPECT_EQ(settings.OutPattern, u"%title.mp3");
    EXPECT_EQ(settings.Move, 1);
    EXPECT_EQ(store.Get(u"Window", u"x", u""), u"1");
}

TEST_F(CliSettings, TwoKeysAreNeverReadBack) {
    EXPECT_EQ(Cli({"settings", "bArhive=True", "strSettings=abc"}).Status, 0);
    const Bytes stored = ReadFile(Path());
    EXPECT_NE(stored.find("bArchive=True\n"), Bytes::npos);
    EXPECT_NE(stored.find("strRemoveChars=abc\n"), Bytes::npos);
    ExpectPrints({"settings", "bArhive"}, "bArhive=False\n");
}

TEST_F(CliSettings, APlanStoresNothing) {
    ExpectPrints({"settings", "-n", "Change=3"}, "Change=3\n");
    EXPECT_FALSE(IsThere(Path()));
}

TEST_F(CliSettings, WrongKeysAndValuesAreMisuseAndNothingIsStored) {
    for (const char* wish : {"Chnge", "Change=9", "bID3=maybe", "=1"})
        ExpectResult(
            Cli({"settings", "Move=1", wish}), 2, "",
            Bytes("pellmore-cli: \"") + wish + "\" is no setting with a value that it can have\n");
    ExpectResult(Cli({"settings", "--no-user-settings", "Move=1"}), 2, "",
                 "pellmore-cli: --no-user-settings: nothing can be stored\n");
    EXPECT_FALSE(IsThere(Path()));
}

TEST_F(CliSettings, AStoreThatCannotBeReadOrWrittenIsNamed) {
    (void)Home.Folder(u"config/PLM/PLM.ini");
    const ProgramResult result = Cli({"names", "x"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors.find("pellmore-cli: " + NativePath(Path()) + ": "), 0U)
        << result.Errors;
    (void)Home.File(u"file", "x");
    Environment["XDG_CONFIG_HOME"] = NativePath(Home / u"file");
    EXPECT_EQ(Cli({"settings", "Move=1"}).Status, 1);
}

}  // namespace
}  // namespace mdlPLM::test
