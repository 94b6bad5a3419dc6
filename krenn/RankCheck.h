// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/NormalMatrix.h"
#include "krenn/SparseCholesky.h"

namespace Krenn {

// Pivots of the scaled normal equations below this make the rank doubtful.
inline constexpr double kDoubtfulPivot = 1e-11;

// The rows of scaled normal equations that lie in their null space, found from the factor itself: inverse
// iteration on the slightly shifted matrix brings out the vectors with N x = 0. Empty if the rank is full
// after all.
std::vector<int> RowsWithoutHold(SparseCholesky& cholesky, const NormalMatrix& normals);

}  // namespace Krenn
