// The chains of fixing rules over any text with any settings agree with a plain transcription, and
// bring no separator into a name unless a replacement or the extension does.
#include <algorithm>
#include <vector>

#include "core/names/fixing_rules.h"
#include "core/text/letter_case.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

Pos Length(TextView text) { return static_cast<Pos>(text.size()); }

// One character to an element; one beyond the basic plane holds both of its halves.
std::vector<Text> Characters(TextView text) {
    std::vector<Text> characters;
    for (const char16_t c : text) {
        const bool second = c >= 0xDC00 && c <= 0xDFFF && !characters.empty() &&
                            characters.back().size() == 1 && characters.back()[0] >= 0xD800 &&
                            characters.back()[0] <= 0xDBFF;
        if (second)
            characters.back() += c;
        else
            characters.emplace_back(1, c);
    }
    return characters;
}

Text Removed(TextView text, TextView chars) {
    const std::vector<Text> listed = Characters(chars);
    Text left;
    for (const Text& character : Characters(text))
        if (std::find(listed.begin(), listed.end(), character) == listed.end()) left += character;
    return left;
}

Text Repeated(Text text, TextView from, TextView to) {
    while (InStr(text, from) > 0) text = Replace(text, from, to);
    return text;
}

Text Legal(Text text) {
    for (const TextView blank : {u"\\", u"/", u":"}) text = Replace(text, blank, u" ");
    for (const TextView gone : {u"?", u"\""}) text = Replace(text, gone, u"");
    for (const TextView blank : {u"<", u">", u"|", u"*"}) text = Replace(text, blank, u" ");
    return text;
}

Text BlanksFor(Text text, const Settings& settings) {
    if (settings.b20toSpace) text = Replace(text, u"%20", u" ");
    if (settings.bScoreToSpace) text = Replace(text, u"_", u" ");
    return settings.bSpaces ? Repeated(text, u"  ", u" ") : text;
}

Text EndTidied(Text text, TextView ending, Pos cut) {
    if (LCase(Right(text, Length(ending))) != ending) return text;
    return Trim(Left(text, Length(text) - cut)) + u".mp3";
}

Text MissesFixed(Text text) {
    Pos dots = 0;
    for (const char16_t c : text) dots += c == u'.' ? 1 : 0;
    if (dots > 1) text = Replace(text, u".", u" ", dots - 1);
    text = Replace(text, u"() - ", u"", 1);
    text = Replace(text, u" - ()", u"", 1);
    if (InStr(text, u" - ") == 0) text = Replace(text, u" -", u" - ", 1);
    if (InStr(text, u" - ") == 0) text = Replace(text, u"- ", u" - ", 1);
    if (InStr(text, u" - ") == 0) text = Replace(text, u"-", u" - ", 2);
    text = EndTidied(text, u" .mp3", 4);
    if (Left(text, 3) == u" - ") text = Mid(text, 4);
    if (Left(text, 2) == u"- ") text = Mid(text, 3);
    text = EndTidied(text, u" - .mp3", 6);
    text = EndTidied(text, u" -.mp3", 5);
    return Trim(text);
}

bool StopsWalk(char16_t c) {
    return (c >= 97 && c <= 122) || (c >= 192 && c <= 255) || (c >= 64 && c <= 90) ||
           (c >= 48 && c <= 57);
}

// The search for the next blank begins before the first character.
Text Capitals(const Text& given) {
    Text text = LCase(given);
    if (text.empty()) return text;
    text[0] = UCase(text[0]);
    Text blanked = text;
    for (const TextView mark : {u"+", u"-", u"."}) blanked = Replace(blanked, mark, u" ");
    Pos handled = 0;
    for (Pos at = InStr(handled + 1, blanked, u" "); at > 0;
         at = InStr(handled + 1, blanked, u" ")) {
        while (at < Length(blanked) && !StopsWalk(blanked[static_cast<std::size_t>(at - 1)])) ++at;
        char16_t& letter = text[static_cast<std::size_t>(at - 1)];
        letter = UCase(letter);
        handled = at;
    }
    return text;
}

Text CaseChanged(const Text& text, const Settings& settings, bool firstLetterToo) {
    if (settings.Change == 1) return Capitals(text);
    if (settings.Change == 2 && firstLetterToo) return UCase(Left(text, 1)) + LCase(Mid(text, 2));
    if (settings.Change == 3) return UCase(text);
    return settings.Change == 4 ? LCase(text) : text;
}

Text Replaced(Text text, const ReplacementList& pairs) {
    for (const Replacement& pair : pairs) text = Replace(text, pair.Find, pair.Put);
    return text;
}

Text WithoutControls(Text text, const Settings& settings) {
    bool any = false;
    for (char16_t& c : text) {
        if (c >= 32 && c != 127) continue;
        c = u' ';
        any = true;
    }
    if (any && settings.bSpaces) text = Repeated(text, u"  ", u" ");
    return any && settings.bMisses ? Trim(text) : text;
}

Text WithExtension(Text text, const Settings& settings) {
    if (!settings.bExtension && !settings.bLowExtension) return text;
    const Pos dot = InStrRev(text, u".") > 0 ? InStrRev(text, u".") : Length(text);
    if (settings.bExtension) text = Left(text, dot) + settings.Extension;
    return settings.bLowExtension ? Left(text, dot) + LCase(Mid(text, dot + 1)) : text;
}

Text NameChain(Text text, const Settings& settings, const ReplacementList& pairs) {
    if (settings.bRemoveChars) text = Removed(text, settings.strSettings);
    text = BlanksFor(Legal(text), settings);
    text = Repeated(text, u"--", u"-");
    text = Repeated(text, u" - - ", u" - ");
    if (settings.bMisses) text = MissesFixed(text);
    text = CaseChanged(text, settings, false);
    if (settings.bReplace) {
        const Pos dot = InStrRev(text, u".");
        const Text extension = dot > 0 ? Mid(text, dot) : Text();
        text = Replaced(Left(text, Length(text) - Length(extension)), pairs) + extension;
        if (settings.bSpaces) text = Repeated(text, u"  ", u" ");
    }
    return WithoutControls(WithExtension(text, settings), settings);
}

Text TextChain(Text text, const Settings& settings, const ReplacementList& pairs) {
    text = Trim(text);
    if (settings.bParentheses && Left(text, 1) == u"(" && Right(text, 1) == u")")
        text = Trim(Mid(text, 2, Length(text) - 2));
    if (settings.bRemoveChars) text = Removed(text, settings.strSettings);
    text = BlanksFor(text, settings);
    if (settings.bMisses) {
        text = Replace(Replace(text, u"() - ", u"", 1), u" - ()", u"", 1);
        text = EndTidied(text, u" .mp3", 4);
        text = EndTidied(text, u" - .mp3", 6);
        text = Trim(EndTidied(text, u" -.mp3", 5));
    }
    text = CaseChanged(text, settings, true);
    if (settings.bReplace) text = Replaced(text, pairs);
    return settings.bSpaces ? Repeated(text, u"  ", u" ") : text;
}

bool HasForbidden(TextView name) { return name.find_first_of(u"\\/:?\"<>|*") != TextView::npos; }

bool HasControl(TextView name) {
    return std::any_of(name.begin(), name.end(), [](char16_t c) { return c < 32 || c == 127; });
}

}  // namespace

void FuzzRules(BytesView bytes) {
    Input input(bytes);
    const Settings settings = TakeSettings(input);
    const ReplacementList pairs = TakeReplacements(input);
    const Text text = input.LineText();
    const Text name = ApplyRules(FileNameRules(), text, {settings, pairs});
    RequireEqual(name, NameChain(text, settings, pairs), "the chain for names differs");
    RequireEqual(FixText(text, settings, pairs), TextChain(text, settings, pairs),
                 "the chain for texts differs");
    const bool brought = (settings.bReplace && HasForbidden(pairs[0].Put)) ||
                         (settings.bExtension && HasForbidden(settings.Extension));
    Require(brought || !HasForbidden(name), "a character that no name may hold");
    Require(!HasControl(name), "a control character in a name");
    Require(!HasForbidden(ReplaceIllegalCharacters(text)), "an illegal character stays");
    const Text kept = RemoveChars(text, settings.strSettings, RemoveMode::KeepOnly);
    const Text gone = RemoveChars(text, settings.strSettings, RemoveMode::Remove);
    Require(kept.size() + gone.size() == text.size(), "removed and kept are not all");
    RequireEqual(gone, Removed(text, settings.strSettings), "other characters are removed");
}

}  // namespace mdlPLM::fuzz
