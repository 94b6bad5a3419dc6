// SPDX-License-Identifier: GPL-3.0-or-later
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <utility>

#include "core/Host.h"
#include "core/HostError.h"
#include "core/HostPosix.h"
#include "core/OutsideProgram.h"

namespace Dorvane::Host {

namespace {

DateTime LocalTime(std::time_t seconds) {
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

// What a program that is started is to this process.
enum class Kin { Child, HeadOfGroup, Stranger };

constexpr int LooksBeforeForce = 50;
constexpr useconds_t MicrosecondsBetweenLooks = 20000;

void Bury(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
}

// True when a child has ended that is not buried yet.
bool IsDead(pid_t child) {
    siginfo_t info{};
    return waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           info.si_pid == child;
}

// In the new process: becomes the program, or comes back with the error number.
int Become(const std::string& program, char* const* words, const std::string& folder, Kin kin) {
    if (kin == Kin::HeadOfGroup)
        setpgid(0, 0);
    if (!folder.empty() && chdir(folder.c_str()) != 0)
        return errno;
    execv(program.c_str(), words);
    return errno;
}

// Starts a program. Raises 53 when it cannot be started.
pid_t Spawn(const std::string& program, const std::vector<std::string>& arguments, const std::string& folder,
            Kin kin) {
    std::vector<char*> words;
    words.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);

    // The pipe closes at a successful exec and carries the error number of a failed one.
    int channel[2];
    if (pipe2(channel, O_CLOEXEC) != 0)
        throw HostError(errno, HostAction::Read, program);
    const Descriptor reading(channel[0]);
    Descriptor writing(channel[1]);
    const pid_t child = fork();
    if (child < 0)
        throw HostError(errno, HostAction::Read, program);
    if (child == 0) {
        // A stranger must not stay behind as a dead child: its parent is an intermediate one.
        if (kin == Kin::Stranger && fork() != 0)
            _exit(0);
        const int failure = Become(program, words.data(), folder, kin);
        const ssize_t told = write(writing.Number, &failure, sizeof failure);
        _exit(told == sizeof failure ? 127 : 126);
    }
    close(writing.Number);
    writing.Number = -1;
    int failure = 0;
    ssize_t told = 0;
    do
        told = read(reading.Number, &failure, sizeof failure);
    while (told < 0 && errno == EINTR);
    if (told == sizeof failure || kin == Kin::Stranger)
        Bury(child);
    if (told == sizeof failure)
        throw RunTimeError(FileNotFound, program);
    return child;
}

}  // namespace

bool PathsAreDrivePaths() {
    return false;
}

std::string EnvironmentVariable(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    return value == nullptr ? "" : value;
}

void SetEnvironment(const std::string& name, const std::string& value) {
    setenv(name.c_str(), value.c_str(), 1);
}

std::string UserDataFolder() {
    std::string folder = EnvironmentVariable("XDG_DATA_HOME");
    if (folder.empty())
        folder = EnvironmentVariable("HOME") + "/.local/share";
    return folder + "/dorvane/";
}

std::string ProgramFolder() {
    std::string path(PATH_MAX, '\0');
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length < 0)
        throw HostError(errno, HostAction::Read, "/proc/self/exe");
    path.resize(static_cast<std::size_t>(length));
    return ParentOf(path) + "/";
}

std::string WorkingFolder() {
    std::error_code failure;
    return std::filesystem::current_path(failure).string();
}

FileInfo Inspect(const std::string& path) {
    struct stat info {};
    FileInfo result;
    if (stat(path.c_str(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return result;
        Raise(errno, HostAction::Read, path);
    }
    result.Exists = true;
    result.IsFolder = S_ISDIR(info.st_mode);
    result.Size = info.st_size;
    result.Modified = LocalTime(info.st_mtime);
    return result;
}

bool DriveOrLinkIsThere(const std::string& path) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0;
}

std::vector<std::string> FolderNames(const std::string& folder) {
    DIR* directory = opendir(folder.c_str());
    if (directory == nullptr)
        throw HostError(errno, HostAction::Folder, folder);
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* entry = readdir(directory)) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..")
            names.push_back(name);
        errno = 0;
    }
    const int failure = errno;
    closedir(directory);
    if (failure != 0)
        throw HostError(failure, HostAction::Folder, folder);
    return names;
}

std::string RealPath(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path real = std::filesystem::weakly_canonical(path, failure);
    return failure ? path : real.string();
}

void CreateFolder(const std::string& path) {
    if (mkdir(path.c_str(), 0777) != 0)
        throw HostError(errno, HostAction::Folder, path);
}

void CreateLink(const std::string& link, const std::string& target) {
    if (symlink(target.c_str(), link.c_str()) != 0)
        throw HostError(errno, HostAction::Folder, link);
}

std::string LinkTarget(const std::string& link) {
    std::error_code failure;
    const std::filesystem::path target = std::filesystem::read_symlink(link, failure);
    return failure ? "" : target.string();
}

bool MayWrite(const std::string& folder) {
    return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string ReadFile(const std::string& path) {
    // Without waiting: a pipe may have nobody at its other end.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.Number < 0)
        Raise(errno, HostAction::Read, path);
    struct stat info {};
    if (fstat(file.Number, &info) != 0)
        Raise(errno, HostAction::Read, path);
    if (!S_ISREG(info.st_mode))
        throw HostError(EISDIR, HostAction::Read, path);
    std::string content(static_cast<std::size_t>(info.st_size), '\0');
    std::size_t filled = 0;
    for (;;) {
        if (filled == content.size())
            content.resize(content.size() + 4096);
        const ssize_t count = read(file.Number, content.data() + filled, content.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            Raise(errno, HostAction::Read, path);
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    content.resize(filled);
    return content;
}

std::intptr_t OpenPieces(const std::string& path) {
    // Without waiting: a pipe has no end to be read to.
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        Raise(errno, HostAction::Read, path);
    struct stat info {};
    if (fstat(file, &info) == 0 && S_ISREG(info.st_mode))
        return file;
    close(file);
    throw HostError(EISDIR, HostAction::Read, path);
}

std::size_t ReadPiece(std::intptr_t handle, std::int64_t offset, char* into, std::size_t count) {
    std::size_t filled = 0;
    while (filled < count) {
        const ssize_t got = pread(static_cast<int>(handle), into + filled, count - filled,
                                  offset + static_cast<std::int64_t>(filled));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw HostError(errno, HostAction::Read, "");
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    return filled;
}

void ClosePieces(std::intptr_t handle) {
    close(static_cast<int>(handle));
}

std::string ChangeMark(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return "";
        Raise(errno, HostAction::Read, path);
    }
    std::string mark;
    for (const auto part : {static_cast<long long>(info.st_dev), static_cast<long long>(info.st_ino),
                            static_cast<long long>(info.st_size), static_cast<long long>(info.st_mtim.tv_sec),
                            static_cast<long long>(info.st_mtim.tv_nsec)})
        mark += std::to_string(part) + " ";
    return mark;
}

bool MayReplace(const std::string& path) {
    const bool exists = faccessat(AT_FDCWD, path.c_str(), F_OK, AT_EACCESS) == 0;
    if (exists && faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
        return false;
    // The new file is written beside the old one and takes its name.
    return faccessat(AT_FDCWD, ParentOf(path).c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

void AppendFile(const std::string& path, std::string_view content) {
    const bool isNew = !Inspect(path).Exists;
    const Descriptor file(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666));
    if (file.Number < 0)
        Raise(errno == ENXIO ? EISDIR : errno, HostAction::Write, path);
    struct stat former {};
    if (fstat(file.Number, &former) != 0)
        Raise(errno, HostAction::Write, path);
    if (!S_ISREG(former.st_mode))
        throw HostError(EISDIR, HostAction::Write, path);
    try {
        WriteAll(file.Number, content, path);
        Flush(file.Number, path);
    } catch (const RunTimeError&) {
        const int undone = isNew ? unlink(path.c_str()) : ftruncate(file.Number, former.st_size);
        if (undone != 0)
            throw HostError(errno, HostAction::Write, path);
        throw;
    }
}

void Rename(const std::string& from, const std::string& to) {
    if (rename(from.c_str(), to.c_str()) != 0)
        Raise(errno, HostAction::Write, from);
}

void Delete(const std::string& path) {
    if (unlink(path.c_str()) != 0)
        Raise(errno, HostAction::Write, path);
}

DateTime Now() {
    return LocalTime(std::time(nullptr));
}

void Start(const std::string& program, const std::vector<std::string>& arguments, const std::string& folder,
           bool wait) {
    const pid_t child = Spawn(program, arguments, folder, wait ? Kin::Child : Kin::Stranger);
    if (wait)
        Bury(child);
}

OutsideProgram::OutsideProgram(const std::string& program, const std::vector<std::string>& arguments,
                               const std::string& folder)
    : Process(Spawn(program, arguments, folder, Kin::HeadOfGroup)), Family(Process) {}

OutsideProgram::~OutsideProgram() = default;

bool OutsideProgram::HasEnded() {
    if (Process == 0)
        return true;
    int status = 0;
    const pid_t ended = waitpid(static_cast<pid_t>(Process), &status, WNOHANG);
    if (ended == 0 || (ended < 0 && errno == EINTR))
        return false;
    Process = 0;
    return true;
}

// The program is not buried before its group is gone, so that no other process can have got its number.
void OutsideProgram::End() {
    if (Process == 0)
        return;
    const auto group = static_cast<pid_t>(Family);
    kill(-group, SIGTERM);
    for (int look = 0; look < LooksBeforeForce && !IsDead(group); ++look)
        usleep(MicrosecondsBetweenLooks);
    kill(-group, SIGKILL);
    Bury(group);
    Process = 0;
}

std::intptr_t ClaimSingleInstance(const std::string& name) {
    // A socket's name of the abstract kind is no file: no folder, mask, right or link of any user touches it.
    // The first byte of such a name is NUL.
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() + 1 > sizeof address.sun_path)
        throw HostError(ENAMETOOLONG, HostAction::Write, name);
    std::copy(name.begin(), name.end(), address.sun_path + 1);
    const std::size_t length = offsetof(sockaddr_un, sun_path) + 1 + name.size();
    Descriptor claim(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (claim.Number < 0)
        throw HostError(errno, HostAction::Write, name);
    if (bind(claim.Number, reinterpret_cast<const sockaddr*>(&address), static_cast<socklen_t>(length)) == 0)
        return std::exchange(claim.Number, -1);
    if (errno != EADDRINUSE)
        throw HostError(errno, HostAction::Write, name);
    return -1;
}

std::intptr_t LoadLibrary(const std::string& path, std::string& reason) {
    // A numerical library may leave threads of its own behind, under which its code must not be taken away.
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr) {
        const char* text = dlerror();
        reason = text == nullptr ? "" : text;
    }
    return reinterpret_cast<std::intptr_t>(library);
}

std::intptr_t FindExport(std::intptr_t library, const std::string& name) {
    return reinterpret_cast<std::intptr_t>(dlsym(reinterpret_cast<void*>(library), name.c_str()));
}

void FreeLibrary(std::intptr_t library) {
    dlclose(reinterpret_cast<void*>(library));
}

}  // namespace Dorvane::Host
