#include "core/tags/standard/frame_content.h"

#include <gtest/gtest.h>

#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::B;
using test::Big;
using test::Little;

Frame FrameOf(const FrameId& id, const Bytes& body, TagForm form = TagForm::V23) {
    Frame frame;
    frame.Id = id;
    frame.Form = form;
    frame.Body = body;
    return frame;
}

void ExpectDescribed(const FrameId& id, const Bytes& body, const Text& description,
                     const Text& value) {
    const DescribedText text = ParseDescribed(FrameOf(id, body));
    EXPECT_EQ(text.Description, description) << body;
    EXPECT_EQ(text.Value, value) << body;
}

TEST(StandardContent, CommentsAreRead) {
    ExpectDescribed("COMM", B("\0eng\0text"), u"", u"text");
    ExpectDescribed("COMM", B("\0engdesc\0text\0"), u"desc", u"text");
    ExpectDescribed("COMM", B("\3engd\xC3\xA9s\0t\xC3\xA9"), u"d\u00E9s", u"t\u00E9");
    const Bytes mark = "\xFF\xFE";
    ExpectDescribed("COMM", B("\1eng") + mark + B("\0\0") + mark + Little(u"text"), u"", u"text");
    ExpectDescribed("COMM",
                    B("\1eng") + mark + Little(u"desc") + B("\0\0") + mark + Little(u"text"),
                    u"desc", u"text");
    ExpectDescribed("COMM", B("\2eng") + Big(u"desc") + B("\0\0") + Big(u"text") + B("\0\0"),
                    u"desc", u"text");
    EXPECT_EQ(ParseDescribed(FrameOf("COMM", B("\0swe\0text"))).Language, "swe");
}

TEST(StandardContent, CommentsWithMissingEndsAreRead) {
    ExpectDescribed("COMM", B("\0engtext"), u"", u"text");
    ExpectDescribed("COMM", B("\1eng\0\xFF\xFE") + Little(u"text"), u"", u"text");
    ExpectDescribed("COMM", B("\1eng\xFF\xFE\0\0") + Little(u"text"), u"", u"text");
    ExpectDescribed("COMM", B("\1eng\xFF\xFE") + Little(u"text"), u"", u"text");
    ExpectDescribed("COMM", B("\1eng\0text"), u"", u"text");
    for (const Bytes& body : {B(""), B("\0"), B("\0en"), B("\0eng"), B("\1eng\0")})
        ExpectDescribed("COMM", body, u"", u"");
}

TEST(StandardContent, TextsOfTheUserAreRead) {
    ExpectDescribed("TXXX", B("\0key\0value"), u"key", u"value");
    ExpectDescribed("TXXX", B("\0key\0one\0two"), u"key", u"one; two");
    EXPECT_EQ(ParseShown(FrameOf("TXXX", B("\0key\0value"))), u"key: value");
}

TEST(StandardContent, AddressesAreRead) {
    ExpectDescribed("WXXX", B("\0\0http://a/"), u"", u"http://a/");
    ExpectDescribed("WXXX", B("\0d\0http://a/\0"), u"d", u"http://a/");
    ExpectDescribed("WXXX", B("\1\xFF\xFE") + Little(u"d") + B("\0\0http://a/"), u"d",
                    u"http://a/");
    ExpectDescribed("WXXX", B("\1\xFF\xFE\0\0\xFF\xFE") + Little(u"http://a/"), u"", u"http://a/");
    ExpectDescribed("WXXX", B("\0http://a/"), u"", u"http://a/");
    EXPECT_EQ(ParseUrl(FrameOf("WOAR", "http://a/")), u"http://a/");
    EXPECT_EQ(ParseUrl(FrameOf("WOAR", B("http://a/\0junk"))), u"http://a/");
    EXPECT_EQ(ParseUrl(FrameOf("WOAR", "")), u"");
}

void ExpectPicture(const Bytes& body, const Text& description, const Bytes& data) {
    const Frame frame = FrameOf("APIC", body);
    const std::optional<Picture> picture = ParsePicture(frame);
    ASSERT_TRUE(picture) << body;
    EXPECT_EQ(picture->Mime, "image/jpeg");
    EXPECT_EQ(picture->Type, 4);
    EXPECT_EQ(picture->Description, description) << body;
    EXPECT_EQ(picture->Data, data) << body;
}

TEST(StandardContent, PicturesAreRead) {
    const Bytes data = B("\xFF\xD8\xFF\0\0data");
    const Bytes start = B("image/jpeg\0\4");
    ExpectPicture(B("\0") + start + B("\0") + data, u"", data);
    ExpectPicture(B("\0") + start + B("back\0") + data, u"back", data);
    ExpectPicture(B("\3") + start + B("r\xC3\xBC\0") + data, u"r\u00FC", data);
    ExpectPicture(B("\1") + start + B("\xFF\xFE") + Little(u"back") + B("\0\0") + data, u"back",
                  data);
    ExpectPicture(B("\2") + start + Big(u"back") + B("\0\0") + data, u"back", data);
    ExpectPicture(B("\0") + start + B("BMW\0") + data, u"BMW", data);
}

TEST(StandardContent, PicturesWithMissingEndsAreRead) {
    const Bytes data = B("\xFF\xD8\xFF\0\0data");
    const Bytes start = B("image/jpeg\0\4");
    ExpectPicture(B("\1") + start + B("\0") + data, u"", data);
    ExpectPicture(B("\0") + start + data, u"", data);
    ExpectPicture(B("\1") + start + data, u"", data);
    for (const Bytes& body : {B(""), B("\0"), B("\0image/jpeg"), B("\0image/jpeg\0")})
        EXPECT_FALSE(ParsePicture(FrameOf("APIC", body)));
    EXPECT_EQ(ParsePicture(FrameOf("APIC", B("\0image/jpeg\0\4")))->Data, "");
}

TEST(StandardContent, PicturesOfTheFirstVersionAreRead) {
    const Bytes body = B("\0PNG\3front\0data");
    const std::optional<Picture> picture = ParsePicture(FrameOf("APIC", body, TagForm::V22));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->Mime, "image/png");
    EXPECT_EQ(picture->Type, FrontCover);
    EXPECT_EQ(picture->Description, u"front");
    EXPECT_EQ(picture->Data, "data");
    EXPECT_FALSE(ParsePicture(FrameOf("APIC", B("\0PN"), TagForm::V22)));
}

TEST(StandardContent, EveryFrameIsShownInWords) {
    EXPECT_EQ(ParseShown(FrameOf("TIT2", B("\0a\0b"))), u"a; b");
    EXPECT_EQ(ParseShown(FrameOf("TZZZ", B("\0unknown"))), u"unknown");
    EXPECT_EQ(ParseShown(FrameOf("COMM", B("\0engd\0text"))), u"d: text");
    EXPECT_EQ(ParseShown(FrameOf("USLT", B("\0eng\0words"))), u"words");
    EXPECT_EQ(ParseShown(FrameOf("WZZZ", "http://a/")), u"http://a/");
    EXPECT_EQ(ParseShown(FrameOf("APIC", B("\0image/png\0\3cover\0data"))), u"cover");
    EXPECT_EQ(ParseShown(FrameOf("PRIV", "owner")), u"");
    EXPECT_EQ(ParseShown(FrameOf("IPLS", B("\0producer\0Me"))), u"producer; Me");
}

// --- writing ---

NewFrame New(const FrameId& id, std::vector<Text> values, const Text& description = {}) {
    NewFrame frame;
    frame.Id = id;
    frame.Values = std::move(values);
    frame.Description = description;
    return frame;
}

TEST(StandardContent, IsRenderedAsTheVersionHasIt) {
    EXPECT_EQ(RenderContent(New("TIT2", {u"a", u"b"}), TagForm::V23), B("\0a\0b"));
    EXPECT_EQ(RenderContent(New("TIT2", {u"a", u"b"}), TagForm::V24), B("\3a\0b"));
    EXPECT_EQ(RenderContent(New("TIT2", {u"a", u"\u0416"}), TagForm::V23),
              B("\1\xFF\xFE") + Little(u"a") + B("\0\0\xFF\xFE\x16\x04"));
    EXPECT_EQ(RenderContent(New("COMM", {u"text"}, u"d"), TagForm::V23), B("\0engd\0text"));
    EXPECT_EQ(RenderContent(New("COMM", {u"\u0416"}), TagForm::V23),
              B("\1eng\xFF\xFE\0\0\xFF\xFE\x16\x04"));
    EXPECT_EQ(RenderContent(New("TXXX", {u"v"}, u"k"), TagForm::V24), B("\3k\0v"));
    EXPECT_EQ(RenderContent(New("WXXX", {u"http://a/"}, u"\u0416"), TagForm::V23),
              B("\1\xFF\xFE\x16\x04\0\0http://a/"));
    EXPECT_EQ(RenderContent(New("WOAR", {u"http://a/"}), TagForm::V24), "http://a/");
    NewFrame other = New("PRIV", {});
    other.Data = B("owner\0data");
    EXPECT_EQ(RenderContent(other, TagForm::V23), other.Data);
}

TEST(StandardContent, AddressesAreRenderedAsAddresses) {
    EXPECT_EQ(RenderContent(New("WOAR", {u"http://m\u00FC.de/\u0416\U0001F3B5"}), TagForm::V23),
              B("http://m\xFC.de/%D0%96%F0%9F%8E%B5"));
}

TEST(StandardContent, PicturesAreReadAsTheyWereRendered) {
    for (const TagForm form : {TagForm::V23, TagForm::V24}) {
        for (const Text& description : {Text(), Text(u"Front"), Text(u"\u0416")}) {
            NewFrame frame = New("APIC", {}, description);
            frame.Mime = "image/png";
            frame.Data = B("\x89PNG\0\0\xFF\xFE");
            const Bytes body = RenderContent(frame, form);
            const std::optional<Picture> picture = ParsePicture(FrameOf("APIC", body, form));
            ASSERT_TRUE(picture);
            EXPECT_EQ(picture->Mime, frame.Mime);
            EXPECT_EQ(picture->Type, FrontCover);
            EXPECT_EQ(picture->Description, description);
            EXPECT_EQ(picture->Data, frame.Data);
        }
    }
}

}  // namespace
}  // namespace mdlPLM::standard
