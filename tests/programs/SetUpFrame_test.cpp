// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/SetUpFrame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Dorvane {
namespace {

using testing::HasSubstr;

Sight At(const std::string& target, double direction, double zenith, std::optional<double> distance = 50) {
    static long line = 0;
    return {++line, target, direction, zenith, distance, 1.5, 1.5};
}

StationSetUp Station(std::vector<Sight> sights) {
    return {"P1", "BOOK.GSI", 1, std::move(sights)};
}

TEST(DirectionDifference, GoesTheShortWay) {
    EXPECT_DOUBLE_EQ(DirectionDifference(10, 390), 20);
    EXPECT_DOUBLE_EQ(DirectionDifference(390, 10), -20);
    EXPECT_DOUBLE_EQ(DirectionDifference(200, 0), 200);
    EXPECT_DOUBLE_EQ(DirectionDifference(-5, 400), -5);
}

TEST(WorkOutSetUp, FindsCollimationAndIndexFromAPair) {
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(
        Station({At("A", 100.0010, 99.9990, 50.000), At("A", 299.9990, 300.0030, 50.002)}), warnings);
    ASSERT_EQ(frame.Sets.size(), 1U);
    EXPECT_TRUE(frame.Sets[0].BothFaces);
    EXPECT_NEAR(frame.Sets[0].Direction, 100.0000, 1e-10);
    EXPECT_NEAR(frame.Sets[0].Zenith, 99.9980, 1e-10);
    EXPECT_NEAR(*frame.Sets[0].Distance, 50.001, 1e-10);
    EXPECT_NEAR(frame.Collimation.Mean, 0.0010, 1e-10);
    EXPECT_NEAR(frame.Index.Mean, 0.0010, 1e-10);
    EXPECT_EQ(frame.Index.Pairs, 1);
    EXPECT_FALSE(frame.Index.Deviation);
    EXPECT_TRUE(warnings.empty());
}

TEST(WorkOutSetUp, AveragesFacesAcrossTheCirclesZero) {
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(Station({At("A", 399.9990, 100), At("A", 200.0010, 300),
                                                   At("B", 0.0004, 100), At("B", 199.9996, 300)}),
                                          warnings);
    EXPECT_NEAR(DirectionDifference(frame.Sets[0].Direction, 0), 0, 1e-10);
    EXPECT_NEAR(DirectionDifference(frame.Sets[1].Direction, 0), 0, 1e-10);
}

TEST(WorkOutSetUp, TakesTheCollimationOffByTheSineOfTheZenithAngle) {
    // At a zenith angle of 100/3 gons the sine is 1/2: a collimation of 1 mgon shows as 2 mgon.
    std::vector<Remark> warnings;
    const double steep = 100.0 / 3;
    const SetUpFrame frame =
        WorkOutSetUp(Station({At("A", 50.0020, steep), At("A", 249.9980, 400 - steep)}), warnings);
    EXPECT_NEAR(frame.Collimation.Mean, 0.0010, 1e-10);
    EXPECT_NEAR(frame.Sets[0].Direction, 50, 1e-10);
}

TEST(WorkOutSetUp, PairsFacesInAnyOrderOfRounds) {
    std::vector<Remark> warnings;
    const SetUpFrame frame =
        WorkOutSetUp(Station({At("A", 10, 100), At("B", 20, 100), At("B", 220, 300), At("A", 210, 300),
                              At("A", 210, 300), At("B", 220, 300), At("B", 20, 100), At("A", 10, 100)}),
                     warnings);
    ASSERT_EQ(frame.Sets.size(), 4U);
    for (const FaceSet& set : frame.Sets)
        EXPECT_TRUE(set.BothFaces);
    EXPECT_EQ(frame.Sets[0].Round, 0);
    EXPECT_EQ(frame.Sets[1].Round, 0);
    EXPECT_EQ(frame.Sets[2].Round, 1);
    EXPECT_EQ(frame.Sets[3].Round, 1);
    EXPECT_TRUE(warnings.empty());
}

TEST(WorkOutSetUp, PairsTwoPointingsInEachFace) {
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(
        Station({At("A", 10, 100), At("A", 10, 100), At("A", 210, 300), At("A", 210, 300)}), warnings);
    ASSERT_EQ(frame.Sets.size(), 2U);
    EXPECT_TRUE(frame.Sets[0].BothFaces);
    EXPECT_TRUE(frame.Sets[1].BothFaces);
}

TEST(WorkOutSetUp, PairsWithTheNearestEarlierSightInTheOtherFace) {
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(
        Station({At("A", 10, 100), At("A", 10.004, 100), At("A", 210.004, 300), At("A", 210, 300)}),
        warnings);
    ASSERT_EQ(frame.Sets.size(), 2U);
    EXPECT_NEAR(frame.Sets[0].Direction, 10, 1e-10);
    EXPECT_NEAR(frame.Sets[1].Direction, 10.004, 1e-10);
    EXPECT_NEAR(frame.Collimation.Mean, 0, 1e-10);
    EXPECT_NEAR(*frame.Collimation.Deviation, 0, 1e-10);
}

TEST(WorkOutSetUp, CorrectsASingleFaceByTheSetUpsErrorsAndNamesIt) {
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(Station({At("A", 100.0010, 100.0020), At("A", 299.9990, 300.0020),
                                                   At("B", 150.0010, 90.0020), At("C", 49.9990, 310.0020)}),
                                          warnings);
    ASSERT_EQ(frame.Sets.size(), 3U);
    EXPECT_FALSE(frame.Sets[1].BothFaces);
    EXPECT_EQ(frame.Sets[1].Face, 1);
    EXPECT_NEAR(frame.Sets[1].Direction, 150.0010 - 0.0010 / 0.98768, 1e-7);
    EXPECT_NEAR(frame.Sets[1].Zenith, 90.0000, 1e-10);
    EXPECT_EQ(frame.Sets[2].Face, 2);
    EXPECT_NEAR(frame.Sets[2].Direction, 249.9990 + 0.0010 / 0.98768, 1e-7);
    EXPECT_NEAR(frame.Sets[2].Zenith, 90.0000, 1e-10);
    ASSERT_EQ(warnings.size(), 2U);
    EXPECT_THAT(warnings[0].Text, HasSubstr("B from P1 in face 1 only, corrected"));
    EXPECT_THAT(warnings[1].Text, HasSubstr("C from P1 in face 2 only, corrected"));
}

TEST(WorkOutSetUp, SaysThatASetUpWithoutPairsIsUncorrected) {
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(Station({At("A", 100, 99)}), warnings);
    EXPECT_DOUBLE_EQ(frame.Sets[0].Direction, 100);
    EXPECT_DOUBLE_EQ(frame.Sets[0].Zenith, 99);
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_THAT(warnings[0].Text, HasSubstr("uncorrected"));
}

TEST(WorkOutSetUp, FollowsACircleThatWasMovedBetweenRounds) {
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(
        Station({At("A", 10, 100), At("B", 110, 100), At("B", 310, 300), At("A", 210, 300),
                 At("A", 110.0004, 100), At("B", 210, 100), At("B", 10, 300), At("A", 310.0004, 300)}),
        warnings);
    EXPECT_EQ(frame.Positions, 2);
    ASSERT_EQ(frame.Sets.size(), 4U);
    EXPECT_EQ(frame.Sets[2].Position, 1);
    EXPECT_EQ(frame.Sets[2].Round, 1);
    EXPECT_NEAR(frame.Sets[2].Direction, 10, 1e-9);
    EXPECT_NEAR(frame.Sets[3].Direction, 109.9996, 1e-9);
    EXPECT_TRUE(warnings.empty());
}

TEST(WorkOutSetUp, LeavesOutASightToAFalseTarget) {
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(Station({At("A", 10, 100), At("B", 110, 100), At("A", 310, 300),
                                                   At("B", 310, 300), At("A", 210, 300)}),
                                          warnings);
    EXPECT_EQ(frame.Positions, 1);
    ASSERT_EQ(frame.Sets.size(), 2U);
    EXPECT_TRUE(frame.Sets[0].BothFaces);
    EXPECT_TRUE(frame.Sets[1].BothFaces);
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_THAT(warnings[0].Text, HasSubstr("off by 100.0000 gon"));
}

TEST(WorkOutSetUp, DoesNotPairFacesOfUnequalTargetHeights) {
    std::vector<Remark> warnings;
    StationSetUp setUp = Station({At("A", 10, 100), At("A", 210, 300)});
    setUp.Sights[1].TargetHeight = 1.7;
    EXPECT_EQ(WorkOutSetUp(setUp, warnings).Sets.size(), 2U);
}

TEST(WorkOutSetUp, NamesFacesThatDisagree) {
    std::vector<Remark> warnings;
    WorkOutSetUp(Station({At("A", 10, 100), At("A", 210, 300), At("B", 20, 100), At("B", 220, 300),
                          At("C", 30, 100), At("C", 230.1, 300.2, 50.02)}),
                 warnings);
    std::string all;
    for (const Remark& warning : warnings)
        all += warning.Text + "\n";
    EXPECT_THAT(all, HasSubstr("C disagree in direction"));
    EXPECT_THAT(all, HasSubstr("C disagree in zenith angle"));
    EXPECT_THAT(all, HasSubstr("C disagree in distance by -20.0 mm"));
}

TEST(WorkOutSetUp, NamesNoFacesThatDisagreeOnlyByTheInstrumentsErrors) {
    // Collimation 0.05 gon and index 0.05 gon in both pairs.
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(Station({At("A", 10.05, 100.05), At("A", 209.95, 300.05),
                                                   At("B", 20.05, 100.05), At("B", 219.95, 300.05)}),
                                          warnings);
    EXPECT_NEAR(frame.Collimation.Mean, 0.05, 1e-6);
    EXPECT_NEAR(frame.Index.Mean, 0.05, 1e-10);
    EXPECT_TRUE(warnings.empty());
}

TEST(WorkOutSetUp, TakesPlumbSights) {
    std::vector<Remark> warnings;
    const SetUpFrame frame = WorkOutSetUp(Station({At("A", 10, 0), At("A", 210, 0)}), warnings);
    for (const FaceSet& set : frame.Sets)
        EXPECT_TRUE(set.Direction >= 0 && set.Direction < 400);
}

}  // namespace
}  // namespace Dorvane
