// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/CalibEdit.h"

#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

CalibEdit OpenCalibStructure(const std::string& folder, const std::string& calibPath) {
    List1<std::string> parts;
    const int count = SplitPathParts(calibPath, parts);
    std::string name = UpperCase(parts[count]);
    if (name.empty())
        name = "CALIB";
    CalibEdit calibration;
    calibration.File = OpenEditedFile(folder + name + ".STR");
    if (calibration.File.Exists)
        calibration.Problem = ParseStructure(calibration.File.Content, CalibGroups, calibration.Structure);
    else
        calibration.Structure = NewStructure(name, "Calibrations", CalibGroups);
    return calibration;
}

std::vector<std::string> CalibProblems(const CalibEdit& calibration) {
    const std::string& name = calibration.Structure.Name;
    if (!calibration.Problem.empty())
        return {name + ": " + calibration.Problem};
    std::vector<std::string> problems = GroupProblems("Calibration types", calibration.Structure.Groups[0]);
    for (const std::string& problem : GroupProblems("Epochs", calibration.Structure.Groups[1]))
        problems.push_back(problem);
    if (const std::string problem = DescriptionProblem(calibration.Structure.Description); !problem.empty())
        problems.push_back(name + " " + problem + ".");
    return problems;
}

std::string SaveCalibStructure(CalibEdit& calibration) {
    return SaveEditedFiles({{&calibration.File, FormatStructure(calibration.Structure)}});
}

}  // namespace Dorvane
