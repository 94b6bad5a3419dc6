// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cholmod.h>

#include <Eigen/Dense>

#include "krenn/SparseCholesky.h"

namespace Krenn {

// What the sparse factor holds of CHOLMOD; kept out of the header that others include.
struct SparseCholesky::Inner {
    cholmod_common common{};
    cholmod_sparse* matrix = nullptr;
    cholmod_factor* factor = nullptr;
    Eigen::VectorXd scale;  // 1 / sqrt of the diagonal
};

}  // namespace Krenn
