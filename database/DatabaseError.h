// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/RunTimeError.h"

namespace Dorvane {

/// The failures that the coordinate database raises itself, beside those of the disk. Each leaves the
/// database as it was.
enum DatabaseErrorNumber {
    DatabaseDamaged = 1101,  // a file is not what its format promises
    DatabaseFull = 1102,     // no record number is left
    RecordRefused = 1103,    // a name, a date or a number that the record cannot hold
};

/// `path` is the file's drive path; the reason completes the sentence "<path> is damaged: <reason>".
inline RunTimeError DamagedFile(const std::string& path, const std::string& reason) {
    RunTimeError error(DatabaseDamaged);
    error.Description = path + " is damaged: " + reason;
    return error;
}

inline RunTimeError FullFile(const std::string& path, const std::string& reason) {
    RunTimeError error(DatabaseFull);
    error.Description = path + " is full: " + reason;
    return error;
}

/// `what` names the record, as "point P1".
inline RunTimeError RefusedRecord(const std::string& path, const std::string& what,
                                  const std::string& reason) {
    RunTimeError error(RecordRefused);
    error.Description = path + " does not take " + what + ": " + reason;
    return error;
}

/// True for a number of DatabaseErrorNumber.
inline bool IsDatabaseError(const RunTimeError& error) {
    return error.Number >= DatabaseDamaged && error.Number <= RecordRefused;
}

}  // namespace Dorvane
