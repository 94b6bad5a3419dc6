// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Datum.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "krenn/Errors.h"

namespace Krenn {
namespace {

constexpr double kNullRatio = 1e-9;     // a singular value below this is zero; no cancellation would give 1
constexpr double kUnseenRatio = 1e-10;  // an eigenvalue below this: the given points leave the movement open
constexpr Eigen::Index kBatch = 256;

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

enum class Movement { ShiftX, ShiftY, Turn, PlanScale, ShiftZ, HeightScale };

struct Candidate {
    Movement movement;
    int group;
};

const char* NameOf(Movement movement) {
    switch (movement) {
        case Movement::ShiftX: return "shift in X";
        case Movement::ShiftY: return "shift in Y";
        case Movement::Turn: return "rotation about Z";
        case Movement::PlanScale: return "scale in plan";
        case Movement::ShiftZ: return "shift in Z";
        default: return "scale in height";
    }
}

bool IsPlan(Movement movement) {
    return movement != Movement::ShiftZ && movement != Movement::HeightScale;
}

// Centre and size of each group, so that all candidates move points by about one meter.
struct GroupFrame {
    std::array<double, 3> centre{};
    double size = 1;
};

struct Frames {
    std::vector<GroupFrame> plan;
    std::vector<GroupFrame> height;
};

void FitGroups(const Structure& structure, const State& state, bool isPlan, std::vector<GroupFrame>& groups) {
    std::vector<double> count(groups.size(), 0);
    const auto groupOf = [&](std::size_t point) {
        return isPlan ? structure.roles[point].planGroup : structure.roles[point].heightGroup;
    };
    for (std::size_t i = 0; i < structure.roles.size(); ++i) {
        if (groupOf(i) < 0)
            continue;
        const auto group = At(groupOf(i));
        count[group] += 1;
        for (std::size_t axis = 0; axis < 3; ++axis)
            groups[group].centre[axis] += (state.at[i][axis] - groups[group].centre[axis]) / count[group];
    }
    std::vector<double> square(groups.size(), 0);
    for (std::size_t i = 0; i < structure.roles.size(); ++i) {
        if (groupOf(i) < 0)
            continue;
        const auto group = At(groupOf(i));
        const double x = state.at[i][0] - groups[group].centre[0];
        const double y = state.at[i][1] - groups[group].centre[1];
        const double z = state.at[i][2] - groups[group].centre[2];
        square[group] += isPlan ? x * x + y * y : z * z;
    }
    for (std::size_t group = 0; group < groups.size(); ++group)
        groups[group].size = std::max(std::sqrt(square[group] / std::max(count[group], 1.0)), 1e-6);
}

Frames FitFrames(const Structure& structure, const State& state) {
    Frames frames;
    frames.plan.resize(At(structure.planGroups));
    frames.height.resize(At(structure.heightGroups));
    FitGroups(structure, state, true, frames.plan);
    FitGroups(structure, state, false, frames.height);
    return frames;
}

// How much a candidate moves one coordinate or orientation.
double MoveOf(const Candidate& candidate, const Structure& structure, const Frames& frames,
              const State& state, int point, int axis) {
    const PointRole& role = structure.roles[At(point)];
    if ((IsPlan(candidate.movement) ? role.planGroup : role.heightGroup) != candidate.group)
        return 0;
    const auto group = At(candidate.group);
    const GroupFrame& frame = IsPlan(candidate.movement) ? frames.plan[group] : frames.height[group];
    const auto& at = state.at[At(point)];
    switch (candidate.movement) {
        case Movement::ShiftX: return axis == 0 ? 1 : 0;
        case Movement::ShiftY: return axis == 1 ? 1 : 0;
        case Movement::Turn:
            if (axis == 0)
                return (at[1] - frame.centre[1]) / frame.size;
            if (axis == 1)
                return -(at[0] - frame.centre[0]) / frame.size;
            return axis == kOrientationAxis ? 1 / frame.size : 0;
        case Movement::PlanScale: return axis <= 1 ? (at[At(axis)] - frame.centre[At(axis)]) / frame.size : 0;
        case Movement::ShiftZ: return axis == 2 ? 1 : 0;
        default: return axis == 2 ? (at[2] - frame.centre[2]) / frame.size : 0;
    }
}

std::vector<Candidate> CandidatesOf(const Structure& structure, const PartDatum& part,
                                    const Unknowns& unknowns) {
    std::vector<int> plan;
    std::vector<int> height;
    for (const int unknown : part.unknowns) {
        const UnknownOf& of = unknowns.of[At(unknown)];
        const PointRole& role = structure.roles[At(of.point)];
        if (of.axis <= 1)
            plan.push_back(role.planGroup);
        else if (of.axis == 2)
            height.push_back(role.heightGroup);
    }
    std::vector<Candidate> candidates;
    for (std::vector<int>* groups : {&plan, &height}) {
        std::sort(groups->begin(), groups->end());
        groups->erase(std::unique(groups->begin(), groups->end()), groups->end());
    }
    for (const int group : plan) {
        for (const Movement movement :
             {Movement::ShiftX, Movement::ShiftY, Movement::Turn, Movement::PlanScale})
            candidates.push_back({movement, group});
    }
    for (const int group : height) {
        for (const Movement movement : {Movement::ShiftZ, Movement::HeightScale})
            candidates.push_back({movement, group});
    }
    return candidates;
}

Eigen::MatrixXd MovesOf(const std::vector<Candidate>& candidates, const Structure& structure,
                        const Frames& frames, const PartDatum& part, const Unknowns& unknowns,
                        const State& state) {
    Eigen::MatrixXd moves(static_cast<Eigen::Index>(part.unknowns.size()),
                          static_cast<Eigen::Index>(candidates.size()));
    for (Eigen::Index row = 0; row < moves.rows(); ++row) {
        const UnknownOf& of = unknowns.of[At(part.unknowns[At(row)])];
        for (Eigen::Index column = 0; column < moves.cols(); ++column)
            moves(row, column) = MoveOf(candidates[At(column)], structure, frames, state, of.point, of.axis);
    }
    return moves;
}

// A candidate that moves no unknown, like the turn of a single point, is no movement.
void DropMotionless(std::vector<Candidate>& candidates, Eigen::MatrixXd& moves) {
    Eigen::Index kept = 0;
    for (Eigen::Index column = 0; column < moves.cols(); ++column) {
        if (moves.col(column).cwiseAbs().maxCoeff() < 1e-9)
            continue;
        candidates[At(kept)] = candidates[At(column)];
        moves.col(kept) = moves.col(column);
        ++kept;
    }
    candidates.resize(At(kept));
    moves.conservativeResize(Eigen::NoChange, kept);
}

// The triangular factor of a tall matrix that is fed row by row.
struct RowReducer {
    explicit RowReducer(Eigen::Index columns)
        : rows(Eigen::MatrixXd::Zero(columns + kBatch, columns)), filled(columns) {}

    void Add(const Eigen::RowVectorXd& row) {
        rows.row(filled++) = row;
        if (filled == rows.rows())
            Reduce();
    }

    void Reduce() {
        const Eigen::Index columns = rows.cols();
        const Eigen::HouseholderQR<Eigen::MatrixXd> qr(rows);
        const Eigen::MatrixXd triangle = qr.matrixQR().topRows(columns).triangularView<Eigen::Upper>();
        rows.setZero();
        rows.topRows(columns) = triangle;
        filled = columns;
    }

    Eigen::MatrixXd rows;
    Eigen::Index filled;
};

// Coefficients of the combinations of candidates that nothing feels, one column each: right singular vectors
// of J times the candidates, and of the moves of fixed coordinates, which must be zero as well.
Eigen::MatrixXd UnfeltCombinations(const std::vector<Candidate>& candidates, const Structure& structure,
                                   const Frames& frames, const PartDatum& part, const Unknowns& unknowns,
                                   const State& state, const Datum& datum, const Eigen::MatrixXd& moves,
                                   bool isRenewal) {
    const auto columns = static_cast<Eigen::Index>(candidates.size());
    RowReducer reducer(columns);
    Eigen::RowVectorXd size = Eigen::RowVectorXd::Zero(columns);
    const auto take = [&](const Eigen::RowVectorXd& row, const Eigen::RowVectorXd& bound) {
        reducer.Add(row);
        size += bound.cwiseAbs2();
    };
    for (const int number : part.measures) {
        const Measure& measure = structure.measures[At(number)];
        const Partials partials = ComputePartials(measure, state);
        const std::array<int, 7> numbers = UnknownsOf(measure, unknowns);
        Eigen::RowVectorXd row = Eigen::RowVectorXd::Zero(columns);
        Eigen::RowVectorXd bound = Eigen::RowVectorXd::Zero(columns);
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (numbers[i] < 0)
                continue;
            const double by = partials.by[i] / measure.sigma;
            row += by * moves.row(datum.rowOf[At(numbers[i])]);
            bound += std::abs(by) * moves.row(datum.rowOf[At(numbers[i])]).cwiseAbs();
        }
        take(row, bound);
    }
    const double weight = std::sqrt(std::max(size.maxCoeff(), 1.0));
    for (const int point : part.fixedPoints) {
        for (int axis = 0; axis < 3; ++axis) {
            Eigen::RowVectorXd row(columns);
            for (Eigen::Index column = 0; column < columns; ++column)
                row(column) = weight * MoveOf(candidates[At(column)], structure, frames, state, point, axis);
            take(row, row);
        }
    }
    reducer.Reduce();
    const Eigen::RowVectorXd scale =
        size.unaryExpr([](double square) { return square > 0 ? 1 / std::sqrt(square) : 1.0; });
    const Eigen::MatrixXd scaled = reducer.rows.topRows(columns) * scale.asDiagonal();
    const Eigen::JacobiSVD<Eigen::MatrixXd> svd(scaled, Eigen::ComputeFullV);
    const Eigen::VectorXd& values = svd.singularValues();
    const Eigen::Index unfelt = isRenewal ? part.defect
                                          : std::count_if(values.begin(), values.end(),
                                                          [&](double value) { return value < kNullRatio; });
    Eigen::MatrixXd combinations = scale.transpose().asDiagonal() * svd.matrixV().rightCols(unfelt);
    combinations.colwise().normalize();
    return combinations;
}

// Columns made independent of one another; a combination that moves nothing drops out.
Eigen::MatrixXd IndependentColumns(const Eigen::MatrixXd& columns) {
    if (columns.cols() == 0)
        return columns;
    const double rootOfRows = std::sqrt(static_cast<double>(columns.rows()));
    Eigen::MatrixXd unit(columns.rows(), columns.cols());
    Eigen::Index moving = 0;
    for (Eigen::Index i = 0; i < columns.cols(); ++i) {
        const double norm = columns.col(i).norm();
        if (norm > 1e-7 * rootOfRows)
            unit.col(moving++) = columns.col(i) / norm;
    }
    unit.conservativeResize(Eigen::NoChange, moving);
    if (moving == 0)
        return unit;
    Eigen::ColPivHouseholderQR<Eigen::MatrixXd> qr(unit);
    qr.setThreshold(1e-7);
    const Eigen::MatrixXd basis = qr.householderQ() * Eigen::MatrixXd::Identity(unit.rows(), qr.rank());
    return basis * rootOfRows;
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
            if (unknowns.of[At(part.unknowns[At(row)])].axis == kOrientationAxis)
                continue;
            const double square = rest.row(row).squaredNorm();
            if (square > most * (1 + 1e-9)) {
                most = square;
                best = row;
            }
        }
        if (best < 0)
            throw Failure(ErrorNumber::Internal, "No coordinate takes out a free movement.");
        held.push_back(part.unknowns[At(best)]);
        const Eigen::RowVectorXd direction = rest.row(best) / std::sqrt(most);
        rest -= (rest * direction.transpose()) * direction;
    }
    return held;
}

// H: the given points set what they can, all points the rest.
void FindConstraint(const Network& network, const Unknowns& unknowns, PartDatum& part) {
    const Eigen::Index size = part.movement.rows();
    Eigen::VectorXd isGiven = Eigen::VectorXd::Zero(size);
    Eigen::VectorXd isCoordinate = Eigen::VectorXd::Zero(size);
    for (Eigen::Index row = 0; row < size; ++row) {
        const UnknownOf& of = unknowns.of[At(part.unknowns[At(row)])];
        if (of.axis == kOrientationAxis)
            continue;
        isCoordinate(row) = 1;
        isGiven(row) = network.points[At(of.point)].hasGiven ? 1 : 0;
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

std::vector<std::string> MovementsInWords(const std::vector<Candidate>& candidates,
                                          const Eigen::MatrixXd& combinations) {
    std::vector<std::string> words;
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        const auto row = static_cast<Eigen::Index>(i);
        if (combinations.row(row).norm() < 1e-6 * combinations.norm())
            continue;
        const std::string name = NameOf(candidates[i].movement);
        if (std::find(words.begin(), words.end(), name) == words.end())
            words.push_back(name);
    }
    const auto plan = std::find(words.begin(), words.end(), "scale in plan");
    const auto height = std::find(words.begin(), words.end(), "scale in height");
    if (plan != words.end() && height != words.end()) {
        *plan = "scale";
        words.erase(height);
    }
    return words;
}

void CountDatumPoints(const Network& network, const Unknowns& unknowns, PartDatum& part) {
    std::vector<int> points;
    for (const int unknown : part.unknowns) {
        const UnknownOf& of = unknowns.of[At(unknown)];
        if (of.axis != kOrientationAxis && (!part.overGiven || network.points[At(of.point)].hasGiven))
            points.push_back(of.point);
    }
    points.erase(std::unique(points.begin(), points.end()), points.end());
    part.datumPoints = static_cast<int>(points.size());
}

void FindPartDatum(Datum& datum, PartDatum& part, const Network& network, const Structure& structure,
                   const Unknowns& unknowns, const State& state, bool isRenewal) {
    const Frames frames = FitFrames(structure, state);
    std::vector<Candidate> candidates = CandidatesOf(structure, part, unknowns);
    Eigen::MatrixXd moves = MovesOf(candidates, structure, frames, part, unknowns, state);
    DropMotionless(candidates, moves);
    if (candidates.empty())
        return;
    const Eigen::MatrixXd combinations =
        UnfeltCombinations(candidates, structure, frames, part, unknowns, state, datum, moves, isRenewal);
    part.movement = IndependentColumns(moves * combinations);
    if (isRenewal && part.movement.cols() != part.defect)
        throw Failure(ErrorNumber::NoConvergence, "The iterations ran into a position without a datum.");
    part.defect = static_cast<int>(part.movement.cols());
    if (part.defect > 0)
        FindConstraint(network, unknowns, part);
    if (isRenewal)
        return;
    part.held = CoordinatesToHold(part, unknowns);
    if (part.defect > 0) {
        part.movements = MovementsInWords(candidates, combinations);
        CountDatumPoints(network, unknowns, part);
    }
}

}  // namespace

int Datum::Defect() const {
    return std::accumulate(parts.begin(), parts.end(), 0,
                           [](int sum, const PartDatum& part) { return sum + part.defect; });
}

Datum FindDatum(const Network& network, const Structure& structure, const Unknowns& unknowns,
                const State& state) {
    Datum datum;
    datum.parts.resize(At(structure.parts));
    datum.rowOf.resize(At(unknowns.Count()));
    datum.partOf.resize(At(unknowns.Count()));
    for (int unknown = 0; unknown < unknowns.Count(); ++unknown) {
        const int number = structure.roles[At(unknowns.of[At(unknown)].point)].part;
        PartDatum& part = datum.parts[At(number)];
        datum.rowOf[At(unknown)] = static_cast<int>(part.unknowns.size());
        datum.partOf[At(unknown)] = number;
        part.unknowns.push_back(unknown);
    }
    for (std::size_t i = 0; i < structure.measures.size(); ++i) {
        const int number = structure.roles[At(structure.measures[i].from)].part;
        datum.parts[At(number)].measures.push_back(static_cast<int>(i));
    }
    for (std::size_t point = 0; point < network.points.size(); ++point) {
        if (network.points[point].isFixed && structure.roles[point].part >= 0)
            datum.parts[At(structure.roles[point].part)].fixedPoints.push_back(static_cast<int>(point));
    }
    for (PartDatum& part : datum.parts) {
        if (!part.unknowns.empty())
            FindPartDatum(datum, part, network, structure, unknowns, state, false);
    }
    return datum;
}

void RenewDatum(Datum& datum, const Network& network, const Structure& structure, const Unknowns& unknowns,
                const State& state) {
    for (PartDatum& part : datum.parts) {
        if (part.defect > 0)
            FindPartDatum(datum, part, network, structure, unknowns, state, true);
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
