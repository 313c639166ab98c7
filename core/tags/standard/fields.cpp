#include "core/tags/standard/fields.h"

#include "core/tags/standard/date_text.h"
#include "core/tags/standard/genre_text.h"

namespace mdlPLM::standard {

namespace {

constexpr TextView OwnFigures = u"iTun";

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < FieldCount; ++i)
        if (static_cast<std::size_t>(FieldTable[i].Which) != i) return false;
    return true;
}
static_assert(IsInOrder());

// The first text of the first frame of that identifier that has one.
Text FirstText(const Tag& tag, const FrameId& id) {
    for (const Frame& frame : tag.Frames) {
        if (frame.Id != id) continue;
        Text text = ParseFirstText(frame);
        if (!text.empty()) return text;
    }
    return {};
}

std::vector<Text> TextsOf(const Tag& tag, const FrameId& id) {
    for (const Frame& frame : tag.Frames) {
        if (frame.Id != id) continue;
        std::vector<Text> texts = ParseTexts(frame);
        if (!texts.empty()) return texts;
    }
    return {};
}

Text DateOfParts(const Tag& tag, const FieldRow& row) {
    DateParts parts;
    parts.Year = FirstText(tag, row.Parts[0]);
    if (parts.Year.empty() || row.Parts[1] == FrameId()) return parts.Year;
    parts.Day = FirstText(tag, row.Parts[1]);
    parts.Time = FirstText(tag, row.Parts[2]);
    return JoinDate(parts);
}

// A tag may hold it in both ways: the one of its version counts, unless the other says the same and
// more.
Text DateOf(const Tag& tag, const FieldRow& row) {
    Text own = FirstText(tag, row.Id);
    Text other = DateOfParts(tag, row);
    if (tag.Header.Form != TagForm::V24) std::swap(own, other);
    return own.empty() || StartsWith(other, own) ? other : own;
}

// The version's own frame tells the year as a rule; the others need not be looked at then.
Text YearForName(const Tag& tag, const FieldRow& row) {
    const bool v24 = tag.Header.Form == TagForm::V24;
    const Text own = FirstText(tag, v24 ? row.Id : row.Parts[0]);
    Text year = YearOf(own);
    return IsYear(year) ? year : YearOf(DateOf(tag, row));
}

bool IsOwnFigures(const DescribedText& text) { return StartsWith(text.Description, OwnFigures); }

struct Found {
    std::optional<std::size_t> Place;
    DescribedText Text;
};

Found FindShown(const Tag& tag, Field field) {
    const FrameId id = RowOf(field).Id;
    Found found;
    for (std::size_t i = 0; i < tag.Frames.size(); ++i) {
        if (tag.Frames[i].Id != id) continue;
        DescribedText text = ParseDescribed(tag.Frames[i]);
        if (text.Value.empty() || IsOwnFigures(text)) continue;
        const bool plain = text.Description.empty();
        if (plain || !found.Place) found = {i, std::move(text)};
        if (plain) break;
    }
    return found;
}

std::vector<Text> NoneIfEmpty(Text text) {
    std::vector<Text> values;
    if (!text.empty()) values.push_back(std::move(text));
    return values;
}

}  // namespace

std::vector<Text> FieldValues(const Tag& tag, Field field) {
    const FieldRow& row = RowOf(field);
    switch (row.Form) {
        case FieldForm::Text:
            return TextsOf(tag, row.Id);
        case FieldForm::Genre:
            return ParseGenres(TextsOf(tag, row.Id));
        case FieldForm::Date:
            return NoneIfEmpty(DateOf(tag, row));
        case FieldForm::Comment:
        case FieldForm::Url:
            break;
    }
    return NoneIfEmpty(FindShown(tag, field).Text.Value);
}

Text FieldText(const Tag& tag, Field field) { return Joined(FieldValues(tag, field)); }

FieldTexts ReadFields(const Tag& tag) {
    FieldTexts texts;
    for (const FieldRow& row : FieldTable) texts[row.Which] = FieldText(tag, row.Which);
    return texts;
}

Text FieldForName(const Tag& tag, Field field) {
    const FieldRow& row = RowOf(field);
    switch (row.Form) {
        case FieldForm::Text: {
            Text text = FirstText(tag, row.Id);
            const bool counted = field == Field::Track || field == Field::Disc;
            return counted ? WithoutTotal(text) : text;
        }
        case FieldForm::Genre:
            return ParseFirstGenre(FirstText(tag, row.Id));
        case FieldForm::Date:
            return YearForName(tag, row);
        case FieldForm::Comment:
        case FieldForm::Url:
            break;
    }
    return FindShown(tag, field).Text.Value;
}

Text WithoutTotal(TextView track) {
    return Text(track.substr(0, std::min(track.find(u'/'), track.size())));
}

std::optional<std::size_t> ShownFrame(const Tag& tag, Field field) {
    return FindShown(tag, field).Place;
}

std::vector<PlacedPicture> ReadPictures(const Tag& tag) {
    std::vector<PlacedPicture> pictures;
    for (std::size_t i = 0; i < tag.Frames.size(); ++i) {
        if (KindOf(tag.Frames[i].Id) != FrameKind::Picture) continue;
        if (std::optional<Picture> picture = ParsePicture(tag.Frames[i]))
            pictures.push_back({i, *std::move(picture)});
    }
    return pictures;
}

}  // namespace mdlPLM::standard
