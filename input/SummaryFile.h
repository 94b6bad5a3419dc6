// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "input/InputFiles.h"
#include "input/ObservationModel.h"

namespace Dorvane {

/// Composes the summary (.SUM) of an input file, whole: a heading and, for each point in table order, the
/// number of its observations of each kind. A point with a single observation of some kind is marked "*".
/// False after a failure, as when it could not be written; it was reported as "basWrite-WriteSummaryHeader".
bool WriteSummaryHeader(InputFiles& files, const std::string& folder, const std::string& inputName,
                        const List1<ObsPoint>& points, const std::string& project, const std::string& task);

/// One point's row: the name at column 1, the counts of horizontal angles, zenith angles, slope distances and
/// height differences at 15, 21, 27 and 33, the mark at 39. A count of 0 shows as five blanks.
std::string SummaryRow(const ObsPoint& point);

}  // namespace Dorvane
