#include "core/tags/stream_info.h"

#include <gtest/gtest.h>

#include "tests/support/error_numbers.h"
#include "tests/support/real_mp3.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using test::Noise;
using test::Nuls;
using test::Trailer;
using test::WholeTag;

const Bytes HeaderBytes = "\xFF\xFB\x90\x64";    // 128 kbps, 44100 Hz: 417 bytes
const Bytes OtherHeader = "\xFF\xFB\x50\x64";    // 64 kbps, 44100 Hz: 208 bytes
const Bytes UnknownHeader = "\xFF\xEB\x90\x64";  // no known version
const Bytes KnownBits = "11111111111110111001000001100100";
const Bytes OtherBits = "11111111111110110101000001100100";
const Bytes UnknownBits = "11111111111010111001000001100100";

Bytes Frames(int count) {
    Bytes frames;
    for (int i = 0; i < count; ++i) frames += HeaderBytes + Noise(413);
    return frames;
}

Bytes Found(const Bytes& bytes, std::int64_t begin = 0) {
    const ReadBytes read = [&](std::int64_t offset, std::size_t count) {
        return bytes.substr(static_cast<std::size_t>(offset), count);
    };
    const auto header = FindHeader(read, begin, static_cast<std::int64_t>(bytes.size()));
    return header ? header->Texts().Bits : "none";
}

TEST(HeaderSearch, TheFirstFrameIsFoundBehindAnything) {
    for (const std::size_t junk : {0U, 1U, 2U, 3U, 1000U, 16381U, 16382U, 16383U, 16384U, 70000U})
        EXPECT_EQ(Found(Noise(junk) + Frames(3)), KnownBits) << junk;
}

TEST(HeaderSearch, AChanceSyncThatNoFrameFollowsIsPassedOver) {
    EXPECT_EQ(Found(Noise(50) + OtherHeader + Noise(1000) + Frames(3)), KnownBits);
    EXPECT_EQ(Found(UnknownHeader + Noise(20) + Frames(3)), KnownBits);
    EXPECT_EQ(Found(Bytes(500, '\xFF') + Noise(9) + Frames(3)), KnownBits);
}

TEST(HeaderSearch, TheFollowingFrameStandsAtTheRealDistance) {
    // 418 bytes, the rounded length, are one too many.
    const Bytes wrong = HeaderBytes + Noise(414);
    EXPECT_EQ(Found(OtherHeader + Noise(204) + OtherHeader + Noise(204) + wrong + wrong),
              OtherBits);
    EXPECT_EQ(Found(wrong + HeaderBytes + Noise(1000) + OtherHeader + Noise(204) + OtherHeader +
                    Noise(300)),
              OtherBits);
}

TEST(HeaderSearch, ASingleFrameIsFollowedByTheEnd) {
    EXPECT_EQ(Found(Noise(50) + OtherHeader + Noise(1000) + Frames(1)), KnownBits);
    EXPECT_EQ(Found(Noise(50) + OtherHeader + Noise(1000) + Frames(1).substr(0, 100)), KnownBits);
}

TEST(HeaderSearch, WhereNoneQualifiesTheFirstSyncStands) {
    EXPECT_EQ(Found(Noise(50) + UnknownHeader + Noise(20) + OtherHeader + Noise(1000)),
              UnknownBits);
}

TEST(HeaderSearch, NothingIsFoundWhereThereIsNone) {
    EXPECT_EQ(Found(""), "none");
    EXPECT_EQ(Found(Noise(100000)), "none");
    EXPECT_EQ(Found("\xFF\xFB\x90"), "none");
    EXPECT_EQ(Found(Nuls(40000)), "none");
    EXPECT_EQ(Found(Frames(3), 2000), "none");
}

TEST(HeaderSearch, BytesThatCannotBeReadEndIt) {
    const ReadBytes nothing = [](std::int64_t, std::size_t) { return Bytes(); };
    EXPECT_FALSE(FindHeader(nothing, 0, 1000).has_value());
}

TEST(HeaderSearch, TheFileIsReadInBlocks) {
    const Bytes bytes = Noise(200000) + Frames(3);
    std::size_t largest = 0;
    std::size_t sum = 0;
    const ReadBytes read = [&](std::int64_t offset, std::size_t count) {
        largest = std::max(largest, count);
        sum += count;
        return bytes.substr(static_cast<std::size_t>(offset), count);
    };
    EXPECT_TRUE(FindHeader(read, 0, static_cast<std::int64_t>(bytes.size())).has_value());
    EXPECT_LE(largest, std::size_t{64} << 10);
    EXPECT_LE(sum, bytes.size() + (std::size_t{128} << 10));
}

// A search that counts what it reads.
struct CountedSearch {
    explicit CountedSearch(const Bytes& bytes)
        : Search(
              [this, &bytes](std::int64_t offset, std::size_t count) {
                  Sum += count;
                  return bytes.substr(static_cast<std::size_t>(offset), count);
              },
              0, static_cast<std::int64_t>(bytes.size())) {}
    std::size_t Sum = 0;
    HeaderSearch Search;
};

// As small as a window needs them, whatever the file holds: nothing, nothing but beginnings of a
// header, headers that ask for a look at what follows, near and far in turns.
TEST(HeaderSearch, EveryStepIsSmall) {
    Bytes looks;
    while (looks.size() < 300000) looks += OtherHeader + "\xFF\xFB\xE0\x64" + Noise(3);
    for (const Bytes& bytes : {Nuls(300000), Bytes(300000, '\xFF'), looks}) {
        CountedSearch counted(bytes);
        int steps = 0;
        for (std::int64_t done = 0; counted.Search.Step(); ++steps) {
            EXPECT_LE(counted.Search.Done() - done, 32 << 10);
            EXPECT_LE(counted.Sum, std::size_t{20} << 20);
            counted.Sum = 0;
            done = counted.Search.Done();
        }
        EXPECT_GE(steps, 9);
        EXPECT_LE(steps, 600);
    }
}

TEST(HeaderSearch, SaysHowFarItIs) {
    const Bytes bytes = Noise(100000) + Frames(3);
    CountedSearch counted(bytes);
    EXPECT_EQ(counted.Search.Total(), static_cast<std::int64_t>(bytes.size()));
    EXPECT_TRUE(counted.Search.Step());
    EXPECT_FALSE(counted.Search.Over());
    EXPECT_FALSE(counted.Search.Found().has_value());
    while (counted.Search.Step()) {
    }
    EXPECT_TRUE(counted.Search.Over());
    EXPECT_EQ(counted.Search.Done(), 100000);
    ASSERT_TRUE(counted.Search.Found().has_value());
    EXPECT_EQ(counted.Search.Found()->At, 100000);
    EXPECT_TRUE(counted.Search.Found()->Followed);
    EXPECT_FALSE(counted.Search.Step());
}

class Stream : public testing::Test {
protected:
    StreamLines Lines(const Bytes& contents) {
        const Text path = folder_.File(u"song.mp3", contents);
        File file;
        EXPECT_TRUE(file.Open(path, File::Mode::Read).Ok());
        return ReadStream(file, ReadFileTags(file, path, ID3v2Parts::Everything, errors_));
    }

    TempFolder folder_;
    CollectedErrors errors_;
};

TEST_F(Stream, EveryLineOfAFileWithBothTags) {
    const Bytes file = WholeTag(test::TextFrame("TIT2", "a"), 20) + Frames(5) + Trailer("a", 3);
    const StreamLines lines = Lines(file);
    EXPECT_EQ(lines.Version, u"MPEG 1.0");
    EXPECT_EQ(lines.Layer, u"layer 3");
    EXPECT_EQ(lines.Bitrate, u"128kbps");
    EXPECT_EQ(lines.Frequency, u"44100Hz JStereo");
    EXPECT_EQ(lines.Copyright, u"Copyrighted: No");
    EXPECT_EQ(lines.Original, u"Original: Yes");
    EXPECT_EQ(lines.Protection, u"CRCs: No");
    EXPECT_EQ(lines.Emphasis, u"Emphasis: None");
    EXPECT_EQ(lines.Header, u"Header:11111111111110111001000001100100");
    EXPECT_EQ(lines.ID3v1, u"ID3v1: 1.1");
    EXPECT_EQ(lines.ID3v2, u"ID3v2: 3.0");
    EXPECT_EQ(lines.Size, u"Size: " + NumberText(static_cast<long long>(file.size())) + u"b");
    EXPECT_EQ(lines.Length, u"Length: 0.1 s");
}

TEST_F(Stream, WithoutTagsTheirLinesAreEmpty) {
    const StreamLines lines = Lines(Frames(5));
    EXPECT_EQ(lines.ID3v1 + lines.ID3v2, u"");
    EXPECT_EQ(lines.Bitrate, u"128kbps");
    EXPECT_EQ(Lines(Frames(5) + Trailer("a")).ID3v1, u"ID3v1: 1.0");
}

TEST_F(Stream, NothingFoundLeavesTheLinesOfTheHeaderAndTheLengthEmpty) {
    const StreamLines lines = Lines(Noise(5000) + Trailer("a"));
    EXPECT_EQ(lines.Version + lines.Layer + lines.Bitrate + lines.Frequency + lines.Copyright +
                  lines.Original + lines.Protection + lines.Emphasis + lines.Header + lines.Length,
              u"");
    EXPECT_EQ(lines.Size, u"Size: 5128b");
    EXPECT_EQ(lines.ID3v1, u"ID3v1: 1.0");
}

TEST_F(Stream, FreeAndBadBitratesLeaveTheLengthEmpty) {
    for (const char* header : {"\xFF\xFB\x01\x64", "\xFF\xFB\xF0\x64", "\xFF\xFB\x9C\x64"}) {
        const StreamLines lines = Lines(header + Noise(500));
        EXPECT_EQ(lines.Length, u"");
        EXPECT_EQ(lines.Version, u"MPEG 1.0");
    }
}

TEST_F(Stream, TheSearchStartsAtTheLastTenBytesOfTheTag) {
    // A tag that was saved in place declares ten bytes of the audio as its own.
    const Bytes tag = test::TagHeader(60) + Nuls(50);
    EXPECT_EQ(Lines(tag + Frames(5)).Header, u"Header:" + FromAscii(KnownBits));
    const Bytes fake = test::TagHeader(80) + Nuls(20) + OtherHeader + Noise(204) + Frames(2);
    EXPECT_EQ(Lines(fake).Header, u"Header:" + FromAscii(KnownBits));
}

TEST_F(Stream, TheTrailerIsNoAudio) {
    Bytes trailer = Trailer("a");
    trailer.replace(3, 4, HeaderBytes);
    EXPECT_EQ(Lines(Noise(500) + trailer).Header, u"");
}

TEST_F(Stream, AFileOfARealEncoder) {
    const StreamLines lines = Lines(EncodedMp3());
    EXPECT_EQ(lines.Version, u"MPEG 1.0");
    EXPECT_EQ(lines.Layer, u"layer 3");
    EXPECT_EQ(lines.Bitrate, u"64kbps");
    EXPECT_EQ(lines.Frequency, u"44100Hz Mono");
    EXPECT_EQ(lines.Length, u"Length: 0.5 s");
}

TEST_F(Stream, TheFirstFrameStandsBehindTagAndPadding) {
    const auto firstFrame = [this](const Bytes& contents) {
        const Text path = folder_.File(u"first.mp3", contents);
        File file;
        EXPECT_TRUE(file.Open(path, File::Mode::Read).Ok());
        SilentErrors errors;
        return FindFirstFrame(file, ReadFileTags(file, path, ID3v2Parts::NameFields, errors));
    };
    const Bytes tag = WholeTag(test::TextFrame("TIT2", "a"), 30);
    const auto length = static_cast<std::int64_t>(tag.size());
    EXPECT_EQ(firstFrame(tag + Frames(3)), length);
    EXPECT_EQ(firstFrame(tag + Nuls(12000) + Frames(3)), length + 12000);
    EXPECT_EQ(firstFrame(test::TagHeader(0) + Nuls(500) + Frames(3)), 510);
    EXPECT_EQ(firstFrame(Frames(3)), 0);
    EXPECT_EQ(firstFrame("OggS" + Noise(300) + Frames(3)), 0);
    EXPECT_EQ(firstFrame(tag + Noise(300) + OtherHeader + Noise(300)), 0);
}

TEST_F(Stream, TheFirstFrameIsNotLookedForBehindTheWholeFile) {
    const Text path = folder_.File(u"large.mp3", WholeTag(test::TextFrame("TIT2", "a"), 30));
    SetFileLength(path, 64LL << 30);
    File file;
    ASSERT_TRUE(file.Open(path, File::Mode::Read).Ok());
    EXPECT_EQ(FindFirstFrame(file, ReadFileTags(file, path, ID3v2Parts::NameFields, errors_)), 0);
}

TEST_F(Stream, AFileOfBrokenTagsIsDescribedAllTheSame) {
    const StreamLines lines = Lines("ID3\3" + Nuls(2) + "\x7F\x7F\x7F\x7F" + Frames(4));
    EXPECT_EQ(lines.ID3v2, u"ID3v2: ");
    EXPECT_EQ(lines.Bitrate, u"128kbps");
}

FileTags Sized(std::int64_t size, bool v1, std::int64_t v2Length) {
    FileTags tags;
    tags.Exists = true;
    tags.FileSize = size;
    if (v1) tags.V1.Tag = "TAG";
    tags.V2Length = v2Length;
    return tags;
}

TEST(PlayingTime, DividesTheAudioByFrameLengthAndTheFixedRate) {
    EXPECT_NEAR(PlayingTime(Sized(4'000'000, false, 0), 418), 249.2, 0.01);
    EXPECT_DOUBLE_EQ(PlayingTime(Sized(4'000'000, true, 0), 418), 3'999'862 / 418.0 / 38.4);
    EXPECT_DOUBLE_EQ(PlayingTime(Sized(4'000'000, true, 2000), 418), 3'997'862 / 418.0 / 38.4);
    EXPECT_EQ(PlayingTime(Sized(4'000'000, false, 0), 0), 0);
    EXPECT_EQ(PlayingTime(Sized(100, true, 0), 418), 0);
}

TEST(PlayingTime, IsShownWithOneDecimal) {
    const MpegHeader header(HeaderBytes);
    EXPECT_EQ(DescribeStream(Sized(4'000'000, false, 0), header).Length, u"Length: 249.2 s");
    EXPECT_EQ(DescribeStream(Sized(4'000'000, false, 0), header).Size, u"Size: 4000000b");
    EXPECT_EQ(DescribeStream(Sized(16'051'200 + 10, false, 10), header).Length,
              u"Length: 1000.0 s");
}

TEST(StreamLines, OfAMissingFileAreEmpty) {
    EXPECT_EQ(DescribeStream(FileTags(), std::nullopt).Size, u"");
}

}  // namespace
}  // namespace mdlPLM
