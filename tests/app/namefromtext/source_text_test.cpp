#include "app/namefromtext/source_text.h"

#include <gtest/gtest.h>

#include "core/text/code_page.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using namespace std::string_literals;

struct EncodingCase {
    const char* Shows;
    Bytes Contents;
    TextView Expected;
};

class SourceFileEncoding : public testing::TestWithParam<EncodingCase> {};

TEST_P(SourceFileEncoding, IsFoundOut) {
    EXPECT_EQ(ToUtf8(DecodeSourceFile(GetParam().Contents)), ToUtf8(GetParam().Expected))
        << GetParam().Shows;
}

INSTANTIATE_TEST_SUITE_P(
    Files, SourceFileEncoding,
    testing::Values(
        EncodingCase{"ASCII", "abc\r\n", u"abc\r\n"}, EncodingCase{"empty", "", u""},
        EncodingCase{"code page", "Sl\xE4ppt \x80", u"Sl\u00E4ppt \u20AC"},
        EncodingCase{"line art of another code page", "\xDA\xC4\xC4\xBF \xB3",
                     u"\u00DA\u00C4\u00C4\u00BF \u00B3"},
        EncodingCase{"UTF-8", "Sl\xC3\xA4ppt", u"Sl\u00E4ppt"},
        EncodingCase{"UTF-8 with a mark", "\xEF\xBB\xBFSl\xC3\xA4ppt", u"Sl\u00E4ppt"},
        EncodingCase{"damaged UTF-8 with a mark", "\xEF\xBB\xBF\x61\xFFz", u"a\uFFFDz"},
        EncodingCase{"damaged UTF-8 without", "\xC3\xA4\xFF", u"\u00C3\u00A4\u00FF"},
        EncodingCase{"a character beyond the basic plane", "\xF0\x9F\x8E\xB5", u"\U0001F3B5"},
        EncodingCase{"the same with a mark", "\xEF\xBB\xBF\xF0\x9F\x8E\xB5", u"\U0001F3B5"},
        EncodingCase{"UTF-16, low byte first", "\xFF\xFE\x61\x00\xE4\x00"s, u"a\u00E4"},
        EncodingCase{"UTF-16, high byte first", "\xFE\xFF\x00\x61\x00\xE4"s, u"a\u00E4"},
        EncodingCase{"UTF-16 with half a character", "\xFF\xFE\x61\x00\xE4"s, u"a\uFFFD"},
        EncodingCase{"a mark alone", "\xEF\xBB\xBF", u""}));

TEST(LoadedText, LosesTheListedCharactersWhetherOrNotTheOptionIsOn) {
    Settings settings;
    settings.strSettings = u"^~";
    for (const bool on : {false, true}) {
        settings.bRemoveChars = on;
        EXPECT_EQ(PrepareLoadedText(u"  a^b~\r\n ", settings), u"ab\r\n");
    }
}

TEST(LoadedText, LosesAccentsButNotNordicLettersByDefault) {
    EXPECT_EQ(PrepareLoadedText(u"\u00E9\u00E5\u00E4\u00F6\u20AC{x}", Settings()),
              u"\u00E5\u00E4\u00F6x");
}

TEST(LoadedText, ComesFromAFile) {
    const TempFolder folder;
    Text text;
    EXPECT_TRUE(
        ReadSourceFile(folder.File(u"a.txt", " Sl\xE4ppt: {1}\r\n"), Settings(), text).Ok());
    EXPECT_EQ(text, u"Sl\u00E4ppt: 1\r\n");
}

TEST(LoadedText, AFileThatCannotBeReadIsAnErrorAndChangesNothing) {
    const TempFolder folder;
    Text text = u"before";
    EXPECT_EQ(ReadSourceFile(folder / u"no.txt", Settings(), text).Number(),
              ErrorNumber::FileNotFound);
    EXPECT_FALSE(ReadSourceFile(folder.Folder(u"sub"), Settings(), text).Ok());
    EXPECT_EQ(text, u"before");
}

SourceText Loaded(TextView text) {
    SourceText source;
    source.Load(text);
    return source;
}

TEST(SourceText, KeepsTheLineEndsOfALoadedFile) {
    const TextView text = u"a\r\nb\nc\rd\r\n\r\n\n\r";
    const SourceText source = Loaded(text);
    EXPECT_EQ(source.Shown(), u"a\nb\nc\nd\n\n\n\n");
    EXPECT_EQ(source.Whole(), text);
}

TEST(SourceText, ASelectionIsARangeOfTheText) {
    const SourceText source = Loaded(u"ab\r\ncd\nef");
    EXPECT_EQ(source.Range(0, 2), u"ab");
    EXPECT_EQ(source.Range(1, 4), u"b\r\nc");
    EXPECT_EQ(source.Range(3, 6), u"cd\n");
    EXPECT_EQ(source.Range(4, 99), u"d\nef");
    EXPECT_EQ(source.Range(5, 5), u"");
}

TEST(SourceText, TypedAndPastedLineEndsCountAsCrLf) {
    SourceText source = Loaded(u"ab\ncd");
    source.Edit(1, 0, u"\u2029");
    EXPECT_EQ(source.Whole(), u"a\r\nb\ncd");
    source.Edit(1, 2, u"x\ny\rz\r\n");
    EXPECT_EQ(source.Whole(), u"ax\r\ny\r\nz\r\n\ncd");
    source.Edit(0, 99, u"");
    EXPECT_EQ(source.Whole(), u"");
    source.Edit(0, 0, u"new");
    EXPECT_EQ(source.Whole(), u"new");
}

TEST(SourceText, EditsOutsideTheTextAreClamped) {
    SourceText source = Loaded(u"ab");
    source.Edit(9, 1, u"x");
    EXPECT_EQ(source.Whole(), u"ab");
    source.Edit(2, 5, u"x");
    EXPECT_EQ(source.Whole(), u"abx");
}

TEST(SourceText, LongLinesAreBrokenForTheBoxOnly) {
    const std::size_t most = SourceText::LongestShownLine;
    const Text line(2 * most + 1, u'x');
    SourceText source = Loaded(line + u"\r\n" + Text(most, u'y'));
    const Text shown = source.Shown();
    EXPECT_EQ(shown, Text(most, u'x') + u"\n" + Text(most, u'x') + u"\nx\n" + Text(most, u'y'));
    EXPECT_EQ(source.Positions(), shown.size());
    EXPECT_EQ(source.Whole(), line + u"\r\n" + Text(most, u'y'));
    EXPECT_EQ(source.Range(most - 1, most + 2), u"xx");
    EXPECT_FALSE(source.OffersLineEnds());
}

TEST(SourceText, OffersToTakeLineEndsOnlyWhereNoneIsCrLf) {
    EXPECT_TRUE(Loaded(u"a\nb").OffersLineEnds());
    EXPECT_TRUE(Loaded(u"a\rb").OffersLineEnds());
    EXPECT_FALSE(Loaded(u"a\r\nb").OffersLineEnds());
    EXPECT_FALSE(Loaded(u"a\nb\r\n").OffersLineEnds());
    EXPECT_FALSE(Loaded(u"ab").OffersLineEnds());
    EXPECT_FALSE(Loaded(u"").OffersLineEnds());
}

TEST(SourceText, TheOfferStandsUntilItIsTaken) {
    SourceText source = Loaded(u"a\nb\rc");
    source.Edit(0, 0, u"\u2029");
    EXPECT_TRUE(source.OffersLineEnds());
    source.TakeLineEndsAsCrLf();
    EXPECT_FALSE(source.OffersLineEnds());
    EXPECT_EQ(source.Whole(), u"\r\na\r\nb\r\nc");
}

TEST(SourceText, NoOfferForTypedText) {
    SourceText source;
    source.Edit(0, 0, u"a\nb");
    EXPECT_FALSE(source.OffersLineEnds());
    EXPECT_EQ(source.Whole(), u"a\r\nb");
}

TEST(SourceText, CharactersThatABoxKeepsForItselfAreShownAsDamaged) {
    const SourceText source = Loaded(u"a\uFDD0\uFDD2b");
    EXPECT_EQ(source.Whole(), u"a\uFFFD\uFFFDb");
    EXPECT_EQ(Loaded(u"a\u2029b").Whole(), u"a\r\nb");
}

TEST(SourceFile, ALargeOneIsAskedAboutByNameAndSize) {
    const TempFolder folder;
    const Text path = folder.File(u"film.txt");
    SetFileLength(path, LargeSource + (std::int64_t{1} << 20));
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        ScriptedPrompts ask({answer});
        EXPECT_EQ(MayReadSource(path, ask), answer == Answer::Yes);
        EXPECT_EQ(ask.Bodies(), std::vector<Text>{u"The file \"" + path +
                                                  u"\" has 65 megabytes.\r\nRead it as an album "
                                                  u"text all the same?"});
    }
}

TEST(SourceFile, OneOfTheUsualSizeIsReadWithoutAQuestion) {
    const TempFolder folder;
    const Text path = folder.File(u"album.txt");
    SetFileLength(path, LargeSource - 1);
    ScriptedPrompts ask;
    EXPECT_TRUE(MayReadSource(path, ask));
    EXPECT_TRUE(MayReadSource(folder / u"missing.txt", ask));
    EXPECT_TRUE(ask.Log.empty());
}

}  // namespace
}  // namespace mdlPLM
