#include "core/tags/standard/fields.h"

#include <gtest/gtest.h>

#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::B;
using test::Frame23;
using test::TagOf;
using test::Text23;
using test::Text24;

Text Shown(const Bytes& file, Field field) { return FieldText(ParseTag(file), field); }
Text ForName(const Bytes& file, Field field) { return FieldForName(ParseTag(file), field); }

Bytes Comment(const Bytes& description, const Bytes& text) {
    return Frame23("COMM", B("\0eng") + description + B("\0") + text);
}

TEST(StandardFields, AreReadFromTheirFrames) {
    struct Case {
        Field Which;
        Bytes Frame;
    };
    const Case cases[] = {
        {Field::Title, Text23("TIT2", "x")},       {Field::Artist, Text23("TPE1", "x")},
        {Field::Album, Text23("TALB", "x")},       {Field::Year, Text23("TYER", "x")},
        {Field::Comments, Comment("", "x")},       {Field::Genre, Text23("TCON", "x")},
        {Field::Track, Text23("TRCK", "x")},       {Field::Composer, Text23("TCOM", "x")},
        {Field::OrigArtist, Text23("TOPE", "x")},  {Field::Copyright, Text23("TCOP", "x")},
        {Field::URL, Frame23("WXXX", B("\0\0x"))}, {Field::Encoder, Text23("TENC", "x")},
        {Field::AlbumArtist, Text23("TPE2", "x")}, {Field::Disc, Text23("TPOS", "x")},
        {Field::BPM, Text23("TBPM", "x")},         {Field::OrigDate, Text23("TORY", "x")},
        {Field::Grouping, Text23("TIT1", "x")},    {Field::Conductor, Text23("TPE3", "x")},
    };
    ASSERT_EQ(std::size(cases), FieldCount);
    for (const Case& c : cases) {
        const Bytes file = TagOf(Frame23("PRIV", "x") + c.Frame);
        const FieldTexts texts = ReadFields(ParseTag(file));
        for (const FieldRow& row : FieldTable)
            EXPECT_EQ(texts[row.Which], row.Which == c.Which ? u"x" : u"") << c.Frame;
        EXPECT_EQ(ForName(file, c.Which), u"x");
    }
}

TEST(StandardFields, OfAFileWithoutATagAreEmpty) {
    const FieldTexts texts = ReadFields(ParseTag("no tag at all"));
    EXPECT_EQ(texts, FieldTexts());
    EXPECT_EQ(FieldForName(ParseTag(""), Field::Title), u"");
}

TEST(StandardFields, SeveralValuesAreShownAndTheFirstNames) {
    const Bytes file =
        TagOf(Text24("TPE1", B("One\0Two\0Three")) + Text24("TCON", B("17\0Pop")), {4, 0, 0, 0});
    EXPECT_EQ(Shown(file, Field::Artist), u"One; Two; Three");
    EXPECT_EQ(ForName(file, Field::Artist), u"One");
    EXPECT_EQ(Shown(file, Field::Genre), u"Rock; Pop");
    EXPECT_EQ(ForName(file, Field::Genre), u"Rock");
}

TEST(StandardFields, EmptyFramesArePassedOver) {
    EXPECT_EQ(Shown(TagOf(Text23("TIT2", "") + Text23("TIT2", "Title")), Field::Title), u"Title");
}

TEST(StandardFields, TracksAreShownWithTheirTotal) {
    const Bytes file = TagOf(Text23("TRCK", "3/12") + Text23("TPOS", "1/2"));
    EXPECT_EQ(Shown(file, Field::Track), u"3/12");
    EXPECT_EQ(ForName(file, Field::Track), u"3");
    EXPECT_EQ(ForName(file, Field::Disc), u"1");
    EXPECT_EQ(WithoutTotal(u"07"), u"07");
    EXPECT_EQ(WithoutTotal(u"/12"), u"");
}

TEST(StandardFields, DatesAreAsExactAsTheyAre) {
    const Bytes parts = Text23("TYER", "1999") + Text23("TDAT", "1705");
    EXPECT_EQ(Shown(TagOf(Text23("TYER", "1999")), Field::Year), u"1999");
    EXPECT_EQ(Shown(TagOf(parts), Field::Year), u"1999-05-17");
    EXPECT_EQ(Shown(TagOf(parts + Text23("TIME", "2015")), Field::Year), u"1999-05-17T20:15");
    EXPECT_EQ(ForName(TagOf(parts), Field::Year), u"1999");
    const Bytes later = TagOf(Text24("TDRC", "1999-05-17"), {4, 0, 0, 0});
    EXPECT_EQ(Shown(later, Field::Year), u"1999-05-17");
    EXPECT_EQ(ForName(later, Field::Year), u"1999");
    EXPECT_EQ(Shown(TagOf(Text23("TDAT", "1705")), Field::Year), u"");
}

TEST(StandardFields, DatesInTheOtherVersionsWayCountWhereThereIsNoOther) {
    EXPECT_EQ(Shown(TagOf(Text23("TDRC", "1999")), Field::Year), u"1999");
    EXPECT_EQ(Shown(TagOf(Text24("TYER", "1999"), {4, 0, 0, 0}), Field::Year), u"1999");
    const Bytes both = Text23("TYER", "1999") + Text23("TDRC", "2005");
    EXPECT_EQ(Shown(TagOf(both), Field::Year), u"1999");
    EXPECT_EQ(Shown(TagOf(both, {4, 0, 0, 0}), Field::Year), u"2005");
    const Bytes exact = Text23("TYER", "1999") + Text23("TDRC", "1999-05");
    EXPECT_EQ(Shown(TagOf(exact), Field::Year), u"1999-05");
    EXPECT_EQ(Shown(TagOf(Text24("TDOR", "1967-06-01"), {4, 0, 0, 0}), Field::OrigDate),
              u"1967-06-01");
    EXPECT_EQ(Shown(TagOf(Text23("TORY", "1967") + Text23("TDOR", "1967-06-01")), Field::OrigDate),
              u"1967-06-01");
}

TEST(StandardFields, TheCommentWithoutADescriptionIsShown) {
    EXPECT_EQ(Shown(TagOf(Comment("d", "one") + Comment("", "two")), Field::Comments), u"two");
    EXPECT_EQ(Shown(TagOf(Comment("d", "one") + Comment("e", "two")), Field::Comments), u"one");
    EXPECT_EQ(Shown(TagOf(Comment("", "") + Comment("e", "two")), Field::Comments), u"two");
}

TEST(StandardFields, FiguresOfOtherProgramsAreNoComments) {
    const Bytes figures = Comment("iTunNORM", " 0000028F") + Comment("iTunSMPB", " 00000000");
    EXPECT_EQ(Shown(TagOf(figures + Comment("d", "one")), Field::Comments), u"one");
    EXPECT_EQ(Shown(TagOf(figures), Field::Comments), u"");
}

TEST(StandardFields, TheAddressWithoutADescriptionIsShown) {
    const Bytes first = Frame23("WXXX", B("\0d\0http://one/"));
    EXPECT_EQ(Shown(TagOf(first), Field::URL), u"http://one/");
    EXPECT_EQ(Shown(TagOf(first + Frame23("WXXX", B("\0\0http://two/"))), Field::URL),
              u"http://two/");
}

TEST(StandardFields, PicturesAreFoundWithTheirPlaces) {
    const Bytes file =
        TagOf(Text23("TIT2", "t") + Frame23("APIC", B("\0image/png\0\3\0one")) +
              Frame23("APIC", B("\0")) + Frame23("APIC", B("\0image/jpeg\0\4back\0two")));
    const Tag tag = ParseTag(file);
    const std::vector<PlacedPicture> pictures = ReadPictures(tag);
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_EQ(pictures[0].Place, 1U);
    EXPECT_EQ(pictures[0].Content.Data, "one");
    EXPECT_EQ(pictures[1].Place, 3U);
    EXPECT_EQ(pictures[1].Content.Description, u"back");
}

TEST(StandardFields, EncryptedFramesAreNotRead) {
    EXPECT_EQ(Shown(TagOf(Frame23("TIT2", B("m\0Title"), B("\0\x40"))), Field::Title), u"");
}

}  // namespace
}  // namespace mdlPLM::standard
