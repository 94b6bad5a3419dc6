// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// The drive path of the one file that a program is started with. Nothing is quoted on a command line, so a
/// path with blanks arrives in pieces, which are joined by one blank each; the first of them is a host path
/// or a drive path. `arguments` are as main receives them. Empty when there is none.
std::string ArgumentPath(int count, const char* const* arguments);

}  // namespace Dorvane
