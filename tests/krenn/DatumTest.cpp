// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/datum/Datum.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "krenn/Errors.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "krenn/solve/RankCheck.h"
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

// H' G = 1, whichever points the constraints run over; the S-transformation rests on it.
TEST(FindDatum, ConstraintsTakeOutEachMovementOnceAndNoOther) {
    for (const int dimension : {1, 2, 3}) {
        for (const int given : {0, 1, 2, 9}) {
            NetworkSpec spec;
            spec.dimension = dimension;
            spec.given = given;
            const PartDatum part = DatumFor(spec);
            const Eigen::MatrixXd product = part.constraint.transpose() * part.movement;
            EXPECT_LT((product - Eigen::MatrixXd::Identity(part.defect, part.defect)).cwiseAbs().maxCoeff(),
                      1e-9)
                << dimension << " dimensions, " << given << " given";
        }
    }
}

// Where one given point leaves a movement to all points, the bordered equations of type 7 know nothing of how
// types 0 and 1 turn their minimal solution.
TEST(FindDatum, OneGivenPointGivesTheVariancesOfTheBorderedEquations) {
    for (const int dimension : {2, 3}) {
        for (const bool distances : {true, false}) {
            NetworkSpec spec;
            spec.dimension = dimension;
            spec.given = 1;
            spec.distances = distances;
            spec.sightsPerStation = 8;
            const Network network = ReadInput(MakeNetwork(spec).text.Text());
            const Adjustment sparse = Adjust(network, Type::SparseInverse);
            const Adjustment dense = Adjust(network, Type::Dense);
            ASSERT_EQ(sparse.cofactors.point.size(), dense.cofactors.point.size());
            double size = 0;  // of the largest variance; that of the given point itself may be 0
            for (const auto& q : dense.cofactors.point)
                size = std::max({size, q[0], q[2], q[5]});
            for (std::size_t p = 0; p < sparse.cofactors.point.size(); ++p) {
                const auto& q = dense.cofactors.point[p];
                for (std::size_t k = 0; k < q.size(); ++k)
                    EXPECT_NEAR(sparse.cofactors.point[p][k], q[k], 1e-9 * size)
                        << dimension << " dimensions, point " << p << ", entry " << k;
            }
        }
    }
}

// Unknowns less the rank of the design matrix with all unknowns free, its columns at length 1.
int DefectOfTheDesign(const Adjustment& adjustment) {
    const auto& measures = adjustment.structure.measures;
    const int unknowns = adjustment.unknowns.Count();
    Eigen::MatrixXd design = Eigen::MatrixXd::Zero(static_cast<Eigen::Index>(measures.size()), unknowns);
    for (std::size_t m = 0; m < measures.size(); ++m) {
        const Partials partials = ComputePartials(measures[m], adjustment.state);
        const auto numbers = UnknownsOf(measures[m], adjustment.unknowns);
        for (std::size_t i = 0; i < kTerms; ++i) {
            if (numbers[i] >= 0)
                design(static_cast<Eigen::Index>(m), numbers[i]) += partials.by[i] / measures[m].sigma;
        }
    }
    for (auto column : design.colwise())
        column /= std::max(column.norm(), 1e-300);
    const Eigen::JacobiSVD<Eigen::MatrixXd> svd(design);
    return unknowns - static_cast<int>((svd.singularValues().array() > 1e-9).count());
}

double PivotWithHeld(const Adjustment& adjustment, const std::vector<int>& held) {
    NormalMatrix normals = MakePattern(adjustment.structure, adjustment.unknowns, held, {});
    FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
    SparseCholesky cholesky;
    Analyse(cholesky, normals);
    return Factorise(cholesky, normals).least;
}

// The defect is that of the observations themselves, the factor knows it, and the unknowns that are held take
// it out with not one too many.
void ExpectDefect(const std::string& text, const Parameters& parameters, int defect,
                  const std::string& what) {
    const Adjustment adjustment = Adjust(ReadInput(text), Type::Sparse, parameters);
    EXPECT_EQ(adjustment.datum.Defect(), defect) << what;
    EXPECT_EQ(DefectOfTheDesign(adjustment), defect) << what;
    std::vector<int> held;
    for (const PartDatum& part : adjustment.datum.parts)
        held.insert(held.end(), part.held.begin(), part.held.end());
    ASSERT_EQ(static_cast<int>(held.size()), defect) << what;
    EXPECT_GT(PivotWithHeld(adjustment, held), kDoubtfulPivot) << what;
    if (defect > 0) {
        held.pop_back();
        EXPECT_LT(PivotWithHeld(adjustment, held), kDoubtfulPivot) << what;
    }
}

TEST(Defect, IsThatOfTheObservationsInEveryKindOfNetwork) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        spec.sightsPerStation = 8;
        for (const int dimension : {1, 2, 3}) {
            spec.dimension = dimension;
            const std::array<int, 4> movements{0, 1, 3, 4};
            spec.fixed = 0;
            const int free = movements[static_cast<std::size_t>(dimension)];
            const std::string what = fmt::format("seed {}, dimension {}", seed, dimension);
            ExpectDefect(MakeNetwork(spec).text.Text(), {}, free, what);
            spec.fixed = 1;
            ExpectDefect(MakeNetwork(spec).text.Text(), {}, dimension == 1 ? 0 : 1, what + ", one fixed");
            spec.fixed = 2;
            ExpectDefect(MakeNetwork(spec).text.Text(), {}, 0, what + ", two fixed");
            if (dimension == 1)
                continue;
            spec.fixed = 0;
            spec.distances = false;
            ExpectDefect(MakeNetwork(spec).text.Text(), {}, free + 1, what + ", angles alone");
            spec.distances = true;
            if (dimension == 2) {
                spec.directions = false;
                spec.stations = 7;
                ExpectDefect(MakeNetwork(spec).text.Text(), {}, 3, what + ", distances alone");
                spec.directions = true;
                spec.stations = 5;
            }
        }
    }
}

TEST(Defect, CountsWhatTheUnknownsOfTheWholeNetworkLeaveFree) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        spec.sightsPerStation = 8;
        const std::string text = MakeNetwork(spec).text.Text();
        const auto expect = [&](auto change, int defect, const std::string& what) {
            Parameters parameters;
            change(parameters);
            ExpectDefect(text, parameters, defect, fmt::format("{}, seed {}", what, seed));
        };
        expect([](Parameters& p) { p.scale = true; }, 5, "scale");
        expect([](Parameters& p) { p.zeroPoint = true; }, 4, "zero point");
        expect([](Parameters& p) { p.scale = p.zeroPoint = true; }, 5, "scale and zero point");
        expect([](Parameters& p) { p.curvature = true; }, 4, "curvature");
        expect([](Parameters& p) { p.refraction = RefractionModel::Given; }, 4, "given refraction");
        expect([](Parameters& p) { p.refraction = RefractionModel::Estimated; }, 4, "estimated refraction");
        expect(
            [](Parameters& p) {
                p.zeroPoint = p.curvature = true;
                p.refraction = RefractionModel::Estimated;
            },
            4, "zero point, curvature and refraction");
    }
}

// Readings of instruments that stand upright; a tracker is not told so.
std::string TrackerText(int trackers, int levelled) {
    InputText text;
    const std::vector<std::array<double, 3>> places{{0, 0, 0},    {20, 3, 1},   {11, 19, 3},
                                                    {-9, 14, -2}, {5, 9, 6},    {-14, -3, 2},
                                                    {7, -12, 4},  {16, -8, -3}, {2, 25, -1}};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto name = "P" + std::to_string(i + 1);
        text.points.push_back(InputText::Given(name, places[i][0], places[i][1], places[i][2]));
        if (static_cast<int>(i) >= trackers + levelled)
            continue;
        for (std::size_t k = 0; k < places.size(); ++k) {
            if (k == i)
                continue;
            const auto other = "P" + std::to_string(k + 1);
            text.distances.push_back(fmt::format("{} {} {:.6f} 0.0001{}\r\n", name, other,
                                                 SlopeLength(places[i], places[k]),
                                                 static_cast<int>(i) < trackers ? "   T" : ""));
            text.Angles(name, other, AzimuthGons(places[i], places[k]), ZenithGons(places[i], places[k]),
                        0.001);
        }
    }
    return text.Text();
}

TEST(Defect, HasTheTiltsOnlyWhereNoInstrumentIsLevelled) {
    Parameters parameters;
    parameters.tracker = TrackerModel::Rotations;
    ExpectDefect(TrackerText(2, 0), parameters, 6, "trackers");
    ExpectDefect(TrackerText(1, 1), parameters, 4, "a tracker beside a levelled instrument");
    ExpectDefect(TrackerText(2, 0), {}, 4, "trackers taken as levelled");
    Parameters scaled = parameters;
    scaled.scale = true;
    ExpectDefect(TrackerText(2, 0), scaled, 7, "trackers with a scale");
    ExpectDefect(TrackerText(1, 1), scaled, 5, "two meters with a scale each, tied to each other");
}

TEST(Defect, IsTheSumOverUnconnectedParts) {
    NetworkSpec spec;
    spec.sightsPerStation = 8;
    InputText both = MakeNetwork(spec).text;
    both.Height("L1", "L2", 1.000, 0.001);
    both.Height("L2", "L3", 1.000, 0.001);
    both.Height("L3", "L1", -2.003, 0.001);
    ExpectDefect(both.Text(), {}, 5, "with a loop of heights");
    Parameters scaled;
    scaled.scale = true;
    ExpectDefect(both.Text(), scaled, 6, "with a scale");
}

// Renames every point of a network so that two can stand in one file.
InputText Renamed(const NetworkSpec& spec, const std::string& prefix) {
    InputText text = MakeNetwork(spec).text;
    for (auto* rows : {&text.stations, &text.points}) {
        for (std::string& row : *rows)
            row = prefix + (row.size() > 20 ? row.substr(0, 8) + row.substr(9) : row);
    }
    for (auto* rows : {&text.distances, &text.angles}) {
        for (std::string& row : *rows)
            row = prefix + row.substr(0, 9) + prefix + row.substr(10, 9) + row.substr(20);
    }
    return text;
}

TEST(Parts, AreAdjustedAsIfEachWereAlone) {
    NetworkSpec spec;
    spec.sightsPerStation = 8;
    const InputText first = Renamed(spec, "A");
    spec.seed = 2;
    spec.given = 4;
    const InputText second = Renamed(spec, "B");
    InputText both = first;
    for (const auto& [to, from] : {std::pair{&both.stations, &second.stations},
                                   {&both.points, &second.points},
                                   {&both.distances, &second.distances},
                                   {&both.angles, &second.angles}})
        to->insert(to->end(), from->begin(), from->end());
    for (const Type type : {Type::Sparse, Type::SparseInverse, Type::Dense, Type::L1Norm}) {
        const Network together = ReadInput(both.Text());
        const Adjustment whole = Adjust(together, type);
        EXPECT_EQ(whole.structure.parts, 2);
        double squares = 0;
        int redundancy = 0;
        for (const InputText& text : {first, second}) {
            const Network network = ReadInput(text.Text());
            const Adjustment alone = Adjust(network, type);
            squares += alone.sumOfSquares;
            redundancy += alone.Redundancy();
            for (std::size_t p = 0; p < network.points.size(); ++p) {
                std::size_t same = 0;
                while (together.points[same].name != network.points[p].name)
                    ++same;
                for (std::size_t axis = 0; axis < 3; ++axis)
                    EXPECT_NEAR(whole.state.at[same][axis] + whole.state.origin[axis],
                                alone.state.at[p][axis] + alone.state.origin[axis],
                                type == Type::L1Norm ? 1e-6 : 1e-8);
                for (std::size_t i = 0; i < 6 && alone.hasCofactors; ++i)
                    EXPECT_NEAR(whole.cofactors.point[same][i], alone.cofactors.point[p][i],
                                1e-7 * alone.cofactors.point[p][0]);
            }
        }
        EXPECT_EQ(whole.Redundancy(), redundancy);
        if (type != Type::L1Norm) {
            EXPECT_NEAR(whole.sumOfSquares, squares, 1e-6 * squares);
            EXPECT_NEAR(Evaluate(together, whole).m0, std::sqrt(squares / redundancy), 1e-6);
        }
    }
}

TEST(Parts, AreRefusedByNameWhenToldTo) {
    NetworkSpec spec;
    InputText text = MakeNetwork(spec).text;
    text.Height("L1", "L2", 1.000, 0.001);
    text.Height("M1", "M2", 1.000, 0.001);
    Parameters parameters;
    parameters.parts = PartsRule::Refuse;
    try {
        Adjust(ReadInput(text.Text()), Type::SparseInverse, parameters);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number, ErrorNumber::UnconnectedParts);
        ASSERT_EQ(failure.details.size(), 3U);
        EXPECT_THAT(failure.details[0], testing::HasSubstr("9 points: S1, S2"));
        EXPECT_THAT(failure.details[1], testing::HasSubstr("L1, L2"));
        EXPECT_THAT(failure.details[2], testing::HasSubstr("M1, M2"));
    }
}

}  // namespace
