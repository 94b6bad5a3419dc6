// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Adjustment.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "krenn/Cofactors.h"
#include "krenn/Errors.h"
#include "krenn/Iterate.h"
#include "krenn/RankCheck.h"

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

const char* AxisName(int axis) {
    constexpr std::array kNames{"X", "Y", "Z", "orientation"};
    return kNames[At(axis)];
}

// A network whose normal equations are singular although the datum is set: names the points that move freely.
void CheckRank(const Network& network, const Adjustment& adjustment, SparseCholesky& cholesky,
               const NormalMatrix& normals) {
    const Pivot pivot = Factorise(cholesky, normals);
    if (pivot.least > kDoubtfulPivot)
        return;
    const Eigen::MatrixXd vectors = NullVectors(cholesky, normals);
    std::vector<int> points;
    for (Eigen::Index i = 0; i < vectors.cols(); ++i) {
        Eigen::VectorXd nullVector = Eigen::VectorXd::Zero(adjustment.unknowns.Count());
        for (int row = 0; row < normals.size; ++row)
            nullVector(normals.unknownOf[At(row)]) = vectors(row, i);
        const std::vector<int> moved = PointsMovedBy(nullVector, adjustment.datum, adjustment.unknowns);
        points.insert(points.end(), moved.begin(), moved.end());
    }
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (!points.empty())
        throw Failure(ErrorNumber::UndeterminedPoints,
                      "The observations leave points free to move; the normal equations are singular.",
                      {NameList(network, points, 1000)});
    if (pivot.least > 1e-14)
        return;
    const UnknownOf& of = adjustment.unknowns.of[At(normals.unknownOf[At(pivot.row)])];
    throw Failure(ErrorNumber::Singular, "The normal equations cannot be solved.",
                  {fmt::format("unknown: {} of {}", AxisName(of.axis), network.points[At(of.point)].name)});
}

void CheckFinite(const Adjustment& adjustment) {
    bool isFinite = std::isfinite(adjustment.sumOfSquares);
    for (const auto& at : adjustment.state.at)
        isFinite = isFinite && std::isfinite(at[0] + at[1] + at[2]);
    for (const auto& entry : adjustment.cofactors.point)
        isFinite = isFinite && std::isfinite(entry[0] + entry[2] + entry[5]);
    if (!isFinite)
        throw Failure(ErrorNumber::NotFinite, "A coordinate or a variance is not finite.");
}

}  // namespace

Adjustment Adjust(const Network& network, Type type, const Options& options) {
    Adjustment adjustment;
    adjustment.type = type;
    adjustment.structure = FindStructure(network);
    Approximation approximation = Approximate(network, adjustment.structure);
    adjustment.start = std::move(approximation.state);
    adjustment.state = adjustment.start;
    adjustment.computedStarts = std::move(approximation.computed);
    adjustment.notes = adjustment.structure.notes;
    adjustment.notes.insert(adjustment.notes.end(), approximation.notes.begin(), approximation.notes.end());
    ReduceToHeldHeights(adjustment.structure, network, adjustment.start);
    std::vector<int> plumbLines;
    for (const int observation : LeaveOutPlumbAngles(adjustment.structure, adjustment.start))
        plumbLines.push_back(network.observations[At(observation)].line);
    plumbLines.erase(std::unique(plumbLines.begin(), plumbLines.end()), plumbLines.end());
    for (const int line : plumbLines)
        adjustment.notes.push_back(
            fmt::format("The sight of line {} is plumb; its angles are left out.", line));
    adjustment.unknowns = NumberUnknowns(adjustment.structure);
    adjustment.datum = FindDatum(network, adjustment.structure, adjustment.unknowns, adjustment.state);
    if (type == Type::Dense && adjustment.unknowns.Count() > kMostDenseUnknowns)
        throw Failure(ErrorNumber::NetworkTooLarge,
                      fmt::format("There are {} unknowns; the dense type takes at most {}.",
                                  adjustment.unknowns.Count(), kMostDenseUnknowns));

    std::vector<int> held;
    for (const PartDatum& part : adjustment.datum.parts)
        held.insert(held.end(), part.held.begin(), part.held.end());
    NormalMatrix normals =
        MakePattern(adjustment.structure, adjustment.unknowns, held, network.relativePairs);
    SparseCholesky cholesky;
    Analyse(cholesky, normals);
    FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
    CheckRank(network, adjustment, cholesky, normals);

    if (type == Type::Dense)
        IterateDense(network, adjustment, options);
    else if (type == Type::L1Norm)
        IterateL1(network, adjustment, cholesky, normals, options);
    else
        IterateSparse(network, adjustment, cholesky, normals, options);

    if (type == Type::SparseInverse)
        SparseCofactors(network, adjustment, cholesky, normals);
    else if (type == Type::Dense)
        DenseCofactors(network, adjustment);
    CheckFinite(adjustment);
    return adjustment;
}

}  // namespace Krenn
