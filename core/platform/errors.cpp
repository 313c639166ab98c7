#include "core/platform/errors.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include "core/text/language.h"

namespace mdlPLM {

namespace {

struct Description {
    ErrorNumber Number;
    TextView Words;
};

constexpr std::array<Description, 20> Descriptions = {{
    {ErrorNumber::InvalidProcedureCall,
     PLM_TRANSLATE_TEXT("Texts", "Invalid procedure call or argument")},
    {ErrorNumber::Overflow, PLM_TRANSLATE_TEXT("Texts", "Overflow")},
    {ErrorNumber::OutOfMemory, PLM_TRANSLATE_TEXT("Texts", "Out of memory")},
    {ErrorNumber::TypeMismatch, PLM_TRANSLATE_TEXT("Texts", "Type mismatch")},
    {ErrorNumber::BadFileName, PLM_TRANSLATE_TEXT("Texts", "Bad file name or number")},
    {ErrorNumber::FileNotFound, PLM_TRANSLATE_TEXT("Texts", "File not found")},
    {ErrorNumber::FileAlreadyOpen, PLM_TRANSLATE_TEXT("Texts", "File already open")},
    {ErrorNumber::DeviceIo, PLM_TRANSLATE_TEXT("Texts", "Device I/O error")},
    {ErrorNumber::FileAlreadyExists, PLM_TRANSLATE_TEXT("Texts", "File already exists")},
    {ErrorNumber::DiskFull, PLM_TRANSLATE_TEXT("Texts", "Disk full")},
    {ErrorNumber::InputPastEnd, PLM_TRANSLATE_TEXT("Texts", "Input past end of file")},
    {ErrorNumber::BadRecordNumber, PLM_TRANSLATE_TEXT("Texts", "Bad record number")},
    {ErrorNumber::TooManyFiles, PLM_TRANSLATE_TEXT("Texts", "Too many files")},
    {ErrorNumber::DeviceUnavailable, PLM_TRANSLATE_TEXT("Texts", "Device unavailable")},
    {ErrorNumber::PermissionDenied, PLM_TRANSLATE_TEXT("Texts", "Permission denied")},
    {ErrorNumber::DiskNotReady, PLM_TRANSLATE_TEXT("Texts", "Disk not ready")},
    {ErrorNumber::DifferentDrive, PLM_TRANSLATE_TEXT("Texts", "Can't rename with different drive")},
    {ErrorNumber::PathFileAccess, PLM_TRANSLATE_TEXT("Texts", "Path/File access error")},
    {ErrorNumber::PathNotFound, PLM_TRANSLATE_TEXT("Texts", "Path not found")},
    {ErrorNumber::None, u""},
}};

struct SystemCode {
    int Code;
    ErrorNumber Number;
};

// EINVAL is what file systems with rules of their own answer to a name they do not take; EFBIG is a
// quota or a limit on the size of files; the codes about access have no better number than 75.
constexpr SystemCode SystemCodes[] = {
    {0, ErrorNumber::None},
    {ENOENT, ErrorNumber::FileNotFound},
    {ENOTDIR, ErrorNumber::PathNotFound},
    {EACCES, ErrorNumber::PermissionDenied},
    {EPERM, ErrorNumber::PermissionDenied},
    {EEXIST, ErrorNumber::FileAlreadyExists},
    {ENAMETOOLONG, ErrorNumber::BadFileName},
    {EINVAL, ErrorNumber::BadFileName},
    {EILSEQ, ErrorNumber::BadFileName},
    {EBADF, ErrorNumber::BadFileName},
    {ENOSPC, ErrorNumber::DiskFull},
    {EFBIG, ErrorNumber::DiskFull},
#ifdef EDQUOT
    {EDQUOT, ErrorNumber::DiskFull},
#endif
    {EBUSY, ErrorNumber::FileAlreadyOpen},
    {ETXTBSY, ErrorNumber::FileAlreadyOpen},
    {EAGAIN, ErrorNumber::FileAlreadyOpen},
    {EMFILE, ErrorNumber::TooManyFiles},
    {ENFILE, ErrorNumber::TooManyFiles},
    {ENODEV, ErrorNumber::DeviceUnavailable},
    {ENXIO, ErrorNumber::DeviceUnavailable},
#ifdef ESTALE
    {ESTALE, ErrorNumber::DeviceUnavailable},
#endif
#ifdef ENOMEDIUM
    {ENOMEDIUM, ErrorNumber::DiskNotReady},
#endif
    {ETIMEDOUT, ErrorNumber::DiskNotReady},
    {EXDEV, ErrorNumber::DifferentDrive},
    {EOVERFLOW, ErrorNumber::Overflow},
    {ENOMEM, ErrorNumber::OutOfMemory},
    {EISDIR, ErrorNumber::PathFileAccess},
    {EROFS, ErrorNumber::PathFileAccess},
    {ELOOP, ErrorNumber::PathFileAccess},
    {ENOTEMPTY, ErrorNumber::PathFileAccess},
    {EOPNOTSUPP, ErrorNumber::PathFileAccess},
};

}  // namespace

TextView Describe(ErrorNumber number) {
    const auto* row = std::find_if(Descriptions.begin(), Descriptions.end(),
                                   [&](const Description& d) { return d.Number == number; });
    return row == Descriptions.end() ? TextView() : row->Words;
}

ErrorNumber ErrorFromSystem(int systemCode) {
    const auto* row = std::find_if(std::begin(SystemCodes), std::end(SystemCodes),
                                   [&](const SystemCode& c) { return c.Code == systemCode; });
    return row == std::end(SystemCodes) ? ErrorNumber::DeviceIo : row->Number;
}

Text ErrorMessage(ErrorNumber number) {
    Text message = u"Error: ";
    message.append(NumberText(static_cast<long long>(number))).append(CrLf);
    return message.append(Describe(number));
}

}  // namespace mdlPLM
