// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"
#include "tests/krenn/Reference.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

constexpr double kGons = 200 / std::numbers::pi;

struct Case {
    std::string name;
    NetworkSpec spec;
    Parameters parameters;
};

enum class Given { All, Part, None, OneFixed, TwoFixed, ThreeFixed };

constexpr Given kDatums[] = {Given::All,      Given::Part,     Given::None,
                             Given::OneFixed, Given::TwoFixed, Given::ThreeFixed};

void SetDatum(Given given, NetworkSpec& spec) {
    spec.given = given == Given::None ? 0 : (given == Given::All ? spec.points : spec.points - 4);
    spec.fixed =
        given == Given::OneFixed ? 1 : (given == Given::TwoFixed ? 2 : (given == Given::ThreeFixed ? 3 : 0));
}

// Everything that can be switched, in turn. A scale that no fixed point determines is left to networks over
// the flat earth: the curvature would determine it in principle, by hundreds of meters.
void SetModel(unsigned seed, NetworkSpec& spec, Parameters& parameters) {
    parameters.curvature = seed % 4 < 2;
    parameters.refraction =
        std::array{RefractionModel::Off, RefractionModel::Given, RefractionModel::Estimated}[seed % 3];
    const bool isFlat = !parameters.curvature && parameters.refraction == RefractionModel::Off;
    parameters.scale = seed % 2 == 0 ? spec.fixed > 1 : isFlat;
    parameters.zeroPoint = seed % 3 == 0;
    spec.scale = parameters.scale ? 40e-6 : 0;
    spec.zeroPoint = parameters.zeroPoint ? 0.004 : 0;
    spec.curvature = parameters.curvature ? 1 : 0;
    spec.refraction = parameters.refraction == RefractionModel::Off ? 0 : 0.13;
}

std::string NameOf(const char* kind, const NetworkSpec& spec) {
    return fmt::format("{}, dimension {}, seed {}, {} given, {} fixed, {} tilted", kind, spec.dimension,
                       spec.seed, spec.given, spec.fixed, spec.tilted);
}

std::vector<Case> LevelledNetworks() {
    std::vector<Case> cases;
    for (unsigned seed = 1; seed <= 8; ++seed) {
        for (const int dimension : {1, 2, 3}) {
            for (const Given given : kDatums) {
                Case next;
                next.spec.seed = seed;
                next.spec.dimension = dimension;
                SetDatum(given, next.spec);
                next.name = NameOf("levelled", next.spec);
                cases.push_back(next);
            }
        }
    }
    return cases;
}

// Plan networks whose figure directions or distances alone determine.
std::vector<Case> NetworksOfOneKind() {
    std::vector<Case> cases;
    for (unsigned seed = 1; seed <= 12; ++seed) {
        for (const bool areDirections : {true, false}) {
            Case next;
            next.spec.seed = seed;
            next.spec.dimension = 2;
            next.spec.sightsPerStation = 8;
            next.spec.directions = areDirections;
            next.spec.distances = !areDirections;
            next.spec.fixed = static_cast<int>(seed % 3);
            next.name = NameOf(areDirections ? "directions" : "distances", next.spec);
            cases.push_back(next);
        }
    }
    return cases;
}

std::vector<Case> TiltedNetworks() {
    std::vector<Case> cases;
    for (unsigned seed = 1; seed <= 12; ++seed) {
        for (const Given given : kDatums) {
            Case next;
            next.spec.seed = seed;
            SetDatum(given, next.spec);
            next.spec.tilted = std::array{5, 2, 4}[seed % 3];
            next.spec.size = seed % 2 ? 1000 : 40;
            next.spec.relief = seed % 2 ? 60 : 15;
            next.spec.startNoise = seed % 2 ? 0.5 : 0.02;
            next.parameters.tracker = TrackerModel::Rotations;
            next.name = NameOf("tilted", next.spec);
            cases.push_back(next);
        }
    }
    return cases;
}

std::vector<Case> NetworksWithModels() {
    std::vector<Case> cases;
    for (unsigned seed = 1; seed <= 12; ++seed) {
        for (const Given given : kDatums) {
            Case next;
            next.spec.seed = seed;
            next.spec.relief = 300;
            SetDatum(given, next.spec);
            SetModel(seed, next.spec, next.parameters);
            next.name = NameOf("with models", next.spec);
            cases.push_back(next);
        }
    }
    return cases;
}

std::vector<Case> AllCases() {
    std::vector<Case> all;
    for (const auto& some : {LevelledNetworks(), NetworksOfOneKind(), TiltedNetworks(), NetworksWithModels()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

// With three pairs of which covariances between points are wanted.
Network NetworkOf(const Case& next) {
    RandomNetwork random = MakeNetwork(next.spec);
    random.text.pairs = {random.names[0] + " " + random.names[5], random.names[1] + " " + random.names[2],
                         random.names[6] + " " + random.names[8]};
    return ReadInput(random.text.Text());
}

Eigen::VectorXd PlacesOf(const State& state) {
    Eigen::VectorXd places(static_cast<Eigen::Index>(3 * state.at.size()));
    for (std::size_t point = 0; point < state.at.size(); ++point) {
        for (std::size_t axis = 0; axis < 3; ++axis)
            places(static_cast<Eigen::Index>(3 * point + axis)) = state.at[point][axis] + state.origin[axis];
    }
    return places;
}

using Six = std::array<double, 6>;

void ExpectSameCofactors(const std::vector<Six>& a, const std::vector<Six>& b, double relative) {
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        const double size = b[i][0] + b[i][2] + b[i][5];
        for (std::size_t k = 0; k < 6; ++k)
            EXPECT_NEAR(a[i][k], b[i][k], relative * size) << i << " " << k;
    }
}

TEST(Types1And7, AgreeToANanometerAndToNineDigitsOfVariance) {
    for (const Case& next : AllCases()) {
        SCOPED_TRACE(next.name);
        const Network network = NetworkOf(next);
        const Adjustment sparse = Adjust(network, Type::SparseInverse, next.parameters);
        const Adjustment dense = Adjust(network, Type::Dense, next.parameters);
        EXPECT_LT((PlacesOf(sparse.state) - PlacesOf(dense.state)).cwiseAbs().maxCoeff(), 1e-9);
        ExpectSameCofactors(sparse.cofactors.point, dense.cofactors.point, 1e-9);
        ExpectSameCofactors(sparse.cofactors.rotation, dense.cofactors.rotation, 1e-9);
        ExpectSameCofactors(sparse.cofactors.pair, dense.cofactors.pair, 1e-9);
        for (std::size_t m = 0; m < sparse.cofactors.measure.size(); ++m)
            EXPECT_NEAR(sparse.cofactors.measure[m], dense.cofactors.measure[m],
                        1e-9 * dense.cofactors.measure[m]);
    }
}

TEST(Type0, GivesTheCoordinatesOfType1WithoutCofactors) {
    for (const Case& next : AllCases()) {
        SCOPED_TRACE(next.name);
        const Network network = NetworkOf(next);
        const Adjustment plain = Adjust(network, Type::Sparse, next.parameters);
        const Adjustment inverse = Adjust(network, Type::SparseInverse, next.parameters);
        EXPECT_FALSE(plain.hasCofactors);
        EXPECT_LT((PlacesOf(plain.state) - PlacesOf(inverse.state)).cwiseAbs().maxCoeff(), 1e-9);
        EXPECT_NEAR(plain.sumOfSquares, inverse.sumOfSquares, 1e-9 * inverse.sumOfSquares + 1e-12);
    }
}

// Cofactors of a point, or of the differences of two, out of the whole matrix.
Six BlockOf(const Eigen::MatrixXd& cofactor, Eigen::Index from, Eigen::Index to) {
    Eigen::Matrix3d block = cofactor.block<3, 3>(3 * to, 3 * to);
    if (from >= 0)
        block += cofactor.block<3, 3>(3 * from, 3 * from) - cofactor.block<3, 3>(3 * from, 3 * to) -
                 cofactor.block<3, 3>(3 * to, 3 * from);
    return {block(0, 0), block(0, 1), block(1, 1), block(0, 2), block(1, 2), block(2, 2)};
}

class BesideTheReference : public testing::TestWithParam<Type> {};

void ExpectSameObservations(const Network& network, const Adjustment& adjustment,
                            const Reference& reference) {
    const Statistics statistics = Evaluate(network, adjustment);
    ASSERT_EQ(adjustment.residual.size(), network.observations.size());
    for (std::size_t m = 0; m < network.observations.size(); ++m) {
        const Observation& o = network.observations[m];
        const auto row = static_cast<Eigen::Index>(m);
        const double unit = o.kind == Kind::Direction || o.kind == Kind::ZenithAngle ? kGons : 1;
        EXPECT_NEAR(adjustment.residual[m] * unit, reference.residual(row), 1e-5 * o.sigma) << m;
        EXPECT_NEAR(statistics.redundancyNumber[m], reference.redundancy(row), 1e-7) << m;
    }
}

void ExpectSameModel(const Adjustment& adjustment, const Reference& reference) {
    for (std::size_t meter = 0; meter < 2; ++meter) {
        EXPECT_NEAR(adjustment.state.meter[meter].scale, reference.scale[meter], 1e-10);
        EXPECT_NEAR(adjustment.state.meter[meter].zeroPoint, reference.zeroPoint[meter], 1e-8);
    }
    EXPECT_NEAR(adjustment.state.refraction, reference.refraction, 1e-6);
}

TEST_P(BesideTheReference, CoordinatesResidualsRedundancyAndVariancesAreTheSame) {
    for (const Case& next : AllCases()) {
        SCOPED_TRACE(next.name);
        const Network network = NetworkOf(next);
        const Adjustment adjustment = Adjust(network, GetParam(), next.parameters);
        const Eigen::VectorXd places = PlacesOf(adjustment.state);
        Eigen::VectorXd start = places;
        for (Eigen::Index i = 0; i < start.size(); ++i) {
            if (!network.points[static_cast<std::size_t>(i / 3)].isFixed)
                start(i) += 0.03 * std::sin(7.0 * static_cast<double>(i));
        }
        const Reference reference =
            Solve(network, next.spec.dimension, start, PlacesOf(adjustment.start), next.parameters);
        EXPECT_EQ(adjustment.unknowns.Count(), reference.unknowns);
        EXPECT_EQ(adjustment.Redundancy(), static_cast<int>(network.observations.size()) - reference.rank);
        EXPECT_NEAR(adjustment.sumOfSquares, reference.sumOfSquares, 1e-9 * reference.sumOfSquares);
        ExpectSameObservations(network, adjustment, reference);
        ExpectSameModel(adjustment, reference);
        std::vector<Six> points, pairs;
        for (std::size_t point = 0; point < network.points.size(); ++point) {
            points.push_back(BlockOf(reference.cofactor, -1, static_cast<Eigen::Index>(point)));
            for (std::size_t axis = 0; axis < 3; ++axis) {
                const auto i = static_cast<Eigen::Index>(3 * point + axis);
                if (adjustment.unknowns.number[point][axis] >= 0) {
                    EXPECT_NEAR(places(i), reference.place(i), 1e-8) << i;
                }
            }
        }
        for (const auto& [from, to] : network.relativePairs)
            pairs.push_back(BlockOf(reference.cofactor, from, to));
        ExpectSameCofactors(adjustment.cofactors.point, points, 1e-6);
        ExpectSameCofactors(adjustment.cofactors.pair, pairs, 1e-6);
    }
}

INSTANTIATE_TEST_SUITE_P(Types, BesideTheReference, testing::Values(Type::SparseInverse, Type::Dense),
                         [](const auto& type) {
                             return type.param == Type::Dense ? "Dense" : "SparseInverse";
                         });

}  // namespace
