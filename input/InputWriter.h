// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/ReportError.h"
#include "input/ObservationModel.h"

// The adjustment's input file (.INP), its master with the same data as tagged rows (.ORG), and the skeleton
// of the version notes (.VER).
namespace Dorvane {

/// An input file and its master while they are written. They take their places on disk together, at their
/// end, so that a failure on the way leaves the former two as they were.
struct InputFiles {
    std::string InpPath;
    std::string OrgPath;
    std::string InpText;
    std::string OrgText;
};

/// Begins both files with the header of project, task and the present date and time. False after a failure,
/// as when one of them could not be written; it was reported as "basWrite-WriteInputHeader".
bool WriteInputHeader(InputFiles& files, const std::string& folder, const std::string& inputName,
                      const std::string& orgName, const std::string& project, const std::string& task);

/// Adds all sections of the input file and all rows of the master. Error 6 for a number that is not finite.
void WriteInputSections(InputFiles& files, const ObservationModel& model);

/// Puts both files in their places; a statement of the procedure that `guard` guards.
void CloseInputFiles(Guard& guard, const InputFiles& files);

/// Writes the eight named sections, all empty.
void WriteVersionSkeleton(const std::string& path);

}  // namespace Dorvane
