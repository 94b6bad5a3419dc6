// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputWriter.h"

#include "core/Globals.h"
#include "core/LineWriter.h"
#include "core/ReplaceFiles.h"
#include "input/InputRows.h"

namespace Dorvane {

namespace {

constexpr const char* SectionEnd = "END";

void AddLine(std::string& text, std::string_view line) {
    text.append(line).append("\r\n");
}

std::string HeaderText(const std::string& project, const std::string& task) {
    std::string text;
    AddLine(text, "NORL   5 R M T   -   ORIENTATION DATA CAPTURE");
    AddLine(text, "");
    AddLine(text, "  PROJECT = " + project);
    AddLine(text, "     TASK = " + task);
    AddLine(text, "     DATE = " + GeneralDate(TheDesktop().Now()));
    AddLine(text, "");
    AddLine(text, "LISTING = STATS");
    AddLine(text, "");
    return text;
}

// Opening for output fails at once where a file could not be written; dropped, it leaves nothing behind.
void TestOpening(const std::string& path) {
    const LineWriter opened(path);
}

void AddStation(InputFiles& files, const ObsStation& station) {
    const bool placed = station.HasCoords != SwitchOff;
    AddLine(files.InpText,
            placed ? InpCoordinates(station.Name, station.X, station.Y, station.Z) : InpName(station.Name));
    AddLine(files.OrgText, placed ? OrgCoordinates("STA", station.Name, station.X, station.Y, station.Z)
                                  : OrgName("STA", station.Name));
}

void AddStations(InputFiles& files, const ObservationModel& model) {
    AddLine(files.InpText, "Theodolite Stations");
    for (const bool placed : {true, false})
        for (const ObsStation& station : model.Stations)
            if (station.Use != SwitchOff && (station.HasCoords != SwitchOff) == placed)
                AddStation(files, station);
    AddLine(files.InpText, SectionEnd);
}

void AddPoint(InputFiles& files, const ObsPoint& point) {
    const bool placed = point.CoordSource != 0;
    AddLine(files.InpText,
            placed ? InpCoordinates(point.Name, point.X, point.Y, point.Z) : InpName(point.Name));
    AddLine(files.OrgText, placed ? OrgCoordinates("PTS", point.Name, point.X, point.Y, point.Z)
                                  : OrgName("PTS", point.Name));
}

void AddPoints(InputFiles& files, const ObservationModel& model) {
    AddLine(files.InpText, "Object Points");
    for (const int source : {4, 3, 2, 1, 0})
        for (const ObsPoint& point : model.Points)
            if (point.CoordSource == source && point.Switch1 != SwitchOff && point.Switch2 != SwitchOff)
                AddPoint(files, point);
    AddLine(files.InpText, SectionEnd);
}

// What each kind of observation gives to a section. A polar observation has its one row of the master at the
// moment of its distance row, so its angle row adds none.
template <class Polar>
void AddPolarDistance(InputFiles& files, const Polar& observation) {
    if (observation.UseD == SwitchOff)
        return;
    AddLine(files.InpText, InpDistance(observation));
    AddLine(files.OrgText, OrgRow(observation));
}
void AddDistance(InputFiles& files, const TotalObs& observation) {
    AddPolarDistance(files, observation);
}
void AddDistance(InputFiles& files, const TrackerObs& observation) {
    AddPolarDistance(files, observation);
}
void AddDistance(InputFiles& files, const DistanceObs& observation) {
    if (observation.Use == SwitchOff)
        return;
    AddLine(files.InpText, InpDistance(observation));
    AddLine(files.OrgText, OrgRow(observation));
}
void AddDistance(InputFiles&, const AngleObs&) {}
void AddDistance(InputFiles&, const HeightObs&) {}

void AddHeight(InputFiles& files, const HeightObs& observation) {
    if (observation.Use == SwitchOff)
        return;
    AddLine(files.InpText, InpHeight(observation));
    AddLine(files.OrgText, OrgRow(observation));
}
template <class Other>
void AddHeight(InputFiles&, const Other&) {}

void AddAngles(InputFiles& files, const TotalObs& observation) {
    if (observation.UseH != SwitchOff)
        AddLine(files.InpText, InpAngles(observation));
}
void AddAngles(InputFiles& files, const TrackerObs& observation) {
    if (observation.UseH != SwitchOff)
        AddLine(files.InpText, InpAngles(observation));
}
void AddAngles(InputFiles& files, const AngleObs& observation) {
    if (observation.UseH == SwitchOff)
        return;
    AddLine(files.InpText, InpAngles(observation));
    AddLine(files.OrgText, OrgRow(observation));
}
void AddAngles(InputFiles&, const DistanceObs&) {}
void AddAngles(InputFiles&, const HeightObs&) {}

// A section of observations: every input type in its order, every observation in the order of its set.
template <class AddRows>
void AddObservations(InputFiles& files, const ObservationModel& model, const char* title,
                     const AddRows& addRows) {
    AddLine(files.InpText, title);
    for (const InputType& type : model.Types)
        VisitObsSet(model, type, [&](const auto& set, const auto&) {
            for (const auto& observation : set)
                addRows(observation);
        });
    AddLine(files.InpText, SectionEnd);
}

}  // namespace

bool WriteInputHeader(InputFiles& files, const std::string& folder, const std::string& inputName,
                      const std::string& orgName, const std::string& project, const std::string& task) {
    return Guarded("basWrite-WriteInputHeader", [&](Guard& guard) {
        files.InpPath = folder + inputName;
        files.OrgPath = folder + orgName;
        guard.Run([&] { TestOpening(files.InpPath); });
        guard.Run([&] { TestOpening(files.OrgPath); });
        files.InpText = files.OrgText = HeaderText(project, task);
    });
}

void WriteInputSections(InputFiles& files, const ObservationModel& model) {
    AddStations(files, model);
    AddPoints(files, model);
    AddObservations(files, model, "Distances ",
                    [&](const auto& observation) { AddDistance(files, observation); });
    AddObservations(files, model, "Height differences",
                    [&](const auto& observation) { AddHeight(files, observation); });
    AddObservations(files, model, "Observations",
                    [&](const auto& observation) { AddAngles(files, observation); });
    AddLine(files.InpText, "Control Information");
    AddLine(files.InpText, "Fixed Coordinates");
    AddLine(files.InpText, SectionEnd);
    AddLine(files.InpText, "Relative error point pairs");
    AddLine(files.InpText, SectionEnd);
    AddLine(files.OrgText, SectionEnd);
}

void CloseInputFiles(Guard& guard, const InputFiles& files) {
    guard.Run([&] { ReplaceInOrder({{files.InpPath, files.InpText}, {files.OrgPath, files.OrgText}}); });
}

void WriteVersionSkeleton(const std::string& path) {
    LineWriter file(path);
    for (const char* section :
         {"[Stations]", "[Points]", "[Tracker]", "[Total]", "[Angle]", "[Distance]", "[Height]", "[Gyro]"})
        file.Line(section);
    file.Close();
}

}  // namespace Dorvane
