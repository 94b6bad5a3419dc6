// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/SparseCholesky.h"

#include <cmath>

#include "krenn/CholeskyInner.h"
#include "krenn/Errors.h"

namespace Krenn {
namespace {

constexpr int kSmallSystem = 2000;  // below, minimum degree orders as well as nested dissection, and faster

[[noreturn]] void ThrowFor(const cholmod_common& common) {
    if (common.status == CHOLMOD_OUT_OF_MEMORY || common.status == CHOLMOD_TOO_LARGE)
        throw Failure(ErrorNumber::OutOfMemory, "The factorisation needs more memory than there is.");
    throw Failure(ErrorNumber::Internal, "The sparse factorisation failed.");
}

void LoadScaled(SparseCholesky::Inner& inner, const NormalMatrix& normals) {
    inner.scale.resize(normals.size);
    for (int column = 0; column < normals.size; ++column) {
        const double diagonal =
            normals.value[static_cast<std::size_t>(normals.columnStart[static_cast<std::size_t>(column)])];
        inner.scale(column) = diagonal > 0 ? 1 / std::sqrt(diagonal) : 1.0;
    }
    auto* values = static_cast<double*>(inner.matrix->x);
    for (int column = 0; column < normals.size; ++column) {
        for (int at = normals.columnStart[static_cast<std::size_t>(column)];
             at < normals.columnStart[static_cast<std::size_t>(column) + 1]; ++at) {
            const auto entry = static_cast<std::size_t>(at);
            values[at] = normals.value[entry] * inner.scale(column) * inner.scale(normals.row[entry]);
        }
    }
}

Pivot LeastPivot(const cholmod_factor& factor) {
    const auto* super = static_cast<const int*>(factor.super);
    const auto* rowStart = static_cast<const int*>(factor.pi);
    const auto* valueStart = static_cast<const int*>(factor.px);
    const auto* values = static_cast<const double*>(factor.x);
    const auto* order = static_cast<const int*>(factor.Perm);
    Pivot least;
    for (std::size_t s = 0; s < factor.nsuper; ++s) {
        const int rows = rowStart[s + 1] - rowStart[s];
        for (int k = 0; k < super[s + 1] - super[s]; ++k) {
            const double root = values[static_cast<std::size_t>(valueStart[s]) +
                                       static_cast<std::size_t>(k) * static_cast<std::size_t>(rows + 1)];
            if (!(root * root >= least.least))
                least = {std::isfinite(root) ? root * root : 0.0, order[super[s] + k]};
        }
    }
    return least;
}

}  // namespace

SparseCholesky::SparseCholesky() : inner(std::make_unique<Inner>()) {
    cholmod_start(&inner->common);
    inner->common.print = 0;
    inner->common.error_handler = nullptr;
    inner->common.supernodal = CHOLMOD_SUPERNODAL;
    inner->common.final_ll = 1;
    inner->common.quick_return_if_not_posdef = 1;
}

SparseCholesky::~SparseCholesky() {
    cholmod_free_factor(&inner->factor, &inner->common);
    cholmod_free_sparse(&inner->matrix, &inner->common);
    cholmod_finish(&inner->common);
}

void Analyse(SparseCholesky& cholesky, const NormalMatrix& normals) {
    SparseCholesky::Inner& inner = *cholesky.inner;
    cholmod_free_factor(&inner.factor, &inner.common);
    cholmod_free_sparse(&inner.matrix, &inner.common);
    const auto size = static_cast<std::size_t>(normals.size);
    inner.matrix =
        cholmod_allocate_sparse(size, size, normals.row.size(), 1, 1, -1, CHOLMOD_REAL, &inner.common);
    if (inner.matrix == nullptr)
        ThrowFor(inner.common);
    std::copy(normals.columnStart.begin(), normals.columnStart.end(), static_cast<int*>(inner.matrix->p));
    std::copy(normals.row.begin(), normals.row.end(), static_cast<int*>(inner.matrix->i));
    inner.common.nmethods = 1;
    inner.common.method[0].ordering = normals.size < kSmallSystem ? CHOLMOD_AMD : CHOLMOD_METIS;
    inner.common.postorder = 1;
    inner.factor = cholmod_analyze(inner.matrix, &inner.common);
    if (inner.factor == nullptr)
        ThrowFor(inner.common);
}

Pivot Factorise(SparseCholesky& cholesky, const NormalMatrix& normals, double shift) {
    SparseCholesky::Inner& inner = *cholesky.inner;
    LoadScaled(inner, normals);
    double beta[2] = {shift, 0};
    const int isDone = cholmod_factorize_p(inner.matrix, beta, nullptr, 0, inner.factor, &inner.common);
    if (inner.common.status == CHOLMOD_NOT_POSDEF) {
        inner.common.status = CHOLMOD_OK;
        const auto minor = inner.factor->minor;
        return {0, static_cast<const int*>(inner.factor->Perm)[minor < inner.factor->n ? minor : 0]};
    }
    if (!isDone || inner.common.status < CHOLMOD_OK)
        ThrowFor(inner.common);
    return LeastPivot(*inner.factor);
}

Eigen::MatrixXd Solve(const SparseCholesky& cholesky, const Eigen::MatrixXd& right) {
    SparseCholesky::Inner& inner = *cholesky.inner;
    Eigen::MatrixXd scaled = inner.scale.asDiagonal() * right;
    cholmod_dense dense{};
    dense.nrow = static_cast<std::size_t>(scaled.rows());
    dense.ncol = static_cast<std::size_t>(scaled.cols());
    dense.nzmax = dense.nrow * dense.ncol;
    dense.d = dense.nrow;
    dense.x = scaled.data();
    dense.xtype = CHOLMOD_REAL;
    dense.dtype = CHOLMOD_DOUBLE;
    cholmod_dense* solution = cholmod_solve(CHOLMOD_A, inner.factor, &dense, &inner.common);
    if (solution == nullptr)
        ThrowFor(inner.common);
    const Eigen::Map<const Eigen::MatrixXd> mapped(static_cast<const double*>(solution->x), scaled.rows(),
                                                   scaled.cols());
    scaled = inner.scale.asDiagonal() * mapped;
    cholmod_free_dense(&solution, &inner.common);
    return scaled;
}

}  // namespace Krenn
