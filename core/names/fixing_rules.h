// The rules that clean a file name or a tag text. Each rule is a function text -> text; the chain
// is an ordered list of them.
#pragma once

#include <vector>

#include "core/names/settings.h"

namespace mdlPLM {

/// Removes every character of `chars` from `text`, or keeps only those (in their order).
enum class RemoveMode { Remove, KeepOnly };
Text RemoveChars(TextView text, TextView chars, RemoveMode mode);

/// What a rule may look at.
struct RuleContext {
    const Settings& Values;
    const ReplacementList& Replacements;
};

/// One rule of a chain: applies itself only when its setting is on.
struct Rule {
    const char* Name;
    Text (*Apply)(const Text& text, const RuleContext& context);
};

/// The chain for file names, in order.
const std::vector<Rule>& FileNameRules();
/// The chain for single tag texts, in order.
const std::vector<Rule>& TagTextRules();

Text ApplyRules(const std::vector<Rule>& rules, Text text, const RuleContext& context);

/// "\", "/", ":", "<", ">", "|" and "*" become blanks; "?" and the double quote are removed.
Text ReplaceIllegalCharacters(TextView text);

/// First character upper, rest lower.
Text FirstLetterUpper(TextView text);

/// Cleans one tag text.
Text FixText(TextView text, const Settings& settings, const ReplacementList& replacements);

}  // namespace mdlPLM
