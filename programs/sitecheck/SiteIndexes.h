// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "programs/sitecheck/SiteReport.h"

namespace Dorvane {

/// Holds the index of a survey's folder against the books that lie there. Books are the files of which the
/// profile of the data types says that an upload lists them.
void CheckIndex(SiteReport& report, const std::string& folder, const SurveyNames& names);

/// The name of the index in a folder, that of its epoch where there are several; empty where there is none.
std::string IndexIn(const std::string& folder, const std::string& epoch);

}  // namespace Dorvane
