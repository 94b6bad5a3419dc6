// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/sitecheck/SiteReport.h"
#include "programs/sitecheck/SiteStructures.h"

namespace Dorvane {

/// The folder of a survey with its backslash, below Data_drive, or that of a calibration below Calib_path.
std::string FolderOf(const SiteSystem& system, const SurveyNames& names);

/// Holds the registry and the history of a system against its structure, against each other and against the
/// folders of the disk. The surveys that are registered and have a folder.
std::vector<SurveyNames> CheckRegistry(SiteReport& report, const SiteSystem& system);

/// The names in a line of a registry, upper case.
SurveyNames NamesOfLine(const std::string& line, bool isCalibration);

/// The lines of a registry by their numbers from 1 that say nothing: blank ones, and those that stand there
/// before.
std::vector<long> EmptyLines(const std::vector<std::string>& lines, bool isCalibration);

/// The lines of a text; end-of-file marks behind it are left out.
std::vector<std::string> LinesOf(const std::string& path);

}  // namespace Dorvane
