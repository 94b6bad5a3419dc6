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

template <typename Member>
void SortOut(std::vector<Member>& members) {
    std::sort(members.begin(), members.end());
    members.erase(std::unique(members.begin(), members.end()), members.end());
}

// Rotations and values of the whole network that a null vector moves, in words.
std::vector<std::string> OthersMovedBy(const Network& network, const Adjustment& adjustment,
                                       const Eigen::VectorXd& nullVector) {
    std::vector<std::string> words;
    const double bound = 1e-3 * nullVector.cwiseAbs().maxCoeff();
    for (int unknown = 0; unknown < adjustment.unknowns.Count(); ++unknown) {
        const UnknownOf& of = adjustment.unknowns.of[At(unknown)];
        if (!IsCoordinate(of) && std::abs(nullVector(unknown)) > bound)
            words.push_back(UnknownInWords(network, adjustment.structure, of));
    }
    return words;
}

// A network whose normal equations are singular although the datum is set: names the points that move freely,
// or else the other unknowns that do.
void CheckRank(const Network& network, const Adjustment& adjustment, SparseCholesky& cholesky,
               const NormalMatrix& normals) {
    const Pivot pivot = Factorise(cholesky, normals);
    if (pivot.least > kDoubtfulPivot)
        return;
    const Eigen::MatrixXd vectors = NullVectors(cholesky, normals);
    std::vector<int> points;
    std::vector<std::string> others;
    for (Eigen::Index i = 0; i < vectors.cols(); ++i) {
        Eigen::VectorXd nullVector = Eigen::VectorXd::Zero(adjustment.unknowns.Count());
        for (int row = 0; row < normals.size; ++row)
            nullVector(normals.unknownOf[At(row)]) = vectors(row, i);
        const std::vector<int> moved = PointsMovedBy(nullVector, adjustment.datum, adjustment.unknowns);
        points.insert(points.end(), moved.begin(), moved.end());
        if (moved.empty()) {
            const auto words = OthersMovedBy(network, adjustment, nullVector);
            others.insert(others.end(), words.begin(), words.end());
        }
    }
    SortOut(points);
    SortOut(others);
    if (!points.empty())
        throw Failure(ErrorNumber::UndeterminedPoints,
                      "The observations leave points free to move; the normal equations are singular.",
                      {NameList(network, points, 1000)});
    if (!others.empty())
        throw Failure(ErrorNumber::Singular, "The observations do not determine these unknowns:", others);
    if (pivot.least > 1e-14)
        return;
    const UnknownOf& of = adjustment.unknowns.of[At(normals.unknownOf[At(pivot.row)])];
    throw Failure(ErrorNumber::Singular, "The normal equations cannot be solved.",
                  {"unknown: " + UnknownInWords(network, adjustment.structure, of)});
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

Adjustment Adjust(const Network& network, Type type, const Parameters& parameters) {
    Adjustment adjustment;
    adjustment.type = type;
    adjustment.parameters = parameters;
    adjustment.structure = FindStructure(network, parameters);
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
    adjustment.datum =
        FindDatum(network, adjustment.structure, adjustment.unknowns, adjustment.state, parameters.datum);
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
        IterateDense(network, adjustment, parameters);
    else if (type == Type::L1Norm)
        IterateL1(network, adjustment, cholesky, normals, parameters);
    else
        IterateSparse(network, adjustment, cholesky, normals, parameters);

    if (type == Type::SparseInverse)
        SparseCofactors(network, adjustment, cholesky, normals);
    else if (type == Type::Dense)
        DenseCofactors(network, adjustment);
    CheckFinite(adjustment);
    return adjustment;
}

}  // namespace Krenn
