#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using Tree = std::map<Bytes, Bytes>;

Bytes Noise(std::size_t size) {
    Bytes bytes(size, '\0');
    std::uint32_t state = 1;
    for (char& byte : bytes) byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}

Status RunCopy(PiecewiseCopy& copy) {
    bool done = false;
    while (!done)
        if (const Status status = copy.Step(done); !status.Ok()) return status;
    return {};
}

Status CopyWhole(TextView from, TextView to, IfTargetExists ifExists) {
    SystemDisk disk;
    std::unique_ptr<PiecewiseCopy> copy;
    const Status begun = disk.BeginCopy(from, to, ifExists, copy);
    return begun.Ok() ? RunCopy(*copy) : begun;
}

class Copy : public testing::Test {
protected:
    Status Fail(TextView from, TextView to) {
        return CopyWhole(folder_ / from, folder_ / to, IfTargetExists::Fail);
    }
    Status Replace(TextView from, TextView to) {
        return CopyWhole(folder_ / from, folder_ / to, IfTargetExists::Replace);
    }
    [[nodiscard]] Tree Files() const { return ReadTree(folder_.Path()); }
    [[nodiscard]] Bytes Native(TextView name) const { return NativePath(folder_ / name); }

    const TempFolder folder_;
};

TEST_F(Copy, FilesOfAnySizeArriveWhole) {
    const Bytes noise = Noise(3'000'000);
    for (const std::size_t size :
         {0U, 1U, 4096U, (1U << 20) - 1, 1U << 20, (1U << 20) + 1, 3'000'000U}) {
        const Bytes bytes = noise.substr(0, size);
        WriteFile(folder_ / u"a", bytes);
        EXPECT_TRUE(Replace(u"a", u"b").Ok());
        EXPECT_TRUE(ReadFile(folder_ / u"b") == bytes) << size;
    }
    EXPECT_EQ(ListTree(folder_.Path()), (std::vector<Bytes>{"a", "b"}));
}

TEST_F(Copy, ToAnotherFileSystemFilesArriveWhole) {
    const Bytes bytes = Noise(3'000'000);
    const Text source = folder_.File(u"a", bytes);
    const Text target =
        u"/dev/shm/plm_copy_test_" +
        FileNameOfPath(Left(folder_.Path(), static_cast<Pos>(folder_.Path().size()) - 1));
    ASSERT_TRUE(CopyWhole(source, target, IfTargetExists::Fail).Ok());
    EXPECT_TRUE(ReadFile(target) == bytes);
    EXPECT_TRUE(CopyWhole(folder_.File(u"empty"), target, IfTargetExists::Replace).Ok());
    EXPECT_EQ(ReadFile(target), "");
    SystemDisk disk;
    EXPECT_TRUE(disk.DeleteFile(target).Ok());
}

TEST_F(Copy, ModeAndTimeAreKept) {
    const Text source = folder_.File(u"a", "one");
    SetModificationTime(source, 1'234'567'890'123'456'789);
    for (const mode_t mode : {0644U, 0600U, 0444U, 0755U}) {
        ASSERT_EQ(::chmod(Native(u"a").c_str(), mode), 0);
        ASSERT_TRUE(Replace(u"a", u"b").Ok());
        struct stat data {};
        ASSERT_EQ(::stat(Native(u"b").c_str(), &data), 0);
        EXPECT_EQ(data.st_mode & 07777, mode);
        EXPECT_EQ(ModificationTime(folder_ / u"b"), 1'234'567'890'123'456'789);
    }
}

TEST_F(Copy, HiddenAndArchiveTravelAlong) {
    const Text source = folder_.File(u"a", "one");
    SystemDisk disk;
    ASSERT_TRUE(disk.SetAttributes(source, Hidden | Archive).Ok());
    ASSERT_TRUE(Fail(u"a", u"b").Ok());
    EXPECT_EQ(GetAttributes(folder_ / u"b"), GetAttributes(source));
}

struct Attribute {
    const char* Name;
    Bytes Value;
};

// The list in the form of the system: version 2, then tag, permissions and number of each entry.
Bytes AccessList() {
    const auto entry = [](char tag, char permissions, const Bytes& number) {
        return Bytes({tag, 0, permissions, 0}) + number;
    };
    const Bytes none(4, '\xFF');
    return Bytes({2, 0, 0, 0}) + entry(1, 6, none) + entry(2, 4, Bytes({'\x39', '\x30', 0, 0})) +
           entry(4, 4, none) + entry(16, 4, none) + entry(32, 0, none);
}

Bytes ReadAttribute(const Bytes& path, const char* name) {
    char buffer[300];
    const ssize_t length = ::getxattr(path.c_str(), name, buffer, sizeof buffer);
    return length < 0 ? Bytes("none") : Bytes(buffer, static_cast<std::size_t>(length));
}

TEST_F(Copy, TheUsersAttributesAndTheAccessListTravelAlong) {
    const Attribute attributes[] = {{"user.comment", "mine"},
                                    {"user.empty", ""},
                                    {"user.long", Bytes(250, 'x')},
                                    {"system.posix_acl_access", AccessList()}};
    for (const mode_t mode : {0640U, 0440U}) {
        const Bytes source = NativePath(folder_.File(u"a", "one"));
        ASSERT_EQ(::chmod(source.c_str(), 0640), 0);
        // What the file system of the folder does not take stays away from both.
        for (const Attribute& each : attributes)
            (void)::setxattr(source.c_str(), each.Name, each.Value.data(), each.Value.size(), 0);
        ASSERT_EQ(::chmod(source.c_str(), mode), 0);
        ASSERT_TRUE(Replace(u"a", u"b").Ok());
        for (const Attribute& each : attributes)
            EXPECT_EQ(ReadAttribute(Native(u"b"), each.Name), ReadAttribute(source, each.Name))
                << each.Name;
        struct stat data {};
        ASSERT_EQ(::stat(Native(u"b").c_str(), &data), 0);
        EXPECT_EQ(data.st_mode & 07777, mode);
        ASSERT_EQ(::unlink(source.c_str()), 0);
    }
}

TEST_F(Copy, ToAFileSystemThatTakesNoAttributesIsNoFailure) {
    const Bytes source = NativePath(folder_.File(u"a", "one"));
    (void)::setxattr(source.c_str(), "user.comment", "mine", 4, 0);
    // More than a page: some file systems take less.
    (void)::setxattr(source.c_str(), "user.large", Bytes(3000, 'x').data(), 3000, 0);
    const Text target =
        u"/dev/shm/plm_copy_test_" +
        FileNameOfPath(Left(folder_.Path(), static_cast<Pos>(folder_.Path().size()) - 1));
    EXPECT_TRUE(CopyWhole(folder_ / u"a", target, IfTargetExists::Fail).Ok());
    EXPECT_EQ(ReadFile(target), "one");
    SystemDisk disk;
    EXPECT_TRUE(disk.DeleteFile(target).Ok());
}

TEST_F(Copy, AnExistingTargetStaysUnasked) {
    (void)folder_.File(u"a", "one");
    (void)folder_.File(u"b", "two");
    EXPECT_EQ(Fail(u"a", u"b").Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(Files(), (Tree{{"a", "one"}, {"b", "two"}}));
    EXPECT_TRUE(Replace(u"a", u"b").Ok());
    EXPECT_EQ(Files(), (Tree{{"a", "one"}, {"b", "one"}}));
}

TEST_F(Copy, ATargetThatAppearsMeanwhileStays) {
    (void)folder_.File(u"a", "one");
    SystemDisk disk;
    std::unique_ptr<PiecewiseCopy> copy;
    ASSERT_TRUE(disk.BeginCopy(folder_ / u"a", folder_ / u"b", IfTargetExists::Fail, copy).Ok());
    (void)folder_.File(u"b", "two");
    EXPECT_EQ(RunCopy(*copy).Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(Files(), (Tree{{"a", "one"}, {"b", "two"}}));
}

TEST_F(Copy, AFolderInTheWayIsRefused) {
    (void)folder_.File(u"a", "one");
    (void)folder_.Folder(u"b");
    EXPECT_EQ(Fail(u"a", u"b").Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(Replace(u"a", u"b").Number(), ErrorNumber::PathFileAccess);
    SystemDisk disk;
    std::unique_ptr<PiecewiseCopy> copy;
    ASSERT_TRUE(disk.BeginCopy(folder_ / u"a", folder_ / u"c", IfTargetExists::Replace, copy).Ok());
    (void)folder_.Folder(u"c");
    EXPECT_EQ(RunCopy(*copy).Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(Files(), (Tree{{"a", "one"}, {"b/", ""}, {"c/", ""}}));
}

TEST_F(Copy, ALinkCopiesTheFileItLeadsTo) {
    (void)folder_.File(u"a", "one");
    (void)folder_.Link(u"link", u"a");
    EXPECT_TRUE(Fail(u"link", u"b").Ok());
    struct stat data {};
    ASSERT_EQ(::lstat(Native(u"b").c_str(), &data), 0);
    EXPECT_TRUE(S_ISREG(data.st_mode));
    EXPECT_EQ(ReadFile(folder_ / u"b"), "one");
}

TEST_F(Copy, OnlyFilesAreCopied) {
    (void)folder_.Folder(u"sub");
    ASSERT_EQ(::mkfifo(Native(u"pipe").c_str(), 0600), 0);
    EXPECT_EQ(Fail(u"sub", u"b").Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(Fail(u"pipe", u"b").Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(Fail(u"none", u"b").Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(ListTree(folder_.Path()), (std::vector<Bytes>{"pipe", "sub/"}));
}

TEST_F(Copy, ImpossibleTargetsAreSaidBeforeAnythingIsCopied) {
    (void)folder_.File(u"a", "one");
    SystemDisk disk;
    std::unique_ptr<PiecewiseCopy> copy;
    const auto begin = [&](TextView to) {
        return disk.BeginCopy(folder_ / u"a", to, IfTargetExists::Fail, copy).Number();
    };
    EXPECT_EQ(begin(folder_ / u"none/b"), ErrorNumber::PathNotFound);
    EXPECT_EQ(begin(folder_ / u"a/b"), ErrorNumber::PathNotFound);
    EXPECT_EQ(begin(folder_ / Text(256, u'x')), ErrorNumber::BadFileName);
    EXPECT_EQ(begin(folder_ / Text(u"b\0c", 3)), ErrorNumber::BadFileName);
    EXPECT_EQ(Files(), (Tree{{"a", "one"}}));
}

TEST_F(Copy, TheLongestNamesAreCopied) {
    (void)folder_.File(u"a", "one");
    EXPECT_TRUE(Fail(u"a", Text(255, u'x')).Ok());
    EXPECT_EQ(Files(), (Tree{{"a", "one"}, {Bytes(255, 'x'), "one"}}));
}

TEST_F(Copy, AnAbandonedCopyLeavesNothing) {
    (void)folder_.File(u"a", Noise(3'000'000));
    (void)folder_.File(u"b", "two");
    SystemDisk disk;
    std::unique_ptr<PiecewiseCopy> copy;
    ASSERT_TRUE(disk.BeginCopy(folder_ / u"a", folder_ / u"b", IfTargetExists::Replace, copy).Ok());
    bool done = false;
    ASSERT_TRUE(copy->Step(done).Ok());
    EXPECT_FALSE(done);
    EXPECT_EQ(copy->Total(), 3'000'000);
    EXPECT_GT(copy->Copied(), 0);
    EXPECT_LT(copy->Copied(), copy->Total());
    copy.reset();
    EXPECT_EQ(ListTree(folder_.Path()), (std::vector<Bytes>{"a", "b"}));
    EXPECT_EQ(ReadFile(folder_ / u"b"), "two");
}

TEST_F(Copy, AFullDiskLeavesNothing) {
    (void)folder_.File(u"a", Noise(3'000'000));
    (void)folder_.File(u"b", "two");
    for (const auto ifExists : {IfTargetExists::Fail, IfTargetExists::Replace}) {
        const Text target = folder_ / (ifExists == IfTargetExists::Fail ? u"c" : u"b");
        const int number = RunInChild([&] {
            LimitFileSize(1'500'000);
            return static_cast<int>(CopyWhole(folder_ / u"a", target, ifExists).Number());
        });
        EXPECT_EQ(number, static_cast<int>(ErrorNumber::DiskFull));
    }
    EXPECT_EQ(ListTree(folder_.Path()), (std::vector<Bytes>{"a", "b"}));
    EXPECT_EQ(ReadFile(folder_ / u"b"), "two");
}

TEST_F(Copy, ASourceThatShrinksMeanwhileIsAnError) {
    (void)folder_.File(u"a", Noise(3'000'000));
    SystemDisk disk;
    std::unique_ptr<PiecewiseCopy> copy;
    ASSERT_TRUE(disk.BeginCopy(folder_ / u"a", folder_ / u"b", IfTargetExists::Fail, copy).Ok());
    bool done = false;
    ASSERT_TRUE(copy->Step(done).Ok());
    WriteFile(folder_ / u"a", "short");
    EXPECT_EQ(RunCopy(*copy).Number(), ErrorNumber::InputPastEnd);
    EXPECT_EQ(copy->Step(done).Number(), ErrorNumber::InputPastEnd);
    EXPECT_FALSE(done);
    EXPECT_EQ(Files(), (Tree{{"a", "short"}}));
}

TEST_F(Copy, ASourceThatGrowsMeanwhileIsCopiedToItsEnd) {
    const Bytes bytes = Noise(2'000'000);
    (void)folder_.File(u"a", bytes.substr(0, 1'500'000));
    SystemDisk disk;
    std::unique_ptr<PiecewiseCopy> copy;
    ASSERT_TRUE(disk.BeginCopy(folder_ / u"a", folder_ / u"b", IfTargetExists::Fail, copy).Ok());
    bool done = false;
    ASSERT_TRUE(copy->Step(done).Ok());
    WriteFile(folder_ / u"a", bytes);
    EXPECT_TRUE(RunCopy(*copy).Ok());
    EXPECT_TRUE(ReadFile(folder_ / u"b") == bytes);
}

TEST_F(Copy, AFolderWithoutPermissionIsRefused) {
    (void)folder_.File(u"a", "one");
    (void)folder_.Folder(u"sub");
    ASSERT_EQ(::chmod(Native(u"sub").c_str(), 0500), 0);
    const int number = RunInChild([&] {
        ObeyPermissions();
        return static_cast<int>(Fail(u"a", u"sub/a").Number());
    });
    EXPECT_EQ(number, static_cast<int>(ErrorNumber::PermissionDenied));
}

}  // namespace
}  // namespace mdlPLM
