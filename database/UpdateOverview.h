// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/RunTimeError.h"
#include "input/CoordinateFiles.h"

// What an update of the three-dimensional data would do, for the operator to see before it is done.
namespace Dorvane {

/// The largest difference of one coordinate between the database and the update file.
struct LargestChange {
    std::string Name;   // empty while no coordinate changes
    double Meters = 0;  // new less former
    std::string In;     // "X", "Y" or "Z"
};

/// The lines of an update file against the current values of a database. A point that stands in the file
/// more than once is compared with its line before.
struct UpdateOverview {
    long New = 0;
    long Changed = 0;    // a coordinate or a deviation is another one, as it would be stored
    long Unchanged = 0;  // nothing but the date
    long Refused = 0;
    LargestChange Largest;
    std::vector<std::string> Repeated;    // names that stand in the file more than once
    bool StoredAlready = false;           // date, project, task and every value are in the database
    std::optional<RunTimeError> Refusal;  // why the database does not take the update, if it does not
};

/// Reads the database and changes nothing. Raises what reading raises, and DatabaseDamaged.
UpdateOverview OverviewOf(const std::string& databaseFolder, const Dbs3DFile& file);

/// The overview of an update that can be done, as a message's text, with a question at its end.
std::string OverviewQuestion(const UpdateOverview& overview, const std::string& location,
                             const std::string& path, const Dbs3DFile& file);

/// The failure that tells the operator why an update was refused, and that nothing was changed.
RunTimeError RefusedUpdate(RunTimeError reason);

/// "mm-dd-yy" of an update file as its six digits.
std::string SixDigits(const std::string& date);

}  // namespace Dorvane
