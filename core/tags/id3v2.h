// The ID3v2 tag as the program reads it: frames are found by their four letters anywhere in the tag
// text, sizes are 7-bit groups in every version, the encoding byte is skipped.
#pragma once

#include <array>
#include <cstdint>

#include "core/platform/errors.h"

namespace mdlPLM {

/// All texts are single-byte text (code page), as the frames hold them.
struct ID3v2Tag {
    Bytes ID = Bytes(3, '\0');  ///< "ID3" when the file has a tag
    Bytes Version;              ///< "3.0" for version 3, revision 0; empty after an error
    Bytes Title;
    Bytes Artist;
    Bytes Album;
    Bytes Year;
    Bytes Comments;
    Bytes Genre;  ///< resolved name, see ResolveGenre
    Bytes Track;
    Bytes Composer;
    Bytes OrigArtist;
    Bytes Copyright;
    Bytes URL;
    Bytes Encoder;
    Bytes OtherFrames;  ///< the tag text without the twelve known frames; empty when only NULs

    [[nodiscard]] bool Present() const { return ID == "ID3"; }
};

inline constexpr std::size_t ID3v2HeaderSize = 10;

/// Four bytes as a size: b0 * 2^21 + b1 * 2^14 + b2 * 2^7 + b3, whatever their top bits. Missing
/// bytes count as 0.
std::int64_t DecodeSize(BytesView fourBytes);

/// The first four bytes as one plain number, as other programs write the sizes of frames.
std::int64_t DecodePlainSize(BytesView fourBytes);

/// The frame's text: the `n - 1` characters behind the encoding byte of the first place where the
/// identifier stands ("COMM": behind language and empty description); what follows the last NUL.
Bytes GetFrameText(BytesView tagText, BytesView identifier);

/// The same without a copy, for a tag text in which the identifier stands first at `start`; npos:
/// nowhere.
BytesView FrameTextAt(BytesView tagText, std::size_t start, BytesView identifier);

/// The tag text without the first place where the identifier stands, header and content; unchanged
/// when there is none or its size is 0.
Bytes RemoveFrame(BytesView tagText, BytesView identifier);

/// Name of a raw "TCON" text: "(17)" gives "Rock", "(17)Hardrock" gives "Hardrock", "(200)"
/// "Unknown"; a plain text such as "Rock" gives the empty text. Kept on purpose.
Bytes ResolveGenre(BytesView rawGenre);

/// Which parts of a tag a caller needs; what it does not ask for is not worked out.
enum class ID3v2Parts {
    NameFields,     ///< title, artist, album, year, track, genre, comments
    Everything,     ///< all twelve fields and OtherFrames
    FieldsAndText,  ///< all twelve fields, without OtherFrames; the tag text is kept, see FileTags
};

/// The record of a tag: `header` are its ten bytes, `tagText` what follows them (the frames, the
/// padding and up to ten bytes behind the tag).
ID3v2Tag ParseID3v2(BytesView header, BytesView tagText, ID3v2Parts parts);

/// Reads the tag at the start of a file; a missing file or one without a tag gives an empty record.
/// Errors (InputPastEnd when the declared size is larger than the file or the file ends inside the
/// header) are reported, and the record returns as filled so far.
ID3v2Tag ReadID3v2(TextView path, ErrorSink& errors);

}  // namespace mdlPLM
