// SPDX-License-Identifier: GPL-3.0-or-later
#include <cholmod.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "krenn/Errors.h"
#include "krenn/solve/CholeskyInner.h"

namespace Krenn {
namespace {

constexpr double kWorthDissecting =
    3e8;                            // multiplications from which nested dissection pays for its own time
constexpr double kSmallWork = 2e7;  // multiplications that are not worth a thread
constexpr double kBranchPart = 1.0 / 32;  // of the whole work: what one branch holds at most

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

struct Common {
    Common() {
        cholmod_start(&common);
        common.print = 0;
        common.error_handler = nullptr;
        common.postorder = 1;
        common.nmethods = 1;
    }
    ~Common() { cholmod_finish(&common); }
    Common(const Common&) = delete;
    Common& operator=(const Common&) = delete;

    [[noreturn]] void Throw() const {
        if (common.status == CHOLMOD_TOO_LARGE)
            throw Failure(ErrorNumber::OutOfMemory, "The factor of the normal equations would be too large.");
        if (common.status == CHOLMOD_OUT_OF_MEMORY)
            throw Failure(ErrorNumber::OutOfMemory, "The factorisation needs more memory than there is.");
        throw Failure(ErrorNumber::Internal, "The sparse factorisation failed.");
    }

    cholmod_common common{};
};

// The lower triangle of a symmetric pattern by columns, as CHOLMOD takes it; it refers to the two vectors.
cholmod_sparse PatternOf(std::vector<int>& start, std::vector<int>& rows) {
    cholmod_sparse pattern{};
    pattern.nrow = pattern.ncol = start.size() - 1;
    pattern.nzmax = rows.size();
    pattern.p = start.data();
    pattern.i = rows.data();
    pattern.stype = -1;
    pattern.itype = CHOLMOD_INT;
    pattern.xtype = CHOLMOD_PATTERN;
    pattern.dtype = CHOLMOD_DOUBLE;
    pattern.sorted = 1;
    pattern.packed = 1;
    return pattern;
}

// Runs of columns that share their rows below: the unknowns of one point, as a rule. What is ordered is the
// graph of these blocks, which is much smaller than that of the unknowns and keeps together what belongs
// together.
struct Blocks {
    std::vector<int> ofRow;
    std::vector<int> first;  // one more than there are blocks
    std::vector<int> start, rows;
};

Blocks FindBlocks(const NormalMatrix& normals) {
    Blocks blocks;
    blocks.ofRow.resize(At(normals.size));
    const auto begin = [&](int column) { return normals.row.begin() + normals.columnStart[At(column)]; };
    for (int column = 0; column < normals.size; ++column) {
        const bool continues =
            column > 0 && std::equal(begin(column), begin(column + 1), begin(column - 1) + 1, begin(column));
        if (!continues)
            blocks.first.push_back(column);
        blocks.ofRow[At(column)] = static_cast<int>(blocks.first.size()) - 1;
    }
    blocks.first.push_back(normals.size);
    blocks.start.assign(1, 0);
    for (std::size_t block = 0; block + 1 < blocks.first.size(); ++block) {
        int last = -1;
        for (auto at = begin(blocks.first[block]); at != begin(blocks.first[block] + 1); ++at) {
            const int other = blocks.ofRow[At(*at)];
            if (other != last)
                blocks.rows.push_back(other);
            last = other;
        }
        blocks.start.push_back(static_cast<int>(blocks.rows.size()));
    }
    return blocks;
}

// The order of the rows: minimum degree, or nested dissection where the network is large and it gives less
// work.
std::vector<int> FindOrder(const NormalMatrix& normals) {
    Blocks blocks = FindBlocks(normals);
    const double widest = static_cast<double>(normals.size) / static_cast<double>(blocks.first.size() - 1);
    cholmod_sparse pattern = PatternOf(blocks.start, blocks.rows);
    std::vector<int> best;
    double leastWork = INFINITY;
    for (const int method : {CHOLMOD_AMD, CHOLMOD_NESDIS}) {
        Common common;
        common.common.method[0].ordering = method;
        common.common.supernodal = CHOLMOD_SIMPLICIAL;
        cholmod_factor* factor = cholmod_analyze(&pattern, &common.common);
        if (factor == nullptr)
            common.Throw();
        const auto* order = static_cast<const int*>(factor->Perm);
        if (common.common.fl < leastWork) {
            leastWork = common.common.fl;
            best.assign(order, order + factor->n);
        }
        cholmod_free_factor(&factor, &common.common);
        if (leastWork * widest * widest * widest < kWorthDissecting)
            break;
    }
    std::vector<int> rows;
    rows.reserve(At(normals.size));
    for (const int block : best) {
        for (int row = blocks.first[At(block)]; row < blocks.first[At(block) + 1]; ++row)
            rows.push_back(row);
    }
    return rows;
}

// Columns, rows and order of the supernodes.
void Analyse(Supernodes& nodes, const NormalMatrix& normals) {
    std::vector<int> order = FindOrder(normals);
    std::vector<int> start = normals.columnStart;
    std::vector<int> rows = normals.row;
    cholmod_sparse pattern = PatternOf(start, rows);
    Common common;
    common.common.method[0].ordering = CHOLMOD_GIVEN;
    common.common.supernodal = CHOLMOD_SUPERNODAL;
    cholmod_factor* factor = cholmod_analyze_p(&pattern, order.data(), nullptr, 0, &common.common);
    if (factor == nullptr)
        common.Throw();
    nodes.count = static_cast<int>(factor->nsuper);
    const auto* super = static_cast<const int*>(factor->super);
    const auto* rowStart = static_cast<const int*>(factor->pi);
    const auto* allRows = static_cast<const int*>(factor->s);
    const auto* found = static_cast<const int*>(factor->Perm);
    nodes.firstColumn.assign(super, super + nodes.count + 1);
    nodes.rowStart.assign(rowStart, rowStart + nodes.count + 1);
    nodes.rows.assign(allRows, allRows + nodes.rowStart.back());
    nodes.order.assign(found, found + factor->n);
    cholmod_free_factor(&factor, &common.common);
}

// Parents, children, and where the rows of a supernode stand in its parent.
void LinkSupernodes(Supernodes& nodes) {
    const auto count = At(nodes.count);
    nodes.parent.assign(count, -1);
    nodes.firstChild.assign(count, -1);
    nodes.nextSibling.assign(count, -1);
    nodes.place.assign(nodes.rows.size(), 0);
    nodes.valueStart.assign(count + 1, 0);
    std::vector<int> ofColumn(nodes.order.size());
    for (int s = 0; s < nodes.count; ++s) {
        nodes.valueStart[At(s) + 1] = nodes.valueStart[At(s)] + At(nodes.Rows(s)) * At(nodes.Columns(s));
        std::fill(ofColumn.begin() + nodes.firstColumn[At(s)],
                  ofColumn.begin() + nodes.firstColumn[At(s) + 1], s);
    }
    for (int s = nodes.count - 1; s >= 0; --s) {
        if (nodes.Below(s) == 0)
            continue;
        const int* rows = nodes.RowsOf(s) + nodes.Columns(s);
        const int parent = ofColumn[At(rows[0])];
        nodes.parent[At(s)] = parent;
        nodes.nextSibling[At(s)] = nodes.firstChild[At(parent)];
        nodes.firstChild[At(parent)] = s;
        const int* parentRows = nodes.RowsOf(parent);
        const int* parentEnd = parentRows + nodes.Rows(parent);
        int* place = nodes.place.data() + nodes.rowStart[At(s)] + nodes.Columns(s);
        const int* at = parentRows;
        for (int i = 0; i < nodes.Below(s); ++i) {
            at = std::find(at, parentEnd, rows[i]);
            if (at == parentEnd)
                throw Failure(ErrorNumber::Internal, "The pattern of the factor is not closed.");
            place[i] = static_cast<int>(at - parentRows);
        }
    }
}

// Where the entries of the normal equations stand in the blocks.
void PlaceEntries(Supernodes& nodes, const NormalMatrix& normals) {
    std::vector<int> placeOf(nodes.order.size());
    for (std::size_t i = 0; i < placeOf.size(); ++i)
        placeOf[At(nodes.order[i])] = static_cast<int>(i);
    const auto lowOf = [&](int column, int at) {
        return std::min(placeOf[At(column)], placeOf[At(normals.row[At(at)])]);
    };
    std::vector<std::size_t> start(nodes.order.size() + 1, 0);
    const auto forEntries = [&](auto visit) {
        for (int column = 0; column < normals.size; ++column) {
            for (int at = normals.columnStart[At(column)]; at < normals.columnStart[At(column) + 1]; ++at)
                visit(column, at);
        }
    };
    forEntries([&](int column, int at) { ++start[At(lowOf(column, at)) + 1]; });
    std::partial_sum(start.begin(), start.end(), start.begin());
    nodes.entry.resize(normals.row.size());
    nodes.target.resize(normals.row.size());
    std::vector<std::size_t> next(start.begin(), start.end() - 1);
    forEntries([&](int column, int at) {
        const std::size_t position = next[At(lowOf(column, at))]++;
        nodes.entry[position] = at;
        nodes.target[position] = std::max(placeOf[At(column)], placeOf[At(normals.row[At(at)])]);
    });
    std::vector<int> local(nodes.order.size(), -1);
    nodes.entryStart.assign(At(nodes.count) + 1, 0);
    for (int s = 0; s < nodes.count; ++s) {
        const int rows = nodes.Rows(s);
        for (int i = 0; i < rows; ++i)
            local[At(nodes.RowsOf(s)[i])] = i;
        for (int column = 0; column < nodes.Columns(s); ++column) {
            const auto c = At(nodes.firstColumn[At(s)] + column);
            for (std::size_t at = start[c]; at < start[c + 1]; ++at)
                nodes.target[at] = local[At(nodes.target[at])] + column * rows;
        }
        nodes.entryStart[At(s) + 1] = start[At(nodes.firstColumn[At(s) + 1])];
    }
}

void ShareOutWork(Supernodes& nodes) {
    std::vector<double> work(At(nodes.count), 0);
    std::vector<int> first(At(nodes.count));
    std::vector<int> size(At(nodes.count), 1);
    double whole = 0;
    for (int s = 0; s < nodes.count; ++s) {
        const double rows = nodes.Rows(s);
        const double columns = nodes.Columns(s);
        const double below = nodes.Below(s);
        const double own = columns * (columns * columns / 3 + below * rows);
        whole += own;
        work[At(s)] += own;
        first[At(s)] = s;
        for (int child = nodes.firstChild[At(s)]; child >= 0; child = nodes.nextSibling[At(child)]) {
            first[At(s)] = std::min(first[At(s)], first[At(child)]);
            size[At(s)] += size[At(child)];
        }
        if (s - first[At(s)] + 1 != size[At(s)])
            throw Failure(ErrorNumber::Internal, "The supernodes are not numbered branch by branch.");
        if (nodes.parent[At(s)] >= 0)
            work[At(nodes.parent[At(s)])] += work[At(s)];
    }
    nodes.isSmall = whole < kSmallWork;
    for (int s = 0; s < nodes.count; ++s) {
        const int parent = nodes.parent[At(s)];
        if (work[At(s)] > kBranchPart * whole)
            nodes.top.push_back(s);
        else if (parent < 0 || work[At(parent)] > kBranchPart * whole)
            nodes.branches.push_back({first[At(s)], s});
    }
    std::stable_sort(nodes.branches.begin(), nodes.branches.end(),
                     [&](const auto& a, const auto& b) { return work[At(a.last)] > work[At(b.last)]; });
}

}  // namespace

Supernodes FindSupernodes(const NormalMatrix& normals) {
    Supernodes nodes;
    Analyse(nodes, normals);
    LinkSupernodes(nodes);
    PlaceEntries(nodes, normals);
    ShareOutWork(nodes);
    return nodes;
}

}  // namespace Krenn
