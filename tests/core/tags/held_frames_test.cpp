#include "core/tags/held_frames.h"

#include <gtest/gtest.h>

#include "core/tags/id3v2_writer.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

using test::CommentFrame;
using test::Frame;
using test::Noise;
using test::Nul;
using test::Nuls;
using test::PlainSizeFrame;
using test::TextFrame;

const Bytes Picture = Frame("APIC", Nul + "image/png" + Nuls(2) + Noise(5000));
const Bytes TenBytes = "\xFF\xFB\x90\x64" + Bytes("audio!");

FrameKind KindOf(BytesView identifier, const Bytes& tagText) {
    const FrameKinds kinds = KindsOfFrames(tagText);
    for (std::size_t i = 0; i < KnownFrames.size(); ++i)
        if (KnownFrames[i].Identifier == identifier) return kinds[i];
    throw std::logic_error("no known frame");
}

std::vector<std::size_t> Starts(const Bytes& tagText) {
    std::vector<std::size_t> starts;
    for (const WalkedFrame& frame : WalkFrames(tagText)) starts.push_back(frame.Start);
    return starts;
}

using Positions = std::vector<std::size_t>;

TEST(WalkFrames, GoesFromFrameToFrameUpToThePadding) {
    const Bytes title = TextFrame("TIT2", "A title");
    EXPECT_EQ(Starts(title + Picture + title + Nuls(50) + TenBytes),
              (Positions{0, title.size(), title.size() + Picture.size()}));
    EXPECT_EQ(Starts(title + TenBytes), Positions{0});
    EXPECT_EQ(Starts(title), Positions{0});
    EXPECT_EQ(Starts(""), Positions{});
    EXPECT_EQ(Starts(Nuls(100)), Positions{});
    EXPECT_EQ(Starts("TIT2"), Positions{});
}

TEST(WalkFrames, TakesSizesInEitherForm) {
    const Bytes longText = PlainSizeFrame("COMM", Nul + "eng" + Nul + Bytes(400, 'c'));
    const Bytes title = TextFrame("TIT2", "A title");
    const std::vector<WalkedFrame> frames = WalkFrames(longText + title + Nuls(20) + TenBytes);
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_FALSE(frames[0].SevenBitSize);
    EXPECT_EQ(frames[0].Length, longText.size());
    EXPECT_TRUE(frames[1].SevenBitSize);
}

TEST(WalkFrames, EndsWhereAFrameLeadsNowhere) {
    const Bytes broken = Bytes("TPE1") + Nuls(3) + "\x20" + Nuls(2) + "abc";
    EXPECT_EQ(Starts(TextFrame("TIT2", "A title") + broken), Positions{0});
    EXPECT_EQ(Starts("APIC\x7F\x7F\x7F\x7F" + Noise(300)), Positions{});
    EXPECT_EQ(Starts("tit2" + TextFrame("TIT2", "x").substr(4)), Positions{});
}

TEST(WalkFrames, PassesAnEmptyFrame) {
    const Bytes empty = Frame("TXXX", "");
    EXPECT_EQ(Starts(empty + TextFrame("TIT2", "a") + Nuls(10)), (Positions{0, 10}));
}

TEST(FrameKinds, WhatTheWriterWritesIsWhole) {
    for (const KnownFrame& frame : KnownFrames) {
        if (frame.Identifier == "TCON") continue;
        EXPECT_EQ(KindOf(frame.Identifier, BuildFrame(frame.Identifier, "text") + Nuls(20)),
                  FrameKind::Whole)
            << frame.Identifier;
        EXPECT_EQ(KindOf(frame.Identifier, Picture), FrameKind::Absent);
    }
}

TEST(FrameKinds, Genres) {
    const auto genre = [](const Bytes& text) {
        return KindOf("TCON", TextFrame("TCON", text) + Nuls(20));
    };
    EXPECT_EQ(genre("(17)"), FrameKind::Reference);
    EXPECT_EQ(genre("(17)Hardrock"), FrameKind::Reference);
    EXPECT_EQ(genre("Rock"), FrameKind::Unshown);
    EXPECT_EQ(genre("17"), FrameKind::Unshown);
    EXPECT_EQ(genre("(200)"), FrameKind::Unshown);
    EXPECT_EQ(genre("(17)" + Nul), FrameKind::Unshown);
    EXPECT_EQ(KindOf("TCON", Frame("TCON", "\3(17)") + Nuls(20)), FrameKind::Unshown);
}

TEST(FrameKinds, OtherEncodingsAreUnshown) {
    const Bytes little = "\1\xFF\xFE" + Bytes("a\0b\0", 4);
    const Bytes big = "\1\xFE\xFF" + Bytes("\0a\0b", 4);
    EXPECT_EQ(KindOf("TIT2", Frame("TIT2", little) + Nuls(20)), FrameKind::Unshown);
    EXPECT_EQ(KindOf("TIT2", Frame("TIT2", big) + Nuls(20)), FrameKind::Unshown);
    EXPECT_EQ(KindOf("TIT2", Frame("TIT2", "\3plain") + Nuls(20)), FrameKind::Unshown);
}

TEST(FrameKinds, ATextThatEndsInNulIsUnshown) {
    EXPECT_EQ(KindOf("TIT2", TextFrame("TIT2", "abc" + Nul) + Nuls(20)), FrameKind::Unshown);
    EXPECT_EQ(KindOf("TIT2", TextFrame("TIT2", "a" + Nul + "b") + Nuls(20)), FrameKind::Unshown);
}

TEST(FrameKinds, ADescriptionALanguageOrAFlagIsBesideTheText) {
    EXPECT_EQ(KindOf("COMM", CommentFrame("what", "note") + Nuls(20)), FrameKind::InPart);
    EXPECT_EQ(KindOf("COMM", Frame("COMM", Nul + "deu" + Nul + "note") + Nuls(20)),
              FrameKind::InPart);
    EXPECT_EQ(KindOf("WXXX", Frame("WXXX", Nul + "home" + Nul + "http://a") + Nuls(20)),
              FrameKind::InPart);
    EXPECT_EQ(KindOf("TENC", TextFrame("TENC", "me") + Nuls(20)), FrameKind::InPart);
    EXPECT_EQ(KindOf("TIT2", Frame("TIT2", Nul) + Nuls(20)), FrameKind::InPart);
}

TEST(FrameKinds, ACompressedFrameIsUnshown) {
    Bytes frame = TextFrame("TIT2", "abc");
    frame[9] = '\x80';
    EXPECT_EQ(KindOf("TIT2", frame + Nuls(20)), FrameKind::Unshown);
}

TEST(FrameKinds, ACommentThatIsTooShortIsUnshownOrInPart) {
    for (std::size_t size = 1; size < 6; ++size)
        EXPECT_NE(KindOf("COMM", Frame("COMM", Nuls(size)) + Nuls(20)), FrameKind::Whole) << size;
}

TEST(FrameKinds, LettersInsideAnotherFrameAreUnshown) {
    const Bytes lyrics = Frame("USLT", Nul + "eng" + Nul + "COMMON PEOPLE like you");
    EXPECT_EQ(KindOf("COMM", lyrics + CommentFrame("", "real") + Nuls(20)), FrameKind::Unshown);
}

TEST(FrameKinds, ALongTextWithAPlainSizeIsUnshown) {
    const Bytes text = PlainSizeFrame("TIT2", Nul + Bytes(300, 't'));
    EXPECT_EQ(KindOf("TIT2", text + Nuls(20)), FrameKind::Unshown);
}

TEST(HandedOn, ByKindAndWish) {
    for (const HandOn which : {HandOn::NotWhole, HandOn::NotWholeNoName}) {
        EXPECT_FALSE(IsHandedOn(FrameKind::Absent, which));
        EXPECT_FALSE(IsHandedOn(FrameKind::Whole, which));
        EXPECT_TRUE(IsHandedOn(FrameKind::InPart, which));
        EXPECT_TRUE(IsHandedOn(FrameKind::Unshown, which));
    }
    EXPECT_TRUE(IsHandedOn(FrameKind::Reference, HandOn::NotWhole));
    EXPECT_FALSE(IsHandedOn(FrameKind::Reference, HandOn::NotWholeNoName));
}

TEST(OtherFrames, AreThoseOfTheReaderWhenEveryKnownFrameIsWhole) {
    Bytes text = Picture;
    for (const KnownFrame& frame : KnownFrames)
        if (frame.Identifier != "TCON") text += BuildFrame(frame.Identifier, "text");
    text += TextFrame("TCON", "(17)") + Picture;
    for (const Bytes& end : {Nuls(30) + TenBytes, TenBytes, Nuls(40)}) {
        const Bytes tagText = text + end;
        const ID3v2Tag read =
            ParseID3v2(test::TagHeader(tagText.size()), tagText, ID3v2Parts::Everything);
        EXPECT_EQ(HoldFrames(tagText, HandOn::NotWholeNoName).OtherFrames, read.OtherFrames);
    }
}

TEST(OtherFrames, KeepInTheirPlacesWhatIsHandedOn) {
    const Bytes title = Frame("TIT2", "\1\xFF\xFE" + Bytes("a\0", 2));
    const Bytes genre = TextFrame("TCON", "(17)");
    const Bytes artist = TextFrame("TPE1", "Artist");
    const Bytes tagText = title + Picture + artist + genre + Nuls(20) + TenBytes;
    EXPECT_EQ(HoldFrames(tagText, HandOn::NotWhole).OtherFrames,
              title + Picture + genre + Nuls(20) + TenBytes);
    EXPECT_EQ(HoldFrames(tagText, HandOn::NotWholeNoName).OtherFrames,
              title + Picture + Nuls(20) + TenBytes);
}

TEST(OtherFrames, AreEmptyWhenOnlyNulsAreLeft) {
    const Bytes tagText = TextFrame("TIT2", "a") + Nuls(20);
    EXPECT_EQ(HoldFrames(tagText, HandOn::NotWhole).OtherFrames, "");
}

TEST(OtherFrames, PaddingIsNotHandedOnBesideKnownFramesAlone) {
    const Bytes title = Frame("TIT2", "\1\xFF\xFE" + Bytes("a\0", 2));
    const Bytes genre = TextFrame("TCON", "(17)");
    const Bytes tagText = title + TextFrame("TPE1", "Artist") + genre + Nuls(200);
    EXPECT_EQ(HoldFrames(tagText, HandOn::NotWhole).OtherFrames, title + genre);
    EXPECT_EQ(HoldFrames(tagText + TenBytes, HandOn::NotWhole).OtherFrames,
              title + genre + Nuls(200) + TenBytes);
}

TEST(OtherFrames, ALookalikeInsideAPictureStaysWhole) {
    const Bytes picture =
        Frame("APIC", Nul + "image/png" + Nuls(2) + TextFrame("TPE1", "x") + Noise(300));
    const Bytes tagText = picture + TextFrame("TIT2", "A title") + Nuls(20);
    EXPECT_EQ(HoldFrames(tagText, HandOn::NotWhole).OtherFrames, picture + Nuls(20));
}

TEST(CutWalkedFrame, CutsTheFirstRealFrameOnly) {
    const Bytes lyrics = Frame("USLT", Nul + "eng" + Nul + "a TIT2 inside");
    const Bytes title = TextFrame("TIT2", "one");
    EXPECT_EQ(CutWalkedFrame(lyrics + title + title + Nuls(20), "TIT2"), lyrics + title + Nuls(20));
    EXPECT_EQ(CutWalkedFrame(lyrics + Nuls(20), "TIT2"), lyrics + Nuls(20));
    const Bytes plain = PlainSizeFrame("TIT2", Nul + Bytes(300, 't'));
    EXPECT_EQ(CutWalkedFrame(plain + lyrics + Nuls(20), "TIT2"), lyrics + Nuls(20));
}

TEST(OnlyFrames, OfEachIdentifierTheFirst) {
    const Bytes one = CommentFrame("", "one");
    const Bytes two = CommentFrame("", "two");
    const Bytes title = TextFrame("TIT2", "t");
    EXPECT_EQ(OnlyFrames(Picture + one + two + title + Nuls(20), {"COMM", "TIT2", "TPE1"}),
              one + title);
    EXPECT_EQ(OnlyFrames(Picture + one, {}), "");
}

}  // namespace
}  // namespace mdlPLM
