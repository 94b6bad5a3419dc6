// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>

#include "krenn/datum/Datum.h"
#include "krenn/solve/NormalMatrix.h"

namespace Krenn {

// Unknowns that type 7 takes at most: its matrix of doubles then needs 1.2 gigabytes.
inline constexpr int kMostDenseUnknowns = 12000;

// Inverse of a square matrix by Gauss-Jordan elimination in place with the largest pivot of each column, a
// block of columns at a time. `threads` as Parameters::threads; the result does not depend on it. Throws
// Failure Singular.
void JordanInvert(Eigen::MatrixXd& matrix, int threads = 0);

// The cofactor matrix under inner constraints, from the normal equations of all unknowns bordered by H:
//
//     | N   H |-1   | Q   G |
//     | H'  0 |   = | G'  0 |
//
// with the diagonal of N scaled to 1 for the elimination. Size: all unknowns.
Eigen::MatrixXd BorderedInverse(const NormalMatrix& normals, const Datum& datum, int threads = 0);

}  // namespace Krenn
