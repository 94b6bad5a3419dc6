// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/CodeEntry.h"

// What the other parts of the system can use of the structures, and where it would have to be known. Each
// rule says what is wrong with a name in words that go on behind it.
namespace Dorvane {

/// The names that the profile of the data types knows.
struct KnownNames {
    std::vector<std::string> DataTypes;         // key "Epochs" of section "Data Types"
    std::vector<std::string> CalibrationTypes;  // keys <ext>_Calib
};
KnownNames ReadKnownNames();

/// The name of a system: its structure file is no other file of Init_path, and the folder of a data system is
/// none of the program's own.
std::string SystemFault(const std::string& code, bool isData);
std::string LocationFault(const std::string& code);
std::string DataTypeFault(const KnownNames& known, const std::string& code);
std::string EpochFault(const std::string& code);
std::string CalibrationTypeFault(const KnownNames& known, const std::string& code);
std::string CalibrationEpochFault(const std::string& code);

/// What is doubtful about the name of a system or a location, below whose folders the data type of an upload
/// and the survey are found by parts of the path; empty when nothing is.
std::string MisleadingName(const KnownNames& known, const std::string& code);

}  // namespace Dorvane
