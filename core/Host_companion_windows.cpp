// SPDX-License-Identifier: GPL-3.0-or-later
#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include <cerrno>
#include <charconv>
#include <filesystem>

#include "core/Companion.h"
#include "core/HostError.h"
#include "core/RunTimeError.h"

namespace Dorvane::Host {

namespace {

constexpr DWORD BufferSize = 4096;
constexpr int PollInterval = 5;  // milliseconds

HANDLE HandleOf(std::intptr_t number) {
    return reinterpret_cast<HANDLE>(number);
}

std::intptr_t NumberOf(HANDLE handle) {
    return reinterpret_cast<std::intptr_t>(handle);
}

// The system ends all that is in this group when its last handle closes, which is when this process ends.
HANDLE GroupOfThisProcess() {
    static const HANDLE group = [] {
        const HANDLE made = CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;
    }();
    return group;
}

std::wstring NewPipeName() {
    static int count = 0;
    return L"\\\\.\\pipe\\dorvane-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
           std::to_wstring(++count);
}

// The two sides of a channel; a started program inherits the other one.
struct ChannelPair {
    ChannelPair() {
        const std::wstring name = NewPipeName();
        Ours = CreateNamedPipeW(name.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_FIRST_PIPE_INSTANCE,
                                PIPE_TYPE_BYTE | PIPE_READMODE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS,
                                1, BufferSize, BufferSize, 0, nullptr);
        if (Ours == INVALID_HANDLE_VALUE)
            throw HostError(EIO, HostAction::Read, "");
        SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        Theirs =
            CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, &inherited, OPEN_EXISTING, 0, nullptr);
        if (Theirs == INVALID_HANDLE_VALUE) {
            CloseHandle(Ours);
            throw HostError(EIO, HostAction::Read, "");
        }
    }
    ~ChannelPair() {
        if (Ours != nullptr)
            CloseHandle(Ours);
        CloseHandle(Theirs);
    }
    ChannelPair(const ChannelPair&) = delete;
    ChannelPair& operator=(const ChannelPair&) = delete;

    HANDLE Ours = nullptr;
    HANDLE Theirs = nullptr;
};

std::string EndOf(HANDLE process) {
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    return "exit code " + std::to_string(code);
}

}  // namespace

bool Send(Channel channel, std::string_view text) {
    while (!text.empty()) {
        DWORD written = 0;
        const DWORD wanted = text.size() < BufferSize ? static_cast<DWORD>(text.size()) : BufferSize;
        if (WriteFile(HandleOf(channel), text.data(), wanted, &written, nullptr) == 0)
            return false;
        text.remove_prefix(written);
    }
    return true;
}

Arrival Receive(Channel channel, int milliseconds, std::string& text) {
    DWORD there = 0;
    for (int waited = 0; milliseconds >= 0; waited += PollInterval) {
        if (PeekNamedPipe(HandleOf(channel), nullptr, 0, nullptr, &there, nullptr) == 0)
            return Arrival::End;
        if (there > 0)
            break;
        if (waited >= milliseconds)
            return Arrival::Nothing;
        Sleep(PollInterval);
    }
    char block[BufferSize];
    if (ReadFile(HandleOf(channel), block, sizeof block, &there, nullptr) == 0)
        return Arrival::End;
    text.append(block, there);
    return Arrival::Text;
}

Companion::Companion(const std::string& program) {
    const std::wstring name = std::filesystem::path(std::u8string(program.begin(), program.end())).wstring();
    ChannelPair pair;
    std::wstring line = L"\"" + name + L"\" " + std::to_wstring(NumberOf(pair.Theirs));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(name.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED | CREATE_NO_WINDOW,
                       nullptr, nullptr, &start, &process) == 0)
        throw RunTimeError(FileNotFound, program);
    AssignProcessToJobObject(GroupOfThisProcess(), process.hProcess);
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    Process = NumberOf(process.hProcess);
    Own = NumberOf(pair.Ours);
    pair.Ours = nullptr;
}

Companion::~Companion() {
    End();
    CloseHandle(HandleOf(Own));
}

bool Companion::HasEnded() {
    if (Process == 0)
        return true;
    if (WaitForSingleObject(HandleOf(Process), 0) != WAIT_OBJECT_0)
        return false;
    How = EndOf(HandleOf(Process));
    CloseHandle(HandleOf(Process));
    Process = 0;
    return true;
}

std::string Companion::End() {
    if (Process != 0) {
        // One that is about to end by itself keeps its own reason.
        TerminateProcess(HandleOf(Process), 1);
        WaitForSingleObject(HandleOf(Process), INFINITE);
        HasEnded();
    }
    return How;
}

Channel ChannelOfArgument(const std::string& argument) {
    std::intptr_t number = -1;
    const char* const end = argument.data() + argument.size();
    const auto [behind, failure] = std::from_chars(argument.data(), end, number);
    if (failure != std::errc() || behind != end ||
        SetHandleInformation(HandleOf(number), HANDLE_FLAG_INHERIT, 0) == 0)
        return -1;
    return number;
}

}  // namespace Dorvane::Host
