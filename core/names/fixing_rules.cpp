#include "core/names/fixing_rules.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <utility>

#include "core/text/letter_case.h"
#include "core/text/surrogates.h"

namespace mdlPLM {

namespace {

constexpr TextView Mp3Ending = u".mp3";

bool Contains(TextView text, TextView what) { return text.find(what) != TextView::npos; }

void Lower(Text& text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char16_t c) { return LCase(c); });
}

void Upper(Text& text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char16_t c) { return UCase(c); });
}

Text RemoveFirst(Text text, TextView what) {
    const std::size_t at = text.find(what);
    if (at != Text::npos) text.erase(at, what.size());
    return text;
}

// Cuts `drop` characters off a text that ends in `ending` (lower case) and puts ".mp3" back.
Text TidyMp3Ending(Text text, TextView ending, Pos drop) {
    if (!EqualIgnoringCase(Right(text, static_cast<Pos>(ending.size())), ending)) return text;
    return Trim(Left(text, static_cast<Pos>(text.size()) - drop)).append(Mp3Ending);
}

class ListedCharacters {
public:
    explicit ListedCharacters(TextView chars) {
        while (!chars.empty()) {
            const TextView character = FirstCharacter(chars);
            if (character.size() == 1) {
                single_.set(character[0]);
            } else {
                pairs_.push_back(character);
            }
            chars.remove_prefix(character.size());
        }
    }
    [[nodiscard]] bool Contains(TextView character) const {
        if (character.size() == 1) return single_.test(character[0]);
        return std::find(pairs_.begin(), pairs_.end(), character) != pairs_.end();
    }

private:
    std::bitset<0x10000> single_;
    std::vector<TextView> pairs_;
};

bool IsControl(char16_t c) { return c < 0x20 || c == 0x7F; }

constexpr char16_t Gone = 0xFFFF;  // no character

// What becomes of each ASCII character in a file name.
constexpr std::array<char16_t, 0x80> MakeLegal() {
    std::array<char16_t, 0x80> legal{};
    for (std::size_t c = 0; c < legal.size(); ++c) legal[c] = static_cast<char16_t>(c);
    for (const char16_t c : {u'\\', u'/', u':', u'<', u'>', u'|', u'*'}) legal[c] = u' ';
    for (const char16_t c : {u'?', u'"'}) legal[c] = Gone;
    return legal;
}
constexpr std::array<char16_t, 0x80> Legal = MakeLegal();

// What stops the walk to the first character of a word. "@" (64) is among them on purpose.
constexpr bool StartsWord(char16_t c) {
    return (c >= 97 && c <= 122) || (c >= 192 && c <= 255) || (c >= 64 && c <= 90) ||
           (c >= 48 && c <= 57);
}

constexpr bool EndsWord(char16_t c) { return c == u' ' || c == u'+' || c == u'-' || c == u'.'; }

// --- the rules, in the order of the chains ---

Text TrimText(Text text, const RuleContext& /*context*/) {
    TrimInPlace(text);
    return text;
}

Text RemoveOuterParentheses(Text text, const RuleContext& context) {
    if (!context.Values.bParentheses || !StartsWith(text, u"(") || !EndsWith(text, u")"))
        return text;
    return Trim(Mid(text, 2, static_cast<Pos>(text.size()) - 2));
}

Text RemoveChosenCharacters(Text text, const RuleContext& context) {
    if (!context.Values.bRemoveChars) return text;
    return RemoveChars(text, context.Values.strSettings, RemoveMode::Remove);
}

Text BlankIllegalCharacters(Text text, const RuleContext& /*context*/) {
    return ReplaceIllegalCharacters(std::move(text));
}

Text Percent20ToSpace(Text text, const RuleContext& context) {
    if (!context.Values.b20toSpace || FindRare(text, u"%20") == Text::npos) return text;
    return Replace(text, u"%20", u" ");
}

Text UnderscoreToSpace(Text text, const RuleContext& context) {
    if (context.Values.bScoreToSpace) std::replace(text.begin(), text.end(), u'_', u' ');
    return text;
}

Text CollapseSpaces(Text text, const RuleContext& context) {
    if (!context.Values.bSpaces || !Contains(text, u"  ")) return text;
    return Collapse(text, u"  ", u" ");
}

Text CollapseDashes(Text text, const RuleContext& /*context*/) {
    if (FindRare(text, u"--") != Text::npos) text = Collapse(text, u"--", u"-");
    if (FindRare(text, u"- -") != Text::npos) text = Collapse(text, u" - - ", u" - ");
    return text;
}

Text KeepLastDotOnly(Text text, const RuleContext& context) {
    if (!context.Values.bMisses) return text;
    const auto last = text.rfind(u'.');
    if (last == Text::npos) return text;
    std::replace(text.begin(), text.begin() + static_cast<Pos>(last), u'.', u' ');
    return text;
}

Text RemoveEmptyParentheses(Text text, const RuleContext& context) {
    if (!context.Values.bMisses || FindRare(text, u"()") == Text::npos) return text;
    return RemoveFirst(RemoveFirst(std::move(text), u"() - "), u" - ()");
}

// The last try spaces two dashes, deliberately.
Text SpaceTheDash(Text text, const RuleContext& context) {
    if (!context.Values.bMisses) return text;
    if (!Contains(text, u" - ")) text = Replace(text, u" -", u" - ", 1);
    if (!Contains(text, u" - ")) text = Replace(text, u"- ", u" - ", 1);
    if (!Contains(text, u" - ")) text = Replace(text, u"-", u" - ", 2);
    return text;
}

Text TidySpaceBeforeMp3(Text text, const RuleContext& context) {
    if (!context.Values.bMisses) return text;
    return TidyMp3Ending(std::move(text), u" .mp3", 4);
}

Text DropLeadingDash(Text text, const RuleContext& context) {
    if (!context.Values.bMisses) return text;
    if (StartsWith(text, u" - ")) text.erase(0, 3);
    if (StartsWith(text, u"- ")) text.erase(0, 2);
    return text;
}

Text TidyDashBeforeMp3(Text text, const RuleContext& context) {
    if (!context.Values.bMisses) return text;
    text = TidyMp3Ending(std::move(text), u" - .mp3", 6);
    return TidyMp3Ending(std::move(text), u" -.mp3", 5);
}

Text TrimMisses(Text text, const RuleContext& context) {
    if (context.Values.bMisses) TrimInPlace(text);
    return text;
}

CaseOption CaseOf(const RuleContext& context) {
    return static_cast<CaseOption>(context.Values.Change);
}

// The first word is found again when the text starts with what separates words. The extension
// counts as a word: ".mp3" becomes ".Mp3" unless a later rule lowers it.
Text CapitaliseWords(Text text, const RuleContext& context) {
    if (CaseOf(context) != CaseOption::WordCapitals || text.empty()) return text;
    Lower(text);
    text[0] = UCase(text[0]);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!EndsWord(text[i])) continue;
        while (!StartsWord(text[i]) && i + 1 < text.size()) ++i;
        text[i] = UCase(text[i]);
    }
    return text;
}

Text CapitaliseFirstLetter(Text text, const RuleContext& context) {
    if (CaseOf(context) != CaseOption::FirstLetter) return text;
    return FirstLetterUpper(std::move(text));
}

Text AllUpper(Text text, const RuleContext& context) {
    if (CaseOf(context) == CaseOption::Upper) Upper(text);
    return text;
}

Text AllLower(Text text, const RuleContext& context) {
    if (CaseOf(context) == CaseOption::Lower) Lower(text);
    return text;
}

Text ReplacePairs(Text text, const RuleContext& context) {
    if (!context.Values.bReplace) return text;
    for (const Replacement& pair : context.Replacements) text = Replace(text, pair.Find, pair.Put);
    return text;
}

Text ReplacePairsInName(Text text, const RuleContext& context) {
    if (!context.Values.bReplace) return text;
    const Pos dot = InStrRev(text, u".");
    const Text extension = dot > 0 ? Mid(text, dot) : Text();
    if (dot > 0) text.resize(static_cast<std::size_t>(dot - 1));
    return CollapseSpaces(ReplacePairs(std::move(text), context).append(extension), context);
}

Text CollapseSpacesAgain(Text text, const RuleContext& context) {
    return CollapseSpaces(std::move(text), context);
}

// A name without a dot gets the extension appended with no dot between; kept on purpose.
Text ChangeExtension(Text text, const RuleContext& context) {
    const std::size_t dot = text.rfind(u'.');
    const std::size_t end = dot == Text::npos ? text.size() : dot + 1;
    if (context.Values.bExtension) text.replace(end, Text::npos, context.Values.Extension);
    if (context.Values.bLowExtension)
        std::transform(text.begin() + static_cast<Pos>(end), text.end(),
                       text.begin() + static_cast<Pos>(end), [](char16_t c) { return LCase(c); });
    return text;
}

// Collapsed and trimmed once more only where blanks have come: every other name stays as it is.
Text BlankControls(Text text, const RuleContext& context) {
    if (std::none_of(text.begin(), text.end(), IsControl)) return text;
    return TrimMisses(CollapseSpaces(BlankControlCharacters(std::move(text)), context), context);
}

}  // namespace

Text RemoveChars(TextView text, TextView chars, RemoveMode mode) {
    const ListedCharacters listed(chars);
    const bool keep = mode == RemoveMode::KeepOnly;
    Text result;
    result.reserve(text.size());
    while (!text.empty()) {
        const TextView character = FirstCharacter(text);
        if (listed.Contains(character) == keep) result.append(character);
        text.remove_prefix(character.size());
    }
    return result;
}

Text ReplaceIllegalCharacters(Text text) {
    std::size_t kept = 0;
    for (const char16_t c : text) {
        const bool ascii = c < Legal.size();
        if (ascii && Legal[c] == Gone) continue;
        text[kept++] = ascii ? Legal[c] : c;
    }
    text.resize(kept);
    return text;
}

Text BlankControlCharacters(Text text) {
    std::replace_if(text.begin(), text.end(), IsControl, u' ');
    return text;
}

// The first character as it stands: of some the small letter has another capital than they.
Text FirstLetterUpper(Text text) {
    if (text.empty()) return text;
    const char16_t first = UCase(text[0]);
    Lower(text);
    text[0] = first;
    return text;
}

const std::vector<Rule>& FileNameRules() {
    static const std::vector<Rule> rules = {
        {"remove characters", RemoveChosenCharacters},
        {"illegal characters", BlankIllegalCharacters},
        {"%20 to space", Percent20ToSpace},
        {"underscore to space", UnderscoreToSpace},
        {"multiple spaces", CollapseSpaces},
        {"multiple dashes", CollapseDashes},
        {"dots in the name", KeepLastDotOnly},
        {"empty parentheses", RemoveEmptyParentheses},
        {"unspaced dash", SpaceTheDash},
        {"space before .mp3", TidySpaceBeforeMp3},
        {"leading dash", DropLeadingDash},
        {"dash before .mp3", TidyDashBeforeMp3},
        {"trim", TrimMisses},
        {"word capitals", CapitaliseWords},
        {"upper case", AllUpper},
        {"lower case", AllLower},
        {"replacement list", ReplacePairsInName},
        {"extension", ChangeExtension},
        {"control characters", BlankControls},
    };
    return rules;
}

const std::vector<Rule>& TagTextRules() {
    static const std::vector<Rule> rules = {
        {"trim", TrimText},
        {"outer parentheses", RemoveOuterParentheses},
        {"remove characters", RemoveChosenCharacters},
        {"%20 to space", Percent20ToSpace},
        {"underscore to space", UnderscoreToSpace},
        {"multiple spaces", CollapseSpaces},
        {"empty parentheses", RemoveEmptyParentheses},
        {"space before .mp3", TidySpaceBeforeMp3},
        {"dash before .mp3", TidyDashBeforeMp3},
        {"trim again", TrimMisses},
        {"word capitals", CapitaliseWords},
        {"first letter", CapitaliseFirstLetter},
        {"upper case", AllUpper},
        {"lower case", AllLower},
        {"replacement list", ReplacePairs},
        {"multiple spaces again", CollapseSpacesAgain},
    };
    return rules;
}

Text ApplyRules(const std::vector<Rule>& rules, Text text, const RuleContext& context) {
    for (const Rule& rule : rules) text = rule.Apply(std::move(text), context);
    return text;
}

Text FixText(TextView text, const Settings& settings, const ReplacementList& replacements) {
    return ApplyRules(TagTextRules(), Text(text), {settings, replacements});
}

}  // namespace mdlPLM
