// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "adjustment/DbsFile.h"
#include "adjustment/Exporters.h"
#include "database/Update3D.h"
#include "tests/database/UpdateSite.h"

// What the export doubts of and what the database does not take is the same.
namespace Dorvane::Testing {
namespace {

class ExportedPoints : public UpdateSite {
  protected:
    /// The number of points that the database takes of an export; with a report and none, where it refuses.
    int Stored(const AdjustmentResults& results, const std::string& project, const std::string& task) {
        WriteCoordNew(North, "NORTH");
        EXPECT_TRUE(WriteDbsFile("C:\\TARVEX\\TEMP\\", "NET.DBS", results, project, task));
        return Update3DPoints(North, "C:\\TARVEX\\TEMP\\NET.DBS").value_or(0);
    }

    void ExpectAgreement(const AdjustedPoint& point, const std::string& project = "NORTH",
                         const std::string& task = "LEVEL") {
        AdjustmentResults results;
        results.Points.Add(point);
        const std::vector<std::string> doubts = DbsDoubts(results, project, task);
        const std::string why = doubts.empty() ? "" : doubts.front();
        if (why.find("first line") != std::string::npos && why.find("other names") == std::string::npos)
            Desk.ExpectMessageTitled("Header Error");
        else if (why.find("the line cannot be read") != std::string::npos)
            Desk.ExpectMessageTitled("Problem Reading File");
        else if (!doubts.empty())
            Desk.ExpectMessageTitled("Program Error");
        EXPECT_EQ(Stored(results, project, task), doubts.empty() ? 1 : 0) << why;
        EXPECT_EQ(Named({point.Name}).size(), doubts.empty() ? 1u : 0u) << why;
    }

    static AdjustedPoint Point() { return {"P", 1, 2, 3}; }
};

TEST_F(ExportedPoints, AreStoredUpToTheWidestNumbersAndNoFurther) {
    for (double AdjustedPoint::*const coordinate : {&AdjustedPoint::X, &AdjustedPoint::Y, &AdjustedPoint::Z})
        for (const double value : {99999.999994, 99999.999996, -9999.999994, -9999.999996, 0.0}) {
            SCOPED_TRACE(value);
            AdjustedPoint point = Point();
            point.*coordinate = value;
            ExpectAgreement(point);
        }
    for (double AdjustedPoint::*const deviation :
         {&AdjustedPoint::ErrorMajor, &AdjustedPoint::ErrorMinor, &AdjustedPoint::SZ})
        for (const double value : {9.999994, 9.999996, 0.0, 99.9}) {
            SCOPED_TRACE(value);
            AdjustedPoint point = Point();
            point.*deviation = value;
            ExpectAgreement(point);
        }
}

TEST_F(ExportedPoints, AreStoredUpToTheLongestNamesAndNoFurther) {
    for (const char* name : {"A", "EIGHTCHR", "NINECHARS", "TENLETTERS"}) {
        AdjustedPoint point = Point();
        point.Name = name;
        ExpectAgreement(point);
    }
    ExpectAgreement(Point(), "NINECHARS", "TENLETTERS");
    ExpectAgreement(Point(), "NINECHARS", "ELEVENCHARS");
    ExpectAgreement(Point(), "TENLETTERS", "T");
}

}  // namespace
}  // namespace Dorvane::Testing
