#include "core/tags/standard/edit.h"

#include <gtest/gtest.h>

#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::B;
using test::Edit;
using test::Frame22;
using test::Frame23;
using test::Frame24;
using test::Ids;
using test::Saved;
using test::TagOf;
using test::Text23;
using test::Text24;

Bytes Comment(const Bytes& description, const Bytes& text) {
    return Frame23("COMM", B("\0eng") + description + B("\0") + text);
}

bool Changes(const Bytes& file, const TagEdit& edit) {
    const Tag tag = ParseTag(file);
    return EditTag(tag, edit).Changed;
}

Text Shown(const Bytes& file, Field field) { return FieldText(ParseTag(file), field); }

TEST(StandardEdit, OnlyTheEditedFrameIsNew) {
    const Bytes other = Frame23("PRIV", B("owner\0\xFF\xFE\0"), B("\x40\x20"));
    const Bytes last = Frame23("TPE1", B("\1\xFF\xFE") + test::Little(u"Artist") + B("\0\0"));
    const Bytes file = TagOf(other + Text23("TIT2", "Old") + last, {3, 0, 100, 0});
    EXPECT_EQ(Saved(file, Edit(Field::Title, u"New")), TagOf(other + Text23("TIT2", "New") + last));
}

TEST(StandardEdit, NothingNewIsNoChange) {
    const Bytes file = TagOf(Frame23("TIT2", B("\1\xFF\xFET\0\0\0")) + Comment("d", "c") +
                             Text23("TCON", "(17)") + Text23("TYER", "1999"));
    EXPECT_FALSE(Changes(file, {}));
    EXPECT_FALSE(Changes(file, Edit(Field::Title, u"T")));
    EXPECT_FALSE(Changes(file, Edit(Field::Comments, u"c")));
    EXPECT_FALSE(Changes(file, Edit(Field::Genre, u"Rock")));
    EXPECT_FALSE(Changes(file, Edit(Field::Year, u"1999")));
    EXPECT_FALSE(Changes(file, Edit(Field::Album, u"")));
    EXPECT_FALSE(Changes("", Edit(Field::Album, u"")));
    EXPECT_TRUE(Changes(file, Edit(Field::Title, u"t")));
    EXPECT_TRUE(Changes("", Edit(Field::Title, u"t")));
}

TEST(StandardEdit, EveryFieldIsReadAsItWasWritten) {
    for (const TagForm form : {TagForm::V23, TagForm::V24}) {
        for (const Text& text : {Text(u"plain"), Text(u"H\u00E5kan"), Text(u"\u0416\U0001F3B5")}) {
            TagEdit edit;
            edit.NewTagForm = form;
            for (const FieldRow& row : FieldTable)
                if (row.Which != Field::URL) edit.Fields[row.Which] = text;
            edit.Fields[Field::URL] = u"http://m\u00FC/";
            const Bytes file = Saved("", edit);
            EXPECT_EQ(file[3], static_cast<char>(form));
            for (const FieldRow& row : FieldTable)
                EXPECT_EQ(Shown(file, row.Which), *edit.Fields[row.Which]);
            EXPECT_FALSE(Changes(file, edit));
        }
    }
}

TEST(StandardEdit, NewTagsAreOfTheChosenVersion) {
    EXPECT_EQ(Saved("", Edit(Field::Title, u"T")), TagOf(Text23("TIT2", "T")));
    TagEdit edit = Edit(Field::Title, u"T");
    edit.NewTagForm = TagForm::V24;
    EXPECT_EQ(Saved("", edit), TagOf(Frame24("TIT2", B("\3T")), {4, 0, 0, 0}));
    // Where there is a tag it stays what it is.
    const Bytes old = TagOf(Text23("TPE1", "A"));
    EXPECT_EQ(Saved(old, edit), TagOf(Text23("TPE1", "A") + Text23("TIT2", "T")));
}

TEST(StandardEdit, TheLastFrameOfAFieldThatGoesTakesTheTagWithIt) {
    const Bytes file = TagOf(Text23("TIT2", "T"));
    const Tag tag = ParseTag(file);
    const EditedTag edited = EditTag(tag, Edit(Field::Title, u""));
    EXPECT_TRUE(edited.Changed);
    EXPECT_EQ(edited.Frames, "");
    EXPECT_TRUE(RemovedTag().Changed);
    EXPECT_EQ(RemovedTag().Frames, "");
}

TEST(StandardEdit, AFieldInSeveralFramesIsLeftInOne) {
    const Bytes file = TagOf(Text23("TIT2", "one") + Text23("TPE1", "A") + Text23("TIT2", "two"));
    EXPECT_EQ(Saved(file, Edit(Field::Title, u"new")),
              TagOf(Text23("TIT2", "new") + Text23("TPE1", "A")));
    EXPECT_EQ(Saved(file, Edit(Field::Title, u"")), TagOf(Text23("TPE1", "A")));
    EXPECT_EQ(Saved(file, Edit(Field::Artist, u"B")),
              TagOf(Text23("TIT2", "one") + Text23("TPE1", "B") + Text23("TIT2", "two")));
}

TEST(StandardEdit, TheShownCommentIsReplacedAndNoOther) {
    const Bytes file = TagOf(Comment("iTunNORM", "1") + Frame23("COMM", B("\0swe\0shown")) +
                             Comment("d", "other"));
    EXPECT_EQ(
        Saved(file, Edit(Field::Comments, u"new")),
        TagOf(Comment("iTunNORM", "1") + Frame23("COMM", B("\0swe\0new")) + Comment("d", "other")));
    EXPECT_EQ(Saved(file, Edit(Field::Comments, u"")),
              TagOf(Comment("iTunNORM", "1") + Comment("d", "other")));
    const Bytes described = TagOf(Comment("d", "other"));
    EXPECT_EQ(Saved(described, Edit(Field::Comments, u"new")), TagOf(Comment("d", "new")));
    const Bytes figures = TagOf(Comment("iTunNORM", "1"));
    EXPECT_EQ(Saved(figures, Edit(Field::Comments, u"new")),
              TagOf(Comment("iTunNORM", "1") + Comment("", "new")));
}

TEST(StandardEdit, TheShownAddressIsReplacedAndNoOther) {
    const Bytes one = Frame23("WXXX", B("\0d\0http://one/"));
    const Bytes file = TagOf(one + Frame23("WXXX", B("\0\0http://two/")));
    EXPECT_EQ(Saved(file, Edit(Field::URL, u"http://new/")),
              TagOf(one + Frame23("WXXX", B("\0\0http://new/"))));
}

TEST(StandardEdit, ValuesArePartedWhereTheyWere) {
    const Bytes two = TagOf(Text24("TPE1", B("One\0Two")), {4, 0, 0, 0});
    EXPECT_EQ(Saved(two, Edit(Field::Artist, u"One; Three; Four")),
              TagOf(Frame24("TPE1", B("\3One\0Three\0Four")), {4, 0, 0, 0}));
    const Bytes one = TagOf(Text24("TPE1", "One"), {4, 0, 0, 0});
    EXPECT_EQ(Saved(one, Edit(Field::Artist, u"One; Two")),
              TagOf(Frame24("TPE1", B("\3One; Two")), {4, 0, 0, 0}));
    EXPECT_EQ(Saved(one, Edit(Field::Genre, u"Rock; Own")),
              TagOf(Text24("TPE1", "One") + Frame24("TCON", B("\3Rock\0Own")), {4, 0, 0, 0}));
    EXPECT_EQ(Saved("", Edit(Field::Genre, u"Rock; Pop")), TagOf(Text23("TCON", "(17)(13)")));
}

TEST(StandardEdit, DatesAreWrittenAsTheVersionHasThem) {
    const Bytes v23 = TagOf(Text23("TIT2", "T"));
    EXPECT_EQ(Saved(v23, Edit(Field::Year, u"1999-05-17")),
              TagOf(Text23("TIT2", "T") + Text23("TYER", "1999") + Text23("TDAT", "1705")));
    EXPECT_EQ(Saved(v23, Edit(Field::Year, u"1999-05")),
              TagOf(Text23("TIT2", "T") + Text23("TDRC", "1999-05") + Text23("TYER", "1999")));
    EXPECT_EQ(Saved(v23, Edit(Field::OrigDate, u"1967")),
              TagOf(Text23("TIT2", "T") + Text23("TORY", "1967")));
    EXPECT_EQ(Saved(v23, Edit(Field::OrigDate, u"1967-06-01")),
              TagOf(Text23("TIT2", "T") + Text23("TDOR", "1967-06-01") + Text23("TORY", "1967")));
    const Bytes v24 = TagOf(Text24("TIT2", "T"), {4, 0, 0, 0});
    EXPECT_EQ(Saved(v24, Edit(Field::Year, u"1999-05-17")),
              TagOf(Text24("TIT2", "T") + Frame24("TDRC", B("\3") + "1999-05-17"), {4, 0, 0, 0}));
}

TEST(StandardEdit, DatesAreKeptInStep) {
    const Bytes v23 = TagOf(Text23("TYER", "1999") + Text23("TDAT", "1705") +
                            Text23("TIME", "2015") + Text23("TDRC", "1999-05-17"));
    EXPECT_EQ(Saved(v23, Edit(Field::Year, u"2001")),
              TagOf(Text23("TYER", "2001") + Text23("TDRC", "2001")));
    EXPECT_EQ(
        Saved(v23, Edit(Field::Year, u"2001-02-03")),
        TagOf(Text23("TYER", "2001") + Text23("TDAT", "0302") + Text23("TDRC", "2001-02-03")));
    EXPECT_EQ(Saved(v23, Edit(Field::Year, u"")), TagOf(""));
    const Bytes v24 = TagOf(Text24("TDRC", "1999") + Text24("TYER", "1999"), {4, 0, 0, 0});
    EXPECT_EQ(Saved(v24, Edit(Field::Year, u"2001-02")),
              TagOf(Frame24("TDRC", B("\3") + "2001-02") + Frame24("TYER", B("\3") + "2001"),
                    {4, 0, 0, 0}));
}

TEST(StandardEdit, FlagsOfAnEditedFrameStayWhereTheyStillMeanSomething) {
    const Bytes file = TagOf(Frame23("TENC", B("g\0old"), B("\x40\x20")));
    EXPECT_EQ(Saved(file, Edit(Field::Encoder, u"new")),
              TagOf(Frame23("TENC", B("\0new"), B("\x40\0"))));
}

TEST(StandardEdit, FramesAreRemovedReplacedAndAdded) {
    const Bytes file = TagOf(Text23("TIT2", "T") + Frame23("APIC", B("\0image/png\0\3\0old")) +
                             Frame23("PRIV", "x") + Text23("TPE1", "A"));
    NewFrame picture;
    picture.Id = "APIC";
    picture.Mime = "image/jpeg";
    picture.Data = "new";
    NewFrame comment;
    comment.Id = "TXXX";
    comment.Description = u"k";
    comment.Values = {u"v"};
    TagEdit edit;
    edit.Removed = {2, 99};
    edit.Replaced = {{1, picture}};
    edit.Added = {comment};
    EXPECT_EQ(Saved(file, edit),
              TagOf(Text23("TIT2", "T") + Frame23("APIC", B("\0image/jpeg\0\3\0new")) +
                    Text23("TPE1", "A") + Frame23("TXXX", B("\0k\0v"))));
    picture.Mime = "image/png";
    picture.Data = "old";
    TagEdit same;
    same.Replaced = {{1, picture}};
    EXPECT_FALSE(Changes(file, same));
}

TEST(StandardEdit, FramesWithoutAFieldAreHidden) {
    const Bytes file = TagOf(Text23("TIT2", "T") + Frame23("PRIV", "x") + Text23("TYER", "1") +
                             Text23("TDAT", "0101") + Text23("TLEN", "1") + Text23("TDRC", "1"));
    EXPECT_EQ(HiddenFrames(ParseTag(file)), (std::vector<std::size_t>{1, 4}));
}

// --- what a tag has that is not written ---

TEST(StandardEdit, TheFirstVersionBecomesTheUsualOne) {
    const Bytes file = TagOf(Frame22("TT2", B("\0T")) + Frame22("PIC", B("\0PNG\3\0data")) +
                                 Frame22("ULT", B("\0eng\0words")) + Frame22("QQQ", "abc") +
                                 Frame22("TYE", B("\0") + "1999"),
                             {2, 0, 10, 0});
    EXPECT_EQ(Saved(file, Edit(Field::Title, u"New")),
              TagOf(Text23("TIT2", "New") + Frame23("APIC", B("\0image/png\0\3\0data")) +
                    Frame23("USLT", B("\0eng\0words")) + Frame23("XQQQ", "abc") +
                    Text23("TYER", "1999")));
}

TEST(StandardEdit, UnsynchronisationIsTakenAway) {
    const Bytes picture = Frame23("APIC", B("\0image/jpeg\0\3\0\xFF\xD8\xFF\xE0\xFF\0"));
    const Bytes file = TagOf(test::Unsynchronised(picture + Text23("TIT2", "T")), {3, 0xA0, 9, 0});
    EXPECT_EQ(Saved(file, Edit(Field::Title, u"N")),
              TagOf(picture + Text23("TIT2", "N"), {3, 0x20, 0, 0}));
}

TEST(StandardEdit, UnsynchronisedFramesOfTheLastVersionStay) {
    const Bytes content = B("\0image/jpeg\0\3\0\xFF\xD8\xFF\xE0\xFF\0");
    const Bytes done = test::Unsynchronised(content);
    const Bytes byFrame = Frame24("APIC", done, B("\0\x02"));
    const Bytes title = Text24("TIT2", "T");
    const Bytes newTitle = Frame24("TIT2", B("\3N"));
    EXPECT_EQ(Saved(TagOf(byFrame + title, {4, 0x80, 0, 0}), Edit(Field::Title, u"N")),
              TagOf(byFrame + newTitle, {4, 0, 0, 0}));
    EXPECT_EQ(
        Saved(TagOf(Frame24("APIC", done) + title, {4, 0x80, 0, 0}), Edit(Field::Title, u"N")),
        TagOf(Frame24("APIC", content) + newTitle, {4, 0, 0, 0}));
    const Bytes oldWay =
        TagOf(test::Unsynchronised(Frame24("APIC", content, B("\0\x02")) + title), {4, 0x80, 0, 0});
    EXPECT_EQ(Saved(oldWay, Edit(Field::Title, u"N")),
              TagOf(Frame24("APIC", content) + newTitle, {4, 0, 0, 0}));
}

TEST(StandardEdit, ExtendedHeaderAndFooterAreTakenAway) {
    const Bytes frames = Text24("TIT2", "T") + Text24("TPE1", "A");
    const Bytes file = TagOf(B("\0\0\0\x06\x01\0") + frames, {4, 0x70, 0, 0});
    const Bytes expected = TagOf(Frame24("TIT2", B("\3N")) + Text24("TPE1", "A"), {4, 0x20, 0, 0});
    EXPECT_EQ(Saved(file + "3DI", Edit(Field::Title, u"N")), expected);
}

TEST(StandardEdit, WrongSizesArePutRight) {
    const Bytes content = B("\0") + Bytes(200, 'l');
    const Bytes file = TagOf(test::SevenBitFrame("TALB", content) + Text23("TIT2", "T"));
    EXPECT_EQ(Saved(file, Edit(Field::Title, u"N")),
              TagOf(Frame23("TALB", content) + Text23("TIT2", "N")));
    const Bytes later = TagOf(Frame23("TALB", content) + Text24("TIT2", "T"), {4, 0, 0, 0});
    EXPECT_EQ(Saved(later, Edit(Field::Title, u"N")),
              TagOf(Frame24("TALB", content) + Frame24("TIT2", B("\3N")), {4, 0, 0, 0}));
}

TEST(StandardEdit, FramesOfTheLastVersionUnderAnotherHeaderBecomeRight) {
    const Bytes counted = Frame24("TALB", test::SevenBit(2) + B("\3A"), B("\0\x01"));
    const Bytes file = TagOf(counted + Text23("TIT2", "T"));
    EXPECT_EQ(Shown(file, Field::Album), u"A");
    EXPECT_EQ(Saved(file, Edit(Field::Title, u"N")),
              TagOf(Frame23("TALB", B("\3A")) + Text23("TIT2", "N")));
}

TEST(StandardEdit, BytesThatAreNoFrameGo) {
    const Bytes file = TagOf(Text23("TIT2", "T") + "no frame at all", {3, 0, 30, 0});
    EXPECT_EQ(Saved(file, Edit(Field::Title, u"New")), TagOf(Text23("TIT2", "New")));
}

TEST(StandardEdit, FramesWithOddIdentifiersStay) {
    const Bytes odd = Frame23("tit2", "x") + Frame23("RG 1", "y");
    const Bytes file = TagOf(Text23("TIT2", "T") + odd + Text23("TPE1", "A"), {3, 0, 30, 0});
    EXPECT_EQ(Saved(file, Edit(Field::Title, u"New")),
              TagOf(Text23("TIT2", "New") + odd + Text23("TPE1", "A")));
}

TEST(StandardEdit, EncryptedAndCompressedFramesStayAsTheyAre) {
    const Bytes frames = Frame23("TALB", B("m\0secret"), B("\0\x40")) +
                         Frame23("TCOM", test::Plain(4) + test::Deflated(B("\0abc")), B("\0\x80"));
    EXPECT_EQ(Saved(TagOf(frames + Text23("TIT2", "T")), Edit(Field::Title, u"N")),
              TagOf(frames + Text23("TIT2", "N")));
    EXPECT_EQ(Shown(TagOf(frames), Field::Composer), u"abc");
}

}  // namespace
}  // namespace mdlPLM::standard
