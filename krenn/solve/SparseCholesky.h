// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <memory>
#include <vector>

#include "krenn/solve/NormalMatrix.h"

namespace Krenn {

// Sparse Cholesky factor of normal equations. CHOLMOD (Chen, Davis, Hager and Rajamanickam, ACM TOMS 35,
// 2008) finds the fill-reducing ordering and the supernodes, once per pattern. The numbers are computed
// supernode by supernode with dense matrices, each supernode handing what it subtracts from later ones to its
// parent (multifrontal; Duff and Reid, ACM TOMS 9, 1983; Liu, SIAM Review 34, 1992), branches of the tree
// side by side. The arithmetic of a supernode does not depend on who computes it, so the result is the same
// for every number of threads.
//
// The matrix is scaled to a unit diagonal first, so each pivot is the part of an unknown that the unknowns
// before it do not explain: near 0 it tells a singular system, whatever the units.
struct SparseCholesky {
    // threads: as Parameters::threads.
    explicit SparseCholesky(int threads = 0);
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

// One solution per column. Needs the factor: not after InverseEntries.
Eigen::MatrixXd Solve(const SparseCholesky& cholesky, const Eigen::MatrixXd& right);

// The entries of the inverse in the pattern of `normals`, in its order, by the sparse inverse subset: the
// recursion of Takahashi, Fagan and Chin (1973) on the supernodes from the last to the first. Every entry
// needs only entries of later columns that lie in the pattern of the factor. The inverse takes the place of
// the factor, so that no second matrix of that size is needed; the next Factorise makes a factor again.
std::vector<double> InverseEntries(SparseCholesky& cholesky, const NormalMatrix& normals);

}  // namespace Krenn
