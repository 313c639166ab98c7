#include "core/platform/rewrite.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/file_limit.h"
#include "tests/support/folder_watch.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

struct stat DataOf(const Text& path) {
    struct stat data {};
    EXPECT_EQ(::lstat(NativePath(path).c_str(), &data), 0);
    return data;
}

Status WriteAll(Rewrite& rewrite) {
    bool written = false;
    while (!written)
        if (const Status status = rewrite.Step(written); !status.Ok()) return status;
    const Status flushed = rewrite.Flush();
    return flushed.Ok() ? rewrite.TakeName() : flushed;
}

class Rewriting : public testing::Test {
protected:
    static Status Write(const Text& path, const NewContents& contents) {
        File old;
        const Status opened = old.Open(path, File::Mode::ReadWrite);
        if (!opened.Ok()) return opened;
        std::unique_ptr<Rewrite> rewrite;
        const Status begun = Rewrite::Begin(path, old, contents, rewrite);
        return begun.Ok() ? WriteAll(*rewrite) : begun;
    }
    static Status Write(const Text& path, BytesView contents) {
        return Write(path, {contents, 0, 0, {}});
    }
    static Status Check(const Text& path, std::int64_t size) {
        File old;
        const Status opened = old.Open(path, File::Mode::ReadWrite);
        return opened.Ok() ? Rewrite::Check(path, old, size) : opened;
    }
    [[nodiscard]] std::vector<Bytes> Names() const { return ListTree(folder_.Path()); }
    // The name of the only temporary file.
    [[nodiscard]] Bytes Temporary() const {
        for (const Bytes& name : Names())
            if (name.substr(0, 4) == "plm-") return name;
        return {};
    }
    static int InChild(const std::function<Status()>& work) {
        return RunInChild([&] { return static_cast<int>(work().Number()); });
    }
    static int AsAnybody(const std::function<Status()>& work) {
        return InChild([&] {
            ObeyPermissions();
            return work();
        });
    }

    TempFolder folder_;
    Text path_ = folder_.File(u"a.mp3", "old contents");
};

constexpr auto Denied = static_cast<int>(ErrorNumber::PermissionDenied);

TEST_F(Rewriting, TheNewFileIsMadeBesideTheOldOneAndTakesItsNameInOneStep) {
    const test::FolderWatch watch(folder_.Path());
    File old;
    ASSERT_TRUE(old.Open(path_, File::Mode::ReadWrite).Ok());
    std::unique_ptr<Rewrite> rewrite;
    ASSERT_TRUE(Rewrite::Begin(path_, old, {"head ", 4, 8, " tail"}, rewrite).Ok());
    const Bytes made = Temporary();
    EXPECT_EQ(made.substr(made.size() - 4), ".tmp");
    ASSERT_TRUE(WriteAll(*rewrite).Ok());
    EXPECT_EQ(ReadFile(path_), "head contents tail");
    rewrite.reset();
    ASSERT_TRUE(old.Close().Ok());
    EXPECT_EQ(watch.Seen(),
              (std::vector<Bytes>{"created " + made, "written " + made, "renamed away " + made,
                                  "renamed to a.mp3", "written a.mp3"}));
}

TEST_F(Rewriting, UntilTheNameIsTakenTheOldFileStands) {
    File old;
    ASSERT_TRUE(old.Open(path_, File::Mode::ReadWrite).Ok());
    std::unique_ptr<Rewrite> rewrite;
    ASSERT_TRUE(Rewrite::Begin(path_, old, {"new", 0, 12, {}}, rewrite).Ok());
    bool written = false;
    ASSERT_TRUE(rewrite->Step(written).Ok());
    EXPECT_TRUE(written);
    ASSERT_TRUE(rewrite->Flush().Ok());
    EXPECT_EQ(ReadFile(path_), "old contents");
    rewrite.reset();
    EXPECT_EQ(ReadFile(path_), "old contents");
    EXPECT_EQ(Names(), std::vector<Bytes>{"a.mp3"});
}

TEST_F(Rewriting, LongFilesAreCarriedOverInPieces) {
    const Bytes audio = test::Noise(9'000'001);
    WriteFile(path_, "12345" + audio + "trailer");
    File old;
    ASSERT_TRUE(old.Open(path_, File::Mode::ReadWrite).Ok());
    std::unique_ptr<Rewrite> rewrite;
    const auto length = static_cast<std::int64_t>(audio.size());
    ASSERT_TRUE(Rewrite::Begin(path_, old, {"head", 5, length, "tail"}, rewrite).Ok());
    int steps = 0;
    for (bool written = false; !written; ++steps) ASSERT_TRUE(rewrite->Step(written).Ok());
    EXPECT_EQ(steps, 3);
    ASSERT_TRUE(rewrite->Flush().Ok());
    ASSERT_TRUE(rewrite->TakeName().Ok());
    EXPECT_TRUE(ReadFile(path_) == "head" + audio + "tail");
}

TEST_F(Rewriting, AFileThatHasBecomeShorterIsAnError) {
    EXPECT_EQ(Write(path_, {"head", 4, 9, "tail"}).Number(), ErrorNumber::InputPastEnd);
    EXPECT_EQ(ReadFile(path_), "old contents");
    EXPECT_EQ(Names(), std::vector<Bytes>{"a.mp3"});
}

TEST_F(Rewriting, BeyondTheGreatestSizeOfAFileNothingIsWritten) {
    const test::FileLimit limit(12);
    EXPECT_EQ(Check(path_, 13).Number(), ErrorNumber::DiskFull);
    EXPECT_EQ(Write(path_, "new contents!").Number(), ErrorNumber::DiskFull);
    EXPECT_EQ(ReadFile(path_), "old contents");
    EXPECT_TRUE(Check(path_, 12).Ok());
    EXPECT_TRUE(Write(path_, "new contents").Ok());
    EXPECT_EQ(Names(), std::vector<Bytes>{"a.mp3"});
}

TEST_F(Rewriting, InAWriteProtectedFolderTheFileStays) {
    ASSERT_EQ(::chmod(NativePath(folder_.Path()).c_str(), 0555), 0);
    EXPECT_EQ(AsAnybody([&] { return Write(path_, "new"); }), Denied);
    EXPECT_EQ(AsAnybody([&] { return Check(path_, 3); }), Denied);
    EXPECT_EQ(ReadFile(path_), "old contents");
    ASSERT_EQ(::chmod(NativePath(folder_.Path()).c_str(), 0755), 0);
    EXPECT_EQ(Names(), std::vector<Bytes>{"a.mp3"});
}

TEST_F(Rewriting, AFileOfSomebodyElseInAFolderForEverybodyStays) {
    ASSERT_EQ(::chmod(NativePath(path_).c_str(), 0666), 0);
    ASSERT_EQ(::chmod(NativePath(folder_.Path()).c_str(), 01777), 0);
    EXPECT_TRUE(Check(path_, 3).Ok());
    if (::geteuid() != 0) return;  // only root can be somebody else
    const auto asSomebodyElse = [](const std::function<Status()>& work) {
        return InChild([&] { return ::seteuid(4242) == 0 ? work() : ErrorNumber::DeviceIo; });
    };
    EXPECT_EQ(asSomebodyElse([&] { return Check(path_, 3); }), Denied);
    EXPECT_EQ(asSomebodyElse([&] { return Write(path_, "new"); }), Denied);
    EXPECT_EQ(ReadFile(path_), "old contents");
    EXPECT_EQ(Names(), std::vector<Bytes>{"a.mp3"});
}

TEST_F(Rewriting, ModeAndOwnerAreKept) {
    for (const mode_t mode : {0600U, 0640U, 0664U, 0777U, 0444U}) {
        ASSERT_EQ(::chmod(NativePath(path_).c_str(), mode), 0);
        if (::geteuid() == 0) {
            ASSERT_EQ(::chown(NativePath(path_).c_str(), 1234, 4321), 0);
        }
        const struct stat before = DataOf(path_);
        ASSERT_TRUE(Write(path_, "new").Ok());
        const struct stat after = DataOf(path_);
        EXPECT_EQ(after.st_mode, before.st_mode);
        EXPECT_EQ(after.st_uid, before.st_uid);
        EXPECT_EQ(after.st_gid, before.st_gid);
        ASSERT_EQ(::chmod(NativePath(path_).c_str(), 0644), 0);
    }
}

TEST_F(Rewriting, TheTimeIsThatOfTheWriting) {
    SetModificationTime(path_, 1'000'000'000);
    ASSERT_TRUE(Write(path_, "new").Ok());
    EXPECT_GT(ModificationTime(path_), 1'000'000'000'000'000'000);
}

Bytes AttributeOf(const Bytes& path, const char* name) {
    char value[256] = {};
    const ssize_t size = ::getxattr(path.c_str(), name, value, sizeof value);
    return size < 0 ? "none" : Bytes(value, static_cast<std::size_t>(size));
}

TEST_F(Rewriting, TheUsersExtendedAttributesAreKept) {
    const Bytes native = NativePath(path_);
    // A file system without them keeps none: then there is nothing to compare, on both sides.
    const bool taken = ::setxattr(native.c_str(), "user.comment", "mine", 4, 0) == 0 &&
                       ::setxattr(native.c_str(), "user.empty", "", 0, 0) == 0;
    ASSERT_TRUE(Write(path_, "new").Ok());
    EXPECT_EQ(AttributeOf(native, "user.comment"), taken ? "mine" : "none");
    EXPECT_EQ(AttributeOf(native, "user.empty"), taken ? "" : "none");
}

constexpr const char* AccessList = "system.posix_acl_access";

// As linux/posix_acl_xattr.h has it: version 2, then tag, permissions and number of each entry.
Bytes AccessListOf(char forUser1234) {
    const auto entry = [](char tag, char permissions, Bytes id = "\xFF\xFF\xFF\xFF") {
        return Bytes({tag, '\0', permissions, '\0'}) + id;
    };
    return Bytes("\2\0\0\0", 4) + entry(0x01, 6) + entry(0x02, forUser1234, {"\xD2\x04\0\0", 4}) +
           entry(0x04, 4) + entry(0x10, 6) + entry(0x20, 0);
}

TEST_F(Rewriting, TheAccessControlListIsKept) {
    const Bytes native = NativePath(path_);
    const Bytes list = AccessListOf(6);
    const bool taken = ::setxattr(native.c_str(), AccessList, list.data(), list.size(), 0) == 0;
    const mode_t mode = DataOf(path_).st_mode;
    ASSERT_TRUE(Write(path_, "new").Ok());
    EXPECT_EQ(AttributeOf(native, AccessList), taken ? list : "none");
    EXPECT_EQ(DataOf(path_).st_mode, mode);
}

TEST_F(Rewriting, WhatTheFolderGivesToNewFilesIsNotGivenToOneThatIsNotNew) {
    const Bytes native = NativePath(path_);
    const Bytes list = AccessListOf(6);
    (void)::setxattr(NativePath(folder_.Path()).c_str(), "system.posix_acl_default", list.data(),
                     list.size(), 0);
    const mode_t mode = DataOf(path_).st_mode;
    ASSERT_TRUE(Write(path_, "new").Ok());
    EXPECT_EQ(AttributeOf(native, AccessList), "none");
    EXPECT_EQ(DataOf(path_).st_mode, mode);
}

TEST_F(Rewriting, ASymbolicLinkStaysAndItsFileIsWritten) {
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

TEST_F(Rewriting, AnotherHardLinkKeepsTheOldContents) {
    const Text other = folder_ / u"other.mp3";
    ASSERT_EQ(::link(NativePath(path_).c_str(), NativePath(other).c_str()), 0);
    EXPECT_TRUE(Write(path_, "new").Ok());
    EXPECT_EQ(ReadFile(path_), "new");
    EXPECT_EQ(ReadFile(other), "old contents");
}

class Locking : public Rewriting {
protected:
    void SetUp() override {
        ASSERT_TRUE(first_.Open(path_, File::Mode::ReadWrite).Ok());
        ASSERT_TRUE(second_.Open(path_, File::Mode::ReadWrite).Ok());
    }
    // The clock of a file system ticks some hundred times a second: until a new file has another
    // time of change than the one that was looked at.
    void WaitForTheClock() {
        const Text probe = folder_ / u"probe";
        WriteFile(probe, "0");
        const std::int64_t now = ModificationTime(probe);
        while (ModificationTime(probe) == now) WriteFile(probe, "1");
    }
    [[nodiscard]] bool Unchanged(const Text& path) const {
        bool unchanged = false;
        EXPECT_TRUE(first_.CompareAt(path, unchanged).Ok());
        return unchanged;
    }
    File first_;
    File second_;
};

TEST_F(Locking, KeepsOthersThatAskAwayUntilTheFileIsClosed) {
    EXPECT_FALSE(second_.IsLockedByAnother());
    EXPECT_TRUE(first_.Lock().Ok());
    EXPECT_TRUE(first_.Lock().Ok());
    EXPECT_FALSE(first_.IsLockedByAnother());
    EXPECT_TRUE(second_.IsLockedByAnother());
    EXPECT_EQ(second_.Lock().Number(), ErrorNumber::FileAlreadyOpen);
    EXPECT_TRUE(first_.Close().Ok());
    EXPECT_TRUE(second_.Lock().Ok());
}

TEST_F(Locking, HoldsBetweenProcessesAndGoesWithThem) {
    EXPECT_TRUE(first_.Lock().Ok());
    const auto locks = [&] {
        File file;
        (void)file.Open(path_, File::Mode::ReadWrite);
        return static_cast<int>(file.Lock().Number());
    };
    EXPECT_EQ(RunInChild(locks), static_cast<int>(ErrorNumber::FileAlreadyOpen));
    EXPECT_TRUE(first_.Close().Ok());
    EXPECT_EQ(RunInChild(locks), 0);
    EXPECT_TRUE(second_.Lock().Ok());
}

TEST_F(Locking, WhateverHappensToAFileShows) {
    const Bytes native = NativePath(path_);
    const auto looked = [&] {
        EXPECT_TRUE(first_.LookAgain().Ok());
        return Unchanged(path_);
    };
    EXPECT_TRUE(looked());
    EXPECT_FALSE(Unchanged(folder_ / u"none.mp3"));
    EXPECT_FALSE(Unchanged(folder_.File(u"other.mp3", "old contents")));
    EXPECT_TRUE(Unchanged(folder_.Link(u"link.mp3", u"a.mp3")));
    ASSERT_TRUE(second_.WriteAt(0, "OLD").Ok());
    EXPECT_FALSE(Unchanged(path_));
    EXPECT_TRUE(looked());
    ASSERT_EQ(::rename(NativePath(folder_ / u"other.mp3").c_str(), native.c_str()), 0);
    EXPECT_FALSE(Unchanged(path_));
}

TEST_F(Locking, WhateverHappensToAnOpenFileShows) {
    const Bytes native = NativePath(path_);
    const Bytes hard = NativePath(folder_ / u"hard.mp3");
    const Bytes other = NativePath(folder_.File(u"other.mp3", "old contents"));
    const std::vector<std::function<bool()>> events = {
        [&] { return second_.WriteAt(0, "OLD").Ok(); },
        [&] { return ::link(native.c_str(), hard.c_str()) == 0; },
        [&] { return ::rename(native.c_str(), (native + "x").c_str()) == 0; },
        [&] { return ::rename((native + "x").c_str(), native.c_str()) == 0; },
        [&] { return ::rename(other.c_str(), native.c_str()) == 0; },
        [&] { return ::unlink(hard.c_str()) == 0; },
    };
    bool unchanged = false;
    for (const auto& event : events) {
        WaitForTheClock();
        EXPECT_TRUE(first_.LookAgain().Ok());
        EXPECT_TRUE(first_.Compare(unchanged).Ok());
        EXPECT_TRUE(unchanged);
        EXPECT_TRUE(event());
        EXPECT_TRUE(first_.Compare(unchanged).Ok());
        EXPECT_FALSE(unchanged) << &event - events.data();
        if (&event == &events.back()) break;
    }
    EXPECT_TRUE(first_.LookAgain().Ok());
    EXPECT_TRUE(first_.Compare(unchanged).Ok());
    EXPECT_FALSE(unchanged) << "a file without a name";
}

TEST_F(Locking, ARenameOfOurOwnIsNoChangeButAWriteOfOthersIs) {
    const Text moved = folder_ / u"b.mp3";
    SetModificationTime(path_, 1'000'000'000);
    ASSERT_TRUE(first_.LookAgain().Ok());
    ASSERT_EQ(::rename(NativePath(path_).c_str(), NativePath(moved).c_str()), 0);
    first_.LookAgainAfterRename();
    EXPECT_TRUE(Unchanged(moved));
    ASSERT_TRUE(second_.WriteAt(0, "OLD").Ok());
    first_.LookAgainAfterRename();
    EXPECT_FALSE(Unchanged(moved));
}

}  // namespace
}  // namespace mdlPLM
