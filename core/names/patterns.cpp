#include "core/names/patterns.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "core/names/list_entry.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

using Fields = std::span<const NameField>;

const NameField* FindField(Fields fields, TextView lowerWord) {
    const auto row = std::find_if(fields.begin(), fields.end(), [&](const NameField& field) {
        return field.Word() == lowerWord;
    });
    return row == fields.end() ? nullptr : &*row;
}

// One place of the pattern that holds a placeholder.
struct Slot {
    Pos At = 0;
    const NameField* Which = nullptr;
    TextView Separator;  // the literal text up to the next placeholder
};

// In the order of the pattern.
class Slots {
public:
    Slots(Fields fields, TextView lowerPattern) {
        for (const NameField& field : fields) {
            const Pos at = InStr(lowerPattern, field.Placeholder);
            if (at > 0) Insert({at, &field, {}});
            allSeven_ = allSeven_ && (at > 0 || !field.OfTheSeven);
        }
    }
    [[nodiscard]] Slot* begin() { return slots_.data(); }
    [[nodiscard]] Slot* end() { return begin() + count_; }

    // A pattern with all seven has no first field; kept on purpose. What was added to the seven
    // later neither brings that about nor loses its own value.
    void DropFirstOfAllSeven() {
        if (!allSeven_) return;
        Slot* const first =
            std::find_if(begin(), end(), [](const Slot& slot) { return slot.Which->OfTheSeven; });
        if (first == end()) return;
        std::move(first + 1, end(), first);
        --count_;
    }

private:
    void Insert(const Slot& slot) {
        Slot* const place =
            std::find_if(begin(), end(), [&](const Slot& other) { return other.At > slot.At; });
        std::move_backward(place, end(), end() + 1);
        *place = slot;
        ++count_;
    }

    std::array<Slot, PatternRules::MostFields> slots_;
    std::size_t count_ = 0;
    bool allSeven_ = true;
};

// The last placeholder has no separator: the text behind it was taken off the end of the name
// instead.
void FindSeparators(TextView pattern, Slots& slots) {
    for (Slot* slot = slots.begin(); slot + 1 < slots.end(); ++slot) {
        const auto begin = static_cast<std::size_t>(slot->At - 1) + slot->Which->Placeholder.size();
        const auto end = static_cast<std::size_t>(slot[1].At - 1);
        slot->Separator = pattern.substr(begin, end - begin);
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

struct Wish {
    TextView FieldName;
    TextView Pattern;
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
// last four characters.
Text Extract(const Text& name, Slots& slots, const NameField& wanted) {
    Pos start = 0;
    Pos length = 0;
    Pos separator = 0;  // behind the field before
    for (const Slot& slot : slots) {
        start = std::max<Pos>(start + length + separator, 1);
        length = InStr(start, name, slot.Separator) - start;
        if (length < 1) length = std::max<Pos>(static_cast<Pos>(name.size()) - start - 3, 0);
        if (slot.Which == &wanted) return Trim(Mid(name, start, length));
        separator = static_cast<Pos>(slot.Separator.size());
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

constexpr TextView ForbiddenInPaths = u":?\"<>|*";
constexpr TextView Separators = u"/\\";

Text Field(Fields fields, const Subject& subject, const Wish& wish, const Settings& settings) {
    const NameField* const wanted = FindField(fields, LCase(wish.FieldName));
    if (wanted == nullptr || Trim(subject.Given).empty()) return {};
    const Text lower = LCase(wish.Pattern);
    if (lower.find(wanted->Placeholder) == Text::npos) return {};
    Slots slots(fields, lower);
    const Text levelled = WithBackslashes(wish.Pattern);
    FindSeparators(levelled, slots);
    const Pos last = std::prev(slots.end())->At;
    slots.DropFirstOfAllSeven();

    Text name = Mid(NameToMatch(subject, levelled, settings), InStr(levelled, u"%"));
    const Pos tail =
        static_cast<Pos>(levelled.size()) - last - static_cast<Pos>(wanted->Word().size());
    name = WithPlainEnd(name, tail, settings);
    Text field = Extract(name, slots, *wanted);
    return wanted->DigitsOnly && !IsAllDigits(field) ? Text() : field;
}

constexpr PatternRules Rules(NameFields);

}  // namespace

Text PatternRules::FromEntry(TextView entry, TextView fieldName, TextView pattern,
                             const Settings& settings) const {
    return Field(fields_, {entry, GetListEntryFileName}, {fieldName, pattern}, settings);
}

Text PatternRules::FromPath(TextView path, TextView fieldName, TextView pattern,
                            const Settings& settings) const {
    return Field(fields_, {path, FileNameOfPath}, {fieldName, pattern}, settings);
}

Text PatternRules::Filled(TextView pattern, const FieldValues& values) const {
    Text result(pattern);
    for (const NameField& field : fields_) {
        const std::size_t first = FindRare(result, u"%");
        if (first == Text::npos) break;
        ReplaceFrom(first, result, field.Placeholder, values.*field.Value);
    }
    return result;
}

Text GetFieldFromPattern(TextView fileName, TextView fieldName, TextView pattern,
                         const Settings& settings) {
    return Rules.FromEntry(fileName, fieldName, pattern, settings);
}

Text GetFieldFromPath(TextView path, TextView fieldName, TextView pattern,
                      const Settings& settings) {
    return Rules.FromPath(path, fieldName, pattern, settings);
}

Text FillPattern(TextView outPattern, const FieldValues& values, const Settings& settings,
                 bool& filled) {
    Text result = Rules.Filled(outPattern, values);
    const TextView trimmed = Trimmed(result);
    // Longer than the pattern is longer than the pattern without its placeholders.
    const bool longer = trimmed.size() > outPattern.size();
    filled = (longer || trimmed != Trimmed(Rules.Filled(outPattern, {}))) &&
             trimmed != u"." + settings.Extension;
    return result;
}

bool IsForbiddenInInPattern(char16_t c) { return ForbiddenInPaths.find(c) != TextView::npos; }

bool IsForbiddenInOutPattern(char16_t c) {
    return IsForbiddenInInPattern(c) || Separators.find(c) != TextView::npos;
}

}  // namespace mdlPLM
