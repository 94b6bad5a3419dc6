// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <limits>
#include <string>
#include <vector>

namespace Dorvane {

/// A key of the package's parameter file.
struct KnownParameter {
    std::string Key;      // upper case
    std::string Meaning;  // with its unit
    std::string Default;
    double Lowest = -std::numeric_limits<double>::infinity();
    double Highest = std::numeric_limits<double>::infinity();
    bool IsNumber = true;  // else any text
};

/// The keys that the package reads: none. A table given to the editor makes it offer its keys, tell their
/// meaning and check their values.
inline const std::vector<KnownParameter> KnownParameters{};

}  // namespace Dorvane
