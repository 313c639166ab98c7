#include "app/namefromtext/filled_tags.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "core/names/patterns.h"
#include "core/tags/genres.h"
#include "core/tags/held_frames.h"
#include "core/text/code_page.h"

namespace mdlPLM {

namespace {

// Which fields of the trailer get a new text; the others keep their bytes.
struct V1Changes {
    bool Title = false;
    bool Artist = false;
    bool Album = false;
    bool Year = false;
    bool Comment = false;
    ID3v1Texts Texts;
};

// A text field of both versions; the title has no box that holds for all files.
struct FieldRow {
    const NameField* Field;
    Text ID3v1Texts::*V1Text;
    bool V1Changes::*V1Changed;
    bool RunTagChoices::*ForAll;
    Text RunTagChoices::*Box;
};
constexpr std::array<FieldRow, 4> Fields = {{
    {&FieldOf(&FieldValues::Title), &ID3v1Texts::Title, &V1Changes::Title, nullptr, nullptr},
    {&FieldOf(&FieldValues::Artist), &ID3v1Texts::Artist, &V1Changes::Artist,
     &RunTagChoices::chkArtist4All, &RunTagChoices::txtArtist},
    {&FieldOf(&FieldValues::Album), &ID3v1Texts::Album, &V1Changes::Album,
     &RunTagChoices::chkAlbum4All, &RunTagChoices::txtAlbum},
    {&FieldOf(&FieldValues::Year), &ID3v1Texts::Year, &V1Changes::Year, &RunTagChoices::chkYear4All,
     &RunTagChoices::txtYear},
}};

bool IsForAll(const FieldRow& row, const RunTagChoices& choices) {
    return row.ForAll != nullptr && choices.*row.ForAll;
}

bool IsBlank(BytesView field) { return field.find_first_not_of(' ') == BytesView::npos; }

struct FieldsOfName {
    TextView Name;
    TextView Pattern;
    const Settings& Values;

    [[nodiscard]] Text operator()(const NameField& field) const {
        return GetFieldFromPath(Name, field.Word(), Pattern, Values);
    }
};
constexpr const NameField& Track = FieldOf(&FieldValues::Track);
constexpr const NameField& Genre = FieldOf(&FieldValues::Genre);
constexpr const NameField& Comment = FieldOf(&FieldValues::Comment);

char TrackByte(TextView text) {
    const long long number = IntegerPart(text);
    return number >= 1 && number <= 255 ? static_cast<char>(number) : '\0';
}

char GenreByte(TextView name) { return static_cast<char>(GetGenreIndex(ToCodePage(name))); }

Bytes GenreReference(const Bytes& name) {
    if (IsBlank(name)) return {};
    return "(" + std::to_string(GetGenreIndex(name)) + ")" + name;
}

V1Changes ChangesOf(const ID3v1Tag& own, const FieldsOfName& nameFields,
                    const RunTagChoices& choices, bool optimized) {
    V1Changes changes;
    changes.Texts = ShowID3v1(own, optimized);
    for (const FieldRow& row : Fields) {
        const bool forAll = IsForAll(row, choices);
        if (!forAll && !IsOnlyNuls(own.*row.Field->V1.Text)) continue;
        changes.*row.V1Changed = true;
        changes.Texts.*row.V1Text = forAll ? choices.*row.Box : nameFields(*row.Field);
    }
    changes.Comment = choices.chkRelease4All;
    if (changes.Comment) changes.Texts.Comment = choices.txtReleaseDate;
    return changes;
}

// In the optimized layout the album carries the end of the artist and the comment that of the
// title, so each is laid out anew with the field that it serves.
void LayOutChanges(ID3v1Tag& record, const V1Changes& changes, bool optimized) {
    ID3v1Tag laid = record;
    LayOutID3v1(laid, changes.Texts, optimized);
    if (changes.Title) record.Title = laid.Title;
    if (changes.Artist) record.Artist = laid.Artist;
    if (changes.Year) record.Year = laid.Year;
    if (changes.Album || (optimized && changes.Artist)) record.Album = laid.Album;
    if (changes.Comment || (optimized && changes.Title)) record.Comment = laid.Comment;
}

// The record of the second version under way: the known frames that are handed on as they stand are
// among its other frames until something else is put in their place.
class V2Filling {
public:
    explicit V2Filling(const OwnID3v2& own)
        : record_(own.Tag), held_(HoldFrames({own.Header, own.TagText}, HandOn::NotWholeNoName)) {}

    void Put(Bytes ID3v2Tag::*field, TextView text) {
        record_.*field = ToCodePage(text);
        GiveWay(held_, IndexOf(field));
    }

    void PutIfEmpty(Bytes ID3v2Tag::*field, const Text& text) {
        if (IsBlank(record_.*field) && !text.empty()) Put(field, text);
    }

    ID3v2Tag Finish(HiddenFrames hidden) {
        HandOnTo(record_, std::move(held_), hidden);
        record_.Genre = GenreReference(record_.Genre);
        return std::move(record_);
    }

private:
    static std::size_t IndexOf(Bytes ID3v2Tag::*field) {
        std::size_t index = 0;
        while (KnownFrames[index].Field != field) ++index;
        return index;
    }

    ID3v2Tag record_;
    HeldFrames held_;
};

}  // namespace

ID3v1Tag FillID3v1(const ID3v1Tag& own, TextView newName, const RunTagChoices& choices,
                   const Settings& settings) {
    const FieldsOfName nameFields{newName, choices.OutPattern, settings};
    ID3v1Tag record = own;
    record.Tag = "TAG";
    const bool optimized = settings.bOptimizedID3v1;
    LayOutChanges(record, ChangesOf(own, nameFields, choices, optimized), optimized);
    if (record.Track == '\0') record.Track = TrackByte(nameFields(Track));
    if (choices.chkGenre4All)
        record.Genre = GenreByte(choices.cmbGenre);
    else if (record.Genre == NoGenre)
        record.Genre = GenreByte(nameFields(Genre));
    return record;
}

ID3v2Tag FillID3v2(const OwnID3v2& own, TextView newName, const RunTagChoices& choices,
                   const Settings& settings) {
    V2Filling filling(own);
    const FieldsOfName nameFields{newName, choices.OutPattern, settings};
    for (const FieldRow& row : Fields) {
        if (IsForAll(row, choices))
            filling.Put(row.Field->V2, choices.*row.Box);
        else
            filling.PutIfEmpty(row.Field->V2, nameFields(*row.Field));
    }
    const Text track = nameFields(Track);
    filling.PutIfEmpty(Track.V2, track.empty() ? track : NumberText(IntegerPart(track)));
    if (choices.chkGenre4All)
        filling.Put(Genre.V2, choices.cmbGenre);
    else
        filling.PutIfEmpty(Genre.V2, nameFields(Genre));
    if (choices.chkRelease4All) filling.Put(Comment.V2, choices.txtReleaseDate);
    return filling.Finish(settings.bRemHiddenID3 ? HiddenFrames::Drop : HiddenFrames::Keep);
}

}  // namespace mdlPLM
