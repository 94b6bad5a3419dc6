// SPDX-License-Identifier: GPL-3.0-or-later
#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>
#undef LoadLibrary

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <vector>

#include "core/Host.h"
#include "core/HostError.h"
#include "core/HostWindows.h"
#include "core/OutsideProgram.h"

namespace Dorvane::Host {

namespace {

std::string Narrow(const std::wstring& wide) {
    const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0,
                                           nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(), length, nullptr,
                        nullptr);
    return utf8;
}

[[noreturn]] void RaiseLast(HostAction action, const std::string& path) {
    throw HostError(ErrnoOf(GetLastError()), action, path);
}

DateTime LocalTime(const FILETIME& stamp) {
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    FileTimeToSystemTime(&stamp, &universal);
    SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
    return {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond};
}

HANDLE HandleOf(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

void WriteAll(HANDLE file, std::string_view content, const std::string& path) {
    while (!content.empty()) {
        const DWORD wanted = static_cast<DWORD>(content.size() < (1u << 30) ? content.size() : (1u << 30));
        DWORD written = 0;
        if (WriteFile(file, content.data(), wanted, &written, nullptr) == 0)
            RaiseLast(HostAction::Write, path);
        content.remove_prefix(written);
    }
}

std::wstring Quoted(const std::string& word) {
    return L"\"" + Wide(word) + L"\"";
}

// Starts a program. Raises 53 when it cannot be started.
PROCESS_INFORMATION Spawn(const std::string& program, const std::vector<std::string>& arguments,
                          const std::string& folder, DWORD flags) {
    std::wstring line = Quoted(program);
    for (const std::string& argument : arguments)
        line += L" " + Quoted(argument);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    const std::wstring place = Wide(folder);
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, NORMAL_PRIORITY_CLASS | flags, nullptr,
                       place.empty() ? nullptr : place.c_str(), &start, &process) == 0)
        throw RunTimeError(FileNotFound, program);
    return process;
}

}  // namespace

bool PathsAreDrivePaths() {
    return true;
}

std::string EnvironmentVariable(const std::string& name) {
    const wchar_t* value = _wgetenv(Wide(name).c_str());
    return value == nullptr ? "" : Narrow(value);
}

void SetEnvironment(const std::string& name, const std::string& value) {
    _wputenv_s(Wide(name).c_str(), Wide(value).c_str());
}

std::string UserDataFolder() {
    return EnvironmentVariable("APPDATA") + "\\Dorvane\\";
}

std::string ProgramFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return Narrow(path.substr(0, path.find_last_of(L'\\') + 1));
}

std::string WorkingFolder() {
    std::error_code failure;
    return Narrow(std::filesystem::current_path(failure).wstring());
}

FileInfo Inspect(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    FileInfo result;
    if (GetFileAttributesExW(Wide(path).c_str(), GetFileExInfoStandard, &data) == 0) {
        const int code = ErrnoOf(GetLastError());
        if (code == ENOENT || code == ENOTDIR || code == EINVAL)
            return result;
        throw HostError(code, HostAction::Read, path);
    }
    result.Exists = true;
    result.IsFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    result.Size = (static_cast<std::int64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    result.Modified = LocalTime(data.ftLastWriteTime);
    return result;
}

bool DriveOrLinkIsThere(const std::string& path) {
    return GetDriveTypeW(Wide(path).c_str()) != DRIVE_NO_ROOT_DIR;
}

std::vector<std::string> FolderNames(const std::string& folder) {
    WIN32_FIND_DATAW data{};
    const HANDLE search = FindFirstFileW((Wide(folder) + L"\\*").c_str(), &data);
    if (search == INVALID_HANDLE_VALUE)
        RaiseLast(HostAction::Folder, folder);
    std::vector<std::string> names;
    do {
        const std::string name = Narrow(data.cFileName);
        if (name != "." && name != "..")
            names.push_back(name);
    } while (FindNextFileW(search, &data) != 0);
    FindClose(search);
    return names;
}

std::string RealPath(const std::string& path) {
    return path;
}

void CreateFolder(const std::string& path) {
    if (CreateDirectoryW(Wide(path).c_str(), nullptr) == 0)
        RaiseLast(HostAction::Folder, path);
}

void CreateLink(const std::string& link, const std::string&) {
    throw HostError(EINVAL, HostAction::Folder, link);
}

std::string LinkTarget(const std::string&) {
    return "";
}

bool MayWrite(const std::string& folder) {
    return _waccess(Wide(folder).c_str(), 2) == 0;
}

std::string ReadFile(const std::string& path) {
    const HANDLE file = CreateFileW(Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        RaiseLast(HostAction::Read, path);
    std::string content;
    std::string block(1 << 20, '\0');
    DWORD count = 0;
    BOOL read = TRUE;
    while ((read = ::ReadFile(file, block.data(), static_cast<DWORD>(block.size()), &count, nullptr)) != 0 &&
           count > 0)
        content.append(block, 0, count);
    const DWORD failure = GetLastError();
    CloseHandle(file);
    if (read == 0)
        throw HostError(ErrnoOf(failure), HostAction::Read, path);
    return content;
}

std::intptr_t OpenPieces(const std::string& path) {
    // Others may go on writing, replacing and renaming the file.
    const HANDLE file =
        CreateFileW(Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        RaiseLast(HostAction::Read, path);
    if (GetFileType(file) == FILE_TYPE_DISK)
        return reinterpret_cast<std::intptr_t>(file);
    CloseHandle(file);
    throw HostError(EISDIR, HostAction::Read, path);
}

std::size_t ReadPiece(std::intptr_t handle, std::int64_t offset, char* into, std::size_t count) {
    std::size_t filled = 0;
    while (filled < count) {
        const std::int64_t place = offset + static_cast<std::int64_t>(filled);
        OVERLAPPED where{};
        where.Offset = static_cast<DWORD>(place & 0xFFFFFFFF);
        where.OffsetHigh = static_cast<DWORD>(place >> 32);
        const DWORD wanted = static_cast<DWORD>(count - filled < (1u << 30) ? count - filled : (1u << 30));
        DWORD got = 0;
        if (::ReadFile(HandleOf(handle), into + filled, wanted, &got, &where) == 0) {
            if (GetLastError() == ERROR_HANDLE_EOF)
                break;
            RaiseLast(HostAction::Read, "");
        }
        if (got == 0)
            break;
        filled += got;
    }
    return filled;
}

void ClosePieces(std::intptr_t handle) {
    CloseHandle(HandleOf(handle));
}

std::string ChangeMark(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(Wide(path).c_str(), GetFileExInfoStandard, &data) == 0) {
        const int code = ErrnoOf(GetLastError());
        if (code == ENOENT || code == ENOTDIR || code == EINVAL)
            return "";
        throw HostError(code, HostAction::Read, path);
    }
    std::string mark;
    for (const DWORD part : {data.nFileSizeHigh, data.nFileSizeLow, data.ftLastWriteTime.dwHighDateTime,
                             data.ftLastWriteTime.dwLowDateTime, data.ftCreationTime.dwHighDateTime,
                             data.ftCreationTime.dwLowDateTime})
        mark += std::to_string(part) + " ";
    return mark;
}

bool MayReplace(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        return false;
    // What the folder's rights say is known only by trying: a file that goes when it is closed.
    const HANDLE probe = CreateFileW((Wide(path) + L".dv~").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                     FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (probe == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_FILE_EXISTS;
    CloseHandle(probe);
    return true;
}

void AppendFile(const std::string& path, std::string_view content) {
    const bool isNew = !Inspect(path).Exists;
    const HANDLE file = CreateFileW(Wide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        RaiseLast(HostAction::Write, path);
    LARGE_INTEGER former{};
    SetFilePointerEx(file, {}, &former, FILE_END);
    try {
        WriteAll(file, content, path);
        if (FlushFileBuffers(file) == 0)
            RaiseLast(HostAction::Write, path);
    } catch (const RunTimeError&) {
        SetFilePointerEx(file, former, nullptr, FILE_BEGIN);
        SetEndOfFile(file);
        CloseHandle(file);
        if (isNew)
            DeleteFileW(Wide(path).c_str());
        throw;
    }
    CloseHandle(file);
}

// Nobody else may write it as long as it is open. What a dead program left behind can be deleted.
std::intptr_t OpenStaged(std::string& staged, const std::string& target) {
    constexpr int mostWriters = 100;  // of one file at a time
    const DWORD attributes = GetFileAttributesW(Wide(target).c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (exists && (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0)
        throw HostError(EISDIR, HostAction::Write, target);
    for (int number = 1; number <= mostWriters; ++number) {
        staged = target + (number == 1 ? "" : "." + std::to_string(number)) + std::string(StagedEnding);
        DeleteRemains(staged);
        const HANDLE file = CreateFileW(Wide(staged).c_str(), GENERIC_WRITE | DELETE | FILE_WRITE_ATTRIBUTES,
                                        0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE)
            return reinterpret_cast<std::intptr_t>(file);
        const DWORD failure = GetLastError();
        if (failure != ERROR_FILE_EXISTS && failure != ERROR_SHARING_VIOLATION)
            RaiseLast(HostAction::Write, target);
    }
    throw HostError(EBUSY, HostAction::Write, target);
}

void DeleteRemains(const std::string& staged) {
    DeleteFileW(Wide(staged).c_str());  // fails as long as somebody has it open
}

void FlushStaged(std::intptr_t handle, const std::string& target) {
    if (FlushFileBuffers(HandleOf(handle)) == 0)
        RaiseLast(HostAction::Write, target);
}

void WriteStaged(std::intptr_t handle, std::string_view content) {
    if (SetFilePointerEx(HandleOf(handle), {}, nullptr, FILE_BEGIN) == 0 ||
        SetEndOfFile(HandleOf(handle)) == 0)
        RaiseLast(HostAction::Write, "");
    WriteAll(HandleOf(handle), content, "");
}

void CloseStaged(std::intptr_t handle) {
    CloseHandle(HandleOf(handle));
}

void CommitStaged(std::intptr_t handle, const std::string& /*staged*/, const std::string& target) {
    // By its handle: nobody else may open it, and so it cannot be renamed by its name.
    const std::wstring name = Wide(target);
    std::vector<char> room(sizeof(FILE_RENAME_INFO) + name.size() * sizeof(wchar_t));
    auto* const rename = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
    rename->ReplaceIfExists = TRUE;
    rename->FileNameLength = static_cast<DWORD>(name.size() * sizeof(wchar_t));
    std::copy(name.begin(), name.end(), rename->FileName);
    if (SetFileInformationByHandle(HandleOf(handle), FileRenameInfo, rename,
                                   static_cast<DWORD>(room.size())) == 0)
        RaiseLast(HostAction::Write, target);
}

void CopyTimeStamp(const std::string& from, std::intptr_t handle) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(Wide(from).c_str(), GetFileExInfoStandard, &data) == 0)
        RaiseLast(HostAction::Read, from);
    if (SetFileTime(HandleOf(handle), nullptr, &data.ftLastAccessTime, &data.ftLastWriteTime) == 0)
        RaiseLast(HostAction::Write, from);
}

void Rename(const std::string& from, const std::string& to) {
    if (MoveFileExW(Wide(from).c_str(), Wide(to).c_str(), MOVEFILE_WRITE_THROUGH) == 0)
        RaiseLast(HostAction::Write, from);
}

void Delete(const std::string& path) {
    if (DeleteFileW(Wide(path).c_str()) == 0)
        RaiseLast(HostAction::Write, path);
}

DateTime Now() {
    SYSTEMTIME local{};
    GetLocalTime(&local);
    return {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond};
}

void Start(const std::string& program, const std::vector<std::string>& arguments, const std::string& folder,
           bool wait) {
    const PROCESS_INFORMATION process = Spawn(program, arguments, folder, 0);
    if (wait)
        WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

// The program begins to run when it is in its job, so that all that it starts is in it, too.
OutsideProgram::OutsideProgram(const std::string& program, const std::vector<std::string>& arguments,
                               const std::string& folder) {
    const PROCESS_INFORMATION process = Spawn(program, arguments, folder, CREATE_SUSPENDED);
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    if (job != nullptr)
        AssignProcessToJobObject(job, process.hProcess);
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    Process = reinterpret_cast<std::intptr_t>(process.hProcess);
    Family = reinterpret_cast<std::intptr_t>(job);
}

OutsideProgram::~OutsideProgram() {
    if (Process != 0)
        CloseHandle(HandleOf(Process));
    if (Family != 0)
        CloseHandle(HandleOf(Family));
}

bool OutsideProgram::HasEnded() {
    if (Process == 0)
        return true;
    if (WaitForSingleObject(HandleOf(Process), 0) == WAIT_TIMEOUT)
        return false;
    CloseHandle(HandleOf(Process));
    Process = 0;
    return true;
}

void OutsideProgram::End() {
    if (Process == 0)
        return;
    if (Family == 0 || TerminateJobObject(HandleOf(Family), 1) == 0)
        TerminateProcess(HandleOf(Process), 1);
    WaitForSingleObject(HandleOf(Process), INFINITE);
    CloseHandle(HandleOf(Process));
    Process = 0;
}

std::intptr_t ClaimSingleInstance(const std::string& name) {
    const HANDLE claim = CreateMutexW(nullptr, FALSE, Wide("Global\\" + name).c_str());
    const DWORD failure = GetLastError();
    if (claim != nullptr && failure != ERROR_ALREADY_EXISTS)
        return reinterpret_cast<std::intptr_t>(claim);
    if (claim != nullptr)
        CloseHandle(claim);
    else if (failure != ERROR_ACCESS_DENIED)  // a mutex of another user is there and not to be opened
        throw HostError(ErrnoOf(failure), HostAction::Write, name);
    return -1;
}

std::intptr_t LoadLibrary(const std::string& path, std::string& reason) {
    // What a library needs is looked for beside it, whatever folder the program lies in.
    const bool named = path.find('\\') == std::string::npos;
    const HMODULE library =
        LoadLibraryExW(Wide(path).c_str(), nullptr, named ? 0 : LOAD_WITH_ALTERED_SEARCH_PATH);
    if (library == nullptr)
        reason = "error " + std::to_string(GetLastError());
    return reinterpret_cast<std::intptr_t>(library);
}

std::intptr_t FindExport(std::intptr_t library, const std::string& name) {
    return reinterpret_cast<std::intptr_t>(GetProcAddress(reinterpret_cast<HMODULE>(library), name.c_str()));
}

void FreeLibrary(std::intptr_t library) {
    ::FreeLibrary(reinterpret_cast<HMODULE>(library));
}

}  // namespace Dorvane::Host
