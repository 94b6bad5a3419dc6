// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "adjustment/AdjustmentResults.h"

// The lines of the database update file, and which of them the update cannot take.
namespace Dorvane {

/// The first line: the date "mm-dd-yy", project and task.
std::string DbsHeader(const std::string& date, const std::string& project, const std::string& task);

/// The line of a point. A name that runs past its columns breaks it in two.
std::string DbsRecord(const AdjustedPoint& point);

/// What of an update file cannot be read back, or not be stored in the coordinate database: one text each,
/// "<name>: <reason>", the first line's before those of the points. A single line that cannot be read makes
/// the update refuse the whole file.
std::vector<std::string> DbsDoubts(const AdjustmentResults& results, const std::string& project,
                                   const std::string& task);

}  // namespace Dorvane
