#include "core/names/fix_file_name.h"

#include <array>
#include <utility>

#include "core/names/fixing_rules.h"
#include "core/platform/path.h"
#include "core/tags/genres.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

using Field = Text FieldValues::*;

struct Work {
    TextView Path;
    TextView OutPattern;
    const NamingContext& Context;
    FieldValues Fields;

    [[nodiscard]] const Settings& Values() const { return Context.Values; }
};

void TakeFromPattern(Work& work, const FieldWord& field) {
    work.Fields.*field.Value =
        GetFieldFromPath(work.Path, field.Word, work.Context.InPattern, work.Values());
}

void TakeAllFromPattern(Work& work) {
    for (const FieldWord& field : FieldWords) TakeFromPattern(work, field);
}

// Fills what the tags left empty; true when the title was one of them.
bool TakeMissingFromPattern(Work& work, bool commentToo) {
    const bool noTitle = work.Fields.Title.empty();
    for (const FieldWord& field : FieldWords)
        if ((work.Fields.*field.Value).empty() && (commentToo || field.Word != u"comment"))
            TakeFromPattern(work, field);
    return noTitle;
}

// A title that the pattern left together with its artist: "Abba - Waterloo" by Abba.
void FixTitle(FieldValues& fields) {
    const Pos dash = InStr(fields.Title, u" - ");
    if (fields.Title == fields.Artist + u" -") fields.Title.clear();
    if (dash < 1 || dash >= static_cast<Pos>(fields.Title.size()) - 3) return;
    const Text before = Left(fields.Title, dash - 1);
    if (fields.Artist.empty()) fields.Artist = before;
    if (LCase(fields.Artist) == LCase(before)) fields.Title = Mid(fields.Title, dash + 3);
}

void FixTrack(Text& track) {
    if (track == TextView(u"\0", 1) || track == u" ") track.clear();
    if (track.size() == 1 && track != u"0") track.insert(0, u"0");
}

void FixTagFields(Work& work, bool titleFromPattern) {
    const bool fixMisses = work.Values().bMisses;
    if (fixMisses && titleFromPattern) FixTitle(work.Fields);
    FixTrack(work.Fields.Track);
    if (!fixMisses) return;
    for (const FieldWord& field : FieldWords) TrimInPlace(work.Fields.*field.Value);
}

// The dependence on the extension setting is odd and kept on purpose.
bool TagsAllowed(const Settings& settings) {
    return settings.bID3 && !Trimmed(settings.Extension).empty();
}

Text CleanName(Work& work) {
    if (work.Values().Change == static_cast<int>(CaseOption::FirstLetter))
        for (const Field field : {&FieldValues::Artist, &FieldValues::Title, &FieldValues::Album})
            work.Fields.*field = FirstLetterUpper(std::move(work.Fields.*field));
    bool filled = false;
    Text name = FillPattern(work.OutPattern, work.Fields, work.Values(), filled);
    if (!filled) name = FileNameOfPath(work.Path);
    return ApplyRules(FileNameRules(), std::move(name), {work.Values(), work.Context.Replacements});
}

BytesView UpToNul(BytesView field) { return field.substr(0, field.find('\0')); }

// What the optimized layout keeps behind the field's first NUL, up to the next one.
BytesView Continuation(BytesView field) {
    const std::size_t nul = field.find('\0');
    return nul == BytesView::npos ? BytesView() : UpToNul(field.substr(nul + 1));
}

// Only the trailer's field is looked at without its blanks; it is worked out only where the other
// tag has none.
template <class V1>
Text FirstOf(BytesView v2, V1 v1) {
    if (!v2.empty()) return FromCodePage(v2);
    Text text = FromCodePage(v1());
    return Trimmed(text).empty() ? Text() : text;
}

FieldValues FieldsOfTags(const FileTags& tags, const Settings& settings) {
    const ID3v1Tag& v1 = tags.V1;
    const ID3v2Tag& v2 = tags.V2;
    // A field of the trailer, untrimmed; `carrier` is the field that may hold its continuation.
    const auto field = [&](BytesView text, BytesView carrier = {}) {
        return [=, &settings] {
            Bytes whole(UpToNul(text));
            if (settings.bOptimizedID3v1) whole.append(Continuation(carrier));
            return whole;
        };
    };
    const auto track = [&] {
        const int number = static_cast<unsigned char>(v1.Track);
        return number == 0 ? Bytes() : std::to_string(number);
    };
    const auto genre = [&] { return GetGenreName(BytesView(&v1.Genre, 1)); };
    FieldValues fields;
    fields.Artist = FirstOf(v2.Artist, field(v1.Artist, v1.Album));
    fields.Title = FirstOf(v2.Title, field(v1.Title, v1.Comment));
    fields.Album = FirstOf(v2.Album, field(v1.Album));
    fields.Track = FirstOf(v2.Track, track);
    fields.Year = FirstOf(v2.Year, field(v1.Year));
    fields.Genre = FirstOf(v2.Genre, genre);
    fields.Comment = FirstOf(v2.Comments, field(v1.Comment));
    return fields;
}

FieldValues FieldsOfBoxes(const TagBoxes& boxes) {
    const auto first = [](const Text& v2, const Text& v1) { return v2.empty() ? v1 : v2; };
    FieldValues fields;
    fields.Artist = first(boxes.txtV2Artist, boxes.txtArtist);
    fields.Title = first(boxes.txtV2Title, boxes.txtTitle);
    fields.Album = first(boxes.txtV2Album, boxes.txtAlbum);
    fields.Track = first(boxes.txtV2Track, boxes.txtTrackNr);
    fields.Year = first(boxes.txtV2Year, boxes.txtYear);
    fields.Genre = first(boxes.cmbV2Genre, boxes.cmbGenre);
    fields.Comment = first(boxes.txtV2Comments, boxes.txtComments);
    return fields;
}

bool UsesTags(const FileTags& tags, const Settings& settings) {
    return TagsAllowed(settings) && (tags.V1.Present() || tags.V2.Present());
}

void Gather(Work& work, const FileTags& tags) {
    if (UsesTags(tags, work.Values())) {
        work.Fields = FieldsOfTags(tags, work.Values());
        FixTagFields(work, TakeMissingFromPattern(work, true));
    } else {
        TakeAllFromPattern(work);
    }
}

// In the order of FieldWords.
constexpr std::array<Bytes ID3v2Tag::*, FieldWords.size()> V2Fields = {
    &ID3v2Tag::Artist, &ID3v2Tag::Title, &ID3v2Tag::Album,   &ID3v2Tag::Track,
    &ID3v2Tag::Year,   &ID3v2Tag::Genre, &ID3v2Tag::Comments};

}  // namespace

Text FixFileName(TextView path, TextView outPattern, const NamingContext& context) {
    SilentErrors silent;
    return FixFileName(path, outPattern, ReadFileTags(path, ID3v2Parts::NameFields, silent),
                       context);
}

Text FixFileName(TextView path, TextView outPattern, const FileTags& tags,
                 const NamingContext& context) {
    if (!tags.Exists || !ReadingFault(tags, context.Values).Ok()) return {};
    Work work{path, outPattern, context, {}};
    Gather(work, tags);
    return CleanName(work);
}

Status ReadingFault(const FileTags& tags, const Settings& settings) {
    return TagsAllowed(settings) ? Status(tags.Unreadable) : Status();
}

GatheredFields GatherFields(TextView path, const FileTags& tags, const NamingContext& context) {
    Work work{path, {}, context, {}};
    Gather(work, tags);
    const bool usesTags = UsesTags(tags, context.Values);
    const FieldValues fromTags = usesTags ? FieldsOfTags(tags, context.Values) : FieldValues();
    GatheredFields gathered{std::move(work.Fields), {}};
    for (std::size_t i = 0; i < FieldWords.size(); ++i) {
        const Field field = FieldWords[i].Value;
        if ((gathered.Values.*field).empty()) continue;
        const bool inV2 = usesTags && !(tags.V2.*V2Fields[i]).empty();
        const FieldSource other =
            (fromTags.*field).empty() ? FieldSource::Pattern : FieldSource::V1;
        gathered.Sources[i] = inV2 ? FieldSource::V2 : other;
    }
    return gathered;
}

Text FixFileName2(TextView path, TextView outPattern, const TagBoxes& boxes,
                  const NamingContext& context) {
    Work work{path, outPattern, context, {}};
    if (TagsAllowed(context.Values) && (boxes.chkID3v1 || boxes.chkID3v2)) {
        work.Fields = FieldsOfBoxes(boxes);
        FixTagFields(work, TakeMissingFromPattern(work, false));
    } else {
        TakeAllFromPattern(work);
    }
    return CleanName(work);
}

}  // namespace mdlPLM
