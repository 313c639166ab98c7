// The boxes of the tag panel, one row each, in the order in which they stand and are listed.
#pragma once

#include <array>

#include "core/names/tag_boxes.h"

namespace mdlPLM {

enum class TagBox : std::size_t {
    txtTitle,
    txtArtist,
    txtAlbum,
    txtYear,
    cmbGenre,
    txtTrackNr,
    txtComments,
    txtV2Title,
    txtV2Artist,
    txtV2Album,
    txtV2Year,
    cmbV2Genre,
    txtV2Track,
    txtV2Comments,
    txtV2Composer,
    txtV2OrigArtist,
    txtV2Copyright,
    txtV2Encoder,
    txtV2URL,
};
inline constexpr std::size_t TagBoxCount = 19;

enum class TagVersion { V1, V2 };

inline constexpr TextView AnyCharacter = {};
inline constexpr TextView Digits = u"0123456789";
inline constexpr TextView DigitsAndStar = u"*0123456789";

struct TagBoxRow {
    TagBox Box;
    const char* Name;  ///< of the control
    Text TagBoxes::*Value;
    TagVersion Version;
    TextView Label;        ///< in the question before a batch save
    BytesView Frame;       ///< ID3v2 frame; empty for ID3v1
    TextView KeptForOne;   ///< characters that a save of one file keeps
    TextView KeptInBatch;  ///< and one of all selected files
    TextView KeptByFix;    ///< and "Fix ID3"; a total behind a track number stays one
    bool Cleaned;          ///< "Fix ID3" cleans its text
};

inline constexpr std::array<TagBoxRow, TagBoxCount> TagBoxTable = {{
    {TagBox::txtTitle, "txtTitle", &TagBoxes::txtTitle, TagVersion::V1, u"Title: ", "",
     AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtArtist, "txtArtist", &TagBoxes::txtArtist, TagVersion::V1, u"Artist: ", "",
     AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtAlbum, "txtAlbum", &TagBoxes::txtAlbum, TagVersion::V1, u"Album: ", "",
     AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtYear, "txtYear", &TagBoxes::txtYear, TagVersion::V1, u"Year: ", "", Digits,
     DigitsAndStar, Digits, false},
    {TagBox::cmbGenre, "cmbGenre", &TagBoxes::cmbGenre, TagVersion::V1, u"Genre: ", "",
     AnyCharacter, AnyCharacter, AnyCharacter, false},
    {TagBox::txtTrackNr, "txtTrackNr", &TagBoxes::txtTrackNr, TagVersion::V1, u"Track: ", "",
     Digits, DigitsAndStar, Digits, false},
    {TagBox::txtComments, "txtComments", &TagBoxes::txtComments, TagVersion::V1, u"Comments: ", "",
     AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtV2Title, "txtV2Title", &TagBoxes::txtV2Title, TagVersion::V2, u"Title: ", "TIT2",
     AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtV2Artist, "txtV2Artist", &TagBoxes::txtV2Artist, TagVersion::V2, u"Artist: ",
     "TPE1", AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtV2Album, "txtV2Album", &TagBoxes::txtV2Album, TagVersion::V2, u"Album: ", "TALB",
     AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtV2Year, "txtV2Year", &TagBoxes::txtV2Year, TagVersion::V2, u"Year: ", "TYER",
     AnyCharacter, u"*0123456789/+-", u"*0123456789/+-", false},
    {TagBox::cmbV2Genre, "cmbV2Genre", &TagBoxes::cmbV2Genre, TagVersion::V2, u"Genre: ", "TCON",
     AnyCharacter, AnyCharacter, AnyCharacter, false},
    {TagBox::txtV2Track, "txtV2Track", &TagBoxes::txtV2Track, TagVersion::V2, u"Track: ", "TRCK",
     AnyCharacter, DigitsAndStar, u"*0123456789/", false},
    {TagBox::txtV2Comments, "txtV2Comments", &TagBoxes::txtV2Comments, TagVersion::V2,
     u"Comments: ", "COMM", AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtV2Composer, "txtV2Composer", &TagBoxes::txtV2Composer, TagVersion::V2,
     u"Composer: ", "TCOM", AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtV2OrigArtist, "txtV2OrigArtist", &TagBoxes::txtV2OrigArtist, TagVersion::V2,
     u"Original Artist: ", "TOPE", AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtV2Copyright, "txtV2Copyright", &TagBoxes::txtV2Copyright, TagVersion::V2,
     u"Copyright: ", "TCOP", AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtV2Encoder, "txtV2Encoder", &TagBoxes::txtV2Encoder, TagVersion::V2, u"Encoded By: ",
     "TENC", AnyCharacter, AnyCharacter, AnyCharacter, true},
    {TagBox::txtV2URL, "txtV2URL", &TagBoxes::txtV2URL, TagVersion::V2, u"URL: ", "WXXX",
     AnyCharacter, AnyCharacter, AnyCharacter, false},
}};

inline constexpr std::size_t IndexOf(TagBox box) { return static_cast<std::size_t>(box); }
inline constexpr const TagBoxRow& RowOf(TagBox box) { return TagBoxTable[IndexOf(box)]; }

}  // namespace mdlPLM
