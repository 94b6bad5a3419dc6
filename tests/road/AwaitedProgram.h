// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <thread>

namespace Dorvane::Testing {

/// Somebody who ends an outside program that the system waits for, as soon as it runs.
class AwaitedProgram {
  public:
    /// `name` is the program's file name.
    explicit AwaitedProgram(const std::string& name);
    ~AwaitedProgram();
    AwaitedProgram(const AwaitedProgram&) = delete;
    AwaitedProgram& operator=(const AwaitedProgram&) = delete;

    /// The arguments that the program was started with, joined by blanks; empty when it never ran. To be
    /// asked when the wait is over.
    const std::string& Arguments();

  private:
    void Attend();

    const std::string Name;
    std::string Seen;
    std::thread Watcher;
};

}  // namespace Dorvane::Testing
