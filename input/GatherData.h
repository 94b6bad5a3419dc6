// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "input/InputScreen.h"

namespace Dorvane {

/// Reads the result files of every folder on the screen's tree into the model, and gives the points their
/// approximate coordinates. It only adds: the model is to be empty before. Always true: a failure was
/// reported, as "frmInput-GatherData" or by the procedure at fault, and what was gathered before it stays.
bool GatherData(InputScreen& screen, const InputServices& services);

}  // namespace Dorvane
