// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/Companion.h"

namespace Dorvane {

/// What the program and the process of the adjustment package say to each other: lines of words. One side
/// asks, the other answers each request before it takes the next.
///
///     place <folder of links> <program folder> <current drive>     the first line, not answered
///     start <input path>         done <result> <what the package left in the path>
///     go <type>                  done <result>
///     stop                       done; the process then ends
///                                error <number> <description>, to any request that is answered
///
/// Words hold any bytes; blanks, control characters and "%" stand as "%" and two digits of their code.
class PackageChannel {
  public:
    using Words = std::vector<std::string>;

    explicit PackageChannel(Host::Channel line) : Line(line) {}

    /// False when nobody is left on the other side.
    bool Send(const Words& words);

    /// Waits for a line, at most for `milliseconds` where these are not below 0. `words` is only set when the
    /// result is Text.
    Host::Arrival Receive(int milliseconds, Words& words);

  private:
    Host::Channel Line;
    std::string Received;  // bytes behind the last line that was taken
};

/// A whole number as a word; none where the word is not one.
std::optional<int> NumberOfWord(const std::string& word);

}  // namespace Dorvane
