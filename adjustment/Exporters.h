// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "adjustment/AdjustmentResults.h"

// The export files, all of fixed columns. Each writer replaces a former file of that name as a whole.
// Stations come first, then points, each in list order. A failure is reported as "basWrite-" and the writer's
// name; the former file then stays, and the result is false.
namespace Dorvane {

/// Database update file: today's date, project and task, then a line a point.
bool WriteDbsFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
                  const std::string& project, const std::string& task);

/// Shape file: a heading with project, task and the run's date, then coordinates and standard deviations.
bool WriteXyzFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
                  const std::string& project, const std::string& task, const std::string& runDate);

/// File of the outside program 7Fit: names and coordinates.
bool WriteInuFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results);

/// Import file of the system KELD: a template of comment lines with the data in five places.
bool WriteTrgFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results);

/// Station file: stations with their three rotations, then points.
bool WriteStaFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results);

}  // namespace Dorvane
