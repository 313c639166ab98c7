// The fields of a tag that the program shows and edits, by the frames that hold them.
#pragma once

#include <array>
#include <optional>

#include "core/tags/standard/frame_content.h"
#include "core/tags/standard/tag.h"

namespace mdlPLM::standard {

enum class Field : unsigned char {
    Title,
    Artist,
    Album,
    Year,
    Comments,
    Genre,
    Track,
    Composer,
    OrigArtist,
    Copyright,
    URL,
    Encoder,
    AlbumArtist,
    Disc,
    BPM,
    OrigDate,
    Grouping,
    Conductor,
};

/// How a field's text stands in its frame.
enum class FieldForm : char {
    Text,
    Genre,
    Date,     ///< in one frame in ID3v2.4, in several in ID3v2.3
    Comment,  ///< one of several frames of that kind
    Url,      ///< the same
};

struct FieldRow {
    Field Which;
    FrameId Id;  ///< of a date that of ID3v2.4
    FieldForm Form;
    /// Of a date in ID3v2.3: year, day, time; empty: it has none.
    std::array<FrameId, 3> Parts{};
};

inline constexpr std::array<FieldRow, 18> FieldTable = {{
    {Field::Title, "TIT2", FieldForm::Text},
    {Field::Artist, "TPE1", FieldForm::Text},
    {Field::Album, "TALB", FieldForm::Text},
    {Field::Year, "TDRC", FieldForm::Date, {"TYER", "TDAT", "TIME"}},
    {Field::Comments, "COMM", FieldForm::Comment},
    {Field::Genre, "TCON", FieldForm::Genre},
    {Field::Track, "TRCK", FieldForm::Text},
    {Field::Composer, "TCOM", FieldForm::Text},
    {Field::OrigArtist, "TOPE", FieldForm::Text},
    {Field::Copyright, "TCOP", FieldForm::Text},
    {Field::URL, "WXXX", FieldForm::Url},
    {Field::Encoder, "TENC", FieldForm::Text},
    {Field::AlbumArtist, "TPE2", FieldForm::Text},
    {Field::Disc, "TPOS", FieldForm::Text},
    {Field::BPM, "TBPM", FieldForm::Text},
    {Field::OrigDate, "TDOR", FieldForm::Date, {"TORY", {}, {}}},
    {Field::Grouping, "TIT1", FieldForm::Text},
    {Field::Conductor, "TPE3", FieldForm::Text},
}};
inline constexpr std::size_t FieldCount = FieldTable.size();

/// The row of a field; they stand in the order of their enum.
constexpr const FieldRow& RowOf(Field field) { return FieldTable[static_cast<std::size_t>(field)]; }

/// One value for each field.
template <typename Value>
class ByField {
public:
    Value& operator[](Field field) { return values_[static_cast<std::size_t>(field)]; }
    const Value& operator[](Field field) const { return values_[static_cast<std::size_t>(field)]; }
    friend bool operator==(const ByField& a, const ByField& b) { return a.values_ == b.values_; }

private:
    std::array<Value, FieldCount> values_{};
};

/// The texts of all fields, as they are shown.
using FieldTexts = ByField<Text>;

/// The values of a field; none when the tag has no such frame.
std::vector<Text> FieldValues(const Tag& tag, Field field);

/// The text of a field as it is shown: its values with "; " between them, a track with its total
/// ("3/12"), a date as exact as it is ("1999-05-17").
Text FieldText(const Tag& tag, Field field);
FieldTexts ReadFields(const Tag& tag);

/// The text of a field as a file name has it: the first value only, a track or disc without its
/// total, of a date the year. Decodes no other frame.
Text FieldForName(const Tag& tag, Field field);

/// What stands before the "/" of a track or disc.
Text WithoutTotal(TextView track);

/// The frame that holds the comment, or the address, that is shown: the first without a
/// description, else the first. Comments that other programs keep their own figures in ("iTunNORM")
/// are none. As a place in tag.Frames; nothing when there is none.
std::optional<std::size_t> ShownFrame(const Tag& tag, Field field);

/// Every picture of a tag with the place of its frame.
struct PlacedPicture {
    std::size_t Place = 0;
    Picture Content;
};
std::vector<PlacedPicture> ReadPictures(const Tag& tag);

}  // namespace mdlPLM::standard
