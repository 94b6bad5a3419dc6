// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Cofactors.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "krenn/Parallel.h"

namespace Krenn {
namespace {

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

// The cofactor of two unknowns; `offset` says where their points' common block stands, when they differ.
using CofactorOf = std::function<double(int unknownA, int unknownB, int offset)>;

std::array<double, 6> TripleBlock(const std::array<int, 3>& number, const CofactorOf& cofactor) {
    std::array<double, 6> block{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j <= i; ++j, ++at) {
            if (number[i] >= 0 && number[j] >= 0)
                block[at] = cofactor(number[j], number[i], -1);
        }
    }
    return {block[0], block[1], block[2], block[3], block[4], block[5]};
}

std::array<double, 6> PairBlock(const std::array<int, 3>& from, const std::array<int, 3>& to, int offset,
                                const CofactorOf& cofactor) {
    std::array<double, 6> block{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j <= i; ++j, ++at) {
            const auto term = [&](int a, int b, bool isAcross) {
                return a >= 0 && b >= 0 ? cofactor(a, b, isAcross ? offset : -1) : 0.0;
            };
            block[at] = term(from[i], from[j], false) + term(to[i], to[j], false) -
                        term(from[i], to[j], true) - term(to[i], from[j], true);
        }
    }
    return block;
}

void FillGlobals(const Unknowns& unknowns, Cofactors& cofactors, const CofactorOf& cofactor) {
    const int first = unknowns.Count() - unknowns.globals;
    cofactors.global.resize(unknowns.globals, unknowns.globals);
    for (int i = 0; i < unknowns.globals; ++i) {
        for (int j = 0; j < unknowns.globals; ++j)
            cofactors.global(i, j) = cofactor(first + i, first + j, -1);
    }
}

// Among the unknowns of one point and its set-ups, and between those of the whole network and all others.
std::vector<Correlation> StrongCorrelations(const Adjustment& adjustment, const CofactorOf& cofactor) {
    const Unknowns& unknowns = adjustment.unknowns;
    std::vector<double> deviation(At(unknowns.Count()));
    for (int i = 0; i < unknowns.Count(); ++i)
        deviation[At(i)] = std::sqrt(std::max(cofactor(i, i, -1), 0.0));
    std::vector<Correlation> strong;
    const auto look = [&](int a, int b) {
        const double product = deviation[At(a)] * deviation[At(b)];
        const double coefficient = product > 0 ? cofactor(a, b, -1) / product : 0.0;
        if (std::abs(coefficient) > adjustment.parameters.correlationWarning)
            strong.push_back({a, b, std::clamp(coefficient, -1.0, 1.0)});
    };
    const int firstGlobal = unknowns.Count() - unknowns.globals;
    for (int a = 0; a < firstGlobal; ++a) {
        const int point = unknowns.of[At(a)].point;
        for (int b = a + 1; b < firstGlobal && unknowns.of[At(b)].point == point; ++b)
            look(a, b);
        for (int b = firstGlobal; b < unknowns.Count(); ++b)
            look(a, b);
    }
    for (int a = firstGlobal; a < unknowns.Count(); ++a) {
        for (int b = a + 1; b < unknowns.Count(); ++b)
            look(a, b);
    }
    std::stable_sort(strong.begin(), strong.end(), [](const Correlation& a, const Correlation& b) {
        return std::abs(a.coefficient) > std::abs(b.coefficient);
    });
    return strong;
}

void FillBlocks(const Network& network, Adjustment& adjustment, const std::vector<int>& pairOffset,
                const CofactorOf& cofactor) {
    Cofactors& cofactors = adjustment.cofactors;
    const auto& number = adjustment.unknowns.number;
    cofactors.point.resize(number.size());
    for (std::size_t point = 0; point < number.size(); ++point) {
        cofactors.point[point] = TripleBlock(number[point], cofactor);
    }
    for (const auto& rotation : adjustment.unknowns.rotation)
        cofactors.rotation.push_back(TripleBlock(rotation, cofactor));
    FillGlobals(adjustment.unknowns, cofactors, cofactor);
    cofactors.strong = StrongCorrelations(adjustment, cofactor);
    for (std::size_t i = 0; i < network.relativePairs.size(); ++i) {
        const auto& [from, to] = network.relativePairs[i];
        cofactors.pair.push_back(
            PairBlock(number[At(from)], number[At(to)], pairOffset.empty() ? 0 : pairOffset[i], cofactor));
    }
    adjustment.hasCofactors = true;
}

// Y = Q_min H and W = H' Q_min H of one part, over its unknowns.
struct Transform {
    Eigen::MatrixXd y;
    Eigen::MatrixXd w;
};

std::vector<Transform> FindTransforms(const Datum& datum, const SparseCholesky& cholesky,
                                      const NormalMatrix& normals) {
    std::vector<Transform> transforms(datum.parts.size());
    for (std::size_t p = 0; p < datum.parts.size(); ++p) {
        const PartDatum& part = datum.parts[p];
        if (part.defect == 0)
            continue;
        Eigen::MatrixXd right = Eigen::MatrixXd::Zero(normals.size, part.defect);
        for (std::size_t i = 0; i < part.unknowns.size(); ++i) {
            const int row = normals.reducedOf[At(part.unknowns[i])];
            if (row >= 0)
                right.row(row) = part.constraint.row(static_cast<Eigen::Index>(i));
        }
        const Eigen::MatrixXd solved = Solve(cholesky, right);
        Transform& transform = transforms[p];
        transform.y = Eigen::MatrixXd::Zero(part.constraint.rows(), part.defect);
        for (std::size_t i = 0; i < part.unknowns.size(); ++i) {
            const int row = normals.reducedOf[At(part.unknowns[i])];
            if (row >= 0)
                transform.y.row(static_cast<Eigen::Index>(i)) = solved.row(row);
        }
        transform.w = part.constraint.transpose() * transform.y;
    }
    return transforms;
}

}  // namespace

void SparseCofactors(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                     const NormalMatrix& normals) {
    const Datum& datum = adjustment.datum;
    const std::vector<Transform> transforms = FindTransforms(datum, cholesky, normals);
    const std::vector<double> entries = InverseEntries(cholesky, normals);
    adjustment.cofactors.measure = MeasureForms(normals, entries, adjustment.structure, adjustment.unknowns,
                                                adjustment.state, ThreadsFor(adjustment.parameters.threads));
    const auto minimal = [&](int a, int b, int offset) {
        const int rowA = normals.reducedOf[At(a)];
        const int rowB = normals.reducedOf[At(b)];
        if (rowA < 0 || rowB < 0)
            return 0.0;
        const auto pointOf = [&](int unknown) {
            return std::max(adjustment.unknowns.of[At(unknown)].point, 0);
        };
        const int low = std::min(pointOf(a), pointOf(b));
        const int high = std::max(pointOf(a), pointOf(b));
        return entries[normals.PositionOf(rowA, rowB, normals.blockStart[At(low) + 1],
                                          normals.blockStart[At(high)], offset)];
    };
    const CofactorOf cofactor = [&](int a, int b, int offset) {
        const double plain = minimal(a, b, offset);
        const int partA = datum.partOf[At(a)];
        const int partB = datum.partOf[At(b)];
        if (partA != partB)
            return 0.0;
        const PartDatum& part = datum.parts[At(partA)];
        if (part.defect == 0)
            return plain;
        const Transform& transform = transforms[At(partA)];
        const auto gA = part.movement.row(datum.rowOf[At(a)]);
        const auto gB = part.movement.row(datum.rowOf[At(b)]);
        const double mixed =
            gA.dot(transform.y.row(datum.rowOf[At(b)])) + gB.dot(transform.y.row(datum.rowOf[At(a)]));
        return plain - mixed + gA.dot(transform.w * gB.transpose());
    };
    FillBlocks(network, adjustment, normals.pairOffset, cofactor);
}

void DenseCofactors(const Network& network, Adjustment& adjustment, const Eigen::MatrixXd& inverse) {
    const NormalMatrix normals = MakePattern(adjustment.structure, adjustment.unknowns, {}, {});
    std::vector<double> entries(normals.row.size());
    for (int column = 0; column < normals.size; ++column) {
        for (int at = normals.columnStart[At(column)]; at < normals.columnStart[At(column) + 1]; ++at)
            entries[At(at)] = inverse(normals.row[At(at)], column);
    }
    adjustment.cofactors.measure = MeasureForms(normals, entries, adjustment.structure, adjustment.unknowns,
                                                adjustment.state, ThreadsFor(adjustment.parameters.threads));
    FillBlocks(network, adjustment, {}, [&](int a, int b, int) { return inverse(a, b); });
}

}  // namespace Krenn
