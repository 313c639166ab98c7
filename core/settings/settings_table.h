// The one table of the settings: key, field, who writes it and which values it takes. Reading,
// writing, the command line and the tests walk it. The defaults are those of a fresh Settings.
#pragma once

#include <algorithm>
#include <array>
#include <limits>
#include <variant>

#include "core/settings/settings_store.h"

namespace mdlPLM {

inline constexpr TextView SettingsSection = u"Settings";

using SettingField =
    std::variant<int Settings::*, long long Settings::*, bool Settings::*, Text Settings::*>;

struct SettingRow {
    TextView ReadKey;
    TextView WrittenKey;
    WrittenBy Writer;
    SettingField Field;
    int Low = 0;  ///< the range of an integer: a value outside is as good as none
    int High = 1;
};

/// The rows, and those of them that are written under another key than they are read under: kept on
/// purpose, so that each start begins with their defaults.
inline constexpr std::array<SettingRow, 30> SettingRows = {{
    {u"Genre", u"Genre", WrittenBy::MainWindow, &Settings::Genre},
    {u"Alphabetical", u"Alphabetical", WrittenBy::MainWindow, &Settings::Alphabetical},
    {u"SubFolder", u"SubFolder", WrittenBy::MainWindow, &Settings::SubFolder},
    {u"Convert", u"Convert", WrittenBy::MainWindow, &Settings::Convert},
    {u"txtSubFolder", u"txtSubFolder", WrittenBy::MainWindow, &Settings::txtSubFolder},
    {u"FileExists", u"FileExists", WrittenBy::MainWindow, &Settings::FileExists, 0, 2},
    {u"Move", u"Move", WrittenBy::MainWindow, &Settings::Move, 0, 2},
    {u"TargetDir", u"TargetDir", WrittenBy::MainWindow, &Settings::TargetDir},
    {u"LastDir", u"LastDir", WrittenBy::MainWindow, &Settings::LastDir},
    {u"InPattern", u"InPattern", WrittenBy::MainWindow, &Settings::InPattern},
    {u"OutPattern", u"OutPattern", WrittenBy::MainWindow, &Settings::OutPattern},
    {u"bID3", u"bID3", WrittenBy::OptionsDialog, &Settings::bID3},
    {u"bExtension", u"bExtension", WrittenBy::OptionsDialog, &Settings::bExtension},
    {u"Extension", u"Extension", WrittenBy::OptionsDialog, &Settings::Extension},
    {u"bLowExtension", u"bLowExtension", WrittenBy::OptionsDialog, &Settings::bLowExtension},
    {u"bScoreToSpace", u"bScoreToSpace", WrittenBy::OptionsDialog, &Settings::bScoreToSpace},
    {u"b20toSpace", u"b20toSpace", WrittenBy::OptionsDialog, &Settings::b20toSpace},
    {u"bSpaces", u"bSpaces", WrittenBy::OptionsDialog, &Settings::bSpaces},
    {u"bParentheses", u"bParentheses", WrittenBy::OptionsDialog, &Settings::bParentheses},
    {u"bReplace", u"bReplace", WrittenBy::OptionsDialog, &Settings::bReplace},
    {u"bMisses", u"bMisses", WrittenBy::OptionsDialog, &Settings::bMisses},
    {u"bSetAttributes", u"bSetAttributes", WrittenBy::OptionsDialog, &Settings::bSetAttributes},
    {u"bReadOnly", u"bReadOnly", WrittenBy::OptionsDialog, &Settings::bReadOnly},
    {u"bHidden", u"bHidden", WrittenBy::OptionsDialog, &Settings::bHidden},
    {u"bArhive", u"bArchive", WrittenBy::OptionsDialog, &Settings::bArhive},
    {u"bRemoveChars", u"bRemoveChars", WrittenBy::OptionsDialog, &Settings::bRemoveChars},
    {u"strSettings", u"strRemoveChars", WrittenBy::OptionsDialog, &Settings::strSettings},
    {u"bRemHiddenID3", u"bRemHiddenID3", WrittenBy::OptionsDialog, &Settings::bRemHiddenID3},
    {u"bOptimizedID3v1", u"bOptimizedID3v1", WrittenBy::OptionsDialog, &Settings::bOptimizedID3v1},
    {u"Change", u"Change", WrittenBy::OptionsDialog, &Settings::Change, 0, 4},
}};

/// The row of a field. Each field has one.
constexpr const SettingRow& RowOfSetting(const SettingField& field) {
    return *std::find_if(SettingRows.begin(), SettingRows.end(),
                         [&](const SettingRow& row) { return row.Field == field; });
}

/// How many settings one writer saves.
constexpr std::size_t CountWrittenBy(WrittenBy writer) {
    return static_cast<std::size_t>(
        std::count_if(SettingRows.begin(), SettingRows.end(),
                      [&](const SettingRow& row) { return row.Writer == writer; }));
}

/// A field as the store writes it.
Text SettingText(const Settings& settings, const SettingRow& row);

/// A field from its text; false when the text does not convert, and the field then stays.
bool SetSetting(Settings& settings, const SettingRow& row, TextView text);

}  // namespace mdlPLM
