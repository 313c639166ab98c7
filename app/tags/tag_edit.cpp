#include "app/tags/tag_edit.h"

#include <algorithm>

#include "core/names/fixing_rules.h"
#include "core/names/name_fields.h"
#include "core/tags/genres.h"
#include "core/text/code_page.h"

namespace mdlPLM {

namespace {

constexpr int LastTrack = 255;

// A line ends here for some program or other, or the text does.
constexpr TextView NeverEntered{u"\0\r\n\u2028\u2029", 5};

const KnownFrame& FrameOf(const TagBoxRow& row) {
    return *std::find_if(KnownFrames.begin(), KnownFrames.end(),
                         [&](const KnownFrame& frame) { return frame.Identifier == row.Frame; });
}

std::size_t IndexOfFrame(const KnownFrame& frame) {
    return static_cast<std::size_t>(&frame - KnownFrames.data());
}

// A number without a name, none among them, shows as the empty entry.
Text GenreText(char number) {
    const int genre = static_cast<unsigned char>(number);
    return genre < GenreCount ? FromCodePage(GenreNameOfNumber(genre)) : Text();
}

Text TrackText(char track) {
    return track == '\0' ? Text()
                         : NumberText(static_cast<long long>(static_cast<unsigned char>(track)));
}

void ShowV1(const ID3v1Tag& tag, bool optimized, TagBoxes& boxes) {
    ID3v1Texts texts = ShowID3v1(tag, optimized);
    boxes.txtTitle = std::move(texts.Title);
    boxes.txtArtist = std::move(texts.Artist);
    boxes.txtAlbum = std::move(texts.Album);
    boxes.txtYear = std::move(texts.Year);
    boxes.txtComments = std::move(texts.Comment);
    boxes.cmbGenre = GenreText(tag.Genre);
    boxes.txtTrackNr = TrackText(tag.Track);
}

void TakeChange(const BoxChanges& changes, TagBox box, Text& text) {
    if (const std::optional<Text>& change = changes[IndexOf(box)]; change) text = *change;
}

bool IsChanged(const BoxChanges& changes, TagBox box) { return changes[IndexOf(box)].has_value(); }

// Bytes behind the text that no box shows; `shown` is the number of NULs that end what is shown.
bool HasHiddenBytes(BytesView field, int shown) {
    for (; shown > 0 && !field.empty(); --shown)
        field.remove_prefix(std::min(field.find('\0'), field.size() - 1) + 1);
    return field.find_first_not_of(BytesView("\0 ", 2)) != BytesView::npos;
}

// Two fields of the trailer that share their texts in the optimized layout.
struct FieldPair {
    Bytes ID3v1Tag::*Text;
    TagBox TextBox;
    Bytes ID3v1Tag::*Carrier;
    TagBox CarrierBox;
};
constexpr std::array<FieldPair, 2> Pairs = {
    {{&ID3v1Tag::Title, TagBox::txtTitle, &ID3v1Tag::Comment, TagBox::txtComments},
     {&ID3v1Tag::Artist, TagBox::txtArtist, &ID3v1Tag::Album, TagBox::txtAlbum}}};

class V1Edit {
public:
    V1Edit(const ID3v1Tag& old, V1Style style) : old_(old), style_(style) {}

    void TakePair(ID3v1Tag& tag, const FieldPair& pair, const BoxChanges& changes) const {
        const bool keepsText = Keeps(pair.Text, IsChanged(changes, pair.TextBox), 1);
        const bool keepsCarrier =
            Keeps(pair.Carrier, IsChanged(changes, pair.CarrierBox), style_.Optimized ? 2 : 1);
        const bool changed =
            IsChanged(changes, pair.TextBox) || IsChanged(changes, pair.CarrierBox);
        // Sharing their texts, they stay together or are laid out together.
        const bool together = style_.Optimized;
        const bool keepsBoth = !changed && (keepsText || keepsCarrier);
        if (together ? keepsBoth : keepsText) tag.*pair.Text = old_.*pair.Text;
        if (together ? keepsBoth : keepsCarrier) tag.*pair.Carrier = old_.*pair.Carrier;
    }

    void TakeYear(ID3v1Tag& tag, const BoxChanges& changes) const {
        if (Keeps(&ID3v1Tag::Year, IsChanged(changes, TagBox::txtYear), 1)) tag.Year = old_.Year;
    }

private:
    [[nodiscard]] bool Keeps(Bytes ID3v1Tag::*field, bool changed, int shownNuls) const {
        return !changed && (style_.Unchanged == UnchangedFields::KeepBytes ||
                            HasHiddenBytes(old_.*field, shownNuls));
    }

    const ID3v1Tag& old_;
    V1Style style_;
};

ID3v1Texts EditedTexts(const ID3v1Tag& old, const BoxChanges& changes, bool optimized) {
    ID3v1Texts texts = ShowID3v1(old, optimized);
    TakeChange(changes, TagBox::txtTitle, texts.Title);
    TakeChange(changes, TagBox::txtArtist, texts.Artist);
    TakeChange(changes, TagBox::txtAlbum, texts.Album);
    TakeChange(changes, TagBox::txtYear, texts.Year);
    TakeChange(changes, TagBox::txtComments, texts.Comment);
    return texts;
}

}  // namespace

TagBoxes ShowBoxes(const FileTags& tags, bool optimized) {
    TagBoxes boxes;
    boxes.chkID3v1 = tags.V1.Present();
    boxes.chkID3v2 = tags.V2.Present();
    if (boxes.chkID3v1) ShowV1(tags.V1, optimized, boxes);
    for (const TagBoxRow& row : TagBoxTable)
        if (row.Version == TagVersion::V2)
            boxes.*row.Value = FromCodePage(tags.V2.*FrameOf(row).Field);
    return boxes;
}

void CopyBoxesFromV1(TagBoxes& boxes) {
    boxes.chkID3v2 = true;
    for (const NameField& field : NameFields)
        if (field.V1Box != nullptr) boxes.*field.V2Box = boxes.*field.V1Box;
}

void CopyBoxesToV1(TagBoxes& boxes) {
    boxes.chkID3v1 = true;
    for (const NameField& field : NameFields) {
        if (field.V1Box == nullptr) continue;
        const Text& text = boxes.*field.V2Box;
        boxes.*field.V1Box = field.CopiedToV1 == 0 ? text : Left(text, field.CopiedToV1);
    }
}

Text TextForBox(TextView text, TextView allowed) {
    Text taken = RemoveChars(text, NeverEntered, RemoveMode::Remove);
    return allowed.empty() ? taken : RemoveChars(taken, allowed, RemoveMode::KeepOnly);
}

BoxChanges ChangesBetween(const TagBoxes& shown, const TagBoxes& now) {
    BoxChanges changes;
    for (const TagBoxRow& row : TagBoxTable)
        if (shown.*row.Value != now.*row.Value) changes[IndexOf(row.Box)] = now.*row.Value;
    return changes;
}

char TrackByte(TextView text) {
    if (text.find(u'*') != TextView::npos) return '\0';
    const long long track = IntegerPart(RemoveChars(text, Digits, RemoveMode::KeepOnly));
    return track > LastTrack ? '\0' : static_cast<char>(track);
}

ID3v1Tag EditedV1(const ID3v1Tag& old, const BoxChanges& changes, V1Style style) {
    ID3v1Tag tag;
    tag.Tag = "TAG";
    LayOutID3v1(tag, EditedTexts(old, changes, style.Optimized), style.Optimized);
    const V1Edit edit(old, style);
    for (const FieldPair& pair : Pairs) edit.TakePair(tag, pair, changes);
    edit.TakeYear(tag, changes);
    const std::optional<Text>& track = changes[IndexOf(TagBox::txtTrackNr)];
    const std::optional<Text>& genre = changes[IndexOf(TagBox::cmbGenre)];
    tag.Track = track ? TrackByte(*track) : old.Track;
    tag.Genre = genre ? static_cast<char>(GetGenreIndex(ToCodePage(*genre))) : old.Genre;
    return tag;
}

ID3v2Tag EditedV2(const ID3v2Tag& old, HeldFrames held, const BoxChanges& changes,
                  HiddenFrames hidden) {
    ID3v2Tag tag = old;
    for (const TagBoxRow& row : TagBoxTable) {
        if (row.Version != TagVersion::V2) continue;
        const std::optional<Text>& change = changes[IndexOf(row.Box)];
        if (!change) continue;
        const KnownFrame& frame = FrameOf(row);
        tag.*frame.Field = ToCodePage(*change);
        GiveWay(held, IndexOfFrame(frame));
    }
    HandOnTo(tag, std::move(held), hidden);
    return tag;
}

}  // namespace mdlPLM
