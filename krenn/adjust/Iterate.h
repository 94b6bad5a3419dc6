// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "krenn/adjust/Adjustment.h"
#include "krenn/solve/SparseCholesky.h"

namespace Krenn {

// The iterations of Gauss and Newton. Each solves the linearised normal equations under inner constraints and
// takes the correction if it lessens the sum of (v / sigma)^2; if not, half of it, a quarter, and so on, so
// that the iterations cannot oscillate. They end when no coordinate moves by more than
// Parameters::largestCorrection and the way that is left, after the rate at which the corrections shrink, is
// below a nanometer; or when corrections below a tenth of a micrometer stop shrinking, which is the noise of
// the arithmetic; or when true corrections below Parameters::largestCorrection shrink slowly, which is a
// position that the observations hardly hold. `adjustment` ends with state, iterations, residuals and sum of
// squares.
//
// IterateSparse starts with the normal equations and their factor at the start state. While the corrections
// are small and shrink fast, the following ones take the misclosures of their own state and the factor of an
// earlier one. At the end the factor is that of the last state itself, to 1e-12 of the shortest sight or to
// the noise: the last correction is a true one, and the factor stays for the cofactors.
//
// IterateDense returns the last cofactor matrix of all unknowns.
//
// Throw Failure NoConvergence with the worst residuals, Singular or NotFinite.
void IterateSparse(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                   NormalMatrix& normals, const Parameters& parameters);
Eigen::MatrixXd IterateDense(const Network& network, Adjustment& adjustment, const Parameters& parameters);

// The same for the least sum of |v / sigma|: each linearisation is solved as a linear programme (LeastSum.h),
// and a correction that does not lessen the sum is shortened. The bound is a tenth of a micrometer at least.
void IterateL1(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
               NormalMatrix& normals, const Parameters& parameters);

}  // namespace Krenn
