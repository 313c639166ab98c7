#include "core/tags/held_frames.h"

#include <gtest/gtest.h>

#include "core/tags/id3v2_writer.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

using test::CommentFrame;
using test::Frame;
using test::LikeJpeg;
using test::Noise;
using test::Nul;
using test::Nuls;
using test::Picture;
using test::PlainSizeFrame;
using test::TenBytes;
using test::TextFrame;

FrameKind KindOf(BytesView identifier, const Bytes& tagText) {
    const FrameKinds kinds = KindsOfFrames({{}, tagText});
    for (std::size_t i = 0; i < KnownFrames.size(); ++i)
        if (KnownFrames[i].Identifier == identifier) return kinds[i];
    throw std::logic_error("no known frame");
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
        EXPECT_EQ(HoldFrames({{}, tagText}, HandOn::NotWholeNoName).OtherFrames, read.OtherFrames);
    }
}

TEST(OtherFrames, KeepInTheirPlacesWhatIsHandedOn) {
    const Bytes title = Frame("TIT2", "\1\xFF\xFE" + Bytes("a\0", 2));
    const Bytes genre = TextFrame("TCON", "(17)");
    const Bytes artist = TextFrame("TPE1", "Artist");
    const Bytes tagText = title + Picture + artist + genre + Nuls(20) + TenBytes;
    EXPECT_EQ(HoldFrames({{}, tagText}, HandOn::NotWhole).OtherFrames,
              title + Picture + genre + Nuls(20) + TenBytes);
    EXPECT_EQ(HoldFrames({{}, tagText}, HandOn::NotWholeNoName).OtherFrames,
              title + Picture + Nuls(20) + TenBytes);
}

TEST(OtherFrames, AreEmptyWhenOnlyNulsAreLeft) {
    const Bytes tagText = TextFrame("TIT2", "a") + Nuls(20);
    EXPECT_EQ(HoldFrames({{}, tagText}, HandOn::NotWhole).OtherFrames, "");
}

TEST(OtherFrames, PaddingIsNotHandedOnBesideKnownFramesAlone) {
    const Bytes title = Frame("TIT2", "\1\xFF\xFE" + Bytes("a\0", 2));
    const Bytes genre = TextFrame("TCON", "(17)");
    const Bytes tagText = title + TextFrame("TPE1", "Artist") + genre + Nuls(200);
    EXPECT_EQ(HoldFrames({{}, tagText}, HandOn::NotWhole).OtherFrames, title + genre);
    EXPECT_EQ(HoldFrames({{}, tagText + TenBytes}, HandOn::NotWhole).OtherFrames,
              title + genre + Nuls(200) + TenBytes);
}

TEST(OtherFrames, ALookalikeInsideAPictureStaysWhole) {
    const Bytes picture =
        Frame("APIC", Nul + "image/png" + Nuls(2) + TextFrame("TPE1", "x") + Noise(300));
    const Bytes tagText = picture + TextFrame("TIT2", "A title") + Nuls(20);
    EXPECT_EQ(HoldFrames({{}, tagText}, HandOn::NotWhole).OtherFrames, picture + Nuls(20));
}

TEST(CutFoundFrame, CutsTheFirstRealFrameOnly) {
    const Bytes lyrics = Frame("USLT", Nul + "eng" + Nul + "a TIT2 inside");
    const Bytes title = TextFrame("TIT2", "one");
    EXPECT_EQ(CutFoundFrame(lyrics + title + title + Nuls(20), "TIT2"), lyrics + title + Nuls(20));
    EXPECT_EQ(CutFoundFrame(lyrics + Nuls(20), "TIT2"), lyrics + Nuls(20));
    const Bytes plain = PlainSizeFrame("TIT2", Nul + Bytes(300, 't'));
    EXPECT_EQ(CutFoundFrame(plain + lyrics + Nuls(20), "TIT2"), lyrics + Nuls(20));
}

TEST(CutFoundFrame, FindsOneThatTheWalkDoesNotComeTo) {
    const Bytes before = TextFrame("TPE1", "Artist") + Nuls(20) + TenBytes;
    const Bytes title = TextFrame("TIT2", "one");
    EXPECT_EQ(CutFoundFrame(before + title + before, "TIT2"), before + before);
    const Bytes plain = PlainSizeFrame("TIT2", "\1" + Nuls(300));
    EXPECT_EQ(CutFoundFrame(before + plain + title, "TIT2"), before + title);
}

TEST(CutFoundFrame, TakesAFrameWhoseSizeLeadsNowhereAsFarAsItIsShown) {
    const Bytes before = TextFrame("TPE1", "Artist") + Nuls(20);
    const Bytes title = TextFrame("TIT2", "one");
    EXPECT_EQ(CutFoundFrame(before + title + "rubbish behind it", "TIT2"),
              before + "rubbish behind it");
    EXPECT_EQ(CutFoundFrame(before + title.substr(0, title.size() - 1), "TIT2"), before);
}

TEST(CutFoundFrame, OfTwoThatTheWalkDoesNotComeToTakesTheOneThatIsShown) {
    const Bytes before = TextFrame("TPE1", "Artist") + Nuls(20);
    const Bytes broken = TextFrame("TIT2", "one");
    const Bytes second = "rubbish" + TextFrame("TIT2", "two") + Nuls(20);
    EXPECT_EQ(CutFoundFrame(before + broken + second, "TIT2"), before + second);
    const Bytes letters = "TIT2 is no frame here";
    EXPECT_EQ(CutFoundFrame(before + letters + TextFrame("TIT2", "two"), "TIT2"), before + letters);
}

TEST(CutFoundFrame, LettersThatStartNoFrameStay) {
    const Bytes before = TextFrame("TPE1", "Artist") + Nuls(20);
    for (const Bytes& letters : {Bytes("COMMON PEOPLE like you and me"), Bytes("COMM"),
                                 Bytes("COMM\0\0\0\6\0\0xlike you", 19)})
        EXPECT_EQ(CutFoundFrame(before + letters, "COMM"), before + letters);
}

struct Handed {
    Bytes Frames;
    ID3v2Tag Record;
};
Handed HandOver(const Bytes& tagText, HiddenFrames hidden, HandOn which = HandOn::NotWhole) {
    Handed handed;
    handed.Record = ParseID3v2(test::TagHeader(tagText.size()), tagText, ID3v2Parts::FieldsAndText);
    HandOnTo(handed.Record, HoldFrames({{}, tagText}, which), hidden);
    handed.Frames = BuildFrames(handed.Record);
    return handed;
}

TEST(HandOnTo, DroppingTakesOfEachKnownFrameTheFirstAlone) {
    const Bytes one = CommentFrame("a", "one");
    const Bytes two = CommentFrame("b", "two");
    const Bytes title = TextFrame("TIT2", "t" + Nul);
    const Bytes tagText = Picture + one + two + title + Nuls(20);
    EXPECT_EQ(HandOver(tagText, HiddenFrames::Drop).Frames, one + title);
    EXPECT_EQ(HandOver(tagText, HiddenFrames::Keep).Frames, tagText);
    EXPECT_EQ(HandOver(Picture + Nuls(20), HiddenFrames::Drop).Frames, "");
}

TEST(HandOnTo, AFieldWhoseFrameIsNotFoundKeepsItsText) {
    const Bytes broken = Picture + Nuls(20) + TextFrame("TIT2", "A title") + "rubbish behind it";
    EXPECT_EQ(HandOver(broken, HiddenFrames::Drop).Frames, BuildFrame("TIT2", "A title"));
    EXPECT_EQ(HandOver(broken, HiddenFrames::Keep).Frames, broken);
}

TEST(HandOnTo, AFrameThatTheWalkDoesNotComeToIsHandedOn) {
    const Bytes title = TextFrame("TIT2", "A title" + Nul);
    const Bytes genre = TextFrame("TCON", "Rock");
    const Bytes tagText = Picture + Nuls(20) + TenBytes + title + Picture + genre + Nuls(20);
    EXPECT_EQ(HandOver(tagText, HiddenFrames::Drop).Frames, title + genre);
    EXPECT_EQ(HandOver(tagText, HiddenFrames::Keep).Frames, tagText);
}

TEST(HandOnTo, LettersInsideAnotherFrameAreNoField) {
    const Bytes lyrics = Frame("USLT", Nul + "eng" + Nul + "COMMON PEOPLE like you");
    EXPECT_EQ(KindOf("COMM", lyrics + Nuls(20)), FrameKind::Inside);
    EXPECT_EQ(HandOver(lyrics + Nuls(20), HiddenFrames::Drop).Frames, "");
    EXPECT_EQ(HandOver(lyrics + Nuls(20), HiddenFrames::Keep).Frames, lyrics + Nuls(20));
}

TEST(GiveWay, TakesTheFrameOut) {
    const Bytes title = TextFrame("TIT2", "t" + Nul);
    HeldFrames held = HoldFrames({{}, title + Picture}, HandOn::NotWhole);
    std::size_t place = 0;
    while (KnownFrames[place].Identifier != "TIT2") ++place;
    GiveWay(held, place);
    EXPECT_EQ(held.OtherFrames, Picture);
    EXPECT_EQ(held.Kinds[place], FrameKind::Absent);
}

// A tag as its file has it, with flags in its header.
struct FlaggedTag {
    Bytes Header;
    Bytes Text;

    FlaggedTag(char major, char flags, const Bytes& inner)
        : Header(test::TagHeader(inner.size(), major, flags)), Text(inner + TenBytes) {}
    [[nodiscard]] HeldFrames Held() const { return HoldFrames({Header, Text}, HandOn::NotWhole); }
    [[nodiscard]] FrameKind KindOf(BytesView identifier) const {
        const FrameKinds kinds = KindsOfFrames({Header, Text});
        EXPECT_EQ(Held().Kinds, kinds);
        std::size_t place = 0;
        while (KnownFrames[place].Identifier != identifier) ++place;
        return kinds[place];
    }
};

TEST(HeldFrames, BehindAnExtendedHeaderAreThoseWithoutIt) {
    const Bytes unshown = TextFrame("TCON", "Rock");
    const FlaggedTag tag(3, test::ExtendedFlag,
                         test::ExtendedHeader + TextFrame("TIT2", "A title") + unshown + Nuls(30));
    EXPECT_EQ(tag.Held().OtherFrames, unshown + Nuls(30) + TenBytes);
    EXPECT_EQ(tag.KindOf("TIT2"), FrameKind::Whole);
    EXPECT_EQ(tag.KindOf("TCON"), FrameKind::Unshown);
}

TEST(HeldFrames, OfAnUnsynchronisedTagAreAsTheyWereBefore) {
    const Bytes picture = PlainSizeFrame("APIC", LikeJpeg(3000));
    const Bytes frames = TextFrame("TIT2", "A title") + picture + TextFrame("TPE1", "Artist");
    const FlaggedTag tag(3, test::UnsynchronisedFlag, test::Unsynchronised(frames) + Nuls(30));
    EXPECT_EQ(tag.Held().OtherFrames, picture + Nuls(30) + TenBytes);
    EXPECT_EQ(tag.KindOf("TIT2"), FrameKind::Whole);
    EXPECT_EQ(tag.KindOf("TPE1"), FrameKind::Whole);
}

// The reader takes the inserted NUL for a part of the text.
TEST(HeldFrames, ATextThatUnsynchronisationChangedIsUnshown) {
    const Bytes title = TextFrame("TIT2", "\xFF\xE4h");
    const FlaggedTag tag(3, test::UnsynchronisedFlag, test::Unsynchronised(title) + Nuls(30));
    EXPECT_EQ(tag.KindOf("TIT2"), FrameKind::Unshown);
    EXPECT_EQ(tag.Held().OtherFrames, title + Nuls(30) + TenBytes);
}

}  // namespace
}  // namespace mdlPLM
