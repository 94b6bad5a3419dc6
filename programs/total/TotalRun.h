// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "programs/total/TotalReduction.h"

namespace Dorvane {

/// One program on total-station books: where its parameter file names what it writes.
struct BookProgram {
    std::string Name;           // as it signs its errors
    std::string Title;          // of its protocol
    std::string ParameterFile;  // bare name in Param_path
    std::size_t ResultLine;     // of the parameter file, from 1
    std::size_t ProtocolLine;   // 0: beside the result file, with the extension PRO
    ResultKind Kind;
};

inline const BookProgram TotalProgram{"TOTRED", "TOTAL STATION REDUCTION", "TOTAL.PAR", 3,
                                      0,        ResultKind::Total};
inline const BookProgram AngleProgram{"ANGRED", "ANGLE REDUCTION", "ANGLE.PAR", 3, 4, ResultKind::Angle};
inline const BookProgram DistanceProgram{"DISTRED", "DISTANCE REDUCTION", "DIST.PAR", 9,
                                         10,        ResultKind::Distance};

/// Reduces the field files with the extension GSI of the survey index to the program's result file and
/// protocol. Returns the errors; each stands in the protocol too. A run without any result leaves the error
/// file alone, not even an old result. Raises what keeps it from knowing where its protocol belongs.
std::vector<std::string> RunBookReduction(const BookProgram& program);

}  // namespace Dorvane
