// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <memory>

#include "input/CoordinateSources.h"
#include "tests/database/DatabaseSite.h"

namespace Dorvane::Testing {
namespace {

// The next input takes its approximate coordinates from the database.
class InputFromDatabase : public DatabaseSite {
  protected:
    ObsPoint Asked(const std::string& name, const List1<std::int16_t>& types) const {
        List1<ObsPoint> points;
        points.Add({}).Name = name;
        CoordSelection selection;
        selection.Locations = {"DAM\\NORTH"};
        selection.Types = types;
        UpdateCoordData(points, {name}, selection, [] { return std::make_unique<CoordinateRetriever>(); });
        return points[1];
    }
};

TEST_F(InputFromDatabase, TakesTheCurrentValueWithoutBias) {
    Enter("P1", 1);
    Enter("P1", 11, "112126");
    PutLines("D:\\TARVEX\\INIT\\BIAS.STR", {"NORTH    100 200 300 0"});
    const ObsPoint point = Asked("P1", {3});
    EXPECT_EQ(point.X, 11);
    EXPECT_EQ(point.Y, 2);
    EXPECT_EQ(point.Z, 3);
    EXPECT_EQ(point.CoordSource, 3);
}

TEST_F(InputFromDatabase, LetsTheLastTypeWin) {
    Enter("P1", 1);
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, 4, "P1", "112026", 44, 2, 3, 0, 0, 0, 0, 0, 0);
    retriever.Commit();
    EXPECT_EQ(Asked("P1", {3, 4}).X, 44);
    EXPECT_EQ(Asked("P1", {3, 2}).X, 1);
}

TEST_F(InputFromDatabase, LeavesAPointThatTheDatabaseDoesNotHold) {
    Enter("LONGNAME", 1);
    EXPECT_EQ(Asked("LONGNAME9", {3}).CoordSource, 0);
    EXPECT_TRUE(Desk.Shown.empty());
}

TEST_F(InputFromDatabase, ReportsADamagedDatabase) {
    PutFile(North + "3DIM.DAT", "");
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_EQ(Asked("P1", {3}).CoordSource, 0);
    ASSERT_EQ(Desk.Shown.size(), 1u);
    EXPECT_NE(Desk.Shown[0].Text.find("Source : CoordinateRetriever-basInput-UpdateCoordData"),
              std::string::npos)
        << Desk.Shown[0].Text;
}

}  // namespace
}  // namespace Dorvane::Testing
