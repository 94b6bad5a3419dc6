// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputWriter.h"

#include "core/Globals.h"
#include "core/ReportError.h"
#include "input/InputRows.h"

namespace Dorvane {

namespace {

constexpr const char* SectionEnd = "END";

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

void AddStation(InputFiles& files, const ObsStation& station) {
    const bool placed = station.HasCoords != SwitchOff;
    AddLine(files.Inp.Content,
            placed ? InpCoordinates(station.Name, station.X, station.Y, station.Z) : InpName(station.Name));
    AddLine(files.Org.Content, placed ? OrgCoordinates("STA", station.Name, station.X, station.Y, station.Z)
                                      : OrgName("STA", station.Name));
}

void AddStations(InputFiles& files, const ObservationModel& model) {
    AddLine(files.Inp.Content, "Theodolite Stations");
    for (const bool placed : {true, false})
        for (const ObsStation& station : model.Stations)
            if (station.Use != SwitchOff && (station.HasCoords != SwitchOff) == placed)
                AddStation(files, station);
    AddLine(files.Inp.Content, SectionEnd);
}

void AddPoint(InputFiles& files, const ObsPoint& point) {
    const bool placed = point.CoordSource != 0;
    AddLine(files.Inp.Content,
            placed ? InpCoordinates(point.Name, point.X, point.Y, point.Z) : InpName(point.Name));
    AddLine(files.Org.Content, placed ? OrgCoordinates("PTS", point.Name, point.X, point.Y, point.Z)
                                      : OrgName("PTS", point.Name));
}

void AddPoints(InputFiles& files, const ObservationModel& model) {
    AddLine(files.Inp.Content, "Object Points");
    for (const int source : {4, 3, 2, 1, 0})
        for (const ObsPoint& point : model.Points)
            if (point.CoordSource == source && point.Switch1 != SwitchOff && point.Switch2 != SwitchOff)
                AddPoint(files, point);
    AddLine(files.Inp.Content, SectionEnd);
}

// What each kind of observation gives to a section. A polar observation has its one row of the master at the
// moment of its distance row, so its angle row adds none.
template <class Polar>
void AddPolarDistance(InputFiles& files, const Polar& observation) {
    if (observation.UseD == SwitchOff)
        return;
    AddLine(files.Inp.Content, InpDistance(observation));
    AddLine(files.Org.Content, OrgRow(observation));
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
    AddLine(files.Inp.Content, InpDistance(observation));
    AddLine(files.Org.Content, OrgRow(observation));
}
void AddDistance(InputFiles&, const AngleObs&) {}
void AddDistance(InputFiles&, const HeightObs&) {}

void AddHeight(InputFiles& files, const HeightObs& observation) {
    if (observation.Use == SwitchOff)
        return;
    AddLine(files.Inp.Content, InpHeight(observation));
    AddLine(files.Org.Content, OrgRow(observation));
}
template <class Other>
void AddHeight(InputFiles&, const Other&) {}

void AddAngles(InputFiles& files, const TotalObs& observation) {
    if (observation.UseH != SwitchOff)
        AddLine(files.Inp.Content, InpAngles(observation));
}
void AddAngles(InputFiles& files, const TrackerObs& observation) {
    if (observation.UseH != SwitchOff)
        AddLine(files.Inp.Content, InpAngles(observation));
}
void AddAngles(InputFiles& files, const AngleObs& observation) {
    if (observation.UseH == SwitchOff)
        return;
    AddLine(files.Inp.Content, InpAngles(observation));
    AddLine(files.Org.Content, OrgRow(observation));
}
void AddAngles(InputFiles&, const DistanceObs&) {}
void AddAngles(InputFiles&, const HeightObs&) {}

// A section of observations: every input type in its order, every observation in the order of its set.
template <class AddRows>
void AddObservations(InputFiles& files, const ObservationModel& model, const char* title,
                     const AddRows& addRows) {
    AddLine(files.Inp.Content, title);
    for (const InputType& type : model.Types)
        VisitObsSet(model, type, [&](const auto& set) {
            for (const auto& observation : set)
                addRows(observation);
        });
    AddLine(files.Inp.Content, SectionEnd);
}

}  // namespace

bool WriteInputHeader(InputFiles& files, const std::string& folder, const std::string& inputName,
                      const std::string& orgName, const std::string& project, const std::string& task) {
    return Guarded("basWrite-WriteInputHeader", [&](Guard& guard) {
        files.Inp.Path = folder + inputName;
        files.Org.Path = folder + orgName;
        guard.Run([&] { TestOpening(files.Inp.Path); });
        guard.Run([&] { TestOpening(files.Org.Path); });
        files.Inp.Content = files.Org.Content = HeaderText(project, task);
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
    AddLine(files.Inp.Content, "Control Information");
    AddLine(files.Inp.Content, "Fixed Coordinates");
    AddLine(files.Inp.Content, SectionEnd);
    AddLine(files.Inp.Content, "Relative error point pairs");
    AddLine(files.Inp.Content, SectionEnd);
    AddLine(files.Org.Content, SectionEnd);
}

void WriteVersionSkeleton(InputFiles& files, const std::string& path) {
    files.Ver = {path, ""};
    for (const char* section :
         {"[Stations]", "[Points]", "[Tracker]", "[Total]", "[Angle]", "[Distance]", "[Height]", "[Gyro]"})
        AddLine(files.Ver.Content, section);
}

}  // namespace Dorvane
