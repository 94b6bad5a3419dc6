// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/List1.h"
#include "core/Navigator.h"
#include "reduction/CalibTree.h"

namespace Dorvane {

/// What the controls of the dialog "Select Calibration to Add" hold, and what they are filled from.
struct CalibChoice {
    CalibRecords Calibrations;

    std::string Directory;      // lblDirectory
    List1<std::string> Types;   // lstType
    List1<std::string> Epochs;  // lstEpoch
    std::string Type;           // lblType
    std::string Epoch;          // lblEpoch
};

/// Opens the dialog: reads the structure and the registry.
void OpenCalibChoice(CalibChoice& choice);

/// Takes the folder that the tree has selected: all types are offered, and the one that is the second part of
/// the folder's path is chosen. The first part is the drive, so that needs a Calib_path that is a drive's
/// root.
void SetCalibDirectory(CalibChoice& choice, const std::string& directory);

/// A click on a type: the epochs are offered that the registry does not have for it yet, in the order of the
/// structure, so that a calibration cannot be added twice.
void ChooseCalibType(CalibChoice& choice, const std::string& type);

/// A click on an epoch.
void ChooseCalibEpoch(CalibChoice& choice, const std::string& epoch);

/// Why the list of types, or that of epochs, offers nothing, and where its names are made; empty when it
/// offers something, or may do so after another choice.
std::string WhyNoTypes(const CalibChoice& choice);
std::string WhyNoEpochs(const CalibChoice& choice);

/// The click of cmdOK: false when the dialog stays because a name is missing, which a message says.
bool ConfirmCalibration(const CalibChoice& choice, CalibrationAnswer& answer);

}  // namespace Dorvane
