// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/List1.h"
#include "reduction/ReduceTabs.h"

// The commands on the result files of a tab (from 1). `selected` holds the selected items of its result list,
// from the top.
namespace Dorvane {

/// The click of cmdEdit: starts the general editor once for each selected file, without waiting. Reports as
/// "frmReduce-cmdEdit_Click".
void EditResults(const ReduceState& state, int tab, const List1<std::string>& selected);

/// The click of cmdPrint: prints each selected file. Reports as "frmReduce-cmdPrint_Click".
void PrintResults(const ReduceState& state, int tab, const List1<std::string>& selected);

}  // namespace Dorvane
