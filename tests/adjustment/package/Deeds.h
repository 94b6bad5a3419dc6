// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string>

// What a package may do to the process that it runs in.
namespace PackageDeeds {

inline void WriteNowhere() {
    volatile std::uintptr_t nowhere = 8;
    *reinterpret_cast<volatile int*>(nowhere) = 1;  // NOLINT(performance-no-int-to-ptr)
}

inline void MakeNoise() {
    for (int i = 0; i < 20000; ++i)
        std::puts("done 99");
    std::fputs("a line without end", stdout);
    std::fflush(stdout);
    std::fputs("error 98 nonsense\n", stderr);
}

/// Waits until somebody opens the pipe of the file system that PACKAGE_GATE names.
inline void WaitAtTheGate() {
    const int gate = open(std::getenv("PACKAGE_GATE"), O_RDONLY | O_CLOEXEC);
    if (gate < 0)
        std::abort();
    close(gate);
}

/// Tells its process over that pipe, and then hangs.
inline void Hang() {
    const int gate = open(std::getenv("PACKAGE_GATE"), O_WRONLY | O_CLOEXEC);
    const pid_t own = getpid();
    if (gate < 0 || write(gate, &own, sizeof own) != sizeof own)
        std::abort();
    close(gate);
    for (;;)
        pause();
}

/// Leaves a process behind that holds all that this one has open, and ends.
inline void LeaveAProcess() {
    if (fork() == 0) {
        WaitAtTheGate();
        _exit(0);
    }
    _exit(4);
}

/// Writes to everything that is open beside the standard outputs.
inline void WriteEverywhere() {
    for (int i = 3; i < 64; ++i)
        if (write(i, "nonsense\n", 9) < 0)
            continue;
}

inline void CloseEverything() {
    for (int i = 0; i < 64; ++i)
        close(i);
    for (;;)
        pause();
}

inline void Do(const std::string& deed) {
    if (deed == "write nowhere")
        WriteNowhere();
    if (deed == "abort")
        std::abort();
    if (deed == "exit 0")
        std::exit(0);
    if (deed == "exit 3")
        std::exit(3);
    if (deed == "throw")
        throw std::runtime_error("100% of the matrix\nis gone");
    if (deed == "throw no memory")
        throw std::bad_alloc();
    if (deed == "throw a number")
        throw 5;
    if (deed == "make noise")
        MakeNoise();
    if (deed == "wait")
        WaitAtTheGate();
    if (deed == "hang")
        Hang();
    if (deed == "leave a process")
        LeaveAProcess();
    if (deed == "write everywhere")
        WriteEverywhere();
    if (deed == "close everything")
        CloseEverything();
    if (deed == "abort at the end")
        std::atexit([] { std::abort(); });
}

}  // namespace PackageDeeds
