// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/SiteRegistries.h"

#include <algorithm>
#include <map>
#include <set>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/RegistryLine.h"
#include "datatree/basRead.h"

namespace Dorvane {

namespace {

constexpr int HistoryHead = 4;

std::string RegistryOf(const SiteSystem& system) {
    return Global().Init_path + system.Name + ".PTH";
}

std::string HistoryOf(const SiteSystem& system) {
    return Global().Init_path + system.Name + ".HIS";
}

std::string StructureOf(const SiteSystem& system) {
    return Global().Init_path + system.Name + ".STR";
}

bool HasAllNames(const SiteSystem& system, const SurveyNames& names) {
    return !names.System.empty() && (system.IsCalibration || !names.Location.empty()) &&
           !names.Type.empty() && !names.Epoch.empty();
}

std::string HeadingOf(const SiteSystem& system, const SurveyNames& names) {
    return names.System + "\\" + (system.IsCalibration ? "" : names.Location + "\\") + names.Type + "\\" +
           names.Epoch;
}

// What of a line no structure knows; empty when it knows all of it.
std::string UnknownName(const SiteSystem& system, const SurveyNames& names) {
    if (names.System != system.Name)
        return "system " + names.System;
    if (!system.IsKnown)
        return "";
    if (!system.IsCalibration && !Holds(system.Locations, names.Location))
        return "location " + names.Location;
    if (!Holds(system.Types, names.Type))
        return "data type " + names.Type;
    return Holds(system.Epochs, names.Epoch) ? "" : "epoch " + names.Epoch;
}

void CheckMarks(SiteReport& report, const std::string& file, const std::vector<std::string>& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i].find(EndOfFileMark) != std::string::npos)
            report.Findings.push_back({file, static_cast<long>(i) + 1,
                                       "holds an end-of-file mark, behind which old programs read nothing"});
}

// The folders of the history and the lines of their headings; true stands for a last event that created them.
struct History {
    bool IsThere = false;
    std::map<std::string, std::pair<long, bool>> Folders;
};

void TakeLine(History& history, std::string& folder, const std::string& line, long number) {
    if (Left(line, 1) != " " && !Trim(line).empty()) {
        folder = UpperCase(Trim(line));
        history.Folders[folder].first = number;
    } else if (!folder.empty() && Mid(line, 5, 7) == "Created") {
        history.Folders[folder].second = true;
    } else if (!folder.empty() && Mid(line, 5, 7) == "Deleted") {
        history.Folders[folder].second = false;
    }
}

History ReadHistory(SiteReport& report, const SiteSystem& system) {
    History history;
    const std::string file = HistoryOf(system);
    if (!LookAt(report, file) || !FileExists(file))
        return history;
    history.IsThere = true;
    const std::vector<std::string> lines = LinesOf(file);
    CheckMarks(report, file, lines);
    if (lines.size() <= HistoryHead)
        report.Findings.push_back({file, 0, "has fewer than five lines, so that reading it fails"});
    std::string folder;
    for (std::size_t i = HistoryHead; i < lines.size(); ++i)
        TakeLine(history, folder, lines[i], static_cast<long>(i) + 1);
    const auto created = std::count_if(history.Folders.begin(), history.Folders.end(),
                                       [](const auto& entry) { return entry.second.second; });
    if (created > HistoryRecord::MostFolders)
        report.Findings.push_back(
            {file, 0,
             "tells of " + std::to_string(created) + " folders, of which the tree shows the first 100"});
    return history;
}

void CheckLine(SiteReport& report, const SiteSystem& system, const History& history, const SurveyNames& names,
               long number) {
    const std::string file = RegistryOf(system);
    if (const std::string unknown = UnknownName(system, names); !unknown.empty())
        report.Findings.push_back(
            {file, number, "names the " + unknown + ", which " + StructureOf(system) + " does not know"});
    const std::string folder = FolderOf(system, names);
    if (!IsFolder(folder))
        report.Findings.push_back({file, number, "has no folder " + folder, Mend::MakeFolder, folder, names});
    const auto entered = history.Folders.find(HeadingOf(system, names));
    if (!system.IsCalibration && (entered == history.Folders.end() || !entered->second.second))
        report.Findings.push_back(
            {file, number, "is not told of in " + HistoryOf(system), Mend::EnterHistory, folder, names});
}

std::set<SurveyNames> CheckLines(SiteReport& report, const SiteSystem& system, const History& history) {
    std::set<SurveyNames> registered;
    const std::string file = RegistryOf(system);
    if (!LookAt(report, file) || !FileExists(file))
        return registered;
    const std::vector<std::string> lines = LinesOf(file);
    CheckMarks(report, file, lines);
    if (lines.empty())
        report.Findings.push_back({file, 0, "has no line, so that reading it fails"});
    const std::vector<long> empty = EmptyLines(lines, system.IsCalibration);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const long number = static_cast<long>(i) + 1;
        const SurveyNames names = NamesOfLine(lines[i], system.IsCalibration);
        if (std::find(empty.begin(), empty.end(), number) != empty.end()) {
            report.Findings.push_back(
                {file, number, Trim(lines[i]).empty() ? "is blank" : "stands there twice", Mend::DropLines});
        } else if (!HasAllNames(system, names)) {
            report.Findings.push_back({file, number, "does not name a folder of all levels"});
        } else {
            CheckLine(report, system, history, names, number);
            registered.insert(names);
        }
    }
    return registered;
}

std::vector<std::string> FoldersIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const Drives::Entry& entry : Drives::List(folder))
        if (entry.IsFolder)
            names.push_back(UpperCase(entry.Name));
    return names;
}

// Folders of surveys that no line of the registry names. Other folders are nobody's business here.
void CheckDisk(SiteReport& report, const SiteSystem& system, const std::set<SurveyNames>& registered) {
    const std::vector<std::string> top{""};
    SurveyNames names{system.Name, "", "", ""};
    for (const std::string& location : system.IsCalibration ? top : system.Locations) {
        names.Location = location;
        for (const std::string& type : system.Types) {
            names.Type = type;
            names.Epoch.clear();
            const std::string folder = FolderOf(system, names);
            if (!IsFolder(folder) || !LookAt(report, folder))
                continue;
            for (const std::string& epoch : FoldersIn(folder)) {
                names.Epoch = epoch;
                if (Holds(system.Epochs, epoch) && registered.count(names) == 0)
                    report.Findings.push_back({FolderOf(system, names), 0,
                                               "is not registered in " + RegistryOf(system), Mend::Register,
                                               "", names});
            }
        }
    }
}

void CheckHistory(SiteReport& report, const SiteSystem& system, const History& history,
                  const std::set<SurveyNames>& registered) {
    std::set<std::string> known;
    for (const SurveyNames& names : registered)
        known.insert(HeadingOf(system, names));
    for (const auto& [folder, entry] : history.Folders)
        if (entry.second && known.count(folder) == 0)
            report.Findings.push_back(
                {HistoryOf(system), entry.first,
                 "tells of " + folder + ", which " + RegistryOf(system) + " does not register"});
}

}  // namespace

std::vector<std::string> LinesOf(const std::string& path) {
    std::vector<std::string> lines;
    LineReader reader(path);
    while (!reader.AtEnd())
        lines.emplace_back(reader.ReadLine());
    return lines;
}

SurveyNames NamesOfLine(const std::string& line, bool isCalibration) {
    const auto code = [&](int level) { return RegistryName(line, level); };
    if (isCalibration)
        return {code(0), "", code(1), code(2)};
    return {code(0), code(1), code(2), code(3)};
}

std::vector<long> EmptyLines(const std::vector<std::string>& lines, bool isCalibration) {
    std::vector<long> empty;
    std::set<SurveyNames> seen;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (Trim(lines[i]).empty() || !seen.insert(NamesOfLine(lines[i], isCalibration)).second)
            empty.push_back(static_cast<long>(i) + 1);
    return empty;
}

std::string FolderOf(const SiteSystem& system, const SurveyNames& names) {
    const auto below = [](const std::string& name) { return name.empty() ? "" : name + "\\"; };
    if (system.IsCalibration)
        return Global().Calib_path + below(names.Type) + below(names.Epoch);
    return Global().Data_drive + below(names.System) + below(names.Location) + below(names.Type) +
           below(names.Epoch);
}

std::vector<SurveyNames> CheckRegistry(SiteReport& report, const SiteSystem& system) {
    const History history = ReadHistory(report, system);
    const std::set<SurveyNames> registered = CheckLines(report, system, history);
    if (system.IsKnown)
        CheckDisk(report, system, registered);
    CheckHistory(report, system, history, registered);
    std::vector<SurveyNames> surveys;
    for (const SurveyNames& names : registered)
        if (IsFolder(FolderOf(system, names)))
            surveys.push_back(names);
    return surveys;
}

}  // namespace Dorvane
