// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace Dorvane {

/// The number of lines of a text file behind the first `skipped` ones. Error 62 when the file ends among
/// those, error 6 past 32767, and what opening a file raises.
std::int16_t CountLines(const std::string& path, int skipped = 0);

}  // namespace Dorvane
