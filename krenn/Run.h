// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "krenn/Errors.h"
#include "krenn/adjust/Phases.h"

namespace Krenn {

// What a run did, for those who measure it.
struct RunReport {
    Phases phases;
    int points = 0;
    int observations = 0;
    int iterations = 0;
};

// One whole run: reads the input file and its parameter file, adjusts, writes the listing beside the input,
// and the parameter file with its defaults where there is none. Never throws: whatever goes wrong becomes the
// number returned and, where the folder can be written, the listing of a failed run. `report` may be null; it
// is filled by a good run.
ErrorNumber RunAdjustment(const std::string& inputPath, int type, RunReport* report = nullptr) noexcept;

// Good, NoInputPath or InputNotReadable: what can be said before a run.
ErrorNumber CheckInput(const std::string& inputPath) noexcept;

}  // namespace Krenn
