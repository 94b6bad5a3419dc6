// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <iosfwd>
#include <stdexcept>
#include <string>

#include "programs/road/ConsoleDesktop.h"
#include "programs/road/FileWatch.h"

// The road of one field file, walked without screens: from the collection folder to exported coordinates, and
// into and out of the coordinate database. Every step calls the logic that the screens call.
namespace Dorvane::Road {

/// A step that did not bring what the next one needs.
struct RoadBlocked : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What is walked, and what the steps hand on. All paths are drive paths; folders end in a backslash.
struct Walk {
    std::ostream& Out;
    ConsoleDesktop Screen;
    FileWatch Files;

    std::string FieldFolder;  // the collection folder
    std::string FieldFile;    // the field book in it
    std::string Root;         // of the survey
    std::string Location;
    std::string Type;
    std::string Epoch;
    std::string SurveyFolder;
    std::string ProjectFolder;  // the survey's folder under ADJUST
    std::string ListingPath;    // of the first adjustment
    long Observations = 0;      // as the listing of the first adjustment tells them
    std::string M0;             // likewise, four decimals
    std::string Verdict;        // likewise, its result and the test of m0
    int Points = 0;             // stations and points in it

    explicit Walk(std::ostream& out) : Out(out), Screen(out) {}

    void Step(const std::string& title);
    void Say(const std::string& text);
    /// Ends a step: prints the files that it made, and blocks the road when a failure was reported in it.
    void Done();
    void Need(bool condition, const std::string& what) const;

  private:
    int Steps = 0;
};

// RoadSite: the workstation.
void StartUp(Walk& walk);
/// Lays the shipped structure files into Init_path and a field book into the collection folder: the shipped
/// one, or the one at a host path.
void LayOutSite(Walk& walk, const std::string& fieldBook);

// RoadSurvey: from the collection folder to result files.
void AddTheSurvey(Walk& walk);
void UploadTheBook(Walk& walk);
void ReduceTheBook(Walk& walk);

// RoadAdjustment: from result files to exports.
void CreateTheInput(Walk& walk, const std::string& name, bool fromDatabase);
void AdjustTheInput(Walk& walk, const std::string& name);
void ReadTheListing(Walk& walk);
void ExportAll(Walk& walk);

// RoadDatabase: in and out of the coordinate database.
void UpdateTheDatabase(Walk& walk);
void RetrieveInAllUnits(Walk& walk);

/// Walks the whole road on a fresh site in the host folder `site`, printing each step. `fieldBook` is the
/// host path of a field book, or empty for the shipped one. `programFolder` is the program's folder as a host
/// path. The last line is "ROAD COMPLETE: ..." when every step came to its end; otherwise the result is
/// false, and the last line says what blocked it.
bool WalkTheRoad(const std::string& site, const std::string& fieldBook, const std::string& programFolder,
                 std::ostream& out);

}  // namespace Dorvane::Road
