// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "reduction/ReduceTabs.h"

// What the operator is told of a reduction, beside the pictures of its tab.
namespace Dorvane {

/// One line on a tab: whether it is reduced, whether that is up to date, and what came of the last run.
std::string ReductionStatus(const ReduceTab& tab);

/// Tells behind a run, in a message, that the program has left no results, or that it tells errors; with the
/// first lines of its error file, those up to a blank line. Nothing when the program was not run, or when it
/// has left results and no errors. A failure is reported as "frmReduce-cmdReduce_Click".
void TellReductionEnd(const ReduceState& state, int tab);

}  // namespace Dorvane
