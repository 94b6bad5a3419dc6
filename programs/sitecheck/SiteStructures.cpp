// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/SiteStructures.h"

#include <algorithm>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/basGeneral.h"
#include "programs/editors/CalibEdit.h"
#include "programs/editors/ChoiceEdit.h"

namespace Dorvane {

namespace {

std::string WithoutPoint(std::string sentence) {
    if (!sentence.empty() && sentence.back() == '.')
        sentence.pop_back();
    return sentence;
}

// "Line 3 has ..." becomes a finding with its line.
Finding FindingOf(const std::string& file, const std::string& problem) {
    constexpr std::string_view Beginning = "Line ";
    Finding finding{file, 0, problem};
    const std::size_t end = problem.find(' ', Beginning.size());
    if (problem.starts_with(Beginning) && end != std::string::npos) {
        finding.Line = std::stol(problem.substr(Beginning.size()));
        finding.What = problem.substr(end + 1);
    }
    finding.What = WithoutPoint(finding.What);
    return finding;
}

std::vector<std::string> CodesOf(SiteReport& report, const std::string& file, const std::string& group,
                                 const std::vector<CodeEntry>& entries) {
    const std::vector<std::string> faults = EntryFaults(entries, {});
    std::vector<std::string> codes;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!faults[i].empty())
            report.Findings.push_back(
                {file, 0, WithoutPoint("in its " + group + " " + NoteOf(entries[i], faults[i]))});
        codes.push_back(entries[i].Code);
    }
    return codes;
}

SiteSystem ReadSystem(SiteReport& report, const std::string& name, std::size_t groups) {
    SiteSystem system;
    system.Name = name;
    system.IsCalibration = groups == CalibGroups;
    const std::string file = Global().Init_path + name + ".STR";
    if (!LookAt(report, file))
        return system;
    if (!FileExists(file)) {
        report.Findings.push_back({file, 0, "is not there, so nothing can be added to the system " + name});
        return system;
    }
    StructureText structure;
    const std::string problem = ParseStructure(Drives::ReadFile(file), groups, structure);
    if (!problem.empty()) {
        report.Findings.push_back(FindingOf(file, problem));
        return system;
    }
    system.IsKnown = true;
    std::size_t group = 0;
    if (!system.IsCalibration)
        system.Locations = CodesOf(report, file, "locations", structure.Groups[group++]);
    system.Types = CodesOf(report, file, "data types", structure.Groups[group++]);
    system.Epochs = CodesOf(report, file, "epochs", structure.Groups[group]);
    return system;
}

}  // namespace

std::vector<SiteSystem> CheckStructures(SiteReport& report) {
    std::vector<SiteSystem> systems;
    const std::string file = Global().Init_path + "CHOICES.SYS";
    if (!LookAt(report, file))
        return systems;
    if (!FileExists(file)) {
        report.Findings.push_back({file, 0, "is not there, so the tree is empty"});
        return systems;
    }
    std::vector<SystemEdit> listed;
    if (const std::string problem = ParseChoices(Drives::ReadFile(file), listed); !problem.empty())
        report.Findings.push_back(FindingOf(file, problem));
    for (const SystemEdit& system : listed)
        if (system.IsData() && !system.Name.empty())
            systems.push_back(ReadSystem(report, system.Name, DataGroups));
    const std::string calibration = CalibSystemName(Global().Calib_path);
    if (!Global().Calib_path.empty() && (FileExists(Global().Init_path + calibration + ".STR") ||
                                         FileExists(Global().Init_path + calibration + ".PTH")))
        systems.push_back(ReadSystem(report, calibration, CalibGroups));
    return systems;
}

bool Holds(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace Dorvane
