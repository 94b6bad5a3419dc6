// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/solve/SparseCholesky.h"

#include <algorithm>
#include <cmath>

#include "krenn/Errors.h"
#include "krenn/Parallel.h"
#include "krenn/solve/Blas.h"
#include "krenn/solve/CholeskyInner.h"

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// One factorisation: the factor's blocks, and what each supernode has subtracted from the rows below it until
// its parent takes it over (lower triangle).
struct Factorisation {
    SparseCholesky::Inner& inner;
    const NormalMatrix& normals;
    double shift;
    std::vector<std::unique_ptr<double[]>> update;
    std::vector<int> failedColumn;  // per supernode, -1 if it went well

    Factorisation(SparseCholesky::Inner& theInner, const NormalMatrix& theNormals, double theShift)
        : inner(theInner),
          normals(theNormals),
          shift(theShift),
          update(At(theInner.nodes.count)),
          failedColumn(At(theInner.nodes.count), -1) {}

    double* Block(int s) { return inner.values.get() + inner.nodes.valueStart[At(s)]; }

    void LoadEntries(int s) {
        const Supernodes& nodes = inner.nodes;
        const int rows = nodes.Rows(s);
        double* block = Block(s);
        std::fill_n(block, Area(rows, nodes.Columns(s)), 0.0);
        std::size_t at = nodes.entryStart[At(s)];
        const std::size_t end = nodes.entryStart[At(s) + 1];
        for (int column = 0; column < nodes.Columns(s); ++column) {
            const int first = column * rows;
            const double scale = inner.scale(nodes.order[At(nodes.firstColumn[At(s)] + column)]);
            for (; at < end && nodes.target[at] < first + rows; ++at) {
                const int row = nodes.RowsOf(s)[nodes.target[at] - first];
                block[nodes.target[at]] =
                    normals.value[At(nodes.entry[at])] * scale * inner.scale(nodes.order[At(row)]);
            }
            block[first + column] += shift;
        }
    }

    // Adds what the children of s have subtracted from its rows to its block and to its own update.
    void AddChild(int s, int child) {
        const Supernodes& nodes = inner.nodes;
        const int columns = nodes.Columns(s);
        const int below = nodes.Below(s);
        const int size = nodes.Below(child);
        const int* place = nodes.PlacesOf(child);
        for (int j = 0; j < size; ++j) {
            const double* from = update[At(child)].get() + Area(size, j);
            double* to = place[j] < columns ? Block(s) + Area(nodes.Rows(s), place[j])
                                            : update[At(s)].get() + Area(below, place[j] - columns) - columns;
            for (int i = j; i < size; ++i)
                to[place[i]] += from[i];
        }
        update[At(child)].reset();
    }

    void Assemble(int s) {
        const Supernodes& nodes = inner.nodes;
        LoadEntries(s);
        const int below = nodes.Below(s);
        if (below > 0) {
            update[At(s)] = std::make_unique_for_overwrite<double[]>(Area(below, below));
            if (nodes.firstChild[At(s)] >= 0)
                std::fill_n(update[At(s)].get(), Area(below, below), 0.0);
        }
        for (int child = nodes.firstChild[At(s)]; child >= 0; child = nodes.nextSibling[At(child)])
            AddChild(s, child);
    }

    bool FactoriseDiagonal(int s) {
        const Supernodes& nodes = inner.nodes;
        const int failed = CholeskyInPlace(nodes.Columns(s), Block(s), nodes.Rows(s));
        if (failed > 0)
            failedColumn[At(s)] = nodes.firstColumn[At(s)] + failed - 1;
        return failed == 0;
    }

    // The rows below, and the update, in panels that `threads` threads may share.
    void Eliminate(int s, int threads, int panel) {
        const Supernodes& nodes = inner.nodes;
        const int rows = nodes.Rows(s);
        const int columns = nodes.Columns(s);
        const int below = nodes.Below(s);
        const std::size_t panels = At((below + panel - 1) / panel);
        double* side = Block(s) + columns;
        const double keep = nodes.firstChild[At(s)] >= 0 ? 1 : 0;
        ParallelFor(threads, panels, [&](std::size_t i) {
            const int first = static_cast<int>(i) * panel;
            DivideByTransposed(std::min(panel, below - first), columns, Block(s), rows, side + first, rows);
        });
        ParallelFor(threads, panels, [&](std::size_t i) {
            const int first = static_cast<int>(i) * panel;
            const int width = std::min(panel, below - first);
            double* to = update[At(s)].get() + Area(below, first) + first;
            SubtractSquare(width, columns, side + first, rows, keep, to, below);
            const int rest = below - first - width;
            if (rest > 0)
                Multiply(false, true, rest, width, columns, -1, side + first + width, rows, side + first,
                         rows, keep, to + width, below);
        });
    }

    void Branch(Supernodes::Range range) {
        for (int s = range.first; s <= range.last; ++s) {
            Assemble(s);
            if (!FactoriseDiagonal(s))
                return;
            const int below = inner.nodes.Below(s);
            if (below > 0)
                Eliminate(s, 1, below);
        }
    }

    // The first column, in the order of elimination, whose pivot is not positive; -1 if there is none.
    int Run() {
        const Supernodes& nodes = inner.nodes;
        const int threads = nodes.isSmall ? 1 : inner.threads;
        ParallelFor(threads, nodes.branches.size(), [&](std::size_t i) { Branch(nodes.branches[i]); });
        if (FirstFailed() >= 0)
            return FirstFailed();
        for (const int s : nodes.top) {
            Assemble(s);
            if (!FactoriseDiagonal(s))
                return FirstFailed();
            Eliminate(s, threads, kPanel);
        }
        return -1;
    }

    int FirstFailed() const {
        const auto found =
            std::find_if(failedColumn.begin(), failedColumn.end(), [](int c) { return c >= 0; });
        return found == failedColumn.end() ? -1 : *found;
    }
};

void FindScale(SparseCholesky::Inner& inner, const NormalMatrix& normals) {
    inner.scale.resize(normals.size);
    for (int column = 0; column < normals.size; ++column) {
        const double diagonal = normals.value[At(normals.columnStart[At(column)])];
        inner.scale(column) = diagonal > 0 ? 1 / std::sqrt(diagonal) : 1.0;
    }
}

Pivot LeastPivot(const SparseCholesky::Inner& inner) {
    const Supernodes& nodes = inner.nodes;
    Pivot least;
    for (int s = 0; s < nodes.count; ++s) {
        const double* block = inner.values.get() + nodes.valueStart[At(s)];
        for (int k = 0; k < nodes.Columns(s); ++k) {
            const double root = block[Area(nodes.Rows(s) + 1, k)];
            if (!(root * root >= least.least))
                least = {std::isfinite(root) ? root * root : 0.0,
                         nodes.order[At(nodes.firstColumn[At(s)] + k)]};
        }
    }
    return least;
}

// x := L \ x or L' \ x, rows in the order of elimination, one column of x per solution.
void SolveForward(const SparseCholesky::Inner& inner, Eigen::MatrixXd& x) {
    const Supernodes& nodes = inner.nodes;
    const int count = static_cast<int>(x.cols());
    const int size = static_cast<int>(x.rows());
    Eigen::MatrixXd passed;
    for (int s = 0; s < nodes.count; ++s) {
        const double* block = inner.values.get() + nodes.valueStart[At(s)];
        const int columns = nodes.Columns(s);
        const int below = nodes.Below(s);
        double* own = x.data() + nodes.firstColumn[At(s)];
        SolveLower(false, columns, count, block, nodes.Rows(s), own, size);
        if (below == 0)
            continue;
        passed.resize(below, count);
        Multiply(false, false, below, count, columns, 1, block + columns, nodes.Rows(s), own, size, 0,
                 passed.data(), below);
        const int* rows = nodes.RowsOf(s) + columns;
        for (int k = 0; k < count; ++k) {
            for (int i = 0; i < below; ++i)
                x(rows[i], k) -= passed(i, k);
        }
    }
}

void SolveBackward(const SparseCholesky::Inner& inner, Eigen::MatrixXd& x) {
    const Supernodes& nodes = inner.nodes;
    const int count = static_cast<int>(x.cols());
    const int size = static_cast<int>(x.rows());
    Eigen::MatrixXd known;
    for (int s = nodes.count - 1; s >= 0; --s) {
        const double* block = inner.values.get() + nodes.valueStart[At(s)];
        const int columns = nodes.Columns(s);
        const int below = nodes.Below(s);
        double* own = x.data() + nodes.firstColumn[At(s)];
        if (below > 0) {
            known.resize(below, count);
            const int* rows = nodes.RowsOf(s) + columns;
            for (int k = 0; k < count; ++k) {
                for (int i = 0; i < below; ++i)
                    known(i, k) = x(rows[i], k);
            }
            Multiply(true, false, columns, count, below, -1, block + columns, nodes.Rows(s), known.data(),
                     below, 1, own, size);
        }
        SolveLower(true, columns, count, block, nodes.Rows(s), own, size);
    }
}

}  // namespace

SparseCholesky::SparseCholesky(int threads) : inner(std::make_unique<Inner>()) {
    PrepareBlas();
    inner->threads = MostBlasCallers(ThreadsFor(threads));
}

SparseCholesky::~SparseCholesky() = default;

void Analyse(SparseCholesky& cholesky, const NormalMatrix& normals) {
    SparseCholesky::Inner& inner = *cholesky.inner;
    inner.nodes = FindSupernodes(normals);
    inner.values = std::make_unique_for_overwrite<double[]>(inner.nodes.valueStart.back());
}

Pivot Factorise(SparseCholesky& cholesky, const NormalMatrix& normals, double shift) {
    SparseCholesky::Inner& inner = *cholesky.inner;
    FindScale(inner, normals);
    inner.holdsInverse = false;
    const int failed = Factorisation(inner, normals, shift).Run();
    if (failed >= 0)
        return {0, inner.nodes.order[At(failed)]};
    return LeastPivot(inner);
}

Eigen::MatrixXd Solve(const SparseCholesky& cholesky, const Eigen::MatrixXd& right) {
    const SparseCholesky::Inner& inner = *cholesky.inner;
    if (inner.holdsInverse)
        throw Failure(ErrorNumber::Internal, "The factor has been replaced by the inverse.");
    const std::vector<int>& order = inner.nodes.order;
    Eigen::MatrixXd x(right.rows(), right.cols());
    for (Eigen::Index k = 0; k < x.cols(); ++k) {
        for (Eigen::Index i = 0; i < x.rows(); ++i) {
            const int row = order[static_cast<std::size_t>(i)];
            x(i, k) = inner.scale(row) * right(row, k);
        }
    }
    SolveForward(inner, x);
    SolveBackward(inner, x);
    Eigen::MatrixXd solution(right.rows(), right.cols());
    for (Eigen::Index k = 0; k < x.cols(); ++k) {
        for (Eigen::Index i = 0; i < x.rows(); ++i) {
            const int row = order[static_cast<std::size_t>(i)];
            solution(row, k) = inner.scale(row) * x(i, k);
        }
    }
    return solution;
}

}  // namespace Krenn
