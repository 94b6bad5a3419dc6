// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <memory>
#include <vector>

#include "krenn/Errors.h"
#include "krenn/Parallel.h"
#include "krenn/solve/Blas.h"
#include "krenn/solve/CholeskyInner.h"
#include "krenn/solve/SparseCholesky.h"

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// The recursion, from the last supernode to the first. The inverse over all rows of a supernode is kept
// (lower triangle) until its children have taken from it what stands at their rows below.
struct Inversion {
    SparseCholesky::Inner& inner;
    std::vector<std::shared_ptr<double[]>> above;  // per supernode: the inverse over the rows of its parent

    explicit Inversion(SparseCholesky::Inner& theInner) : inner(theInner), above(At(theInner.nodes.count)) {}

    double* Block(int s) { return inner.values.get() + inner.nodes.valueStart[At(s)]; }

    // The inverse over the rows below s, out of that of its parent, into `whole`, which covers all rows of s.
    void Gather(int s, double* whole) {
        const Supernodes& nodes = inner.nodes;
        const int rows = nodes.Rows(s);
        const int below = nodes.Below(s);
        const int size = nodes.Rows(nodes.parent[At(s)]);
        const int* place = nodes.PlacesOf(s);
        for (int j = 0; j < below; ++j) {
            const double* from = above[At(s)].get() + Area(size, place[j]);
            double* to = whole + Area(rows, nodes.Columns(s) + j) + nodes.Columns(s);
            for (int i = j; i < below; ++i)
                to[i] = from[place[i]];
        }
        above[At(s)].reset();
    }

    // M = L21 / L11,  Z21 = -Z22 M,  Z11 = 1 / (L11 L11') - M' Z21, in panels that `threads` threads may
    // share. The block of the factor is overwritten by M on the way and by Z in the end.
    void Invert(int s, double* whole, int threads, int panel) {
        const Supernodes& nodes = inner.nodes;
        const int rows = nodes.Rows(s);
        const int columns = nodes.Columns(s);
        const int below = nodes.Below(s);
        double* block = Block(s);
        double* m = block + columns;
        double* side = whole + columns;
        InvertLower(columns, block, rows);
        ParallelFor(threads, At((below + panel - 1) / panel), [&](std::size_t i) {
            const int first = static_cast<int>(i) * panel;
            TimesLower(std::min(panel, below - first), columns, block, rows, m + first, rows);
        });
        SquareOfLower(columns, block, rows);
        const std::size_t panels = At((columns + panel - 1) / panel);
        ParallelFor(threads, panels, [&](std::size_t i) {
            const int first = static_cast<int>(i) * panel;
            const int width = std::min(panel, columns - first);
            if (below > 0)
                NegativeSymmetricTimes(below, width, side + Area(rows, columns), rows, m + Area(rows, first),
                                       rows, side + Area(rows, first), rows);
        });
        ParallelFor(threads, panels, [&](std::size_t i) {
            const int first = static_cast<int>(i) * panel;
            const int width = std::min(panel, columns - first);
            if (below > 0)
                Multiply(true, false, columns - first, width, below, -1, m + Area(rows, first), rows,
                         side + Area(rows, first), rows, 1, block + Area(rows, first) + first, rows);
        });
        for (int column = 0; column < columns; ++column) {
            std::copy_n(side + Area(rows, column), below, m + Area(rows, column));
            std::copy_n(block + Area(rows, column) + column, columns - column,
                        whole + Area(rows, column) + column);
        }
    }

    void Supernode(int s, int threads, int panel) {
        const Supernodes& nodes = inner.nodes;
        const std::shared_ptr<double[]> whole(new double[Area(nodes.Rows(s), nodes.Rows(s))]);
        if (nodes.Below(s) > 0)
            Gather(s, whole.get());
        Invert(s, whole.get(), threads, panel);
        for (int child = nodes.firstChild[At(s)]; child >= 0; child = nodes.nextSibling[At(child)])
            above[At(child)] = whole;
    }

    void Run() {
        const Supernodes& nodes = inner.nodes;
        const int threads = nodes.isSmall ? 1 : inner.threads;
        for (auto s = nodes.top.rbegin(); s != nodes.top.rend(); ++s)
            Supernode(*s, threads, kPanel);
        ParallelFor(threads, nodes.branches.size(), [&](std::size_t i) {
            for (int s = nodes.branches[i].last; s >= nodes.branches[i].first; --s)
                Supernode(s, 1, nodes.Rows(s));
        });
    }
};

}  // namespace

std::vector<double> InverseEntries(SparseCholesky& cholesky, const NormalMatrix& normals) {
    SparseCholesky::Inner& inner = *cholesky.inner;
    if (inner.holdsInverse)
        throw Failure(ErrorNumber::Internal, "The factor has been replaced by the inverse.");
    inner.holdsInverse = true;
    Inversion(inner).Run();
    const Supernodes& nodes = inner.nodes;
    std::vector<double> entries(normals.row.size());
    for (int s = 0; s < nodes.count; ++s) {
        const double* block = inner.values.get() + nodes.valueStart[At(s)];
        const int rows = nodes.Rows(s);
        std::size_t at = nodes.entryStart[At(s)];
        for (int column = 0; column < nodes.Columns(s); ++column) {
            const int first = column * rows;
            const double scale = inner.scale(nodes.order[At(nodes.firstColumn[At(s)] + column)]);
            for (; at < nodes.entryStart[At(s) + 1] && nodes.target[at] < first + rows; ++at) {
                const int row = nodes.order[At(nodes.RowsOf(s)[nodes.target[at] - first])];
                entries[At(nodes.entry[at])] = block[nodes.target[at]] * scale * inner.scale(row);
            }
        }
    }
    return entries;
}

}  // namespace Krenn
