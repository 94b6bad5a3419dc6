// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "input/ObservationModel.h"

// The coordinate files that a user selects. Lines are cut by ParseFields, so names are upper case; numbers
// follow the leading-number rule; coordinates in meters. A folder ends in a backslash, and a path is folder
// and file joined. A file that is missing or malformed is told in a message; the result is then 0 and the
// points are not to be used.
namespace Dorvane {

/// Reads a point file with a bias line: a free line, the line "BIAS" with the biases in columns 10-19, 22-31
/// and 34-42, then lines of name, X, Y, Z and three extra values. Points below Z 500.0 are corrected by Geod.
/// Their CoordSource is 4, counters and switches are 0. Returns their number. Reports as
/// "basRead-ReadBddFile".
std::int16_t ReadBddFile(List1<ObsPoint>& points, const std::string& folder, const std::string& file);

/// Reads lines of name, X, Y, Z, with three further words or none. CoordSource is 3, all else 0. Returns the
/// number of points. Reports as "basRead-ReadGenFile".
std::int16_t ReadGenFile(List1<ObsPoint>& points, const std::string& folder, const std::string& file);

/// Corrects a point's Z for the earth's curvature over its horizontal distance from the bias point:
/// Z = sqrt(R^2 + (X - biasX)^2 + (Y - biasY)^2) + Z - R + biasZ with R = 6372508.025, all in meters. Error 6
/// when the result is beyond a double.
void Geod(ObsPoint& point, double biasX, double biasY, double biasZ);

/// One point of a *.DBS file: coordinates in meters and the standard errors that the adjustment gave it.
struct Dbs3DPoint {
    std::string Name;
    double X = 0;
    double Y = 0;
    double Z = 0;
    double ErrorAngle = 0;  // gons
    double ErrorMajor = 0;
    double ErrorMinor = 0;
    double SZ = 0;

    bool operator==(const Dbs3DPoint&) const = default;
};

/// Reads a *.DBS file: a line of exactly three words, handed back in order (date, project, task), then lines
/// of eleven: the name, three that do not count, X, Y, Z, ErrorAngle, ErrorMajor, ErrorMinor, SZ. Returns the
/// number of points. Reports as "basRead-ReadDbs3DFile".
std::int16_t ReadDbs3DFile(List1<Dbs3DPoint>& points, const std::string& folder, const std::string& file,
                           std::string& header1, std::string& header2, std::string& header3);

/// What a *.DBS file holds.
struct Dbs3DFile {
    std::string Date;
    std::string Project;
    std::string Task;
    List1<Dbs3DPoint> Points;
};

/// Reads a *.DBS file without a word to the operator, for a look at it before it is used. Nothing for a file
/// that ReadDbs3DFile tells to be missing or malformed. Raises what reading raises.
std::optional<Dbs3DFile> PeekDbs3DFile(const std::string& path);

}  // namespace Dorvane
