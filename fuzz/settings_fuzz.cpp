// A settings file of any content: it is kept but for what is set, what was set is read again, and
// settings survive being stored and loaded.
#include <variant>

#include "core/settings/settings_store.h"
#include "core/settings/settings_table.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

void CheckLines(const Text& contents) {
    const Text ended = contents.empty() || EndsWith(contents, u"\n") ? contents : contents + u"\n";
    RequireEqual(RenderStore(ParseStore(contents)), ended, "the lines of a store changed");
}

// Lines that hold another key, or none, stand in the file as before and in their order.
std::vector<Text> OtherLines(const Bytes& file, TextView section, TextView key) {
    std::vector<Text> raw;
    for (const StoreLine& line : ParseStore(FromUtf8(file))) {
        const bool own =
            EqualIgnoringCase(line.Section, section) && EqualIgnoringCase(line.Key, key);
        const bool head = line.Key.empty() && Trim(line.Raw).substr(0, 1) == u"[";
        if (!own && !head) raw.push_back(Trim(Replace(line.Raw, u"\r", u"")));
    }
    return raw;
}

void CheckSetting(const ScratchFile& scratch, TextView key, TextView value) {
    const Bytes before = scratch.Contents();
    SettingsStore store(scratch.Path());
    Require(store.Load().Ok(), "a store cannot be loaded");
    RequireEqual(scratch.Contents(), before, "loading changed the file");
    store.Set(SettingsSection, key, value);
    RequireEqual(store.Get(SettingsSection, key, u"?"), value, "another value than set");
    Require(store.Save().Ok(), "a store cannot be saved");
    RequireEqual(store.Get(SettingsSection, key, u"?"), value, "another value once saved");
    SettingsStore again(scratch.Path());
    Require(again.Load().Ok(), "a saved store cannot be loaded");
    RequireEqual(again.Get(SettingsSection, UCase(key), u"?"), value, "another value is read");
    Require(OtherLines(scratch.Contents(), SettingsSection, key) ==
                OtherLines(before, SettingsSection, key),
            "another line changed");
}

void CheckSettings(const ScratchFile& scratch) {
    SettingsStore store(scratch.Path());
    Require(store.Load().Ok(), "a store cannot be loaded");
    const Settings settings = LoadSettings(store, u"/program/");
    for (const WrittenBy writer : {WrittenBy::MainWindow, WrittenBy::OptionsDialog})
        StoreSettings(settings, writer, store);
    Require(store.Save().Ok(), "a store cannot be saved");
    SettingsStore again(scratch.Path());
    Require(again.Load().Ok(), "a saved store cannot be loaded");
    const Settings loaded = LoadSettings(again, u"/program/");
    for (const SettingRow& row : SettingRows)
        std::visit(
            [&](auto field) {
                Require(loaded.*field == settings.*field, "a setting is read otherwise");
            },
            row.Field);
    Require(settings.Change >= 0 && settings.Change <= 4, "a case option out of range");
    Require(settings.Move >= 0 && settings.Move <= 2, "a method out of range");
    Require(settings.FileExists >= 0 && settings.FileExists <= 2, "a choice out of range");
}

}  // namespace

// The first line is a value to set; the rest is the file.
void FuzzSettings(BytesView bytes) {
    Input input(bytes);
    const Text value = input.LineText();
    const BytesView contents = input.Rest();
    CheckLines(FromUtf8(contents));
    const ScratchFile scratch(contents, "PLM.ini");
    CheckSettings(scratch);
    scratch.Write(contents);
    for (const TextView key : {u"TargetDir", u"InPattern"}) CheckSetting(scratch, key, value);
    Settings settings;
    if (!SetSettingFromText(settings, u"Change", value))
        Require(settings.Change == Settings().Change, "a refused text changed a setting");
    Require(SetSettingFromText(settings, u"targetdir", value) && settings.TargetDir == value,
            "a text is not taken");
}

}  // namespace mdlPLM::fuzz
