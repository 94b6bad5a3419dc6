// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <string>

namespace Dorvane {

/// The classic numbers that this system raises itself or makes from a host error.
enum ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    InternalError = 51,
    BadFileName = 52,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyOpen = 55,
    DeviceIoError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    CannotRenameAcrossDrives = 74,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// Every failure of the program: a number, a description and a source. `Source` names the component that
/// raised it; ReportError adds the procedure that reports it.
struct RunTimeError : std::exception {
    /// The description is the classic one of the number, followed by `detail` (a path, a name) if given.
    explicit RunTimeError(int number, const std::string& detail = "");

    const char* what() const noexcept override { return Description.c_str(); }

    int Number;
    std::string Description;
    std::string Source = "Dorvane";
};

/// The classic description of a number, "Application-defined or object-defined error" when it has none.
std::string ErrorDescription(int number);

}  // namespace Dorvane
