#include "app/namefromtext/line_scan.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/names/fixing_rules.h"
#include "core/names/name_fields.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

using Fields = LinePattern::Fields;

constexpr TextView PlaceholderOf(Text FieldValues::*value) { return FieldOf(value).Placeholder; }

struct PlaceholderRow {
    TextView Word;
    Text Fields::*Field;
};
constexpr std::array<PlaceholderRow, 4> Placeholders = {
    {{PlaceholderOf(&FieldValues::Track), &Fields::Track},
     {PlaceholderOf(&FieldValues::Artist), &Fields::Artist},
     {PlaceholderOf(&FieldValues::Title), &Fields::Title},
     {PlaceholderOf(&FieldValues::Album), &Fields::Album}}};

bool IsUsableCount(TextView text, long long least) {
    return IsNumber(text) && IntegerPart(text) >= least;
}

// What the scan makes of a line, before the out-pattern is filled.
struct LineValues {
    Fields Found;
    Text Year;
};

// The values of "Use for all." boxes are taken as they stand.
void TakeForAll(LineValues& values, const ScanChoices& choices) {
    if (choices.chkArtist4All) values.Found.Artist = choices.txtArtist;
    if (choices.chkAlbum4All) values.Found.Album = choices.txtAlbum;
    if (choices.chkYear4All) values.Year = choices.txtYear;
}

// "%genre" and "%comment" stay as they stand here.
Text FillLine(Text pattern, const LineValues& values) {
    const std::array<std::pair<TextView, const Text*>, 5> rows = {
        {{PlaceholderOf(&FieldValues::Artist), &values.Found.Artist},
         {PlaceholderOf(&FieldValues::Title), &values.Found.Title},
         {PlaceholderOf(&FieldValues::Album), &values.Found.Album},
         {PlaceholderOf(&FieldValues::Track), &values.Found.Track},
         {PlaceholderOf(&FieldValues::Year), &values.Year}}};
    for (const auto& [word, value] : rows) pattern = Replace(pattern, word, *value);
    return pattern;
}

}  // namespace

std::optional<Text> FaultOfIgnoreBoxes(const ScanChoices& choices, const Language& words) {
    if (choices.chkIgnoreFirst && !IsUsableCount(choices.txtIgnoreFirst, 1))
        return words(PLM_TRANSLATE("Texts", "\"Ignore first\" needs a number of 1 or more."));
    if (choices.chkIgnoreLast && !IsUsableCount(choices.txtIgnoreLast, 0))
        return words(PLM_TRANSLATE("Texts", "\"Ignore last\" needs a number of 0 or more."));
    return std::nullopt;
}

LinePattern::LinePattern(TextView inPattern) {
    const Text lower = LCase(inPattern);
    std::transform(
        Placeholders.begin(), Placeholders.end(), slots_.begin(), [&](const PlaceholderRow& row) {
            return Slot{InStr(lower, row.Word), static_cast<Pos>(row.Word.size()), row.Field, {}};
        });
    std::sort(slots_.begin(), slots_.end(),
              [](const Slot& a, const Slot& b) { return a.At < b.At; });
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if (slots_[i].At < 1) continue;
        const bool last = i + 1 == slots_.size();
        const Pos end = last ? static_cast<Pos>(inPattern.size()) : slots_[i + 1].At;
        const Pos start = slots_[i].At + slots_[i].Length;
        slots_[i].Separator = Mid(inPattern, start, end - start);
    }
}

bool LinePattern::Has(Text Fields::*field) const {
    return std::any_of(slots_.begin(), slots_.end(),
                       [&](const Slot& slot) { return slot.Field == field && slot.At > 0; });
}

void LinePattern::Extract(TextView line, Fields& fields) const {
    Pos cursor = 1;
    for (const Slot& slot : slots_) {
        if (slot.At < 1) continue;
        Pos skip = InStr(cursor, line, slot.Separator) - cursor;
        if (skip < 0) skip = std::max<Pos>(static_cast<Pos>(line.size()) - cursor + 1, 0);
        fields.*slot.Field = Trim(Mid(line, cursor, skip));
        cursor += skip + static_cast<Pos>(slot.Separator.size());
    }
}

LineScan::LineScan(Text text, ScanChoices choices, const Settings& settings,
                   const ReplacementList& replacements)
    : text_(std::move(text)),
      choices_(std::move(choices)),
      settings_(settings),
      replacements_(replacements),
      pattern_(choices_.InPattern) {
    if (!EndsWith(text_, CrLf)) text_.append(CrLf);
    if (settings.bRemoveChars) text_ = RemoveChars(text_, settings.strSettings, RemoveMode::Remove);
}

bool LineScan::Step(std::size_t lines, std::vector<Text>& names) {
    for (; lines > 0; --lines) {
        const std::size_t end = text_.find(CrLf, next_);
        if (end == Text::npos) {
            next_ = text_.size();
            return false;
        }
        Text line = text_.substr(next_, end - next_);
        next_ = end + CrLf.size();
        std::erase_if(line, [](char16_t c) { return c == u'\r' || c == u'\n'; });
        if (Trim(line).empty()) continue;
        Text name = NameOf(Cut(line));
        if (!Trim(name).empty()) names.push_back(std::move(name));
    }
    return next_ < text_.size();
}

// "Ignore first 1" drops nothing and 3 drops two; the count is off by one on purpose.
Text LineScan::Cut(TextView line) const {
    Text rest(line);
    if (choices_.chkIgnoreFirst) rest = Mid(rest, IntegerPart(choices_.txtIgnoreFirst));
    const long long last = IntegerPart(choices_.txtIgnoreLast);
    const auto length = static_cast<Pos>(rest.size());
    if (choices_.chkIgnoreLast && last < length) rest = Left(rest, length - std::max(last, 0LL));
    return Trim(rest);
}

Text LineScan::NameOf(TextView line) const {
    LineValues values;
    Fields& found = values.Found;
    if (!pattern_.Has(&Fields::Artist)) found.Artist = choices_.txtArtist;
    if (!pattern_.Has(&Fields::Album)) found.Album = choices_.txtAlbum;
    pattern_.Extract(line, found);
    if (choices_.chkConvert)
        for (Text* const value : {&found.Artist, &found.Album, &found.Title})
            *value = FixText(*value, settings_, replacements_);
    TakeForAll(values, choices_);
    if (found.Track.size() == 1) found.Track.insert(0, u"0");
    Text name = FillLine(choices_.OutPattern, values);
    if (Trim(name).empty()) name = u"Untitled.mp3";
    return ReplaceIllegalCharacters(std::move(name));
}

std::vector<Text> ScanLines(Text text, const ScanChoices& choices, const Settings& settings,
                            const ReplacementList& replacements) {
    std::vector<Text> names;
    LineScan(std::move(text), choices, settings, replacements)
        .Step(std::numeric_limits<std::size_t>::max(), names);
    return names;
}

}  // namespace mdlPLM
