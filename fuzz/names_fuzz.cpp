// Names and patterns of any content: nothing crashes, a name holds no forbidden character, and the
// pattern parse agrees with a plain transcription of its working arrays.
#include <cstdio>
#include <cstdlib>

#include "app/namefromtext/line_scan.h"
#include "app/namefromtext/pre_scan.h"
#include "core/names/fix_file_name.h"
#include "core/names/fixing_rules.h"
#include "core/names/list_entry.h"
#include "core/text/letter_case.h"

namespace {

using namespace mdlPLM;

constexpr TextView Words[] = {u"artist", u"title", u"album",  u"track",
                              u"genre",  u"year",  u"comment"};

void Require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

// Takes the input apart from its end.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    unsigned Byte() { return size_ == 0 ? 0 : data_[--size_]; }
    bool Flag() { return Byte() % 2 != 0; }
    // Texts are made of a few characters that matter and some that do not.
    Text String() {
        constexpr TextView alphabet = u" -._%/\\()+:?\"<>|*\r\n0123aAbz\u00E5\u00C5\u0178\u0416";
        Text text;
        for (unsigned left = Byte() % 48; left > 0; --left) {
            const unsigned code = Byte();
            if (code >= 0xE0)
                text.append(u"%").append(Words[code % 7]);
            else if (code >= 0xD8)
                text.append(code % 2 == 0 ? u" - " : u".mp3");
            else if (code >= 0xD0)
                text.push_back(static_cast<char16_t>(Byte() << 8 | Byte()));
            else
                text.push_back(alphabet[code % alphabet.size()]);
        }
        return text;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

Settings AnySettings(Input& input) {
    Settings settings;
    for (bool Settings::*option :
         {&Settings::bID3, &Settings::bExtension, &Settings::bLowExtension,
          &Settings::bScoreToSpace, &Settings::b20toSpace, &Settings::bSpaces,
          &Settings::bParentheses, &Settings::bReplace, &Settings::bMisses, &Settings::bRemoveChars,
          &Settings::bOptimizedID3v1})
        settings.*option = input.Flag();
    settings.Change = static_cast<int>(input.Byte() % 5);
    if (input.Flag()) settings.Extension = input.String();
    if (input.Flag()) settings.strSettings = input.String();
    return settings;
}

Pos Length(TextView text) { return static_cast<Pos>(text.size()); }

Text Name(TextView file, TextView pattern, const Settings& settings) {
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
        name = GetListEntryFileName(file);
    }
    if (settings.b20toSpace) name = Replace(name, u"%20", u" ");
    if (settings.bScoreToSpace) name = Replace(name, u"_", u" ");
    return Mid(name, InStr(pattern, u"%"));
}

Text Transcribed(TextView fileName, TextView field, TextView inPattern, const Settings& settings) {
    const Text pattern = Replace(inPattern, u"/", u"\\");
    const Text lower = LCase(pattern);
    if (Trim(fileName).empty() || InStr(lower, u"%" + LCase(field)) == 0) return {};
    Text name = Name(Replace(fileName, u"/", u"\\"), pattern, settings);
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

bool IsClean(TextView name) { return name.find_first_of(u"\\/:?\"<>|*") == TextView::npos; }

void CheckNames(Input& input) {
    const Settings settings = AnySettings(input);
    const ReplacementList pairs = {{input.String(), input.String()}};
    const Text inPattern = input.String();
    const Text outPattern = input.String();
    const Text path = input.String();
    const NamingContext context{settings, pairs, inPattern};
    for (const TextView word : Words)
        Require(GetFieldFromPattern(path, word, inPattern, settings) ==
                    Transcribed(path, word, inPattern, settings),
                "the pattern parse differs");
    TagBoxes boxes;
    boxes.chkID3v1 = input.Flag();
    boxes.txtTitle = input.String();
    boxes.txtV2Artist = input.String();
    const Text name = FixFileName2(path, outPattern, boxes, context);
    if (!settings.bReplace && !settings.bExtension)
        Require(IsClean(name), "a name with a forbidden character");
    FixText(path, settings, pairs);
}

void CheckScan(Input& input) {
    const Settings settings = AnySettings(input);
    ScanChoices choices;
    choices.InPattern = input.String();
    choices.OutPattern = input.String();
    choices.chkConvert = input.Flag();
    choices.chkIgnoreFirst = input.Flag();
    choices.txtIgnoreFirst = NumberText(static_cast<long long>(input.Byte()));
    const Text text = input.String() + u"\r\n" + input.String();
    for (const Text& name : ScanLines(text, choices, settings, {}))
        Require(IsClean(name) && !Trim(name).empty(), "a name that is none");
    PreScan(text + u"Artist: " + input.String());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    if (input.Flag())
        CheckNames(input);
    else
        CheckScan(input);
    return 0;
}
