// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "programs/editors/EditedFile.h"

// BIAS.STR: a line for each location, its name and four numbers, and one for all others, "STDBIAS". All other
// lines are comments or what nobody reads; they stay as they are, where they are.
namespace Dorvane {

/// A line of the file.
struct BiasLine {
    std::string Raw;       // as it stands in the file; empty for a new entry
    bool IsEntry = false;  // a location's four values
    std::string Key;       // upper case
    std::array<std::string, 4> Values;
    std::string Tail;  // what follows the values
};

struct BiasEdit {
    EditedFile File;
    std::string Problem;
    std::vector<BiasLine> Lines;
};

/// Reads BIAS.STR of a folder, which ends in a backslash. One that is not there begins with a line for all
/// locations that changes nothing, since a retrieval needs one. Raises what reading raises.
BiasEdit OpenBias(const std::string& folder);

BiasLine ParseBiasLine(const std::string& line);

/// An entry that is not changed gives its line as it was.
std::string FormatBiasLine(const BiasLine& line);
std::string FormatBias(const std::vector<BiasLine>& lines);

/// As for CHOICES.SYS.
std::vector<std::string> BiasProblems(const BiasEdit& bias);
std::string SaveBias(BiasEdit& bias);

}  // namespace Dorvane
