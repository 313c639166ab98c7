// Tags of any garbage: nothing crashes, a trailer survives parse and render, and what a save hands
// on is never lost.
#include <cstdio>
#include <cstdlib>

#include "app/main/tag_edit.h"
#include "core/tags/id3v2_writer.h"

namespace {

using namespace mdlPLM;

void Require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

bool Holds(BytesView text, BytesView part) { return text.find(part) != BytesView::npos; }

void CheckTrailer(BytesView bytes) {
    const BytesView trailer = bytes.substr(bytes.size() - std::min(bytes.size(), ID3v1Size));
    const ID3v1Tag tag = ParseID3v1(trailer);
    if (tag.Present()) Require(RenderID3v1(tag) == trailer, "a trailer changed");
    for (const bool optimized : {false, true}) {
        const V1Style keep{optimized, UnchangedFields::KeepBytes};
        if (tag.Present())
            Require(RenderID3v1(EditedV1(tag, {}, keep)) == trailer, "unchanged fields changed");
        const TagBoxes shown = ShowBoxes({true, tag, {}, false, false, false, 0, 0, {}}, optimized);
        const ID3v1Tag anew = EditedV1(tag, {}, {optimized, UnchangedFields::LayOutAnew});
        const TagBoxes again = ShowBoxes(
            {true, ParseID3v1(RenderID3v1(anew)), {}, false, false, false, 0, 0, {}}, optimized);
        if (tag.Present())
            for (const TagBoxRow& row : TagBoxTable)
                Require(shown.*row.Value == again.*row.Value, row.Name);
    }
}

void CheckReader(BytesView text) {
    const ID3v2Tag tag = ParseID3v2(BuildTagHeader(0), text, ID3v2Parts::Everything);
    Require(tag.OtherFrames.size() <= text.size(), "other frames grew");
    const ID3v2Tag names = ParseID3v2(BuildTagHeader(0), text, ID3v2Parts::NameFields);
    for (const KnownFrame& frame : KnownFrames) {
        const Bytes& field = tag.*frame.Field;
        Require(field.find('\0') == Bytes::npos, "a NUL in a field");
        if (frame.InNames) Require(names.*frame.Field == field, "a field differs");
    }
}

void CheckWalk(BytesView text) {
    std::size_t end = 0;
    for (const WalkedFrame& frame : WalkFrames(text)) {
        Require(frame.Start == end && frame.Length >= FrameHeaderSize, "frames do not join");
        end = frame.Start + frame.Length;
        Require(end <= text.size(), "a frame beyond the end");
    }
}

// Every frame stands in what is saved, but the ones whose fields are written again.
void CheckHandOn(BytesView text, HandOn which) {
    const HeldFrames held = HoldFrames(text, which);
    const ID3v2Tag old = ParseID3v2(BuildTagHeader(0), text, ID3v2Parts::FieldsAndText);
    const Bytes saved = BuildFrames(EditedV2(old, held, {}, HiddenFrames::Keep));
    for (const WalkedFrame& frame : WalkFrames(text)) {
        const BytesView raw = text.substr(frame.Start, frame.Length);
        const bool genre = raw.substr(0, 4) == "TCON" && which == HandOn::NotWholeNoName;
        const bool onlyNuls = raw.find_first_not_of('\0') == BytesView::npos;
        if (!genre && !onlyNuls) Require(Holds(saved, raw), "a frame was lost");
    }
    (void)EditedV2(old, held, {}, HiddenFrames::Drop);
}

void CheckReplacing(BytesView text) {
    BoxChanges changes;
    for (const TagBoxRow& row : TagBoxTable) changes[IndexOf(row.Box)] = u"x";
    const ID3v2Tag old = ParseID3v2(BuildTagHeader(0), text, ID3v2Parts::FieldsAndText);
    const ID3v2Tag tag =
        EditedV2(old, HoldFrames(text, HandOn::NotWhole), changes, HiddenFrames::Keep);
    const Bytes frames = BuildFrames(tag);
    for (const KnownFrame& frame : KnownFrames)
        Require(GetFrameText(frames, frame.Identifier) == "x", "a new text is not read");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const BytesView bytes(reinterpret_cast<const char*>(data), size);
    CheckTrailer(bytes);
    CheckReader(bytes);
    CheckWalk(bytes);
    CheckHandOn(bytes, HandOn::NotWhole);
    CheckHandOn(bytes, HandOn::NotWholeNoName);
    CheckReplacing(bytes);
    (void)ResolveGenre(bytes.substr(0, 40));
    return 0;
}
