// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "programs/sitecheck/SiteReport.h"

namespace Dorvane {

/// Reads every structure file, registry, history, index and database of the site and holds them against each
/// other and against the folders of the disk. Nothing is changed. A file that cannot be read is a finding.
void CheckSite(SiteReport& report);

}  // namespace Dorvane
