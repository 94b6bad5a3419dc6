// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/sitecheck/SiteReport.h"

namespace Dorvane {

/// What may exist in a system.
struct SiteSystem {
    std::string Name;
    bool IsCalibration = false;  // its types stand in Types and its epochs in Epochs
    bool IsKnown = false;        // its structure file was understood
    std::vector<std::string> Locations;
    std::vector<std::string> Types;
    std::vector<std::string> Epochs;
};

/// Reads CHOICES.SYS and the structure files of Init_path and tells what is wrong with them. The data systems
/// in the order of the file, then the calibration system.
std::vector<SiteSystem> CheckStructures(SiteReport& report);

/// True when a list holds a name.
bool Holds(const std::vector<std::string>& names, const std::string& name);

}  // namespace Dorvane
