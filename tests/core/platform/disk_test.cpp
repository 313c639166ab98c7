#include "core/platform/disk.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

TEST(FileExists, IsTrueForFilesAndFolders) {
    const TempFolder folder;
    EXPECT_TRUE(FileExists(folder.File(u"a")));
    EXPECT_TRUE(FileExists(folder.Folder(u"sub")));
    EXPECT_TRUE(FileExists(folder / u"sub/"));
    EXPECT_FALSE(FileExists(folder / u"none"));
    EXPECT_FALSE(FileExists(u""));
}

TEST(FileExists, LooksThroughLinks) {
    const TempFolder folder;
    (void)folder.File(u"a");
    EXPECT_TRUE(FileExists(folder.Link(u"link", u"a")));
    EXPECT_FALSE(FileExists(folder.Link(u"dangling", u"none")));
    EXPECT_FALSE(FileExists(folder.Link(u"loop", u"loop")));
}

TEST(FileExists, APathWithANulIsNotCutShort) {
    const TempFolder folder;
    Text path = folder.File(u"a.mp3");
    path.append(u"\0 garbage", 9);
    EXPECT_FALSE(FileExists(path));
    EXPECT_EQ(FileLength(path), -1);
}

TEST(FileExists, NamesInNoEncodingAreFound) {
    const TempFolder folder;
    const Text name = PathFromNative("caf\xE9.mp3");
    EXPECT_TRUE(FileExists(folder.File(name)));
    EXPECT_FALSE(FileExists(folder / u"caf\u00E9.mp3"));
}

TEST(IsFolder, IsTrueForFoldersAndLinksToThem) {
    const TempFolder folder;
    (void)folder.Folder(u"sub");
    EXPECT_TRUE(IsFolder(folder / u"sub"));
    EXPECT_TRUE(IsFolder(folder / u"sub/"));
    EXPECT_TRUE(IsFolder(folder.Link(u"link", u"sub")));
    EXPECT_FALSE(IsFolder(folder.File(u"a")));
    EXPECT_FALSE(IsFolder(folder / u"a/"));
    EXPECT_FALSE(IsFolder(folder / u"none"));
}

TEST(FileLength, IsInBytes) {
    const TempFolder folder;
    EXPECT_EQ(FileLength(folder.File(u"a", "12345")), 5);
    EXPECT_EQ(FileLength(folder / u"none"), -1);
    EXPECT_EQ(FileLength(folder.Path()), -1);
}

TEST(IsSameFile, GoesByWhatAPathLeadsTo) {
    const TempFolder folder;
    const Text a = folder.File(u"a", "x");
    const Text b = folder.File(u"b", "x");
    EXPECT_TRUE(IsSameFile(a, folder.Link(u"link", u"a")));
    EXPECT_TRUE(IsSameFile(a, folder / u"./a"));
    EXPECT_FALSE(IsSameFile(a, b));
    EXPECT_FALSE(IsSameFile(folder / u"none", folder / u"none"));
}

std::vector<Bytes> NamesIn(TextView folder) {
    std::vector<FolderItem> items;
    EXPECT_TRUE(ListFolder(folder, items).Ok());
    std::vector<Bytes> names;
    names.reserve(items.size());
    for (const FolderItem& item : items)
        names.push_back(NativePath(item.Name) + (item.IsFolder ? "/" : ""));
    return names;
}

TEST(ListFolder, IsSortedWithoutRegardToLetterCase) {
    const TempFolder folder;
    for (const TextView name : {u"b", u"A", u"a", u"C", u"\u00E4", u"_", u".dot"})
        (void)folder.File(name);
    EXPECT_EQ(NamesIn(folder.Path()),
              (std::vector<Bytes>{".dot", "A", "a", "b", "C", "_", "\xC3\xA4"}));
}

TEST(ListFolder, TellsFoldersAndLinksToFolders) {
    const TempFolder folder;
    (void)folder.Folder(u"sub");
    (void)folder.File(u"file");
    (void)folder.Link(u"tofile", u"file");
    (void)folder.Link(u"tofolder", u"sub");
    (void)folder.Link(u"tonothing", u"none");
    EXPECT_EQ(NamesIn(folder.Path()),
              (std::vector<Bytes>{"file", "sub/", "tofile", "tofolder/", "tonothing"}));
}

TEST(ListFolder, NamesInNoEncodingSurvive) {
    const TempFolder folder;
    (void)folder.File(PathFromNative("\xE5.mp3"));
    EXPECT_EQ(NamesIn(folder.Path()), std::vector<Bytes>{"\xE5.mp3"});
}

TEST(ListFolder, WhatIsNoFolderIsAnError) {
    const TempFolder folder;
    std::vector<FolderItem> items(1);
    EXPECT_EQ(ListFolder(folder / u"none", items).Number(), ErrorNumber::PathNotFound);
    EXPECT_TRUE(items.empty());
    EXPECT_EQ(ListFolder(folder.File(u"a"), items).Number(), ErrorNumber::PathNotFound);
}

TEST(CreateFolder, IsOneLevel) {
    const TempFolder folder;
    SystemDisk disk;
    EXPECT_TRUE(disk.CreateFolder(folder / u"a").Ok());
    EXPECT_TRUE(disk.CreateFolder(folder / u"b/").Ok());
    EXPECT_EQ(disk.CreateFolder(folder / u"a").Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(disk.CreateFolder(folder.File(u"f")).Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(disk.CreateFolder(folder / u"x/y").Number(), ErrorNumber::PathNotFound);
    EXPECT_EQ(disk.CreateFolder(folder / u"f/y").Number(), ErrorNumber::PathNotFound);
    EXPECT_EQ(ListTree(folder.Path()), (std::vector<Bytes>{"a/", "b/", "f"}));
}

TEST(CreateFolders, MakesTheParentsToo) {
    const TempFolder folder;
    EXPECT_TRUE(CreateFolders(folder / u"a/b/c").Ok());
    EXPECT_TRUE(CreateFolders(folder / u"a/b/d/").Ok());
    EXPECT_TRUE(CreateFolders(folder / u"a").Ok());
    EXPECT_FALSE(CreateFolders(folder.File(u"f") + u"/x").Ok());
    EXPECT_FALSE(CreateFolders(u"").Ok());
    EXPECT_EQ(ListTree(folder.Path()), (std::vector<Bytes>{"a/", "a/b/", "a/b/c/", "a/b/d/", "f"}));
}

TEST(DeleteFile, NeverDeletesAFolder) {
    const TempFolder folder;
    SystemDisk disk;
    EXPECT_EQ(disk.DeleteFile(folder.Folder(u"sub")).Number(), ErrorNumber::PathFileAccess);
    EXPECT_TRUE(disk.DeleteFile(folder.File(u"a")).Ok());
    EXPECT_EQ(disk.DeleteFile(folder / u"a").Number(), ErrorNumber::FileNotFound);
    (void)folder.File(u"kept", "x");
    EXPECT_TRUE(disk.DeleteFile(folder.Link(u"link", u"kept")).Ok());
    EXPECT_EQ(ListTree(folder.Path()), (std::vector<Bytes>{"kept", "sub/"}));
}

TEST(SystemDisk, WaitsForAFileAndItsFolder) {
    const TempFolder folder;
    SystemDisk disk;
    EXPECT_TRUE(disk.Flush(folder.File(u"a.mp3", "sound")).Ok());
    EXPECT_EQ(disk.Flush(folder / u"missing").Number(), ErrorNumber::FileNotFound);
    // What knows no waiting is no failure.
    EXPECT_TRUE(disk.Flush(u"/dev/null").Ok());
}

TEST(SystemDisk, AnswersLikeTheFunctions) {
    const TempFolder folder;
    SystemDisk disk;
    const Text a = folder.File(u"a");
    EXPECT_TRUE(disk.Exists(a));
    EXPECT_FALSE(disk.IsFolder(a));
    EXPECT_TRUE(disk.IsFolder(folder.Path()));
    EXPECT_TRUE(disk.IsSameFile(a, a));
}

TEST(IsWritableFolder, GoesByPermission) {
    const TempFolder folder;
    EXPECT_TRUE(IsWritableFolder(folder.Path()));
    EXPECT_FALSE(IsWritableFolder(folder / u"none"));
    EXPECT_FALSE(IsWritableFolder(folder.File(u"a")));
    const Text closed = folder.Folder(u"closed");
    ASSERT_EQ(::chmod(NativePath(closed).c_str(), 0555), 0);
    EXPECT_EQ(RunInChild([&] {
                  ObeyPermissions();
                  return IsWritableFolder(closed) ? 1 : 0;
              }),
              0);
}

TEST(WholeFile, AnyBytesSurvive) {
    const TempFolder folder;
    Bytes bytes;
    for (int i = 0; i < 200'000; ++i) bytes.push_back(static_cast<char>(i * 7));
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 200'000U}) {
        const BytesView expected = BytesView(bytes).substr(0, size);
        ASSERT_TRUE(WriteWholeFile(folder / u"a", expected).Ok());
        Bytes got = "rest";
        ASSERT_TRUE(ReadWholeFile(folder / u"a", got).Ok());
        EXPECT_TRUE(got == expected) << size;
    }
    EXPECT_EQ(ListTree(folder.Path()), std::vector<Bytes>{"a"});
}

TEST(WholeFile, WhatCannotBeReadIsEmptyAndAnError) {
    const TempFolder folder;
    Bytes got = "rest";
    EXPECT_EQ(ReadWholeFile(folder / u"none", got).Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(got, "");
    EXPECT_EQ(ReadWholeFile(folder.Path(), got).Number(), ErrorNumber::PathFileAccess);
}

TEST(WholeFile, ALinkIsWrittenThrough) {
    const TempFolder folder;
    (void)folder.File(u"real/a", "old");
    (void)folder.Link(u"link", u"link2");
    (void)folder.Link(u"link2", u"real/a");
    (void)folder.Link(u"dangling", u"real/b");
    ASSERT_TRUE(WriteWholeFile(folder / u"link", "new").Ok());
    ASSERT_TRUE(WriteWholeFile(folder / u"dangling", "fresh").Ok());
    EXPECT_EQ(ReadFile(folder / u"real/a"), "new");
    EXPECT_EQ(ReadFile(folder / u"real/b"), "fresh");
    struct stat data {};
    ASSERT_EQ(::lstat(NativePath(folder / u"link").c_str(), &data), 0);
    EXPECT_TRUE(S_ISLNK(data.st_mode));
    EXPECT_EQ(WriteWholeFile(folder.Link(u"loop", u"loop"), "x").Number(),
              ErrorNumber::PathFileAccess);
}

mode_t ModeOf(TextView path) {
    struct stat data {};
    EXPECT_EQ(::stat(NativePath(path).c_str(), &data), 0);
    return data.st_mode & 07777;
}

TEST(WholeFile, TheModeOfTheOldFileIsKept) {
    const TempFolder folder;
    const Text path = folder.File(u"a", "old");
    for (const mode_t mode : {0600U, 0666U, 0640U}) {
        ASSERT_EQ(::chmod(NativePath(path).c_str(), mode), 0);
        ASSERT_TRUE(WriteWholeFile(path, "new").Ok());
        EXPECT_EQ(ModeOf(path), mode);
    }
}

TEST(WholeFile, ANewFileHasTheUsersUsualMode) {
    const TempFolder folder;
    const mode_t mask = ::umask(0027);
    const Status written = WriteWholeFile(folder / u"a", "new");
    ::umask(mask);
    ASSERT_TRUE(written.Ok());
    EXPECT_EQ(ModeOf(folder / u"a"), 0640U);
}

TEST(WholeFile, AFailureLeavesTheOldContents) {
    const TempFolder folder;
    const Text path = folder.File(u"a", "old");
    const int number = RunInChild([&] {
        LimitFileSize(1000);
        return static_cast<int>(WriteWholeFile(path, Bytes(3000, 'x')).Number());
    });
    EXPECT_EQ(number, static_cast<int>(ErrorNumber::DiskFull));
    EXPECT_EQ(ReadTree(folder.Path()), (std::map<Bytes, Bytes>{{"a", "old"}}));
}

TEST(WholeFile, AWriteProtectedFileStays) {
    const TempFolder folder;
    const Text path = folder.File(u"a", "old");
    ASSERT_EQ(::chmod(NativePath(path).c_str(), 0444), 0);
    const int number = RunInChild([&] {
        ObeyPermissions();
        return static_cast<int>(WriteWholeFile(path, "new").Number());
    });
    EXPECT_EQ(number, static_cast<int>(ErrorNumber::PermissionDenied));
    EXPECT_EQ(ReadFile(path), "old");
}

TEST(WholeFile, AFolderIsNotReplacedAndAMissingOneNotMade) {
    const TempFolder folder;
    EXPECT_EQ(WriteWholeFile(folder.Folder(u"sub"), "x").Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(WriteWholeFile(folder / u"none/a", "x").Number(), ErrorNumber::PathNotFound);
    EXPECT_EQ(WriteWholeFile(Text(u"a\0b", 3), "x").Number(), ErrorNumber::BadFileName);
    EXPECT_EQ(ListTree(folder.Path()), std::vector<Bytes>{"sub/"});
}

TEST(WholeFile, APipeIsWrittenToAndStays) {
    const TempFolder folder;
    const Bytes pipe = NativePath(folder / u"pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(WriteWholeFile(folder / u"pipe", "x").Number(), ErrorNumber::DeviceUnavailable);
    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    EXPECT_TRUE(WriteWholeFile(folder / u"pipe", "contents").Ok());
    Bytes got(20, '\0');
    EXPECT_EQ(::read(reader, got.data(), got.size()), 8);
    ::close(reader);
    EXPECT_EQ(got.substr(0, 8), "contents");
    struct stat data {};
    ASSERT_EQ(::lstat(pipe.c_str(), &data), 0);
    EXPECT_TRUE(S_ISFIFO(data.st_mode));
}

TEST(Folders, OfTheUserFollowTheEnvironment) {
    const auto folders = [] {
        return ConfigurationFolder() + u" " + DataFolder() + u" " + TemporaryFolder();
    };
    const auto check = [&](TextView expected) {
        return RunInChild([&] { return folders() == expected ? 0 : 1; });
    };
    EXPECT_EQ(RunInChild([&] {
                  ::setenv("XDG_CONFIG_HOME", "/c", 1);
                  ::setenv("XDG_DATA_HOME", "/d/", 1);
                  ::setenv("TMPDIR", "/t", 1);
                  return check(u"/c/PLM/ /d/PLM/ /t/");
              }),
              0);
    EXPECT_EQ(RunInChild([&] {
                  ::setenv("HOME", "/h", 1);
                  ::setenv("XDG_CONFIG_HOME", "relative", 1);
                  ::unsetenv("XDG_DATA_HOME");
                  ::unsetenv("TMPDIR");
                  return check(u"/h/.config/PLM/ /h/.local/share/PLM/ /tmp/");
              }),
              0);
}

TEST(Folders, OfTheProgramHoldsTheProgram) {
    const Text folder = ProgramFolder();
    EXPECT_TRUE(IsFolder(folder));
    EXPECT_EQ(folder.back(), u'/');
    EXPECT_TRUE(FileExists(folder + u"core_platform_test"));
}

}  // namespace
}  // namespace mdlPLM
