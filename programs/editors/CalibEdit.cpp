// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/CalibEdit.h"

#include <algorithm>

#include "core/Text.h"
#include "core/basGeneral.h"
#include "programs/editors/FolderUse.h"

namespace Dorvane {

namespace {

constexpr const char* Titles[CalibGroups] = {"Calibration types", "Epochs"};

CodeRule RuleOf(const CalibEdit& calibration, std::size_t group) {
    if (group == 1)
        return CalibrationEpochFault;
    return [&calibration](const std::string& code) { return CalibrationTypeFault(calibration.Known, code); };
}

}  // namespace

std::string CalibSystemName(const std::string& calibPath) {
    List1<std::string> parts;
    const int count = SplitPathParts(calibPath, parts);
    const std::string name = UpperCase(parts[count]);
    return name.empty() ? "CALIB" : name;
}

CalibEdit OpenCalibStructure(const std::string& folder, const std::string& calibPath) {
    CalibEdit calibration;
    calibration.Name = CalibSystemName(calibPath);
    calibration.File = OpenEditedFile(folder + calibration.Name + ".STR");
    if (calibration.File.Exists)
        calibration.Problem = ParseStructure(calibration.File.Content, CalibGroups, calibration.Structure);
    else
        calibration.Structure = NewStructure(calibration.Name, "Calibrations", CalibGroups);
    calibration.Former = calibration.Structure;
    calibration.Known = ReadKnownNames();
    return calibration;
}

std::vector<std::string> CalibProblems(const CalibEdit& calibration) {
    const std::string& name = calibration.Structure.Name;
    if (!calibration.Problem.empty())
        return {name + ": " + calibration.Problem};
    std::vector<std::string> problems;
    for (std::size_t i = 0; i < CalibGroups; ++i) {
        const std::vector<CodeEntry>& entries = calibration.Structure.Groups[i];
        const std::vector<CodeEntry>& former = calibration.Former.Groups[i];
        for (const std::string& problem : GroupProblems(Titles[i], entries, former, RuleOf(calibration, i)))
            problems.push_back(problem);
        for (const std::string& code : RemovedCodes(entries, former))
            if (const std::string problem = WhyCalibEntryStays(calibration, i, code); !problem.empty())
                problems.push_back(problem);
    }
    const std::string& description = calibration.Structure.Description;
    if (const std::string problem = DescriptionProblem(description);
        !problem.empty() && description != calibration.Former.Description)
        problems.push_back(name + " " + problem + ".");
    return problems;
}

std::vector<std::string> CalibNotes(const CalibEdit& calibration, std::size_t group) {
    const std::vector<CodeEntry>& entries = calibration.Structure.Groups[group];
    std::vector<std::string> notes = EntryFaults(entries, RuleOf(calibration, group));
    for (std::size_t i = 0; i < notes.size(); ++i)
        if (!notes[i].empty())
            notes[i] = NoteOf(entries[i], notes[i]);
    return notes;
}

std::string WhyCalibEntryStays(const CalibEdit& calibration, std::size_t group, const std::string& code) {
    const std::vector<CodeEntry>& former = calibration.Former.Groups[group];
    if (code.empty() || std::none_of(former.begin(), former.end(),
                                     [&](const CodeEntry& entry) { return entry.Code == code; }))
        return "";
    const std::string use =
        UseOfCalibName(calibration.Name, group == 0 ? NameLevel::Location : NameLevel::Type, code);
    return use.empty()
               ? ""
               : std::string(Titles[group]) + ": " + code + " is in use and cannot be removed: " + use + ".";
}

std::string SaveCalibStructure(CalibEdit& calibration) {
    const std::string problem =
        SaveEditedFiles({{&calibration.File, FormatStructure(calibration.Structure)}});
    if (problem.empty())
        calibration.Former = calibration.Structure;
    return problem;
}

}  // namespace Dorvane
