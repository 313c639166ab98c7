#include "core/tags/standard/edit.h"

#include <algorithm>

#include "core/tags/standard/date_text.h"
#include "core/tags/standard/genre_text.h"
#include "core/tags/standard/sizes.h"

namespace mdlPLM::standard {

namespace {

constexpr TextView Separator = u"; ";

TagForm FormToWrite(const Tag& tag, const TagEdit& edit) {
    if (!tag.Present) return edit.NewTagForm;
    return tag.Header.Form == TagForm::V24 ? TagForm::V24 : TagForm::V23;
}

std::vector<Text> Split(TextView text) {
    std::vector<Text> values;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(Separator), text.size());
        if (end > 0) values.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + Separator.size(), text.size()));
    }
    return values;
}

bool Holds(const Tag& tag, const FrameId& id) {
    return std::any_of(tag.Frames.begin(), tag.Frames.end(),
                       [id](const Frame& frame) { return frame.Id == id; });
}

void AppendFrame(Bytes& bytes, const FrameId& id, const CarriedFrame& frame, TagForm form) {
    bytes.append(id.View());
    const std::size_t size = frame.View().size();
    if (form == TagForm::V24)
        AppendSevenBitNumber(bytes, size);
    else
        AppendPlainNumber(bytes, size);
    bytes.append(frame.Flags.data(), frame.Flags.size()).append(frame.View());
}

// The frames of a tag while they are edited.
class Editor {
public:
    Editor(const Tag& tag, const TagEdit& edit)
        : tag_(tag), edit_(edit), form_(FormToWrite(tag, edit)), slots_(tag.Frames.size()) {}

    EditedTag Run() {
        for (const FieldRow& row : FieldTable)
            if (edit_.Fields[row.Which]) EditField(row, Writable(*edit_.Fields[row.Which]));
        for (const std::size_t place : edit_.Removed) RemoveAt(place);
        for (const FrameReplacement& replacement : edit_.Replaced)
            ReplaceAt(replacement.Place, replacement.Frame);
        for (const NewFrame& frame : edit_.Added) Append(frame);
        EditedTag edited;
        edited.Changed = changed_;
        if (changed_) Render(edited);
        return edited;
    }

private:
    // What becomes of a frame of the tag.
    struct Slot {
        bool Removed = false;
        std::optional<Bytes> NewBody;
        FrameId NewId;
    };

    void EditField(const FieldRow& row, const Text& text) {
        if (text == FieldText(tag_, row.Which)) return;
        switch (row.Form) {
            case FieldForm::Text:
                Put(row.Id, ValuesOf(row, text));
                break;
            case FieldForm::Genre:
                Put(row.Id, RenderGenres(Split(text), form_ == TagForm::V24));
                break;
            case FieldForm::Date:
                PutDate(row, text);
                break;
            case FieldForm::Comment:
            case FieldForm::Url:
                PutDescribed(row, text);
                break;
        }
    }

    [[nodiscard]] std::vector<Text> ValuesOf(const FieldRow& row, const Text& text) const {
        if (text.empty()) return {};
        return FieldValues(tag_, row.Which).size() > 1 ? Split(text) : std::vector<Text>{text};
    }

    static std::vector<Text> OneValue(const Text& text) {
        return text.empty() ? std::vector<Text>() : std::vector<Text>{text};
    }

    void PutDate(const FieldRow& row, const Text& text) {
        const bool v24 = form_ == TagForm::V24;
        const DateParts parts = SplitDate(text);
        const std::array<Text, 3> texts = {parts.Year, parts.Day, parts.Time};
        DateParts held = parts;
        if (row.Parts[1] == FrameId()) held.Day.clear();
        const bool partsTellAll = JoinDate(held) == text;
        if (v24 || !partsTellAll || Holds(tag_, row.Id)) Put(row.Id, OneValue(text));
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const FrameId id = row.Parts[i];
            if (id != FrameId() && (!v24 || Holds(tag_, id))) Put(id, OneValue(texts[i]));
        }
    }

    void PutDescribed(const FieldRow& row, const Text& text) {
        const std::optional<std::size_t> shown = ShownFrame(tag_, row.Which);
        if (text.empty()) {
            if (shown) RemoveAt(*shown);
            return;
        }
        NewFrame frame;
        frame.Id = row.Id;
        frame.Values = {text};
        if (!shown) {
            Append(frame);
            return;
        }
        const DescribedText old = ParseDescribed(tag_.Frames[*shown]);
        frame.Description = old.Description;
        if (!old.Language.empty()) frame.Language = old.Language;
        ReplaceAt(*shown, frame);
    }

    // One frame of that identifier with these values, in the place of the first; none without any.
    void Put(const FrameId& id, const std::vector<Text>& values) {
        NewFrame frame;
        frame.Id = id;
        frame.Values = values;
        bool placed = values.empty();
        for (std::size_t place = 0; place < slots_.size(); ++place) {
            if (tag_.Frames[place].Id != id) continue;
            if (placed)
                RemoveAt(place);
            else
                ReplaceAt(place, frame);
            placed = true;
        }
        if (!placed) Append(frame);
    }

    void RemoveAt(std::size_t place) {
        if (place >= slots_.size()) return;
        slots_[place].Removed = true;
        changed_ = true;
    }

    void ReplaceAt(std::size_t place, const NewFrame& frame) {
        if (place >= slots_.size()) return;
        const Frame& old = tag_.Frames[place];
        Bytes body = RenderContent(frame, form_);
        const bool same = old.Id == frame.Id && old.Form == form_ && old.Flags[1] == '\0' &&
                          !old.Unsynchronised && old.Body == body;
        if (same) return;
        slots_[place].NewId = frame.Id;
        slots_[place].NewBody = std::move(body);
        changed_ = true;
    }

    void Append(const NewFrame& frame) {
        const Bytes body = RenderContent(frame, form_);
        AppendFrame(added_, frame.Id, {{}, body, {}}, form_);
        changed_ = true;
    }

    void Render(EditedTag& edited) const {
        for (std::size_t place = 0; place < slots_.size(); ++place)
            if (!slots_[place].Removed) RenderSlot(place, edited.Frames);
        edited.Frames.append(added_);
        edited.Header.Form = form_;
        edited.Header.Experimental = tag_.Header.Experimental;
        edited.Header.Size = edited.Frames.size();
    }

    void RenderSlot(std::size_t place, Bytes& bytes) const {
        const Frame& old = tag_.Frames[place];
        const Slot& slot = slots_[place];
        if (!slot.NewBody) {
            AppendFrame(bytes, old.Id, CarryOver(old, form_), form_);
            return;
        }
        AppendFrame(bytes, slot.NewId, {{StatusFlags(old, form_), '\0'}, *slot.NewBody, {}}, form_);
    }

    const Tag& tag_;
    const TagEdit& edit_;
    TagForm form_;
    std::vector<Slot> slots_;
    Bytes added_;
    bool changed_ = false;
};

bool HoldsField(const FrameId& id) {
    return std::any_of(FieldTable.begin(), FieldTable.end(), [id](const FieldRow& row) {
        return row.Id == id || std::find(row.Parts.begin(), row.Parts.end(), id) != row.Parts.end();
    });
}

}  // namespace

EditedTag EditTag(const Tag& tag, const TagEdit& edit) { return Editor(tag, edit).Run(); }

EditedTag RemovedTag() {
    EditedTag edited;
    edited.Changed = true;
    return edited;
}

std::vector<std::size_t> HiddenFrames(const Tag& tag) {
    std::vector<std::size_t> hidden;
    for (std::size_t place = 0; place < tag.Frames.size(); ++place)
        if (!HoldsField(tag.Frames[place].Id)) hidden.push_back(place);
    return hidden;
}

}  // namespace mdlPLM::standard
