#include "core/settings/settings_table.h"

#include <algorithm>

#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

constexpr TextView True = u"True";
constexpr TextView False = u"False";

struct BooleanWord {
    TextView Word;
    bool Value;
};

constexpr BooleanWord BooleanWords[] = {
    {True, true}, {False, false}, {u"1", true}, {u"-1", true}, {u"0", false},
};

Text AsText(bool value) { return Text(value ? True : False); }
Text AsText(int value) { return NumberText(static_cast<long long>(value)); }
Text AsText(long long value) { return NumberText(value); }
Text AsText(const Text& value) { return value; }

bool Convert(TextView text, const SettingRow& /*row*/, bool& value) {
    const Text word = Trim(text);
    const auto* found =
        std::find_if(std::begin(BooleanWords), std::end(BooleanWords),
                     [&](const BooleanWord& b) { return EqualIgnoringCase(b.Word, word); });
    if (found == std::end(BooleanWords)) return false;
    value = found->Value;
    return true;
}

bool Convert(TextView text, const SettingRow& /*row*/, long long& value) {
    if (!IsNumber(text)) return false;
    value = IntegerPart(text);
    return true;
}

bool Convert(TextView text, const SettingRow& row, int& value) {
    const long long number = IntegerPart(text);
    if (!IsNumber(text) || number < row.Low || number > row.High) return false;
    value = static_cast<int>(number);
    return true;
}

bool Convert(TextView text, const SettingRow& /*row*/, Text& value) {
    value = text;
    return true;
}

bool IsKeyOf(const SettingRow& row, TextView key) {
    return EqualIgnoringCase(row.ReadKey, key) || EqualIgnoringCase(row.WrittenKey, key);
}

}  // namespace

Text SettingText(const Settings& settings, const SettingRow& row) {
    return std::visit([&](auto field) { return AsText(settings.*field); }, row.Field);
}

bool SetSetting(Settings& settings, const SettingRow& row, TextView text) {
    return std::visit([&](auto field) { return Convert(text, row, settings.*field); }, row.Field);
}

Settings LoadSettings(const SettingsStore& store, TextView programFolder) {
    Settings settings;
    settings.TargetDir = programFolder;
    settings.LastDir = programFolder;
    for (const SettingRow& row : SettingRows) {
        const Text present = SettingText(settings, row);
        (void)SetSetting(settings, row, store.Get(SettingsSection, row.ReadKey, present));
    }
    return settings;
}

void StoreSettings(const Settings& settings, WrittenBy writer, SettingsStore& store) {
    for (const SettingRow& row : SettingRows)
        if (row.Writer == writer)
            store.Set(SettingsSection, row.WrittenKey, SettingText(settings, row));
}

bool SetSettingFromText(Settings& settings, TextView key, TextView value) {
    const auto* row = std::find_if(SettingRows.begin(), SettingRows.end(),
                                   [&](const SettingRow& r) { return IsKeyOf(r, key); });
    return row != SettingRows.end() && SetSetting(settings, *row, value);
}

}  // namespace mdlPLM
