// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/HostError.h"

#include <cerrno>

namespace Dorvane {

namespace {

int NumberOf(int code, HostAction action) {
    switch (code) {
        case ENOENT: return action == HostAction::Folder ? PathNotFound : FileNotFound;
        case ENOTDIR: return PathNotFound;
        case EACCES:
        case EPERM: return action == HostAction::Read ? PermissionDenied : PathFileAccess;
        case EROFS:
        case EISDIR:
        case ENOTEMPTY: return PathFileAccess;
        case EBUSY:
        case ETXTBSY: return PermissionDenied;
        case EEXIST: return action == HostAction::Folder ? PathFileAccess : FileAlreadyExists;
        case ENOSPC:
        case EFBIG: return DiskFull;
        case EMFILE:
        case ENFILE: return TooManyFiles;
        case ENXIO:
        case ENODEV: return DeviceUnavailable;
        case EXDEV: return CannotRenameAcrossDrives;
        case ENAMETOOLONG:
        case EINVAL:
        case EILSEQ: return BadFileName;
        case ENOMEM: return OutOfMemory;
        default: return DeviceIoError;
    }
}

}  // namespace

RunTimeError HostError(int code, HostAction action, const std::string& path) {
    return RunTimeError(NumberOf(code, action), path);
}

}  // namespace Dorvane
