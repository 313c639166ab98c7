// The rules that clean a file name or a tag text. Each rule is a function text -> text; the chain
// is an ordered list of them.
#pragma once

#include <vector>

#include "core/settings/settings.h"

namespace mdlPLM {

/// Removes every character of `chars` from `text`, or keeps only those (in their order). A
/// character beyond the basic plane is one, never two halves.
enum class RemoveMode { Remove, KeepOnly };
Text RemoveChars(TextView text, TextView chars, RemoveMode mode);

/// What a rule may look at.
struct RuleContext {
    const Settings& Values;
    const ReplacementList& Replacements;
};

/// One rule of a chain: applies itself only when its setting is on. The text is handed from rule to
/// rule, so that a rule that has nothing to do copies nothing.
struct Rule {
    const char* Name;
    Text (*Apply)(Text text, const RuleContext& context);
};

/// The chain for file names, in order.
const std::vector<Rule>& FileNameRules();
/// The chain for single tag texts, in order.
const std::vector<Rule>& TagTextRules();

Text ApplyRules(const std::vector<Rule>& rules, Text text, const RuleContext& context);

/// "\", "/", ":", "<", ">", "|" and "*" become blanks; "?" and the double quote are removed.
Text ReplaceIllegalCharacters(Text text);

/// U+0000 to U+001F and U+007F become blanks.
Text BlankControlCharacters(Text text);

/// The first character in upper case, the others in lower case.
Text FirstLetterUpper(Text text);

/// Cleans one tag text.
Text FixText(TextView text, const Settings& settings, const ReplacementList& replacements);

}  // namespace mdlPLM
