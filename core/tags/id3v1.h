// The ID3v1 trailer: the last 128 bytes of a file (ID3v1.0 and ID3v1.1).
#pragma once

#include <array>
#include <cstdint>

#include "core/platform/errors.h"

namespace mdlPLM {

inline constexpr std::size_t ID3v1Size = 128;
/// The same as a distance in a file.
inline constexpr auto TrailerSize = static_cast<std::int64_t>(ID3v1Size);
inline constexpr char NoGenre = '\xFF';

/// The record. Every field is fixed-width single-byte text, kept at full width as the file holds
/// it; callers trim for display and for names (FieldText). All NUL at the start.
struct ID3v1Tag {
    Bytes Tag = Bytes(3, '\0');  ///< "TAG" when the file has a trailer
    Bytes Title = Bytes(30, '\0');
    Bytes Artist = Bytes(30, '\0');
    Bytes Album = Bytes(30, '\0');
    Bytes Year = Bytes(4, '\0');
    Bytes Comment = Bytes(30, '\0');
    char Track = '\0';  ///< track number as one byte; NUL: none
    char Genre = '\0';  ///< genre number as one byte; 255: none

    [[nodiscard]] bool Present() const { return Tag == "TAG"; }
};

/// The first `length` characters of `text`, or `text` followed by the first character of `pad` as
/// often as needed. A negative length counts as 0, an empty pad adds nothing.
Bytes PadString(BytesView text, int length, BytesView pad);

/// A field up to its first NUL; nothing is trimmed.
BytesView UpToNul(BytesView field);
/// What the optimized layout keeps behind the first NUL of an album or comment field, up to the
/// next one.
BytesView Continuation(BytesView field);

/// A field up to its first NUL, its continuation behind it, trimmed of blanks: for display and for
/// names.
Bytes FieldText(BytesView field, BytesView continuation = {});

/// The record of the 128 bytes of a trailer. `Track` is NUL unless byte 125 is 0 (ID3v1.1), and
/// then the comment keeps its first 29 characters followed by one NUL. Other bytes than 128, or no
/// "TAG" in front: no trailer (three NULs in `Tag`, 255 in `Genre`).
ID3v1Tag ParseID3v1(BytesView trailer);
/// The same over a record that is still as it was made.
void ParseID3v1(BytesView trailer, ID3v1Tag& tag);

/// True for the 128 bytes of an ID3v1.1 trailer: byte 125 is 0, whatever the track byte behind it.
bool HasTrackByte(BytesView trailer);

/// The 128 bytes of a record: the ID3v1.0 layout without a track, the ID3v1.1 layout with one.
Bytes RenderID3v1(const ID3v1Tag& tag);

/// Reads the trailer of a file. A missing file gives an all-NUL record. A file shorter than 128
/// bytes, or any error while reading, is reported to `errors`; `Genre` is then 255.
ID3v1Tag ReadID3v1(TextView path, ErrorSink& errors);

/// Writes the 128 bytes over an existing trailer or behind the file's end; nothing else is touched.
/// Never creates a file. False, and a report, when it could not.
bool WriteID3v1(TextView path, const ID3v1Tag& tag, ErrorSink& errors);

/// The genre name of a file's trailer: empty for a missing file, "Unknown" without a trailer.
Text GetFileGenre(TextView path, ErrorSink& errors);

/// Texts as the user enters them, before they are laid out in the record.
struct ID3v1Texts {
    Text Title;
    Text Artist;
    Text Album;
    Text Year;
    Text Comment;
};

/// Fills the text fields of `tag` (code page, NUL padded, cut to their widths). Optimized: title
/// and artist beyond 30 characters continue behind comment and album, after one NUL.
void LayOutID3v1(ID3v1Tag& tag, const ID3v1Texts& texts, bool optimized);

/// The mirror of LayOutID3v1 for display: each field cut at its first NUL, the continuation
/// appended (before trimming) when `optimized`, then trimmed.
/// A field without a NUL, or with its first NUL at the last character, has no continuation.
ID3v1Texts ShowID3v1(const ID3v1Tag& tag, bool optimized);

/// Entry limits of the optimized layout, in characters: the artist box 59 less the album, without a
/// floor; the title box 59 less the comment, 2 fewer with a track number, never fewer than 30.
int OptimizedArtistLimit(std::size_t albumLength);
int OptimizedTitleLimit(std::size_t commentLength, bool hasTrack);

}  // namespace mdlPLM
