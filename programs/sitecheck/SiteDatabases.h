// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/sitecheck/SiteReport.h"

namespace Dorvane {

/// Reads every file of a location's coordinate database and holds it against the others.
void CheckDatabase(SiteReport& report, const std::string& location);

/// The locations of the coordinate database: its folders, and those of the surveys.
std::vector<std::string> DatabaseLocations(const std::vector<SurveyNames>& surveys);

/// What a damaged database is rebuilt of.
struct DatabaseRepair {
    long Kept = 0;
    long Dropped = 0;  // lines that are no records
};

/// Makes header, index and list of a type anew from the records that its data file holds, in their order. A
/// line that is no record is left out. Raises what reading and writing raise; what was there is untouched
/// then. `folder` ends in a backslash.
DatabaseRepair RebuildDatabase(const std::string& folder, int typeCode);

/// The same for the reference file.
DatabaseRepair RebuildReference(const std::string& folder, const std::string& location);

}  // namespace Dorvane
