// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/EditedFile.h"
#include "programs/editors/StructureText.h"

// The structure file of the calibration system: its types and its epochs. A file of which a part is not
// understood is shown as far as it is, and never written.
namespace Dorvane {

constexpr std::size_t CalibGroups = 2;

struct CalibEdit {
    EditedFile File;
    std::string Problem;
    StructureText Structure;
};

/// Reads the structure that bears the name of the last folder of `calibPath`, "CALIB" when that is empty. A
/// file that is not there gives an empty structure of that name.
CalibEdit OpenCalibStructure(const std::string& folder, const std::string& calibPath);

/// As for CHOICES.SYS.
std::vector<std::string> CalibProblems(const CalibEdit& calibration);
std::string SaveCalibStructure(CalibEdit& calibration);

}  // namespace Dorvane
