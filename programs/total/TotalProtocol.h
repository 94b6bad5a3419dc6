// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/DateText.h"
#include "programs/total/TotalReduction.h"

namespace Dorvane {

/// What the protocol's head tells.
struct TotalProtocolHead {
    std::string Title;  // "ANGLE REDUCTION"
    DateTime Moment;
    std::string Folder;
    std::string Index;   // of the survey, without folder
    std::string Result;  // file, without folder
    long ResultLines = 0;
};

/// The protocol of a reduction: head, field files, set-ups, each station's targets with their spreads, the
/// lines measured from both ends, a summary, warnings, unreadable lines and errors. Lines without their ends.
std::vector<std::string> TotalProtocol(const TotalProtocolHead& head, const FieldBook& book,
                                       const TotalResult& result, const std::vector<std::string>& errors);

}  // namespace Dorvane
