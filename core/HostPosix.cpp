// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/HostPosix.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace Dorvane::Host {

namespace {

bool FolderIsThere(const std::string& folder) {
    struct stat info {};
    return stat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool KnowsNoLocks(int code) {
    return code == ENOLCK || code == EINVAL || code == EOPNOTSUPP || code == ENOSYS;
}

}  // namespace

std::string ParentOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

[[noreturn]] void Raise(int code, HostAction action, const std::string& path) {
    if (code == EDQUOT)
        code = ENOSPC;  // a used-up quota is a full disk to the operator
    if (code == ENOENT && !FolderIsThere(ParentOf(path)))
        throw HostError(code, HostAction::Folder, path);
    throw HostError(code, action, path);
}

void WriteAll(int descriptor, std::string_view content, const std::string& path) {
    while (!content.empty()) {
        const ssize_t written = write(descriptor, content.data(), content.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            Raise(errno, HostAction::Write, path);
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

void Flush(int descriptor, const std::string& path) {
    if (fsync(descriptor) != 0 && errno != EINVAL && errno != ENOTSUP)
        Raise(errno, HostAction::Write, path);
}

void FlushFolder(const std::string& folder) {
    const Descriptor directory(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.Number >= 0)
        fsync(directory.Number);
}

Locking LockWhole(int descriptor) {
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    if (fcntl(descriptor, F_OFD_SETLK, &whole) == 0)
        return Locking::Done;
    return KnowsNoLocks(errno) ? Locking::Unknown : Locking::Busy;
}

bool IsStill(const std::string& path, int descriptor) {
    struct stat opened {};
    struct stat there {};
    return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &there) == 0 &&
           opened.st_dev == there.st_dev && opened.st_ino == there.st_ino;
}

}  // namespace Dorvane::Host
