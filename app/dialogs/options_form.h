// The options dialog without its widgets: which control stands for which setting.
#pragma once

#include <array>

#include "core/settings/settings.h"

namespace mdlPLM {

/// One check box of the options dialog and the setting that it shows.
struct OptionRow {
    const char* Control;
    bool Settings::*Value;
};

inline constexpr std::array OptionRows{
    OptionRow{"chkID3", &Settings::bID3},
    OptionRow{"chkExtension", &Settings::bExtension},
    OptionRow{"chkLowext", &Settings::bLowExtension},
    OptionRow{"chkUndtospace", &Settings::bScoreToSpace},
    OptionRow{"chk20tospace", &Settings::b20toSpace},
    OptionRow{"chkSpaces", &Settings::bSpaces},
    OptionRow{"chkParenth", &Settings::bParentheses},
    OptionRow{"chkReplace", &Settings::bReplace},
    OptionRow{"chkMisses", &Settings::bMisses},
    OptionRow{"chkSetAttributes", &Settings::bSetAttributes},
    OptionRow{"chkReadOnly", &Settings::bReadOnly},
    OptionRow{"chkHidden", &Settings::bHidden},
    OptionRow{"chkArchive", &Settings::bArhive},
    OptionRow{"chkRemoveChars", &Settings::bRemoveChars},
    OptionRow{"chkRemHiddenID3", &Settings::bRemHiddenID3},
    OptionRow{"chkOptimizeID3v1", &Settings::bOptimizedID3v1},
};

/// One entry box of the options dialog and the setting that it shows.
struct OptionTextRow {
    const char* Control;
    Text Settings::*Value;
};

inline constexpr std::array OptionTextRows{
    OptionTextRow{"txtExtension", &Settings::Extension},
    OptionTextRow{"txtRemoveChars", &Settings::strSettings},
};

/// Puts what the dialog edits, and nothing else, from `edited` into `inForce`.
void TakeOverOptions(const Settings& edited, Settings& inForce);

/// True for the keys that the extension box swallows: 22, the key that pastes, and the characters
/// "\", "/", ":", "?", "<", ">" and "|".
bool IsForbiddenInExtension(char16_t c);

}  // namespace mdlPLM
