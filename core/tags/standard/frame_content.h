// What frames say: ID3v2.3.0, section 4; ID3v2.4.0, section 4; ID3v2.2.0, section 4. Parsing is
// beside rendering; what is parsed may be damaged, what is rendered never is.
#pragma once

#include <optional>

#include "core/tags/standard/encoded_text.h"
#include "core/tags/standard/frame_body.h"
#include "core/tags/standard/frame_table.h"

namespace mdlPLM::standard {

/// A text with what stands before it: COMM and USLT, TXXX and WXXX.
struct DescribedText {
    Bytes Language;  ///< three letters; of COMM and USLT only
    Text Description;
    Text Value;
};

/// A picture of a frame. Its data is a view into the tag, or into `Own`.
struct Picture {
    Bytes Mime;              ///< "image/jpeg"; "-->": the data is an address
    unsigned char Type = 0;  ///< ID3v2.3.0, section 4.15; 3 is the front cover
    Text Description;
    BytesView Data;
    std::shared_ptr<const Bytes> Own;
};

inline constexpr unsigned char FrontCover = 3;

/// The values of a text frame; none when it is encrypted or damaged.
std::vector<Text> ParseTexts(const Frame& frame);
/// The first one that is not empty, without looking at the others.
Text ParseFirstText(const Frame& frame);
/// Of a frame of one of those kinds; empty texts where it cannot be read.
DescribedText ParseDescribed(const Frame& frame);
/// The address of a frame of kind Url.
Text ParseUrl(const Frame& frame);
/// Nothing where it cannot be read.
std::optional<Picture> ParsePicture(const Frame& frame);

/// What a frame of any kind says in words, for a list of frames: its values, its text, its address,
/// with a description in front ("description: text"); of a picture its description. Empty for
/// frames that hold no text.
Text ParseShown(const Frame& frame);

/// A frame to be written.
struct NewFrame {
    FrameId Id;
    std::vector<Text> Values;  ///< one of them, but for text frames
    Text Description;
    Bytes Language = "eng";
    Bytes Mime;                       ///< of a picture
    unsigned char Type = FrontCover;  ///< of a picture
    Bytes Data;                       ///< of a picture; of a frame of kind Other its whole content
};

/// The content of a frame of ID3v2.3 or ID3v2.4. An address is in ISO-8859-1; characters beyond it
/// are written as an address has them, in "%" and their bytes of UTF-8.
Bytes RenderContent(const NewFrame& frame, TagForm form);

}  // namespace mdlPLM::standard
