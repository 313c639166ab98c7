// What a file holds beside its audio, and where: tags at its start and at its end. Only the first
// tag at the start is read and written; all others are found so that they are left alone.
#pragma once

#include <vector>

#include "core/tags/standard/tag.h"
#include "core/tags/stream_info.h"

namespace mdlPLM::standard {

enum class PieceKind : char {
    ID3v2,       ///< at the start of the file, or behind another one
    ID3v2AtEnd,  ///< ID3v2.4.0, section 5: found by its footer
    ID3v1,       ///< the last 128 bytes, or before what follows
    Enhanced,    ///< "TAG+", 227 bytes before an ID3v1 tag
    Ape,         ///< version 1 and 2, by its footer
    Lyrics3,     ///< version 1 and 2
};

struct Piece {
    PieceKind Kind = PieceKind::ID3v2;
    std::int64_t At = 0;
    std::int64_t Length = 0;
};

struct FileLayout {
    std::int64_t Size = 0;
    std::vector<Piece> Front;  ///< in file order; the first is the tag that is read
    std::vector<Piece> Back;   ///< in file order
    std::int64_t AudioBegin = 0;
    std::int64_t AudioEnd = 0;
    /// Bytes from the start of the file that are the tag's: the tag as it declares itself, or as it
    /// really is. Everything behind them is kept when the tag is written.
    std::int64_t TagRoom = 0;
    std::int64_t TagUsed = 0;  ///< of them, header and frames
    /// The tag declares more than the file holds, and no audio is found that it could end at.
    bool TagBeyondFile = false;
    Bytes Trailer;  ///< the last 128 bytes when they are an ID3v1 tag, else empty
};

/// The layout of a file of `size` bytes; `tag` was parsed from its start.
///
/// A tag ends where it says, but for two things that this program's classic way of saving leaves.
/// When audio begins right behind the frames and their padding, or within the last ten bytes that
/// the tag declares, the tag ends there. NULs behind a plain tag of ID3v2.3 up to the first frame
/// of audio are its padding, which it does not declare. Any other bytes between tag and audio are
/// nobody's to take away: they stay.
FileLayout FindLayout(const ReadBytes& read, std::int64_t size, const Tag& tag);

}  // namespace mdlPLM::standard
