#include <gtest/gtest.h>

#include "core/platform/file.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

TEST(FileSize, IsCutAndLengthenedWithNuls) {
    const TempFolder folder;
    const Text path = folder.File(u"a.mp3", "abcdef");
    File file;
    ASSERT_TRUE(file.Open(path, File::Mode::ReadWrite).Ok());
    EXPECT_TRUE(file.SetSize(4).Ok());
    EXPECT_EQ(ReadFile(path), "abcd");
    EXPECT_TRUE(file.SetSize(6).Ok());
    EXPECT_EQ(ReadFile(path), Bytes("abcd\0\0", 6));
    EXPECT_EQ(file.Size(), 6);
}

TEST(FileSize, CannotBeSetOnAFileThatIsOnlyRead) {
    const TempFolder folder;
    const Text path = folder.File(u"a.mp3", "abcdef");
    File file;
    ASSERT_TRUE(file.Open(path, File::Mode::Read).Ok());
    EXPECT_FALSE(file.SetSize(4).Ok());
    EXPECT_EQ(ReadFile(path), "abcdef");
}

TEST(FileSize, CannotBeNegative) {
    const TempFolder folder;
    File file;
    ASSERT_TRUE(file.Open(folder.File(u"a.mp3", "abc"), File::Mode::ReadWrite).Ok());
    EXPECT_EQ(file.SetSize(-1).Number(), ErrorNumber::BadRecordNumber);
}

}  // namespace
}  // namespace mdlPLM
