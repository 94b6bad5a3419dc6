// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/RankCheck.h"

#include <algorithm>
#include <cmath>

namespace Krenn {
namespace {

constexpr double kShift = 1e-9;
constexpr double kNullQuotient = 1e-13;  // of the scaled matrix, whose largest entries are 1
constexpr int kSweeps = 6;
constexpr Eigen::Index kMostVectors = 24;

// Numbers in [-1, 1] that are the same in every run.
struct Mixer {
    unsigned state = 12345;
    double operator()() {
        state = state * 1664525U + 1013904223U;
        return static_cast<double>(state >> 8) / 8388607.5 - 1;
    }
};

Eigen::VectorXd ScaleOf(const NormalMatrix& normals) {
    Eigen::VectorXd scale(normals.size);
    for (int i = 0; i < normals.size; ++i) {
        const double diagonal =
            normals.value[static_cast<std::size_t>(normals.columnStart[static_cast<std::size_t>(i)])];
        scale(i) = diagonal > 0 ? 1 / std::sqrt(diagonal) : 1.0;
    }
    return scale;
}

Eigen::MatrixXd Orthonormal(const Eigen::MatrixXd& columns) {
    const Eigen::HouseholderQR<Eigen::MatrixXd> qr(columns);
    return qr.householderQ() * Eigen::MatrixXd::Identity(columns.rows(), columns.cols());
}

Eigen::MatrixXd TimesScaled(const NormalMatrix& normals, const Eigen::VectorXd& scale,
                            const Eigen::MatrixXd& vectors) {
    Eigen::MatrixXd product = Eigen::MatrixXd::Zero(vectors.rows(), vectors.cols());
    for (int column = 0; column < normals.size; ++column) {
        for (int at = normals.columnStart[static_cast<std::size_t>(column)];
             at < normals.columnStart[static_cast<std::size_t>(column) + 1]; ++at) {
            const int row = normals.row[static_cast<std::size_t>(at)];
            const double entry = normals.value[static_cast<std::size_t>(at)] * scale(row) * scale(column);
            product.row(row) += entry * vectors.row(column);
            if (row != column)
                product.row(column) += entry * vectors.row(row);
        }
    }
    return product;
}

}  // namespace

std::vector<int> RowsWithoutHold(SparseCholesky& cholesky, const NormalMatrix& normals) {
    if (Factorise(cholesky, normals, kShift).least <= 0)
        return {};
    const Eigen::VectorXd scale = ScaleOf(normals);
    const Eigen::Index count = std::min<Eigen::Index>(kMostVectors, normals.size);
    Eigen::MatrixXd vectors(normals.size, count);
    Mixer mixer;
    for (double& entry : vectors.reshaped())
        entry = mixer();
    for (int sweep = 0; sweep < kSweeps; ++sweep) {
        // The factor solves in the original units: S^-1 (SNS + shift)^-1 S^-1 seen from outside.
        const Eigen::MatrixXd right = scale.cwiseInverse().asDiagonal() * Orthonormal(vectors);
        vectors = scale.cwiseInverse().asDiagonal() * Solve(cholesky, right);
    }
    vectors = Orthonormal(vectors);
    const Eigen::MatrixXd quotient = vectors.transpose() * TimesScaled(normals, scale, vectors);
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> eigen(0.5 * (quotient + quotient.transpose()));
    std::vector<int> rows;
    for (Eigen::Index i = 0; i < count && std::abs(eigen.eigenvalues()(i)) < kNullQuotient; ++i) {
        const Eigen::VectorXd nullVector = vectors * eigen.eigenvectors().col(i);
        const double most = nullVector.cwiseAbs().maxCoeff();
        for (int row = 0; row < normals.size; ++row) {
            if (std::abs(nullVector(row)) > 1e-3 * most)
                rows.push_back(row);
        }
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

}  // namespace Krenn
