// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <random>

#include "krenn/Errors.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/input/InputReader.h"
#include "krenn/listing/Listing.h"
#include "krenn/solve/Jordan.h"
#include "krenn/solve/RankCheck.h"
#include "krenn/solve/SparseCholesky.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

TEST(JordanInvert, InvertsAMatrixThatNeedsExchanges) {
    Eigen::MatrixXd matrix(3, 3);
    matrix << 0, 2, 1, 1, 0, 0, 3, 1, 4;
    const Eigen::MatrixXd original = matrix;
    JordanInvert(matrix);
    EXPECT_LT((matrix * original - Eigen::MatrixXd::Identity(3, 3)).norm(), 1e-14);
}

// More than one block of columns, and shares of them for several threads.
TEST(JordanInvert, InvertsALargeMatrixTheSameForEveryNumberOfThreads) {
    std::mt19937 random(3);
    std::normal_distribution<double> normal;
    Eigen::MatrixXd matrix(301, 301);
    for (double& entry : matrix.reshaped())
        entry = normal(random);
    matrix.topLeftCorner(80, 80).setZero();
    Eigen::MatrixXd alone = matrix;
    JordanInvert(alone, 1);
    EXPECT_LT((alone * matrix - Eigen::MatrixXd::Identity(301, 301)).norm(), 1e-9);
    for (const int threads : {2, 3}) {
        Eigen::MatrixXd shared = matrix;
        JordanInvert(shared, threads);
        EXPECT_TRUE(shared == alone) << threads;
    }
}

TEST(JordanInvert, RefusesASingularMatrix) {
    Eigen::MatrixXd matrix = Eigen::MatrixXd::Ones(3, 3);
    EXPECT_THROW(JordanInvert(matrix), Failure);
}

// Large enough that the supernodes branch and that nested dissection orders.
struct Grid {
    Network network;
    Structure structure;
    Unknowns unknowns;
    State state;
    NormalMatrix normals;

    explicit Grid(int points) {
        NetworkSpec spec;
        spec.points = points;
        spec.given = points;
        spec.stations = points;
        spec.sightsPerStation = 3;
        spec.fixed = 2;
        network = ReadInput(MakeNetwork(spec).text.Text());
        structure = FindStructure(network);
        state = Approximate(network, structure).state;
        unknowns = NumberUnknowns(structure);
        normals = MakePattern(structure, unknowns, {}, {{0, points - 1}});
        FillNormals(normals, structure, unknowns, state, {});
    }

    Eigen::MatrixXd Dense() const {
        Eigen::MatrixXd dense(normals.size, normals.size);
        dense.setZero();
        for (int column = 0; column < normals.size; ++column) {
            for (int at = normals.columnStart[static_cast<std::size_t>(column)];
                 at < normals.columnStart[static_cast<std::size_t>(column) + 1]; ++at) {
                const int row = normals.row[static_cast<std::size_t>(at)];
                dense(row, column) = normals.value[static_cast<std::size_t>(at)];
                dense(column, row) = dense(row, column);
            }
        }
        return dense;
    }
};

TEST(FillNormals, EqualsTheProductOfTheDesignMatrix) {
    const Grid grid(12);
    Eigen::MatrixXd product = Eigen::MatrixXd::Zero(grid.normals.size, grid.normals.size);
    for (const Measure& measure : grid.structure.measures) {
        Eigen::VectorXd row = Eigen::VectorXd::Zero(grid.normals.size);
        const Partials partials = ComputePartials(measure, grid.state);
        const auto rows = RowsOf(grid.normals, measure, grid.unknowns);
        for (std::size_t i = 0; i < kTerms; ++i) {
            if (rows[i] >= 0)
                row(rows[i]) += partials.by[i] / measure.sigma;
        }
        product += row * row.transpose();
    }
    EXPECT_LT((product - grid.Dense()).norm(), 1e-12 * product.norm());
}

TEST(Solve, SolvesWhatItFactorised) {
    const Grid grid(60);
    SparseCholesky cholesky;
    Analyse(cholesky, grid.normals);
    EXPECT_GT(Factorise(cholesky, grid.normals).least, kDoubtfulPivot);
    const Eigen::VectorXd x = Eigen::VectorXd::LinSpaced(grid.normals.size, -1, 1);
    EXPECT_LT((Solve(cholesky, grid.Dense() * x) - x).norm(), 1e-8 * x.norm());
}

TEST(Factorise, TellsThePivotOfARowThatOthersExplain) {
    Grid grid(30);
    // The last row becomes the first one, and with it the matrix singular.
    NormalMatrix& normals = grid.normals;
    const int last = normals.size - 1;
    const auto diagonal = static_cast<std::size_t>(normals.columnStart[static_cast<std::size_t>(last)]);
    SparseCholesky cholesky;
    Analyse(cholesky, normals);
    const Eigen::MatrixXd dense = grid.Dense();
    const Eigen::VectorXd column = dense.col(last).head(last);
    const double explained = column.dot(dense.topLeftCorner(last, last).llt().solve(column));
    normals.value[diagonal] = explained * (1 + 1e-9);
    const Pivot nearly = Factorise(cholesky, normals);
    EXPECT_GT(nearly.least, 0);
    EXPECT_LT(nearly.least, 1e-8);
    normals.value[diagonal] = explained * (1 - 1e-6);
    const Pivot broken = Factorise(cholesky, normals);
    EXPECT_EQ(broken.least, 0);
    EXPECT_GE(broken.row, 0);
    normals.value[diagonal] = dense(last, last);
    EXPECT_GT(Factorise(cholesky, normals).least, kDoubtfulPivot);
}

// Results are compared to the last bit. The network is large enough for branches and for panels of its top.
TEST(SparseCholesky, GivesTheSameNumbersForEveryNumberOfThreads) {
    const Grid grid(550);
    const Eigen::VectorXd right = Eigen::VectorXd::LinSpaced(grid.normals.size, -1, 1);
    Eigen::VectorXd solution;
    std::vector<double> entries;
    for (const int threads : {1, 2, 3}) {
        SparseCholesky cholesky(threads);
        Analyse(cholesky, grid.normals);
        Factorise(cholesky, grid.normals);
        const Eigen::VectorXd solved = Solve(cholesky, right);
        const std::vector<double> inverse = InverseEntries(cholesky, grid.normals);
        if (threads == 1) {
            solution = solved;
            entries = inverse;
        }
        EXPECT_TRUE(solved == solution) << threads;
        EXPECT_TRUE(inverse == entries) << threads;
    }
}

TEST(InverseEntries, TakesThePlaceOfTheFactorUntilTheNextFactorisation) {
    const Grid grid(30);
    const Eigen::VectorXd right = Eigen::VectorXd::Ones(grid.normals.size);
    SparseCholesky cholesky;
    Analyse(cholesky, grid.normals);
    Factorise(cholesky, grid.normals);
    const Eigen::VectorXd solution = Solve(cholesky, right);
    InverseEntries(cholesky, grid.normals);
    EXPECT_THROW(Solve(cholesky, right), Failure);
    EXPECT_THROW(InverseEntries(cholesky, grid.normals), Failure);
    Factorise(cholesky, grid.normals);
    EXPECT_TRUE(Solve(cholesky, right) == solution);
}

TEST(FillRight, EqualsTheRightSideOfTheNormalEquations) {
    Grid grid(12);
    const Eigen::VectorXd right = grid.normals.right;
    grid.normals.right.setZero();
    FillRight(grid.normals, grid.structure, grid.unknowns, grid.state);
    EXPECT_LT((grid.normals.right - right).norm(), 1e-12 * right.norm());
}

Network FreeNetwork(double startNoise) {
    NetworkSpec spec;
    spec.points = 120;
    spec.given = 120;
    spec.stations = 120;
    spec.startNoise = startNoise;
    return ReadInput(MakeNetwork(spec).text.Text());
}

// The part of a correction that moves the network in itself, from normal equations made anew.
double FreshCorrection(const Network& network, const Adjustment& adjustment) {
    std::vector<int> held;
    for (const PartDatum& part : adjustment.datum.parts)
        held.insert(held.end(), part.held.begin(), part.held.end());
    NormalMatrix normals =
        MakePattern(adjustment.structure, adjustment.unknowns, held, network.relativePairs);
    FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
    SparseCholesky cholesky;
    Analyse(cholesky, normals);
    Factorise(cholesky, normals);
    return Solve(cholesky, normals.right).cwiseAbs().maxCoeff();
}

class FromStartsThatAreOff : public testing::TestWithParam<double> {};

TEST_P(FromStartsThatAreOff, NothingIsLeftToCorrectAtTheEnd) {
    const Network network = FreeNetwork(GetParam());
    const Adjustment adjustment = Adjust(network, Type::Sparse);
    EXPECT_LT(FreshCorrection(network, adjustment), 1e-9);
    EXPECT_LT(adjustment.iterations.back().largest, 1e-9);
    EXPECT_GE(adjustment.iterations.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Adjust, FromStartsThatAreOff, testing::Values(0.001, 0.1, 3.0, 30.0));

class ThreadsOfType : public testing::TestWithParam<Type> {};

TEST_P(ThreadsOfType, MakeNoDifferenceToTheListing) {
    const Network network = FreeNetwork(0.1);
    std::string alone;
    for (const int threads : {1, 2, 3}) {
        Parameters parameters;
        parameters.threads = threads;
        const Adjustment adjustment = Adjust(network, GetParam(), parameters);
        const std::string listing =
            GoodListing({}, network, adjustment, Evaluate(network, adjustment, parameters));
        if (threads == 1)
            alone = listing;
        EXPECT_EQ(listing, alone) << threads;
    }
}

INSTANTIATE_TEST_SUITE_P(Adjust, ThreadsOfType,
                         testing::Values(Type::Sparse, Type::SparseInverse, Type::Dense, Type::L1Norm));

class InverseOfSize : public testing::TestWithParam<int> {};

TEST_P(InverseOfSize, EqualsTheDenseInverseInThePattern) {
    const Grid grid(GetParam());
    SparseCholesky cholesky;
    Analyse(cholesky, grid.normals);
    Factorise(cholesky, grid.normals);
    const std::vector<double> entries = InverseEntries(cholesky, grid.normals);
    const Eigen::MatrixXd inverse =
        grid.Dense().llt().solve(Eigen::MatrixXd::Identity(grid.normals.size, grid.normals.size));
    for (int column = 0; column < grid.normals.size; ++column) {
        for (int at = grid.normals.columnStart[static_cast<std::size_t>(column)];
             at < grid.normals.columnStart[static_cast<std::size_t>(column) + 1]; ++at) {
            const int row = grid.normals.row[static_cast<std::size_t>(at)];
            const double size = std::sqrt(inverse(row, row) * inverse(column, column));
            EXPECT_NEAR(entries[static_cast<std::size_t>(at)], inverse(row, column), 1e-9 * size);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(InverseEntries, InverseOfSize, testing::Values(4, 25, 120, 550));

}  // namespace
