// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/Datum.h"
#include "krenn/NormalMatrix.h"
#include "krenn/SparseCholesky.h"

namespace Krenn {

// Pivots of the scaled normal equations below this make the rank doubtful.
inline constexpr double kDoubtfulPivot = 1e-11;

// The vectors x with N x = 0, in the units of the unknowns, one column each; found from the factor itself:
// inverse iteration on the slightly shifted matrix brings them out. No column if the rank is full after all.
Eigen::MatrixXd NullVectors(SparseCholesky& cholesky, const NormalMatrix& normals);

// The points that a null vector (over all unknowns, zero where held) moves against the rest of their part.
// The vector knows the free point only together with a movement of the whole part, because the free point may
// be the one that is held; that movement is taken out by the fit that leaves as few points moving as
// possible.
std::vector<int> PointsMovedBy(const Eigen::VectorXd& nullVector, const Datum& datum,
                               const Unknowns& unknowns);

}  // namespace Krenn
