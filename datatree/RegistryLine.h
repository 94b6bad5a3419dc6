// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "core/Text.h"

namespace Dorvane {

/// The name of a level in a line of a registry, upper case: 0 is the system, in column 10, and each level
/// below it stands ten columns further.
inline std::string RegistryName(std::string_view line, int level) {
    return UpperCase(Trim(Mid(line, 10 + level * 10, 8)));
}

}  // namespace Dorvane
