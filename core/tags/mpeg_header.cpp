#include "core/tags/mpeg_header.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mdlPLM {

namespace {

struct Place {
    unsigned First;  // bit, from the most significant
    unsigned Width;
};
constexpr Place Sync{0, 11};
constexpr Place Version{11, 2};
constexpr Place Layer{13, 2};
constexpr Place Protection{15, 1};
constexpr Place BitrateIndex{16, 4};
constexpr Place FrequencyIndex{20, 2};
constexpr Place Padding{22, 1};
constexpr Place ChannelMode{24, 2};
constexpr Place Copyright{28, 1};
constexpr Place Original{29, 1};
constexpr Place Emphasis{30, 2};

using TwoBitTexts = std::array<const char*, 4>;
constexpr TwoBitTexts VersionTexts = {"MPEG 2.5", "MPEG ?.?", "MPEG 2.0", "MPEG 1.0"};
constexpr TwoBitTexts LayerTexts = {"layer ?", "layer 3", "layer 2", "layer 1"};
constexpr TwoBitTexts ModeTexts = {" Stereo", " JStereo", " DStereo", " Mono"};
constexpr TwoBitTexts EmphasisTexts = {"Emphasis: None", "Emphasis: 50/15 micros", "Emphasis: ?",
                                       "Emphasis: CCIT J.17"};

constexpr std::array<int, 4> VersionNumbers = {2, 0, 2, 1};  // 0: unknown
constexpr std::array<int, 4> LayerNumbers = {0, 3, 2, 1};
constexpr unsigned ReservedEmphasis = 2;

// By version and frequency index; 0: unknown.
constexpr std::array<std::array<int, 4>, 4> Frequencies = {
    {{11025, 12000, 8000, 0}, {0, 0, 0, 0}, {22050, 24000, 16000, 0}, {44100, 48000, 32000, 0}}};

// ISO/IEC 11172-3, section 2.4.2.3, and ISO/IEC 13818-3, section 2.4.2.3: by version number, layer
// number and index.
using BitrateRow = std::array<int, 16>;
constexpr int Bad = -1;
constexpr BitrateRow LowRates = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, Bad};
constexpr std::array<std::array<BitrateRow, 3>, 2> Bitrates = {
    {{{{0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, Bad},
       {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, Bad},
       {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, Bad}}},
     {{{0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, Bad},
       LowRates,
       LowRates}}}};

int IndexOfBits(BytesView fourBits) {
    if (fourBits.size() != 4 || fourBits.find_first_not_of("01") != BytesView::npos) return -1;
    int index = 0;
    for (const char bit : fourBits) index = index * 2 + (bit - '0');
    return index;
}

bool IsKnownStream(int version, int layer) {
    return version >= 1 && version <= 2 && layer >= 1 && layer <= 3;
}

int TableBitrate(int index, int version, int layer) {
    return Bitrates[static_cast<std::size_t>(version - 1)][static_cast<std::size_t>(layer - 1)]
                   [static_cast<std::size_t>(index)];
}

unsigned Field(std::uint32_t header, Place place) {
    return header >> (32U - place.First - place.Width) & ((1U << place.Width) - 1U);
}

Bytes YesNo(const char* label, bool yes) { return Bytes(label) + (yes ? "Yes" : "No"); }

}  // namespace

Bytes ByteToBits(BytesView oneCharacter) {
    if (oneCharacter.empty()) return {};
    const unsigned byte = static_cast<unsigned char>(oneCharacter.front());
    Bytes bits;
    for (unsigned bit = 8; bit-- > 0;) bits.push_back((byte >> bit & 1U) != 0 ? '1' : '0');
    return bits;
}

Bytes GetBitrate(BytesView fourBits, int version, int layer) {
    const int index = IndexOfBits(fourBits);
    if (!IsKnownStream(version, layer) || index < 0) return "?";
    const int rate = TableBitrate(index, version, layer);
    if (rate == 0) return "free";
    return rate == Bad ? "bad" : std::to_string(rate);
}

MpegHeader::MpegHeader(BytesView bytes) {
    for (std::size_t i = 0; i < MpegHeaderSize; ++i)
        bits_ = bits_ << 8U | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
}

int MpegHeader::VersionNumber() const { return VersionNumbers[Field(bits_, Version)]; }

int MpegHeader::LayerNumber() const { return LayerNumbers[Field(bits_, Layer)]; }

bool MpegHeader::HasSync() const { return Field(bits_, Sync) == 0x7FF; }

bool MpegHeader::IsKnown() const {
    return HasSync() && Bitrate() > 0 && Frequency() > 0 &&
           Field(bits_, Emphasis) != ReservedEmphasis;
}

int MpegHeader::Bitrate() const {
    if (!IsKnownStream(VersionNumber(), LayerNumber())) return 0;
    const int index = static_cast<int>(Field(bits_, BitrateIndex));
    return std::max(0, TableBitrate(index, VersionNumber(), LayerNumber()));
}

int MpegHeader::Frequency() const {
    return Frequencies[Field(bits_, Version)][Field(bits_, FrequencyIndex)];
}

int MpegHeader::FrameLength() const {
    if (Bitrate() == 0 || Frequency() == 0) return 0;
    const double bytes = 144.0 * Bitrate() * 1000 / Frequency();
    return static_cast<int>(std::lround(bytes + Field(bits_, Padding)));
}

int MpegHeader::Distance() const {
    if (Bitrate() == 0 || Frequency() == 0) return 0;
    const int padding = static_cast<int>(Field(bits_, Padding));
    constexpr int slotsOfLayer1 = 12;
    constexpr int bytesPerSlot = 4;
    if (LayerNumber() == 1)
        return (slotsOfLayer1 * Bitrate() * 1000 / Frequency() + padding) * bytesPerSlot;
    const int factor = LayerNumber() == 3 && VersionNumber() == 2 ? 72 : 144;
    return factor * Bitrate() * 1000 / Frequency() + padding;
}

Bytes MpegHeader::Bits() const {
    Bytes bits;
    for (unsigned at = 0; at < 8 * MpegHeaderSize; at += 8) {
        const char byte = static_cast<char>(Field(bits_, {at, 8}));
        bits += ByteToBits(BytesView(&byte, 1));
    }
    return bits;
}

MpegTexts MpegHeader::Texts() const {
    MpegTexts texts;
    texts.Version = VersionTexts[Field(bits_, Version)];
    texts.Layer = LayerTexts[Field(bits_, Layer)];
    texts.Bits = Bits();
    const BytesView bits = texts.Bits;
    texts.Bitrate = GetBitrate(bits.substr(BitrateIndex.First, BitrateIndex.Width), VersionNumber(),
                               LayerNumber());
    if (Bitrate() > 0) texts.Bitrate += "kbps";
    texts.Frequency = Frequency() > 0 ? std::to_string(Frequency()) + "Hz" : "?Hz";
    texts.Frequency += ModeTexts[Field(bits_, ChannelMode)];
    texts.Copyright = YesNo("Copyrighted: ", Field(bits_, Copyright) == 1);
    texts.Original = YesNo("Original: ", Field(bits_, Original) == 1);
    texts.Protection = YesNo("CRCs: ", Field(bits_, Protection) == 0);
    texts.Emphasis = EmphasisTexts[Field(bits_, Emphasis)];
    return texts;
}

}  // namespace mdlPLM
