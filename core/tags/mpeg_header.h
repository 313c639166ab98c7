// The header of an MPEG audio frame (ISO/IEC 11172-3, section 2.4.1.3, and ISO/IEC 13818-3), 32
// bits, most significant first.
#pragma once

#include <cstdint>

#include "core/text/text.h"

namespace mdlPLM {

inline constexpr std::size_t MpegHeaderSize = 4;

/// The eight bits of the first character as "0" and "1", most significant first; the empty text for
/// an empty one.
Bytes ByteToBits(BytesView oneCharacter);

/// Kilobits per second of a bitrate index of four characters "0" and "1", as decimal text.
/// `version` is 1 for MPEG 1.0 and 2 for MPEG 2.0 and 2.5, `layer` 1 to 3. "?" for any other
/// version, layer or index, "free" for "0000", "bad" for "1111".
Bytes GetBitrate(BytesView fourBits, int version, int layer);

/// The fields of a header as texts: what the panel shows. Nothing is refused: unknown bits have
/// texts of their own.
struct MpegTexts {
    Bytes Version;    ///< "MPEG 1.0"
    Bytes Layer;      ///< "layer 3"
    Bytes Bitrate;    ///< "128kbps", "free", "bad" or "?"
    Bytes Frequency;  ///< "44100Hz JStereo"
    Bytes Copyright;
    Bytes Original;
    Bytes Protection;
    Bytes Emphasis;
    Bytes Bits;  ///< all 32
};

class MpegHeader {
public:
    /// Takes the first four bytes; missing ones count as 0.
    explicit MpegHeader(BytesView bytes);

    /// True when the eleven leading bits are set.
    [[nodiscard]] bool HasSync() const;
    /// True for a header that can be a frame's: it has the sync bits and no field is unknown.
    [[nodiscard]] bool IsKnown() const;
    [[nodiscard]] MpegTexts Texts() const;
    /// In kilobits per second; 0 when it is free, bad or unknown.
    [[nodiscard]] int Bitrate() const;
    /// In hertz; 0 when it is unknown.
    [[nodiscard]] int Frequency() const;
    /// The length that the playing time is reckoned with, in bytes: 144 times the bitrate over the
    /// sampling frequency whatever the layer, rounded to the nearest. 0 when one is unknown.
    [[nodiscard]] int FrameLength() const;
    /// The distance from this frame to the next in bytes, as the standards have it; 0 when it
    /// cannot be told.
    [[nodiscard]] int Distance() const;

private:
    [[nodiscard]] Bytes Bits() const;
    [[nodiscard]] int VersionNumber() const;
    [[nodiscard]] int LayerNumber() const;

    std::uint32_t bits_ = 0;
};

}  // namespace mdlPLM
