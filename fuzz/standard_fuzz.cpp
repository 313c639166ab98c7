// The standard tag of any file: it is read whatever it holds, an edit is read again as it was
// written, and all that was not edited survives.
#include <algorithm>

#include "core/tags/standard/encoded_text.h"
#include "core/tags/standard/genre_text.h"
#include "core/tags/standard/standard_plan.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

using namespace mdlPLM::standard;

constexpr unsigned NewTagIsV24 = 1U << FieldCount;
constexpr unsigned RemovePictures = 1U << (FieldCount + 1);
constexpr unsigned AddPicture = 1U << (FieldCount + 2);

std::int64_t LengthOf(BytesView bytes) { return static_cast<std::int64_t>(bytes.size()); }

ReadBytes BytesOf(BytesView file) {
    return [file](std::int64_t offset, std::size_t count) {
        Require(offset >= 0 && offset <= LengthOf(file), "read outside of the file");
        return Bytes(file.substr(static_cast<std::size_t>(offset), count));
    };
}

// --- reading ---

void CheckFrames(const Tag& tag, BytesView file) {
    std::size_t total = 0;
    const BytesView all = tag.Own ? BytesView(*tag.Own) : file;
    for (const Frame& frame : tag.Frames) {
        Require(frame.Body.data() >= all.data() &&
                    frame.Body.data() + frame.Body.size() <= all.data() + all.size(),
                "a frame lies outside of the tag");
        total += frame.Body.size();
        (void)ParseShown(frame);
    }
    Require(total <= all.size(), "frames lie upon each other");
    Require(tag.FramesEnd <= LengthOf(file), "the frames end behind the file");
}

void CheckParts(const Tag& tag, BytesView file) {
    const std::int64_t wanted = BytesToParse(file, LengthOf(file));
    const Tag part = ParseTag(file.substr(0, static_cast<std::size_t>(wanted)));
    Require(part.Present == tag.Present && part.Frames.size() == tag.Frames.size(),
            "a part of the file is not enough");
    const FieldTexts texts = ReadFields(tag);
    Require(ReadFields(part) == texts, "other texts are read from a part of the file");
    for (const FieldRow& row : FieldTable) {
        const Text name = FieldForName(tag, row.Which);
        Require(StartsWith(texts[row.Which], name), "a name's text is not that of the field");
    }
    for (const PlacedPicture& picture : ReadPictures(tag))
        Require(picture.Place < tag.Frames.size(), "a picture of no frame");
}

void CheckLayout(const FileLayout& layout) {
    std::int64_t end = 0;
    for (const Piece& piece : layout.Front) {
        Require(piece.At == end, "tags at the start do not join");
        end = piece.At + piece.Length;
    }
    Require(end <= layout.AudioEnd, "tags at the start reach into those at the end");
    end = layout.AudioEnd;
    for (const Piece& piece : layout.Back) {
        Require(piece.At == end && piece.Length > 0, "tags at the end do not join");
        end = piece.At + piece.Length;
    }
    Require(end == layout.Size, "something stands behind the tags at the end");
    Require(layout.TagUsed <= layout.TagRoom && layout.TagRoom <= layout.AudioEnd,
            "the tag's room is too small or too large");
    Require(layout.AudioBegin <= layout.AudioEnd, "audio ends before it begins");
}

// --- writing ---

TagEdit TakeEdit(Input& input, const Tag& tag) {
    TagEdit edit;
    const unsigned flags = input.LineFlags();
    const Text text = Collapse(Writable(input.LineText()), u"; ", u";");
    for (std::size_t i = 0; i < FieldCount; ++i)
        if ((flags & 1U << i) != 0) edit.Fields[FieldTable[i].Which] = text;
    if ((flags & NewTagIsV24) != 0) edit.NewTagForm = TagForm::V24;
    for (std::size_t i = 0; i < tag.Frames.size(); ++i) {
        const bool picture = KindOf(tag.Frames[i].Id) == FrameKind::Picture;
        if (picture && (flags & RemovePictures) != 0) edit.Removed.push_back(i);
    }
    if ((flags & AddPicture) == 0) return edit;
    NewFrame picture;
    picture.Id = "APIC";
    picture.Mime = "image/png";
    picture.Description = text;
    picture.Data = Bytes("\x89PNG\0\xFF\xFB", 7);
    edit.Added.push_back(picture);
    return edit;
}

bool IsOfEdited(const FrameId& id, const TagEdit& edit) {
    return std::any_of(FieldTable.begin(), FieldTable.end(), [&](const FieldRow& row) {
        const bool part = std::find(row.Parts.begin(), row.Parts.end(), id) != row.Parts.end();
        return (row.Id == id || part) && edit.Fields[row.Which].has_value();
    });
}

// What a frame says, however it stands in its tag. A link of ID3v2.2 names a frame by another
// identifier.
Bytes Meaning(const Frame& frame) {
    Bytes meaning(frame.Id.View());
    if (frame.Id == FrameId("LINK")) return meaning;
    const Content content = ContentOf(frame);
    if (KindOf(frame.Id) != FrameKind::Picture) return meaning.append(content.View);
    const std::optional<Picture> picture = ParsePicture(frame);
    if (!picture) return meaning;
    return meaning.append(picture->Mime).append(picture->Data);
}

std::vector<Bytes> Untouched(const Tag& tag, const TagEdit& edit) {
    const bool pictures = !edit.Removed.empty() || !edit.Added.empty();
    std::vector<Bytes> meanings;
    for (const Frame& frame : tag.Frames) {
        if (IsOfEdited(frame.Id, edit)) continue;
        if (pictures && KindOf(frame.Id) == FrameKind::Picture) continue;
        meanings.push_back(Meaning(frame));
    }
    return meanings;
}

Text Expected(const FieldRow& row, const Text& text, TagForm form) {
    if (row.Form == FieldForm::Genre)
        return Joined(ParseGenres(RenderGenres({Writable(text)}, form == TagForm::V24)));
    return Writable(text);
}

bool IsLatin1(const Text& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char16_t c) { return c < 0x80 || (c >= 0xA0 && c <= 0xFF); });
}

void CheckTexts(const Tag& old, const Tag& tag, const TagEdit& edit) {
    for (const FieldRow& row : FieldTable) {
        const std::optional<Text>& text = edit.Fields[row.Which];
        if (!text || Writable(*text) == FieldText(old, row.Which)) continue;
        const bool several = FieldValues(old, row.Which).size() > 1;
        const bool described = row.Form == FieldForm::Comment || row.Form == FieldForm::Url;
        if (several || (described && text->empty())) continue;
        if (row.Form == FieldForm::Url && !IsLatin1(*text)) continue;
        RequireEqual(FieldText(tag, row.Which), Expected(row, *text, tag.Header.Form),
                     "another text is read than was written");
    }
}

Bytes Performed(BytesView file, const SavePlan& plan) {
    if (plan.Way == SaveWay::InPlace) {
        Require(plan.NewSize == LengthOf(file), "a save in place changes the file's size");
        return Bytes(plan.Head).append(file.substr(plan.Head.size()));
    }
    const auto from = static_cast<std::size_t>(plan.CarriedFrom);
    const auto length = static_cast<std::size_t>(plan.CarriedLength);
    Require(from + length == file.size(), "not all is carried over");
    return Bytes(plan.Head).append(file.substr(from));
}

void CheckSaved(const Tag& old, BytesView saved, const TagEdit& edit) {
    const Tag tag = ParseTag(saved);
    CheckFrames(tag, saved);
    CheckTexts(old, tag, edit);
    Require(Untouched(tag, edit) == Untouched(old, edit), "a frame was lost or changed");
    if (!tag.Present) return;
    Require(tag.Header.Length() <= LengthOf(saved), "a tag declares more than the file holds");
    Require(tag.FramesEnd <= tag.Header.Length(), "a tag declares less than it holds");
    TagEdit again;
    again.Fields = edit.Fields;
    // Where one comment went, another may be shown.
    for (const Field field : {Field::Comments, Field::URL})
        if (again.Fields[field] == Text()) again.Fields[field].reset();
    Require(!EditTag(tag, again).Changed, "a second save changes something");
}

void CheckEdit(BytesView file, const Tag& tag, const FileLayout& layout, const TagEdit& edit) {
    const EditedTag edited = EditTag(tag, edit);
    const SavePlan plan = PlanSave(layout, edited, {});
    if (!edited.Changed) Require(plan.Way == SaveWay::NoWork, "a save of nothing new");
    if (plan.Way == SaveWay::NoWork || plan.Way == SaveWay::Refused) return;
    const Bytes saved = Performed(file, plan);
    Require(LengthOf(saved) == plan.NewSize, "another size than was planned");
    // What stands behind a tag that goes may be another one.
    if (!plan.Head.empty()) CheckSaved(tag, saved, edit);
}

}  // namespace

void FuzzStandard(BytesView bytes) {
    Input input(bytes);
    Input lines = input;
    (void)lines.Line();
    (void)lines.Line();
    const BytesView file = lines.Rest();
    const Tag tag = ParseTag(file);
    CheckFrames(tag, file);
    CheckParts(tag, file);
    const FileLayout layout = FindLayout(BytesOf(file), LengthOf(file), tag);
    CheckLayout(layout);
    CheckEdit(file, tag, layout, TakeEdit(input, tag));
}

}  // namespace mdlPLM::fuzz
