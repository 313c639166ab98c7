// The settings store: an INI file with one value per key, section [Settings]. Read once at load;
// each group of keys is written at its own moment (see settings_table.h).
#pragma once

#include <vector>

#include "core/platform/errors.h"
#include "core/settings/settings.h"
#include "core/text/language.h"

namespace mdlPLM {

/// The most that a settings file has: a larger one is damaged.
inline constexpr std::size_t LargestStore = std::size_t{1} << 20;

/// One line of the file, taken apart. Lines that hold no key are kept as they stand.
struct StoreLine {
    Text Section;
    Text Key;  ///< empty: a section's head, a comment, a blank or damaged line
    Text Value;
    Text Raw;  ///< the line as it stands in the file, without its line feed
};

/// The lines of a settings file, and back.
///
/// A value stands as it is: "Key=value". One that would not survive so (blanks at its ends, a
/// double quote in front, control characters, halves of surrogate pairs) is put between double
/// quotes, with \\, \" and \uXXXX inside; other backslashes are just that.
std::vector<StoreLine> ParseStore(TextView contents);
Text RenderStore(const std::vector<StoreLine>& lines);

/// An INI file in memory. What it does not know (other sections, comments) it keeps when written.
/// Sections and keys are found in any letter case; of a key that is there twice the last counts.
class SettingsStore {
public:
    /// The store at `path`; nothing is read yet.
    explicit SettingsStore(Text path);

    /// The user's own store: "PLM.ini" in the configuration folder.
    static Text DefaultPath();

    /// Reads the file. A missing file is an empty store and no error; a damaged line is passed
    /// over; a file that is larger than a settings file can be is Overflow.
    Status Load();
    /// Writes what was set since into the file as it stands now, so that another running program's
    /// changes to other keys stay, in one atomic step; creates its folder. A file that is there and
    /// cannot be read, or could not be read by Load, is not replaced: the error is that of reading.
    Status Save();

    [[nodiscard]] Text Get(TextView section, TextView key, TextView defaultValue) const;
    void Set(TextView section, TextView key, TextView value);
    [[nodiscard]] const Text& Path() const { return path_; }

private:
    Text path_;
    std::vector<StoreLine> lines_;
    std::vector<StoreLine> changes_;  // set since the last load or save
    Status loaded_;                   // of the last load
};

/// Why a store could not be read, and what can be done about it.
Text UnreadStoreText(Status read, const Language& words = {});

/// Who writes a key.
enum class WrittenBy { MainWindow, OptionsDialog };

/// All keys of the table with their defaults. `programFolder` is the default of the two folders.
Settings LoadSettings(const SettingsStore& store, TextView programFolder);

/// Puts the keys of one writer into the store (without saving it).
void StoreSettings(const Settings& settings, WrittenBy writer, SettingsStore& store);

/// Sets one key of the table from its text as the store would; false, with nothing set, for a key
/// not in the table (either spelling of the differing pairs is) and for a text that does not
/// convert.
bool SetSettingFromText(Settings& settings, TextView key, TextView value);

}  // namespace mdlPLM
