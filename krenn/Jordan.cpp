// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Jordan.h"

#include <cmath>
#include <vector>

#include "krenn/Errors.h"

namespace Krenn {

void JordanInvert(Eigen::MatrixXd& matrix) {
    const Eigen::Index size = matrix.rows();
    std::vector<Eigen::Index> exchanged(static_cast<std::size_t>(size));
    Eigen::VectorXd column(size);
    Eigen::RowVectorXd row(size);
    for (Eigen::Index k = 0; k < size; ++k) {
        Eigen::Index pivot = k;
        const double most = matrix.col(k).tail(size - k).cwiseAbs().maxCoeff(&pivot);
        pivot += k;
        if (!(most > 1e-14))
            throw Failure(ErrorNumber::Singular, "The elimination meets a zero pivot.");
        exchanged[static_cast<std::size_t>(k)] = pivot;
        matrix.row(k).swap(matrix.row(pivot));
        const double inverse = 1 / matrix(k, k);
        column = matrix.col(k);
        row = matrix.row(k) * inverse;
        column(k) = 0;
        matrix.noalias() -= column * row;
        matrix.col(k) = -inverse * column;
        matrix.row(k) = row;
        matrix(k, k) = inverse;
    }
    for (Eigen::Index k = size - 1; k >= 0; --k)
        matrix.col(k).swap(matrix.col(exchanged[static_cast<std::size_t>(k)]));
}

Eigen::MatrixXd BorderedInverse(const NormalMatrix& normals, const Datum& datum) {
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
    JordanInvert(bordered);
    return scale.asDiagonal() * bordered.topLeftCorner(size, size) * scale.asDiagonal();
}

}  // namespace Krenn
