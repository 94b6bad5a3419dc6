// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <vector>

#include "krenn/CholeskyInner.h"
#include "krenn/Errors.h"
#include "krenn/SparseCholesky.h"

namespace Krenn {
namespace {

using Block = Eigen::Map<Eigen::MatrixXd>;
using ConstBlock = Eigen::Map<const Eigen::MatrixXd>;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// The supernodes of a factor L: columns `First` to `Last` - 1 share the rows from RowsBegin on, of which the
// first ones are the columns themselves.
struct Supernodes {
    explicit Supernodes(const cholmod_factor& factor)
        : super(static_cast<const int*>(factor.super)),
          rowStart(static_cast<const int*>(factor.pi)),
          valueStart(static_cast<const int*>(factor.px)),
          rows(static_cast<const int*>(factor.s)),
          values(static_cast<const double*>(factor.x)),
          count(static_cast<int>(factor.nsuper)),
          ofColumn(factor.n) {
        for (int s = 0; s < count; ++s) {
            for (int column = super[s]; column < super[s + 1]; ++column)
                ofColumn[At(column)] = s;
        }
    }

    int Columns(int s) const { return super[s + 1] - super[s]; }
    int Rows(int s) const { return rowStart[s + 1] - rowStart[s]; }
    const int* RowsBegin(int s) const { return rows + rowStart[s]; }

    const int* super;
    const int* rowStart;
    const int* valueStart;
    const int* rows;
    const double* values;
    int count;
    std::vector<int> ofColumn;
};

// Gathers the inverse over the rows below supernode s out of the blocks already done; lower triangle.
void GatherBelow(const Supernodes& nodes, const std::vector<double>& inverse, int s,
                 Eigen::MatrixXd& gathered, std::vector<int>& place) {
    const int columns = nodes.Columns(s);
    const int below = nodes.Rows(s) - columns;
    const int* rows = nodes.RowsBegin(s) + columns;
    for (int first = 0; first < below;) {
        const int t = nodes.ofColumn[At(rows[first])];
        const int* otherRows = nodes.RowsBegin(t);
        const int otherCount = nodes.Rows(t);
        place.clear();
        int at = 0;
        for (int i = first; i < below; ++i) {
            while (at < otherCount && otherRows[at] < rows[i])
                ++at;
            if (at == otherCount || otherRows[at] != rows[i])
                throw Failure(ErrorNumber::Internal, "The pattern of the factor is not closed.");
            place.push_back(at);
        }
        const double* block = inverse.data() + nodes.valueStart[t];
        int last = first;
        for (; last < below && rows[last] < nodes.super[t + 1]; ++last) {
            const double* column = block + At(rows[last] - nodes.super[t]) * At(otherCount);
            for (int i = last; i < below; ++i)
                gathered(i, last) = column[place[At(i - first)]];
        }
        first = last;
    }
}

void InvertSupernode(const Supernodes& nodes, std::vector<double>& inverse, int s, std::vector<int>& place) {
    const int columns = nodes.Columns(s);
    const int rows = nodes.Rows(s);
    const int below = rows - columns;
    const ConstBlock factor(nodes.values + nodes.valueStart[s], rows, columns);
    Block result(inverse.data() + nodes.valueStart[s], rows, columns);
    const auto diagonal = factor.topRows(columns).triangularView<Eigen::Lower>();
    Eigen::MatrixXd own = Eigen::MatrixXd::Identity(columns, columns);
    diagonal.solveInPlace(own);
    Eigen::MatrixXd top = own.transpose() * own;
    if (below > 0) {
        // M = L21 / L11;  Z21 = -Z22 M;  Z11 = 1 / (L11 L11') - M' Z21
        const Eigen::MatrixXd m = factor.bottomRows(below) * own;
        Eigen::MatrixXd gathered(below, below);
        GatherBelow(nodes, inverse, s, gathered, place);
        const Eigen::MatrixXd side = -(gathered.selfadjointView<Eigen::Lower>() * m);
        top -= m.transpose() * side;
        result.bottomRows(below) = side;
    }
    result.topRows(columns) = 0.5 * (top + top.transpose());
}

}  // namespace

std::vector<double> InverseEntries(const SparseCholesky& cholesky, const NormalMatrix& normals) {
    const cholmod_factor& factor = *cholesky.inner->factor;
    const Supernodes nodes(factor);
    std::vector<double> inverse(factor.xsize, 0.0);
    std::vector<int> place;
    for (int s = nodes.count - 1; s >= 0; --s)
        InvertSupernode(nodes, inverse, s, place);

    const auto* order = static_cast<const int*>(factor.Perm);
    std::vector<int> placeOf(factor.n);
    for (std::size_t i = 0; i < factor.n; ++i)
        placeOf[At(order[i])] = static_cast<int>(i);
    const Eigen::VectorXd& scale = cholesky.inner->scale;
    std::vector<double> entries(normals.row.size());
    for (int column = 0; column < normals.size; ++column) {
        for (int at = normals.columnStart[At(column)]; at < normals.columnStart[At(column) + 1]; ++at) {
            const int row = normals.row[At(at)];
            const int low = std::min(placeOf[At(row)], placeOf[At(column)]);
            const int high = std::max(placeOf[At(row)], placeOf[At(column)]);
            const int s = nodes.ofColumn[At(low)];
            const int* rows = nodes.RowsBegin(s);
            const int* found = std::lower_bound(rows, rows + nodes.Rows(s), high);
            if (found == rows + nodes.Rows(s) || *found != high)
                throw Failure(ErrorNumber::Internal, "An entry is missing in the pattern of the factor.");
            const std::size_t position = At(nodes.valueStart[s]) +
                                         At(low - nodes.super[s]) * At(nodes.Rows(s)) +
                                         static_cast<std::size_t>(found - rows);
            entries[At(at)] = inverse[position] * scale(row) * scale(column);
        }
    }
    return entries;
}

}  // namespace Krenn
