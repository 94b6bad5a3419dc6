// SPDX-License-Identifier: GPL-3.0-or-later
#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include <cerrno>

#include "core/HostError.h"
#include "core/HostLock.h"
#include "core/HostWindows.h"

namespace Dorvane::Host {

namespace {

constexpr DWORD LongestHolder = 200;

std::string ReadHolder(HANDLE file) {
    std::string text(LongestHolder, '\0');
    DWORD count = 0;
    SetFilePointerEx(file, {}, nullptr, FILE_BEGIN);
    if (ReadFile(file, text.data(), LongestHolder, &count, nullptr) == 0)
        count = 0;
    text.resize(count);
    return text;
}

std::string HolderOf(const std::string& path) {
    const HANDLE file =
        CreateFileW(Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return "";
    std::string holder = ReadHolder(file);
    CloseHandle(file);
    return holder;
}

// The content only tells who it is; a full disk keeps nobody from the lock.
void WriteHolder(HANDLE file, const std::string& holder) {
    DWORD count = 0;
    SetFilePointerEx(file, {}, nullptr, FILE_BEGIN);
    if (SetEndOfFile(file) != 0)
        WriteFile(file, holder.data(), static_cast<DWORD>(holder.size()), &count, nullptr);
}

std::string Variable(const char* name) {
    std::string value(256, '\0');
    value.resize(GetEnvironmentVariableA(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

}  // namespace

std::string ProcessName() {
    return Variable("USERNAME") + " on " + Variable("COMPUTERNAME") + ", process " +
           std::to_string(GetCurrentProcessId());
}

// Opening it so that nobody else may write it is the lock, which the file does not outlive.
LockTry TryLock(const std::string& path, const std::string& holder) {
    const HANDLE file =
        CreateFileW(Wide(path).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                    OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        const int code = ErrnoOf(GetLastError());
        if (code == EBUSY)
            return {LockState::Busy, -1, HolderOf(path)};
        if (code == EACCES || code == EROFS || code == ENOENT || code == ENOTDIR)
            return {};
        throw HostError(code, HostAction::Write, path);
    }
    LockTry held{LockState::Held, reinterpret_cast<std::intptr_t>(file), ReadHolder(file)};
    WriteHolder(file, holder);
    return held;
}

void Unlock(std::intptr_t handle, const std::string& /*path*/) {
    CloseHandle(reinterpret_cast<HANDLE>(handle));
}

}  // namespace Dorvane::Host
