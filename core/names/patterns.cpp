#include "core/names/patterns.h"

#include <algorithm>
#include <array>

#include "core/names/list_entry.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

struct Placeholder {
    TextView Word;  // with its "%"
    Text FieldValues::*Value;
    bool DigitsOnly;

    [[nodiscard]] TextView FieldName() const { return Word.substr(1); }
};

// In the order in which the output side fills them in.
constexpr std::array<Placeholder, 7> Placeholders = {{{u"%artist", &FieldValues::Artist, false},
                                                      {u"%title", &FieldValues::Title, false},
                                                      {u"%album", &FieldValues::Album, false},
                                                      {u"%track", &FieldValues::Track, true},
                                                      {u"%year", &FieldValues::Year, true},
                                                      {u"%genre", &FieldValues::Genre, false},
                                                      {u"%comment", &FieldValues::Comment, false}}};

const Placeholder* FindPlaceholder(TextView lowerFieldName) {
    const auto* const row = std::find_if(
        Placeholders.begin(), Placeholders.end(),
        [&](const Placeholder& placeholder) { return placeholder.FieldName() == lowerFieldName; });
    return row == Placeholders.end() ? nullptr : row;
}

// One place of the pattern; absent placeholders have position 0 and so sort to the front.
struct Slot {
    Pos At = 0;
    const Placeholder* Which = nullptr;
    TextView Separator;  // the literal text up to the next placeholder
};
using Slots = std::array<Slot, Placeholders.size()>;

Slots FindSlots(const Text& lower) {
    Slots slots;
    std::transform(Placeholders.begin(), Placeholders.end(), slots.begin(),
                   [&](const Placeholder& placeholder) {
                       return Slot{InStr(lower, placeholder.Word), &placeholder, {}};
                   });
    std::sort(slots.begin(), slots.end(), [](const Slot& a, const Slot& b) { return a.At < b.At; });
    return slots;
}

// The first slot is left out, and the last placeholder has no separator: the text behind it was
// taken off the end of the name instead.
void FindSeparators(TextView pattern, Slots& slots) {
    for (std::size_t i = 1; i + 1 < slots.size(); ++i) {
        if (slots[i].At < 1) continue;
        const auto begin = static_cast<std::size_t>(slots[i].At - 1) + slots[i].Which->Word.size();
        const auto end = static_cast<std::size_t>(slots[i + 1].At - 1);
        slots[i].Separator = pattern.substr(begin, end - begin);
    }
}

Text WithBackslashes(TextView path) {
    Text result(path);
    std::replace(result.begin(), result.end(), u'/', u'\\');
    return result;
}

// The last `levels` + 1 components of a path; empty when it has fewer.
TextView LastComponents(TextView path, std::ptrdiff_t levels) {
    for (std::size_t i = path.size(); i > 0; --i)
        if (path[i - 1] == u'\\' && levels-- == 0) return path.substr(i);
    return {};
}

// How the name is taken from what was given.
using NamePart = Text (*)(TextView);

// What was given, and how it is to be read.
struct Subject {
    TextView Given;
    NamePart Name;
};

Text NameToMatch(const Subject& subject, TextView pattern, const Settings& settings) {
    const Text path = WithBackslashes(subject.Given);
    const auto levels = std::count(pattern.begin(), pattern.end(), u'\\');
    Text name = levels > 0 && path.find(u'\\') != Text::npos ? Text(LastComponents(path, levels))
                                                             : subject.Name(path);
    if (settings.b20toSpace) name = Replace(name, u"%20", u" ");
    if (settings.bScoreToSpace) std::replace(name.begin(), name.end(), u'_', u' ');
    return name;
}

// Makes the name end in four characters right behind its last field, which Extract relies on. The
// length of the requested word is taken even when another field is the last one; kept on purpose.
Text WithPlainEnd(const Text& name, Pos tail, const Settings& settings) {
    Text head = Left(name, static_cast<Pos>(name.size()) - tail);
    return settings.bExtension ? head.append(u".").append(settings.Extension)
                               : head.append(Right(name, 4));
}

// A separator that is missing or found at once lets the field take the rest of the name less its
// last four characters. The first slot is never visited, so a pattern with all seven placeholders
// has no first field; kept on purpose.
Text Extract(const Text& name, const Slots& slots, const Placeholder& wanted) {
    Pos start = 0;
    Pos length = 0;
    for (std::size_t k = 1; k < slots.size(); ++k) {
        if (slots[k].At < 1) continue;
        start += length + static_cast<Pos>(slots[k - 1].Separator.size());
        start = std::max<Pos>(start, 1);
        length = InStr(start, name, slots[k].Separator) - start;
        if (length < 1) length = std::max<Pos>(static_cast<Pos>(name.size()) - start - 3, 0);
        if (slots[k].Which == &wanted) return Trim(Mid(name, start, length));
    }
    return {};
}

// In one pass: in place, each one found would move all that stands behind it, and a pattern of many
// millions of characters would never come to its end.
void ReplaceFrom(std::size_t start, Text& text, TextView from, TextView to) {
    std::size_t found = FindRare(text, from, start);
    if (found == Text::npos) return;
    Text replaced;
    replaced.reserve(text.size() + to.size());
    std::size_t done = 0;
    for (; found != Text::npos; found = FindRare(text, from, done)) {
        replaced.append(text, done, found - done).append(to);
        done = found + from.size();
    }
    text = replaced.append(text, done, Text::npos);
}

Text Fill(TextView pattern, const FieldValues& values) {
    Text result(pattern);
    for (const Placeholder& placeholder : Placeholders) {
        const std::size_t first = FindRare(result, u"%");
        if (first == Text::npos) break;
        ReplaceFrom(first, result, placeholder.Word, values.*placeholder.Value);
    }
    return result;
}

constexpr TextView ForbiddenInPaths = u":?\"<>|*";
constexpr TextView Separators = u"/\\";

Text Field(const Subject& subject, TextView fieldName, TextView pattern, const Settings& settings) {
    const Placeholder* const wanted = FindPlaceholder(LCase(fieldName));
    if (wanted == nullptr || Trim(subject.Given).empty()) return {};
    const Text lower = LCase(pattern);
    if (lower.find(wanted->Word) == Text::npos) return {};
    Slots slots = FindSlots(lower);
    const Text levelled = WithBackslashes(pattern);
    FindSeparators(levelled, slots);

    Text name = Mid(NameToMatch(subject, levelled, settings), InStr(levelled, u"%"));
    const Pos tail = static_cast<Pos>(levelled.size()) - slots.back().At -
                     static_cast<Pos>(wanted->FieldName().size());
    name = WithPlainEnd(name, tail, settings);
    Text field = Extract(name, slots, *wanted);
    return wanted->DigitsOnly && !IsAllDigits(field) ? Text() : field;
}

}  // namespace

Text GetFieldFromPattern(TextView fileName, TextView fieldName, TextView pattern,
                         const Settings& settings) {
    return Field({fileName, GetListEntryFileName}, fieldName, pattern, settings);
}

Text GetFieldFromPath(TextView path, TextView fieldName, TextView pattern,
                      const Settings& settings) {
    return Field({path, FileNameOfPath}, fieldName, pattern, settings);
}

Text FillPattern(TextView outPattern, const FieldValues& values, const Settings& settings,
                 bool& filled) {
    Text result = Fill(outPattern, values);
    const TextView trimmed = Trimmed(result);
    // Longer than the pattern is longer than the pattern without its placeholders.
    const bool longer = trimmed.size() > outPattern.size();
    filled = (longer || trimmed != Trimmed(Fill(outPattern, {}))) &&
             trimmed != u"." + settings.Extension;
    return result;
}

bool IsForbiddenInInPattern(char16_t c) { return ForbiddenInPaths.find(c) != TextView::npos; }

bool IsForbiddenInOutPattern(char16_t c) {
    return IsForbiddenInInPattern(c) || Separators.find(c) != TextView::npos;
}

}  // namespace mdlPLM
