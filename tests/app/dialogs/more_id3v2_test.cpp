#include "app/dialogs/more_id3v2.h"

#include <gtest/gtest.h>

#include <set>

#include "core/tags/id3v2.h"
#include "core/tags/id3v2_writer.h"

namespace mdlPLM {
namespace {

using namespace std::string_literals;

struct HeldText final : OtherFramesText {
    HeldText() = default;
    explicit HeldText(Bytes text) : Held(std::move(text)) {}
    [[nodiscard]] const Bytes& OtherFrames() const override { return Held; }
    void SetOtherFrames(Bytes text) override {
        Held = std::move(text);
        ++Changes;
    }
    Bytes Held;
    int Changes = 0;
};

TEST(ListedFrames, AreTheFramesOfTheStandardInItsOrder) {
    EXPECT_EQ(ListedFrames.size(), 81U);
    EXPECT_EQ(ListedFrames.front().Identifier, "AENC");
    EXPECT_EQ(ListedFrames.back().Identifier, "WXXX");
    std::set<BytesView> distinct;
    Bytes all;
    for (const ListedFrame& kind : ListedFrames) {
        EXPECT_EQ(kind.Identifier.size(), 4U);
        EXPECT_STRNE(kind.Meaning, "");
        distinct.insert(kind.Identifier);
        all.append(kind.Identifier).append(" ");
    }
    EXPECT_EQ(distinct.size(), 81U);
    EXPECT_EQ(all,
              "AENC APIC ASPI COMR ENCR EQU2 ETCO GEOB GRID LINK MCDI MLLT OWNE PRIV PCNT POPM "
              "POSS RBUF RVA2 RVRB SEEK SIGN SYLT SYTC TALB TBPM TCOM TCON TCOP TDEN TDLY TDOR "
              "TDRC TDRL TDTG TENC TEXT TFLT TIPL TIT1 TIT2 TIT3 TKEY TLAN TLEN TMCL TMED TMOO "
              "TOAL TOFN TOLY TOWN TPE1 TPE2 TPE3 TPE4 TPOS TPRO TPUB TRCK TRSN TRSO TSOA TSOP "
              "TSOT TSRC TSSE TSST TXXX UFID USER USLT WCOM WCOP WOAF WOAR WOAS WORS WPAY WPUB "
              "WXXX ");
}

using Found = std::vector<BytesView>;

TEST(FramesIn, ListsWhatStandsAnywhereInTheTextOnceInTheTablesOrder) {
    EXPECT_EQ(FramesIn(""), Found{});
    EXPECT_EQ(FramesIn(Bytes(5000, '\0')), Found{});
    EXPECT_EQ(FramesIn("TLEN....APIC....TLEN"), (Found{"APIC", "TLEN"}));
    EXPECT_EQ(FramesIn("PCNTPRIV"), (Found{"PRIV", "PCNT"}));
    EXPECT_EQ(FramesIn("TXXX\0\0\0\5\0\0\0seeUSLT"s), (Found{"TXXX", "USLT"}));
    EXPECT_EQ(FramesIn("TTLENN"), (Found{"TLEN"}));
    EXPECT_EQ(FramesIn("AENCTIPLWXXXEQU2"), (Found{"AENC", "EQU2", "TIPL", "WXXX"}));
}

TEST(FramesIn, TellsLetterCaseAndHalfIdentifiersApart) {
    EXPECT_EQ(FramesIn("apic Apic APIc"), Found{});
    EXPECT_EQ(FramesIn("API"), Found{});
    EXPECT_EQ(FramesIn("COMM TOPE"), Found{});  // the panel's own, and not in the table
}

TEST(FramesIn, FindsEveryIdentifierOfTheTable) {
    for (const ListedFrame& kind : ListedFrames) {
        const Bytes text = "\0x"s.append(kind.Identifier).append("x");
        EXPECT_EQ(FramesIn(text), Found{kind.Identifier});
    }
}

TEST(FramesIn, FindsAFrameBehindAPictureOfAnySize) {
    EXPECT_EQ(FramesIn(Bytes(2'000'000, 'T') + "APIC"), Found{"APIC"});
}

// Behind padding no other program looks for frames.
TEST(AddFrame, JoinsTheFrameInFrontOfTheOtherFrames) {
    HeldText frames("PRIV\0\0\0\3\0\0abc\0\0"s);
    const Bytes before = frames.Held;
    EXPECT_EQ(AddFrame(frames, "TXXX", "hello"), AddResult::Added);
    EXPECT_EQ(frames.Held, "TXXX\0\0\0\6\0\0\0hello"s + before);
    EXPECT_EQ(AddFrame(frames, "TXXX", "again"), AddResult::Added);
    EXPECT_EQ(frames.Held, "TXXX\0\0\0\6\0\0\0againTXXX\0\0\0\6\0\0\0hello"s + before);
    EXPECT_EQ(GetFrameText(frames.Held, "TXXX"), "again");
}

TEST(AddFrame, NeedsFourCharactersAndAContent) {
    for (BytesView identifier : {"", "TIT", "TIT22", "A"}) {
        HeldText frames;
        EXPECT_EQ(AddFrame(frames, identifier, "content"), AddResult::NoIdentifier);
        EXPECT_EQ(frames.Changes, 0);
    }
    HeldText frames;
    EXPECT_EQ(AddFrame(frames, "TXXX", ""), AddResult::NoContent);
    EXPECT_EQ(frames.Changes, 0);
}

TEST(AddFrame, TakesAnyFourCharacters) {
    HeldText frames;
    EXPECT_EQ(AddFrame(frames, "xyz1", "a"), AddResult::Added);
    EXPECT_EQ(frames.Held, "xyz1\0\0\0\2\0\0\0a"s);
}

TEST(RemoveFrameAt, CutsTheFirstPlaceOutWithItsHeader) {
    HeldText frames(BuildFrame("TXXX", "one") + BuildFrame("TLEN", "99") +
                    BuildFrame("TXXX", "two"));
    RemoveFrameAt(frames, "TXXX");
    EXPECT_EQ(frames.Held, BuildFrame("TLEN", "99") + BuildFrame("TXXX", "two"));
    RemoveFrameAt(frames, "APIC");
    EXPECT_EQ(frames.Held, BuildFrame("TLEN", "99") + BuildFrame("TXXX", "two"));
}

TEST(ContentToSave, IsTheFramesTextAndABitmapLosesItsType) {
    EXPECT_EQ(ContentToSave(BuildFrame("TXXX", "plain text"), "TXXX"), "plain text");
    EXPECT_EQ(ContentToSave(BuildFrame("APIC", "image/bmpBM123"), "APIC"), "BM123");
    EXPECT_EQ(ContentToSave(BuildFrame("APIC", "image/bmp"), "APIC"), "");
    EXPECT_EQ(ContentToSave(BuildFrame("APIC", "image/jpgBM123"), "APIC"), "image/jpgBM123");
    EXPECT_EQ(ContentToSave(BuildFrame("APIC", "Image/BMPx"), "APIC"), "Image/BMPx");
    EXPECT_EQ(ContentToSave(BuildFrame("APIC", "image/jpeg\0\3\0data"s), "APIC"), "data");
    EXPECT_EQ(ContentToSave("", "APIC"), "");
}

TEST(ShownContent, ShowsTheCodePageAndControlCharactersAsPictures) {
    EXPECT_EQ(ShownContent("h\xE5r \x80").Shown(), u"hår €");
    EXPECT_EQ(ShownContent("a\r\nb\rc\nd\te").Shown(), u"a\nb\nc\nd\te");
    EXPECT_EQ(ShownContent("\x01\x1F\x7F").Shown(), u"\u2401\u241F\u2421");
    EXPECT_EQ(ShownContent().Shown(), u"");
}

TEST(ShownContent, AnUntouchedBoxStandsForEveryByte) {
    const Bytes bytes = "a\r\nb\x01\x81\xA0";
    const ShownContent content(bytes);
    EXPECT_EQ(content.ContentOf(content.Shown()), bytes);
    EXPECT_EQ(content.ContentOf(u"typed å\n€ \u4E00"), "typed \xE5\n\x80 ?");
    EXPECT_EQ(content.ContentOf(u""), "");
    EXPECT_EQ(ShownContent().ContentOf(u"new"), "new");
}

TEST(ShownContent, AHugeContentShowsItsBeginningAndIsKeptWhole) {
    Bytes bytes(ShownContent::MostShown, 'x');
    EXPECT_FALSE(ShownContent(bytes).IsCut());
    bytes.append(10'000'000, 'y');
    const ShownContent content(bytes);
    EXPECT_TRUE(content.IsCut());
    EXPECT_EQ(content.Length(), bytes.size());
    EXPECT_EQ(content.Shown(), Text(ShownContent::MostShown, u'x'));
    EXPECT_EQ(content.ContentOf(content.Shown()), bytes);
}

}  // namespace
}  // namespace mdlPLM
