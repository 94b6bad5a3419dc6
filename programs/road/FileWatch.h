// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>

namespace Dorvane::Road {

/// Knows every file of the drives C: and D:, and tells what a step made of them.
class FileWatch {
  public:
    FileWatch();

    /// Prints the files that are new, changed or gone since the last call, one a line.
    void PrintChanges(std::ostream& out);

  private:
    struct State {
        std::size_t Size = 0;
        std::size_t Hash = 0;
        bool operator==(const State&) const = default;
    };
    static std::map<std::string, State> Look();

    std::map<std::string, State> Files;  // by path
};

}  // namespace Dorvane::Road
