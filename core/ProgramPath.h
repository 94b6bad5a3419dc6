// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// A path of a profile. "%AppPath%" at its head stands for the program's folder, wherever that lies, so that
/// a profile can name what is shipped with the program; any other path stays as it is.
std::string ExpandAppPath(const std::string& path);

}  // namespace Dorvane
