#include "app/tags/tag_orders.h"

#include <algorithm>

#include "app/tags/tag_fix.h"
#include "core/tags/genres.h"

namespace mdlPLM {

namespace {

bool HoldsText(const TagBoxes& boxes, TagVersion version) {
    return std::any_of(TagBoxTable.begin(), TagBoxTable.end(), [&](const TagBoxRow& row) {
        return row.Version == version && !(boxes.*row.Value).empty();
    });
}

SaveModes BatchModes(const TagBoxes& boxes) {
    const TagMode v1 = WriteIf(boxes.chkID3v1 || HoldsText(boxes, TagVersion::V1));
    const TagMode v2 = WriteIf(boxes.chkID3v2 || HoldsText(boxes, TagVersion::V2));
    return {boxes.chkID3v1Rem ? TagMode::Remove : v1, boxes.chkID3v2Rem ? TagMode::Remove : v2};
}

BoxChanges BatchChanges(const TagBoxes& boxes) {
    BoxChanges changes;
    for (const TagBoxRow& row : TagBoxTable) {
        const Text& text = boxes.*row.Value;
        const bool clears = text == u"*" && !row.KeptInBatch.empty();
        if (!text.empty()) changes[IndexOf(row.Box)] = clears ? Text() : text;
    }
    return changes;
}

struct Orders {
    BoxChanges Changes;
    SaveModes Modes;
    bool Optimized = false;
    HiddenFrames Hidden = HiddenFrames::Keep;
};

ID3v2Tag V2Of(const FileTags& tags, const Orders& orders) {
    return EditedV2(tags.V2, HoldFrames({tags.V2Header, tags.V2Text}, HandOn::NotWhole),
                    orders.Changes, orders.Hidden);
}

TagChange ChangeOf(const FileTags& tags, const Orders& orders) {
    const V1Style style{orders.Optimized, UnchangedFields::KeepBytes};
    return {
        orders.Modes.V1 == TagMode::Write ? EditedV1(tags.V1, orders.Changes, style) : ID3v1Tag(),
        orders.Modes.V2 == TagMode::Write ? V2Of(tags, orders) : ID3v2Tag(), orders.Modes};
}

struct Fixer {
    KeptNaming Naming;

    TagChange operator()(TextView path, const FileTags& tags) const {
        const NamingContext naming = Naming.Context();
        const Settings& values = naming.Values;
        const TagBoxes shown = ShowBoxes(tags, values.bOptimizedID3v1);
        const FixScope scope{Text(path), tags.V1.Present(), tags.V2.Present(),
                             FieldsNotShown(tags, KindsOfFrames({tags.V2Header, tags.V2Text}))};
        const TagBoxes fixed = FixedBoxes(shown, scope, naming);
        return ChangeOf(tags, {ChangesBetween(shown, fixed),
                               {WriteIf(scope.V1), WriteIf(scope.V2)},
                               values.bOptimizedID3v1,
                               HiddenFramesIn(values)});
    }
};

}  // namespace

TagMode WriteIf(bool on) { return on ? TagMode::Write : TagMode::Leave; }

HiddenFrames HiddenFramesIn(const Settings& settings) {
    return settings.bRemHiddenID3 ? HiddenFrames::Drop : HiddenFrames::Keep;
}

std::array<bool, TagBoxCount> FieldsNotShown(const FileTags& tags, const FrameKinds& kinds) {
    std::array<bool, TagBoxCount> fields{};
    fields[IndexOf(TagBox::cmbGenre)] = tags.V1.Present() && tags.V1.Genre != NoGenre &&
                                        static_cast<unsigned char>(tags.V1.Genre) >= GenreCount;
    for (const TagBoxRow& row : TagBoxTable)
        for (std::size_t i = 0; i < KnownFrames.size(); ++i)
            if (row.Frame == KnownFrames[i].Identifier)
                fields[IndexOf(row.Box)] =
                    kinds[i] == FrameKind::Unshown || kinds[i] == FrameKind::Inside;
    return fields;
}

TagRun::Edit BatchEdit(const TagBoxes& boxes, const Settings& settings) {
    return [orders = Orders{BatchChanges(boxes), BatchModes(boxes), settings.bOptimizedID3v1,
                            HiddenFramesIn(settings)}](TextView /*path*/, const FileTags& tags) {
        return ChangeOf(tags, orders);
    };
}

TagRun::Edit FixEdit(const NamingContext& context) { return Fixer{KeptNaming(context)}; }

}  // namespace mdlPLM
