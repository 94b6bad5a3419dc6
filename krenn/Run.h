// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "krenn/Errors.h"

namespace Krenn {

// One whole run: reads the input file and its parameter file, adjusts, writes the listing beside the input,
// and the parameter file with its defaults where there is none. Never throws: whatever goes wrong becomes the
// number returned and, where the folder can be written, the listing of a failed run.
ErrorNumber RunAdjustment(const std::string& inputPath, int type) noexcept;

// Good, NoInputPath or InputNotReadable: what can be said before a run.
ErrorNumber CheckInput(const std::string& inputPath) noexcept;

}  // namespace Krenn
