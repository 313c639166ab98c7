#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "core/platform/disk.h"
#include "core/platform/dos_attributes.h"
#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

Bytes FromHex(BytesView hex) {
    Bytes bytes;
    const auto digit = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes.push_back(static_cast<char>(digit(hex[i]) * 16 + digit(hex[i + 1])));
    return bytes;
}

// Records of each version with the attributes 0x22 and a creation time, as Samba packs them.
const Bytes PackedOne = FromHex(
    "30783232000001000100000022000000"
    "000000000000000000000000000000000000000080d5e1a3c29cd7010000000000000000");
const Bytes PackedThree = FromHex(
    "3078323200000300030000001100000022000000"
    "000000000000000000000000000000000000000080d5e1a3c29cd7010000000000000000");
const Bytes PackedFour = FromHex(
    "00000400040000001100000022000000"
    "000000000000000080d5e1a3c29cd701");
const Bytes PackedFive = FromHex("0000050005000000110000002200000080d5e1a3c29cd701");

TEST(DosAttributes, BothFormsAreRead) {
    EXPECT_EQ(ParseDosAttributes("0x20"), 0x20U);
    EXPECT_EQ(ParseDosAttributes(Bytes("0x22\0", 5)), 0x22U);
    for (const Bytes& packed : {PackedOne, PackedThree, PackedFour, PackedFive})
        EXPECT_EQ(ParseDosAttributes(packed), 0x22U);
}

TEST(DosAttributes, OfARecordThatIsNotKnownTheTextInFrontCounts) {
    EXPECT_EQ(ParseDosAttributes(Bytes("0x20\0\0\7\0\7\0\0\0\2\0\0\0\2\0\0\0", 20)), 0x20U);
    EXPECT_EQ(ParseDosAttributes(PackedThree.substr(0, 10)), 0x22U);
}

TEST(DosAttributes, AnythingElseIsNothing) {
    const Bytes others[] = {"",
                            "0x",
                            "20",
                            "0xZZ",
                            "0x20 ",
                            "0x123456789",
                            Bytes(3, '\0'),
                            Bytes(40, '\0'),
                            PackedFour.substr(0, 15)};
    for (const Bytes& contents : others) EXPECT_FALSE(ParseDosAttributes(contents)) << contents;
    Bytes notValid = PackedFour;
    notValid[8] = 0x10;
    EXPECT_FALSE(ParseDosAttributes(notValid));
}

TEST(DosAttributes, ThePlainFormIsWritten) {
    EXPECT_EQ(RenderDosAttributes("", 0x22), "0x22");
    EXPECT_EQ(RenderDosAttributes("0x20", 0x2), "0x2");
    EXPECT_EQ(RenderDosAttributes("rubbish", 0), "0x0");
}

TEST(DosAttributes, APackedRecordKeepsItsOtherFields) {
    Bytes expected = PackedFour;
    expected[12] = 0x02;
    EXPECT_EQ(RenderDosAttributes(PackedFour, 0x2), expected);
    const Bytes three = RenderDosAttributes(PackedThree, 0x2);
    EXPECT_EQ(ParseDosAttributes(three), 0x2U);
    EXPECT_EQ(three.substr(16), PackedThree.substr(20));
    const Bytes one = RenderDosAttributes(PackedOne, 0x2);
    EXPECT_EQ(ParseDosAttributes(one), 0x2U);
    EXPECT_EQ(one.substr(12), PackedOne.substr(16));
}

class FileAttributes : public testing::Test {
protected:
    [[nodiscard]] mode_t Mode() const {
        struct stat data {};
        EXPECT_EQ(::stat(native_.c_str(), &data), 0);
        return data.st_mode & 07777;
    }
    void SetMode(mode_t mode) const { ASSERT_EQ(::chmod(native_.c_str(), mode), 0); }
    [[nodiscard]] Bytes Stored() const {
        char buffer[256];
        const ssize_t length = ::getxattr(native_.c_str(), "user.DOSATTRIB", buffer, sizeof buffer);
        return length < 0 ? Bytes() : Bytes(buffer, static_cast<std::size_t>(length));
    }
    // The attributes that the temporary folder's file system keeps beside the mode.
    [[nodiscard]] int KeptBesideMode() const {
        const Text probe = folder_.File(u"probe");
        const bool taken = ::setxattr(NativePath(probe).c_str(), "user.probe", "x", 1, 0) == 0;
        return taken ? Hidden | Archive : 0;
    }
    Status Set(int attributes) { return disk_.SetAttributes(path_, attributes); }

    const TempFolder folder_;
    const Text path_ = folder_.File(u"a", "one");
    const Bytes native_ = NativePath(path_);
    const int kept_ = KeptBesideMode();
    SystemDisk disk_;
};

TEST_F(FileAttributes, ReadOnlyIsTheWritePermission) {
    SetMode(0664);
    ASSERT_TRUE(Set(ReadOnly).Ok());
    EXPECT_EQ(Mode(), 0444U);
    EXPECT_EQ(GetAttributes(path_), ReadOnly);
    ASSERT_TRUE(Set(0).Ok());
    EXPECT_EQ(Mode(), 0644U);
    EXPECT_EQ(GetAttributes(path_), 0);
}

TEST_F(FileAttributes, NormalLeavesAWritableFileAlone) {
    SetMode(0640);
    ASSERT_TRUE(Set(0).Ok());
    EXPECT_EQ(Mode(), 0640U);
    EXPECT_EQ(Stored(), "");
}

TEST_F(FileAttributes, HiddenAndArchiveAreKeptInTheExtendedAttribute) {
    ASSERT_TRUE(Set(Hidden | Archive).Ok());
    EXPECT_EQ(Stored(), kept_ == 0 ? "" : "0x22");
    EXPECT_EQ(GetAttributes(path_), (Hidden | Archive) & kept_);
    ASSERT_TRUE(Set(Archive).Ok());
    EXPECT_EQ(GetAttributes(path_), Archive & kept_);
    ASSERT_TRUE(Set(0).Ok());
    EXPECT_EQ(GetAttributes(path_), 0);
}

TEST_F(FileAttributes, EverySumIsSetAndReadBackAfterEveryOther) {
    for (const int before : {0, 1, 2, 3, 32, 33, 34, 35}) {
        for (const int value : {0, 1, 2, 3, 32, 33, 34, 35}) {
            const int got = RunInChild([&] {
                ObeyPermissions();
                return Set(before).Ok() && Set(value).Ok() ? GetAttributes(path_) : 254;
            });
            EXPECT_EQ(got, value & (kept_ | ReadOnly)) << before;
        }
    }
}

TEST_F(FileAttributes, AFoldersAttributesHaveTheDirectoryBit) {
    EXPECT_EQ(GetAttributes(folder_.Path()), Directory);
    EXPECT_EQ(GetAttributes(folder_ / u"none"), 0);
}

TEST_F(FileAttributes, AMissingFileIsAnError) {
    EXPECT_EQ(disk_.SetAttributes(folder_ / u"none", Hidden).Number(), ErrorNumber::FileNotFound);
}

TEST_F(FileAttributes, AFileSystemWithoutThemIsNoFailure) {
    EXPECT_TRUE(disk_.SetAttributes(u"/proc/self/comm", Hidden).Ok());
    EXPECT_EQ(GetAttributes(u"/proc/self/comm"), 0);
}

TEST_F(FileAttributes, ALinkSetsThoseOfItsFile) {
    ASSERT_TRUE(disk_.SetAttributes(folder_.Link(u"link", u"a"), ReadOnly | Archive).Ok());
    EXPECT_EQ(GetAttributes(path_), ReadOnly | (Archive & kept_));
}

}  // namespace
}  // namespace mdlPLM
