// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/solve/RankCheck.h"

#include <algorithm>
#include <cmath>

namespace Krenn {
namespace {

constexpr double kShift = 1e-9;
constexpr double kNullQuotient = 1e-13;  // of the scaled matrix, whose largest entries are 1
constexpr int kSweeps = 6;
constexpr int kMostVectors = 24;

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

Eigen::VectorXd SparsestRest(const Eigen::MatrixXd& movement, const Eigen::VectorXd& moved) {
    Eigen::VectorXd rest = moved;
    const double floor = 1e-9 * moved.cwiseAbs().maxCoeff() + 1e-300;
    for (int sweep = 0; sweep < 60; ++sweep) {
        const Eigen::VectorXd weight = (rest.cwiseAbs().array() + floor).inverse();
        const Eigen::MatrixXd left = movement.transpose() * weight.asDiagonal() * movement;
        rest = moved - movement * left.ldlt().solve(movement.transpose() * weight.asDiagonal() * moved);
    }
    return rest;
}

SmallVectors FindSmallVectors(SparseCholesky& cholesky, const NormalMatrix& normals, int most) {
    if (Factorise(cholesky, normals, kShift).least <= 0)
        return {Eigen::MatrixXd(normals.size, 0), {}};
    const Eigen::VectorXd scale = ScaleOf(normals);
    const Eigen::Index count = std::min(most, normals.size);
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
    return {scale.asDiagonal() * (vectors * eigen.eigenvectors()), eigen.eigenvalues()};
}

Eigen::MatrixXd NullVectors(SparseCholesky& cholesky, const NormalMatrix& normals) {
    const SmallVectors small = FindSmallVectors(cholesky, normals, kMostVectors);
    Eigen::Index found = 0;
    while (found < small.quotient.size() && std::abs(small.quotient(found)) < kNullQuotient)
        ++found;
    return small.column.leftCols(found);
}

Eigen::VectorXd WithoutMovement(const Eigen::VectorXd& vector, const Datum& datum, const Unknowns& unknowns) {
    Eigen::VectorXd result = Eigen::VectorXd::Zero(vector.size());
    for (const PartDatum& part : datum.parts) {
        const auto size = static_cast<Eigen::Index>(part.unknowns.size());
        Eigen::VectorXd moved = Eigen::VectorXd::Zero(size);
        Eigen::MatrixXd movement = part.movement;
        for (Eigen::Index i = 0; i < size; ++i) {
            const int unknown = part.unknowns[static_cast<std::size_t>(i)];
            if (IsCoordinate(unknowns.of[static_cast<std::size_t>(unknown)]))
                moved(i) = vector(unknown);
            else if (part.defect > 0)
                movement.row(i).setZero();
        }
        const Eigen::VectorXd rest = part.defect > 0 ? SparsestRest(movement, moved) : moved;
        for (Eigen::Index i = 0; i < size; ++i)
            result(part.unknowns[static_cast<std::size_t>(i)]) = rest(i);
    }
    return result;
}

std::vector<int> PointsMovedBy(const Eigen::VectorXd& nullVector, const Datum& datum,
                               const Unknowns& unknowns) {
    std::vector<int> points;
    const double most = nullVector.cwiseAbs().maxCoeff();
    const Eigen::VectorXd rest = WithoutMovement(nullVector, datum, unknowns);
    for (const PartDatum& part : datum.parts) {
        double largest = 0;
        for (const int unknown : part.unknowns)
            largest = std::max(largest, std::abs(rest(unknown)));
        const double bound = 1e-3 * std::max(largest, 1e-3 * most);
        for (const int unknown : part.unknowns) {
            if (std::abs(rest(unknown)) > bound)
                points.push_back(unknowns.of[static_cast<std::size_t>(unknown)].point);
        }
    }
    return points;
}

}  // namespace Krenn
