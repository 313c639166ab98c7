// The fields that a name can hold, one row each: their placeholders, where each stands in both tags
// and the tag panel's boxes of it. Patterns, names, boxes and the command line read this table.
#pragma once

#include <array>

#include "core/names/tag_boxes.h"
#include "core/tags/id3v1.h"
#include "core/tags/id3v2.h"

namespace mdlPLM {

/// The values that a pattern can hold.
struct FieldValues {
    Text Artist;
    Text Title;
    Text Album;
    Text Track;
    Text Year;
    Text Genre;
    Text Comment;
};

/// Where the trailer has a field: as text, as a number or not at all.
struct FieldInV1 {
    Bytes ID3v1Tag::*Text = nullptr;
    Bytes ID3v1Tag::*Carrier = nullptr;  ///< holds its end in the optimized layout
    char ID3v1Tag::*Number = nullptr;
    Bytes (*TextOfNumber)(char) = nullptr;
};

/// How a name says a number of the trailer: no track is empty, no genre "Unknown".
Bytes TrackInName(char track);
Bytes GenreInName(char genre);

struct NameField {
    TextView Placeholder;  ///< in a pattern, with its "%"
    Text FieldValues::*Value = nullptr;
    bool DigitsOnly = false;
    bool FirstLetters = false;  ///< the case option for first letters goes for it by itself
    /// One of those that a pattern with all of them loses the first of, see PatternRules.
    bool OfTheSeven = false;
    FieldInV1 V1 = {};
    Bytes ID3v2Tag::*V2 = nullptr;
    Text TagBoxes::*V1Box = nullptr;  ///< nullptr: the trailer does not have the field
    Text TagBoxes::*V2Box = nullptr;
    bool FillsBoxes = false;  ///< where its boxes are empty the old name fills them
    Pos CopiedToV1 = 0;       ///< characters of the second box that the first takes over; 0: all

    /// As GetFieldFromPattern takes it.
    [[nodiscard]] constexpr TextView Word() const { return Placeholder.substr(1); }
};

/// In the order in which a pattern is filled. No word may begin with another one.
inline constexpr std::array<NameField, 7> NameFields = {{
    {.Placeholder = u"%artist",
     .Value = &FieldValues::Artist,
     .FirstLetters = true,
     .OfTheSeven = true,
     .V1 = {.Text = &ID3v1Tag::Artist, .Carrier = &ID3v1Tag::Album},
     .V2 = &ID3v2Tag::Artist,
     .V1Box = &TagBoxes::txtArtist,
     .V2Box = &TagBoxes::txtV2Artist,
     .FillsBoxes = true,
     .CopiedToV1 = 30},
    {.Placeholder = u"%title",
     .Value = &FieldValues::Title,
     .FirstLetters = true,
     .OfTheSeven = true,
     .V1 = {.Text = &ID3v1Tag::Title, .Carrier = &ID3v1Tag::Comment},
     .V2 = &ID3v2Tag::Title,
     .V1Box = &TagBoxes::txtTitle,
     .V2Box = &TagBoxes::txtV2Title,
     .FillsBoxes = true,
     .CopiedToV1 = 30},
    {.Placeholder = u"%album",
     .Value = &FieldValues::Album,
     .FirstLetters = true,
     .OfTheSeven = true,
     .V1 = {.Text = &ID3v1Tag::Album},
     .V2 = &ID3v2Tag::Album,
     .V1Box = &TagBoxes::txtAlbum,
     .V2Box = &TagBoxes::txtV2Album,
     .FillsBoxes = true,
     .CopiedToV1 = 30},
    {.Placeholder = u"%track",
     .Value = &FieldValues::Track,
     .DigitsOnly = true,
     .OfTheSeven = true,
     .V1 = {.Number = &ID3v1Tag::Track, .TextOfNumber = TrackInName},
     .V2 = &ID3v2Tag::Track,
     .V1Box = &TagBoxes::txtTrackNr,
     .V2Box = &TagBoxes::txtV2Track,
     .FillsBoxes = true},
    {.Placeholder = u"%year",
     .Value = &FieldValues::Year,
     .DigitsOnly = true,
     .OfTheSeven = true,
     .V1 = {.Text = &ID3v1Tag::Year},
     .V2 = &ID3v2Tag::Year,
     .V1Box = &TagBoxes::txtYear,
     .V2Box = &TagBoxes::txtV2Year,
     .FillsBoxes = true,
     .CopiedToV1 = 4},
    {.Placeholder = u"%genre",
     .Value = &FieldValues::Genre,
     .OfTheSeven = true,
     .V1 = {.Number = &ID3v1Tag::Genre, .TextOfNumber = GenreInName},
     .V2 = &ID3v2Tag::Genre,
     .V1Box = &TagBoxes::cmbGenre,
     .V2Box = &TagBoxes::cmbV2Genre,
     .FillsBoxes = true},
    // Beside a track number the trailer's comment has two characters less.
    {.Placeholder = u"%comment",
     .Value = &FieldValues::Comment,
     .OfTheSeven = true,
     .V1 = {.Text = &ID3v1Tag::Comment},
     .V2 = &ID3v2Tag::Comments,
     .V1Box = &TagBoxes::txtComments,
     .V2Box = &TagBoxes::txtV2Comments,
     .CopiedToV1 = 28},
}};

/// The row of a value.
constexpr const NameField& FieldOf(Text FieldValues::*value) {
    std::size_t row = 0;
    while (NameFields[row].Value != value) ++row;
    return NameFields[row];
}

/// The row that one of its two boxes is of; nothing when no name holds what the box shows.
constexpr const NameField* FieldOfBox(Text TagBoxes::*box) {
    for (const NameField& field : NameFields)
        if (field.V1Box == box || field.V2Box == box) return &field;
    return nullptr;
}

}  // namespace mdlPLM
