#include "core/names/fix_file_name.h"

#include <utility>

#include "core/names/fixing_rules.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

struct Work {
    TextView Path;
    TextView OutPattern;
    const NamingContext& Context;
    FieldValues Fields;

    [[nodiscard]] const Settings& Values() const { return Context.Values; }
};

void TakeFromPattern(Work& work, const NameField& field) {
    work.Fields.*field.Value =
        GetFieldFromPath(work.Path, field.Word(), work.Context.InPattern, work.Values());
}

void TakeAllFromPattern(Work& work) {
    for (const NameField& field : NameFields) TakeFromPattern(work, field);
}

enum class Missing { InTags, InBoxes };

// Fills what the tags or the boxes left empty; true when the title was one of them.
bool TakeMissingFromPattern(Work& work, Missing missing) {
    const bool noTitle = work.Fields.Title.empty();
    for (const NameField& field : NameFields)
        if ((work.Fields.*field.Value).empty() && (missing == Missing::InTags || field.FillsBoxes))
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
    for (const NameField& field : NameFields) TrimInPlace(work.Fields.*field.Value);
}

// The dependence on the extension setting is odd and kept on purpose.
bool TagsAllowed(const Settings& settings) {
    return settings.bID3 && !Trimmed(settings.Extension).empty();
}

Text CleanName(Work& work) {
    if (work.Values().Change == static_cast<int>(CaseOption::FirstLetter))
        for (const NameField& field : NameFields)
            if (field.FirstLetters)
                work.Fields.*field.Value = FirstLetterUpper(std::move(work.Fields.*field.Value));
    bool filled = false;
    Text name = FillPattern(work.OutPattern, work.Fields, work.Values(), filled);
    if (!filled) name = FileNameOfPath(work.Path);
    return ApplyRules(FileNameRules(), std::move(name), {work.Values(), work.Context.Replacements});
}

// The trailer's field, untrimmed.
Bytes BytesInV1(const FieldInV1& place, const ID3v1Tag& tag, bool optimized) {
    if (place.Number != nullptr) return place.TextOfNumber(tag.*place.Number);
    if (place.Text == nullptr) return {};
    Bytes whole(UpToNul(tag.*place.Text));
    if (optimized && place.Carrier != nullptr) whole.append(Continuation(tag.*place.Carrier));
    return whole;
}

// Only the trailer's field is looked at without its blanks; it is worked out only where the other
// tag has none.
Text TextInTags(const NameField& field, const FileTags& tags, bool optimized) {
    const Bytes& v2 = tags.V2.*field.V2;
    if (!v2.empty()) return FromCodePage(v2);
    Text text = FromCodePage(BytesInV1(field.V1, tags.V1, optimized));
    return Trimmed(text).empty() ? Text() : text;
}

FieldValues FieldsOfTags(const FileTags& tags, const Settings& settings) {
    FieldValues fields;
    for (const NameField& field : NameFields)
        fields.*field.Value = TextInTags(field, tags, settings.bOptimizedID3v1);
    return fields;
}

FieldValues FieldsOfBoxes(const TagBoxes& boxes) {
    FieldValues fields;
    for (const NameField& field : NameFields) {
        const Text& v2 = boxes.*field.V2Box;
        const bool fromV1 = v2.empty() && field.V1Box != nullptr;
        fields.*field.Value = fromV1 ? boxes.*field.V1Box : v2;
    }
    return fields;
}

bool UsesTags(const FileTags& tags, const Settings& settings) {
    return TagsAllowed(settings) && (tags.V1.Present() || tags.V2.Present());
}

void Gather(Work& work, const FileTags& tags) {
    if (UsesTags(tags, work.Values())) {
        work.Fields = FieldsOfTags(tags, work.Values());
        FixTagFields(work, TakeMissingFromPattern(work, Missing::InTags));
    } else {
        TakeAllFromPattern(work);
    }
}

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
    for (std::size_t i = 0; i < NameFields.size(); ++i) {
        const NameField& field = NameFields[i];
        if ((gathered.Values.*field.Value).empty()) continue;
        const bool inV2 = usesTags && !(tags.V2.*field.V2).empty();
        const FieldSource other =
            (fromTags.*field.Value).empty() ? FieldSource::Pattern : FieldSource::V1;
        gathered.Sources[i] = inV2 ? FieldSource::V2 : other;
    }
    return gathered;
}

Text FixFileName2(TextView path, TextView outPattern, const TagBoxes& boxes,
                  const NamingContext& context) {
    Work work{path, outPattern, context, {}};
    if (TagsAllowed(context.Values) && (boxes.chkID3v1 || boxes.chkID3v2)) {
        work.Fields = FieldsOfBoxes(boxes);
        FixTagFields(work, TakeMissingFromPattern(work, Missing::InBoxes));
    } else {
        TakeAllFromPattern(work);
    }
    return CleanName(work);
}

}  // namespace mdlPLM
