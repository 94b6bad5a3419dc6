// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <ostream>

#include <fmt/format.h>

#include "adjustment/ExportRun.h"
#include "adjustment/OutputReader.h"
#include "adjustment/Package.h"
#include "adjustment/VarnRun.h"
#include "adjustment/basVarn.h"
#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "database/CoordinateRetriever.h"
#include "input/CreateInput.h"
#include "input/GatherData.h"
#include "input/ImportFolder.h"
#include "input/InputScreen.h"
#include "programs/road/RoadWalk.h"

namespace Dorvane::Road {

namespace {

void SelectEntry(std::vector<ListEntry>& list, const std::string& text, const Walk& walk) {
    for (ListEntry& entry : list)
        if (entry.Text == text) {
            entry.Selected = true;
            return;
        }
    walk.Need(false, "the screen does not offer " + text);
}

bool TakesIn(const InputType& type, const std::string& dataType) {
    List1<std::string> words;
    ParseFields(words, type.Location);
    return std::find(words.begin(), words.end(), dataType) != words.end();
}

// The input type that takes in the survey's data type; a total station's where several do.
std::int16_t InputTypeFor(const InputScreen& screen, const Walk& walk) {
    std::int16_t found = 0;
    for (std::int16_t i = 1; i <= screen.Model.Types.Count(); ++i) {
        const InputType& type = screen.Model.Types[i];
        if (TakesIn(type, walk.Type) && (found == 0 || type.Type == "Total"))
            found = i;
    }
    walk.Need(found != 0, "no input type takes in " + walk.Type);
    return found;
}

int LinesThatHold(const std::string& path, const std::string& text) {
    int count = 0;
    LineReader reader(path);
    while (!reader.AtEnd())
        if (Contains(reader.ReadLine(), text))
            ++count;
    return count;
}

std::string InWords(const ListingVerdict& verdict) {
    std::string text = verdict.Result + ", m0 " + verdict.M0;
    if (!verdict.Test.empty())
        text += "; " + verdict.Test;
    return text;
}

}  // namespace

void CreateTheInput(Walk& walk, const std::string& name, bool fromDatabase) {
    walk.Step(fromDatabase ? "A second input takes its approximate coordinates from the database"
                           : "The results are imported and the input files written");
    InputServices services;
    services.ShowStatus = [&walk](const std::string& text) { walk.Say(text); };
    services.MakeSource = [] { return std::make_unique<CoordinateRetriever>(); };
    services.PickFolder = [&walk](const std::string& caption, const std::string&) {
        const std::string& folder =
            caption == "VARN input file location" ? walk.ProjectFolder : walk.SurveyFolder;
        walk.Say(caption + ": " + folder);
        return folder;
    };
    InputScreen screen;
    OpenInputScreen(screen, Global().PathRecords, services);
    screen.txtProject = "Road of one field file";
    screen.txtTask = walk.FieldFile;
    screen.icmbInput = InputTypeFor(screen, walk);
    ImportFolder(screen, services);
    if (fromDatabase) {
        SelectEntry(screen.lstCoordDirectorys, walk.Root + "\\" + walk.Location, walk);
        SelectEntry(screen.lstCoordTypes, "3 Dimensional", walk);
    }
    walk.Screen.TextToEnter = name;
    CreateInputFile(screen, services);

    const std::string input = walk.ProjectFolder + name + ".INP";
    walk.Need(walk.Screen.LastTitle == "Input File Creation" && FileExists(input),
              "no input file was written");
    // Every point with coordinates has the line of their fixed standard errors.
    const int known = LinesThatHold(input, "1.00E+03       1.00E+03");
    walk.Say("points with approximate coordinates: " + std::to_string(known));
    walk.Need(fromDatabase == (known > 0), "the approximate coordinates are not as expected");
    walk.Done();
}

void AdjustTheInput(Walk& walk, const std::string& name) {
    walk.Step(name + ".INP is adjusted and its listing gets the banner");
    VarnState state;
    LoadVarn(state);
    ChangeInput(state, walk.ProjectFolder + name + ".INP");
    KrennPackage package;
    VarnRunView view;
    RunVarn(state, package, view);
    walk.Say("Start " + state.lblStartReturn + ", Go " + state.lblGoReturn);
    const std::string listing = state.lblOutput.Caption;
    walk.Need(walk.Screen.LastTitle == "Varn Successful", "the package returned an error; see " + listing);
    const ListingVerdict& verdict = state.Verdict;
    walk.Need(verdict.Sign != ListingVerdict::Mark::None, "the listing has no summary");
    walk.Say("iterations " + verdict.Iterations + ", result " + InWords(verdict));
    if (!verdict.Doubt.empty())
        walk.Say("DOUBT " + verdict.Doubt);
    if (walk.ListingPath.empty()) {
        walk.ListingPath = listing;
        walk.M0 = verdict.M0;
        walk.Verdict = InWords(verdict);
    }
    walk.Done();
}

void ReadTheListing(Walk& walk) {
    walk.Step("The listing is read");
    std::string folder;
    std::string file;
    SplitFolderFile(walk.ListingPath, folder, file);
    AdjustmentResults results;
    walk.Need(ReadOutputFile(folder, file, results, true) == 1, "the listing is not whole");
    walk.Observations = long{results.HorizontalDirections.Count()} + results.VerticalDirections.Count() +
                        results.DistanceResiduals.Count() + results.HeightDifferences.Count();
    walk.Points = results.Stations.Count() + results.Points.Count();
    walk.Out << fmt::format("      {:<10}{:>14}{:>14}{:>12}{:>10}{:>10}{:>10}\n", "name", "X m", "Y m", "Z m",
                            "SX mm", "SY mm", "SZ mm");
    for (const List1<AdjustedPoint>* list : {&results.Stations, &results.Points})
        for (const AdjustedPoint& point : *list)
            walk.Out << fmt::format("      {:<10}{:>14.4f}{:>14.4f}{:>12.4f}{:>10.2f}{:>10.2f}{:>10.2f}\n",
                                    Utf8FromText(point.Name), point.X, point.Y, point.Z, point.SX * 1000,
                                    point.SY * 1000, point.SZ * 1000);
    walk.Done();
}

void ExportAll(Walk& walk) {
    walk.Step("All five exports are written");
    VarnState state;
    LoadVarn(state);
    ChangeInput(state, walk.ProjectFolder + "FIRST.INP");
    for (const ExportKind* kind : {&ExportDbs, &ExportXyz, &ExportInu, &ExportKeld, &ExportSta}) {
        ExportResults(state, *kind, {});
        walk.Need(walk.Screen.LastTitle == "Finished",
                  std::string("no ") + kind->Extension + " file was written");
        walk.Screen.LastTitle.clear();
    }
    walk.Done();
}

}  // namespace Dorvane::Road
