// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProgramPath.h"

#include <string_view>

#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

std::string ExpandAppPath(const std::string& path) {
    constexpr std::string_view Name = "%AppPath%";
    if (!EqualIgnoringCase(std::string_view(path).substr(0, Name.size()), Name))
        return path;
    return AppPath() + path.substr(Name.size());
}

}  // namespace Dorvane
