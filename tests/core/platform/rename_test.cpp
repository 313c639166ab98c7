#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/platform/posix.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using Tree = std::map<Bytes, Bytes>;

class Rename : public testing::Test {
protected:
    Status Fail(TextView from, TextView to) {
        return disk_.Rename(folder_ / from, folder_ / to, IfTargetExists::Fail);
    }
    Status Replace(TextView from, TextView to) {
        return disk_.Rename(folder_ / from, folder_ / to, IfTargetExists::Replace);
    }
    [[nodiscard]] Tree Files() const { return ReadTree(folder_.Path()); }
    [[nodiscard]] Bytes Native(TextView name) const { return NativePath(folder_ / name); }

    const TempFolder folder_;
    SystemDisk disk_;
};

TEST_F(Rename, TakesTheNewName) {
    (void)folder_.File(u"a", "one");
    EXPECT_TRUE(Fail(u"a", u"b").Ok());
    EXPECT_EQ(Files(), (Tree{{"b", "one"}}));
}

TEST_F(Rename, NeverReplacesUnasked) {
    (void)folder_.File(u"a", "one");
    (void)folder_.File(u"b", "two");
    EXPECT_EQ(Fail(u"a", u"b").Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(Files(), (Tree{{"a", "one"}, {"b", "two"}}));
}

TEST_F(Rename, ReplacesWhenAsked) {
    (void)folder_.File(u"a", "one");
    (void)folder_.File(u"b", "two");
    EXPECT_TRUE(Replace(u"a", u"b").Ok());
    EXPECT_EQ(Files(), (Tree{{"b", "one"}}));
}

TEST_F(Rename, OntoAFolderIsRefused) {
    (void)folder_.File(u"a", "one");
    (void)folder_.Folder(u"b");
    EXPECT_EQ(Fail(u"a", u"b").Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(Replace(u"a", u"b").Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(Files(), (Tree{{"a", "one"}, {"b/", ""}}));
}

TEST_F(Rename, AMissingFileAndAMissingFolderAreToldApart) {
    (void)folder_.File(u"a", "one");
    EXPECT_EQ(Fail(u"none", u"b").Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(Replace(u"none", u"b").Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(Fail(u"a", u"none/b").Number(), ErrorNumber::PathNotFound);
    EXPECT_EQ(Replace(u"a", u"none/b").Number(), ErrorNumber::PathNotFound);
    EXPECT_EQ(Fail(u"a", u"a/b").Number(), ErrorNumber::PathNotFound);
}

TEST_F(Rename, ANameThatIsTooLongIsABadName) {
    (void)folder_.File(u"a", "one");
    EXPECT_EQ(Fail(u"a", Text(256, u'x')).Number(), ErrorNumber::BadFileName);
    EXPECT_EQ(Files(), (Tree{{"a", "one"}}));
}

TEST_F(Rename, ANameWithANulIsNotCutShort) {
    (void)folder_.File(u"a", "one");
    EXPECT_FALSE(Fail(u"a", Text(u"b\0c", 3)).Ok());
    EXPECT_EQ(Files(), (Tree{{"a", "one"}}));
}

TEST_F(Rename, ALinkIsRenamedAsALink) {
    (void)folder_.File(u"a", "one");
    (void)folder_.Link(u"link", u"a");
    (void)folder_.Link(u"dangling", u"none");
    EXPECT_TRUE(Fail(u"link", u"link2").Ok());
    EXPECT_TRUE(Fail(u"dangling", u"dangling2").Ok());
    EXPECT_EQ(ListTree(folder_.Path()), (std::vector<Bytes>{"a", "dangling2", "link2"}));
    EXPECT_EQ(ReadFile(folder_ / u"link2"), "one");
}

TEST_F(Rename, ADanglingLinkInTheWayIsInTheWay) {
    (void)folder_.File(u"a", "one");
    (void)folder_.Link(u"b", u"none");
    EXPECT_EQ(Fail(u"a", u"b").Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_TRUE(Replace(u"a", u"b").Ok());
    EXPECT_EQ(Files(), (Tree{{"b", "one"}}));
}

TEST_F(Rename, ToItselfSucceeds) {
    (void)folder_.File(u"a", "one");
    EXPECT_TRUE(Fail(u"a", u"a").Ok());
    EXPECT_TRUE(Fail(u"a", u"./a").Ok());
    EXPECT_TRUE(Replace(u"a", u"a").Ok());
    EXPECT_EQ(Files(), (Tree{{"a", "one"}}));
    EXPECT_EQ(Fail(u"none", u"none").Number(), ErrorNumber::FileNotFound);
}

TEST_F(Rename, AChangeOfLetterCaseIsAPlainRename) {
    (void)folder_.File(u"song.MP3", "one");
    EXPECT_TRUE(Fail(u"song.MP3", u"Song.mp3").Ok());
    EXPECT_EQ(Files(), (Tree{{"Song.mp3", "one"}}));
}

TEST_F(Rename, AnotherFileOfTheOtherSpellingStays) {
    (void)folder_.File(u"song.mp3", "one");
    (void)folder_.File(u"Song.mp3", "two");
    EXPECT_EQ(Fail(u"song.mp3", u"Song.mp3").Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(Files(), (Tree{{"Song.mp3", "two"}, {"song.mp3", "one"}}));
    EXPECT_TRUE(Replace(u"song.mp3", u"Song.mp3").Ok());
    EXPECT_EQ(Files(), (Tree{{"Song.mp3", "one"}}));
}

TEST_F(Rename, OtherLinksToTheSameFileAreNotLost) {
    (void)folder_.File(u"song.mp3", "one");
    ASSERT_EQ(::link(Native(u"song.mp3").c_str(), Native(u"Song.mp3").c_str()), 0);
    ASSERT_EQ(::link(Native(u"song.mp3").c_str(), Native(u"other").c_str()), 0);
    EXPECT_TRUE(Fail(u"song.mp3", u"Song.mp3").Ok());
    EXPECT_EQ(Fail(u"song.mp3", u"other").Number(), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(Files(), (Tree{{"Song.mp3", "one"}, {"other", "one"}, {"song.mp3", "one"}}));
}

TEST_F(Rename, UndecodableNamesAreRenamed) {
    const Text old = PathFromNative("caf\xE9.mp3");
    (void)folder_.File(old, "one");
    EXPECT_TRUE(Fail(old, u"caf\u00E9.mp3").Ok());
    EXPECT_EQ(Files(), (Tree{{"caf\xC3\xA9.mp3", "one"}}));
}

TEST_F(Rename, KeepsTheModificationTime) {
    const long long time = 1'234'567'890'123'456'789;
    SetModificationTime(folder_.File(u"a", "one"), time);
    EXPECT_TRUE(Fail(u"a", u"b").Ok());
    EXPECT_EQ(ModificationTime(folder_ / u"b"), time);
}

TEST_F(Rename, AFolderWithoutPermissionKeepsTheFile) {
    (void)folder_.File(u"sub/a", "one");
    ASSERT_EQ(::chmod(Native(u"sub").c_str(), 0500), 0);
    const int number = RunInChild([&] {
        ObeyPermissions();
        return static_cast<int>(Fail(u"sub/a", u"sub/b").Number());
    });
    EXPECT_EQ(number, static_cast<int>(ErrorNumber::PermissionDenied));
    EXPECT_EQ(Files(), (Tree{{"sub/", ""}, {"sub/a", "one"}}));
}

// Each way on its own: a file system may know only the last of them.
class RenameWay : public Rename,
                  public testing::WithParamInterface<int (*)(const Bytes&, const Bytes&)> {
protected:
    int Try(TextView from, TextView to) { return GetParam()(Native(from), Native(to)); }
};

TEST_P(RenameWay, TakesTheNameAndKeepsTheFile) {
    SetModificationTime(folder_.File(u"a", "one"), 1'234'567'890'123'456'789);
    EXPECT_EQ(Try(u"a", u"b"), 0);
    EXPECT_EQ(Files(), (Tree{{"b", "one"}}));
    EXPECT_EQ(ModificationTime(folder_ / u"b"), 1'234'567'890'123'456'789);
}

TEST_P(RenameWay, NeverReplaces) {
    (void)folder_.File(u"a", "one");
    (void)folder_.File(u"b", "two");
    (void)folder_.Link(u"c", u"none");
    (void)folder_.Folder(u"d");
    for (const TextView target : {u"b", u"c", u"d"}) EXPECT_EQ(Try(u"a", target), EEXIST);
    EXPECT_EQ(ListTree(folder_.Path()), (std::vector<Bytes>{"a", "b", "c", "d/"}));
    EXPECT_EQ(ReadFile(folder_ / u"b"), "two");
}

TEST_P(RenameWay, LeavesNothingBehindWhenItFails) {
    EXPECT_EQ(Try(u"none", u"b"), ENOENT);
    EXPECT_TRUE(ListTree(folder_.Path()).empty());
}

TEST_P(RenameWay, RenamesLinksAsLinks) {
    (void)folder_.Link(u"a", u"none");
    EXPECT_EQ(Try(u"a", u"b"), 0);
    EXPECT_EQ(ListTree(folder_.Path()), std::vector<Bytes>{"b"});
}

INSTANTIATE_TEST_SUITE_P(Ways, RenameWay,
                         testing::Values(posix::RenameByFlag, posix::RenameByLink,
                                         posix::RenameByClaim));

}  // namespace
}  // namespace mdlPLM
