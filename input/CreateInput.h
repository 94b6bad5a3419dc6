// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "input/InputScreen.h"

namespace Dorvane {

/// The click of cmdCreate: imports every folder on the tree, asks where the input file goes and how it is
/// called, and writes <NAME>.INP, .ORG, .SUM and .VER there, all or none. Only when they are written they are
/// the files in hand. The model is empty afterwards, whatever happened. Reports as
/// "frmInput-cmdCreate_Click".
void CreateInputFile(InputScreen& screen, const InputServices& services);

/// Asks for the target folder, in the tree or by dialog, into lblDirectory; a cancel leaves it as it was.
/// Says so when there is nothing to write. True when there is data and a folder was chosen. Reports as
/// "basInput-SetupCreateInput".
bool SetupCreateInput(InputScreen& screen, const InputServices& services, std::int16_t pointCount,
                      std::int16_t stationCount);

/// Asks for the name of the input file until it is one that does not exist or may be overwritten. The name in
/// upper case, cut before its first point, with ".INP"; empty when the operator gives none.
std::string GetInputFileName(const std::string& folder);

}  // namespace Dorvane
