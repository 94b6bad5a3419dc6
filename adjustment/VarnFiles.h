// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adjustment/VarnState.h"

// The file clicks of the adjustment screen. Failures are reported as "frmVarn-" and the control's name.
namespace Dorvane {

/// Asks for the input file. A master copy (.ORG) or a version is taken only beside its master input file;
/// what is taken becomes txtInput as it was chosen, and its folder the last path.
void BrowseInput(VarnState& state);

/// Edits the ticked file of the chosen version. The input editor can make versions, so they are listed anew.
void EditFiles(VarnState& state);

/// Prints the ticked file, always the master's whatever version is chosen.
void PrintFiles(const VarnState& state);

}  // namespace Dorvane
