// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <memory>
#include <vector>

#include "krenn/NormalMatrix.h"

namespace Krenn {

// Sparse Cholesky factor of normal equations by CHOLMOD (Chen, Davis, Hager and Rajamanickam, ACM TOMS 35,
// 2008), supernodal, with a fill-reducing ordering that is found once per pattern. The matrix is scaled to a
// unit diagonal first, so each pivot is the part of an unknown that the unknowns before it do not explain:
// near 0 it tells a singular system, whatever the units.
struct SparseCholesky {
    SparseCholesky();
    ~SparseCholesky();
    SparseCholesky(const SparseCholesky&) = delete;
    SparseCholesky& operator=(const SparseCholesky&) = delete;

    struct Inner;
    std::unique_ptr<Inner> inner;
};

struct Pivot {
    double least = 1;  // smallest pivot of the scaled matrix; 0 when the factorisation broke off
    int row = -1;      // row of the normal equations it belongs to
};

// Orders and analyses the pattern. Throws Failure OutOfMemory or Internal.
void Analyse(SparseCholesky& cholesky, const NormalMatrix& normals);

// Factorises the scaled matrix plus `shift` times the unit matrix.
Pivot Factorise(SparseCholesky& cholesky, const NormalMatrix& normals, double shift = 0);

Eigen::MatrixXd Solve(const SparseCholesky& cholesky, const Eigen::MatrixXd& right);

// The entries of the inverse in the pattern of `normals`, in its order, by the sparse inverse subset: the
// recursion of Takahashi, Fagan and Chin (1973) on the supernodes from the last to the first. Every entry
// needs only entries of later columns that lie in the pattern of the factor.
std::vector<double> InverseEntries(const SparseCholesky& cholesky, const NormalMatrix& normals);

}  // namespace Krenn
