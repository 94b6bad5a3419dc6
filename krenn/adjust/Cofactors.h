// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "krenn/adjust/Adjustment.h"
#include "krenn/solve/Jordan.h"
#include "krenn/solve/SparseCholesky.h"

namespace Krenn {

// Fill Adjustment::cofactors: from the sparse inverse of the minimal solution, turned to the inner
// constraints by Q = T Q_min T', or straight from the dense inverse of the bordered normal equations. Normal
// equations, factor and inverse are those of the last iteration; the factor is used up.
void SparseCofactors(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                     const NormalMatrix& normals);
void DenseCofactors(const Network& network, Adjustment& adjustment, const Eigen::MatrixXd& inverse);

}  // namespace Krenn
