// The tag of any file: reading twice gives the same and changes nothing, the parts of a tag agree
// with each other, and what a save hands on is never lost.
#include <algorithm>

#include "app/tags/tag_edit.h"
#include "core/tags/file_tags.h"
#include "core/tags/id3v2_writer.h"
#include "fuzz/tag_compare.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

bool Holds(BytesView text, BytesView part) { return text.find(part) != BytesView::npos; }

ID3v2Tag Parsed(BytesView text, ID3v2Parts parts) {
    return ParseID3v2(BuildTagHeader(0), text, parts);
}

// Where the tag text of a file lies: from behind the header, ten bytes longer than declared.
BytesView TagTextOf(BytesView file) {
    const auto length = static_cast<std::size_t>(DecodeSize(file.substr(6, 4))) + 10;
    return file.substr(10, length);
}

ID3v2Tag PlainRead(BytesView file) {
    ID3v2Tag tag;
    if (file.substr(0, 3) != "ID3") return tag;
    tag.ID = "ID3";
    if (file.size() < 10) return tag;
    if (DecodeSize(file.substr(6, 4)) > static_cast<std::int64_t>(file.size())) return tag;
    return ParseID3v2(file, TagTextOf(file), ID3v2Parts::Everything);
}

void CheckFile(BytesView file) {
    const ScratchFile scratch(file);
    SilentErrors silent;
    const ID3v2Tag tag = ReadID3v2(scratch.Path(), silent);
    RequireSame(tag, PlainRead(file), "another tag than stands there");
    RequireSame(ReadID3v2(scratch.Path(), silent), tag, "a second read differs");
    const FileTags both = ReadFileTags(scratch.Path(), ID3v2Parts::Everything, silent);
    RequireSame(both.V2, tag, "a read of both tags differs");
    const FileTags fields = ReadFileTags(scratch.Path(), ID3v2Parts::FieldsAndText, silent);
    if (tag.Present() && !fields.V2Failed)
        RequireEqual(fields.V2Text, TagTextOf(file), "another tag text");
    RequireEqual(scratch.Contents(), file, "a file changed while it was read");
}

void CheckReader(BytesView text) {
    const ID3v2Tag tag = Parsed(text, ID3v2Parts::Everything);
    Require(tag.OtherFrames.size() <= text.size(), "other frames grew");
    const ID3v2Tag names = Parsed(text, ID3v2Parts::NameFields);
    for (const KnownFrame& frame : KnownFrames) {
        const Bytes& field = tag.*frame.Field;
        Require(!Holds(field, BytesView("\0", 1)), "a NUL in a field");
        if (frame.InNames) RequireEqual(names.*frame.Field, field, "a field differs");
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

// Every shown field has a frame when the hidden ones go, unless its letters stand inside another.
void CheckDropping(const ID3v2Tag& old, const HeldFrames& held) {
    const ID3v2Tag dropped = EditedV2(old, held, {}, HiddenFrames::Drop);
    Require(dropped.OtherFrames.size() <= held.OtherFrames.size(), "dropping made frames");
    const Bytes frames = BuildFrames(dropped);
    for (std::size_t i = 0; i < KnownFrames.size(); ++i)
        if (!(old.*KnownFrames[i].Field).empty() && held.Kinds[i] != FrameKind::Inside)
            Require(Holds(frames, KnownFrames[i].Identifier), "a field was lost");
}

// Every frame stands in what is saved, but the ones whose fields are written again.
void CheckHandOn(const RawTag& tag, HandOn which) {
    const HeldFrames held = HoldFrames(tag, which);
    const ID3v2Tag old = Parsed(tag.Text, ID3v2Parts::FieldsAndText);
    const Bytes saved = BuildFrames(EditedV2(old, held, {}, HiddenFrames::Keep));
    const Bytes bare = BareTagText(tag).value_or(Bytes(tag.Text));
    for (const WalkedFrame& frame : WalkFrames(bare)) {
        const BytesView raw = BytesView(bare).substr(frame.Start, frame.Length);
        const bool genre = raw.substr(0, 4) == "TCON" && which == HandOn::NotWholeNoName;
        const bool onlyNuls = raw.find_first_not_of('\0') == BytesView::npos;
        if (!genre && !onlyNuls) Require(Holds(saved, raw), "a frame was lost");
    }
    CheckDropping(old, held);
}

void CheckReplacing(const RawTag& raw) {
    BoxChanges changes;
    for (const TagBoxRow& row : TagBoxTable) changes[IndexOf(row.Box)] = u"x";
    const ID3v2Tag old = Parsed(raw.Text, ID3v2Parts::FieldsAndText);
    const ID3v2Tag tag =
        EditedV2(old, HoldFrames(raw, HandOn::NotWhole), changes, HiddenFrames::Keep);
    const Bytes frames = BuildFrames(tag);
    for (const KnownFrame& frame : KnownFrames)
        RequireEqual(GetFrameText(frames, frame.Identifier), "x", "a new text is not read");
}

}  // namespace

void FuzzID3v2(BytesView input) {
    CheckFile(input);
    const bool isTag = input.substr(0, 3) == "ID3" && input.size() > 10;
    const RawTag tag = isTag ? RawTag{input.substr(0, 10), TagTextOf(input)} : RawTag{{}, input};
    Require(BareTagText(tag).value_or(Bytes()).size() <= tag.Text.size(), "a bare tag grew");
    CheckReader(tag.Text);
    CheckWalk(tag.Text);
    CheckHandOn(tag, HandOn::NotWhole);
    CheckHandOn(tag, HandOn::NotWholeNoName);
    CheckReplacing(tag);
}

}  // namespace mdlPLM::fuzz
