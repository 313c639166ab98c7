// The trailer of any file: reading twice gives the same and changes nothing, what is rendered is
// parsed again, and a written trailer leaves the rest of the file alone.
#include <algorithm>

#include "app/tags/tag_edit.h"
#include "core/tags/file_tags.h"
#include "fuzz/tag_compare.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

class CountedErrors final : public ErrorSink {
public:
    void Report(ErrorNumber /*number*/, TextView /*path*/) override { ++Count; }
    int Count = 0;
};

FileTags TagsOf(const ID3v1Tag& tag) {
    FileTags tags;
    tags.Exists = true;
    tags.V1 = tag;
    return tags;
}

// What the boxes show of a record stays when the record is laid out anew from nothing but them.
void CheckBoxes(const ID3v1Tag& tag, BytesView trailer) {
    for (const bool optimized : {false, true}) {
        const V1Style keep{optimized, UnchangedFields::KeepBytes};
        RequireEqual(RenderID3v1(EditedV1(tag, {}, keep)), trailer, "unchanged fields changed");
        const V1Style anew{optimized, UnchangedFields::LayOutAnew};
        const TagBoxes shown = ShowBoxes(TagsOf(tag), optimized);
        const Bytes laidOut = RenderID3v1(EditedV1(tag, {}, anew));
        const TagBoxes again = ShowBoxes(TagsOf(ParseID3v1(laidOut)), optimized);
        for (const TagBoxRow& row : TagBoxTable)
            RequireEqual(again.*row.Value, shown.*row.Value, row.Name);
    }
}

void CheckTrailer(BytesView trailer) {
    const ID3v1Tag tag = ParseID3v1(trailer);
    Require(tag.Present() == (trailer.size() == ID3v1Size && trailer.substr(0, 3) == "TAG"),
            "a trailer is overlooked or made up");
    if (!tag.Present()) return;
    RequireEqual(RenderID3v1(tag), trailer, "a trailer changed");
    CheckBoxes(tag, trailer);
}

void CheckReading(BytesView file) {
    const ScratchFile scratch(file);
    CountedErrors errors;
    const ID3v1Tag tag = ReadID3v1(scratch.Path(), errors);
    Require(errors.Count == (file.size() < ID3v1Size ? 1 : 0), "another number of errors");
    RequireSame(ReadID3v1(scratch.Path(), errors), tag, "a second read differs");
    RequireSame(ReadFileTags(scratch.Path(), ID3v2Parts::NameFields, errors).V1, tag,
                "a read of both tags differs");
    RequireEqual(scratch.Contents(), file, "a file changed while it was read");
}

// The record to write is made of the input, too: what lies in front of its trailer.
void CheckWriting(BytesView file) {
    const ScratchFile scratch(file);
    ID3v1Tag record;
    record.Title = Bytes(file.substr(0, std::min<std::size_t>(40, file.size())));
    record.Comment = Bytes(record.Title.rbegin(), record.Title.rend());
    record.Track = file.empty() ? '\0' : file[file.size() / 2];
    SilentErrors silent;
    const bool written = WriteID3v1(scratch.Path(), record, silent);
    Require(written == (file.size() >= ID3v1Size), "another outcome of writing");
    if (!written) return RequireEqual(scratch.Contents(), file, "a file changed all the same");
    const bool over = file.substr(file.size() - ID3v1Size, 3) == "TAG";
    const Bytes kept(file.substr(0, file.size() - (over ? ID3v1Size : 0)));
    RequireEqual(scratch.Contents(), kept + RenderID3v1(record), "another file than asked for");
    RequireSame(ReadID3v1(scratch.Path(), silent), ParseID3v1(RenderID3v1(record)),
                "another record is read");
}

}  // namespace

void FuzzID3v1(BytesView input) {
    CheckTrailer(input.substr(input.size() - std::min(input.size(), ID3v1Size)));
    CheckReading(input);
    CheckWriting(input);
}

}  // namespace mdlPLM::fuzz
