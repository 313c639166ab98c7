#include "core/settings/settings_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdio>

#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

class Store : public testing::Test {
protected:
    [[nodiscard]] SettingsStore Loaded() const {
        SettingsStore store(path_);
        EXPECT_TRUE(store.Load().Ok());
        return store;
    }
    // The file after one key has been set and saved.
    Bytes AfterSetting(TextView section, TextView key, TextView value) const {
        SettingsStore store = Loaded();
        store.Set(section, key, value);
        EXPECT_TRUE(store.Save().Ok());
        return ReadFile(path_);
    }
    void Contents(BytesView contents) const { WriteFile(path_, contents); }

    const TempFolder folder_;
    const Text path_ = folder_ / u"config/PLM/PLM.ini";
};

TEST_F(Store, AMissingFileIsAnEmptyStore) {
    EXPECT_EQ(Loaded().Get(u"Settings", u"Extension", u"default"), u"default");
    EXPECT_TRUE(ListTree(folder_.Path()).empty());
}

TEST_F(Store, AValueIsWrittenAsItStands) {
    EXPECT_EQ(AfterSetting(u"Settings", u"Extension", u"mp3"), "[Settings]\nExtension=mp3\n");
    EXPECT_EQ(AfterSetting(u"Settings", u"TargetDir", u"C:\\Music; a=b\\new"),
              "[Settings]\nExtension=mp3\nTargetDir=C:\\Music; a=b\\new\n");
}

TEST_F(Store, AnyTextComesBack) {
    Text everyCharacter;
    for (int c = 0; c < 0x10000; ++c) everyCharacter.push_back(static_cast<char16_t>(c));
    const Text values[] = {
        u"",
        u" ",
        u"  blanks at both ends  ",
        u"\ttabs\t",
        u"\"",
        u"\"quoted\"",
        u"in \"the\" middle",
        u"\"half",
        u"half\"",
        u" \" \\ ",
        u"\\",
        u"\"\\\"",
        u"C:\\new\\u0041\\",
        u" C:\\new\\u0041\\",
        u";comment",
        u"#comment",
        u"[section]",
        u"a=b=c",
        u"=",
        u"line\r\nline\nline\r",
        u"\uFEFF",
        u"\u00E5\u20AC\U0001F600",
        DefaultRemoveChars(),
        PathFromNative("/m/caf\xE9 \xC3/"),
        Text(1, 0xD83D),
        Text(u"\xDE00\xD83D", 2),
        Text(u"a\0b", 3),
        everyCharacter,
    };
    for (const Text& value : values) {
        const Bytes file = AfterSetting(u"Settings", u"Key", value);
        EXPECT_EQ(Loaded().Get(u"Settings", u"Key", u"none"), value);
        EXPECT_TRUE(IsValidUtf8(file));
        EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 2) << file;
    }
}

TEST_F(Store, HandWrittenLinesAreRead) {
    Contents(
        "; written by hand\n"
        "[settings]\r\n"
        "  Change = 3  \n"
        "OutPattern=\"%title.mp3\"\n"
        "TargetDir=\"C:\\Music\\new\\\"\n"
        "Empty=\n"
        "Extension=mp2");
    const SettingsStore store = Loaded();
    EXPECT_EQ(store.Get(u"Settings", u"change", u""), u"3");
    EXPECT_EQ(store.Get(u"Settings", u"OutPattern", u""), u"%title.mp3");
    EXPECT_EQ(store.Get(u"Settings", u"TargetDir", u""), u"C:\\Music\\new\\");
    EXPECT_EQ(store.Get(u"Settings", u"Empty", u"default"), u"");
    EXPECT_EQ(store.Get(u"Settings", u"Extension", u""), u"mp2");
    EXPECT_EQ(store.Get(u"Window", u"Change", u"default"), u"default");
}

TEST_F(Store, WhatIsNotKnownIsKept) {
    Contents(
        "; comment\n\nOutside=1\n[Other]\nKey = \"as it stands\" \n# more\n"
        "[Settings]\nUnknown=x\nChange=1\n\n[Window]\ncaf\xE9=\xFF\n");
    EXPECT_EQ(AfterSetting(u"Settings", u"Change", u"2"),
              "; comment\n\nOutside=1\n[Other]\nKey = \"as it stands\" \n# more\n"
              "[Settings]\nUnknown=x\nChange=2\n\n[Window]\ncaf\xE9=\xFF\n");
}

TEST_F(Store, ANewKeyGoesBehindThoseOfItsSection) {
    Contents("[Settings]\nA=1\n; note\n\n[Window]\nB=2\n");
    EXPECT_EQ(AfterSetting(u"Settings", u"New", u"x"),
              "[Settings]\nA=1\nNew=x\n; note\n\n[Window]\nB=2\n");
    EXPECT_EQ(AfterSetting(u"Third", u"Key", u"y"),
              "[Settings]\nA=1\nNew=x\n; note\n\n[Window]\nB=2\n[Third]\nKey=y\n");
}

TEST_F(Store, LineEndsStayAsTheyAre) {
    Contents("[Settings]\r\nA=1\r\n");
    EXPECT_EQ(AfterSetting(u"Settings", u"A", u"2"), "[Settings]\r\nA=2\r\n");
    EXPECT_EQ(AfterSetting(u"Settings", u"B", u"3"), "[Settings]\r\nA=2\r\nB=3\r\n");
}

TEST_F(Store, AByteOrderMarkDoesNotHideTheFirstLine) {
    Contents("\xEF\xBB\xBF[Settings]\nA=1\n");
    EXPECT_EQ(Loaded().Get(u"Settings", u"A", u""), u"1");
    EXPECT_EQ(AfterSetting(u"Settings", u"A", u"2"), "\xEF\xBB\xBF[Settings]\nA=2\n");
}

TEST_F(Store, OfAKeyThatIsThereTwiceTheLastCounts) {
    Contents("[Settings]\nA=1\nA=2\n");
    EXPECT_EQ(Loaded().Get(u"Settings", u"A", u""), u"2");
    EXPECT_EQ(AfterSetting(u"Settings", u"A", u"3"), "[Settings]\nA=1\nA=3\n");
}

TEST_F(Store, ADamagedFileIsReadAsFarAsItGoes) {
    const Bytes before("\0\1\xFF\xFE=\xC3[[\n]=[\n=\n[Settings\nA=0\n", 29);
    const Bytes behind("\0\0\n", 3);
    Contents(before + "[Settings]\nA=1\n" + behind);
    EXPECT_EQ(Loaded().Get(u"Settings", u"A", u""), u"1");
    EXPECT_EQ(AfterSetting(u"Settings", u"A", u"2"), before + "[Settings]\nA=2\n" + behind);
}

TEST_F(Store, AnotherProgramsChangesStay) {
    Contents("[Settings]\nA=1\nB=1\n");
    SettingsStore first = Loaded();
    SettingsStore second = Loaded();
    first.Set(u"Settings", u"A", u"2");
    second.Set(u"Settings", u"B", u"2");
    ASSERT_TRUE(first.Save().Ok());
    ASSERT_TRUE(second.Save().Ok());
    EXPECT_EQ(ReadFile(path_), "[Settings]\nA=2\nB=2\n");
    EXPECT_EQ(second.Get(u"Settings", u"A", u""), u"2");
}

TEST_F(Store, AValueIsThereBeforeItIsSaved) {
    SettingsStore store(path_);
    store.Set(u"Settings", u"A", u"1");
    store.Set(u"Settings", u"A", u"2");
    EXPECT_EQ(store.Get(u"Settings", u"A", u""), u"2");
    EXPECT_FALSE(IsThere(path_));
}

TEST_F(Store, AStoreThatCannotBeReadIsAnErrorAndStays) {
    (void)folder_.Folder(u"config/PLM/PLM.ini");
    SettingsStore store(path_);
    EXPECT_EQ(store.Load().Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(store.Get(u"Settings", u"A", u"default"), u"default");
    store.Set(u"Settings", u"A", u"1");
    EXPECT_EQ(store.Save().Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(store.Get(u"Settings", u"A", u""), u"1");
}

TEST_F(Store, AFileThatIsTooLargeIsNotReadAndStays) {
    const Bytes good = "[Settings]\nA=1\n";
    Contents(good + Bytes(LargestStore - good.size(), ';'));
    EXPECT_EQ(Loaded().Get(u"Settings", u"A", u"default"), u"1");
    const Bytes large = good + Bytes(LargestStore - good.size() + 1, ';');
    Contents(large);
    SettingsStore store(path_);
    EXPECT_EQ(store.Load().Number(), ErrorNumber::Overflow);
    EXPECT_EQ(store.Get(u"Settings", u"A", u"default"), u"default");
    store.Set(u"Settings", u"A", u"2");
    EXPECT_EQ(store.Save().Number(), ErrorNumber::Overflow);
    EXPECT_TRUE(ReadFile(path_) == large);
    EXPECT_NE(UnreadStoreText(ErrorNumber::Overflow).find(u"damaged"), Text::npos);
    EXPECT_EQ(UnreadStoreText(ErrorNumber::PermissionDenied), u"Permission denied");
}

TEST_F(Store, AFileThatGrewTooLargeMeanwhileStays) {
    Contents("[Settings]\nA=1\n");
    SettingsStore store = Loaded();
    SetFileLength(path_, 8LL << 30);
    store.Set(u"Settings", u"A", u"2");
    EXPECT_EQ(store.Save().Number(), ErrorNumber::Overflow);
    SetFileLength(path_, 15);
    EXPECT_EQ(ReadFile(path_), "[Settings]\nA=1\n");
}

// The defaults in force are nobody's choice against the settings in the file.
TEST_F(Store, WhatCouldNotBeReadIsNotWrittenOverWhenItCanBeReadAgain) {
    Contents("");
    SetFileLength(path_, 8LL << 30);
    SettingsStore store(path_);
    EXPECT_FALSE(store.Load().Ok());
    Contents("[Settings]\nA=1\n");
    store.Set(u"Settings", u"A", u"2");
    EXPECT_EQ(store.Save().Number(), ErrorNumber::Overflow);
    EXPECT_EQ(ReadFile(path_), "[Settings]\nA=1\n");
    // Moved away, it is in nobody's way.
    ASSERT_EQ(std::rename(NativePath(path_).c_str(), NativePath(folder_ / u"aside").c_str()), 0);
    EXPECT_TRUE(store.Save().Ok());
    EXPECT_EQ(ReadFile(path_), "[Settings]\nA=2\n");
}

TEST_F(Store, AFileWithoutAnEndIsTooLarge) {
    (void)folder_.Folder(u"config/PLM");
    (void)folder_.Link(u"config/PLM/PLM.ini", u"/dev/zero");
    EXPECT_EQ(SettingsStore(path_).Load().Number(), ErrorNumber::Overflow);
}

TEST_F(Store, AFolderThatCannotBeMadeIsAnError) {
    (void)folder_.File(u"config");
    SettingsStore store(path_);
    EXPECT_FALSE(store.Load().Ok() && store.Save().Ok());
    EXPECT_EQ(ListTree(folder_.Path()), std::vector<Bytes>{"config"});
}

TEST_F(Store, AFullDiskLeavesTheOldFile) {
    Contents("[Settings]\nA=1\n");
    const int number = RunInChild([&] {
        LimitFileSize(20);
        SettingsStore store = Loaded();
        store.Set(u"Settings", u"A", Text(100, u'x'));
        return static_cast<int>(store.Save().Number());
    });
    EXPECT_EQ(number, static_cast<int>(ErrorNumber::DiskFull));
    EXPECT_EQ(ReadFile(path_), "[Settings]\nA=1\n");
}

TEST(StorePath, IsInTheConfigurationFolder) {
    EXPECT_TRUE(EndsWith(SettingsStore::DefaultPath(), u"/PLM/PLM.ini"));
}

TEST(StoreLines, ComeBackByteForByte) {
    for (const TextView contents : {u"a\n", u"[s]\nk=v\n\n;c\n", u"\r\n\r\n", u"k = \"v\" \n"})
        EXPECT_EQ(RenderStore(ParseStore(contents)), contents);
    EXPECT_EQ(RenderStore(ParseStore(u"k=v")), u"k=v\n");
}

}  // namespace
}  // namespace mdlPLM
