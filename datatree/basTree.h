// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/Globals.h"
#include "core/List1.h"
#include "core/Navigator.h"
#include "datatree/Sorter.h"
#include "datatree/SurveyReport.h"
#include "datatree/TreeModel.h"

// The one picture of the data: the records of all registered folders, the tree made of them, and what extends
// both. Names of systems, locations, types and epochs are at most 8 characters, upper case.
namespace Dorvane {

/// Reads the registries of all systems in CHOICES.SYS and returns the number of records: the data systems
/// behind one another in that order, each sorted, with descriptions and history filled in. A code that two
/// systems share takes the description of the later system. What is missing is silent. A failure is reported
/// as "basTree-GetExistingTree" and leaves no records; error 6 past 32767 of them.
std::int16_t GetExistingTree(List1<PathRecord>& records, Sorter& sorter);

/// Builds the nodes of the first `count` records into an empty tree, under a top node "Data Drive" whose key
/// is Data_drive. Two equal records in a row make a child without a caption whose key ends in two
/// backslashes. A key that the tree holds already ends the construction, reported as
/// "basTree-TarvexTreeSetup" (error 35602).
void TarvexTreeSetup(const List1<PathRecord>& records, int count, TreeModel& tree);

/// Appends a survey folder to the registry of its system. Reports as "basTree-UpdatePthFileAdd".
void UpdatePthFileAdd(const std::string& system, const std::string& location, const std::string& type,
                      const std::string& epoch);

/// Appends a calibration folder to the registry of the calibration system. Reports as
/// "basTree-UpdateCalibPthFileAdd".
void UpdateCalibPthFileAdd(const std::string& system, const std::string& type, const std::string& epoch);

/// Adds the event that a survey folder was created to the history of its system, making the file when absent.
/// A folder that the history knows gets the event at the end of its group, but for the last group of the
/// file, which never gets a second one. `date` has the form mm-dd-yy. Reports as "basTree-UpdateHisFileAdd".
void UpdateHisFileAdd(const std::string& system, const std::string& location, const std::string& type,
                      const std::string& epoch, const std::string& usage, const std::string& date);

/// The waiting window that is shown while the registries are read. Either call may be left out.
struct WaitingWindow {
    std::function<void(const std::string& text)> Show;
    std::function<void()> Close;
};

/// Reads the whole tree into the global PathRecords under a waiting window with this text.
void ReloadPathRecords(const WaitingWindow& waiting, const std::string& text);

/// What adding a survey needs of the higher floors. Folders end in a backslash.
struct SurveyServices {
    std::function<void(const std::string& folder, const std::string& surveyIndexName)> WriteSrvNew;
    std::function<void(const std::string& folder, const std::string& location)> WriteCoordNew;
    std::function<bool(const std::string& folder, const std::string& location)> LacksCoordFiles;
    WaitingWindow Waiting;
};

/// Adds one epoch at one location for each chosen data type: first the registries, then the folders with
/// their survey indexes, the location's coordinate files and the project folder, as far as they are missing;
/// then reads PathRecords anew and rebuilds the tree. Failures are reported as "frmTree-cmdAdd_Click"; what
/// was done by then stays. Returns what was made and what was found; nothing when the answer lacks a name.
SurveyReport AddSurvey(const SurveyAnswer& survey, const SurveyServices& services, TreeModel& tree);

}  // namespace Dorvane
