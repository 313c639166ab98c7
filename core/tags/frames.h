// The twelve ID3v2 frames that the program knows (ID3v2.3.0, sections 4.2, 4.3 and 4.11).
#pragma once

#include "core/tags/id3v2.h"

namespace mdlPLM {

struct KnownFrame {
    BytesView Identifier;
    Bytes ID3v2Tag::*Field;
    bool InNames;           ///< a new file name may need it
    std::size_t WriteRank;  ///< place among the frames of a written tag, from 0
};

/// In the order in which they are cut out of the tag text to leave the other frames.
inline constexpr std::array<KnownFrame, 12> KnownFrames = {{
    {"TRCK", &ID3v2Tag::Track, true, 3},
    {"TALB", &ID3v2Tag::Album, true, 1},
    {"TPE1", &ID3v2Tag::Artist, true, 2},
    {"TIT2", &ID3v2Tag::Title, true, 0},
    {"TYER", &ID3v2Tag::Year, true, 4},
    {"COMM", &ID3v2Tag::Comments, true, 6},
    {"TCON", &ID3v2Tag::Genre, true, 5},
    {"TCOM", &ID3v2Tag::Composer, false, 10},
    {"TCOP", &ID3v2Tag::Copyright, false, 8},
    {"TENC", &ID3v2Tag::Encoder, false, 7},
    {"TOPE", &ID3v2Tag::OrigArtist, false, 9},
    {"WXXX", &ID3v2Tag::URL, false, 11},
}};

inline constexpr std::size_t FrameHeaderSize = 10;

/// Where each known identifier stands first in a tag text, even inside another frame's content;
/// npos: nowhere. In the order of KnownFrames.
using FramePlaces = std::array<std::size_t, KnownFrames.size()>;
FramePlaces PlacesOfFrames(BytesView tagText);

}  // namespace mdlPLM
