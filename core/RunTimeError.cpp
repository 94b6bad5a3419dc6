// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/RunTimeError.h"

namespace Dorvane {

std::string ErrorDescription(int number) {
    switch (number) {
        case InvalidProcedureCall: return "Invalid procedure call or argument";
        case Overflow: return "Overflow";
        case OutOfMemory: return "Out of memory";
        case SubscriptOutOfRange: return "Subscript out of range";
        case DivisionByZero: return "Division by zero";
        case TypeMismatch: return "Type mismatch";
        case InternalError: return "Internal error";
        case BadFileName: return "Bad file name or number";
        case FileNotFound: return "File not found";
        case BadFileMode: return "Bad file mode";
        case FileAlreadyOpen: return "File already open";
        case DeviceIoError: return "Device I/O error";
        case FileAlreadyExists: return "File already exists";
        case DiskFull: return "Disk full";
        case InputPastEnd: return "Input past end of file";
        case TooManyFiles: return "Too many files";
        case DeviceUnavailable: return "Device unavailable";
        case PermissionDenied: return "Permission denied";
        case DiskNotReady: return "Disk not ready";
        case CannotRenameAcrossDrives: return "Can't rename with different drive";
        case PathFileAccess: return "Path/File access error";
        case PathNotFound: return "Path not found";
        default: return "Application-defined or object-defined error";
    }
}

RunTimeError::RunTimeError(int number, const std::string& detail)
    : Number(number), Description(ErrorDescription(number)) {
    if (!detail.empty())
        Description += ": " + detail;
}

}  // namespace Dorvane
