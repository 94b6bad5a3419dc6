// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"
#include "database/CoordinateRecord.h"

// The database holds meters in the system of the adjustment. A retrieval gives them either in meters with the
// location's bias, or in inches or feet without it.
//
// The four bias values b1 to b4 lead from the adjustment's system to the site's: a rotation by b4 gons,
// clockwise as all directions are, about the origin, and a shift by b1, b2, b3 meters:
//
//     X' =  X cos b4 + Y sin b4 + b1
//     Y' = -X sin b4 + Y cos b4 + b2
//     Z' =  Z + b3
//
// The axis of an error ellipse turns with the coordinates. Monuments, which have no Z, and benchmarks, which
// have no X and Y, take the part that concerns them.
namespace Dorvane {

constexpr std::int32_t Meters = 1;
constexpr std::int32_t Inches = 2;
constexpr std::int32_t Feet = 3;

constexpr double MetersOfInch = 0.0254;  // exact
constexpr double MetersOfFoot = 0.3048;  // exact

struct LengthUnit {
    std::int32_t Code;
    std::string Name;     // "meters"
    double Length;        // in meters
    std::string Lengths;  // digit pattern of a coordinate or deviation, about a hundredth of a millimeter
};

/// The unit of a units code; error 5 for a code that is none of the three.
const LengthUnit& LengthUnitOf(std::int32_t unitsCode);

/// A stored value in a unit: with the bias in meters, without it in inches and feet. `bias` holds four
/// values, as told above; error 9 when it holds fewer and they are needed.
CoordinateRecord InUnit(const DatabaseType& type, CoordinateRecord record, const LengthUnit& unit,
                        const List1<double>& bias);

}  // namespace Dorvane
