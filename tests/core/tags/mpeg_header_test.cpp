#include "core/tags/mpeg_header.h"

#include <gtest/gtest.h>

#include <vector>

namespace mdlPLM {
namespace {

MpegHeader Header(unsigned bits) {
    Bytes bytes;
    for (unsigned shift = 32; shift > 0; shift -= 8)
        bytes.push_back(static_cast<char>(bits >> (shift - 8) & 255U));
    return MpegHeader(bytes);
}

TEST(ByteToBits, EightBitsMostSignificantFirst) {
    EXPECT_EQ(ByteToBits(BytesView("\0", 1)), "00000000");
    EXPECT_EQ(ByteToBits("\x01"), "00000001");
    EXPECT_EQ(ByteToBits("\x90"), "10010000");
    EXPECT_EQ(ByteToBits("\xFF"), "11111111");
    EXPECT_EQ(ByteToBits("\xFB\x90"), "11111011");
    EXPECT_EQ(ByteToBits(""), "");
}

TEST(GetBitrate, TheTablesOfAllLayers) {
    struct Case {
        int Version;
        int Layer;
        std::vector<int> Rates;  // of the indexes 1 to 14
    };
    const Case cases[] = {
        {1, 1, {32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448}},
        {1, 2, {32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384}},
        {1, 3, {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320}},
        {2, 1, {32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256}},
        {2, 2, {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160}},
        {2, 3, {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(GetBitrate("0000", c.Version, c.Layer), "free");
        EXPECT_EQ(GetBitrate("1111", c.Version, c.Layer), "bad");
        for (unsigned index = 1; index < 15; ++index) {
            const Bytes bits = ByteToBits(Bytes(1, static_cast<char>(index))).substr(4);
            EXPECT_EQ(GetBitrate(bits, c.Version, c.Layer), std::to_string(c.Rates[index - 1]));
        }
    }
}

TEST(GetBitrate, AnUnknownVersionOrLayerComesBeforeFreeAndBad) {
    for (const char* bits : {"0000", "1001", "1111"}) {
        EXPECT_EQ(GetBitrate(bits, 0, 3), "?");
        EXPECT_EQ(GetBitrate(bits, 3, 3), "?");
        EXPECT_EQ(GetBitrate(bits, 1, 0), "?");
        EXPECT_EQ(GetBitrate(bits, 1, 4), "?");
        EXPECT_EQ(GetBitrate(bits, -1, -1), "?");
    }
}

TEST(GetBitrate, WhatIsNoIndexIsUnknown) {
    for (const char* bits : {"", "100", "10010", "10x1"}) EXPECT_EQ(GetBitrate(bits, 1, 3), "?");
}

TEST(MpegHeader, AUsualHeader) {
    const MpegHeader header("\xFF\xFB\x90\x64");
    const MpegTexts texts = header.Texts();
    EXPECT_EQ(texts.Version, "MPEG 1.0");
    EXPECT_EQ(texts.Layer, "layer 3");
    EXPECT_EQ(texts.Bitrate, "128kbps");
    EXPECT_EQ(texts.Frequency, "44100Hz JStereo");
    EXPECT_EQ(texts.Copyright, "Copyrighted: No");
    EXPECT_EQ(texts.Original, "Original: Yes");
    EXPECT_EQ(texts.Protection, "CRCs: No");
    EXPECT_EQ(texts.Emphasis, "Emphasis: None");
    EXPECT_EQ(texts.Bits, "11111111111110111001000001100100");
    EXPECT_TRUE(header.HasSync());
    EXPECT_TRUE(header.IsKnown());
    EXPECT_EQ(header.Bitrate(), 128);
    EXPECT_EQ(header.Frequency(), 44100);
    EXPECT_EQ(header.FrameLength(), 418);
    EXPECT_EQ(header.Distance(), 417);
}

TEST(MpegHeader, VersionsAndLayers) {
    const char* const versions[] = {"MPEG 2.5", "MPEG ?.?", "MPEG 2.0", "MPEG 1.0"};
    const char* const layers[] = {"layer ?", "layer 3", "layer 2", "layer 1"};
    for (unsigned version = 0; version < 4; ++version)
        for (unsigned layer = 0; layer < 4; ++layer) {
            const MpegHeader header = Header(0xFFE19000U | version << 19U | layer << 17U);
            EXPECT_EQ(header.Texts().Version, versions[version]);
            EXPECT_EQ(header.Texts().Layer, layers[layer]);
            EXPECT_EQ(header.IsKnown(), version != 1 && layer != 0);
            EXPECT_EQ(header.Texts().Bitrate == "?", version == 1 || layer == 0);
        }
}

TEST(MpegHeader, FrequenciesOfAllVersions) {
    const char* const frequencies[4][4] = {{"11025Hz", "12000Hz", "8000Hz", "?Hz"},
                                           {"?Hz", "?Hz", "?Hz", "?Hz"},
                                           {"22050Hz", "24000Hz", "16000Hz", "?Hz"},
                                           {"44100Hz", "48000Hz", "32000Hz", "?Hz"}};
    const char* const modes[] = {" Stereo", " JStereo", " DStereo", " Mono"};
    for (unsigned version = 0; version < 4; ++version)
        for (unsigned index = 0; index < 4; ++index)
            for (unsigned mode = 0; mode < 4; ++mode) {
                const MpegHeader header =
                    Header(0xFFE39000U | version << 19U | index << 10U | mode << 6U);
                EXPECT_EQ(header.Texts().Frequency,
                          Bytes(frequencies[version][index]) + modes[mode]);
                EXPECT_EQ(header.FrameLength() == 0, version == 1 || index == 3);
            }
}

TEST(MpegHeader, FlagsAndEmphasis) {
    const char* const emphases[] = {"Emphasis: None", "Emphasis: 50/15 micros", "Emphasis: ?",
                                    "Emphasis: CCIT J.17"};
    for (unsigned low = 0; low < 16; ++low) {
        const MpegTexts texts = Header(0xFFFB9060U | low).Texts();
        EXPECT_EQ(texts.Copyright, (low & 8U) != 0 ? "Copyrighted: Yes" : "Copyrighted: No");
        EXPECT_EQ(texts.Original, (low & 4U) != 0 ? "Original: Yes" : "Original: No");
        EXPECT_EQ(texts.Emphasis, emphases[low & 3U]);
        EXPECT_EQ(Header(0xFFFB9060U | low).IsKnown(), (low & 3U) != 2);
    }
    EXPECT_EQ(Header(0xFFFA9064U).Texts().Protection, "CRCs: Yes");
}

TEST(MpegHeader, FreeAndBadBitratesStandAloneAndHaveNoLength) {
    EXPECT_EQ(Header(0xFFFB0064U).Texts().Bitrate, "free");
    EXPECT_EQ(Header(0xFFFBF064U).Texts().Bitrate, "bad");
    for (const unsigned bits : {0xFFFB0064U, 0xFFFBF064U, 0xFFFB9C64U}) {
        EXPECT_EQ(Header(bits).FrameLength(), 0);
        EXPECT_EQ(Header(bits).Distance(), 0);
        EXPECT_FALSE(Header(bits).IsKnown());
        EXPECT_TRUE(Header(bits).HasSync());
    }
}

TEST(MpegHeader, TheShownLengthIsRoundedWhateverTheLayer) {
    EXPECT_EQ(Header(0xFFFB9264U).FrameLength(), 419);  // with padding
    EXPECT_EQ(Header(0xFFFBA064U).FrameLength(), 522);  // 522.45
    EXPECT_EQ(Header(0xFFFF9064U).FrameLength(), 940);  // layer 1, 288 kbps: 940.41
    EXPECT_EQ(Header(0xFFF39064U).FrameLength(), 522);  // MPEG 2.0, 80 kbps, 22050 Hz
}

TEST(MpegHeader, TheRealDistanceFollowsLayerAndVersion) {
    EXPECT_EQ(Header(0xFFFB9264U).Distance(), 418);
    EXPECT_EQ(Header(0xFFFD9064U).Distance(), 522);  // layer 2, 160 kbps
    EXPECT_EQ(Header(0xFFFF9064U).Distance(), 312);  // layer 1, 288 kbps: 78 slots of four bytes
    EXPECT_EQ(Header(0xFFFF9264U).Distance(), 316);
    EXPECT_EQ(Header(0xFFF39064U).Distance(), 261);  // MPEG 2.0, layer 3: factor 72
    EXPECT_EQ(Header(0xFFF59064U).Distance(), 522);  // MPEG 2.0, layer 2
    EXPECT_EQ(Header(0xFFE39064U).Distance(), 522);  // MPEG 2.5, layer 3, 11025 Hz
}

TEST(MpegHeader, WithoutElevenSetBitsThereIsNoHeader) {
    EXPECT_FALSE(Header(0xFFDB9064U).HasSync());
    EXPECT_FALSE(Header(0xFEFB9064U).HasSync());
    EXPECT_FALSE(Header(0x7FFB9064U).IsKnown());
    EXPECT_FALSE(MpegHeader("\xFF").HasSync());
}

}  // namespace
}  // namespace mdlPLM
