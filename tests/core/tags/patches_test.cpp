#include "core/tags/patches.h"

#include <gtest/gtest.h>

#include "tests/support/file_limit.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

class Patching : public testing::Test {
protected:
    void Open(const Bytes& contents) {
        ASSERT_TRUE(file_.Open(folder_.File(u"a", contents), File::Mode::ReadWrite).Ok());
    }
    Bytes Contents() { return ReadFile(folder_ / u"a"); }

    TempFolder folder_;
    File file_;
};

TEST_F(Patching, PatchesGoOverTheBytesAndBehindTheEnd) {
    Open("0123456789");
    EXPECT_TRUE(ApplyPatches(file_, {{8, "xyz"}, {0, "ab"}}).Ok());
    EXPECT_EQ(Contents(), "ab234567xyz");
}

TEST_F(Patching, AFailurePutsBackEveryPatchBeforeIt) {
    Open("0123456789");
    const test::FileLimit full(12);
    EXPECT_FALSE(ApplyPatches(file_, {{0, "ab"}, {9, "XYZ"}, {8, "abcdefgh"}}).Ok());
    EXPECT_EQ(Contents(), "0123456789");
}

TEST_F(Patching, WhatIsKnownToStandThereIsAskedForOnlyAfterAFailure) {
    Open("0123456789");
    const OldBytes never = []() -> std::vector<Bytes> {
        ADD_FAILURE();
        return {};
    };
    EXPECT_TRUE(ApplyPatches(file_, {{8, "xyz"}}, never).Ok());
    EXPECT_EQ(Contents(), "01234567xyz");
}

TEST_F(Patching, WhatIsKnownToStandThereIsPutBack) {
    Open("0123456789");
    const OldBytes old = [] { return std::vector<Bytes>{"01", "89"}; };
    const test::FileLimit full(12);
    EXPECT_FALSE(ApplyPatches(file_, {{0, "ab"}, {8, "abcdefgh"}}, old).Ok());
    EXPECT_EQ(Contents(), "0123456789");
}

}  // namespace
}  // namespace mdlPLM
