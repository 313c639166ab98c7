// Patterns of any content: the parse agrees with a plain transcription of its working arrays, and
// filling agrees with one replacement after the other.
#include <utility>

#include "core/names/list_entry.h"
#include "core/names/patterns.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

// In the order in which their positions are noted.
constexpr TextView Words[] = {u"artist", u"title", u"album",  u"track",
                              u"genre",  u"year",  u"comment"};

Pos Length(TextView text) { return static_cast<Pos>(text.size()); }

// How the name is taken where the pattern names no folders.
using NamePart = Text (*)(TextView);

Text Name(TextView file, TextView pattern, const Settings& settings, NamePart part) {
    Pos levels = 0;
    for (const char16_t c : pattern) levels += c == u'\\' ? 1 : 0;
    Text name;
    if (InStr(file, u"\\") > 0 && levels > 0) {
        Pos met = 0;
        for (Pos i = Length(file); i >= 1; --i) {
            if (Mid(file, i, 1) != u"\\") continue;
            if (met == levels) {
                name = Mid(file, i + 1);
                break;
            }
            ++met;
        }
    } else {
        name = part(file);
    }
    if (settings.b20toSpace) name = Replace(name, u"%20", u" ");
    if (settings.bScoreToSpace) name = Replace(name, u"_", u" ");
    return Mid(name, InStr(pattern, u"%"));
}

struct Subject {
    TextView FileName;
    NamePart Part;
};

Text Transcribed(const Subject& subject, TextView field, TextView inPattern,
                 const Settings& settings) {
    const TextView fileName = subject.FileName;
    const Text pattern = Replace(inPattern, u"/", u"\\");
    const Text lower = LCase(pattern);
    if (Trim(fileName).empty() || InStr(lower, u"%" + LCase(field)) == 0) return {};
    Text name = Name(Replace(fileName, u"/", u"\\"), pattern, settings, subject.Part);
    Pos pos[8] = {};
    Pos own[7] = {};
    for (int i = 0; i < 7; ++i) own[i] = pos[i] = InStr(lower, u"%" + Text(Words[i]));
    for (int i = 0; i <= 5; ++i)
        for (int j = 1; j <= 6; ++j)
            if (i < j && pos[j] < pos[i]) std::swap(pos[j], pos[i]);
    const auto wordAt = [&](Pos at) {
        int word = 0;
        while (own[word] != at) ++word;
        return word;
    };
    if (pos[6] > 0) {
        const Pos tail = Length(pattern) - pos[6] - Length(field);
        const Text head = Left(name, Length(name) - tail);
        name = settings.bExtension ? head + u"." + settings.Extension : head + Right(name, 4);
    }
    Text sep[7];
    for (int i = 1; i <= 6; ++i) {
        if (pos[i] < 1 || pos[i + 1] < 1 || pos[i + 1] <= pos[i]) continue;
        const Pos begin = pos[i] + Length(Words[wordAt(pos[i])]) + 1;
        sep[i] = Mid(pattern, begin, pos[i + 1] - begin);
    }
    Pos start = 0;
    Pos length = 0;
    for (int k = 1; k <= 6; ++k) {
        if (pos[k] <= 0) continue;
        start += length + Length(sep[k - 1]);
        if (start < 1) start = 1;
        length = InStr(start, name, sep[k]) - start;
        if (length < 1) length = Length(name) - start - 3;
        if (length < 0) length = 0;
        const TextView word = Words[wordAt(pos[k])];
        if (word != LCase(field)) continue;
        const Text value = Trim(Mid(name, start, length));
        const bool number = word == u"track" || word == u"year";
        return number && !IsAllDigits(value) ? Text() : value;
    }
    return {};
}

Text FilledPlainly(Text pattern, const FieldValues& values) {
    for (const NameField& field : NameFields)
        pattern = Replace(pattern, field.Placeholder, values.*field.Value);
    return pattern;
}

}  // namespace

void FuzzPatterns(BytesView bytes) {
    Input input(bytes);
    const Settings settings = TakeSettings(input);
    const Text path = input.LineText();
    const Text inPattern = input.LineText();
    const Text outPattern = input.LineText();
    FieldValues values;
    for (const NameField& field : NameFields) {
        values.*field.Value = GetFieldFromPattern(path, field.Word(), inPattern, settings);
        RequireEqual(values.*field.Value,
                     Transcribed({path, GetListEntryFileName}, field.Word(), inPattern, settings),
                     "the pattern parse differs");
        RequireEqual(GetFieldFromPath(path, field.Word(), inPattern, settings),
                     Transcribed({path, FileNameOfPath}, field.Word(), inPattern, settings),
                     "the parse of a path differs");
        RequireEqual(GetFieldFromPattern(path, UCase(field.Word()), inPattern, settings),
                     values.*field.Value, "the case of a field's word matters");
    }
    for (const NameField& field : NameFields)
        if (const Text own = input.LineText(); !own.empty()) values.*field.Value = own;
    bool filled = false;
    const Text name = FillPattern(outPattern, values, settings, filled);
    RequireEqual(name, FilledPlainly(outPattern, values), "the filled pattern differs");
    const Text skeleton = Trim(FilledPlainly(outPattern, {}));
    const bool expected = Trim(name) != skeleton && Trim(name) != u"." + settings.Extension;
    Require(filled == expected, "filled is told wrongly");
    Require(GetFieldFromPattern(path, inPattern, inPattern, settings).size() <=
                path.size() + settings.Extension.size() + 1,
            "a field is longer than its name");
}

}  // namespace mdlPLM::fuzz
