// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/road/AwaitedProgram.h"

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace Dorvane::Testing {

namespace {

constexpr int Looks = 2000;

std::string ContentOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool IsOwnChild(const std::filesystem::path& process) {
    const std::string status = ContentOf(process / "status");
    return status.find("\nPPid:\t" + std::to_string(getpid()) + "\n") != std::string::npos;
}

// The command line of a child of this process that runs the program, its parts ended by NUL.
std::optional<std::string> CommandLineOf(const std::filesystem::path& process, const std::string& name) {
    std::string parts = ContentOf(process / "cmdline");
    const std::string program = parts.substr(0, parts.find('\0'));
    if (std::filesystem::path(program).filename() != name || !IsOwnChild(process))
        return std::nullopt;
    return parts;
}

std::string ArgumentsOf(const std::string& parts) {
    std::string joined;
    for (std::size_t i = parts.find('\0') + 1; i < parts.size(); ++i)
        joined += parts[i] == '\0' ? ' ' : parts[i];
    if (!joined.empty())
        joined.pop_back();
    return joined;
}

}  // namespace

AwaitedProgram::AwaitedProgram(const std::string& name) : Name(name), Watcher([this] { Attend(); }) {}

AwaitedProgram::~AwaitedProgram() {
    if (Watcher.joinable())
        Watcher.join();
}

const std::string& AwaitedProgram::Arguments() {
    if (Watcher.joinable())
        Watcher.join();
    return Seen;
}

void AwaitedProgram::Attend() {
    for (int look = 0; look < Looks; ++look) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::error_code gone;
        for (const auto& process : std::filesystem::directory_iterator("/proc", gone)) {
            const std::string number = process.path().filename();
            if (number.find_first_not_of("0123456789") != std::string::npos)
                continue;
            const std::optional<std::string> command = CommandLineOf(process.path(), Name);
            if (!command)
                continue;
            Seen = ArgumentsOf(*command);
            kill(std::stoi(number), SIGTERM);
            return;
        }
    }
}

}  // namespace Dorvane::Testing
