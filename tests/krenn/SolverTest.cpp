// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "krenn/Adjustment.h"
#include "krenn/Errors.h"
#include "krenn/InputReader.h"
#include "krenn/Jordan.h"
#include "krenn/RankCheck.h"
#include "krenn/SparseCholesky.h"
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
