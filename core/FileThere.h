// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace Dorvane::Drives {

/// True when the path names a file, false when there is none. Unlike FileExists this raises where the drive
/// cannot tell: to be asked before something is made in a place that has to be free.
bool IsFile(std::string_view path);

/// What a file holds, or nothing when there is none; raises where the drive cannot tell.
std::string ReadFileIfThere(std::string_view path);

}  // namespace Dorvane::Drives
