// SPDX-License-Identifier: GPL-3.0-or-later
// Files on their way to their place. Who writes one holds a lock on it, so that what a dead program left
// behind is told from what a living one writes.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/Host.h"
#include "core/HostError.h"
#include "core/HostPosix.h"

namespace Dorvane::Host {

namespace {

constexpr int MostWriters = 100;  // of one file at a time

std::string StagedName(const std::string& target, int number) {
    return target + (number == 1 ? "" : "." + std::to_string(number)) + std::string(StagedEnding);
}

// Takes away what a dead program left behind under this name. A link is never followed.
bool TakeRemainsAway(const std::string& staged) {
    const Descriptor file(open(staged.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.Number < 0)
        return errno == ENOENT;
    return LockWhole(file.Number) == Locking::Done && IsStill(staged, file.Number) &&
           unlink(staged.c_str()) == 0;
}

// A new file that is locked; -1 when another program has this name. Raises where no file can be made.
int OpenNew(const std::string& staged, const std::string& target) {
    for (bool again = false;; again = true) {
        const int file = open(staged.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (file >= 0) {
            // Another one may have taken it for remains before it was locked.
            const bool locked = LockWhole(file) != Locking::Busy;
            errno = 0;
            if (locked && IsStill(staged, file))
                return file;
            const int failure = errno;
            close(file);
            if (!locked || failure == 0 || failure == ENOENT)
                return -1;
            unlink(staged.c_str());
            Raise(failure, HostAction::Write, target);
        }
        if (errno != EEXIST)
            Raise(errno == ENOENT ? ENOTDIR : errno, HostAction::Write, target);
        if (again || !TakeRemainsAway(staged))
            return -1;
    }
}

}  // namespace

std::intptr_t OpenStaged(std::string& staged, const std::string& target) {
    struct stat former {};
    const bool replaces = stat(target.c_str(), &former) == 0;
    if (replaces && !S_ISREG(former.st_mode))
        throw HostError(EISDIR, HostAction::Write, target);
    if (replaces && faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        throw HostError(errno, HostAction::Write, target);
    for (int number = 1; number <= MostWriters; ++number) {
        staged = StagedName(target, number);
        const int file = OpenNew(staged, target);
        if (file < 0)
            continue;
        if (replaces)
            fchmod(file, former.st_mode & 07777);
        return file;
    }
    throw HostError(EBUSY, HostAction::Write, target);
}

void WriteStaged(std::intptr_t handle, std::string_view content) {
    const int file = static_cast<int>(handle);
    if (ftruncate(file, 0) != 0 || lseek(file, 0, SEEK_SET) != 0)
        throw HostError(errno, HostAction::Write, "");
    WriteAll(file, content, "");
}

void CloseStaged(std::intptr_t handle) {
    close(static_cast<int>(handle));
}

void CommitStaged(std::intptr_t /*handle*/, const std::string& staged, const std::string& target) {
    if (rename(staged.c_str(), target.c_str()) != 0)
        Raise(errno, HostAction::Write, target);
    FlushFolder(ParentOf(target));
}

void CopyTimeStamp(const std::string& from, std::intptr_t handle) {
    struct stat info {};
    if (stat(from.c_str(), &info) != 0)
        Raise(errno, HostAction::Read, from);
    const timespec times[2] = {info.st_atim, info.st_mtim};
    if (futimens(static_cast<int>(handle), times) != 0)
        Raise(errno, HostAction::Write, from);
}

void FlushStaged(std::intptr_t handle, const std::string& target) {
    Flush(static_cast<int>(handle), target);
}

void DeleteRemains(const std::string& staged) {
    TakeRemainsAway(staged);
}

}  // namespace Dorvane::Host
