// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/Globals.h"
#include "core/List1.h"
#include "core/Navigator.h"
#include "datatree/TreeModel.h"
#include "datatree/basRead.h"
#include "datatree/basTarvex.h"

// The calibration folders below Calib_path: one level per calibration type, one below it per epoch. What may
// exist says the structure file that bears the name of the last folder of Calib_path, what does exist the
// registry of that name, both in Init_path. Lists count from 1.
namespace Dorvane {

/// A calibration structure and the registered folders. In both, Location holds the calibration type and Type
/// the epoch.
struct CalibRecords {
    std::string System;  // the last folder of Calib_path; empty while there is no Calib_path
    StructureRecord Structure;
    List1<PathRecord> Records;  // with the structure's descriptions
};

/// Reads structure and registry; nothing without a Calib_path. What is missing is silent.
CalibRecords ReadCalibRecords();

bool IsRegistered(const List1<PathRecord>& records, const std::string& type, const std::string& epoch);

/// The screen "TARVEX Calibration Directory Tree".
struct CalibTree {
    CalibRecords Calibrations;
    TreeModel Nodes;         // trvDirectory; a node's key is its folder
    std::string Directory;   // lblDirectory
    std::string File;        // lblFile
    List1<FileEntry> Files;  // lsvFiles
};

/// Reads the records and builds the nodes: the root "Calibration Drive", shown expanded, and below it a node
/// for each type and each epoch in the order of the registry. Without a Calib_path there is no node. An epoch
/// that is registered twice ends the building, reported as "frmCalibTree-LoadForm" (error 35602).
void OpenCalibTree(CalibTree& tree);

/// A click on a node: lists the files of its folder. A folder that is not there has none.
void ChooseCalibNode(CalibTree& tree, const std::string& key);

/// A click on a file.
void ChooseCalibFile(CalibTree& tree, const std::string& name);

/// Registers a calibration folder, and gives its type and its epoch, as far as they are new, a node and a
/// folder. Nothing happens when the answer lacks a name. A failure is reported as
/// "frmCalibTree-cmdAdd_Click"; a folder that exists already is one, and what was done by then stays.
/// True when all of it was done.
bool AddCalibration(CalibTree& tree, const CalibrationAnswer& answer);

}  // namespace Dorvane
