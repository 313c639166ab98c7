// Album texts of any content: the pre-scan and the line scan agree with a plain transcription, a
// scan in slices with one in a single go, and the text behind the box keeps its line ends.
#include <algorithm>
#include <array>
#include <utility>

#include "app/namefromtext/line_scan.h"
#include "app/namefromtext/pre_scan.h"
#include "app/namefromtext/source_text.h"
#include "core/names/fixing_rules.h"
#include "core/text/letter_case.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

Pos Length(TextView text) { return static_cast<Pos>(text.size()); }

Text PlainValue(const Text& source, TextView key) {
    const Pos at = InStr(LCase(source), LCase(key));
    if (at == 0) return {};
    const Pos start = at + Length(key);
    Pos end = InStr(start, source, u"\r\n");
    if (end == 0) end = Length(source);
    if (end < start) return {};
    Text value = Mid(source, start, end - start);
    for (const TextView gone : {u"\r\n", u"\r", u"\n", u":", u"<", u">", u"#", u"\u00A4", u"%"})
        value = Replace(value, gone, u"");
    return Trim(Replace(value, u"\t", u" "));
}

Text FirstValue(const Text& source, std::initializer_list<TextView> keys) {
    Text value;
    for (const TextView key : keys)
        if (value.empty()) value = PlainValue(source, key);
    return value;
}

Text Tidied(const Text& value) {
    return Trim(RemoveChars(value, PreScanRemovalSet(), RemoveMode::Remove));
}

void CheckPreScan(const Text& source) {
    const PreScanResult result = PreScan(source);
    RequireEqual(result.Artist,
                 Tidied(FirstValue(source, {u"artist:", u"release name", u"artist/grupp:",
                                            u"grupp/artist:", u"grupp:", u"artist", u"grupp"})),
                 "another artist");
    RequireEqual(result.Album,
                 Tidied(FirstValue(source, {u"album:", u"release name:", u"titel/produkt:",
                                            u"album", u"release name", u"titel/produkt"})),
                 "another album");
    RequireEqual(
        result.Year,
        RemoveChars(FirstValue(source, {u"year:", u"release year:", u"year", u"release year"}),
                    u"0123456789", RemoveMode::KeepOnly),
        "another year");
    RequireEqual(result.ReleaseDate,
                 Tidied(FirstValue(source, {u"release date:", u"street date:", u"releasedatum:",
                                            u"release datum:", u"released:", u"sl\u00E4ppt:",
                                            u"release date", u"street date", u"releasedatum",
                                            u"release datum", u"released", u"sl\u00E4ppt"})),
                 "another release date");
    for (const TextView key : {u"artist:", u"GRUPP", u"Sl\u00C4ppt"})
        RequireEqual(GetATag(source, key), PlainValue(source, key), "another value of a key");
}

struct Line {
    Text Artist;
    Text Title;
    Text Album;
    Text Track;
};

// The working arrays of the scan.
class PlainPattern {
public:
    explicit PlainPattern(const Text& pattern) {
        const Text lower = LCase(pattern);
        for (int i = 0; i < 4; ++i) own_[i] = pos_[i + 1] = InStr(lower, Words[i]);
        pos_[5] = Length(pattern);
        for (int i = 1; i <= 4; ++i)
            for (int j = 1; j <= 4; ++j)
                if (i < j && pos_[j] < pos_[i]) std::swap(pos_[j], pos_[i]);
        for (int i = 1; i <= 4; ++i) {
            if (pos_[i] < 1 || pos_[i + 1] < 1 || pos_[i] >= pos_[i + 1]) continue;
            const Pos start = pos_[i] + Length(Words[WordAt(pos_[i])]);
            if (pos_[i + 1] > start) sep_[i] = Mid(pattern, start, pos_[i + 1] - start);
        }
    }

    [[nodiscard]] bool Has(int word) const { return own_[word] > 0; }

    void Extract(const Text& line, Line& values) const {
        const std::array<Text*, 4> fields = {&values.Track, &values.Artist, &values.Title,
                                             &values.Album};
        for (int i = 0; i < 4; ++i)
            if (Has(i)) fields[static_cast<std::size_t>(i)]->clear();
        Pos cursor = 0;
        Pos skip = 0;
        for (int i = 1; i <= 4; ++i) {
            if (pos_[i] < 1) continue;
            cursor = std::max<Pos>(1, cursor + skip + Length(sep_[i - 1]));
            // An empty separator is found at the cursor itself, wherever that is.
            skip = sep_[i].empty() ? 0 : InStr(cursor, line, sep_[i]) - cursor;
            if (skip < 0) skip = std::max<Pos>(0, Length(line) - cursor + 1);
            *fields[static_cast<std::size_t>(WordAt(pos_[i]))] = Trim(Mid(line, cursor, skip));
        }
    }

private:
    static constexpr TextView Words[] = {u"%track", u"%artist", u"%title", u"%album"};
    [[nodiscard]] int WordAt(Pos at) const {
        int word = 0;
        while (own_[word] != at) ++word;
        return word;
    }

    Pos pos_[6] = {};
    Pos own_[4] = {};
    Text sep_[5];
};

// What a scan of one line gives; nothing where no name is made.
Text PlainName(Text line, const ScanChoices& choices, const Settings& settings) {
    line = Replace(Replace(line, u"\r", u""), u"\n", u"");
    if (Trim(line).empty()) return {};
    if (choices.chkIgnoreFirst) line = Mid(line, IntegerPart(choices.txtIgnoreFirst));
    const long long last = IntegerPart(choices.txtIgnoreLast);
    if (choices.chkIgnoreLast && last < Length(line))
        line = Left(line, Length(line) - std::max(last, 0LL));
    const PlainPattern pattern(choices.InPattern);
    Line values;
    if (!pattern.Has(1)) values.Artist = choices.txtArtist;
    if (!pattern.Has(3)) values.Album = choices.txtAlbum;
    pattern.Extract(Trim(line), values);
    if (choices.chkConvert)
        for (Text* const text : {&values.Artist, &values.Album, &values.Title})
            *text = FixText(*text, settings, {});
    if (choices.chkArtist4All) values.Artist = choices.txtArtist;
    if (choices.chkAlbum4All) values.Album = choices.txtAlbum;
    if (values.Track.size() == 1) values.Track = u"0" + values.Track;
    Text name = Replace(choices.OutPattern, u"%artist", values.Artist);
    name = Replace(Replace(name, u"%title", values.Title), u"%album", values.Album);
    name = Replace(name, u"%track", values.Track);
    name = Replace(name, u"%year", choices.chkYear4All ? choices.txtYear : Text());
    if (Trim(name).empty()) name = u"Untitled.mp3";
    for (const TextView gone : {u"?", u"\""}) name = Replace(name, gone, u"");
    for (const TextView blank : {u"\\", u"/", u":", u"<", u">", u"|", u"*"})
        name = Replace(name, blank, u" ");
    return name;
}

std::vector<Text> PlainScan(Text text, const ScanChoices& choices, const Settings& settings) {
    if (!EndsWith(text, u"\r\n")) text += u"\r\n";
    if (settings.bRemoveChars) text = RemoveChars(text, settings.strSettings, RemoveMode::Remove);
    std::vector<Text> names;
    for (Pos at = 1, end = InStr(at, text, u"\r\n"); end > 0; end = InStr(at, text, u"\r\n")) {
        Text name = PlainName(Mid(text, at, end - at), choices, settings);
        if (!Trim(name).empty()) names.push_back(std::move(name));
        at = end + 2;
    }
    return names;
}

ScanChoices TakeChoices(Input& input) {
    ScanChoices choices;
    choices.InPattern = input.LineText();
    choices.OutPattern = input.LineText();
    const unsigned flags = input.LineFlags();
    choices.chkConvert = (flags & 1U) != 0;
    choices.chkArtist4All = (flags & 2U) != 0;
    choices.chkAlbum4All = (flags & 4U) != 0;
    choices.chkYear4All = (flags & 8U) != 0;
    choices.chkIgnoreFirst = (flags & 16U) != 0;
    choices.chkIgnoreLast = (flags & 32U) != 0;
    choices.txtIgnoreFirst = input.LineText();
    choices.txtIgnoreLast = input.LineText();
    choices.txtArtist = input.LineText();
    choices.txtAlbum = choices.txtArtist + u" album";
    choices.txtYear = u"1987";
    return choices;
}

void CheckScan(const Text& text, const ScanChoices& choices, const Settings& settings) {
    if (FaultOfIgnoreBoxes(choices)) return;
    const std::vector<Text> names = ScanLines(text, choices, settings, {});
    Require(names == PlainScan(text, choices, settings), "other names than the lines give");
    std::vector<Text> sliced;
    const ReplacementList none;
    LineScan scan(text, choices, settings, none);
    while (scan.Step(1, sliced)) Require(scan.Done() <= scan.Total(), "more is done than there is");
    Require(sliced == names, "a scan in slices gives other names");
}

// A text that was loaded and not edited is the text, but for what a box cannot hold.
void CheckBox(const Text& text) {
    SourceText source;
    source.Load(text);
    Text expected = Replace(text, u"\u2029", u"\r\n");
    for (char16_t& c : expected)
        if (c >= 0xFDD0 && c <= 0xFDEF) c = 0xFFFD;
    RequireEqual(source.Whole(), expected, "the text behind the box changed");
    const std::size_t all = source.Positions();
    RequireEqual(source.Range(0, all / 2) + source.Range(all / 2, all), expected,
                 "two halves are not the whole");
    source.Edit(all / 3, 0, u"x\ny");
    Require(source.Shown().size() == source.Positions(), "a position is not a character");
    source.Edit(all / 3, 3, {});
    RequireEqual(source.Whole(), expected, "an edit that was taken back changed the text");
    source.Paste(0, source.Positions(), text);
    Require(!source.OffersLineEnds(), "pasted line ends are offered as strange");
    source.Load(text);
    source.TakeLineEndsAsCrLf();
    Require(source.Whole().find(u"\n\n") == Text::npos, "a line end is left as it was");
}

}  // namespace

void FuzzAlbumText(BytesView bytes) {
    Input input(bytes);
    const Settings settings = TakeSettings(input);
    const ScanChoices choices = TakeChoices(input);
    const Text text = DecodeSourceFile(input.Rest());
    CheckPreScan(text);
    CheckScan(text, choices, settings);
    CheckBox(text);
    RequireEqual(PrepareLoadedText(text, settings),
                 Trim(RemoveChars(text, settings.strSettings, RemoveMode::Remove)),
                 "a loaded text is prepared otherwise");
}

}  // namespace mdlPLM::fuzz
