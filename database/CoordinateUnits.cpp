// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CoordinateUnits.h"

#include <array>
#include <cmath>
#include <numbers>

#include "core/RunTimeError.h"

namespace Dorvane {

namespace {

constexpr double GonsOfCircle = 400;

const std::array<LengthUnit, 3> Units = {{
    {Meters, "meters", 1, "####0.00000"},
    {Inches, "inches", MetersOfInch, "####0.0000"},
    {Feet, "feet", MetersOfFoot, "####0.00000"},
}};

void ApplyBias(const DatabaseType& type, CoordinateRecord& record, const List1<double>& bias) {
    if (type.Code != MonumentCode)
        record.Z += bias[3];
    if (type.Code == BenchmarkCode)
        return;
    const double rotation = bias[4] * 2 * std::numbers::pi / GonsOfCircle;
    const double x = record.X;
    const double y = record.Y;
    record.X = x * std::cos(rotation) + y * std::sin(rotation) + bias[1];
    record.Y = -x * std::sin(rotation) + y * std::cos(rotation) + bias[2];
    record.ErrorAngle = std::fmod(record.ErrorAngle + bias[4], GonsOfCircle);
}

}  // namespace

const LengthUnit& LengthUnitOf(std::int32_t unitsCode) {
    for (const LengthUnit& unit : Units)
        if (unit.Code == unitsCode)
            return unit;
    throw RunTimeError(InvalidProcedureCall, "units code " + std::to_string(unitsCode));
}

CoordinateRecord InUnit(const DatabaseType& type, CoordinateRecord record, const LengthUnit& unit,
                        const List1<double>& bias) {
    if (unit.Code == Meters) {
        ApplyBias(type, record, bias);
        return record;
    }
    for (double CoordinateRecord::*const length :
         {&CoordinateRecord::X, &CoordinateRecord::Y, &CoordinateRecord::Z, &CoordinateRecord::ErrorMajor,
          &CoordinateRecord::ErrorMinor, &CoordinateRecord::SZ})
        record.*length /= unit.Length;
    return record;
}

}  // namespace Dorvane
