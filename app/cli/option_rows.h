// The commands and their options, as tables: the parser, the help and the tests walk them.
#pragma once

#include <vector>

#include "app/cli/options.h"

namespace mdlPLM::cli {

/// How many texts may stand behind one option.
enum class Values { One, UpToNextOption };

struct OptionRow {
    const char* Name;   ///< "--method"; several names are separated by commas
    const char* Value;  ///< what stands for its value in the help; nothing: a switch
    const char* Help;
    /// Takes the option's value (a switch: the empty text); false when it is none of its values.
    bool (*Take)(Request& request, const Bytes& text);
    Values Many = Values::One;
};

struct CommandRow {
    Command What;
    const char* Name;
    const char* Help;
    const char* Paths;  ///< help of its paths; nothing: it takes none
    bool TextFile;      ///< its one path is a text file
    std::vector<OptionRow> Options;
};

const std::vector<CommandRow>& CommandRows();
/// The options that every command takes but one that has nothing to choose.
const std::vector<OptionRow>& CommonRows();
bool TakesCommonRows(const CommandRow& command);

}  // namespace mdlPLM::cli
