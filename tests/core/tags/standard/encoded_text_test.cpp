#include "core/tags/standard/encoded_text.h"

#include <gtest/gtest.h>

#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::B;
using test::Big;
using test::Little;
using Values = std::vector<Text>;

Values Read(const Bytes& content) { return TextReader(content).Values(); }

const Bytes LittleMark = "\xFF\xFE";
const Bytes BigMark = "\xFE\xFF";

TEST(StandardText, EveryEncodingIsRead) {
    EXPECT_EQ(Read(B("\0H\xE5kan")), Values{u"H\u00E5kan"});
    EXPECT_EQ(Read(B("\1") + LittleMark + Little(u"\u65E5\u672C")), Values{u"\u65E5\u672C"});
    EXPECT_EQ(Read(B("\1") + BigMark + Big(u"\u65E5\u672C")), Values{u"\u65E5\u672C"});
    EXPECT_EQ(Read(B("\2") + Big(u"\u041F\u0440")), Values{u"\u041F\u0440"});
    EXPECT_EQ(Read(B("\3H\xC3\xA5kan \xF0\x9F\x8E\xB5")), Values{u"H\u00E5kan \U0001F3B5"});
}

TEST(StandardText, ClosingNulsAreNoText) {
    EXPECT_EQ(Read(B("\0abc\0")), Values{u"abc"});
    EXPECT_EQ(Read(B("\0abc\0\0\0")), Values{u"abc"});
    EXPECT_EQ(Read(B("\1") + LittleMark + Little(u"abc") + B("\0\0")), Values{u"abc"});
    EXPECT_EQ(Read(B("\1") + LittleMark + Little(u"abc") + B("\0")), Values{u"abc"});
    EXPECT_EQ(Read(B("\2") + Big(u"abc") + B("\0\0\0\0")), Values{u"abc"});
    EXPECT_EQ(Read(B("\3abc\0")), Values{u"abc"});
    for (const Bytes& empty : {B(""), B("\0"), B("\1"), B("\1\xFF\xFE"), B("\3\0\0"), B("\1\0\0")})
        EXPECT_EQ(Read(empty), Values{});
}

TEST(StandardText, ValuesArePartedByNuls) {
    const Values two{u"a", u"b"};
    EXPECT_EQ(Read(B("\0a\0b")), two);
    EXPECT_EQ(Read(B("\3a\0b\0")), two);
    EXPECT_EQ(Read(B("\1") + LittleMark + Little(u"a") + B("\0\0") + LittleMark + Little(u"b")),
              two);
    EXPECT_EQ(Read(B("\1") + BigMark + Big(u"a") + B("\0\0") + Big(u"b")), two);
    EXPECT_EQ(Read(B("\1") + BigMark + Big(u"a") + B("\0\0") + LittleMark + Little(u"b")), two);
    EXPECT_EQ(Joined(two), u"a; b");
    EXPECT_EQ(Joined({}), u"");
}

// The NULs that end a text stand at even places.
TEST(StandardText, HalvesOfUnitsAreNoEnds) {
    EXPECT_EQ(Read(B("\2") + Big(u"\u0100\u0061")), (Values{u"\u0100\u0061"}));
    EXPECT_EQ(Read(B("\1") + LittleMark + Little(u"a\u0100")), (Values{u"a\u0100"}));
}

TEST(StandardText, SingleBytesAreWindows1252) {
    EXPECT_EQ(Read(B("\0\x80 \x92 \x9F \x81")), Values{u"\u20AC \u2019 \u0178 \u0081"});
}

TEST(StandardText, AMarkCountsInEveryEncoding) {
    EXPECT_EQ(Read(B("\0") + LittleMark + Little(u"abc")), Values{u"abc"});
    EXPECT_EQ(Read(B("\0") + BigMark + Big(u"abc")), Values{u"abc"});
    EXPECT_EQ(Read(B("\2") + LittleMark + Little(u"abc")), Values{u"abc"});
    EXPECT_EQ(Read(B("\2") + BigMark + Big(u"abc")), Values{u"abc"});
    EXPECT_EQ(Read(B("\3") + LittleMark + Little(u"abc")), Values{u"abc"});
    EXPECT_EQ(Read(B("\0\xEF\xBB\xBFH\xC3\xA5")), Values{u"H\u00E5"});
    EXPECT_EQ(Read(B("\3\xEF\xBB\xBFH\xC3\xA5")), Values{u"H\u00E5"});
}

TEST(StandardText, WithoutAMarkTheOrderIsThePlausibleOne) {
    const Text texts[] = {u"abc",
                          u"Title",
                          u"H\u00E5kan",
                          u"\u041F\u0440\u0438\u0432\u0435\u0442",
                          u"\u65E5\u672C\u8A9E",
                          u"\u304B\u306A\u30AB\u30CA"};
    for (const Text& text : texts) {
        EXPECT_EQ(Read(B("\1") + Little(text)), Values{text}) << Big(text);
        EXPECT_EQ(Read(B("\1") + Big(text)), Values{text}) << Big(text);
        EXPECT_EQ(Read(B("\2") + Big(text)), Values{text}) << Big(text);
    }
    // Where either order makes sense the usual one counts.
    EXPECT_EQ(Read(B("\1") + Little(u"\uD55C\uAD6D")), Values{u"\uD55C\uAD6D"});
    EXPECT_EQ(Read(B("\2") + Big(u"\uD55C\uAD6D")), Values{u"\uD55C\uAD6D"});
    EXPECT_EQ(Read(B("\2") + Big(u"\u4E00")), Values{u"\u4E00"});
    EXPECT_EQ(Read(B("\2") + Little(u"abc")), Values{u"abc"});
}

TEST(StandardText, WrongEncodingBytesAreSeenThrough) {
    EXPECT_EQ(Read(B("\3H\xE5kan")), Values{u"H\u00E5kan"});
    EXPECT_EQ(Read(B("\1plain letters")), Values{u"plain letters"});
    EXPECT_EQ(Read(B("\1plain letters\0\0")), Values{u"plain letters"});
    EXPECT_EQ(Read(B("\x07text")), Values{u"text"});
    EXPECT_EQ(Read("no encoding byte"), Values{u"no encoding byte"});
}

TEST(StandardText, HalvesOfPairsBecomeTheReplacementCharacter) {
    EXPECT_EQ(Read(B("\1\xFF\xFE\x3D\xD8z\0")), Values{u"\uFFFDz"});
    EXPECT_EQ(Read(B("\1\xFF\xFE\x80\xDC")), Values{u"\uFFFD"});
    EXPECT_EQ(Read(B("\1\xFF\xFE\x3C\xD8\xB5\xDF")), Values{u"\U0001F3B5"});
}

// --- writing ---

Bytes Written(bool v24, const Text& text) {
    const Encoding encoding = EncodingFor(v24, {text});
    Bytes bytes(1, static_cast<char>(encoding));
    AppendText(bytes, encoding, text);
    return bytes;
}

TEST(StandardText, IsWrittenAsTheVersionHasIt) {
    EXPECT_EQ(Written(false, u"H\u00E5kan"), B("\0H\xE5kan"));
    EXPECT_EQ(Written(true, u"H\u00E5kan"), B("\3H\xC3\xA5kan"));
    EXPECT_EQ(Written(false, u"\u0416"), B("\1\xFF\xFE\x16\x04"));
    EXPECT_EQ(Written(true, u"\U0001F3B5"), B("\3\xF0\x9F\x8E\xB5"));
    EXPECT_EQ(Written(false, u"\U0001F3B5"), B("\1\xFF\xFE\x3C\xD8\xB5\xDF"));
    // In ISO-8859-1 there are no such letters, whatever readers make of them.
    EXPECT_EQ(Written(false, u"\u20AC"), B("\1\xFF\xFE\xAC\x20"));
    EXPECT_EQ(Written(false, u"\u0081"), B("\1\xFF\xFE\x81\0"));
}

TEST(StandardText, IsReadAsItWasWritten) {
    const Text texts[] = {
        u"plain",      u"H\u00E5kan",     u"\u20AC\u2019",  u"\u0416\u65E5",
        u"\U0001F3B5", u"\u00FF\u00FE x", u"\u00FE\u00FFx", u"\u00EF\u00BB\u00BFx",
        u"  blanks  ", u"a\nb",           u"\u0085",        u"\u4E00"};
    for (const Text& text : texts)
        for (const bool v24 : {false, true}) EXPECT_EQ(Read(Written(v24, text)), Values{text});
}

TEST(StandardText, WhatNoReaderShowsIsNotWritten) {
    EXPECT_EQ(Writable(Text(u"a\0b\0", 4)), u"ab");
    EXPECT_EQ(Writable(u"\uFEFF\uFEFFab\uFEFF"), u"ab\uFEFF");
    EXPECT_EQ(Writable(Text{0xD83D, u'a', 0xDC80}), u"\uFFFDa\uFFFD");
}

TEST(StandardText, EndsOfTextsAreAsWideAsTheirUnits) {
    Bytes bytes;
    AppendEnd(bytes, Encoding::Latin1);
    AppendEnd(bytes, Encoding::Utf8);
    EXPECT_EQ(bytes, B("\0\0"));
    AppendEnd(bytes, Encoding::Utf16);
    EXPECT_EQ(bytes, B("\0\0\0\0"));
}

}  // namespace
}  // namespace mdlPLM::standard
