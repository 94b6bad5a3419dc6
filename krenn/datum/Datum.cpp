// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/datum/Datum.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "krenn/Errors.h"

namespace Krenn {
namespace {

constexpr double kStillUnfelt = 1e-7;
constexpr double kUnseenRatio = 1e-10;  // an eigenvalue below this: the given points leave the movement open

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

// The coordinates to hold in the minimal solution: row after row the one that the movements still left move
// most (pivoted Gram-Schmidt on the rows of G).
std::vector<int> CoordinatesToHold(const PartDatum& part, const Unknowns& unknowns) {
    std::vector<int> held;
    Eigen::MatrixXd rest = part.movement;
    for (int step = 0; step < part.defect; ++step) {
        Eigen::Index best = -1;
        double most = 0;
        for (Eigen::Index row = 0; row < rest.rows(); ++row) {
            if (!IsCoordinate(unknowns.of[At(part.unknowns[At(row)])]))
                continue;
            const double square = rest.row(row).squaredNorm();
            if (square > most * (1 + 1e-9)) {
                most = square;
                best = row;
            }
        }
        if (best < 0)
            throw Failure(ErrorNumber::Singular,
                          "The observations do not determine what moves without any coordinate.",
                          part.movements);
        held.push_back(part.unknowns[At(best)]);
        const Eigen::RowVectorXd direction = rest.row(best) / std::sqrt(most);
        rest -= (rest * direction.transpose()) * direction;
    }
    return held;
}

// H: the given points set what they can, all points the rest.
void FindConstraint(const Network& network, const Structure& structure, const Unknowns& unknowns,
                    DatumRule rule, PartDatum& part) {
    const Eigen::Index size = part.movement.rows();
    Eigen::VectorXd isGiven = Eigen::VectorXd::Zero(size);
    Eigen::VectorXd isCoordinate = Eigen::VectorXd::Zero(size);
    for (Eigen::Index row = 0; row < size; ++row) {
        const UnknownOf& of = unknowns.of[At(part.unknowns[At(row)])];
        if (!IsCoordinate(of))
            continue;
        isCoordinate(row) = 1;
        isGiven(row) = rule == DatumRule::Given && SetsDatum(network, structure, of.point) ? 1 : 0;
    }
    const Eigen::MatrixXd& g = part.movement;
    const Eigen::MatrixXd overGiven = g.transpose() * isGiven.asDiagonal() * g;
    const Eigen::MatrixXd overAll = g.transpose() * isCoordinate.asDiagonal() * g;
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> eigen(overGiven);
    const double largest = std::max(eigen.eigenvalues().maxCoeff(), 0.0);
    Eigen::Index open = 0;
    while (open < part.defect && eigen.eigenvalues()(open) <= kUnseenRatio * std::max(largest, 1e-12))
        ++open;
    const Eigen::Index seen = part.defect - open;
    const Eigen::MatrixXd seenVectors = eigen.eigenvectors().rightCols(seen);
    const Eigen::MatrixXd openVectors = eigen.eigenvectors().leftCols(open);
    const Eigen::MatrixXd byGiven =
        seenVectors * eigen.eigenvalues().tail(seen).cwiseInverse().asDiagonal() * seenVectors.transpose();
    Eigen::MatrixXd byAll = Eigen::MatrixXd::Zero(part.defect, part.defect);
    if (open > 0) {
        const Eigen::MatrixXd core = openVectors.transpose() * overAll * openVectors;
        byAll = openVectors * core.ldlt().solve(openVectors.transpose());
    }
    part.constraint = isGiven.asDiagonal() * g * (byGiven - byAll * overAll * byGiven).transpose() +
                      isCoordinate.asDiagonal() * g * byAll.transpose();
    part.overGiven = seen > 0;
    part.alsoOverAll = seen > 0 && open > 0;
}

void CountDatumPoints(const Network& network, const Structure& structure, const Unknowns& unknowns,
                      PartDatum& part) {
    std::vector<int> points;
    for (const int unknown : part.unknowns) {
        const UnknownOf& of = unknowns.of[At(unknown)];
        if (IsCoordinate(of) && (!part.overGiven || SetsDatum(network, structure, of.point)))
            points.push_back(of.point);
    }
    points.erase(std::unique(points.begin(), points.end()), points.end());
    part.datumPoints = static_cast<int>(points.size());
}

}  // namespace

int Datum::Defect() const {
    return std::accumulate(parts.begin(), parts.end(), 0,
                           [](int sum, const PartDatum& part) { return sum + part.defect; });
}

Datum FindDatum(const Network& network, const Structure& structure, const Unknowns& unknowns,
                const State& state, DatumRule rule) {
    Datum datum;
    datum.rule = rule;
    // Unknowns of the whole network tie the parts together.
    const bool isOne = unknowns.globals > 0;
    const auto partOf = [&](int point) { return isOne || point < 0 ? 0 : structure.roles[At(point)].part; };
    datum.parts.resize(isOne ? 1 : At(structure.parts));
    datum.rowOf.resize(At(unknowns.Count()));
    datum.partOf.resize(At(unknowns.Count()));
    for (int unknown = 0; unknown < unknowns.Count(); ++unknown) {
        const int number = partOf(unknowns.of[At(unknown)].point);
        PartDatum& part = datum.parts[At(number)];
        datum.rowOf[At(unknown)] = static_cast<int>(part.unknowns.size());
        datum.partOf[At(unknown)] = number;
        part.unknowns.push_back(unknown);
    }
    for (std::size_t i = 0; i < structure.measures.size(); ++i) {
        const int number = partOf(structure.measures[i].from);
        datum.parts[At(number)].measures.push_back(static_cast<int>(i));
    }
    for (std::size_t point = 0; point < network.points.size(); ++point) {
        if (network.points[point].isFixed && structure.roles[point].part >= 0)
            datum.parts[At(partOf(static_cast<int>(point)))].fixedPoints.push_back(static_cast<int>(point));
    }
    datum.frames = FitFrames(structure, state);
    for (PartDatum& part : datum.parts) {
        FreeMovements free = FindFreeMovements(part, structure, unknowns, state, datum.frames, datum.rowOf);
        part.movement = std::move(free.movement);
        part.movements = std::move(free.words);
        part.candidates = std::move(free.candidates);
        part.combinations = std::move(free.combinations);
        part.defect = static_cast<int>(part.movement.cols());
        if (part.defect == 0)
            continue;
        part.held = CoordinatesToHold(part, unknowns);
        FindConstraint(network, structure, unknowns, datum.rule, part);
        CountDatumPoints(network, structure, unknowns, part);
    }
    return datum;
}

void RenewDatum(Datum& datum, const Network& network, const Structure& structure, const Unknowns& unknowns,
                const State& state) {
    for (PartDatum& part : datum.parts) {
        if (part.defect == 0)
            continue;
        // How much of a scale or of the refraction goes with a movement of the points depends on their
        // values.
        if (unknowns.globals > 0)
            part.movement =
                FindFreeMovements(part, structure, unknowns, state, datum.frames, datum.rowOf).movement;
        else
            part.movement = MovementsAt(part.candidates, part.combinations, part, structure, unknowns, state,
                                        datum.frames);
        if (part.movement.cols() != part.defect)
            throw Failure(ErrorNumber::NoConvergence, "The iterations ran into a position without a datum.");
        FindConstraint(network, structure, unknowns, datum.rule, part);
    }
}

void ConfirmDatum(const Datum& datum, const Structure& structure, const Unknowns& unknowns,
                  const State& state) {
    for (const PartDatum& part : datum.parts) {
        if (part.defect > 0 &&
            MostFelt(part.movement, part, structure, unknowns, state, datum.rowOf) > kStillUnfelt)
            throw Failure(
                ErrorNumber::NoConvergence,
                "The observations feel a movement of the network at the end that they did not feel at the "
                "start positions.");
    }
}

void ApplyInnerConstraints(const Datum& datum, const Eigen::VectorXd& offset, Eigen::VectorXd& correction) {
    for (const PartDatum& part : datum.parts) {
        if (part.defect == 0)
            continue;
        Eigen::VectorXd away(static_cast<Eigen::Index>(part.unknowns.size()));
        for (Eigen::Index row = 0; row < away.size(); ++row) {
            const int unknown = part.unknowns[At(row)];
            away(row) = correction(unknown) + offset(unknown);
        }
        const Eigen::VectorXd back = part.movement * (part.constraint.transpose() * away);
        for (Eigen::Index row = 0; row < back.size(); ++row)
            correction(part.unknowns[At(row)]) -= back(row);
    }
}

}  // namespace Krenn
