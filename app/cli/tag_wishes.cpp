#include "app/cli/tag_wishes.h"

#include <algorithm>
#include <iterator>

#include "app/tags/tag_edit.h"
#include "app/tags/tag_fix.h"
#include "app/tags/tag_orders.h"
#include "core/names/name_fields.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

// What no name holds and only the second version has.
struct OwnWord {
    TagBox Box;
    const char* Word;
};
constexpr OwnWord OwnWords[] = {{TagBox::txtV2Composer, "composer"},
                                {TagBox::txtV2OrigArtist, "original-artist"},
                                {TagBox::txtV2Copyright, "copyright"},
                                {TagBox::txtV2Encoder, "encoder"},
                                {TagBox::txtV2URL, "url"}};

TagField FieldOfRow(const TagBoxRow& row) {
    if (const NameField* const field = FieldOfBox(row.Value)) {
        TagField made{ToUtf8(field->Word()), std::nullopt, row.Box};
        for (const TagBoxRow& other : TagBoxTable)
            if (other.Value == field->V1Box) made.V1 = other.Box;
        return made;
    }
    const auto* const own = std::find_if(std::begin(OwnWords), std::end(OwnWords),
                                         [&](const OwnWord& word) { return word.Box == row.Box; });
    return {own->Word, std::nullopt, row.Box};
}

void SetBoth(TagWishes& wishes, const TagField& field, const TagsOptions& options,
             const Text& value) {
    const bool both = !options.V1 && !options.V2;
    if (field.V1 && (options.V1 || both)) wishes.Set.push_back({*field.V1, value});
    if (options.V2 || both) wishes.Set.push_back({field.V2, value});
}

bool ReadSetting(const Bytes& setting, const TagsOptions& options, TagWishes& wishes) {
    const std::size_t equals = setting.find('=');
    const auto& fields = TagFields();
    const auto field = std::find_if(fields.begin(), fields.end(), [&](const TagField& candidate) {
        return setting.substr(0, equals) == candidate.Word;
    });
    const bool good =
        equals != Bytes::npos && field != fields.end() && (field->V1 || !options.V1 || options.V2);
    if (good) SetBoth(wishes, *field, options, FromUtf8(setting.substr(equals + 1)));
    return good;
}

/// The file's boxes under the wishes, and which versions they touch.
class Editing {
public:
    Editing(TextView path, const FileTags& tags, const NamingContext& context)
        : path_(path),
          tags_(tags),
          context_(context),
          shown_(ShowBoxes(tags, context.Values.bOptimizedID3v1)),
          boxes_(shown_) {}

    void Copy(CopyDirection direction) {
        if (direction == CopyDirection::V1ToV2) {
            CopyBoxesFromV1(boxes_);
            touched_[1] = true;
        } else {
            CopyBoxesToV1(boxes_);
            touched_[0] = true;
        }
    }

    void Set(const TagWishes::Setting& setting) {
        const TagBoxRow& row = RowOf(setting.Box);
        boxes_.*row.Value = TextForBox(setting.Value, row.KeptForOne);
        const bool first = row.Version == TagVersion::V1;
        (first ? boxes_.chkID3v1 : boxes_.chkID3v2) = true;
        touched_[first ? 0 : 1] = true;
    }

    void Fix() {
        FixScope scope{Text(path_), boxes_.chkID3v1, boxes_.chkID3v2,
                       FieldsNotShown(tags_, KindsOfFrames({tags_.V2Header, tags_.V2Text}))};
        const BoxChanges changes = ChangesBetween(shown_, boxes_);
        for (std::size_t i = 0; i < TagBoxCount; ++i)
            scope.Untouchable[i] = scope.Untouchable[i] && !changes[i];
        boxes_ = FixedBoxes(boxes_, scope, context_);
        touched_[0] = touched_[0] || scope.V1;
        touched_[1] = touched_[1] || scope.V2;
    }

    EditedTags Result(const TagWishes& wishes) {
        const BoxChanges changes = ChangesBetween(shown_, boxes_);
        EditedTags edited;
        TagChange& change = edited.Change;
        change.Modes = {wishes.RemoveV1 ? TagMode::Remove : WriteIf(touched_[0]),
                        wishes.RemoveV2 ? TagMode::Remove : WriteIf(touched_[1])};
        if (change.Modes.V1 == TagMode::Write)
            change.V1 = EditedV1(tags_.V1, changes,
                                 {context_.Values.bOptimizedID3v1, UnchangedFields::KeepBytes});
        if (change.Modes.V2 == TagMode::Write)
            change.V2 =
                EditedV2(tags_.V2, HoldFrames({tags_.V2Header, tags_.V2Text}, HandOn::NotWhole),
                         changes, HiddenFramesIn(context_.Values));
        edited.Boxes = std::move(boxes_);
        if (wishes.RemoveV1) edited.Boxes.chkID3v1 = false;
        if (wishes.RemoveV2) edited.Boxes.chkID3v2 = false;
        return edited;
    }

private:
    TextView path_;
    const FileTags& tags_;
    const NamingContext& context_;
    const TagBoxes shown_;
    TagBoxes boxes_;
    std::array<bool, 2> touched_{};  ///< by version
};

}  // namespace

const std::vector<TagField>& TagFields() {
    static const std::vector<TagField> fields = [] {
        std::vector<TagField> made;
        for (const TagBoxRow& row : TagBoxTable)
            if (row.Version == TagVersion::V2) made.push_back(FieldOfRow(row));
        return made;
    }();
    return fields;
}

bool ReadWishes(const TagsOptions& options, TagWishes& wishes, Text& fault) {
    for (const Bytes& setting : options.Set) {
        if (ReadSetting(setting, options, wishes)) continue;
        fault = u"--set: \"" + FromUtf8(setting) + u"\" is no FIELD=TEXT of that tag";
        return false;
    }
    for (const TagVersion version : options.Remove)
        (version == TagVersion::V1 ? wishes.RemoveV1 : wishes.RemoveV2) = true;
    wishes.Copy = options.Copy;
    wishes.Fix = options.Fix;
    const bool choosesForNothing = (options.V1 || options.V2) && options.Set.empty();
    if (choosesForNothing) fault = u"--v1 and --v2 choose the tag for --set";
    return !choosesForNothing;
}

TagBoxes BoxesOfWishes(const TagWishes& wishes) {
    TagBoxes boxes;
    for (const TagWishes::Setting& setting : wishes.Set)
        boxes.*RowOf(setting.Box).Value = setting.Value;
    boxes.chkID3v1Rem = wishes.RemoveV1;
    boxes.chkID3v2Rem = wishes.RemoveV2;
    return boxes;
}

EditedTags EditTags(TextView path, const FileTags& tags, const TagWishes& wishes,
                    const NamingContext& context) {
    Editing editing(path, tags, context);
    if (wishes.Copy) editing.Copy(*wishes.Copy);
    for (const TagWishes::Setting& setting : wishes.Set) editing.Set(setting);
    if (wishes.Fix) editing.Fix();
    return editing.Result(wishes);
}

}  // namespace mdlPLM::cli
