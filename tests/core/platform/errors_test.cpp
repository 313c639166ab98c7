#include "core/platform/errors.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace mdlPLM {
namespace {

TEST(Errors, EveryNumberHasItsDescription) {
    const std::pair<int, TextView> expected[] = {
        {5, u"Invalid procedure call or argument"},
        {6, u"Overflow"},
        {7, u"Out of memory"},
        {13, u"Type mismatch"},
        {52, u"Bad file name or number"},
        {53, u"File not found"},
        {55, u"File already open"},
        {57, u"Device I/O error"},
        {58, u"File already exists"},
        {61, u"Disk full"},
        {62, u"Input past end of file"},
        {63, u"Bad record number"},
        {67, u"Too many files"},
        {68, u"Device unavailable"},
        {70, u"Permission denied"},
        {71, u"Disk not ready"},
        {74, u"Can't rename with different drive"},
        {75, u"Path/File access error"},
        {76, u"Path not found"},
    };
    for (const auto& [number, words] : expected)
        EXPECT_EQ(Describe(static_cast<ErrorNumber>(number)), words) << number;
}

TEST(Errors, SystemCodesMapToTheirNumbers) {
    const std::pair<int, int> expected[] = {
        {0, 0},          {ENOENT, 53}, {ENOTDIR, 76},      {EACCES, 70}, {EPERM, 70},
        {EEXIST, 58},    {ENOSPC, 61}, {EDQUOT, 61},       {EFBIG, 61},  {EMFILE, 67},
        {ENFILE, 67},    {EXDEV, 74},  {ENAMETOOLONG, 52}, {EINVAL, 52}, {EBUSY, 55},
        {EISDIR, 75},    {EROFS, 75},  {ELOOP, 75},        {ENODEV, 68}, {ENXIO, 68},
        {ENOMEDIUM, 71}, {ENOMEM, 7},  {EOVERFLOW, 6},
    };
    for (const auto& [code, number] : expected)
        EXPECT_EQ(static_cast<int>(ErrorFromSystem(code)), number) << code;
}

TEST(Errors, AnyOtherCodeIsADeviceError) {
    EXPECT_EQ(ErrorFromSystem(EIO), ErrorNumber::DeviceIo);
    EXPECT_EQ(ErrorFromSystem(123456), ErrorNumber::DeviceIo);
}

TEST(Errors, TheMessageHasNumberLineBreakAndDescription) {
    EXPECT_EQ(ErrorMessage(ErrorNumber::PermissionDenied), u"Error: 70\r\nPermission denied");
    EXPECT_EQ(ErrorMessage(ErrorNumber::DifferentDrive),
              u"Error: 74\r\nCan't rename with different drive");
}

TEST(Errors, AStatusIsOkUntilItHoldsAnError) {
    EXPECT_TRUE(Status().Ok());
    EXPECT_TRUE(Status(ErrorNumber::None).Ok());
    EXPECT_FALSE(Status(ErrorNumber::DiskFull).Ok());
    EXPECT_EQ(Status(ErrorNumber::DiskFull).Number(), ErrorNumber::DiskFull);
}

}  // namespace
}  // namespace mdlPLM
