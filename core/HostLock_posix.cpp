// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "core/Host.h"
#include "core/HostError.h"
#include "core/HostLock.h"
#include "core/HostPosix.h"

namespace Dorvane::Host {

namespace {

constexpr std::size_t LongestHolder = 200;

std::string UserName() {
    const passwd* const user = getpwuid(geteuid());
    return user != nullptr ? user->pw_name : "user " + std::to_string(geteuid());
}

std::string ComputerName() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "an unnamed computer";
}

std::string ReadHolder(int file) {
    std::string text(LongestHolder, '\0');
    const ssize_t count = pread(file, text.data(), text.size(), 0);
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return text;
}

// -1 with errno when it cannot be opened. Whoever may write the folder may lock it, whoever made the file.
int OpenLock(const std::string& path) {
    const int made = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (made >= 0)
        fchmod(made, 0666);
    return made >= 0 || errno != EEXIST ? made : open(path.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC);
}

bool IsOutOfReach(int code) {
    return code == EACCES || code == EPERM || code == EROFS || code == ELOOP || code == ENOTDIR;
}

// The content only tells who it is; a full disk keeps nobody from the lock.
void WriteHolder(int file, const std::string& holder) {
    if (ftruncate(file, 0) == 0 && pwrite(file, holder.data(), holder.size(), 0) < 0)
        errno = 0;
}

}  // namespace

std::string ProcessName() {
    static const std::string person = UserName() + " on " + ComputerName();
    return person + ", process " + std::to_string(getpid());
}

LockTry TryLock(const std::string& path, const std::string& holder) {
    for (;;) {
        const int file = OpenLock(path);
        if (file < 0 && errno == ENOENT && Inspect(path.substr(0, path.find_last_of('/'))).IsFolder)
            continue;  // its holder has just taken it away
        if (file < 0 && (IsOutOfReach(errno) || errno == ENOENT))
            return {};
        if (file < 0 && (errno == EBUSY || errno == ETXTBSY))
            return {LockState::Busy, -1, ""};
        if (file < 0)
            throw HostError(errno, HostAction::Write, path);
        const Locking locked = LockWhole(file);
        if (locked != Locking::Done) {
            LockTry failed;
            if (locked == Locking::Busy)
                failed = {LockState::Busy, -1, ReadHolder(file)};
            close(file);
            return failed;
        }
        if (!IsStill(path, file)) {
            close(file);
            continue;
        }
        LockTry held{LockState::Held, file, ReadHolder(file)};
        WriteHolder(file, holder);
        return held;
    }
}

// The lock is let go by name: a program that was started meanwhile may still have the file open.
void Unlock(std::intptr_t handle, const std::string& path) {
    const int file = static_cast<int>(handle);
    unlink(path.c_str());
    struct flock whole {};
    whole.l_type = F_UNLCK;
    whole.l_whence = SEEK_SET;
    fcntl(file, F_OFD_SETLK, &whole);
    close(file);
}

}  // namespace Dorvane::Host
