#include "app/tags/tag_panel.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/tags/id3v2_writer.h"
#include "core/text/code_page.h"
#include "tests/support/child_process.h"
#include "tests/support/error_numbers.h"
#include "tests/support/real_mp3.h"
#include "tests/support/run_failures.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tools.h"

namespace mdlPLM {
namespace {

using test::Frame;
using test::Noise;
using test::Nul;
using test::Nuls;
using test::TextFrame;
using test::Trailer;
using test::WholeTag;
using State = TagPanel::State;

const Bytes Audio = "\xFF\xFB\x90\x64" + Noise(413) + "\xFF\xFB\x90\x64" + Noise(413);

class Panel : public testing::Test {
protected:
    Text Make(TextView name, const Bytes& contents) { return folder_.File(name, contents); }

    Text Show(const Bytes& contents) {
        Text path = Make(u"song.mp3", contents);
        panel_.ShowFile(path, errors_);
        return path;
    }

    FileTags Read(TextView path) { return ReadFileTags(path, ID3v2Parts::Everything, errors_); }

    static void Finish(TagRun run, std::size_t failures = 0) {
        while (run.Step()) continue;
        EXPECT_EQ(FailuresOf(run.Report()).size(), failures)
            << ToUtf8(FailureText(run.Report(), TagWording));
    }

    TempFolder folder_;
    CollectedErrors errors_;
    Settings settings_;
    ReplacementList replacements_;
    TagPanel panel_{settings_, replacements_};
};

// --- the selection ---

TEST_F(Panel, BeginsWithNothing) {
    EXPECT_EQ(panel_.Now(), State::Nothing);
    EXPECT_FALSE(panel_.CanCopyFromV1() || panel_.CanCopyToV1() || panel_.ShowsRemoveBoxes());
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::NoWork);
    EXPECT_EQ(panel_.FixID3(u"%title.mp3").Outcome, SaveOutcome::NoWork);
}

TEST_F(Panel, TellsAFileThatCannotBeReadFromABrokenTag) {
    Show("short");
    EXPECT_TRUE(panel_.ReadingFault().Ok());
    panel_.ShowFile(folder_.Unopenable(u"x.mp3"), errors_);
    EXPECT_EQ(panel_.ReadingFault().Number(), ErrorNumber::DeviceUnavailable);
    settings_.bID3 = false;
    EXPECT_TRUE(panel_.ReadingFault().Ok());
    settings_.bID3 = true;
    panel_.Clear();
    EXPECT_TRUE(panel_.ReadingFault().Ok());
}

TEST_F(Panel, ShowsOneFile) {
    const Text path = Show(WholeTag(TextFrame("TIT2", "V2 title"), 20) + Audio + Trailer("V1", 4));
    EXPECT_EQ(panel_.Now(), State::OneFile);
    EXPECT_EQ(panel_.Path(), path);
    EXPECT_FALSE(panel_.ShowsRemoveBoxes());
    EXPECT_TRUE(panel_.Boxes().chkID3v1 && panel_.Boxes().chkID3v2);
    EXPECT_EQ(panel_.Boxes().txtTitle, u"V1");
    EXPECT_EQ(panel_.Boxes().txtTrackNr, u"4");
    EXPECT_EQ(panel_.Boxes().txtV2Title, u"V2 title");
    EXPECT_EQ(panel_.Stream().Bitrate, u"128kbps");
    EXPECT_EQ(panel_.Stream().ID3v1, u"ID3v1: 1.1");
    EXPECT_TRUE(panel_.CanCopyFromV1() && panel_.CanCopyToV1());
    EXPECT_FALSE(panel_.IsEdited());
    EXPECT_TRUE(errors_.Empty());
}

TEST_F(Panel, TicksOnlyTheTagsThatAreThere) {
    Show(Audio);
    EXPECT_FALSE(panel_.Boxes().chkID3v1 || panel_.Boxes().chkID3v2);
    EXPECT_FALSE(panel_.CanCopyFromV1() || panel_.CanCopyToV1());
    EXPECT_EQ(panel_.Boxes().cmbGenre, u"");
    Show(Audio + Trailer("a"));
    EXPECT_TRUE(panel_.Boxes().chkID3v1 && !panel_.Boxes().chkID3v2);
    EXPECT_TRUE(panel_.CanCopyFromV1() && !panel_.CanCopyToV1());
}

TEST_F(Panel, ShowsTheOptimizedTextsWhenThatIsOn) {
    ID3v1Tag tag;
    LayOutID3v1(tag, {Text(45, u't'), Text(45, u'a'), u"Album", {}, u"Note"}, true);
    settings_.bOptimizedID3v1 = true;
    Show(Audio + RenderID3v1(tag));
    EXPECT_EQ(panel_.Boxes().txtTitle, Text(45, u't'));
    EXPECT_EQ(panel_.Boxes().txtArtist, Text(45, u'a'));
    settings_.bOptimizedID3v1 = false;
    Show(Audio + RenderID3v1(tag));
    EXPECT_EQ(panel_.Boxes().txtTitle, Text(30, u't'));
}

TEST_F(Panel, ASecondSelectedFileEmptiesEveryBox) {
    Show(WholeTag(TextFrame("TIT2", "V2 title") + Frame("PRIV", "x")) + Audio + Trailer("V1", 4));
    panel_.TickID3v1Rem(true);
    panel_.ShowBatch();
    EXPECT_EQ(panel_.Now(), State::Batch);
    EXPECT_TRUE(panel_.ShowsRemoveBoxes());
    const TagBoxes& boxes = panel_.Boxes();
    for (const TagBoxRow& row : TagBoxTable) EXPECT_EQ(boxes.*row.Value, u"") << row.Name;
    EXPECT_FALSE(boxes.chkID3v1 || boxes.chkID3v2 || boxes.chkID3v1Rem || boxes.chkID3v2Rem);
    EXPECT_EQ(panel_.Stream().Size, u"");
    EXPECT_EQ(panel_.OtherFrames(), "");
    EXPECT_EQ(panel_.Path(), u"");
}

TEST_F(Panel, IsBlankWhenNothingIsSelected) {
    Show(Audio + Trailer("V1", 4));
    panel_.Clear();
    EXPECT_EQ(panel_.Now(), State::Nothing);
    EXPECT_EQ(panel_.Boxes().txtTitle, u"");
    EXPECT_FALSE(panel_.Boxes().chkID3v1);
    EXPECT_EQ(panel_.Stream().Size, u"");
}

TEST_F(Panel, AMissingFileIsShownEmptyAndNotCreatedBySaving) {
    const Text path = folder_ / u"missing.mp3";
    panel_.ShowFile(path, errors_);
    EXPECT_TRUE(errors_.Empty());
    EXPECT_EQ(panel_.Stream().Size, u"");
    panel_.TickID3v1(true);
    const PanelSave saved = panel_.SaveID3();
    EXPECT_EQ(saved.Outcome, SaveOutcome::Failed);
    EXPECT_EQ(saved.Reason, u"Error: 53\r\nFile not found");
    EXPECT_FALSE(IsThere(path));
}

// --- the search for the sound ---

TEST_F(Panel, ALargeFileWithoutSoundIsShownWhileItIsSearched) {
    const Text path = Make(u"song.mp3", WholeTag(TextFrame("TIT2", "Long"), 20));
    SetFileLength(path, 8LL << 30);
    panel_.ShowFile(path, errors_);
    EXPECT_EQ(panel_.Boxes().txtV2Title, u"Long");
    EXPECT_EQ(panel_.Stream().Size, u"Size: 8589934592b");
    EXPECT_EQ(panel_.Stream().ID3v2, u"ID3v2: 3.0");
    EXPECT_EQ(panel_.Stream().Version, u"");
    EXPECT_TRUE(panel_.SearchesStream());
    EXPECT_EQ(panel_.SearchedPercent(), 0);
    for (int i = 0; i < 6000; ++i) ASSERT_TRUE(panel_.SearchStreamOn());
    EXPECT_EQ(panel_.SearchedPercent(), 1);
}

TEST_F(Panel, TheLinesOfTheStreamComeWhenTheyAreFound) {
    const Text path = Make(u"song.mp3", Nuls(3 << 20) + Audio + Trailer("V1"));
    panel_.ShowFile(path, errors_);
    EXPECT_EQ(panel_.Stream().Bitrate, u"");
    EXPECT_EQ(panel_.Stream().ID3v1, u"ID3v1: 1.0");
    panel_.Enter(TagBox::txtTitle, u"typed meanwhile");
    while (panel_.SearchStreamOn()) EXPECT_TRUE(panel_.SearchesStream());
    EXPECT_EQ(panel_.Stream().Bitrate, u"128kbps");
    EXPECT_EQ(panel_.Stream().ID3v1, u"ID3v1: 1.0");
    EXPECT_EQ(panel_.Boxes().txtTitle, u"typed meanwhile");
    EXPECT_FALSE(panel_.SearchesStream());
    EXPECT_FALSE(panel_.SearchStreamOn());
}

TEST_F(Panel, ShowingSomethingElseDropsTheSearch) {
    const Text large = Make(u"large.mp3", Noise(10));
    SetFileLength(large, 8LL << 30);
    const Text small = Make(u"small.mp3", Audio);
    panel_.ShowFile(large, errors_);
    panel_.ShowFile(small, errors_);
    EXPECT_FALSE(panel_.SearchesStream());
    EXPECT_EQ(panel_.Stream().Bitrate, u"128kbps");
    panel_.ShowFile(large, errors_);
    panel_.ShowBatch();
    EXPECT_FALSE(panel_.SearchesStream());
    panel_.ShowFile(large, errors_);
    panel_.Clear();
    EXPECT_FALSE(panel_.SearchesStream());
    EXPECT_EQ(panel_.Stream().Size, u"");
}

// --- typing ---

TEST_F(Panel, LineBreaksAndNulsCannotBeEntered) {
    Show(Audio);
    EXPECT_EQ(panel_.Enter(TagBox::txtTitle, Text(u"a\r\nb\0c\u2028d", 8)), u"abcd");
    EXPECT_EQ(panel_.Boxes().txtTitle, u"abcd");
    EXPECT_EQ(panel_.Enter(TagBox::txtV2Comments, u"one\ntwo"), u"onetwo");
    EXPECT_TRUE(panel_.IsEdited());
}

TEST_F(Panel, ForOneFileTheFirstTagsYearAndTrackTakeDigits) {
    Show(Audio);
    EXPECT_EQ(panel_.Enter(TagBox::txtYear, u"*19a99"), u"1999");
    EXPECT_EQ(panel_.Enter(TagBox::txtTrackNr, u"7/*12"), u"712");
    EXPECT_EQ(panel_.Enter(TagBox::txtV2Year, u"in 1999"), u"in 1999");
    EXPECT_EQ(panel_.Enter(TagBox::txtV2Track, u"7/12"), u"7/12");
}

TEST_F(Panel, InABatchYearsAndTracksTakeAStarToo) {
    panel_.ShowBatch();
    EXPECT_EQ(panel_.Enter(TagBox::txtYear, u"*19a/99"), u"*1999");
    EXPECT_EQ(panel_.Enter(TagBox::txtTrackNr, u"7/*12"), u"7*12");
    EXPECT_EQ(panel_.Enter(TagBox::txtV2Year, u"c. *1999/+-00"), u"*1999/+-00");
    EXPECT_EQ(panel_.Enter(TagBox::txtV2Track, u"no *7/12"), u"*712");
    EXPECT_EQ(panel_.Enter(TagBox::txtTitle, u"any *text?"), u"any *text?");
}

TEST_F(Panel, OnlyTheOptimizedLayoutLimitsTitleAndArtist) {
    Show(Audio);
    for (const TagBoxRow& row : TagBoxTable)
        EXPECT_EQ(panel_.Limit(row.Box), TagPanel::NoLimit) << row.Name;
    settings_.bOptimizedID3v1 = true;
    for (const TagBoxRow& row : TagBoxTable) {
        const bool limited = row.Box == TagBox::txtTitle || row.Box == TagBox::txtArtist;
        EXPECT_EQ(panel_.Limit(row.Box), limited ? 59 : TagPanel::NoLimit) << row.Name;
    }
}

TEST_F(Panel, TheLimitsFollowTheBoxesConcerned) {
    settings_.bOptimizedID3v1 = true;
    Show(Audio);
    panel_.Enter(TagBox::txtAlbum, Text(10, u'x'));
    EXPECT_EQ(panel_.Limit(TagBox::txtArtist), 49);
    panel_.Enter(TagBox::txtAlbum, Text(30, u'x'));
    EXPECT_EQ(panel_.Limit(TagBox::txtArtist), 29);
    panel_.Enter(TagBox::txtComments, Text(9, u'x'));
    EXPECT_EQ(panel_.Limit(TagBox::txtTitle), 50);
    panel_.Enter(TagBox::txtTrackNr, u"3");
    EXPECT_EQ(panel_.Limit(TagBox::txtTitle), 48);
    panel_.Enter(TagBox::txtComments, Text(30, u'x'));
    EXPECT_EQ(panel_.Limit(TagBox::txtTitle), 30);
    EXPECT_EQ(panel_.Enter(TagBox::txtTitle, Text(40, u't')), Text(30, u't'));
}

TEST_F(Panel, ATextThatHasBecomeTooLongStandsButCannotGrow) {
    settings_.bOptimizedID3v1 = true;
    Show(Audio);
    panel_.Enter(TagBox::txtArtist, Text(50, u'a'));
    panel_.Enter(TagBox::txtAlbum, Text(20, u'x'));
    EXPECT_EQ(panel_.Boxes().txtArtist, Text(50, u'a'));
    EXPECT_EQ(panel_.Enter(TagBox::txtArtist, Text(51, u'a')), Text(50, u'a'));
    EXPECT_EQ(panel_.Enter(TagBox::txtArtist, Text(45, u'a')), Text(45, u'a'));
    EXPECT_EQ(panel_.Enter(TagBox::txtArtist, Text(46, u'a')), Text(45, u'a'));
}

// --- copying ---

TEST_F(Panel, CopyFromV1TakesTheTextsUnchanged) {
    Show(Audio);
    panel_.Enter(TagBox::txtTitle, u" T ");
    panel_.Enter(TagBox::txtArtist, u"A");
    panel_.Enter(TagBox::txtAlbum, u"L");
    panel_.Enter(TagBox::txtYear, u"1999");
    panel_.Enter(TagBox::cmbGenre, u"Rock");
    panel_.Enter(TagBox::txtTrackNr, u"07");
    panel_.Enter(TagBox::txtComments, u"C");
    panel_.Enter(TagBox::txtV2Composer, u"stays");
    panel_.CopyFromV1();
    const TagBoxes& boxes = panel_.Boxes();
    EXPECT_TRUE(boxes.chkID3v2);
    EXPECT_FALSE(boxes.chkID3v1);
    EXPECT_EQ(boxes.txtV2Title, u" T ");
    EXPECT_EQ(boxes.txtV2Artist, u"A");
    EXPECT_EQ(boxes.txtV2Album, u"L");
    EXPECT_EQ(boxes.txtV2Year, u"1999");
    EXPECT_EQ(boxes.cmbV2Genre, u"Rock");
    EXPECT_EQ(boxes.txtV2Track, u"07");
    EXPECT_EQ(boxes.txtV2Comments, u"C");
    EXPECT_EQ(boxes.txtV2Composer, u"stays");
    EXPECT_TRUE(panel_.CanCopyToV1());
    EXPECT_FALSE(panel_.CanCopyFromV1());
}

TEST_F(Panel, CopyToV1CutsTheTextsToTheirFields) {
    Show(Audio);
    const Text long40 = u"1234567890123456789012345678901234567890";
    for (const TagBoxRow& row : TagBoxTable)
        if (row.Version == TagVersion::V2) panel_.Enter(row.Box, long40);
    panel_.CopyToV1();
    const TagBoxes& boxes = panel_.Boxes();
    EXPECT_TRUE(boxes.chkID3v1);
    EXPECT_FALSE(boxes.chkID3v2);
    EXPECT_EQ(boxes.txtTitle, Left(long40, 30));
    EXPECT_EQ(boxes.txtArtist, Left(long40, 30));
    EXPECT_EQ(boxes.txtAlbum, Left(long40, 30));
    EXPECT_EQ(boxes.txtYear, u"1234");
    EXPECT_EQ(boxes.cmbGenre, long40);
    EXPECT_EQ(boxes.txtTrackNr, long40);
    EXPECT_EQ(boxes.txtComments, Left(long40, 28));
    EXPECT_TRUE(panel_.CanCopyFromV1());
    EXPECT_FALSE(panel_.CanCopyToV1());
}

TEST_F(Panel, CopyingAnEmptyGenreToV1ChoosesTheFirstEntry) {
    Show(Audio + Trailer("a", '\0', '\x11'));
    EXPECT_EQ(panel_.Boxes().cmbGenre, u"Rock");
    panel_.CopyToV1();
    EXPECT_EQ(panel_.Boxes().cmbGenre, u"");
}

TEST_F(Panel, InABatchBothCopyButtonsWork) {
    panel_.ShowBatch();
    EXPECT_TRUE(panel_.CanCopyFromV1() && panel_.CanCopyToV1());
}

TEST_F(Panel, TickingAVersionLetsItBeCopied) {
    Show(Audio);
    panel_.TickID3v1(true);
    EXPECT_TRUE(panel_.CanCopyFromV1() && !panel_.CanCopyToV1());
    panel_.TickID3v2(true);
    EXPECT_TRUE(panel_.CanCopyToV1());
}

// --- the question ---

TEST_F(Panel, TheQuestionNamesWhatIsNotEmpty) {
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtAlbum, u"The Album");
    panel_.Enter(TagBox::txtYear, u"1999");
    panel_.Enter(TagBox::txtV2Encoder, u"me");
    panel_.Enter(TagBox::txtV2URL, u"http://a");
    panel_.Enter(TagBox::txtV2Title, u"T");
    EXPECT_EQ(panel_.ConfirmationText(),
              u"The following attributes will be changed for ALL selected files:\r\n\r\n"
              u"ID3v1 (ID3v1 will be added if nonexistent):\r\nAlbum: The Album\r\nYear: 1999"
              u"\r\n\r\nID3v2 (ID3v2 will be added if nonexistent):\r\nTitle: T"
              u"\r\nEncoded By: me\r\nURL: http://a");
}

TEST_F(Panel, TheQuestionWithNothingEnteredListsOnlyTheHeadings) {
    panel_.ShowBatch();
    EXPECT_EQ(panel_.ConfirmationText(),
              u"The following attributes will be changed for ALL selected files:\r\n\r\n"
              u"ID3v1 (ID3v1 will be added if nonexistent):\r\n\r\n"
              u"ID3v2 (ID3v2 will be added if nonexistent):");
}

TEST_F(Panel, TheQuestionSaysWhatIsRemoved) {
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtTitle, u"not told");
    panel_.TickID3v1Rem(true);
    panel_.TickID3v2Rem(true);
    EXPECT_EQ(panel_.ConfirmationText(),
              u"The following attributes will be changed for ALL selected files:\r\n\r\n"
              u"ID3v1 tags will be REMOVED!\r\n\r\nID3v2 tags will be REMOVED!");
}

TEST_F(Panel, TheQuestionListsEveryBoxInItsOrder) {
    panel_.ShowBatch();
    for (const TagBoxRow& row : TagBoxTable) panel_.Enter(row.Box, u"1");
    EXPECT_EQ(panel_.ConfirmationText(),
              u"The following attributes will be changed for ALL selected files:\r\n\r\n"
              u"ID3v1 (ID3v1 will be added if nonexistent):\r\nTitle: 1\r\nArtist: 1\r\nAlbum: 1"
              u"\r\nYear: 1\r\nGenre: 1\r\nTrack: 1\r\nComments: 1\r\n\r\n"
              u"ID3v2 (ID3v2 will be added if nonexistent):\r\nTitle: 1\r\nArtist: 1\r\nAlbum: 1"
              u"\r\nYear: 1\r\nGenre: 1\r\nTrack: 1\r\nComments: 1\r\nComposer: 1"
              u"\r\nOriginal Artist: 1\r\nCopyright: 1\r\nEncoded By: 1\r\nURL: 1");
}

// --- saving one file ---

TEST_F(Panel, SavesTheTickedVersionsAndShowsThemAsTheyAre) {
    const Text path = Show(Audio);
    panel_.Enter(TagBox::txtTitle, u" T\u00E9xt \u4E2D ");
    panel_.Enter(TagBox::txtYear, u"1999");
    panel_.Enter(TagBox::cmbGenre, u"Jazz");
    panel_.Enter(TagBox::txtTrackNr, u"7");
    panel_.Enter(TagBox::txtV2Title, u"V2");
    panel_.TickID3v1(true);
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
    ID3v1Tag expected;
    LayOutID3v1(expected, {u"T\u00E9xt ?", {}, {}, u"1999", {}}, false);
    expected.Genre = 8;
    expected.Track = 7;
    EXPECT_EQ(ReadFile(path), Audio + RenderID3v1(expected));
    EXPECT_EQ(panel_.Boxes().txtTitle, u"T\u00E9xt ?");
    EXPECT_EQ(panel_.Boxes().txtV2Title, u"");
    EXPECT_EQ(panel_.Stream().ID3v1, u"ID3v1: 1.1");
    EXPECT_FALSE(panel_.IsEdited());
}

TEST_F(Panel, SavedTextsReadBackAllButTheV2Genre) {
    const Text path = Show(Audio);
    for (const TagBoxRow& row : TagBoxTable) panel_.Enter(row.Box, u"12");
    panel_.Enter(TagBox::cmbGenre, u"Rock");
    panel_.Enter(TagBox::cmbV2Genre, u"Rock");
    panel_.TickID3v1(true);
    panel_.TickID3v2(true);
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
    panel_.ShowBatch();
    panel_.ShowFile(path, errors_);
    for (const TagBoxRow& row : TagBoxTable) {
        if (row.Box == TagBox::cmbGenre) continue;
        // A genre is written as its name and read as a reference; kept on purpose.
        const bool genre = row.Box == TagBox::cmbV2Genre;
        EXPECT_EQ(panel_.Boxes().*row.Value, genre ? u"" : u"12") << row.Name;
    }
    EXPECT_EQ(panel_.Boxes().cmbGenre, u"Rock");
    EXPECT_NE(ReadFile(path).find(BuildFrame("TCON", "Rock")), Bytes::npos);
}

TEST_F(Panel, AnUntickedVersionIsLeftAlone) {
    const Bytes tag = WholeTag(TextFrame("TIT2", "Old"), 100);
    const Text path = Show(tag + Audio + Trailer("Old", 3));
    panel_.Enter(TagBox::txtV2Title, u"New");
    panel_.TickID3v2(false);
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
    EXPECT_EQ(ReadFile(path), tag + Audio + Trailer("Old", 3));
    panel_.TickID3v1(false);
    panel_.TickID3v2(false);
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::NoWork);
}

TEST_F(Panel, AYearAndATrackAreReducedToDigits) {
    const Text path = Show(Audio);
    panel_.Enter(TagBox::txtV2Year, u"c.1987");
    panel_.Enter(TagBox::txtV2Track, u"7/12");
    panel_.CopyToV1();
    EXPECT_EQ(panel_.Boxes().txtYear, u"c.19");
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
    EXPECT_EQ(panel_.Boxes().txtYear, u"19");
    EXPECT_EQ(panel_.Boxes().txtTrackNr, u"");  // 712 is no track
    EXPECT_EQ(ReadFile(path).size(), Audio.size() + 128);
}

TEST_F(Panel, ATrackWithAStarIsNoTrack) {
    const Text path = Show(Audio + Trailer("a", 5));
    panel_.Enter(TagBox::txtV2Track, u"1*");
    panel_.CopyToV1();
    EXPECT_EQ(panel_.Boxes().txtTrackNr, u"1*");
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
    EXPECT_EQ(Read(path).V1.Track, '\0');
}

TEST_F(Panel, TheOptimizedLayoutIsWrittenWhenItIsOn) {
    settings_.bOptimizedID3v1 = true;
    const Text path = Show(Audio);
    panel_.Enter(TagBox::txtTitle, Text(45, u't'));
    panel_.Enter(TagBox::txtComments, u"Note");
    panel_.TickID3v1(true);
    panel_.SaveID3();
    EXPECT_EQ(panel_.Boxes().txtTitle, Text(45, u't'));
    EXPECT_EQ(Read(path).V1.Comment, PadString("Note" + Nul + Bytes(15, 't'), 30, Nul));
}

TEST_F(Panel, ALayoutThatIsSwitchedMeanwhileLosesNothing) {
    ID3v1Tag tag;
    LayOutID3v1(tag, {Text(45, u't'), {}, {}, {}, u"Note"}, true);
    const Text path = Show(Audio + RenderID3v1(tag));
    settings_.bOptimizedID3v1 = true;
    panel_.Enter(TagBox::txtAlbum, u"New");
    panel_.SaveID3();
    EXPECT_EQ(panel_.Boxes().txtTitle, Text(45, u't'));
    EXPECT_EQ(panel_.Boxes().txtAlbum, u"New");
    EXPECT_EQ(Read(path).V1.Comment, tag.Comment);
}

TEST_F(Panel, AGenreNumberWithoutANameIsSavedAsItWas) {
    const Text path = Show(Audio + Trailer("Old", 3, '\xC8'));
    EXPECT_EQ(panel_.Boxes().cmbGenre, u"");
    panel_.Enter(TagBox::txtTitle, u"New");
    panel_.SaveID3();
    EXPECT_EQ(ReadFile(path), Audio + Trailer("New", 3, '\xC8'));
}

TEST_F(Panel, TextsLongerThanTheirFieldsAreCut) {
    const Text path = Show(Audio);
    for (const TagBox box :
         {TagBox::txtTitle, TagBox::txtArtist, TagBox::txtAlbum, TagBox::txtComments})
        panel_.Enter(box, Text(100, u'x'));
    panel_.Enter(TagBox::txtYear, u"19999");
    panel_.Enter(TagBox::txtTrackNr, u"9");
    panel_.TickID3v1(true);
    panel_.SaveID3();
    EXPECT_EQ(ReadFile(path),
              Audio + "TAG" + Bytes(90, 'x') + "1999" + Bytes(28, 'x') + Nul + "\x09\xFF");
}

TEST_F(Panel, WhatNoBoxShowsSurvivesASaveByteForByte) {
    const Bytes others = Frame("TIT2", "\1\xFF\xFE" + Bytes("a\0", 2)) +
                         Frame("APIC", Nul + "image/png" + Nuls(2) + Noise(300)) +
                         Frame("TCOM", "\3\xC3\xA9") + Frame("PRIV", "x" + Nul + Noise(20)) +
                         TextFrame("TCON", "Rock");
    const Text path = Show(WholeTag(TextFrame("TALB", "Old") + others, 10) + Audio);
    EXPECT_EQ(panel_.Boxes().txtV2Title, u"");
    EXPECT_EQ(panel_.Boxes().cmbV2Genre, u"");
    EXPECT_TRUE(StartsWith(FromAscii(panel_.OtherFrames()), FromAscii(others)));
    panel_.Enter(TagBox::txtV2Album, u"New");
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
    const Bytes saved = ReadFile(path);
    EXPECT_EQ(saved.substr(10, 14 + others.size()), BuildFrame("TALB", "New") + others);
}

TEST_F(Panel, OtherFramesAreHandedOnWithPaddingAndTheTenBytes) {
    const Bytes privateFrame = Frame("PRIV", "x" + Nul + Noise(20));
    const Text path = Show(WholeTag(TextFrame("TALB", "Old") + privateFrame, 10) + Audio);
    EXPECT_EQ(panel_.OtherFrames(), privateFrame + Nuls(10) + Audio.substr(0, 10));
    panel_.Enter(TagBox::txtV2Album, u"New");
    panel_.SaveID3();
    const Bytes frames = BuildFrame("TALB", "New") + privateFrame + Nuls(10) + Audio.substr(0, 10);
    EXPECT_EQ(ReadFile(path).substr(10, frames.size()), frames);
}

TEST_F(Panel, HiddenFramesAreDroppedWhenThatIsOn) {
    settings_.bRemHiddenID3 = true;
    const Bytes unshown = Frame("TIT2", "\3\xC3\xA9");
    const Text path =
        Show(WholeTag(unshown + Frame("PRIV", Noise(20)) + TextFrame("TALB", "Old"), 50) + Audio);
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
    const Bytes frames = BuildFrame("TALB", "Old") + unshown;
    EXPECT_EQ(ReadFile(path).substr(10, frames.size()), frames);
    EXPECT_EQ(ReadFile(path).find("PRIV"), Bytes::npos);
}

TEST_F(Panel, FramesEditedElsewhereAreSaved) {
    const Text path = Show(WholeTag(Frame("PRIV", Noise(20)), 10) + Audio);
    const Bytes frames = BuildFrame("TIT3", "Subtitle");
    panel_.SetOtherFrames(frames);
    EXPECT_TRUE(panel_.IsEdited());
    EXPECT_EQ(panel_.OtherFrames(), frames);
    EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
    EXPECT_EQ(ReadFile(path).find("PRIV"), Bytes::npos);
    EXPECT_NE(ReadFile(path).find(frames), Bytes::npos);
}

// --- tags that are hard to walk ---

std::size_t Count(const Bytes& text, BytesView part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != Bytes::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

TEST_F(Panel, AnEditedFieldStandsOnceAndTheOthersStay) {
    for (const test::HardTag& tag : test::HardTags()) {
        SCOPED_TRACE(tag.What);
        const Text path = Show(tag.Whole + Audio);
        EXPECT_EQ(panel_.Boxes().txtV2Artist, u"Old artist");
        panel_.Enter(TagBox::txtV2Title, u"New");
        EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
        const Bytes frames = BuildFrame("TIT2", "New") + BuildFrame("TPE1", "Old artist") +
                             BuildFrame("TYER", "1999") + tag.Kept + test::HardAlbum + Nuls(50);
        EXPECT_EQ(ReadFile(path).substr(10, frames.size()), frames);
        EXPECT_EQ(Count(ReadFile(path), "TIT2"), 1U);
    }
}

TEST_F(Panel, AnEmptiedBoxStaysEmpty) {
    for (const test::HardTag& tag : test::HardTags()) {
        SCOPED_TRACE(tag.What);
        const Text path = Show(tag.Whole + Audio);
        panel_.Enter(TagBox::txtV2Title, u"");
        EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
        EXPECT_EQ(panel_.Boxes().txtV2Title, u"");
        EXPECT_EQ(Count(ReadFile(path), "TIT2"), 0U);
        EXPECT_EQ(panel_.Boxes().txtV2Artist, u"Old artist");
    }
}

TEST_F(Panel, FieldsThatNobodyEditedStayWhenHiddenFramesAreDropped) {
    settings_.bRemHiddenID3 = true;
    for (const test::HardTag& tag : test::HardTags()) {
        SCOPED_TRACE(tag.What);
        const Text path = Show(tag.Whole + Audio);
        EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
        const Bytes frames = BuildFrame("TIT2", "Old title") + BuildFrame("TPE1", "Old artist") +
                             BuildFrame("TYER", "1999") + test::HardAlbum;
        EXPECT_EQ(ReadFile(path).substr(10, frames.size()), frames);
        EXPECT_EQ(Count(ReadFile(path), tag.Kept), 0U);
    }
}

TEST_F(Panel, ASaveWithoutAnEditKeepsEveryFrame) {
    for (const test::HardTag& tag : test::HardTags()) {
        SCOPED_TRACE(tag.What);
        const Text path = Show(tag.Whole + Audio);
        EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
        const Bytes saved = ReadFile(path);
        for (const Bytes& frame : {BuildFrame("TIT2", "Old title"), tag.Kept, test::HardAlbum})
            EXPECT_EQ(Count(saved, frame), 1U);
    }
}

// As another save may have left them: behind padding, where no walk comes to.
TEST_F(Panel, AFieldBehindThePaddingIsEditedAndEmptiedToo) {
    const Bytes picture = Frame("APIC", Nul + "image/png" + Nuls(2) + Noise(300));
    const Bytes tag = WholeTag(picture + Nuls(20) + TextFrame("TIT2", "Old") + picture, 20) + Audio;
    for (const TextView title : {u"New", u""}) {
        const Text path = Show(tag);
        panel_.Enter(TagBox::txtV2Title, title);
        panel_.SaveID3();
        EXPECT_EQ(panel_.Boxes().txtV2Title, title);
        EXPECT_EQ(Count(ReadFile(path), "TIT2"), title.empty() ? 0U : 1U);
        EXPECT_EQ(Count(ReadFile(path), picture), 2U);
    }
}

// --- further frames ---

TEST_F(Panel, FramesAddedOrRemovedTickTheTag) {
    const Bytes frames = BuildFrame("TIT3", "Subtitle");
    for (const Bytes& start : {Bytes(), WholeTag(Frame("PRIV", Noise(20)), 10)}) {
        const Text path = Show(start + Audio);
        panel_.TickID3v2(false);
        panel_.SetOtherFrames(panel_.OtherFrames());
        EXPECT_FALSE(panel_.Boxes().chkID3v2);
        panel_.SetOtherFrames(frames);
        EXPECT_TRUE(panel_.Boxes().chkID3v2);
        EXPECT_TRUE(panel_.CanCopyToV1());
        EXPECT_EQ(panel_.SaveID3().Outcome, SaveOutcome::Written);
        EXPECT_EQ(ReadFile(path).substr(10, frames.size()), frames);
        EXPECT_EQ(Count(ReadFile(path), "PRIV"), 0U);
    }
}

// Its list shows those frames of the boxes too that are handed on as they stand.
TEST_F(Panel, RemovingAllFurtherFramesLeavesWhatTheBoxesShow) {
    const Bytes comment = test::CommentFrame("what", "A comment");
    const Text path = Show(WholeTag(Frame("PRIV", Noise(20)) + comment, 10) + Audio);
    panel_.SetOtherFrames({});
    panel_.SaveID3();
    EXPECT_EQ(panel_.Boxes().txtV2Comments, u"A comment");
    const Bytes frames = BuildFrame("COMM", "A comment");
    EXPECT_EQ(ReadFile(path).substr(10, frames.size()), frames);
    EXPECT_EQ(Count(ReadFile(path), "PRIV"), 0U);
}

// --- what may happen between showing and saving ---

constexpr TextView Changed = u"The file has changed since it was shown. It was not saved.";

TEST_F(Panel, AFileThatWasReplacedOrChangedSinceItWasShownIsLeftAlone) {
    const Bytes old = WholeTag(TextFrame("TIT2", "Old"), 20) + Audio + Trailer("Old");
    const Bytes others[] = {
        Noise(3000),
        old.substr(0, 400),
        WholeTag(TextFrame("TIT2", "Abc"), 20) + Audio + Trailer("Old"),
        WholeTag(TextFrame("TIT2", "Old"), 20) + Audio + Trailer("Abc"),
    };
    for (const Bytes& other : others) {
        const Text path = Show(old);
        panel_.Enter(TagBox::txtV2Title, u"New");
        WriteFile(path, other);
        const PanelSave saved = panel_.SaveID3();
        EXPECT_EQ(saved.Outcome, SaveOutcome::Failed);
        EXPECT_EQ(saved.Reason, Changed);
        EXPECT_TRUE(ReadFile(path) == other);
        EXPECT_EQ(panel_.Boxes().txtV2Title, u"New");
    }
}

TEST_F(Panel, AFileThatShrankBelowATrailerOrVanishedFails) {
    const Text path = Show(Audio + Trailer("Old"));
    panel_.Enter(TagBox::txtTitle, u"New");
    WriteFile(path, Noise(50));
    EXPECT_EQ(panel_.SaveID3().Reason, u"Error: 63\r\nBad record number");
    EXPECT_EQ(ReadFile(path), Noise(50));
    panel_.ShowFile(Make(u"song.mp3", Audio + Trailer("Old")), errors_);
    std::remove(ToUtf8(path).c_str());
    EXPECT_EQ(panel_.SaveID3().Reason, u"Error: 53\r\nFile not found");
    EXPECT_FALSE(IsThere(path));
}

TEST_F(Panel, AFileWhoseTagsCouldNotBeReadIsNotWritten) {
    const Bytes broken = test::TagHeader(5000) + Audio;
    const Text path = Show(broken);
    EXPECT_EQ(test::NumbersOf(errors_), std::vector{ErrorNumber::InputPastEnd});
    panel_.TickID3v1(true);
    EXPECT_EQ(panel_.SaveID3().Reason, u"Error: 62\r\nInput past end of file");
    EXPECT_EQ(ReadFile(path), broken);
}

TEST_F(Panel, AFileBelow128BytesIsNotWritten) {
    const Text path = Show(Noise(127));
    EXPECT_EQ(test::NumbersOf(errors_), std::vector{ErrorNumber::BadRecordNumber});
    panel_.TickID3v1(true);
    panel_.TickID3v2(true);
    panel_.Enter(TagBox::txtV2Title, u"New");
    EXPECT_EQ(panel_.SaveID3().Reason, u"Error: 63\r\nBad record number");
    EXPECT_EQ(ReadFile(path), Noise(127));
}

TEST_F(Panel, AFileThatBecameReadOnlySinceItWasShownStays) {
    const Bytes tag = WholeTag(TextFrame("TIT2", "Old"), 20);
    for (const Bytes& file : {Audio + Trailer("Old"), tag + Audio + Trailer("Old")}) {
        const Text path = Show(file);
        panel_.TickID3v2(true);
        panel_.Enter(TagBox::txtV2Title, u"A new and longer title");
        ASSERT_EQ(::chmod(ToUtf8(path).c_str(), 0444), 0);
        const auto save = [this] {
            ObeyPermissions();
            const PanelSave saved = panel_.SaveID3();
            const bool told = saved.Reason == u"Error: 70\r\nPermission denied";
            return told && panel_.Boxes().txtV2Title == u"A new and longer title" ? 0 : 1;
        };
        EXPECT_EQ(RunInChild(save), 0);
        EXPECT_TRUE(ReadFile(path) == file);
        ASSERT_EQ(::chmod(ToUtf8(path).c_str(), 0644), 0);
    }
}

// --- saving all ---

TEST_F(Panel, ABatchSetsItsBoxesAndKeepsEverythingElse) {
    const Bytes utf16 = Frame("TIT2", "\1\xFF\xFE" + Bytes("a\0", 2));
    const Bytes utf8 = Frame("TPE1", "\3\xC3\xA9lite");
    const Bytes picture = Frame("APIC", Nul + "image/png" + Nuls(2) + Noise(5000));
    const Bytes lyrics = Frame("USLT", Nul + "eng" + Nul + "la la");
    const Bytes own = Frame("PRIV", "x" + Nul + Noise(20));
    const Bytes genre = TextFrame("TCON", "(17)");
    const Bytes kept = utf16 + utf8 + picture + lyrics + own + genre;
    const Text a = Make(u"a.mp3", WholeTag(kept + TextFrame("TALB", "Old"), 200) + Audio +
                                      Trailer("First", 3, '\xC8'));
    const Text b = Make(u"b.mp3", Audio);
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtAlbum, u"New album");
    panel_.Enter(TagBox::txtV2Album, u"New album");
    panel_.Enter(TagBox::txtV2Year, u"1987");
    Finish(panel_.SaveAll({a, b}));
    const Bytes frames = BuildFrame("TALB", "New album") + BuildFrame("TYER", "1987");
    EXPECT_EQ(ReadFile(a).substr(10, frames.size() + kept.size()), frames + kept);
    ID3v1Tag expected = ParseID3v1(Trailer("First", 3, '\xC8'));
    expected.Album = PadString("New album", 30, Nul);
    EXPECT_EQ(Right(FromAscii(ReadFile(a)), 128), FromAscii(RenderID3v1(expected)));
    EXPECT_EQ(Read(a).V2.Genre, "Rock");
    EXPECT_EQ(ReadFile(b).substr(10, frames.size()), frames);
    EXPECT_EQ(Read(b).V1.Genre, NoGenre);
    EXPECT_EQ(FieldText(Read(b).V1.Album), "New album");
}

TEST_F(Panel, AVersionThatNobodyAsksForIsLeftAlone) {
    const Bytes file = WholeTag(TextFrame("TIT2", "T"), 20) + Audio;
    const Text path = Make(u"a.mp3", file);
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtTitle, u"New");
    Finish(panel_.SaveAll({path}));
    EXPECT_EQ(ReadFile(path).substr(0, file.size()), file);
    EXPECT_EQ(ReadFile(path).size(), file.size() + 128);
}

TEST_F(Panel, WithNothingEnteredNoFileIsTouched) {
    const Text path = Make(u"a.mp3", Audio + Trailer("a"));
    panel_.ShowBatch();
    TagRun run = panel_.SaveAll({path});
    run.Step();
    EXPECT_EQ(run.Report().Count(FileFate::Unchanged), 1U);
    EXPECT_EQ(ReadFile(path), Audio + Trailer("a"));
}

TEST_F(Panel, ATickAloneAddsAVersion) {
    const Text path = Make(u"a.mp3", Audio);
    panel_.ShowBatch();
    panel_.TickID3v1(true);
    Finish(panel_.SaveAll({path}));
    EXPECT_EQ(ReadFile(path), Audio + "TAG" + Nuls(124) + "\xFF");
}

TEST_F(Panel, RemoveTakesAVersionFromEveryFile) {
    const Bytes tag = WholeTag(TextFrame("TIT2", "T"), 20);
    const Text a = Make(u"a.mp3", tag + Audio + Trailer("a"));
    const Text b = Make(u"b.mp3", Audio);
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtTitle, u"of no use");
    panel_.TickID3v1Rem(true);
    Finish(panel_.SaveAll({a, b}));
    EXPECT_EQ(ReadFile(a), tag + Audio);
    EXPECT_EQ(ReadFile(b), Audio);
    panel_.ShowBatch();
    panel_.TickID3v2Rem(true);
    Finish(panel_.SaveAll({a, b}));
    EXPECT_EQ(ReadFile(a), Audio);
}

TEST_F(Panel, AStarAloneClearsYearAndTrackInEveryFile) {
    const Bytes tag = WholeTag(
        TextFrame("TYER", "1987") + TextFrame("TRCK", "7/12") + TextFrame("TIT2", "T"), 40);
    const Text path = Make(u"a.mp3", tag + Audio + Trailer("a", 5));
    panel_.ShowBatch();
    for (const TagBox box : {TagBox::txtYear, TagBox::txtTrackNr, TagBox::txtV2Year,
                             TagBox::txtV2Track, TagBox::txtV2Title})
        panel_.Enter(box, u"*");
    Finish(panel_.SaveAll({path}));
    const FileTags tags = Read(path);
    EXPECT_EQ(tags.V1.Year, Nuls(4));
    EXPECT_EQ(tags.V1.Track, '\0');
    EXPECT_EQ(tags.V2.Year, "");
    EXPECT_EQ(tags.V2.Track, "");
    EXPECT_EQ(tags.V2.Title, "*");  // ordinary text elsewhere
}

TEST_F(Panel, AStarClearsAYearThatNoBoxShows) {
    const Bytes year = Frame("TYER", "\1\xFF\xFE" + Bytes("1\0", 2));
    const Text path = Make(u"a.mp3", WholeTag(year + TextFrame("TIT2", "T"), 40) + Audio);
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtV2Year, u"*");
    Finish(panel_.SaveAll({path}));
    EXPECT_EQ(ReadFile(path).find("TYER"), Bytes::npos);
    EXPECT_EQ(Read(path).V2.Title, "T");
}

TEST_F(Panel, AStarAmongOtherCharactersIsOrdinaryTextAndNoTrack) {
    const Text path = Make(u"a.mp3", Audio + Trailer("a", 5));
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtYear, u"19*9");
    panel_.Enter(TagBox::txtTrackNr, u"1*");
    panel_.Enter(TagBox::txtV2Track, u"1*");
    Finish(panel_.SaveAll({path}));
    EXPECT_EQ(Read(path).V1.Year, "19*9");
    EXPECT_EQ(Read(path).V1.Track, '\0');
    EXPECT_EQ(Read(path).V2.Track, "1*");
}

TEST_F(Panel, ABatchStoresInTheOptimizedLayoutWhenThatIsOn) {
    settings_.bOptimizedID3v1 = true;
    const Text path = Make(u"a.mp3", Audio + Trailer("a"));
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtArtist, Text(45, u'a'));
    Finish(panel_.SaveAll({path}));
    EXPECT_EQ(Read(path).V1.Album, PadString("An album" + Nul + Bytes(15, 'a'), 30, Nul));
    EXPECT_EQ(FieldText(Read(path).V1.Title), "a");
}

TEST_F(Panel, ARunDoesNotDependOnThePanelAnyMore) {
    const Text path = Make(u"a.mp3", Audio);
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtTitle, u"Kept");
    TagRun run = panel_.SaveAll({path});
    panel_.Clear();
    Finish(std::move(run));
    EXPECT_EQ(FieldText(Read(path).V1.Title), "Kept");
}

TEST_F(Panel, ABatchNamesTheFilesThatFailAndWritesTheOthers) {
    const Text tiny = Make(u"tiny.mp3", Noise(20));
    const Text good = Make(u"good.mp3", Audio);
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtTitle, u"New");
    Finish(panel_.SaveAll({tiny, good}), 1);
    EXPECT_EQ(ReadFile(tiny), Noise(20));
    EXPECT_EQ(FieldText(Read(good).V1.Title), "New");
}

// --- Fix ID3 ---

TEST_F(Panel, FixCleansTheShownFileAndSavesIt) {
    const Text path = Make(u"07 - Abba - Waterloo.mp3",
                           WholeTag(TextFrame("TALB", "some_album"), 100) + Audio + Trailer("a_b"));
    panel_.ShowFile(path, errors_);
    panel_.TickID3v1(false);
    EXPECT_EQ(panel_.FixID3(u"%track - %artist - %title.mp3").Outcome, SaveOutcome::Written);
    EXPECT_EQ(panel_.Boxes().txtV2Album, u"Some Album");
    EXPECT_EQ(panel_.Boxes().txtV2Title, u"Waterloo");
    EXPECT_EQ(panel_.Boxes().txtV2Artist, u"Abba");
    EXPECT_EQ(panel_.Boxes().txtV2Track, u"07");
    EXPECT_EQ(panel_.Boxes().txtTitle, u"a_b");
    EXPECT_EQ(Right(FromAscii(ReadFile(path)), 128), FromAscii(Trailer("a_b")));
}

TEST_F(Panel, FixTakesWhatWasTyped) {
    const Text path = Show(Audio + Trailer("a"));
    panel_.Enter(TagBox::txtTitle, u"typed_text");
    EXPECT_EQ(panel_.FixID3(u"%title.mp3").Outcome, SaveOutcome::Written);
    EXPECT_EQ(FieldText(Read(path).V1.Title), "Typed Text");
}

TEST_F(Panel, FixAllCleansTheTagsThatEachFileHas) {
    const Bytes tag = WholeTag(TextFrame("TIT2", "a_title"), 100);
    const Text both = Make(u"01 - Abba - X.mp3", tag + Audio + Trailer("a_b", 3));
    const Text v1 = Make(u"02 - Abba - Y.mp3", Audio + Trailer("c_d"));
    const Text none = Make(u"03 - Abba - Z.mp3", Audio);
    panel_.ShowBatch();
    TagRun run = panel_.FixAll({both, v1, none}, u"%track - %artist - %title.mp3");
    while (run.Step()) continue;
    EXPECT_EQ(PlacesDone(run.Report()), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(run.Report().Count(FileFate::Unchanged), 1U);
    EXPECT_EQ(Read(both).V2.Title, "A Title");
    EXPECT_EQ(Read(both).V2.Artist, "Abba");
    EXPECT_EQ(Read(both).V2.Track, "01");
    EXPECT_EQ(FieldText(Read(both).V1.Title), "A B");
    EXPECT_EQ(Read(both).V1.Track, 3);
    EXPECT_EQ(FieldText(Read(v1).V1.Title), "C D");
    EXPECT_EQ(Read(v1).V1.Track, 2);
    EXPECT_FALSE(Read(v1).V2.Present());
    EXPECT_EQ(ReadFile(none), Audio);
}

TEST_F(Panel, FixLeavesWhatNoBoxShows) {
    const Bytes title = Frame("TIT2", "\1\xFF\xFE" + Bytes("a\0", 2));
    const Bytes artist = Frame("TPE1", "\3\xC3\xA9_lite");
    const Bytes genre = TextFrame("TCON", "Rock");
    const Bytes file = WholeTag(title + artist + genre, 100) + Audio + Trailer("x", 3, '\xC8');
    const Text a = Make(u"01 - Abba - Pop.mp3", file);
    Finish(panel_.FixAll({a}, u"%track - %artist - %genre.mp3"));
    EXPECT_NE(ReadFile(a).find(title + artist + genre), Bytes::npos);
    EXPECT_EQ(Read(a).V1.Genre, '\xC8');
    const Text b = Make(u"02 - Abba - Pop.mp3", file);
    panel_.ShowFile(b, errors_);
    EXPECT_EQ(panel_.FixID3(u"%track - %artist - %genre.mp3").Outcome, SaveOutcome::Written);
    EXPECT_NE(ReadFile(b).find(title + artist + genre), Bytes::npos);
    EXPECT_EQ(Read(b).V1.Genre, '\xC8');
}

TEST_F(Panel, AFixRunKeepsTheSettingsItBeganWith) {
    const Text path = Make(u"a.mp3", Audio + Trailer("a_b"));
    TagRun run = panel_.FixAll({path}, u"%title.mp3");
    settings_.bScoreToSpace = false;
    settings_.Change = 0;
    Finish(std::move(run));
    EXPECT_EQ(FieldText(Read(path).V1.Title), "A B");
}

TEST_F(Panel, ARealFileIsReadByAnotherProgramAfterABatchSave) {
    const Text path = Make(u"real.mp3", EncodedMp3());
    const Bytes before = test::DecodedSamples(path);
    panel_.ShowBatch();
    panel_.Enter(TagBox::txtAlbum, u"An album");
    panel_.Enter(TagBox::txtV2Album, u"An album");
    Finish(panel_.SaveAll({path}));
    const Bytes listed = test::OutputOf({"id3v2", "-l", ToUtf8(path)});
    EXPECT_NE(listed.find("Album  : An album"), Bytes::npos) << listed;
    EXPECT_NE(listed.find("TALB (Album/Movie/Show title): An album"), Bytes::npos) << listed;
    EXPECT_EQ(test::DecodedSamples(path), before);
}

// With what is handed on an old tag has no room; without, it has, and declares ten bytes too many.
TEST_F(Panel, FurtherSavesGrowTheFileOrTakeTenBytesOfItsMusic) {
    const auto saveThrice = [this](const Text& path) {
        std::vector<std::size_t> sizes;
        for (const TextView album : {u"Album 1", u"Album 2", u"Album 3"}) {
            panel_.ShowBatch();
            panel_.Enter(TagBox::txtV2Album, album);
            Finish(panel_.SaveAll({path}));
            sizes.push_back(ReadFile(path).size());
        }
        return sizes;
    };
    const Bytes music = EncodedMp3();
    const Text path = Make(u"kept.mp3", music);
    const Bytes samples = test::DecodedSamples(path);
    const std::size_t frames = BuildFrame("TALB", "Album 1").size();
    const std::size_t first = 10 + 2 * frames + music.size();
    const std::size_t second = first + 2 * frames + 20;
    EXPECT_EQ(saveThrice(path),
              (std::vector<std::size_t>{first, second, second + 2 * frames + 30}));
    EXPECT_EQ(test::DecodedSamples(path), samples);
    settings_.bRemHiddenID3 = true;
    const Text inPlace = Make(u"place.mp3", music);
    EXPECT_EQ(saveThrice(inPlace), (std::vector<std::size_t>{first, first, first}));
    EXPECT_EQ(ReadFile(inPlace).substr(10 + 2 * frames), Nuls(10) + music.substr(10));
}

}  // namespace
}  // namespace mdlPLM
