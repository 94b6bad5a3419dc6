// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Desktop.h"
#include "core/List1.h"

namespace Dorvane {

/// One folder of the data tree. Names are at most 8 characters, upper case.
struct PathRecord {
    std::string Root;
    std::string RootDesc;
    std::string Location;
    std::string LocationDesc;
    std::string Type;
    std::string TypeDesc;
    std::string Epoch;
    std::string EpochDesc;
    std::string Survey;  // folder below the epoch, empty for the epoch's own record
    std::string Created;
    std::string Usage;

    bool operator==(const PathRecord&) const = default;
};

/// The process-wide values. Each path is empty or names an existing folder and ends in a backslash.
struct Globals {
    std::string Data_drive;     // root of the survey data tree
    std::string Calib_path;     // root of the calibration tree
    std::string Coord_path;     // coordinate database
    std::string Init_path;      // structure files and registries
    std::string Param_path;     // parameter files
    std::string Temp_path;      // temporary files
    std::string Work_path;      // work files
    std::string Download_path;  // files for field devices

    std::int16_t Path_type = 1;  // 1 managed tree, 2 folders chosen by hand
    bool InitFailed = false;
    bool PrinterPresent = false;
    List1<PathRecord> PathRecords;

    std::string ProgramFolder;  // the program's folder as a drive path; empty: where the executable lies
    std::string DrivesFolder;   // host folder of the drive links
    // Folders in which links may lead out of their drive; not set, as before the profile is read: anywhere.
    std::optional<std::vector<std::string>> LinkFolders;
    char CurrentDrive = 0;                 // letter of the current drive; 0: where the process was started
    std::string InstanceName = "dorvane";  // what a second copy is known by
    std::intptr_t InstanceClaim = -1;      // the claim on it, -1 while there is none
    Desktop* OwnDesktop = nullptr;         // not owned
};

Globals& Global();

/// The desktop that was installed; error 51 when there is none.
Desktop& TheDesktop();
void InstallDesktop(Desktop* desktop);

}  // namespace Dorvane
