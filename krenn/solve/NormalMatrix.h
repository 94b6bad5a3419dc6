// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <array>
#include <span>
#include <utility>
#include <vector>

#include "krenn/model/Model.h"

namespace Krenn {

// The normal equations N x = b of one linearisation, N = sum a' a / sigma^2, lower triangle by columns with
// rising rows. Some unknowns may be held; the others are numbered anew, in the same order.
//
// The unknowns of a point and of its set-ups follow one another, so a column holds the rest of its own
// point's block, then the whole block of every neighbour with a higher number, then the unknowns of the whole
// network: the place of an entry is found by counting, without a search, and the pattern is made once for all
// iterations.
struct NormalMatrix {
    int size = 0;
    std::vector<int> reducedOf;    // per unknown: row, or -1 if held
    std::vector<int> unknownOf;    // per row: unknown
    std::vector<int> columnStart;  // size + 1
    std::vector<int> row;
    std::vector<double> value;
    Eigen::VectorXd right;  // b

    int globalStart = 0;             // first row of the unknowns of the whole network
    std::vector<int> blockStart;     // per point: its first row, `blockStart[p + 1]` behind its last
    std::vector<int> measureOffset;  // per measure: where the block of the higher point begins in a column
    std::vector<int> pairOffset;     // the same per relative pair

    // Where the entry of two rows stands that belong to one point, to the two points of `offset`, or one of
    // them to the whole network.
    std::size_t PositionOf(int rowA, int rowB, int lowerBlockEnd, int higherBlockStart, int offset) const {
        const int column = rowA < rowB ? rowA : rowB;
        const int other = rowA < rowB ? rowB : rowA;
        const int start = columnStart[static_cast<std::size_t>(column)];
        if (other >= globalStart)
            return static_cast<std::size_t>(columnStart[static_cast<std::size_t>(column) + 1] -
                                            (size - other));
        if (other < lowerBlockEnd || column >= higherBlockStart)
            return static_cast<std::size_t>(start + other - column);
        return static_cast<std::size_t>(start + lowerBlockEnd - column + offset + other - higherBlockStart);
    }
};

// The pattern for the measures of a structure and for pairs whose covariances are wanted.
NormalMatrix MakePattern(const Structure& structure, const Unknowns& unknowns, const std::vector<int>& held,
                         const std::vector<std::pair<int, int>>& pairs);

// Fills N and b at a state. `weight` multiplies each measure's 1 / sigma^2; empty for 1 throughout.
void FillNormals(NormalMatrix& normals, const Structure& structure, const Unknowns& unknowns,
                 const State& state, std::span<const double> weight);

// Fills b alone. The result does not depend on `threads`.
void FillRight(NormalMatrix& normals, const Structure& structure, const Unknowns& unknowns,
               const State& state, int threads = 1);

// One row of the design matrix in the numbering of the normal equations; -1 for held and missing unknowns.
std::array<int, kTerms> RowsOf(const NormalMatrix& normals, const Measure& measure, const Unknowns& unknowns);

// The quadratic form a M a' of every measure at a state, for a symmetric M of which the entries in the
// pattern of `normals` are given by `entries`.
std::vector<double> MeasureForms(const NormalMatrix& normals, const std::vector<double>& entries,
                                 const Structure& structure, const Unknowns& unknowns, const State& state,
                                 int threads = 1);

}  // namespace Krenn
