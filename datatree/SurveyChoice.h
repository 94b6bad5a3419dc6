// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/List1.h"
#include "datatree/basRead.h"
#include "datatree/basTree.h"

// What the dialog "Select Survey to Add" (frmAddSurvey) decides: which names each list offers for what is
// chosen so far, and whether the choice is complete. Lists count from 1. Failures are reported as
// "frmAddSurvey-" and the event; error 9 for a system beyond the 16 that the dialog has room for.
namespace Dorvane {

/// Reads CHOICES.SYS and the structure file of each of its systems, as a screen keeps them: room for 16
/// structures, by the position in CHOICES.SYS.
void ReadSystems(List1<ChoiceRecord>& choices, List1<StructureRecord>& structures);

/// The dialog's structures and what its controls hold.
struct SurveyChoice {
    List1<ChoiceRecord> Choices;
    List1<StructureRecord> Structures;  // room for 16, by the position in CHOICES.SYS

    std::string Directory;           // lblDirectory
    List1<std::string> Roots;        // lstRoot
    List1<std::string> Locations;    // lstLocation
    List1<std::string> Types;        // lstTypeMulti
    List1<std::string> ChosenTypes;  // its selection
    List1<std::string> Epochs;       // lstEpoch
    std::string Root;                // lblRoot
    std::string Location;            // lblLocation
    std::string Epoch;               // lblEpoch
};

/// Takes the folder that the tree had selected: reads the structures and fills the lists, with a preselection
/// by the parts of its path. The first is the drive, the second counts as the system and the third as the
/// location, so the preselection works where Data_drive is a drive's root folder. A folder of six parts or
/// more preselects nothing, and the systems are offered as ever.
void SetSurveyDirectory(SurveyChoice& choice, const std::string& directory);

/// A click on a system: its locations and data types are offered.
void ChooseSurveyRoot(SurveyChoice& choice, const std::string& root);

/// A click on a location: the data types and the epoch are to be chosen anew.
void ChooseSurveyLocation(SurveyChoice& choice, const std::string& location);

/// A change of the selected data types: the epochs are offered that none of them has at this location yet, in
/// the order of the structure.
void ChooseSurveyTypes(SurveyChoice& choice, const List1<std::string>& types);

/// A click on an epoch.
void ChooseSurveyEpoch(SurveyChoice& choice, const std::string& epoch);

/// The four lists of the dialog.
enum class SurveyList { Root, Location, Type, Epoch };

/// Why a list offers nothing for what is chosen so far, and where its names are made; empty when it offers
/// something, or waits for another choice.
std::string WhyEmpty(const SurveyChoice& choice, SurveyList list);

/// The click of cmdOK: false when the dialog stays, because a name is missing or the operator wants to enter
/// a history. Otherwise the answer is filled, with as much of the history as a history file gives back: 60
/// characters without control characters. That a data type is chosen is not asked for.
bool ConfirmSurvey(const SurveyChoice& choice, const std::string& history, SurveyAnswer& answer);

}  // namespace Dorvane
