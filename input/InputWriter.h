// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "input/InputFiles.h"
#include "input/ObservationModel.h"

// The adjustment's input file (.INP), its master with the same data as tagged rows (.ORG), and the skeleton
// of the version notes (.VER).
namespace Dorvane {

/// Begins input file and master with the header of project, task and the present date and time. False after a
/// failure, as when one of them could not be written; it was reported as "basWrite-WriteInputHeader".
bool WriteInputHeader(InputFiles& files, const std::string& folder, const std::string& inputName,
                      const std::string& orgName, const std::string& project, const std::string& task);

/// Adds all sections of the input file and all rows of the master. Error 6 for a number that is not finite.
void WriteInputSections(InputFiles& files, const ObservationModel& model);

/// Fills in the version notes: the eight named sections, all empty.
void WriteVersionSkeleton(InputFiles& files, const std::string& path);

}  // namespace Dorvane
