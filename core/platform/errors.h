// Run-time errors: the number and the description that a message shows.
#pragma once

#include <optional>

#include "core/text/text.h"

namespace mdlPLM {

/// The run-time error numbers of the system; each has one description (see Describe).
enum class ErrorNumber : int {
    None = 0,
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    TypeMismatch = 13,
    BadFileName = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIo = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    BadRecordNumber = 63,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    DifferentDrive = 74,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// The description of an error number, such as "Permission denied" for 70.
TextView Describe(ErrorNumber number);

/// The error number for a code of the operating system (errno on POSIX). A code of no row of its
/// own is PathFileAccess when it is about access and DeviceIo otherwise.
ErrorNumber ErrorFromSystem(int systemCode);

/// What an operation that can fail hands back: nothing, or the error.
class [[nodiscard]] Status {
public:
    Status() = default;
    Status(ErrorNumber number) : number_(number) {}  // NOLINT: errors convert on purpose
    [[nodiscard]] bool Ok() const { return number_ == ErrorNumber::None; }
    [[nodiscard]] ErrorNumber Number() const { return number_; }

private:
    ErrorNumber number_ = ErrorNumber::None;
};

/// "Error: " & number & CR LF & description, the text of the critical message box.
Text ErrorMessage(ErrorNumber number);

/// Where a tag operation reports an error that it has trapped.
class ErrorSink {
public:
    virtual ~ErrorSink() = default;
    /// `path` is the file concerned; it stands beside the message, never in it.
    virtual void Report(ErrorNumber number, TextView path) = 0;
};

/// Drops every report: for the filename engine, where a failed read only leaves fields empty.
class SilentErrors final : public ErrorSink {
public:
    void Report(ErrorNumber /*number*/, TextView /*path*/) override {}
};

}  // namespace mdlPLM
