#include "core/platform/path.h"

#include <gtest/gtest.h>

namespace mdlPLM {
namespace {

TEST(Path, BothSlashesSeparateFolders) {
    EXPECT_EQ(FileNameOfPath(u"C:\\Music\\song.mp3"), u"song.mp3");
    EXPECT_EQ(FileNameOfPath(u"/home/me/song.mp3"), u"song.mp3");
    EXPECT_EQ(FolderOfPath(u"C:\\Music/song.mp3"), u"C:\\Music/");
    EXPECT_EQ(FolderOfPath(u"song.mp3"), u"");
    EXPECT_EQ(LastSeparator(u"a/b\\c"), 4);
    EXPECT_EQ(LastSeparator(u"abc"), 0);
}

TEST(Path, JoiningWritesOneSeparator) {
    EXPECT_EQ(JoinPath(u"/a", u"b"), u"/a/b");
    EXPECT_EQ(JoinPath(u"/a/", u"b"), u"/a/b");
    EXPECT_EQ(JoinPath(u"C:\\a\\", u"b"), u"C:\\a\\b");
    EXPECT_EQ(JoinPath(u"", u"b"), u"b");
    EXPECT_EQ(JoinPath(u"/a", u""), u"/a/");
}

TEST(Path, AFileNameIsOneName) {
    for (const TextView usable : {u"a", u"a.mp3", u"...", u" ", u".a"})
        EXPECT_TRUE(IsUsableFileName(usable)) << std::u16string(usable).size();
    for (const TextView unusable : {u"", u".", u"..", u"a/b", u"a\\b", u"/"})
        EXPECT_FALSE(IsUsableFileName(unusable));
    EXPECT_FALSE(IsUsableFileName(TextView(u"a\0b", 3)));
}

TEST(Path, BytesInNoEncodingSurvive) {
    const Bytes name = "caf\xE9 \xF0\x9F\x98\x80.mp3";
    EXPECT_EQ(NativePath(PathFromNative(name)), name);
}

}  // namespace
}  // namespace mdlPLM
