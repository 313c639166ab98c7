#include "core/settings/user_lists.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using Lines = std::vector<Text>;

TEST(Lines, AnyEndOfLineEndsALine) {
    EXPECT_EQ(SplitLines(u""), Lines{});
    EXPECT_EQ(SplitLines(u"a"), Lines{u"a"});
    EXPECT_EQ(SplitLines(u"a\r\nb\nc\rd"), (Lines{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(SplitLines(u"a\r\n"), Lines{u"a"});
    EXPECT_EQ(SplitLines(u"a\n\nb\r\rc\n\rd"), (Lines{u"a", u"", u"b", u"", u"c", u"", u"d"}));
    EXPECT_EQ(SplitLines(u"\r\n\r\n"), (Lines{u"", u""}));
}

TEST(Lines, AreWrittenWithCrLf) {
    EXPECT_EQ(JoinLines({}), u"");
    EXPECT_EQ(JoinLines({u"a", u"", u"b"}), u"a\r\n\r\nb\r\n");
}

TEST(Replacements, LinesAreTakenTwoAtATime) {
    EXPECT_EQ(ParseReplacements(u"a\r\nb\r\nc\r\nd\r\n"),
              (ReplacementList{{u"a", u"b"}, {u"c", u"d"}}));
    EXPECT_EQ(ParseReplacements(u" a \n\n"), (ReplacementList{{u" a ", u""}}));
}

TEST(Replacements, AnOddLastLineDeletesItsText) {
    EXPECT_EQ(ParseReplacements(u"a\nb\nc"), (ReplacementList{{u"a", u"b"}, {u"c", u""}}));
}

TEST(Replacements, AnEmptyFileGivesOnePairThatChangesNothing) {
    EXPECT_EQ(ParseReplacements(u""), (ReplacementList{{u"", u""}}));
}

TEST(Replacements, SurviveBeingWritten) {
    const ReplacementList lists[] = {
        {{u"", u""}}, {{u"a", u"b"}, {u"\u00E5", u""}}, {{u" x ", u"\u20AC\U0001F600"}}};
    for (const ReplacementList& list : lists)
        EXPECT_EQ(ParseReplacements(RenderReplacements(list)), list);
}

TEST(Patterns, BlankLinesAreSkipped) {
    EXPECT_EQ(ParsePatterns(u"\r\n%artist\r\n   \r\n  %title \r\n\r\n"),
              (Lines{u"%artist", u"  %title "}));
}

TEST(TextFiles, AMissingOneIsCreatedEmpty) {
    const TempFolder folder;
    EXPECT_EQ(LoadReplacements(folder.Path()), (ReplacementList{{u"", u""}}));
    EXPECT_TRUE(LoadInPatterns(folder.Path()).empty());
    EXPECT_TRUE(LoadOutPatterns(folder.Path()).empty());
    EXPECT_EQ(ReadTree(folder.Path()),
              (std::map<Bytes, Bytes>{
                  {"inpattern.txt", ""}, {"outpattern.txt", ""}, {"replaces.txt", ""}}));
}

TEST(TextFiles, AreReadInFileOrder) {
    const TempFolder folder;
    (void)folder.File(u"inpattern.txt", "%b\r\n%a");
    (void)folder.File(u"outpattern.txt", "%c\n\n%d\n");
    EXPECT_EQ(LoadInPatterns(folder.Path()), (Lines{u"%b", u"%a"}));
    EXPECT_EQ(LoadOutPatterns(folder.Path()), (Lines{u"%c", u"%d"}));
}

TEST(TextFiles, AreUtf8OrElseTheCodePage) {
    const TempFolder folder;
    (void)folder.File(u"replaces.txt", "\xEF\xBB\xBF\xC3\xA5\r\na");
    EXPECT_EQ(LoadReplacements(folder.Path()), (ReplacementList{{u"\u00E5", u"a"}}));
    (void)folder.File(u"replaces.txt", "\xE5\r\n\x80");
    EXPECT_EQ(LoadReplacements(folder.Path()), (ReplacementList{{u"\u00E5", u"\u20AC"}}));
}

TEST(TextFiles, AListIsSavedAsUtf8WithCrLf) {
    const TempFolder folder;
    ASSERT_TRUE(SaveReplacements(folder.Path(), {{u"_", u" "}, {u"\u00E5", u""}}).Ok());
    EXPECT_EQ(ReadFile(folder / u"replaces.txt"), "_\r\n \r\n\xC3\xA5\r\n\r\n");
}

TEST(TextFiles, AByteOfNoEncodingDoesNotSpoilTheOtherPairs) {
    const TempFolder folder;
    const ReplacementList list = {{PathFromNative("caf\xE9"), u"\u00E5"}, {u"\U0001F480", u""}};
    ASSERT_TRUE(SaveReplacements(folder.Path(), list).Ok());
    EXPECT_EQ(LoadReplacements(folder.Path()),
              (ReplacementList{{u"caf?", u"\u00E5"}, {u"\U0001F480", u""}}));
}

TEST(TextFiles, AFirstTextThatBeginsWithAByteOrderMarkKeepsIt) {
    const TempFolder folder;
    const ReplacementList list = {{u"\uFEFF", u""}, {u"a", u"b"}};
    ASSERT_TRUE(SaveReplacements(folder.Path(), list).Ok());
    EXPECT_EQ(LoadReplacements(folder.Path()), list);
}

TEST(TextFiles, AFileThatCouldNotBeReadIsNotReplaced) {
    const TempFolder folder;
    (void)folder.Folder(u"replaces.txt");
    EXPECT_EQ(LoadReplacements(folder.Path()), (ReplacementList{{u"", u""}}));
    EXPECT_EQ(SaveReplacements(folder.Path(), {{u"a", u"b"}}).Number(),
              ErrorNumber::PathFileAccess);
    const Text file = folder.File(u"sub/replaces.txt", "a\r\nb\r\n");
    ASSERT_EQ(::chmod(NativePath(file).c_str(), 0200), 0);
    EXPECT_EQ(RunInChild([&] {
                  ObeyPermissions();
                  return static_cast<int>(SaveReplacements(folder / u"sub", {}).Number());
              }),
              static_cast<int>(ErrorNumber::PermissionDenied));
}

TEST(TextFiles, AreBesideTheProgramWhereThatCanBeWritten) {
    const TempFolder folder;
    const Text program = folder.Folder(u"program") + u"/";
    EXPECT_EQ(UserListsFolder(program, folder / u"data/"), program);
    EXPECT_EQ(ListTree(folder.Path()), std::vector<Bytes>{"program/"});
}

TEST(TextFiles, OfAnInstalledProgramAreTheUsersThoughItsFolderCanBeWritten) {
    const TempFolder folder;
    const Text program = folder.Folder(u"usr/bin") + u"/";
    const Text data = folder / u"data/";
    EXPECT_FALSE(IsInstalled(program));
    (void)folder.File(u"usr/bin/replaces.txt", "a\r\nb\r\n");
    (void)folder.File(u"usr/share/pellmore/plm.txt", "help");
    EXPECT_TRUE(IsInstalled(program));
    EXPECT_EQ(UserListsFolder(program, data), data);
    EXPECT_EQ(ReadFile(data + u"replaces.txt"), "a\r\nb\r\n");
}

class InstalledProgram : public testing::Test {
protected:
    void SetUp() override {
        (void)folder_.File(u"program/replaces.txt", "a\r\nb\r\n");
        (void)folder_.File(u"program/inpattern.txt", "%shipped\r\n");
        ASSERT_EQ(::chmod(NativePath(program_).c_str(), 0555), 0);
    }
    // 0: the data folder was chosen, 1: the program's, 2: another.
    int Choose(TextView data) {
        return RunInChild([&] {
            ObeyPermissions();
            const Text chosen = UserListsFolder(program_, data);
            return chosen == data ? 0 : chosen == program_ ? 1 : 2;
        });
    }
    const TempFolder folder_;
    const Text program_ = folder_ / u"program/";
    const Text data_ = folder_ / u"share/PLM/";
};

TEST_F(InstalledProgram, KeepsThemInTheDataFolder) {
    EXPECT_EQ(Choose(data_), 0);
    EXPECT_EQ(ReadFile(data_ + u"replaces.txt"), "a\r\nb\r\n");
    EXPECT_EQ(ReadFile(data_ + u"inpattern.txt"), "%shipped\r\n");
    EXPECT_FALSE(IsThere(data_ + u"outpattern.txt"));
}

TEST_F(InstalledProgram, TakesOverOnlyTheFirstTime) {
    ASSERT_EQ(Choose(data_), 0);
    WriteFile(data_ + u"replaces.txt", "mine\r\n");
    WriteFile(data_ + u"inpattern.txt", "");
    EXPECT_EQ(Choose(data_), 0);
    EXPECT_EQ(ReadFile(data_ + u"replaces.txt"), "mine\r\n");
    EXPECT_EQ(ReadFile(data_ + u"inpattern.txt"), "");
}

TEST_F(InstalledProgram, ReadsThoseBesideItWhenThereIsNoPlaceToWrite) {
    EXPECT_EQ(Choose(program_ + u"data/"), 1);
}

}  // namespace
}  // namespace mdlPLM
