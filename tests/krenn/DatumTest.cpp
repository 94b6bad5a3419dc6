// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Datum.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "krenn/Adjustment.h"
#include "krenn/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;
using testing::ElementsAre;

PartDatum DatumFor(const NetworkSpec& spec) {
    return Adjust(ReadInput(MakeNetwork(spec).text.Text()), Type::Sparse).datum.parts.at(0);
}

TEST(FindDatum, FindsTheDefectOfEveryKindOfNetwork) {
    NetworkSpec spec;
    EXPECT_THAT(DatumFor(spec).movements,
                ElementsAre("shift in X", "shift in Y", "rotation about Z", "shift in Z"));
    spec.dimension = 2;
    EXPECT_THAT(DatumFor(spec).movements, ElementsAre("shift in X", "shift in Y", "rotation about Z"));
    spec.dimension = 1;
    EXPECT_THAT(DatumFor(spec).movements, ElementsAre("shift in Z"));
}

TEST(FindDatum, FindsTheScaleWhenNoDistanceSetsIt) {
    NetworkSpec spec;
    spec.distances = false;
    spec.sightsPerStation = 8;
    const PartDatum full = DatumFor(spec);
    EXPECT_EQ(full.defect, 5);
    EXPECT_THAT(full.movements, testing::Contains("scale"));
    spec.dimension = 2;
    const PartDatum plan = DatumFor(spec);
    EXPECT_EQ(plan.defect, 4);
    EXPECT_THAT(plan.movements, testing::Contains("scale in plan"));
}

TEST(FindDatum, FixedPointsTakeOutWhatTheyCan) {
    NetworkSpec spec;
    spec.fixed = 1;
    EXPECT_EQ(DatumFor(spec).defect, 1);  // the rotation about the fixed point
    spec.fixed = 2;
    EXPECT_EQ(DatumFor(spec).defect, 0);
    spec.distances = false;
    EXPECT_EQ(DatumFor(spec).defect, 0);
    spec.fixed = 1;
    EXPECT_EQ(DatumFor(spec).defect, 2);
    spec.dimension = 1;
    EXPECT_EQ(DatumFor(spec).defect, 0);
}

// A levelled line between two plan networks carries the height over, but neither shift nor rotation in plan.
TEST(FindDatum, CountsPlanMovementsPerPlanGroup) {
    InputText text;
    for (const std::string side : {"A", "B"}) {
        text.points.push_back(InputText::Given(side + "1", 0, 0, 0));
        text.points.push_back(InputText::Given(side + "2", 100, 0, 0));
        text.points.push_back(InputText::Given(side + "3", 0, 100, 0));
        text.Distance(side + "1", side + "2", 100, 0.001);
        text.Distance(side + "1", side + "3", 100, 0.001);
        text.Distance(side + "2", side + "3", 141.42136, 0.001);
        text.Height(side + "1", side + "2", 0, 0.001);
        text.Height(side + "1", side + "3", 0, 0.001);
    }
    text.Height("A1", "B1", 0, 0.001);
    const Adjustment adjustment = Adjust(ReadInput(text.Text()), Type::SparseInverse);
    EXPECT_EQ(adjustment.datum.Defect(), 7);
    EXPECT_EQ(adjustment.Redundancy(), 11 - 18 + 7);
}

TEST(FindDatum, AdjustsUnconnectedPartsPartByPart) {
    NetworkSpec spec;
    RandomNetwork both = MakeNetwork(spec);
    const Adjustment one = Adjust(ReadInput(both.text.Text()), Type::SparseInverse);
    both.text.points.push_back(InputText::Named("L1"));
    both.text.Height("L1", "L2", 1.000, 0.001);
    both.text.Height("L2", "L3", 1.000, 0.001);
    both.text.Height("L3", "L1", -2.003, 0.001);
    const Adjustment two = Adjust(ReadInput(both.text.Text()), Type::SparseInverse);
    EXPECT_EQ(two.structure.parts, 2);
    EXPECT_EQ(two.datum.Defect(), one.datum.Defect() + 1);
    EXPECT_EQ(two.Redundancy(), one.Redundancy() + 1);
    for (std::size_t p = 0; p < both.names.size(); ++p) {
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_NEAR(two.cofactors.point[p][i], one.cofactors.point[p][i], 1e-15);
    }
}

// The corrections from the given coordinates must not hold a shift, a rotation or a scale of the given
// points.
TEST(FindDatum, SetsInnerConstraintsOverTheGivenPoints) {
    NetworkSpec spec;
    spec.given = 4;
    const Network network = ReadInput(MakeNetwork(spec).text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    EXPECT_EQ(adjustment.datum.parts[0].datumPoints, 4);
    double shift[3] = {};
    double turn = 0;
    for (std::size_t p = 0; p < network.points.size(); ++p) {
        if (!network.points[p].hasGiven)
            continue;
        const auto& at = adjustment.state.at[p];
        const auto& start = adjustment.start.at[p];
        for (std::size_t axis = 0; axis < 3; ++axis)
            shift[axis] += at[axis] - start[axis];
        turn += at[1] * (at[0] - start[0]) - at[0] * (at[1] - start[1]);
    }
    for (const double sum : shift)
        EXPECT_NEAR(sum, 0, 1e-8);
    EXPECT_NEAR(turn, 0, 1e-5);
}

// Cofactors under inner constraints have no movement in them: Q H = 0, tested here with shifts.
TEST(FindDatum, TraceOfTheCofactorsIsLeastOverAllPoints) {
    NetworkSpec spec;
    const RandomNetwork random = MakeNetwork(spec);
    const auto trace = [](const Adjustment& adjustment) {
        double sum = 0;
        for (const auto& q : adjustment.cofactors.point)
            sum += q[0] + q[2] + q[5];
        return sum;
    };
    const double free = trace(Adjust(ReadInput(random.text.Text()), Type::SparseInverse));
    for (const int given : {2, 4, 7}) {
        NetworkSpec fewer = spec;
        fewer.given = given;
        EXPECT_LT(free, trace(Adjust(ReadInput(MakeNetwork(fewer).text.Text()), Type::SparseInverse)));
    }
}

TEST(FindDatum, OneGivenPointLeavesTheRotationToAllPoints) {
    NetworkSpec spec;
    spec.given = 1;
    spec.startNoise = 0;
    const RandomNetwork random = MakeNetwork(spec);
    const Network network = ReadInput(random.text.Text());
    for (const Type type : {Type::SparseInverse, Type::Dense}) {
        const Adjustment adjustment = Adjust(network, type);
        const PartDatum& part = adjustment.datum.parts[0];
        EXPECT_TRUE(part.overGiven);
        EXPECT_TRUE(part.alsoOverAll);
        const std::size_t last = network.points.size() - 1;
        for (std::size_t axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(adjustment.state.at[last][axis], adjustment.start.at[last][axis], 1e-9);
    }
}

}  // namespace
