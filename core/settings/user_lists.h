// The three text files beside the program: "replaces.txt", "inpattern.txt", "outpattern.txt".
#pragma once

#include <vector>

#include "core/platform/errors.h"
#include "core/settings/settings.h"

namespace mdlPLM {

inline constexpr TextView ReplacesFile = u"replaces.txt";

/// Lines of a text whose lines end in CR LF, LF or CR; a last line without an end counts.
std::vector<Text> SplitLines(TextView text);

/// Lines joined, each ended by CR LF.
Text JoinLines(const std::vector<Text>& lines);

/// Lines taken two at a time; an odd last line is a pair that deletes its text. Never empty: no
/// lines give one pair of two empty texts.
ReplacementList ParseReplacements(TextView contents);
Text RenderReplacements(const ReplacementList& list);

/// Every line that is not blank, untrimmed, in file order.
std::vector<Text> ParsePatterns(TextView contents);

/// Whether the program in this folder came from a package or an installation: those put its help
/// into "../share/pellmore".
bool IsInstalled(TextView programFolder);

/// Where the three files are: the folder of a program that is not installed when it can be written,
/// else the data folder, which takes over the ones beside the program the first time. With trailing
/// separator.
Text UserListsFolder(TextView programFolder, TextView dataFolder);

/// Reads a list file; a missing one is created empty and read as empty.
ReplacementList LoadReplacements(TextView folder);
Status SaveReplacements(TextView folder, const ReplacementList& list);
std::vector<Text> LoadInPatterns(TextView folder);
std::vector<Text> LoadOutPatterns(TextView folder);

}  // namespace mdlPLM
