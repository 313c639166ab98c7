// Any two records saved over any old file: the file is byte for byte what the size rules make of
// it, what was written is read again, and what fails or has no work leaves the file alone.
#include <algorithm>
#include <vector>

#include "core/tags/file_tags.h"
#include "core/tags/id3v2_writer.h"
#include "core/tags/save_tags.h"
#include "fuzz/tag_compare.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

constexpr std::int64_t MostPadding = 12000;

// The fields of a line, separated by "|"; "~" stands for a thousand times the character before it.
std::vector<Bytes> Fields(const Bytes& line) {
    std::vector<Bytes> fields(1);
    for (const char c : line) {
        Bytes& field = fields.back();
        if (c == '|')
            fields.emplace_back();
        else if (c == '~' && !field.empty() && field.size() < 30000)
            field.append(1000, field.back());
        else
            field.push_back(c);
    }
    return fields;
}

Bytes FieldOf(const std::vector<Bytes>& fields, std::size_t i) {
    return i < fields.size() ? fields[i] : Bytes();
}

TagMode ModeOf(const Bytes& line, std::size_t i) {
    const char c = i < line.size() ? line[i] : 'w';
    if (c == 'l') return TagMode::Leave;
    return c == 'r' ? TagMode::Remove : TagMode::Write;
}

// Line 1: a letter for each mode ("w", "l", "r"), then track and genre of the trailer as they are.
// Lines 2 and 3: the fields of both records. Line 4: the other frames.
TagChange TakeChange(Input& input) {
    TagChange change;
    const Bytes modes = input.Line();
    change.Modes = {ModeOf(modes, 0), ModeOf(modes, 1)};
    if (modes.size() > 2) change.V1.Track = modes[2];
    if (modes.size() > 3) change.V1.Genre = modes[3];
    const std::vector<Bytes> first = Fields(input.Line());
    for (std::size_t i = 1; i < std::size(V1Fields); ++i)
        change.V1.*V1Fields[i] = FieldOf(first, i - 1);
    const std::vector<Bytes> second = Fields(input.Line());
    for (std::size_t i = 0; i < KnownFrames.size(); ++i)
        change.V2.*KnownFrames[i].Field = FieldOf(second, i);
    change.V2.OtherFrames = FieldOf(Fields(input.Line()), 0);
    return change;
}

// The old file as the rules look at it.
struct Old {
    BytesView Whole;
    bool HasV1 = false;
    bool HasV2 = false;
    std::int64_t T = 0;    // declared tag length, header included
    std::int64_t End = 0;  // of the audio

    explicit Old(BytesView file) : Whole(file) {
        HasV1 = file.size() >= 128 && file.substr(file.size() - 128, 3) == "TAG";
        HasV2 = file.size() >= 128 && file.substr(0, 3) == "ID3";
        if (HasV2) T = DecodeSize(file.substr(6, 4)) + 10;
        End = static_cast<std::int64_t>(file.size()) - (HasV1 ? 128 : 0);
    }
    // The bytes between two offsets, as far as there are any.
    [[nodiscard]] Bytes Part(std::int64_t from, std::int64_t to) const {
        if (from >= std::min(to, Size())) return {};
        return Bytes(
            Whole.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)));
    }
    [[nodiscard]] std::int64_t Size() const { return static_cast<std::int64_t>(Whole.size()); }
};

Bytes Nuls(std::int64_t count) {
    return Bytes(static_cast<std::size_t>(std::max<std::int64_t>(count, 0)), '\0');
}

std::int64_t Declared(const Old& old, std::int64_t F) {
    if (old.HasV2 && F < old.T && old.T < MostPadding) return old.T;
    if (!old.HasV2) return F <= MostPadding ? 2 * F : F + MostPadding;
    return F;
}

struct Expected {
    SaveOutcome Outcome = SaveOutcome::NoWork;
    Bytes File;
};

// The rules of a save, reckoned plainly.
class Rules {
public:
    Rules(const Old& old, const TagChange& change) : old_(old), change_(change) {
        if (Mode2() == TagMode::Write) frames_ = BuildFrames(change.V2);
        if (Mode1() == TagMode::Write) trailer_ = RenderID3v1(change.V1);
    }

    [[nodiscard]] Expected Result() const {
        const auto F = static_cast<std::int64_t>(frames_.size());
        const bool leave1 = Mode1() == TagMode::Leave;
        if (leave1 && Mode2() == TagMode::Leave) return {};
        if (old_.Size() < 128 || old_.T > old_.End + 10) return {SaveOutcome::Failed, {}};
        const bool work2 = Mode2() == TagMode::Write ? F > 0 || old_.HasV2
                                                     : Mode2() == TagMode::Remove && old_.HasV2;
        const bool work1 = Mode1() == TagMode::Write || (Mode1() == TagMode::Remove && old_.HasV1);
        if (!work1 && !work2) return {};
        if (!work2) return {SaveOutcome::Written, old_.Part(0, old_.End) + trailer_};
        const std::int64_t room = old_.T - F - 10;
        // A trailer is not to be touched by a tag that declares to reach into it.
        const bool keepsTrailer = old_.HasV1 || Mode1() == TagMode::Write;
        const std::int64_t beyond = keepsTrailer ? std::max<std::int64_t>(0, old_.T - old_.End) : 0;
        const bool inPlace = Mode2() == TagMode::Write && Mode1() != TagMode::Remove &&
                             room >= beyond && room <= MostPadding;
        return {SaveOutcome::Written, inPlace ? InPlace(room - beyond) : Anew()};
    }

private:
    [[nodiscard]] TagMode Mode1() const { return change_.Modes.V1; }
    [[nodiscard]] TagMode Mode2() const { return change_.Modes.V2; }
    [[nodiscard]] Bytes Header() const {
        const std::int64_t declared = Declared(old_, static_cast<std::int64_t>(frames_.size()));
        Bytes header("ID3\3\0\0", 6);
        for (int shift = 21; shift >= 0; shift -= 7)
            header.push_back(static_cast<char>((declared >> shift) & 0x7F));
        return header;
    }
    [[nodiscard]] Bytes InPlace(std::int64_t padding) const {
        const Bytes head = Header() + frames_ + Nuls(padding);
        const auto from = static_cast<std::int64_t>(head.size());
        const bool newTrailer = !trailer_.empty();
        const std::int64_t end = newTrailer ? old_.End : old_.Size();
        return head + old_.Part(from, end) + trailer_;
    }
    [[nodiscard]] Bytes Anew() const {
        Bytes file;
        if (Mode2() == TagMode::Write)
            file = Header() + frames_ +
                   Nuls(std::min(static_cast<std::int64_t>(frames_.size()), MostPadding));
        const std::int64_t end = Mode1() == TagMode::Leave ? old_.Size() : old_.End;
        return file + old_.Part(std::min(old_.T, old_.End), end) + trailer_;
    }

    const Old& old_;
    const TagChange& change_;
    Bytes frames_;
    Bytes trailer_;
};

// The reader finds frames by their letters anywhere: a field is read again when no other place of
// the tag comes first.
bool IsFoundFirst(const ID3v2Tag& tag, const KnownFrame& wanted) {
    std::size_t start = 0;
    for (const KnownFrame& frame : KnownFrames)
        if (frame.WriteRank < wanted.WriteRank)
            start += BuildFrame(frame.Identifier, tag.*frame.Field).size();
    return BuildFrames(tag).find(wanted.Identifier) == start;
}

// A rewrite that takes the trailer away keeps the declared size of an old tag that had room; of a
// file of little else than tags less may be left. Kept on purpose.
bool DeclaresBeyondFile(BytesView file, const TagChange& change) {
    return change.Modes.V1 == TagMode::Remove &&
           DecodeSize(file.substr(std::min<std::size_t>(6, file.size()), 4)) >
               static_cast<std::int64_t>(file.size());
}

void CheckReadBack(TextView path, const TagChange& change) {
    SilentErrors silent;
    const FileTags tags = ReadFileTags(path, ID3v2Parts::Everything, silent);
    Require(!tags.V1Failed || tags.FileSize < 128, "the trailer cannot be read after a save");
    if (change.Modes.V1 == TagMode::Write)
        RequireSame(tags.V1, ParseID3v1(RenderID3v1(change.V1)), "another trailer is read");
    if (change.Modes.V2 != TagMode::Write || BuildFrames(change.V2).empty()) return;
    Require(tags.V2.Present() && !tags.V2Failed, "the tag cannot be read after a save");
    for (const KnownFrame& frame : KnownFrames) {
        const Bytes& wanted = change.V2.*frame.Field;
        if (wanted.empty() || !IsFoundFirst(change.V2, frame)) continue;
        const Bytes& is = tags.V2.*frame.Field;
        const Bytes shown = wanted.substr(wanted.rfind('\0') + 1);
        RequireEqual(is, frame.Identifier == "TCON" ? ResolveGenre(shown) : shown,
                     "another text is read");
    }
}

// The way of a caller that has just read the tags: it must write the very same bytes.
void CheckOpened(BytesView before, const TagChange& change, const Expected& expected) {
    const ScratchFile scratch(before, "opened.mp3");
    File file;
    Require(file.Open(scratch.Path(), File::Mode::ReadWrite).Ok(), "a file cannot be opened");
    SilentErrors silent;
    const FileTags tags = ReadFileTags(file, scratch.Path(), ID3v2Parts::FieldsAndText, silent);
    if (tags.V1Failed || tags.V2Failed) return;
    const SaveResult result = SaveTags({scratch.Path(), file, &tags}, change);
    Require(result.Outcome == expected.Outcome, "another outcome for an open file");
    RequireEqual(scratch.Contents(), result ? BytesView(expected.File) : before,
                 "another file through an open one");
}

// A second save of the same finds room and lets the file keep its length; only a tag that is all
// the file, and declares ten bytes more than there are, takes those ten.
void CheckSecondSave(const ScratchFile& scratch, const TagChange& change) {
    const bool tagged = change.Modes.V2 == TagMode::Write && !BuildFrames(change.V2).empty();
    const Bytes once = scratch.Contents();
    const SaveResult again = SaveTags(scratch.Path(), change.V1, change.V2, change.Modes);
    if (!tagged || change.Modes.V1 == TagMode::Remove || !again) return;
    const Old old(once);
    const std::int64_t expected = old.HasV1 ? old.Size() : std::max(old.Size(), old.T);
    Require(static_cast<std::int64_t>(scratch.Contents().size()) == expected,
            "a second save changed the length");
    CheckReadBack(scratch.Path(), change);
}

}  // namespace

void FuzzSave(BytesView bytes) {
    Input input(bytes);
    const TagChange change = TakeChange(input);
    const BytesView before = input.Rest();
    const Expected expected = Rules(Old(before), change).Result();
    const ScratchFile scratch(before);
    const SaveResult tried = TrySaveTags(scratch.Path(), change.V1, change.V2, change.Modes);
    RequireEqual(scratch.Contents(), before, "trying changed the file");
    const SaveResult result = SaveTags(scratch.Path(), change.V1, change.V2, change.Modes);
    Require(tried.Outcome == result.Outcome, "trying told another outcome");
    Require(result.Outcome == expected.Outcome, "another outcome than the rules have");
    RequireEqual(scratch.Contents(), result ? BytesView(expected.File) : before,
                 "another file than the rules make");
    CheckOpened(before, change, expected);
    if (!result || DeclaresBeyondFile(expected.File, change)) return;
    CheckReadBack(scratch.Path(), change);
    CheckSecondSave(scratch, change);
}

}  // namespace mdlPLM::fuzz
