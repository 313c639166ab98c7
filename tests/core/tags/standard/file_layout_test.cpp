#include "core/tags/standard/file_layout.h"

#include <gtest/gtest.h>

#include "core/tags/standard/audio_start.h"
#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::Audio;
using test::B;
using test::LayoutOf;
using test::TagOf;
using test::Text23;
using test::Text24;

std::int64_t Size(const Bytes& bytes) { return static_cast<std::int64_t>(bytes.size()); }

Bytes Trailer() { return "TAG" + Bytes(125, ' '); }

Bytes Ape(bool header) {
    const Bytes item = B("\x03\0\0\0\0\0\0\0Title\0Ape");
    const Bytes numbers =
        B("\xD0\x07\0\0") + static_cast<char>(item.size() + 32) + B("\0\0\0\x01\0\0\0");
    const Bytes flags = B("\0\0\0") + (header ? B("\x80") : B("\0"));
    const Bytes mark = "APETAGEX" + numbers + flags + Bytes(8, '\0');
    return (header ? mark : Bytes()) + item + mark;
}

Bytes Lyrics2() {
    const Bytes fields = "LYRICSBEGININD0000210LYR00010[00:01]la\r";
    return fields + "000039" + "LYRICS200";
}

Bytes Lyrics1() { return "LYRICSBEGINla la laLYRICSEND"; }

Bytes FooterTag() {
    const Bytes tag = TagOf(Text24("TIT2", "At the end"), {4, 0x10, 0, 0});
    return tag + "3DI" + tag.substr(3, 7);
}

void ExpectPieces(const std::vector<Piece>& pieces, const std::vector<Piece>& expected) {
    ASSERT_EQ(pieces.size(), expected.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        EXPECT_EQ(pieces[i].Kind, expected[i].Kind) << i;
        EXPECT_EQ(pieces[i].At, expected[i].At) << i;
        EXPECT_EQ(pieces[i].Length, expected[i].Length) << i;
    }
}

TEST(StandardLayout, OfAFileWithoutTags) {
    const FileLayout layout = LayoutOf(Audio());
    EXPECT_TRUE(layout.Front.empty());
    EXPECT_TRUE(layout.Back.empty());
    EXPECT_EQ(layout.AudioBegin, 0);
    EXPECT_EQ(layout.AudioEnd, Size(Audio()));
    EXPECT_EQ(layout.TagRoom, 0);
    EXPECT_EQ(layout.Trailer, "");
    EXPECT_EQ(LayoutOf("").Size, 0);
}

TEST(StandardLayout, OfTheUsualFile) {
    const Bytes tag = TagOf(Text23("TIT2", "T"), {3, 0, 100, 0});
    const FileLayout layout = LayoutOf(tag + Audio() + Trailer());
    ExpectPieces(layout.Front, {{PieceKind::ID3v2, 0, Size(tag)}});
    ExpectPieces(layout.Back, {{PieceKind::ID3v1, Size(tag + Audio()), 128}});
    EXPECT_EQ(layout.AudioBegin, Size(tag));
    EXPECT_EQ(layout.AudioEnd, Size(tag + Audio()));
    EXPECT_EQ(layout.TagRoom, Size(tag));
    EXPECT_EQ(layout.TagUsed, Size(tag) - 100);
    EXPECT_EQ(layout.Trailer, Trailer());
}

TEST(StandardLayout, TagsAtTheEndAreFoundInAnyOrder) {
    const Bytes audio = Audio();
    struct Part {
        PieceKind Kind;
        Bytes Contents;
    };
    const Part v1{PieceKind::ID3v1, Trailer()};
    const Part ape{PieceKind::Ape, Ape(true)};
    const Part oldApe{PieceKind::Ape, Ape(false)};
    const Part lyrics1{PieceKind::Lyrics3, Lyrics1()};
    const Part lyrics2{PieceKind::Lyrics3, Lyrics2()};
    const Part footer{PieceKind::ID3v2AtEnd, FooterTag()};
    const Part enhanced{PieceKind::Enhanced, "TAG+" + Bytes(223, 'e')};
    const std::vector<Part> orders[] = {
        {v1},      {ape},    {oldApe, v1}, {ape, lyrics2, v1},         {lyrics1, v1},
        {v1, ape}, {footer}, {footer, v1}, {footer, ape, enhanced, v1}};
    for (const std::vector<Part>& order : orders) {
        Bytes file = audio;
        std::vector<Piece> expected;
        for (const Part& part : order) {
            expected.push_back({part.Kind, Size(file), Size(part.Contents)});
            file += part.Contents;
        }
        const FileLayout layout = LayoutOf(file);
        ExpectPieces(layout.Back, expected);
        EXPECT_EQ(layout.AudioEnd, Size(audio));
        EXPECT_EQ(layout.Trailer.empty(), order.back().Kind != PieceKind::ID3v1);
    }
}

TEST(StandardLayout, WhatOnlyLooksLikeATagAtTheEndIsNone) {
    // "APETAGEX" where the last 128 bytes begin with its "TAG".
    const Bytes apeItem = Bytes(8, 'x') + "APETAGEX" + Bytes(123, 'y');
    for (const Bytes& end :
         {"3DI" + B("\4\0\x10\0\0\0\x05"), Bytes("LYRICS200"), Bytes("ABCDEFLYRICS200"),
          Bytes("999999LYRICS200"), Bytes("LYRICSEND"), "APETAGEX" + Bytes(24, '\xFF'), apeItem}) {
        const FileLayout layout = LayoutOf(Audio() + end);
        EXPECT_TRUE(layout.Back.empty()) << end;
        EXPECT_EQ(layout.AudioEnd, Size(Audio() + end));
    }
}

TEST(StandardLayout, ASecondTagBehindTheFirstIsFound) {
    const Bytes first = TagOf(Text23("TIT2", "One"), {3, 0, 20, 0});
    const Bytes second = TagOf(Text24("TIT2", "Two"), {4, 0, 30, 0});
    const FileLayout layout = LayoutOf(first + second + second + Audio());
    ExpectPieces(layout.Front, {{PieceKind::ID3v2, 0, Size(first)},
                                {PieceKind::ID3v2, Size(first), Size(second)},
                                {PieceKind::ID3v2, Size(first + second), Size(second)}});
    EXPECT_EQ(layout.TagRoom, Size(first));
    EXPECT_EQ(layout.AudioBegin, Size(first + second + second));
    const Bytes overlapping = TagOf(Text23("TIT2", "One"), {3, 0, 20, 10});
    EXPECT_EQ(LayoutOf(overlapping + second + Audio()).TagRoom, Size(first));
}

TEST(StandardLayout, ATagThatDeclaresTooMuchEndsWhereTheAudioBegins) {
    const Bytes frames = Text23("TIT2", "T");
    for (const std::size_t padding : {0U, 3U, 100U}) {
        for (const std::int64_t error : {1, 10, 60}) {
            if (error == 60 && padding < 100) continue;
            const Bytes tag = TagOf(frames, {3, 0, padding, error});
            const FileLayout layout = LayoutOf(tag + Audio());
            EXPECT_EQ(layout.TagRoom, Size(tag)) << padding << " " << error;
            EXPECT_EQ(layout.AudioBegin, Size(tag)) << padding << " " << error;
        }
    }
}

TEST(StandardLayout, PaddingThatATagDoesNotDeclareIsItsOwn) {
    const Bytes tag = TagOf(Text23("TIT2", "T"), {3, 0, 100, -100});
    EXPECT_EQ(LayoutOf(tag + Audio()).TagRoom, Size(tag));
    // What the classic way takes along with the tag: the first bytes of the audio.
    const Bytes within =
        TagOf(Text23("TIT2", "T") + Bytes(40, '\0') + Audio(1).substr(0, 10)) + Bytes(500, '\0');
    EXPECT_EQ(LayoutOf(within + Audio()).TagRoom, Size(within));
    EXPECT_EQ(LayoutOf(within + Audio()).AudioBegin, Size(within));
    // Of other versions nobody hides any.
    const Bytes later = TagOf(Text24("TIT2", "T"), {4, 0, 0, 0});
    const FileLayout layout = LayoutOf(later + Bytes(100, '\0') + Audio());
    EXPECT_EQ(layout.TagRoom, Size(later));
    EXPECT_EQ(layout.AudioBegin, Size(later) + 100);
}

TEST(StandardLayout, FramesBeyondWhatATagDeclaresAreItsOwn) {
    const Bytes frames = B("\0\0\0\x06\0\0\0\0\0\0") + Text23("TIT2", "Title");
    const Bytes tag = TagOf(frames, {3, 0x40, 0, -5});
    EXPECT_EQ(LayoutOf(tag + Audio()).TagUsed, Size(tag));
    EXPECT_EQ(LayoutOf(tag + Audio()).TagRoom, Size(tag));
}

TEST(StandardLayout, OtherBytesBetweenTagAndAudioAreKept) {
    const Bytes tag = TagOf(Text23("TIT2", "T"), {3, 0, 50, 0});
    const FileLayout layout = LayoutOf(tag + "some bytes" + Audio());
    EXPECT_EQ(layout.TagRoom, Size(tag));
    EXPECT_EQ(layout.AudioBegin, Size(tag) + 10);
}

TEST(StandardLayout, WithoutAnyAudioTheTagEndsWhereItSays) {
    const Bytes tag = TagOf(Text23("TIT2", "T"), {3, 0, 50, 0});
    const FileLayout layout = LayoutOf(tag + "no audio here");
    EXPECT_EQ(layout.TagRoom, Size(tag));
    EXPECT_EQ(layout.AudioBegin, Size(tag));
    EXPECT_FALSE(layout.TagBeyondFile);
}

TEST(StandardLayout, ATagThatIsCutIsKnown) {
    const Bytes tag = TagOf(Text23("TIT2", Bytes(3000, 'x')));
    EXPECT_TRUE(LayoutOf(tag.substr(0, 1000)).TagBeyondFile);
    EXPECT_TRUE(LayoutOf(tag.substr(0, 1000) + Trailer()).TagBeyondFile);
    EXPECT_FALSE(LayoutOf(tag).TagBeyondFile);
    EXPECT_FALSE(LayoutOf(TagOf(Text23("TIT2", "x"), {3, 0, 20, 5000}) + Audio()).TagBeyondFile);
}

TEST(StandardLayout, AudioBeginsWithAFrameThatAnotherFollows) {
    const Bytes audio = Audio(3);
    const Bytes file = "\xFF\xFB\x90\x64" + Bytes(40000, '.') + "\xFF" + audio;
    const auto read = test::Reader(file);
    EXPECT_EQ(FindFirstFrame(read, 0, Size(file)), 40005);
    EXPECT_EQ(FindFirstFrame(read, 40006, Size(file)), 40005 + 417);
    EXPECT_TRUE(IsFirstFrame(read, 40005, Size(file)));
    EXPECT_FALSE(IsFirstFrame(read, 0, Size(file)));
    EXPECT_FALSE(IsFirstFrame(read, Size(file) - 2, Size(file)));
    const Bytes nothing(50000, '\xFF');
    EXPECT_EQ(FindFirstFrame(test::Reader(nothing), 0, 50000), std::nullopt);
    for (std::size_t before = 16370; before < 16400; ++before) {
        const Bytes across = Bytes(before, '\0') + audio;
        EXPECT_EQ(FindFirstFrame(test::Reader(across), 0, Size(across)),
                  static_cast<std::int64_t>(before));
        EXPECT_EQ(FirstNonNul(test::Reader(across), 0, Size(across)),
                  static_cast<std::int64_t>(before));
    }
    const Bytes nuls(100, '\0');
    EXPECT_EQ(FirstNonNul(test::Reader(nuls), 10, 100), 100);
}

}  // namespace
}  // namespace mdlPLM::standard
