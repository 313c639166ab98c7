#include "core/platform/file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <utility>

#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

TEST(File, ReadsBytesAtOffsets) {
    const TempFolder folder;
    File file;
    ASSERT_TRUE(file.Open(folder.File(u"a", "0123456789"), File::Mode::Read).Ok());
    EXPECT_EQ(file.Size(), 10);
    Bytes bytes;
    EXPECT_TRUE(file.ReadAt(3, 4, bytes).Ok());
    EXPECT_EQ(bytes, "3456");
    EXPECT_TRUE(file.ReadAt(8, 4, bytes).Ok());
    EXPECT_EQ(bytes, "89");
    EXPECT_TRUE(file.ReadAt(50, 4, bytes).Ok());
    EXPECT_EQ(bytes, "");
}

TEST(File, AReadBeforeTheStartIsABadRecordNumber) {
    const TempFolder folder;
    File file;
    ASSERT_TRUE(file.Open(folder.File(u"a", "abc"), File::Mode::Read).Ok());
    Bytes bytes;
    EXPECT_EQ(file.ReadAt(-125, 3, bytes).Number(), ErrorNumber::BadRecordNumber);
}

TEST(File, ACountFarBeyondTheFileTakesNoMemory) {
    const TempFolder folder;
    File file;
    ASSERT_TRUE(file.Open(folder.File(u"a", "abcdef"), File::Mode::Read).Ok());
    Bytes bytes;
    EXPECT_TRUE(file.ReadAt(2, std::size_t{1} << 40, bytes).Ok());
    EXPECT_EQ(bytes, "cdef");
    EXPECT_TRUE(file.ReadAt(9, std::size_t{1} << 40, bytes).Ok());
    EXPECT_EQ(bytes, "");
}

TEST(File, WritingChangesTheBytesAndNothingElse) {
    const TempFolder folder;
    const Text path = folder.File(u"a", "0123456789");
    File file;
    ASSERT_TRUE(file.Open(path, File::Mode::ReadWrite).Ok());
    EXPECT_TRUE(file.WriteAt(8, "ABCD").Ok());
    EXPECT_TRUE(file.Flush().Ok());
    EXPECT_TRUE(file.Close().Ok());
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(ReadFile(path), "01234567ABCD");
}

TEST(File, ReadWriteNeverCreates) {
    const TempFolder folder;
    File file;
    EXPECT_EQ(file.Open(folder / u"none", File::Mode::ReadWrite).Number(),
              ErrorNumber::FileNotFound);
    EXPECT_EQ(file.Open(folder / u"none", File::Mode::Read).Number(), ErrorNumber::FileNotFound);
    EXPECT_TRUE(ListTree(folder.Path()).empty());
}

TEST(File, CreateNewNeverOverwrites) {
    const TempFolder folder;
    const Text path = folder.File(u"a", "old");
    File file;
    EXPECT_EQ(file.Open(path, File::Mode::CreateNew).Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(ReadFile(path), "old");
    ASSERT_TRUE(file.Open(folder / u"b", File::Mode::CreateNew).Ok());
    EXPECT_TRUE(file.WriteAt(0, "new").Ok());
    EXPECT_TRUE(file.Close().Ok());
    EXPECT_EQ(ReadFile(folder / u"b"), "new");
    EXPECT_EQ(file.Open(folder / u"no/b", File::Mode::CreateNew).Number(),
              ErrorNumber::PathNotFound);
}

TEST(File, AFolderIsRefused) {
    const TempFolder folder;
    File file;
    for (const auto mode : {File::Mode::Read, File::Mode::ReadWrite})
        EXPECT_EQ(file.Open(folder.Folder(u"x.mp3"), mode).Number(), ErrorNumber::PathFileAccess);
    EXPECT_FALSE(file.IsOpen());
}

TEST(File, APipeIsRefusedInsteadOfWaitedFor) {
    const TempFolder folder;
    const Text path = folder / u"x.mp3";
    ASSERT_EQ(::mkfifo(NativePath(path).c_str(), 0600), 0);
    File file;
    for (const auto mode : {File::Mode::Read, File::Mode::ReadWrite})
        EXPECT_EQ(file.Open(path, mode).Number(), ErrorNumber::PathFileAccess);
}

TEST(File, APathWithANulNamesNoFile) {
    const TempFolder folder;
    Text path = folder.File(u"a.mp3");
    path.append(u"\0b", 2);
    File file;
    EXPECT_EQ(file.Open(path, File::Mode::Read).Number(), ErrorNumber::FileNotFound);
}

TEST(File, AWriteThatDoesNotFitIsDiskFull) {
    File file;
    ASSERT_TRUE(file.Open(u"/dev/full", File::Mode::ReadWrite).Ok());
    EXPECT_EQ(file.WriteAt(0, "x").Number(), ErrorNumber::DiskFull);
}

TEST(File, AWriteThatFitsInPartIsDiskFullToo) {
    const TempFolder folder;
    const Text path = folder.File(u"a", "");
    const int number = RunInChild([&] {
        LimitFileSize(1000);
        File file;
        if (!file.Open(path, File::Mode::ReadWrite).Ok()) return 1;
        return static_cast<int>(file.WriteAt(0, Bytes(3000, 'x')).Number());
    });
    EXPECT_EQ(number, static_cast<int>(ErrorNumber::DiskFull));
}

TEST(File, PermissionIsAsked) {
    const TempFolder folder;
    const Text path = folder.File(u"a", "x");
    ASSERT_EQ(::chmod(NativePath(path).c_str(), 0400), 0);
    const int number = RunInChild([&] {
        ObeyPermissions();
        File file;
        return static_cast<int>(file.Open(path, File::Mode::ReadWrite).Number());
    });
    EXPECT_EQ(number, static_cast<int>(ErrorNumber::PermissionDenied));
}

TEST(File, TheHandleMovesAlong) {
    const TempFolder folder;
    File first;
    ASSERT_TRUE(first.Open(folder.File(u"a", "abc"), File::Mode::Read).Ok());
    File second(std::move(first));
    Bytes bytes;
    EXPECT_TRUE(second.ReadAt(0, 3, bytes).Ok());
    EXPECT_EQ(bytes, "abc");
    File third;
    third = std::move(second);
    EXPECT_EQ(third.Size(), 3);
    EXPECT_TRUE(third.ReadAt(1, 1, bytes).Ok());
    EXPECT_EQ(bytes, "b");
}

TEST(File, OpeningAnotherFileClosesTheFirst) {
    const TempFolder folder;
    File file;
    ASSERT_TRUE(file.Open(folder.File(u"a", "first"), File::Mode::Read).Ok());
    ASSERT_TRUE(file.Open(folder.File(u"b", "second"), File::Mode::Read).Ok());
    EXPECT_EQ(file.Size(), 6);
    EXPECT_FALSE(file.Open(folder / u"none", File::Mode::Read).Ok());
    EXPECT_FALSE(file.IsOpen());
}

}  // namespace
}  // namespace mdlPLM
