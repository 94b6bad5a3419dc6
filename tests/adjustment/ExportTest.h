// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "adjustment/Exporters.h"
#include "core/Drives.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// Results of one station with all its values, one point in space and one of a height only.
class ExportTest : public testing::Test {
  protected:
    ExportTest() {
        MakeFolders("D:\\ADJ\\");
        AdjustedPoint& station = Results.Stations.Add({"ST1", 1000.123456, 2000.5, -30.25});
        station.Rot1 = 0.00001;
        station.Rot2 = -12.5;
        station.Rot3 = 399.99999;
        station.SX = 0.00101;
        station.SY = 0.00102;
        station.SZ = 0.00103;
        station.ErrorAngle = 45.65;
        station.ErrorMajor = 0.00104;
        station.ErrorMinor = 0.00105;
        AdjustedPoint& point = Results.Points.Add({"P1", 99999.999999, 0.000005, 1});
        point.SX = 1.5;
        point.SY = 0.9999999;
        point.SZ = 12.345678;
        point.ErrorAngle = 199.96;
        Results.Points.Add({"P2", 0, 0, 36.5});
    }

    AdjustmentResults Results;
    TestSite Site;
    ScriptedDesktop Desktop;
};

inline AdjustmentResults OnePointNamed(const std::string& name) {
    AdjustmentResults results;
    results.Points.Add({name, 1, 2, 3});
    return results;
}

inline AdjustmentResults OneStationNamed(const std::string& name) {
    AdjustmentResults results;
    results.Stations.Add({name, 1, 2, 3});
    return results;
}

}  // namespace Dorvane::Testing
