// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "adjustment/AdjustmentResults.h"

namespace Dorvane {

/// Reads the adjusted stations and points from a listing of the adjustment package and, when `readAll` is
/// true, the residual tables and the standard deviations behind them. The listing is known by its marker
/// lines and blank lines alone, so what stands before "Final results" is of no matter.
///
/// 1 when the reading reached its proper end, 0 when the file ended inside a section (what was read stays in
/// `results`), -1 when there is no such file. Any other failure, a list past 32767 among them, is reported as
/// "basRead-ReadOutputFile" and gives 0.
std::int16_t ReadOutputFile(const std::string& folder, const std::string& fileName,
                            AdjustmentResults& results, bool readAll);

}  // namespace Dorvane
