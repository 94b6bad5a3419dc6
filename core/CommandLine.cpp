// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/CommandLine.h"

#include "core/Drives.h"
#include "core/Host.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

// The length of the program's name at the head of a command line that is not quoted.
std::size_t ProgramLength(std::string_view line) {
    std::size_t end = line.find(' ');
    const std::size_t first = end;
    for (; end != std::string_view::npos; end = line.find(' ', end + 1))
        if (FileExists(line.substr(0, end)))
            return end;
    if (FileExists(line))
        return line.size();
    return first == std::string_view::npos ? line.size() : first;
}

bool IsDrivePath(std::string_view word) {
    return word.size() >= 3 && word[1] == ':' && word[2] == '\\';
}

std::string ForHost(const std::string& word) {
    return IsDrivePath(word) ? Drives::HostPath(word) : Utf8FromText(word);
}

CommandLine ExistingCommand(std::string_view commandLine) {
    CommandLine command = SplitCommandLine(commandLine);
    if (!FileExists(command.Program))
        throw RunTimeError(FileNotFound, command.Program);
    return command;
}

}  // namespace

CommandLine SplitCommandLine(std::string_view commandLine) {
    CommandLine result;
    std::string_view rest = commandLine;
    while (!rest.empty() && rest.front() == ' ')
        rest.remove_prefix(1);
    if (!rest.empty() && rest.front() == '"') {
        const std::size_t end = rest.find('"', 1);
        result.Program = std::string(rest.substr(1, end == std::string_view::npos ? end : end - 1));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    } else {
        const std::size_t length = ProgramLength(rest);
        result.Program = std::string(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    while (!rest.empty()) {
        const std::size_t end = rest.find(' ');
        const std::string word(rest.substr(0, end));
        if (!word.empty())
            result.Arguments.push_back(ForHost(word));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return result;
}

void StartCommandLine(std::string_view commandLine, bool wait) {
    const CommandLine command = ExistingCommand(commandLine);
    Host::Start(Drives::HostPath(command.Program), command.Arguments, Drives::CurrentHostFolder(), wait);
}

std::unique_ptr<Host::OutsideProgram> StartToBeAwaited(std::string_view commandLine) {
    const CommandLine command = ExistingCommand(commandLine);
    return std::make_unique<Host::OutsideProgram>(Drives::HostPath(command.Program), command.Arguments,
                                                  Drives::CurrentHostFolder());
}

}  // namespace Dorvane
