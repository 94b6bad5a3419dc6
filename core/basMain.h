// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "core/ReportError.h"

// Start-up: from the first instruction until the home menu stands on the screen.
namespace Dorvane {

/// The screens that the start-up opens, each shown until it is closed (the home menu excepted).
struct StartUpScreens {
    std::function<void()> ShowSplash;
    std::function<void()> ShowInit;  // the dialog for default directories
    std::function<void()> ShowMain;  // the home menu, which lives on
};

/// The program's entry. A second copy is told so, and nothing else happens: the result is false. Otherwise
/// the splash is shown, the profile files are installed, the globals read, the dialog for default directories
/// offered when folders are missing, the libraries renamed, and the home menu shown. Failures are reported as
/// "basMain-Main".
bool Main(const StartUpScreens& screens);

/// True for the first copy of the program on this workstation. The claim ends with the process, however it
/// ends.
bool ClaimOnlyCopy();

/// Installs or migrates the six profile files in the Windows folder, each as one statement of the procedure
/// that `guard` handles: a file that is there is left, an older name is renamed, else the shipped copy is
/// copied.
void InstallProfiles(const std::string& windowsPath, Guard& guard);

/// Reads the eight paths and Path_type from "Tarvex Info" of dv_tarvex.ini, tests the paths (one that leads
/// nowhere becomes empty), and counts the printers. True when all eight paths lead to existing folders. An
/// error is reported as "basMain-InitializeGolbals" and gives false. The spelling is the procedure's name.
bool InitializeGolbals();

/// What the OK of the dialog for default directories does with the two chosen drives (only their first
/// character counts): sets the globals, makes the missing folders, and writes the eight keys. InitFailed is
/// true from the start and false only when all went well, which the result tells. Failures are reported as
/// "frmInit-cmdOK_Click".
bool CreateDefaultFolders(const std::string& mainDrive, const std::string& localDrive);

/// Gives the three libraries of the Keld folder their working names where these are still missing.
void RenameKeldLibraries();

}  // namespace Dorvane
