#include "core/platform/delete_and_write.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/file_limit.h"
#include "tests/support/folder_watch.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

class DeleteAndWriting : public testing::Test {
protected:
    Status Write(const Text& path, BytesView contents) {
        File old;
        const Status opened = old.Open(path, File::Mode::ReadWrite);
        return opened.Ok() ? DeleteAndWrite(path, old, contents) : opened;
    }
    [[nodiscard]] std::vector<Bytes> Names() const { return ListTree(folder_.Path()); }

    TempFolder folder_;
    Text path_ = folder_.File(u"a.mp3", "old contents");
};

struct stat DataOf(const Text& path) {
    struct stat data {};
    EXPECT_EQ(::lstat(NativePath(path).c_str(), &data), 0);
    return data;
}

TEST_F(DeleteAndWriting, TheFileIsDeletedThenWrittenUnderItsOwnName) {
    const test::FolderWatch watch(folder_.Path());
    EXPECT_TRUE(Write(path_, "new contents!").Ok());
    EXPECT_EQ(ReadFile(path_), "new contents!");
    EXPECT_EQ(watch.Seen(),
              (std::vector<Bytes>{"deleted a.mp3", "created a.mp3", "written a.mp3"}));
}

TEST_F(DeleteAndWriting, NothingIsDeletedWhereThereIsNoRoom) {
    const test::FileLimit limit(12);
    EXPECT_EQ(Write(path_, "new contents!").Number(), ErrorNumber::DiskFull);
    EXPECT_EQ(ReadFile(path_), "old contents");
    EXPECT_TRUE(Write(path_, "new contents").Ok());
    EXPECT_EQ(Names(), std::vector<Bytes>{"a.mp3"});
}

TEST_F(DeleteAndWriting, AFileThatWasReplacedMeanwhileIsLeftAlone) {
    File old;
    ASSERT_TRUE(old.Open(path_, File::Mode::ReadWrite).Ok());
    const Text other = folder_.File(u"b.mp3", "somebody else's");
    ASSERT_EQ(::rename(NativePath(other).c_str(), NativePath(path_).c_str()), 0);
    EXPECT_EQ(DeleteAndWrite(path_, old, "new").Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(ReadFile(path_), "somebody else's");
}

TEST_F(DeleteAndWriting, AFileThatWasDeletedMeanwhileStaysSo) {
    File old;
    ASSERT_TRUE(old.Open(path_, File::Mode::ReadWrite).Ok());
    ASSERT_EQ(::unlink(NativePath(path_).c_str()), 0);
    EXPECT_EQ(DeleteAndWrite(path_, old, "new").Number(), ErrorNumber::PathFileAccess);
    EXPECT_FALSE(IsThere(path_));
}

TEST_F(DeleteAndWriting, InAWriteProtectedFolderTheFileStays) {
    ASSERT_EQ(::chmod(NativePath(folder_.Path()).c_str(), 0555), 0);
    EXPECT_EQ(RunInChild([&] {
                  ObeyPermissions();
                  return static_cast<int>(Write(path_, "new").Number());
              }),
              static_cast<int>(ErrorNumber::PermissionDenied));
    EXPECT_EQ(ReadFile(path_), "old contents");
    ASSERT_EQ(::chmod(NativePath(folder_.Path()).c_str(), 0755), 0);
}

TEST_F(DeleteAndWriting, ModeAndOwnerAreKept) {
    for (const mode_t mode : {0600U, 0640U, 0664U, 0777U}) {
        ASSERT_EQ(::chmod(NativePath(path_).c_str(), mode), 0);
        const struct stat before = DataOf(path_);
        ASSERT_TRUE(Write(path_, "new").Ok());
        const struct stat after = DataOf(path_);
        EXPECT_EQ(after.st_mode, before.st_mode);
        EXPECT_EQ(after.st_uid, before.st_uid);
        EXPECT_EQ(after.st_gid, before.st_gid);
    }
}

TEST_F(DeleteAndWriting, TheUsersExtendedAttributesAreKept) {
    const Bytes native = NativePath(path_);
    // A file system without them keeps none: then there is nothing to compare, on both sides.
    const bool taken = ::setxattr(native.c_str(), "user.comment", "mine", 4, 0) == 0 &&
                       ::setxattr(native.c_str(), "user.empty", "", 0, 0) == 0;
    ASSERT_TRUE(Write(path_, "new").Ok());
    char value[16] = {};
    const ssize_t size = ::getxattr(native.c_str(), "user.comment", value, sizeof value);
    EXPECT_EQ(size, taken ? 4 : -1);
    EXPECT_STREQ(value, taken ? "mine" : "");
    EXPECT_EQ(::getxattr(native.c_str(), "user.empty", value, sizeof value), taken ? 0 : -1);
}

TEST_F(DeleteAndWriting, ASymbolicLinkStaysAndItsFileIsWritten) {
    (void)folder_.File(u"sub/real.mp3", "real");
    const Text inner = folder_.Link(u"sub/inner.mp3", u"real.mp3");
    const Text outer = folder_.Link(u"outer.mp3", u"sub/inner.mp3");
    EXPECT_TRUE(Write(outer, "new").Ok());
    EXPECT_TRUE(S_ISLNK(DataOf(outer).st_mode));
    EXPECT_TRUE(S_ISLNK(DataOf(inner).st_mode));
    EXPECT_EQ(ReadFile(folder_ / u"sub/real.mp3"), "new");
    EXPECT_EQ(Names(),
              (std::vector<Bytes>{"a.mp3", "outer.mp3", "sub/", "sub/inner.mp3", "sub/real.mp3"}));
}

TEST_F(DeleteAndWriting, AnotherHardLinkKeepsTheOldContents) {
    const Text other = folder_ / u"other.mp3";
    ASSERT_EQ(::link(NativePath(path_).c_str(), NativePath(other).c_str()), 0);
    EXPECT_TRUE(Write(path_, "new").Ok());
    EXPECT_EQ(ReadFile(path_), "new");
    EXPECT_EQ(ReadFile(other), "old contents");
}

}  // namespace
}  // namespace mdlPLM
