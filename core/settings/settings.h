// The settings in force, one field per key of the settings store, named like the key.
#pragma once

#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

/// Values of `Change`, the case option.
enum class CaseOption : int { None = 0, WordCapitals = 1, FirstLetter = 2, Upper = 3, Lower = 4 };
/// Values of `Move`, the method of the sort engine.
enum class SortMethod : int { Copy = 0, Move = 1, Rename = 2 };
/// Values of `FileExists`, what to do with a target that exists.
enum class IfExists : int { Prompt = 0, Skip = 1, Replace = 2 };

/// The characters that are removed by default (121 of them, see settings.cpp).
Text DefaultRemoveChars();

struct Settings {
    // Written by the main window when it closes.
    int Genre = 0;
    int Alphabetical = 0;
    int SubFolder = 0;
    int Convert = 1;
    long long txtSubFolder = 5;
    int FileExists = 0;
    int Move = 2;
    Text TargetDir;
    Text LastDir;
    Text InPattern = u"%artist - %title.mp3";
    Text OutPattern = u"%track - %artist - %title.mp3";
    // Written by the options dialog.
    bool bID3 = true;
    bool bExtension = true;
    Text Extension = u"mp3";
    bool bLowExtension = true;
    bool bScoreToSpace = true;
    bool b20toSpace = true;
    bool bSpaces = true;
    bool bParentheses = false;
    bool bReplace = false;
    bool bMisses = true;
    bool bSetAttributes = false;
    bool bReadOnly = false;
    bool bHidden = false;
    bool bArhive = false;  ///< read under "bArhive", written under "bArchive"; kept on purpose
    bool bRemoveChars = false;
    Text strSettings = DefaultRemoveChars();  ///< read "strSettings", written "strRemoveChars"
    bool bRemHiddenID3 = false;
    bool bOptimizedID3v1 = false;
    int Change = 1;
};

/// One pair of the replacement list.
struct Replacement {
    Text Find;
    Text Put;
    friend bool operator==(const Replacement& a, const Replacement& b) {
        return a.Find == b.Find && a.Put == b.Put;
    }
};
using ReplacementList = std::vector<Replacement>;

/// Everything a new name depends on beside the file itself. Holds references: lives shorter than
/// what it is made from.
struct NamingContext {
    const Settings& Values;
    const ReplacementList& Replacements;
    TextView InPattern;  ///< the input pattern in force (the combo box, not the stored one)
};

/// A copy of all that a naming context refers to, for work that goes on while settings, list and
/// pattern may change.
class KeptNaming {
public:
    explicit KeptNaming(const NamingContext& naming)
        : values_(naming.Values),
          replacements_(naming.Replacements),
          inPattern_(naming.InPattern) {}
    /// Refers to this copy.
    [[nodiscard]] NamingContext Context() const { return {values_, replacements_, inPattern_}; }

private:
    Settings values_;
    ReplacementList replacements_;
    Text inPattern_;
};

}  // namespace mdlPLM
