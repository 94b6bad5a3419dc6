// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/CalibChoice.h"

#include <algorithm>

#include "core/basGeneral.h"

namespace Dorvane {

namespace {

const char* const Editor = "on the home menu under Edit > Calibration Structures.";

}  // namespace

void OpenCalibChoice(CalibChoice& choice) {
    choice = {};
    choice.Calibrations = ReadCalibRecords();
}

void SetCalibDirectory(CalibChoice& choice, const std::string& directory) {
    const StructureRecord& structure = choice.Calibrations.Structure;
    choice.Directory = directory;
    choice.Types.Clear();
    for (int i = 1; i <= structure.LocationCount; ++i)
        choice.Types.Add(structure.Location[i]);
    List1<std::string> parts;
    if (SplitPathParts(directory, parts) < 2)
        return;
    if (std::find(choice.Types.begin(), choice.Types.end(), parts[2]) != choice.Types.end())
        ChooseCalibType(choice, parts[2]);
}

void ChooseCalibType(CalibChoice& choice, const std::string& type) {
    const StructureRecord& structure = choice.Calibrations.Structure;
    choice.Type = type;
    choice.Epoch.clear();
    choice.Epochs.Clear();
    for (int i = 1; i <= structure.TypeCount; ++i)
        if (!IsRegistered(choice.Calibrations.Records, type, structure.Type[i]))
            choice.Epochs.Add(structure.Type[i]);
}

void ChooseCalibEpoch(CalibChoice& choice, const std::string& epoch) {
    choice.Epoch = epoch;
}

std::string WhyNoTypes(const CalibChoice& choice) {
    return choice.Types.Empty() ? std::string("There are no calibration types.  Enter them ") + Editor : "";
}

std::string WhyNoEpochs(const CalibChoice& choice) {
    if (choice.Calibrations.Structure.TypeCount == 0)
        return std::string("There are no calibration epochs.  Enter them ") + Editor;
    if (choice.Type.empty() || !choice.Epochs.Empty())
        return "";
    return choice.Type + " has all epochs already.  Enter more " + Editor;
}

bool ConfirmCalibration(const CalibChoice& choice, CalibrationAnswer& answer) {
    if (choice.Type.empty() || choice.Epoch.empty()) {
        TheDesktop().ShowMessage({.Text = "All entries must be full to add direcotory.",
                                  .Title = "Missing Information",
                                  .Picture = Icon::Information});
        return false;
    }
    answer = {choice.Type, choice.Epoch};
    return true;
}

}  // namespace Dorvane
