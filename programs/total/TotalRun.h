// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace Dorvane {

/// The total-station reduction from its parameter file TOTAL.PAR to the result file of line 3 and the
/// protocol beside it (extension PRO). The field files are those with the extension GSI in the survey index.
/// Returns the errors; each stands in the protocol too. A run without any result leaves no result file, not
/// even an old one. Raises what keeps it from knowing where its protocol belongs.
std::vector<std::string> RunTotalReduction();

}  // namespace Dorvane
