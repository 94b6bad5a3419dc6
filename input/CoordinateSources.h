// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "input/InputScreen.h"

// Where points get their approximate coordinates from: user files first, then the coordinate database.
namespace Dorvane {

/// The type code of an entry of lstCoordTypes: "Benchmarks" 1, "Monuments" 2, "3 Dimensional" 3, "Ideals" 4;
/// 0 for any other text.
std::int16_t CoordTypeCode(const std::string& entry);

/// What the screen's selections ask for.
struct CoordSelection {
    List1<std::string> UserFiles;  // paths, in the order of the profile
    List1<std::string> Locations;  // root, backslash, location
    List1<std::int16_t> Types;     // type codes, in the order of the list
};

/// Collects the selections. The types count only with a location. The list that holds them has room for as
/// many as there are locations once there is a second one: more are error 9, which is meant.
CoordSelection CollectCoordSelection(const InputScreen& screen);

/// Appends the first `recordCount` records behind those of the list. Nothing is merged. Error 6 past 32767,
/// when nothing is appended; reported as "basInput-AppendIdealData".
void AppendIdealData(List1<ObsPoint>& list, const List1<ObsPoint>& records, std::int16_t recordCount);

/// Gives coordinates to the points that are named. A point takes them from the first user file, and there the
/// first line, that holds its name. The names that no user file holds are asked of the database, one location
/// after the other and type after type, and the last answer stays. Reports as "basInput-UpdateCoordData".
void UpdateCoordData(List1<ObsPoint>& points, const List1<std::string>& names,
                     const CoordSelection& selection, const MakeCoordinateSource& makeSource);

}  // namespace Dorvane
