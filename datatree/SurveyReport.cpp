// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/SurveyReport.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/RegistryLine.h"

namespace Dorvane {

namespace {

bool IsFolder(std::string path) {
    return FolderExists(path);
}

// What cannot be read here is told by the steps that need it; taking stock must not keep them from their
// work.
std::int64_t CountLines(const std::string& path) {
    try {
        LineReader file(path);
        while (!file.AtEnd())
            file.ReadLine();
        return file.LineNumber();
    } catch (const RunTimeError&) {
        return 0;
    }
}

// Whether a file has a line of which the test is true.
template <class Test>
bool HasLine(const std::string& path, const Test& test) {
    try {
        if (!FileExists(path))
            return false;
        LineReader file(path);
        while (!file.AtEnd())
            if (test(file.ReadLine()))
                return true;
    } catch (const RunTimeError&) {
    }
    return false;
}

std::vector<std::string> FilesIn(const std::string& folder) {
    std::vector<std::string> names;
    try {
        for (const Drives::Entry& entry : Drives::List(folder))
            if (!entry.IsFolder)
                names.push_back(entry.Name);
    } catch (const RunTimeError&) {
        names.clear();
    }
    return names;
}

std::string FileNameOf(const std::string& path) {
    return path.substr(path.find_last_of('\\') + 1);
}

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

std::string Section(const std::string& title, const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += "\r\n    " + line;
    return text.empty() ? "" : "\r\n\r\n" + title + text;
}

std::string SurveyName(const SurveyAnswer& survey) {
    return survey.Root + "\\" + survey.Location + "  " + Trim(survey.TypeMulti) + "  " + survey.Epoch;
}

}  // namespace

bool IsRegistered(const SurveyAnswer& survey, const std::string& type) {
    return HasLine(Global().Init_path + survey.Root + ".PTH", [&](std::string_view line) {
        return RegistryName(line, 0) == survey.Root && RegistryName(line, 1) == survey.Location &&
               RegistryName(line, 2) == type && RegistryName(line, 3) == survey.Epoch;
    });
}

bool IsInHistory(const SurveyAnswer& survey, const std::string& type) {
    const std::string heading = survey.Root + "\\" + survey.Location + "\\" + type + "\\" + survey.Epoch;
    return HasLine(Global().Init_path + survey.Root + ".HIS",
                   [&](std::string_view line) { return UpperCase(Trim(line)) == heading; });
}

SurveyStock::SurveyStock(const SurveyAnswer& survey, const List1<std::string>& types)
    : Survey(survey),
      Names(types),
      Types(types.Count()),
      Registered(static_cast<int>(std::count_if(
          types.begin(), types.end(), [&](const std::string& type) { return IsRegistered(survey, type); }))),
      Registry(Global().Init_path + survey.Root + ".PTH"),
      History(Global().Init_path + survey.Root + ".HIS"),
      RegistryLines(CountLines(Registry)),
      HistoryLines(CountLines(History)),
      CoordinateFolder(Global().Coord_path + survey.Location + "\\"),
      CoordinateFiles(FilesIn(CoordinateFolder)) {
    const std::string root = Global().Data_drive + survey.Root;
    const std::string location = root + "\\" + survey.Location;
    NeedFolder(root);
    NeedFolder(location);
    for (const std::string& type : types) {
        const std::string folder = location + "\\" + type;
        NeedFolder(folder);
        NeedFolder(folder + "\\" + survey.Epoch);
        NeedFile("index", folder + "\\" + survey.Epoch + "\\" + survey.Epoch + ".IDX");
    }
    NeedFolder(location + "\\ADJUST");
    NeedFolder(location + "\\ADJUST\\" + survey.Epoch);
    NeedFolder(Global().Coord_path + survey.Location);
}

void SurveyStock::NeedFolder(const std::string& path) {
    Things.push_back({"folder " + path, path + "\\", IsFolder(path)});
}

void SurveyStock::NeedFile(const std::string& kind, const std::string& path) {
    Things.push_back({kind + " " + path, path, FileExists(path)});
}

SurveyReport SurveyStock::Compare() const {
    SurveyReport report;
    CompareLines(report, Registry, RegistryLines, true);
    CompareLines(report, History, HistoryLines, false);
    CompareHistory(report);
    for (const Thing& thing : Things) {
        const bool isThere = thing.Path.back() == '\\' ? IsFolder(thing.Path) : FileExists(thing.Path);
        if (thing.WasThere)
            report.Found.push_back(thing.Name);
        else
            (isThere ? report.Made : report.Lacking).push_back(thing.Name);
    }
    CompareCoordinateFiles(report);
    return report;
}

// The registry gets a line for each type. How many the history gets depends on what it holds already.
void SurveyStock::CompareLines(SurveyReport& report, const std::string& path, std::int64_t before,
                               bool ofEachType) const {
    const std::int64_t added = CountLines(path) - before;
    if (added > 0)
        report.Made.push_back(fmt::format("{} line{} in {}", added, added == 1 ? "" : "s", FileNameOf(path)));
    if (ofEachType && Registered > 0)
        report.Found.push_back(
            fmt::format("{} line{} in {}", Registered, Registered == 1 ? "" : "s", FileNameOf(path)));
    const int needed = Types - Registered;
    if (ofEachType && added < needed)
        report.Lacking.push_back(
            fmt::format("{} of {} lines in {}", needed - added, needed, FileNameOf(path)));
}

void SurveyStock::CompareHistory(SurveyReport& report) const {
    for (const std::string& type : Names)
        if (!IsInHistory(Survey, type))
            report.Lacking.push_back("the entry of " + type + " in " + FileNameOf(History));
}

void SurveyStock::CompareCoordinateFiles(SurveyReport& report) const {
    std::vector<std::string> made;
    for (const std::string& name : FilesIn(CoordinateFolder))
        if (std::find(CoordinateFiles.begin(), CoordinateFiles.end(), name) == CoordinateFiles.end())
            made.push_back(name);
    if (!made.empty())
        report.Made.push_back("coordinate files " + Joined(made));
    if (!CoordinateFiles.empty())
        report.Found.push_back("coordinate files " + Joined(CoordinateFiles));
}

void TellSurveyAdded(const SurveyAnswer& survey, const SurveyReport& report) {
    if (report.Made.empty() && report.Found.empty() && report.Lacking.empty())
        return;
    const bool whole = report.Lacking.empty();
    TheDesktop().ShowMessage({.Text = SurveyName(survey) + Section("Made:", report.Made) +
                                      Section("Found there and kept:", report.Found) +
                                      Section("Could not be made:", report.Lacking),
                              .Title = whole ? "Survey Added" : "Survey Not Wholly Added",
                              .Picture = whole ? Icon::Information : Icon::Exclamation});
}

std::string SurveyStatus(const SurveyAnswer& survey, const SurveyReport& report) {
    return SurveyName(survey) + (report.Lacking.empty() ? " was added" : " was not wholly added");
}

}  // namespace Dorvane
