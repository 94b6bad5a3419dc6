// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "krenn/adjust/Adjustment.h"
#include "krenn/solve/SparseCholesky.h"

namespace Krenn {

// The correction x of the unheld unknowns that makes the sum of |l - A x| least, with A and the misclosures l
// over sigma at the state of `adjustment`. It is the linear programme
//
//     max l' a   with   A' a = A' 1 / 2,   0 <= a <= 1
//
// solved by a primal-dual interior point method with predictor and corrector (Mehrotra 1992) in the form of
// Portnoy and Koenker (Statistical Science 12, 1997): each step is one least-squares problem with other
// weights, and so one factorisation of normal equations in the same pattern. Rows of the result: those of
// `normals`. Throws Failure NoConvergence or Singular.
Eigen::VectorXd LeastSumCorrection(const Adjustment& adjustment, SparseCholesky& cholesky,
                                   NormalMatrix& normals);

}  // namespace Krenn
