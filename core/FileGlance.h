// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Short looks at a file that may be hundreds of megabytes.
namespace Dorvane {

/// A text that changes when the file is replaced or written. Empty when there is no such file. What a look
/// costs does not depend on the file's size.
std::string FileStamp(std::string_view path);

/// The first bytes of a file, at most `most`; all of a shorter one. Raises what Drives::ReadFile raises.
std::string FileHead(std::string_view path, std::size_t most);

}  // namespace Dorvane
