// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <windows.h>

#include <cerrno>
#include <string>

// What the sources of this host share.
namespace Dorvane::Host {

inline std::wstring Wide(const std::string& utf8) {
    const int length =
        MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), length);
    return wide;
}

/// The errno that stands for an error of the host.
inline int ErrnoOf(DWORD code) {
    switch (code) {
        case ERROR_FILE_NOT_FOUND: return ENOENT;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_BAD_NETPATH: return ENOTDIR;
        case ERROR_ACCESS_DENIED: return EACCES;
        case ERROR_WRITE_PROTECT: return EROFS;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION: return EBUSY;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL: return ENOSPC;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS: return EEXIST;
        case ERROR_TOO_MANY_OPEN_FILES: return EMFILE;
        case ERROR_NOT_READY: return ENXIO;
        case ERROR_NOT_SAME_DEVICE: return EXDEV;
        case ERROR_INVALID_NAME:
        case ERROR_FILENAME_EXCED_RANGE: return EINVAL;
        case ERROR_DIR_NOT_EMPTY: return ENOTEMPTY;
        default: return EIO;
    }
}

}  // namespace Dorvane::Host
