// The settings store: an INI file with one value per key, section [Settings]. Read once at load;
// each group of keys is written at its own moment (see the table in settings_store.cpp).
#pragma once

#include <map>
#include <string>

#include "core/names/settings.h"
#include "core/platform/errors.h"

namespace mdlPLM {

/// An INI file in memory. What it does not know (other sections, comments) it keeps when written.
class SettingsStore {
public:
    /// The store at `path`; nothing is read yet.
    explicit SettingsStore(Text path);

    /// The user's own store: "PLM.ini" in the configuration folder.
    static Text DefaultPath();

    /// Reads the file. A missing file is an empty store and no error; a damaged line is passed
    /// over.
    Status Load();
    /// Writes the file in one atomic step, creating its folder.
    Status Save();

    [[nodiscard]] Text Get(TextView section, TextView key, TextView defaultValue) const;
    void Set(TextView section, TextView key, TextView value);
    [[nodiscard]] const Text& Path() const { return path_; }

private:
    struct Line {
        Text Section;
        Text Key;    ///< empty: kept as it stands
        Text Value;  ///< the value, or the raw line
    };
    Text path_;
    std::vector<Line> lines_;
};

/// Who writes a key.
enum class WrittenBy { MainWindow, OptionsDialog };

/// All keys of the table with their defaults. `programFolder` is the default of the two folders.
Settings LoadSettings(const SettingsStore& store, TextView programFolder);

/// Puts the keys of one writer into the store (without saving it).
void StoreSettings(const Settings& settings, WrittenBy writer, SettingsStore& store);

/// Sets one key of the table from its text as the store would; false for a key not in the table.
bool SetSettingFromText(Settings& settings, TextView key, TextView value);

}  // namespace mdlPLM
