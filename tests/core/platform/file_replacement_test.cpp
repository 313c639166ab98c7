#include "core/platform/file_replacement.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "core/platform/path.h"
#include "tests/support/file_limit.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

class Replacement : public testing::Test {
protected:
    void Begin(TextView path) {
        ASSERT_TRUE(old_.Open(path, File::Mode::ReadWrite).Ok());
        ASSERT_TRUE(replacement_.Begin(path, old_).Ok());
    }
    [[nodiscard]] std::vector<Bytes> Names() const { return ListTree(folder_.Path()); }

    TempFolder folder_;
    Text path_ = folder_.File(u"a.mp3", "old contents");
    File old_;
    FileReplacement replacement_;
};

struct stat DataOf(const Text& path) {
    struct stat data {};
    EXPECT_EQ(::lstat(NativePath(path).c_str(), &data), 0);
    return data;
}

TEST_F(Replacement, TakesNewBytesAndPiecesOfTheOldFile) {
    Begin(path_);
    EXPECT_TRUE(replacement_.Append("new ").Ok());
    EXPECT_TRUE(replacement_.AppendOld(4, 8).Ok());
    EXPECT_TRUE(replacement_.AppendOld(0, 0).Ok());
    EXPECT_TRUE(replacement_.Append("!").Ok());
    EXPECT_EQ(ReadFile(path_), "old contents");
    EXPECT_TRUE(replacement_.Commit().Ok());
    EXPECT_EQ(ReadFile(path_), "new contents!");
    EXPECT_EQ(Names(), std::vector<Bytes>{"a.mp3"});
}

TEST_F(Replacement, LargeFilesAreCarriedOverWhole) {
    Bytes large;
    for (unsigned i = 0; i < 700'000; ++i) large += static_cast<char>(i * i >> 7U) + Bytes("abcd");
    WriteFile(path_, large);
    Begin(path_);
    EXPECT_TRUE(replacement_.Append("x").Ok());
    EXPECT_TRUE(replacement_.AppendOld(3, static_cast<std::int64_t>(large.size()) - 5).Ok());
    EXPECT_TRUE(replacement_.Commit().Ok());
    EXPECT_TRUE(ReadFile(path_) == "x" + large.substr(3, large.size() - 5));
}

TEST_F(Replacement, AbandonedLeavesTheFileAndNothingBehind) {
    {
        FileReplacement abandoned;
        File old;
        ASSERT_TRUE(old.Open(path_, File::Mode::ReadWrite).Ok());
        ASSERT_TRUE(abandoned.Begin(path_, old).Ok());
        EXPECT_TRUE(abandoned.Append("new").Ok());
        EXPECT_EQ(Names().size(), 2U);
    }
    EXPECT_EQ(Names(), std::vector<Bytes>{"a.mp3"});
    EXPECT_EQ(ReadFile(path_), "old contents");
}

TEST_F(Replacement, AFullDiskIsToldAndTheOldFileStands) {
    Begin(path_);
    const test::FileLimit limit(6);
    EXPECT_FALSE(replacement_.Append("new contents").Ok());
    EXPECT_FALSE(replacement_.AppendOld(0, 12).Ok());
    EXPECT_EQ(ReadFile(path_), "old contents");
}

TEST_F(Replacement, AnOldFileThatShrankIsInputPastEnd) {
    Begin(path_);
    ASSERT_EQ(::truncate(NativePath(path_).c_str(), 5), 0);
    EXPECT_EQ(replacement_.AppendOld(0, 12).Number(), ErrorNumber::InputPastEnd);
}

TEST_F(Replacement, AFileThatWasReplacedMeanwhileIsLeftAlone) {
    Begin(path_);
    EXPECT_TRUE(replacement_.Append("new").Ok());
    const Text other = folder_.File(u"b.mp3", "somebody else's");
    ASSERT_EQ(::rename(NativePath(other).c_str(), NativePath(path_).c_str()), 0);
    EXPECT_EQ(replacement_.Commit().Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(ReadFile(path_), "somebody else's");
}

TEST_F(Replacement, AFileThatWasDeletedMeanwhileStaysSo) {
    Begin(path_);
    ASSERT_EQ(::unlink(NativePath(path_).c_str()), 0);
    EXPECT_EQ(replacement_.Commit().Number(), ErrorNumber::PathFileAccess);
    EXPECT_FALSE(IsThere(path_));
}

TEST_F(Replacement, ModeAndOwnerAreKept) {
    for (const mode_t mode : {0600U, 0640U, 0664U, 0777U}) {
        ASSERT_EQ(::chmod(NativePath(path_).c_str(), mode), 0);
        const struct stat before = DataOf(path_);
        File old;
        FileReplacement replacement;
        ASSERT_TRUE(old.Open(path_, File::Mode::ReadWrite).Ok());
        ASSERT_TRUE(replacement.Begin(path_, old).Ok());
        ASSERT_TRUE(replacement.Commit().Ok());
        const struct stat after = DataOf(path_);
        EXPECT_EQ(after.st_mode, before.st_mode);
        EXPECT_EQ(after.st_uid, before.st_uid);
        EXPECT_EQ(after.st_gid, before.st_gid);
        EXPECT_NE(after.st_ino, before.st_ino);
    }
}

TEST_F(Replacement, TheUsersExtendedAttributesAreKept) {
    const Bytes native = NativePath(path_);
    // A file system without them keeps none: then there is nothing to compare, on both sides.
    const bool taken = ::setxattr(native.c_str(), "user.comment", "mine", 4, 0) == 0 &&
                       ::setxattr(native.c_str(), "user.empty", "", 0, 0) == 0;
    Begin(path_);
    ASSERT_TRUE(replacement_.Commit().Ok());
    char value[16] = {};
    const ssize_t size = ::getxattr(native.c_str(), "user.comment", value, sizeof value);
    EXPECT_EQ(size, taken ? 4 : -1);
    EXPECT_STREQ(value, taken ? "mine" : "");
    EXPECT_EQ(::getxattr(native.c_str(), "user.empty", value, sizeof value), taken ? 0 : -1);
}

TEST_F(Replacement, ASymbolicLinkStaysAndItsFileIsReplaced) {
    (void)folder_.File(u"sub/real.mp3", "real");
    const Text inner = folder_.Link(u"sub/inner.mp3", u"real.mp3");
    const Text outer = folder_.Link(u"outer.mp3", u"sub/inner.mp3");
    Begin(outer);
    EXPECT_TRUE(replacement_.Append("new").Ok());
    EXPECT_TRUE(replacement_.Commit().Ok());
    EXPECT_TRUE(S_ISLNK(DataOf(outer).st_mode));
    EXPECT_TRUE(S_ISLNK(DataOf(inner).st_mode));
    EXPECT_EQ(ReadFile(folder_ / u"sub/real.mp3"), "new");
    EXPECT_EQ(Names(),
              (std::vector<Bytes>{"a.mp3", "outer.mp3", "sub/", "sub/inner.mp3", "sub/real.mp3"}));
}

TEST_F(Replacement, AnotherHardLinkKeepsTheOldContents) {
    const Text other = folder_ / u"other.mp3";
    ASSERT_EQ(::link(NativePath(path_).c_str(), NativePath(other).c_str()), 0);
    Begin(path_);
    EXPECT_TRUE(replacement_.Append("new").Ok());
    EXPECT_TRUE(replacement_.Commit().Ok());
    EXPECT_EQ(ReadFile(path_), "new");
    EXPECT_EQ(ReadFile(other), "old contents");
}

}  // namespace
}  // namespace mdlPLM
