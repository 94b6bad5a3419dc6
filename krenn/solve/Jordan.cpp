// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/solve/Jordan.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "krenn/Errors.h"
#include "krenn/Parallel.h"
#include "krenn/solve/Blas.h"

namespace Krenn {

namespace {

constexpr Eigen::Index kBlock = 64;   // columns eliminated together
constexpr Eigen::Index kShare = 256;  // columns that one thread takes at a time

// Plain elimination of the columns from `first` on, `width` of them, in these columns alone; the exchanges of
// rows go through the whole matrix. Afterwards the columns are what all others have to be multiplied by.
void EliminateColumns(Eigen::MatrixXd& matrix, Eigen::Index first, Eigen::Index width,
                      std::vector<Eigen::Index>& exchanged) {
    const Eigen::Index size = matrix.rows();
    Eigen::Ref<Eigen::MatrixXd> block = matrix.middleCols(first, width);
    Eigen::VectorXd column(size);
    Eigen::RowVectorXd row(width);
    for (Eigen::Index c = 0; c < width; ++c) {
        const Eigen::Index k = first + c;
        Eigen::Index pivot = 0;
        const double most = block.col(c).tail(size - k).cwiseAbs().maxCoeff(&pivot);
        pivot += k;
        if (!(most > 1e-14))
            throw Failure(ErrorNumber::Singular, "The elimination meets a zero pivot.");
        exchanged[static_cast<std::size_t>(k)] = pivot;
        matrix.row(k).swap(matrix.row(pivot));
        const double inverse = 1 / block(k, c);
        column = block.col(c);
        row = block.row(k) * inverse;
        column(k) = 0;
        block.noalias() -= column * row;
        block.col(c) = -inverse * column;
        block.row(k) = row;
        block(k, c) = inverse;
    }
}

// Carries the elimination of a block of columns over to the columns from `begin` to `end`.
void CarryOver(Eigen::MatrixXd& matrix, Eigen::Index first, Eigen::Index width, Eigen::Index begin,
               Eigen::Index end) {
    const Eigen::MatrixXd top = matrix.block(first, begin, width, end - begin);
    matrix.block(first, begin, width, end - begin).setZero();
    const int size = static_cast<int>(matrix.rows());
    Multiply(false, false, size, static_cast<int>(end - begin), static_cast<int>(width), 1,
             matrix.col(first).data(), size, top.data(), static_cast<int>(width), 1, matrix.col(begin).data(),
             size);
}

}  // namespace

void JordanInvert(Eigen::MatrixXd& matrix, int threads) {
    PrepareBlas();
    const Eigen::Index size = matrix.rows();
    std::vector<Eigen::Index> exchanged(static_cast<std::size_t>(size));
    for (Eigen::Index first = 0; first < size; first += kBlock) {
        const Eigen::Index width = std::min(kBlock, size - first);
        EliminateColumns(matrix, first, width, exchanged);
        const auto shares = static_cast<std::size_t>((size + kShare - 1) / kShare);
        ParallelFor(MostBlasCallers(ThreadsFor(threads)), shares, [&](std::size_t share) {
            const Eigen::Index begin = static_cast<Eigen::Index>(share) * kShare;
            const Eigen::Index end = std::min(begin + kShare, size);
            if (begin < first)
                CarryOver(matrix, first, width, begin, std::min(end, first));
            if (end > first + width)
                CarryOver(matrix, first, width, std::max(begin, first + width), end);
        });
    }
    for (Eigen::Index k = size - 1; k >= 0; --k)
        matrix.col(k).swap(matrix.col(exchanged[static_cast<std::size_t>(k)]));
}

Eigen::MatrixXd BorderedInverse(const NormalMatrix& normals, const Datum& datum, int threads) {
    const Eigen::Index size = normals.size;
    const Eigen::Index defect = datum.Defect();
    Eigen::MatrixXd bordered = Eigen::MatrixXd::Zero(size + defect, size + defect);
    Eigen::VectorXd scale(size);
    for (Eigen::Index i = 0; i < size; ++i) {
        const double diagonal =
            normals.value[static_cast<std::size_t>(normals.columnStart[static_cast<std::size_t>(i)])];
        scale(i) = diagonal > 0 ? 1 / std::sqrt(diagonal) : 1.0;
    }
    for (Eigen::Index column = 0; column < size; ++column) {
        const auto c = static_cast<std::size_t>(column);
        for (int at = normals.columnStart[c]; at < normals.columnStart[c + 1]; ++at) {
            const Eigen::Index row = normals.row[static_cast<std::size_t>(at)];
            const double entry = normals.value[static_cast<std::size_t>(at)] * scale(row) * scale(column);
            bordered(row, column) = entry;
            bordered(column, row) = entry;
        }
    }
    Eigen::Index border = size;
    for (const PartDatum& part : datum.parts) {
        for (int k = 0; k < part.defect; ++k, ++border) {
            // A constraint may be multiplied by anything; rows of unit length keep the pivots comparable.
            Eigen::VectorXd line = Eigen::VectorXd::Zero(size);
            for (std::size_t i = 0; i < part.unknowns.size(); ++i) {
                const Eigen::Index row = part.unknowns[i];
                line(row) = part.constraint(static_cast<Eigen::Index>(i), k) * scale(row);
            }
            line.normalize();
            bordered.col(border).head(size) = line;
            bordered.row(border).head(size) = line.transpose();
        }
    }
    JordanInvert(bordered, threads);
    return scale.asDiagonal() * bordered.topLeftCorner(size, size) * scale.asDiagonal();
}

}  // namespace Krenn
