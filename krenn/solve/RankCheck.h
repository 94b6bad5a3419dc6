// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/datum/Datum.h"
#include "krenn/solve/NormalMatrix.h"
#include "krenn/solve/SparseCholesky.h"

namespace Krenn {

// Pivots of the scaled normal equations below this make the rank doubtful.
inline constexpr double kDoubtfulPivot = 1e-11;

// The vectors x for which x' N x is small against the scaled matrix, in the units of the unknowns, one column
// each; found from the factor itself: inverse iteration on the slightly shifted matrix brings them out.
struct SmallVectors {
    Eigen::MatrixXd column;    // scaled to length 1, back in the units of the unknowns
    Eigen::VectorXd quotient;  // x' N x, rising
};
SmallVectors FindSmallVectors(SparseCholesky& cholesky, const NormalMatrix& normals, int most);

// Those with N x = 0. No column if the rank is full after all.
Eigen::MatrixXd NullVectors(SparseCholesky& cholesky, const NormalMatrix& normals);

// moved - G c with the least sum of absolute values: what is left of a movement when the part of it that the
// whole network makes is taken out, in as few coordinates as can be.
Eigen::VectorXd SparsestRest(const Eigen::MatrixXd& movement, const Eigen::VectorXd& moved);

// The coordinates of a vector over all unknowns, part by part, without the movement of the part as a whole.
// Other unknowns are 0 in the result.
Eigen::VectorXd WithoutMovement(const Eigen::VectorXd& vector, const Datum& datum, const Unknowns& unknowns);

// The points that a null vector (over all unknowns, zero where held) moves against the rest of their part.
// The vector knows the free point only together with a movement of the whole part, because the free point may
// be the one that is held; that movement is taken out by the fit that leaves as few points moving as
// possible.
std::vector<int> PointsMovedBy(const Eigen::VectorXd& nullVector, const Datum& datum,
                               const Unknowns& unknowns);

}  // namespace Krenn
