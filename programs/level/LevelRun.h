// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/level/LevelBook.h"

namespace Dorvane {

/// What corrects the readings, from three files, each of which may be absent. Words are separated as in a
/// levelling book, and ";" begins a comment.
///   collimation   COLLIMATION value   rise of the line of sight, in millimeters per meter
///   staff         SCALE value         length of the staff's meter, in meters
///   inverted      a point on each line, on which the staff stands upside down
/// Lines of other words count for nothing. An entry without a number is named among the errors.
StaffCorrection ReadStaffCorrection(const std::string& collimationPath, const std::string& staffPath,
                                    const std::string& invertedPath, std::vector<std::string>& errors);

/// The levelling reduction from its parameter file LEVEL.PAR to the result file of line 3 and the protocol of
/// line 4. Line 5 names the list of inverted points, lines 7 and 8 the calibrations of the level and of the
/// staff. The field files are those with the extensions LEV (plain) and GSI in the survey index. Returns the
/// errors; each stands in the protocol too. A run without any result leaves the error file alone, not even
/// an old result. Raises what keeps it from knowing where its protocol belongs.
std::vector<std::string> RunLevelReduction();

}  // namespace Dorvane
