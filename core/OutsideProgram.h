// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Written once per host (Host_posix.cpp, Host_windows.cpp). Paths are host paths in the host's encoding.
namespace Dorvane::Host {

/// A program that was started to be waited for. What it starts in turn belongs to it, unless it sets itself
/// apart.
class OutsideProgram {
  public:
    /// Starts a program with its arguments, no shell between, in a folder. Raises 53 when it cannot be
    /// started.
    OutsideProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::string& folder);
    /// Leaves a program alone that still runs.
    ~OutsideProgram();
    OutsideProgram(const OutsideProgram&) = delete;
    OutsideProgram& operator=(const OutsideProgram&) = delete;

    /// Looks and does not wait.
    bool HasEnded();

    /// Ends the program and all that belongs to it. Where the host can ask for it, it is asked first and has
    /// a second to tidy up.
    void End();

  private:
    std::intptr_t Process = 0;  // 0 once it has ended
    std::intptr_t Family = 0;   // what holds it and all that belongs to it
};

}  // namespace Dorvane::Host
