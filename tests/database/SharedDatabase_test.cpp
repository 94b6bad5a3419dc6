// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "database/CoordinateSet.h"
#include "tests/database/DatabaseSite.h"
#include "tests/support/Workstations.h"

// Several workstations that update one database at a time lose no value, and leave it whole.
namespace Dorvane::Testing {
namespace {

constexpr int Workstations = 3;
constexpr int Rounds = 6;
constexpr int Points = 20;

class SharedDatabase : public DatabaseSite {
  protected:
    static std::string Point(int workstation, int i) {
        return "W" + std::to_string(workstation) + "P" + std::to_string(i);
    }

    // Each has points of its own, and some that all update.
    void Update(int workstation, int round) const {
        CoordinateRetriever retriever;
        for (int i = 0; i < Points; ++i) {
            retriever.UpdatePoint(North, 3, Point(workstation, i), "112026", round, 2, 3, 0, 0, 0, 0, 0, 0);
            retriever.UpdatePoint(North, 3, "ALL" + std::to_string(i), "112026", round * 10 + workstation, 2,
                                  3, 0, 0, 0, 0, 0, 0);
        }
        std::int32_t records = 0;
        retriever.UpdateReference(North, "NORTH", "11-20-26", "W" + std::to_string(workstation),
                                  "R" + std::to_string(round), records);
    }
};

TEST_F(SharedDatabase, HoldsEveryValueThatWasToldAsStored) {
    Together(Workstations, [this](int number) {
        for (int round = 1; round <= Rounds; ++round)
            Update(number, round);
    });
    const CoordinateSet set(North, 3);
    for (int number = 0; number < Workstations; ++number)
        for (int i = 0; i < Points; ++i)
            EXPECT_EQ(set.All(Point(number, i)).size(), static_cast<std::size_t>(Rounds));
    for (int i = 0; i < Points; ++i)
        EXPECT_EQ(set.All("ALL" + std::to_string(i)).size(), static_cast<std::size_t>(Rounds * Workstations));
    EXPECT_EQ(FileLines(North + "NORTH.REF").size(), 1u + Rounds * Workstations);
    EXPECT_EQ(FileLines(North + "3DIM.LST").size(), static_cast<std::size_t>(Points * (Workstations + 1)));
}

TEST_F(SharedDatabase, IsReadWholeWhileOthersUpdateIt) {
    Update(0, 1);
    Together(Workstations, [this](int number) {
        for (int round = 2; round <= Rounds; ++round) {
            if (number == 0) {
                Update(number, round);
                continue;
            }
            for (int i = 0; i < 20; ++i) {
                const std::vector<RetrievedPoint> points = Named({"ALL0", "ALL19"});
                ASSERT_EQ(points.size(), 2u);
                EXPECT_EQ(points[0].X, points[1].X);
            }
        }
    });
}

}  // namespace
}  // namespace Dorvane::Testing
