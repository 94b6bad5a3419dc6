// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reduction/ReduceTabs.h"

namespace Dorvane {

/// The click of cmdReduce on tab `tab` (from 1): checks the survey index, deletes the tab's old results,
/// writes the parameter file, runs the program of `Programs\` and waits for its end, and shows what it left.
/// When the parameter file could not be written whole, or the program is not there, which a message says, the
/// run ends with the old results gone and the tab as it was. Neither a failed start nor the program's exit
/// code is looked at. The current drive becomes that of Param_path. Reports as "frmReduce-cmdReduce_Click".
/// True when the tab is to be drawn anew from its state.
bool RunReduction(ReduceState& state, int tab);

}  // namespace Dorvane
