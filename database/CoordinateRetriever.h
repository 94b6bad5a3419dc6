// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/List1.h"
#include "database/CoordinateSet.h"
#include "input/CoordinateSource.h"

namespace Dorvane {

/// The component that does all reading and writing of records in the coordinate database. A new one is made
/// for each use.
///
/// A database folder is a whole path that ends in a backslash. Type codes are 1 benchmarks, 2 monuments, 3
/// three-dimensional, 4 ideals; units codes 1 meters, 2 inches, 3 feet. Coordinates are handed over and
/// stored in meters, without bias. Failures are raised with the source "CoordinateRetriever": those of the
/// disk, error 5 for a code that is none, and the numbers of DatabaseErrorNumber, whose description names the
/// file and the reason. A failure leaves the database as it was.
class CoordinateRetriever : public CoordinateSource {
  public:
    /// Takes a new value of a point, which becomes its current one when it is committed. What the type's
    /// record does not keep is dropped: X and Y of a benchmark, Z of a monument, deviations of an ideal.
    /// Raises at once for a value that the database cannot take (RecordRefused, DatabaseFull) and for a
    /// database that cannot be read or is damaged; such a point is not taken, those before it are.
    void UpdatePoint(const std::string& databaseFolder, std::int32_t typeCode, const std::string& name,
                     const std::string& date, double X, double Y, double Z, double ErrorAngle,
                     double ErrorMajor, double ErrorMinor, double SZ, double extra1, double extra2);

    /// Writes the points taken since the last commit into the database: all of them, or none. When it fails
    /// they stay taken, and it can be tried again. What is never committed is never written.
    void Commit();

    /// The current values of those of the names that the database holds, with their trimmed names, in the
    /// order of the list. `count` is their number. The two further values are those of the update.
    void RetrieveNamed(const std::string& databaseFolder, std::int32_t typeCode,
                       const List1<std::string>& namesWithCountInItem0, std::int32_t flag,
                       std::int32_t& count, std::vector<RetrievedPoint>& items) override;

    /// Writes the current values of the first `count` names into the type's result file in `tempPath`. A name
    /// that the database does not hold gives no line. `resultFile` takes the file's path and `lines` the
    /// number of values in it. `bias` holds the four bias values (CoordinateUnits.h).
    void RetrieveCurrent(const std::string& databaseFolder, std::int32_t typeCode,
                         const List1<std::string>& names, std::int32_t count, std::string& resultFile,
                         std::int32_t& lines, const std::string& tempPath, const List1<double>& bias,
                         std::int32_t unitsCode);

    /// The same with all stored values of each name, the oldest first; the current one is marked.
    void RetrieveAll(const std::string& databaseFolder, std::int32_t typeCode,
                     const List1<std::string>& names, std::int32_t count, std::string& resultFile,
                     std::int32_t& lines, const std::string& tempPath, const List1<double>& bias,
                     std::int32_t unitsCode);

    /// Commits, and with the points adds date, project and task of the update to the location's reference
    /// file: all of it or nothing. `records` takes the number of updates that the reference file then tells
    /// of.
    void UpdateReference(const std::string& databaseFolder, const std::string& location,
                         const std::string& date, const std::string& project, const std::string& task,
                         std::int32_t& records);

  private:
    struct Taken {
        std::string Folder;
        std::int32_t TypeCode;
        long Room;  // records that the data file had left when the first point came
        std::vector<std::string> Lines;
    };

    Taken& TakenFor(const std::string& databaseFolder, std::int32_t typeCode);
    std::vector<FileChange> WaitingChanges() const;

    std::vector<Taken> Waiting;
};

}  // namespace Dorvane
