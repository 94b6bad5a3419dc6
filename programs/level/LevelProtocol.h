// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/DateText.h"
#include "programs/level/LevelReduction.h"

namespace Dorvane {

/// What the protocol's head tells.
struct LevelProtocolHead {
    DateTime Moment;
    std::string Folder;
    std::string Index;   // of the survey, without folder
    std::string Result;  // file, without folder
    long ResultLines = 0;
};

/// The protocol of a levelling reduction: head, corrections, field files, the set-ups of each line, the
/// sections between marks with their runs, a summary, warnings, unreadable lines and errors.
std::vector<std::string> LevelProtocol(const LevelProtocolHead& head, const StaffCorrection& correction,
                                       const LevelBook& book, const LevelResult& result,
                                       const std::vector<std::string>& errors);

}  // namespace Dorvane
