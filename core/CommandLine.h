// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/OutsideProgram.h"

namespace Dorvane {

/// A command line taken apart: the program's drive path and its arguments as the program receives them, drive
/// paths turned into host paths.
struct CommandLine {
    std::string Program;
    std::vector<std::string> Arguments;
};

/// Takes a command line apart. The program is the text up to the first blank behind which an existing file
/// ends, or the text up to the first blank when no such file exists; a quoted program is taken as quoted. The
/// rest is cut at its blanks, so that a path with blanks arrives as several arguments.
CommandLine SplitCommandLine(std::string_view commandLine);

/// Starts a command line, no shell between, in the current folder of the current drive. Error 53 when the
/// program cannot be started. Waits for its end when asked to.
void StartCommandLine(std::string_view commandLine, bool wait);

/// Starts a command line in the same way, to be looked after until it has ended.
std::unique_ptr<Host::OutsideProgram> StartToBeAwaited(std::string_view commandLine);

}  // namespace Dorvane
