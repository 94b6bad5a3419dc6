// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/sitecheck/SiteReport.h"

namespace Dorvane {

/// What was mended.
struct MendReport {
    std::vector<std::string> Done;    // a sentence each
    std::vector<std::string> Failed;  // a sentence each
    std::string Copies;               // the folder that holds what was there before; empty when nothing was
};

/// Mends findings of a check, each with the files as they are now, and holding their folder. Before a file is
/// changed a copy of it goes to a new folder below Work_path\SITECHK\; where that fails nothing is mended.
MendReport MendSite(const std::vector<Finding>& findings);

}  // namespace Dorvane
