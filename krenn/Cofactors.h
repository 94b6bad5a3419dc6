// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "krenn/Adjustment.h"
#include "krenn/Jordan.h"
#include "krenn/SparseCholesky.h"

namespace Krenn {

// Fill Adjustment::cofactors at the final state: from the sparse inverse of the minimal solution, turned to
// the inner constraints by Q = T Q_min T', or straight from the dense inverse of the bordered normal
// equations.
void SparseCofactors(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                     NormalMatrix& normals);
void DenseCofactors(const Network& network, Adjustment& adjustment);

}  // namespace Krenn
