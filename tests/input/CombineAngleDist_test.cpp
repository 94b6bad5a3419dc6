// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CombineAngleDist.h"

#include <gtest/gtest.h>

namespace Dorvane::Testing {
namespace {

class CombineAngleDistTest : public ::testing::Test {
  protected:
    std::int16_t Combine() {
        AngleCount = Angles.Count();
        DistanceCount = Distances.Count();
        return CombineAngleDist(Total, Angles, AngleCount, Distances, DistanceCount);
    }

    List1<ResRecord> Total;
    List1<ResRecord> Angles;
    List1<ResRecord> Distances;
    std::int16_t AngleCount = 0;
    std::int16_t DistanceCount = 0;
};

TEST_F(CombineAngleDistTest, PairsInTheOrderOfTheAngles) {
    Angles = {{"S", "B", 1, 2, 0}, {"S", "A", 3, 4, 0}};
    Distances = {{"S", "A", 10, 0, 0}, {"S", "B", 20, 0, 0}};
    ASSERT_EQ(Combine(), 2);
    EXPECT_EQ(Total, (List1<ResRecord>{{"S", "B", 1, 2, 20}, {"S", "A", 3, 4, 10}}));
    EXPECT_EQ(AngleCount, 0);
    EXPECT_EQ(DistanceCount, 0);
    EXPECT_EQ(Angles.Count(), 0);
    EXPECT_EQ(Distances.Count(), 0);
}

TEST_F(CombineAngleDistTest, TheFirstFreeDistanceOfALineIsThePartner) {
    Angles = {{"S", "A", 1, 2, 0}, {"S", "A", 3, 4, 0}};
    Distances = {{"S", "A", 10, 0, 0}, {"T", "A", 15, 0, 0}, {"S", "A", 20, 0, 0}};
    ASSERT_EQ(Combine(), 2);
    EXPECT_EQ(Total, (List1<ResRecord>{{"S", "A", 1, 2, 10}, {"S", "A", 3, 4, 20}}));
    EXPECT_EQ(Distances, (List1<ResRecord>{{"T", "A", 15, 0, 0}}));
    EXPECT_EQ(DistanceCount, 1);
}

TEST_F(CombineAngleDistTest, OfTwoAnglesWithOneDistanceTheSecondStaysOver) {
    Angles = {{"S", "A", 1, 2, 0}, {"S", "A", 3, 4, 0}};
    Distances = {{"S", "A", 10, 0, 0}};
    ASSERT_EQ(Combine(), 1);
    EXPECT_EQ(Angles, (List1<ResRecord>{{"S", "A", 3, 4, 0}}));
    EXPECT_EQ(AngleCount, 1);
    EXPECT_EQ(DistanceCount, 0);
}

TEST_F(CombineAngleDistTest, StationAndTargetAreNotMixedUp) {
    Angles = {{"AB", "C", 1, 2, 0}, {"A", "S", 1, 2, 0}};
    Distances = {{"A", "BC", 10, 0, 0}, {"S", "A", 10, 0, 0}};
    EXPECT_EQ(Combine(), 0);
    EXPECT_EQ(AngleCount, 2);
    EXPECT_EQ(DistanceCount, 2);
}

TEST_F(CombineAngleDistTest, OnlyTheCountedRecordsTakePart) {
    Angles = {{"S", "A", 1, 2, 0}, {"S", "B", 3, 4, 0}};
    Distances = {{"S", "A", 10, 0, 0}, {"S", "B", 20, 0, 0}};
    AngleCount = 1;
    DistanceCount = 2;
    EXPECT_EQ(CombineAngleDist(Total, Angles, AngleCount, Distances, DistanceCount), 1);
    EXPECT_EQ(AngleCount, 0);
    EXPECT_EQ(DistanceCount, 1);
}

}  // namespace
}  // namespace Dorvane::Testing
