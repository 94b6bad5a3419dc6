// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reduction/ReduceTabs.h"

namespace Dorvane {

/// The click of cmdReduce on tab `tab` (from 1): checks the survey index, deletes the tab's old results,
/// writes the parameter file, runs the program of `Programs\` and waits for its end, and shows what it left.
/// Behind a failure, or a parameter file that could not be written whole, no program is run, and the tab
/// shows that the old results are gone. Only when the program is not there, which a message says, the tab
/// stays as it was. Neither a failed start nor the program's exit code is looked at. The current drive
/// becomes that of Param_path. Reports as "frmReduce-cmdReduce_Click". True when the tab is to be drawn anew
/// from its state; TellReductionEnd then says what else there is to say.
bool RunReduction(ReduceState& state, int tab);

}  // namespace Dorvane
