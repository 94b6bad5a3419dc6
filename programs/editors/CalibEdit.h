// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/EditedFile.h"
#include "programs/editors/StructureRules.h"
#include "programs/editors/StructureText.h"

// The structure file of the calibration system: its types and its epochs. A file of which a part is not
// understood is shown as far as it is, and never written.
namespace Dorvane {

constexpr std::size_t CalibGroups = 2;

struct CalibEdit {
    std::string Name;  // of the system
    EditedFile File;
    std::string Problem;
    StructureText Structure;
    StructureText Former;  // as it was read
    KnownNames Known;
};

/// The name of the calibration system: that of the last folder of `calibPath`, "CALIB" when that is empty.
std::string CalibSystemName(const std::string& calibPath);

/// Reads the structure of the calibration system. A file that is not there gives an empty structure of that
/// name.
CalibEdit OpenCalibStructure(const std::string& folder, const std::string& calibPath);

/// As for CHOICES.SYS. Group 0 holds the types, group 1 the epochs.
std::vector<std::string> CalibProblems(const CalibEdit& calibration);
std::vector<std::string> CalibNotes(const CalibEdit& calibration, std::size_t group);
std::string WhyCalibEntryStays(const CalibEdit& calibration, std::size_t group, const std::string& code);
std::string SaveCalibStructure(CalibEdit& calibration);

}  // namespace Dorvane
