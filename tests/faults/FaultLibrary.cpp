// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/FaultLibrary.h"

#include <dirent.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

enum Kind {
    Write,
    Sync,
    Rename,
    Open,
    Close,
    MakeFolder,
    Unlink,
    Read,
    PieceRead,
    Look,
    List,
    Lock,
    Cut,
    Stamp,
    Memory,
    AnyChange,
    Kinds
};

constexpr std::array<const char*, Kinds> Names = {"write",  "sync",  "rename", "open",  "close", "mkdir",
                                                  "unlink", "read",  "pread",  "look",  "list",  "lock",
                                                  "cut",    "stamp", "memory", "change"};

enum class How { Once, Stays, Short, Kill };

struct Order {
    int OfKind = -1;
    long Call = 0;
    int Error = EIO;
    How Way = How::Once;
    bool Trace = false;
};

Order Wanted;
std::array<std::atomic<long>, Kinds> Counts;
std::atomic<bool> Watching{false};
std::atomic<bool> Hit{false};
thread_local bool Inside = false;

const char* Setting(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

How WayOf(const char* name) {
    if (std::strcmp(name, "stays") == 0)
        return How::Stays;
    if (std::strcmp(name, "short") == 0)
        return How::Short;
    return std::strcmp(name, "kill") == 0 ? How::Kill : How::Once;
}

void TellPlace() {
    Watching = false;
    std::array<void*, 60> places{};
    backtrace_symbols_fd(places.data(), backtrace(places.data(), static_cast<int>(places.size())), 2);
    Watching = true;
}

// Counts a call of a kind; true when it is to fail.
bool IsMet(Kind kind) {
    const long number = ++Counts[static_cast<std::size_t>(kind)];
    if (kind != Wanted.OfKind || Wanted.Call == 0)
        return false;
    return number == Wanted.Call ||
           (number > Wanted.Call && Wanted.Way != How::Once && Wanted.Way != How::Kill);
}

// True when the call is to fail, with its number in errno.
bool Fails(Kind kind, bool changes = false) {
    if (!Watching || Inside)
        return false;
    const bool met = IsMet(kind);
    if (!(changes && IsMet(AnyChange)) && !met)
        return false;
    Hit = true;
    if (Wanted.Trace)
        TellPlace();
    if (Wanted.Way == How::Kill)
        kill(getpid(), SIGKILL);
    errno = Wanted.Error;
    return true;
}

// A call that the host's own library makes of another one is one call.
struct Within {
    Within() : Former(Inside) { Inside = true; }
    ~Within() { Inside = Former; }
    Within(const Within&) = delete;
    Within& operator=(const Within&) = delete;
    bool Former;
};

template <class Call>
Call* Next(const char* name) {
    const Within within;
    return reinterpret_cast<Call*>(dlsym(RTLD_NEXT, name));
}

bool CutsShort() {
    return Wanted.Way == How::Short && Counts[Write] == Wanted.Call;
}

int OpenBy(const char* name, const char* path, int flags, unsigned mode) {
    if (Fails(Open, (flags & (O_CREAT | O_TRUNC)) != 0))
        return -1;
    return Next<int(const char*, int, ...)>(name)(path, flags, mode);
}

int OpenAtBy(const char* name, int folder, const char* path, int flags, unsigned mode) {
    if (Fails(Open, (flags & (O_CREAT | O_TRUNC)) != 0))
        return -1;
    return Next<int(int, const char*, int, ...)>(name)(folder, path, flags, mode);
}

std::FILE* OpenStream(const char* name, const char* path, const char* mode) {
    const bool reads = mode[0] == 'r' && std::strchr(mode, '+') == nullptr;
    if (Fails(Open, !reads))
        return nullptr;
    return Next<std::FILE*(const char*, const char*)>(name)(path, mode);
}

struct AtStart {
    AtStart() {
        if (*Setting("DORVANE_FAULT_START") != '\0')
            FaultsBegin();
    }
} const Starting;

}  // namespace

extern "C" {

void FaultsBegin() {
    for (auto& count : Counts)
        count = 0;
    Wanted = {};
    for (int kind = 0; kind < Kinds; ++kind)
        if (std::strcmp(Setting("DORVANE_FAULT_KIND"), Names[static_cast<std::size_t>(kind)]) == 0)
            Wanted.OfKind = kind;
    Wanted.Call = std::atol(Setting("DORVANE_FAULT_CALL"));
    Wanted.Error = std::atoi(Setting("DORVANE_FAULT_ERROR"));
    Wanted.Way = WayOf(Setting("DORVANE_FAULT_HOW"));
    Wanted.Trace = *Setting("DORVANE_FAULT_TRACE") != '\0';
    Hit = false;
    Watching = true;
}

void FaultsEnd() {
    Watching = false;
}

void FaultsPause() {
    Inside = true;
}

void FaultsResume() {
    Inside = false;
}

const char* FaultsKindName(int kind) {
    return kind < Kinds ? Names[static_cast<std::size_t>(kind)] : nullptr;
}

long FaultsCounted(int kind) {
    return Counts[static_cast<std::size_t>(kind)];
}

int FaultsHit() {
    return Hit ? 1 : 0;
}

ssize_t write(int file, const void* bytes, size_t count) {
    static auto* const real = Next<decltype(write)>("write");
    if (!Fails(Write, true))
        return real(file, bytes, count);
    return CutsShort() && count > 1 ? real(file, bytes, count / 2) : -1;
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset) {
    static auto* const real = Next<decltype(pwrite)>("pwrite");
    if (!Fails(Write, true))
        return real(file, bytes, count, offset);
    return CutsShort() && count > 1 ? real(file, bytes, count / 2, offset) : -1;
}

size_t fwrite(const void* bytes, size_t size, size_t count, std::FILE* file) {
    static auto* const real = Next<decltype(fwrite)>("fwrite");
    if (Fails(Write, true))
        return 0;
    return real(bytes, size, count, file);
}

int fflush(std::FILE* file) {
    static auto* const real = Next<decltype(fflush)>("fflush");
    return Fails(Write, true) ? EOF : real(file);
}

// What was written outlives a program that is killed: the disk need not be waited for.
int fsync(int) {
    return Fails(Sync) ? -1 : 0;
}

int fdatasync(int) {
    return Fails(Sync) ? -1 : 0;
}

int rename(const char* from, const char* to) noexcept {
    static auto* const real = Next<int(const char*, const char*)>("rename");
    return Fails(Rename, true) ? -1 : real(from, to);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    static auto* const real = Next<int(int, const char*, int, const char*)>("renameat");
    return Fails(Rename, true) ? -1 : real(fromFolder, from, toFolder, to);
}

int open(const char* path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, unsigned);
    va_end(more);
    return OpenBy("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, unsigned);
    va_end(more);
    return OpenBy("open64", path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, unsigned);
    va_end(more);
    return OpenAtBy("openat", folder, path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, unsigned);
    va_end(more);
    return OpenAtBy("openat64", folder, path, flags, mode);
}

std::FILE* fopen(const char* path, const char* mode) {
    return OpenStream("fopen", path, mode);
}

std::FILE* fopen64(const char* path, const char* mode) {
    return OpenStream("fopen64", path, mode);
}

// A close that tells a failure has closed the file nonetheless.
int close(int file) {
    static auto* const real = Next<decltype(close)>("close");
    const bool fails = Fails(Close);
    const int error = errno;
    const int closed = real(file);
    if (!fails)
        return closed;
    errno = error;
    return -1;
}

int mkdir(const char* path, mode_t mode) noexcept {
    static auto* const real = Next<int(const char*, mode_t)>("mkdir");
    return Fails(MakeFolder, true) ? -1 : real(path, mode);
}

int unlink(const char* path) noexcept {
    static auto* const real = Next<int(const char*)>("unlink");
    return Fails(Unlink, true) ? -1 : real(path);
}

int rmdir(const char* path) noexcept {
    static auto* const real = Next<int(const char*)>("rmdir");
    return Fails(Unlink, true) ? -1 : real(path);
}

int remove(const char* path) noexcept {
    static auto* const real = Next<int(const char*)>("remove");
    return Fails(Unlink, true) ? -1 : real(path);
}

ssize_t read(int file, void* bytes, size_t count) {
    static auto* const real = Next<decltype(read)>("read");
    return Fails(Read) ? -1 : real(file, bytes, count);
}

ssize_t pread(int file, void* bytes, size_t count, off_t offset) {
    static auto* const real = Next<decltype(pread)>("pread");
    return Fails(PieceRead) ? -1 : real(file, bytes, count, offset);
}

int stat(const char* path, struct stat* info) noexcept {
    static auto* const real = Next<int(const char*, struct stat*)>("stat");
    return Fails(Look) ? -1 : real(path, info);
}

int lstat(const char* path, struct stat* info) noexcept {
    static auto* const real = Next<int(const char*, struct stat*)>("lstat");
    return Fails(Look) ? -1 : real(path, info);
}

int fstat(int file, struct stat* info) noexcept {
    static auto* const real = Next<int(int, struct stat*)>("fstat");
    return Fails(Look) ? -1 : real(file, info);
}

int fstatat(int folder, const char* path, struct stat* info, int flags) noexcept {
    static auto* const real = Next<int(int, const char*, struct stat*, int)>("fstatat");
    return Fails(Look) ? -1 : real(folder, path, info, flags);
}

int faccessat(int folder, const char* path, int rights, int flags) noexcept {
    static auto* const real = Next<int(int, const char*, int, int)>("faccessat");
    return Fails(Look) ? -1 : real(folder, path, rights, flags);
}

char* realpath(const char* path, char* resolved) noexcept {
    static auto* const real = Next<char*(const char*, char*)>("realpath");
    return Fails(Look) ? nullptr : real(path, resolved);
}

// The host's own look-up of a user does not outlive a lack of memory.
passwd* getpwuid(uid_t user) {
    static auto* const real = Next<decltype(getpwuid)>("getpwuid");
    const Within within;
    return real(user);
}

DIR* opendir(const char* path) {
    static auto* const real = Next<decltype(opendir)>("opendir");
    return Fails(List) ? nullptr : real(path);
}

dirent* readdir(DIR* folder) {
    static auto* const real = Next<decltype(readdir)>("readdir");
    return Fails(List) ? nullptr : real(folder);
}

int fcntl(int file, int command, ...) {
    static auto* const real = Next<int(int, int, ...)>("fcntl");
    std::va_list more;
    va_start(more, command);
    void* const what = va_arg(more, void*);
    va_end(more);
    return command == F_OFD_SETLK && Fails(Lock) ? -1 : real(file, command, what);
}

int ftruncate(int file, off_t length) noexcept {
    static auto* const real = Next<int(int, off_t)>("ftruncate");
    return Fails(Cut, true) ? -1 : real(file, length);
}

int futimens(int file, const timespec times[2]) noexcept {
    static auto* const real = Next<int(int, const timespec*)>("futimens");
    return Fails(Stamp, true) ? -1 : real(file, times);
}

int fchmod(int file, mode_t mode) noexcept {
    static auto* const real = Next<int(int, mode_t)>("fchmod");
    return Fails(Stamp, true) ? -1 : real(file, mode);
}

// A sanitizer has a memory of its own, in front of this library.
#ifndef __SANITIZE_ADDRESS__
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);

void* malloc(size_t size) noexcept {
    return Fails(Memory) ? nullptr : __libc_malloc(size);
}

void* calloc(size_t count, size_t size) noexcept {
    return Fails(Memory) ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* block, size_t size) noexcept {
    return Fails(Memory) ? nullptr : __libc_realloc(block, size);
}
#endif

}  // extern "C"
