// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/List1.h"

namespace Dorvane {

/// Writes the parameter file, the whole interface to a reduction program: lines that each hold one path.
///
/// Both lists are the words of a profile value, from 1. `paramTokens`: reduction kind ("ANGLE", "DISTANCE",
/// "LEVEL" or "TOTAL"; any other has the two common lines only), name of the file in Param_path, two
/// auxiliary files. `reduceTokens`: program, then its result files. `folder` is the survey folder with its
/// backslash; the calibration type and epoch name a folder under Calib_path, which nothing checks. For
/// "DISTANCE" the file HEIGHTS.DAT is copied from the program's samples when the survey folder has none.
///
/// Reports as "basReduce-WriteParamFile": error 9 for a missing word, 76 without a Param_path. Without a file
/// name the file is not opened; a word missing later leaves it with the lines written so far. True when the
/// file was written whole.
bool WriteParamFile(const std::string& folder, const List1<std::string>& paramTokens,
                    const List1<std::string>& reduceTokens, const std::string& surveyIndexName,
                    const std::string& calibrationType, const std::string& epoch);

}  // namespace Dorvane
