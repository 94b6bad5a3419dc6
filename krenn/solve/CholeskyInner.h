// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <cstddef>
#include <memory>
#include <vector>

#include "krenn/solve/SparseCholesky.h"

namespace Krenn {

// Numbers in a dense block.
inline std::size_t Area(int rows, int columns) {
    return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
}

// The supernodes of a factor: columns with the same pattern, kept as one dense block. Supernode s holds the
// columns firstColumn[s] to firstColumn[s + 1] - 1 in the rows rows[rowStart[s]] to rows[rowStart[s + 1] -
// 1], which rise and begin with the columns themselves. The rows below its columns all stand among the rows
// of its parent, a later supernode; so the supernodes are a forest, numbered so that the descendants of s are
// the last numbers before s.
struct Supernodes {
    int count = 0;
    std::vector<int> firstColumn;
    std::vector<std::size_t> rowStart;
    std::vector<int> rows;
    std::vector<int> place;   // per entry of `rows` below the columns: its place among the rows of the parent
    std::vector<int> parent;  // -1: none
    std::vector<int> firstChild, nextSibling;  // rising; -1 behind the last
    std::vector<std::size_t> valueStart;       // where the block begins: rows times columns, by columns

    std::vector<int> order;  // per column: row of the normal equations

    // Which entry of the normal equations stands at which place of the block, per supernode.
    std::vector<std::size_t> entryStart;
    std::vector<int> entry, target;

    // How the work is shared out, the same for every number of threads: whole branches of the forest, each a
    // range of numbers, then (or before) the supernodes above them, whose own work is cut into panels.
    struct Range {
        int first, last;
    };
    std::vector<Range> branches;  // those with most work first
    std::vector<int> top;         // rising
    bool isSmall = true;          // less work than starting threads costs

    int Columns(int s) const { return firstColumn[Of(s) + 1] - firstColumn[Of(s)]; }
    int Rows(int s) const { return static_cast<int>(rowStart[Of(s) + 1] - rowStart[Of(s)]); }
    int Below(int s) const { return Rows(s) - Columns(s); }
    const int* RowsOf(int s) const { return rows.data() + rowStart[Of(s)]; }
    // Of the rows below the columns.
    const int* PlacesOf(int s) const { return place.data() + rowStart[Of(s)] + Columns(s); }

    static std::size_t Of(int s) { return static_cast<std::size_t>(s); }
};

struct SparseCholesky::Inner {
    int threads = 1;
    Supernodes nodes;
    Eigen::VectorXd scale;             // 1 / sqrt of the diagonal, per row of the normal equations
    std::unique_ptr<double[]> values;  // the blocks of the factor, or of the inverse once that was formed
    bool holdsInverse = false;
};

// Finds the supernodes of a pattern: orders it, analyses it, and shares out the work.
Supernodes FindSupernodes(const NormalMatrix& normals);

inline constexpr int kPanel = 192;  // columns or rows of a panel of the large supernodes

}  // namespace Krenn
