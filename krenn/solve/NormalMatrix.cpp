// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/solve/NormalMatrix.h"

#include <algorithm>

#include "krenn/Errors.h"
#include "krenn/Parallel.h"

namespace Krenn {
namespace {

constexpr std::size_t kWorthSharing = 20000;  // measures
constexpr std::size_t kRightParts = 8;        // sums that threads make, added up in their order

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

void NumberRows(NormalMatrix& normals, const Structure& structure, const Unknowns& unknowns,
                const std::vector<int>& held) {
    std::vector<char> isHeld(At(unknowns.Count()), 0);
    for (const int unknown : held)
        isHeld[At(unknown)] = 1;
    normals.reducedOf.assign(At(unknowns.Count()), -1);
    normals.blockStart.assign(structure.roles.size() + 1, 0);
    int unknown = 0;
    for (std::size_t point = 0; point < structure.roles.size(); ++point) {
        normals.blockStart[point] = static_cast<int>(normals.unknownOf.size());
        for (; unknown < unknowns.Count() && unknowns.of[At(unknown)].point == static_cast<int>(point);
             ++unknown) {
            if (isHeld[At(unknown)])
                continue;
            normals.reducedOf[At(unknown)] = static_cast<int>(normals.unknownOf.size());
            normals.unknownOf.push_back(unknown);
        }
    }
    normals.globalStart = static_cast<int>(normals.unknownOf.size());
    normals.blockStart.back() = normals.globalStart;
    for (; unknown < unknowns.Count(); ++unknown) {
        normals.reducedOf[At(unknown)] = static_cast<int>(normals.unknownOf.size());
        normals.unknownOf.push_back(unknown);
    }
    normals.size = static_cast<int>(normals.unknownOf.size());
}

struct Neighbours {
    std::vector<int> start;  // per point into `other`
    std::vector<int> other;  // higher points, rising
};

Neighbours FindNeighbours(const Structure& structure, const std::vector<std::pair<int, int>>& pairs) {
    std::vector<std::pair<int, int>> edges;
    edges.reserve(structure.measures.size() + pairs.size());
    for (const Measure& measure : structure.measures)
        edges.push_back(std::minmax(measure.from, measure.to));
    for (const auto& pair : pairs)
        edges.push_back(std::minmax(pair.first, pair.second));
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    Neighbours neighbours;
    neighbours.start.assign(structure.roles.size() + 1, 0);
    for (const auto& edge : edges) {
        ++neighbours.start[At(edge.first) + 1];
        neighbours.other.push_back(edge.second);
    }
    for (std::size_t point = 0; point < structure.roles.size(); ++point)
        neighbours.start[point + 1] += neighbours.start[point];
    return neighbours;
}

// Rows of the neighbours' blocks between the diagonal block of `from` and the block of `to`.
int OffsetOf(const Neighbours& neighbours, const std::vector<int>& before, int from, int to) {
    const int low = std::min(from, to);
    const int high = std::max(from, to);
    const auto first = neighbours.other.begin() + neighbours.start[At(low)];
    const auto last = neighbours.other.begin() + neighbours.start[At(low) + 1];
    const auto found = std::lower_bound(first, last, high);
    if (found == last || *found != high)
        throw Failure(ErrorNumber::Internal, "A pair of points is missing in the normal equations.");
    return before[static_cast<std::size_t>(found - neighbours.other.begin())];
}

// a M a' of one measure.
double MeasureForm(const NormalMatrix& normals, const std::vector<double>& entries, const Measure& measure,
                   int offset, const Unknowns& unknowns, const State& state) {
    const Partials partials = ComputePartials(measure, state);
    const std::array<int, kTerms> rows = RowsOf(normals, measure, unknowns);
    const int lowEnd = normals.blockStart[At(std::min(measure.from, measure.to)) + 1];
    const int highStart = normals.blockStart[At(std::max(measure.from, measure.to))];
    double form = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] < 0 || partials.by[i] == 0)
            continue;
        for (std::size_t j = 0; j <= i; ++j) {
            if (rows[j] < 0)
                continue;
            const double entry = entries[normals.PositionOf(rows[i], rows[j], lowEnd, highStart, offset)];
            form += (i == j ? 1 : 2) * partials.by[i] * partials.by[j] * entry;
        }
    }
    return form;
}

}  // namespace

NormalMatrix MakePattern(const Structure& structure, const Unknowns& unknowns, const std::vector<int>& held,
                         const std::vector<std::pair<int, int>>& pairs) {
    NormalMatrix normals;
    NumberRows(normals, structure, unknowns, held);
    const Neighbours neighbours = FindNeighbours(structure, pairs);
    const auto blockSize = [&](int point) {
        return normals.blockStart[At(point) + 1] - normals.blockStart[At(point)];
    };
    std::vector<int> before(neighbours.other.size(), 0);
    normals.columnStart.assign(1, 0);
    normals.columnStart.reserve(At(normals.size) + 1);
    for (std::size_t point = 0; point < structure.roles.size(); ++point) {
        int below = 0;
        for (int at = neighbours.start[point]; at < neighbours.start[point + 1]; ++at) {
            before[At(at)] = below;
            below += blockSize(neighbours.other[At(at)]);
        }
        const int end = normals.blockStart[point + 1];
        for (int column = normals.blockStart[point]; column < end; ++column) {
            for (int row = column; row < end; ++row)
                normals.row.push_back(row);
            for (int at = neighbours.start[point]; at < neighbours.start[point + 1]; ++at) {
                const int other = neighbours.other[At(at)];
                for (int row = normals.blockStart[At(other)]; row < normals.blockStart[At(other) + 1]; ++row)
                    normals.row.push_back(row);
            }
            for (int row = normals.globalStart; row < normals.size; ++row)
                normals.row.push_back(row);
            normals.columnStart.push_back(static_cast<int>(normals.row.size()));
        }
    }
    for (int column = normals.globalStart; column < normals.size; ++column) {
        for (int row = column; row < normals.size; ++row)
            normals.row.push_back(row);
        normals.columnStart.push_back(static_cast<int>(normals.row.size()));
    }
    normals.value.assign(normals.row.size(), 0);
    normals.measureOffset.reserve(structure.measures.size());
    for (const Measure& measure : structure.measures)
        normals.measureOffset.push_back(OffsetOf(neighbours, before, measure.from, measure.to));
    for (const auto& pair : pairs)
        normals.pairOffset.push_back(OffsetOf(neighbours, before, pair.first, pair.second));
    return normals;
}

std::array<int, kTerms> RowsOf(const NormalMatrix& normals, const Measure& measure,
                               const Unknowns& unknowns) {
    std::array<int, kTerms> rows = UnknownsOf(measure, unknowns);
    for (int& row : rows)
        row = row < 0 ? -1 : normals.reducedOf[At(row)];
    return rows;
}

void FillNormals(NormalMatrix& normals, const Structure& structure, const Unknowns& unknowns,
                 const State& state, std::span<const double> weight) {
    std::fill(normals.value.begin(), normals.value.end(), 0.0);
    normals.right = Eigen::VectorXd::Zero(normals.size);
    for (std::size_t m = 0; m < structure.measures.size(); ++m) {
        const Measure& measure = structure.measures[m];
        const Partials partials = ComputePartials(measure, state);
        const double misclosure = Misclosure(measure, partials.computed);
        const double p = (weight.empty() ? 1.0 : weight[m]) / (measure.sigma * measure.sigma);
        const std::array<int, kTerms> rows = RowsOf(normals, measure, unknowns);
        const int lowEnd = normals.blockStart[At(std::min(measure.from, measure.to)) + 1];
        const int highStart = normals.blockStart[At(std::max(measure.from, measure.to))];
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (rows[i] < 0 || partials.by[i] == 0)
                continue;
            const double pa = p * partials.by[i];
            normals.right(rows[i]) += pa * misclosure;
            for (std::size_t j = 0; j <= i; ++j) {
                if (rows[j] >= 0)
                    normals.value[normals.PositionOf(rows[i], rows[j], lowEnd, highStart,
                                                     normals.measureOffset[m])] += pa * partials.by[j];
            }
        }
    }
}

void FillRight(NormalMatrix& normals, const Structure& structure, const Unknowns& unknowns,
               const State& state, int threads) {
    const std::vector<Measure>& measures = structure.measures;
    std::vector<Eigen::VectorXd> parts(measures.size() < kWorthSharing ? 1 : kRightParts);
    ParallelFor(threads, parts.size(), [&](std::size_t part) {
        parts[part] = Eigen::VectorXd::Zero(normals.size);
        const std::size_t end = measures.size() * (part + 1) / parts.size();
        for (std::size_t m = measures.size() * part / parts.size(); m < end; ++m) {
            const Partials partials = ComputePartials(measures[m], state);
            const double weighted =
                Misclosure(measures[m], partials.computed) / (measures[m].sigma * measures[m].sigma);
            const std::array<int, kTerms> rows = RowsOf(normals, measures[m], unknowns);
            for (std::size_t i = 0; i < rows.size(); ++i) {
                if (rows[i] >= 0)
                    parts[part](rows[i]) += weighted * partials.by[i];
            }
        }
    });
    normals.right = std::move(parts.front());
    for (std::size_t part = 1; part < parts.size(); ++part)
        normals.right += parts[part];
}

std::vector<double> MeasureForms(const NormalMatrix& normals, const std::vector<double>& entries,
                                 const Structure& structure, const Unknowns& unknowns, const State& state,
                                 int threads) {
    std::vector<double> forms(structure.measures.size(), 0.0);
    ParallelRanges(threads, forms.size(), [&](std::size_t begin, std::size_t end) {
        for (std::size_t m = begin; m < end; ++m)
            forms[m] = MeasureForm(normals, entries, structure.measures[m], normals.measureOffset[m],
                                   unknowns, state);
    });
    return forms;
}

}  // namespace Krenn
