#include "core/tags/standard/tag.h"

#include <gtest/gtest.h>

#include "core/tags/standard/fields.h"
#include "core/text/code_page.h"
#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::B;
using test::Ids;
using test::TagOf;
using test::Text23;
using test::Text24;

Text Title(const Bytes& file) { return FieldText(ParseTag(file), Field::Title); }
Text Artist(const Bytes& file) { return FieldText(ParseTag(file), Field::Artist); }

const Bytes Long(200, 'l');

TEST(StandardTag, HeaderIsReadAndRendered) {
    const Bytes bytes = B("ID3\x04\0\x20\0\0\x02\x01");
    const std::optional<TagHeader> header = ParseTagHeader(bytes);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->Form, TagForm::V24);
    EXPECT_TRUE(header->Experimental);
    EXPECT_FALSE(header->Unsynchronised || header->Extended || header->Footer);
    EXPECT_EQ(header->Size, 257U);
    EXPECT_EQ(header->Length(), 267);
    EXPECT_EQ(RenderTagHeader(*header), bytes);
    EXPECT_EQ(ParseTagHeader(B("ID3\x04\0\x10\0\0\0\x05"))->Length(), 25);
}

TEST(StandardTag, IsNoneWithoutAWholeHeader) {
    for (const Bytes& bytes : {B(""), B("ID3"), B("ID3\3\0\0\0\0\0"), B("TAG\3\0\0\0\0\0\0")}) {
        EXPECT_FALSE(ParseTag(bytes).Present);
        EXPECT_EQ(BytesToParse(bytes, 1000), 0);
    }
}

TEST(StandardTag, TellsHowMuchOfTheFileItWants) {
    const Bytes head = TagOf(Bytes(500, 'x')).substr(0, 10);
    EXPECT_EQ(BytesToParse(head, 10000), 522);
    EXPECT_EQ(BytesToParse(head, 300), 300);
}

TEST(StandardTag, IsReadInEveryVersion) {
    const Bytes v22 = TagOf(
        test::Frame22("TT2", B("\0Title")) + test::Frame22("TP1", B("\0Artist")), {2, 0, 20, 0});
    const Bytes v23 = TagOf(Text23("TIT2", "Title") + Text23("TPE1", "Artist"), {3, 0, 20, 0});
    const Bytes v24 = TagOf(Text24("TIT2", "Title") + Text24("TPE1", "Artist"), {4, 0, 20, 0});
    for (const Bytes& tag : {v22, v23, v24}) {
        EXPECT_EQ(Ids(ParseTag(tag)), "TIT2 TPE1");
        EXPECT_EQ(Title(tag), u"Title");
        EXPECT_EQ(Artist(tag), u"Artist");
    }
    EXPECT_EQ(ParseTag(v23).FramesEnd, static_cast<std::int64_t>(v23.size()) - 20);
}

TEST(StandardTag, SizesOfEitherKindAreReadInEitherVersion) {
    const Bytes end = B("\0Artist");
    const Bytes title = B("\0") + Long;
    const Bytes plain = test::Frame23("TIT2", title) + test::Frame23("TPE1", end);
    const Bytes sevenBit = test::Frame24("TIT2", title) + test::Frame24("TPE1", end);
    for (const int major : {3, 4}) {
        for (const Bytes& frames : {plain, sevenBit}) {
            for (const std::size_t padding : {0U, 5U, 1000U}) {
                const Bytes tag = TagOf(frames, {major, 0, padding, 0});
                EXPECT_EQ(Title(tag), FromAscii(Long)) << major << " " << padding;
                EXPECT_EQ(Artist(tag), u"Artist") << major << " " << padding;
            }
        }
    }
}

TEST(StandardTag, SizesOfBothKindsStandInOneTag) {
    const Bytes picture = B("\0image/png\0\3\0\x89PNG") + Bytes(300, 'p');
    const Bytes tag = TagOf(test::SevenBitFrame("TIT2", B("\0") + Long) +
                            test::Frame23("APIC", picture) + Text23("TPE1", "Artist"));
    EXPECT_EQ(Ids(ParseTag(tag)), "TIT2 APIC TPE1");
    EXPECT_EQ(ParseTag(tag).Frames[1].Body, picture);
    EXPECT_EQ(Title(tag), FromAscii(Long));
}

// What decides is the whole tag: here the plain reading ends in the padding too.
TEST(StandardTag, TheReadingWithMoreFramesCounts) {
    const Bytes frames = test::SevenBitFrame("TIT2", B("\0") + Long) + Text23("TPE1", "Artist") +
                         Text23("TALB", "Album");
    const Bytes tag = TagOf(frames, {3, 0, 2000, 0});
    EXPECT_EQ(Ids(ParseTag(tag)), "TIT2 TPE1 TALB");
}

TEST(StandardTag, APictureWithNulsIsNotCutAtThem) {
    Bytes picture = B("\0image/bmp\0\3\0BM") + Bytes(600, 'p');
    picture.replace(100, 14, Bytes(14, '\0'));
    // 0x26C bytes; as seven-bit number the size would end among the NULs.
    for (std::size_t at = 90; at < 110; ++at) {
        picture.resize(at + 230, 'q');
        const Bytes tag = TagOf(Text23("TIT2", "Title") + test::Frame23("APIC", picture));
        ASSERT_EQ(ParseTag(tag).Frames.size(), 2U);
        EXPECT_EQ(ParseTag(tag).Frames[1].Body.size(), picture.size());
    }
}

TEST(StandardTag, DeclaredSizesMayBeTenBytesWrong) {
    const Bytes frames = Text23("TIT2", "Title") + Text23("TPE1", "Artist");
    for (const std::int64_t error : {-10, -3, 0, 3, 10}) {
        const Bytes tag = TagOf(frames, {3, 0, 0, error}) + test::Audio();
        EXPECT_EQ(Ids(ParseTag(tag)), "TIT2 TPE1") << error;
        EXPECT_EQ(Artist(tag), u"Artist") << error;
        EXPECT_EQ(ParseTag(tag).FramesEnd, static_cast<std::int64_t>(10 + frames.size())) << error;
    }
}

TEST(StandardTag, ASizeThatIsNotInSevenBitsIsPlain) {
    Bytes tag = TagOf(Text23("TIT2", "Title") + Text23("TPE1", Long));
    tag.replace(6, 4, test::Plain(tag.size() - 10));
    ASSERT_FALSE(tag[9] >= 0);
    EXPECT_EQ(Artist(tag), FromAscii(Long));
}

TEST(StandardTag, UnsynchronisedTagsAreRead) {
    const Bytes picture = B("\0image/jpeg\0\3\0\xFF\xD8\xFF\xE0\0\xFF\0\xFF");
    const Bytes v22 = test::Frame22("PIC", B("\0JPG\3\0\xFF\xD8\xFF\xE0\0\xFF\0\xFF")) +
                      test::Frame22("TT2", B("\1\xFF\xFE") + test::Little(u"\u00FFb"));
    const Bytes v23 = test::Frame23("APIC", picture) +
                      test::Frame23("TIT2", B("\1\xFF\xFE") + test::Little(u"\u00FFb"));
    for (const auto& [major, frames] : {std::pair(2, v22), std::pair(3, v23)}) {
        const Bytes tag = TagOf(test::Unsynchronised(frames), {major, 0x80, 0, 0}) + test::Audio();
        EXPECT_EQ(Title(tag), u"\u00FFb") << major;
        const Tag parsed = ParseTag(tag);
        const std::vector<PlacedPicture> pictures = ReadPictures(parsed);
        ASSERT_EQ(pictures.size(), 1U) << major;
        EXPECT_EQ(pictures[0].Content.Data, B("\xFF\xD8\xFF\xE0\0\xFF\0\xFF")) << major;
    }
}

TEST(StandardTag, ATagThatOnlySaysItIsUnsynchronisedIsRead) {
    const Bytes frames = test::Frame23("APIC", B("\0image/jpeg\0\3\0\xFF\xD8\xFF\xE0\xFF\0z")) +
                         Text23("TIT2", "Title");
    for (const int major : {3, 4}) {
        const Bytes tag = TagOf(frames, {major, 0x80, 0, 0});
        EXPECT_EQ(Title(tag), u"Title") << major;
        const Tag parsed = ParseTag(tag);
        EXPECT_EQ(ReadPictures(parsed)[0].Content.Data, B("\xFF\xD8\xFF\xE0\xFF\0z")) << major;
    }
}

TEST(StandardTag, FramesOfLaterTagsAreUnsynchronisedOneByOne) {
    const Bytes content = B("\1\xFF\xFE") + test::Little(u"\u00FFb");
    const Bytes done = test::Unsynchronised(content);
    const Bytes byFrame =
        TagOf(test::Frame24("TIT2", done, B("\0\x02")) + Text24("TPE1", "A"), {4, 0, 0, 0});
    const Bytes byTag = TagOf(test::Frame24("TIT2", done) + Text24("TPE1", "A"), {4, 0x80, 0, 0});
    const Bytes oldWay =
        TagOf(test::Unsynchronised(test::Frame24("TIT2", content) + Text24("TPE1", "A")),
              {4, 0x80, 0, 0});
    for (const Bytes& tag : {byFrame, byTag, oldWay}) {
        EXPECT_EQ(Title(tag), u"\u00FFb");
        EXPECT_EQ(Artist(tag), u"A");
    }
}

TEST(StandardTag, ExtendedHeadersArePassedOver) {
    const Bytes frames23 = Text23("TIT2", "Title");
    const Bytes frames24 = Text24("TIT2", "Title");
    struct Case {
        int Major;
        Bytes Header;
    };
    const Case cases[] = {
        {3, B("\0\0\0\x06\0\0\0\0\0\0")},
        {3, B("\0\0\0\x0A\x80\0\0\0\0\0crc!")},
        {3, B("\0\0\0\x0A\0\0\0\0\0\0")},  // counts itself, which is wrong
        {4, B("\0\0\0\x06\x01\0")},
        {4, B("\0\0\0\x0C\x01\x20\x05\0\0\0\0\0")},
        {4, B("\0\0\0\x06\x01\0\0\0\0\0")},  // does not count itself, which is wrong
        {3, B("")},                          // promised only
        {4, B("")},
    };
    for (const Case& c : cases) {
        const Bytes tag =
            TagOf(c.Header + (c.Major == 3 ? frames23 : frames24), {c.Major, 0x40, 30, 0});
        EXPECT_EQ(Title(tag), u"Title") << c.Major << " " << c.Header.size();
        EXPECT_EQ(ParseTag(tag).FramesEnd, static_cast<std::int64_t>(tag.size()) - 30);
    }
}

TEST(StandardTag, AVersionThatDoesNotExistIsReadAsTheUsualOne) {
    Bytes tag = TagOf(Text23("TIT2", "Title"));
    tag.replace(3, 3, "\xFF\xFF\xFF");
    EXPECT_EQ(Title(tag), u"Title");
    EXPECT_EQ(ParseTag(tag).Header.Form, TagForm::V23);
}

TEST(StandardTag, ShortIdentifiersInLaterTagsAreRead) {
    const Bytes rest = test::Frame22("TT2", B("\0Title")) + test::Frame22("TP1", B("\0Artist"));
    const Bytes another = TagOf(Text23("TALB", "Album") + rest, {3, 0, 50, 0});
    EXPECT_EQ(Ids(ParseTag(another)), "TALB TIT2 TPE1");
    EXPECT_EQ(Artist(another), u"Artist");
    const Bytes longer = TagOf(B("TT2\0\0\0\0\x06\0\0\0Title") + B("TP1\0\0\0\0\x07\0\0\0Artist"));
    EXPECT_EQ(Ids(ParseTag(longer)), "TIT2 TPE1");
    EXPECT_EQ(Artist(longer), u"Artist");
}

TEST(StandardTag, UnknownShortIdentifiersAreForEveryone) {
    const Tag tag = ParseTag(TagOf(test::Frame22("QQQ", "abc"), {2, 0, 0, 0}));
    EXPECT_EQ(Ids(tag), "XQQQ");
}

// --- damaged tags ---

TEST(StandardTag, IsReadAsFarAsItGoes) {
    const Bytes whole = TagOf(Text23("TIT2", "Title") + Text23("TPE1", "Artist") +
                              test::Frame23("APIC", B("\0image/png\0\3\0") + Bytes(2000, 'p')));
    for (const std::size_t size : {10U, 15U, 30U, 60U, 1000U}) {
        const Tag tag = ParseTag(BytesView(whole).substr(0, size));
        EXPECT_TRUE(tag.Present);
        EXPECT_LE(tag.FramesEnd, static_cast<std::int64_t>(size));
    }
    EXPECT_EQ(Title(whole.substr(0, 60)), u"Title");
    EXPECT_EQ(Artist(whole.substr(0, 60)), u"Artist");
    EXPECT_EQ(Ids(ParseTag(BytesView(whole).substr(0, 1000))), "TIT2 TPE1 APIC");
}

TEST(StandardTag, ASizeThatIsTooLargeEndsWhereTheNextFrameBegins) {
    Bytes large = Text23("TIT2", "Title");
    large.replace(4, 4, test::Plain(5000));
    const Bytes tag = TagOf(large + Text23("TPE1", "Artist") + Text23("TALB", "Album"));
    EXPECT_EQ(Ids(ParseTag(tag)), "TIT2 TPE1 TALB");
    EXPECT_EQ(Title(tag), u"Title");
    Bytes larger = Text23("TIT2", "Title");
    larger.replace(4, 4, test::Plain(9));
    const Bytes slightly = TagOf(larger + Text23("TPE1", "Artist"), {3, 0, 30, 0});
    EXPECT_EQ(Artist(slightly), u"Artist");
}

TEST(StandardTag, ASizeThatIsTooSmallDoesNotLoseWhatFollows) {
    Bytes small = Text23("TIT2", "A title");
    small.replace(4, 4, test::Plain(3));
    const Bytes tag = TagOf(small + Text23("TPE1", "Artist"), {3, 0, 30, 0});
    EXPECT_EQ(Title(tag), u"A title");
    EXPECT_EQ(Artist(tag), u"Artist");
}

TEST(StandardTag, FramesBehindNulsAreFound) {
    const Bytes tag = TagOf(Text23("TIT2", "Title") + Bytes(5, '\0') + Text23("TPE1", "Artist") +
                            Bytes(70, '\0') + Text23("TALB", "Album"));
    EXPECT_EQ(Ids(ParseTag(tag)), "TIT2 TPE1 TALB");
}

TEST(StandardTag, BytesThatAreNoFrameAreKeptApart) {
    const Bytes tag = TagOf(Text23("TIT2", "Title") + "no frame at all", {3, 0, 30, 0});
    EXPECT_EQ(Ids(ParseTag(tag)), "TIT2");
    EXPECT_EQ(ParseTag(tag).Unread, "no frame at all");
}

TEST(StandardTag, ATagWithoutFramesIsOne) {
    for (const Bytes& tag : {TagOf(""), TagOf("", {4, 0, 100, 0}), TagOf("", {2, 0, 3, 0})}) {
        EXPECT_TRUE(ParseTag(tag).Present);
        EXPECT_TRUE(ParseTag(tag).Frames.empty());
    }
}

}  // namespace
}  // namespace mdlPLM::standard
