// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Movements.h"

#include <algorithm>
#include <cmath>

namespace Krenn {
namespace {

constexpr double kNullRatio = 1e-9;  // a singular value below this is zero; no cancellation would give 1
constexpr Eigen::Index kBatch = 256;

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

// Read row by row, so kept row by row.
using Moves = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

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

// How much a candidate moves one coordinate or orientation.
double MoveOf(const Candidate& candidate, const Structure& structure, const GroupFrames& frames,
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

std::vector<Candidate> CandidatesOf(const Structure& structure, const NetworkPart& part,
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

Moves MovesOf(const std::vector<Candidate>& candidates, const Structure& structure, const GroupFrames& frames,
              const NetworkPart& part, const Unknowns& unknowns, const State& state) {
    Moves moves(static_cast<Eigen::Index>(part.unknowns.size()),
                static_cast<Eigen::Index>(candidates.size()));
    for (Eigen::Index row = 0; row < moves.rows(); ++row) {
        const UnknownOf& of = unknowns.of[At(part.unknowns[At(row)])];
        for (Eigen::Index column = 0; column < moves.cols(); ++column)
            moves(row, column) = MoveOf(candidates[At(column)], structure, frames, state, of.point, of.axis);
    }
    return moves;
}

// A candidate that moves no unknown, like the turn of a single point, is no movement.
void DropMotionless(std::vector<Candidate>& candidates, Moves& moves) {
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
                                   const GroupFrames& frames, const NetworkPart& part,
                                   const Unknowns& unknowns, const State& state,
                                   const std::vector<int>& rowOf, const Moves& moves, int wanted) {
    const auto columns = static_cast<Eigen::Index>(candidates.size());
    RowReducer reducer(columns);
    Eigen::RowVectorXd size = Eigen::RowVectorXd::Zero(columns);
    Eigen::RowVectorXd row(columns);
    Eigen::RowVectorXd bound(columns);
    for (const int number : part.measures) {
        const Measure& measure = structure.measures[At(number)];
        const Partials partials = ComputePartials(measure, state);
        const std::array<int, 7> numbers = UnknownsOf(measure, unknowns);
        row.setZero();
        bound.setZero();
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (numbers[i] < 0)
                continue;
            const double by = partials.by[i] / measure.sigma;
            row += by * moves.row(rowOf[At(numbers[i])]);
            bound += std::abs(by) * moves.row(rowOf[At(numbers[i])]).cwiseAbs();
        }
        reducer.Add(row);
        size += bound.cwiseAbs2();
    }
    const double weight = std::sqrt(std::max(size.maxCoeff(), 1.0));
    for (const int point : part.fixedPoints) {
        for (int axis = 0; axis < 3; ++axis) {
            for (Eigen::Index column = 0; column < columns; ++column)
                row(column) = weight * MoveOf(candidates[At(column)], structure, frames, state, point, axis);
            reducer.Add(row);
            size += row.cwiseAbs2();
        }
    }
    reducer.Reduce();
    const Eigen::RowVectorXd scale =
        size.unaryExpr([](double square) { return square > 0 ? 1 / std::sqrt(square) : 1.0; });
    const Eigen::MatrixXd scaled = reducer.rows.topRows(columns) * scale.asDiagonal();
    const Eigen::JacobiSVD<Eigen::MatrixXd> svd(scaled, Eigen::ComputeFullV);
    const Eigen::VectorXd& values = svd.singularValues();
    const Eigen::Index unfelt = wanted >= 0 ? wanted
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

}  // namespace

GroupFrames FitFrames(const Structure& structure, const State& state) {
    GroupFrames frames;
    frames.plan.resize(At(structure.planGroups));
    frames.height.resize(At(structure.heightGroups));
    FitGroups(structure, state, true, frames.plan);
    FitGroups(structure, state, false, frames.height);
    return frames;
}

FreeMovements FindFreeMovements(const NetworkPart& part, const Structure& structure, const Unknowns& unknowns,
                                const State& state, const GroupFrames& frames, const std::vector<int>& rowOf,
                                int wanted) {
    FreeMovements free;
    std::vector<Candidate> candidates = CandidatesOf(structure, part, unknowns);
    Moves moves = MovesOf(candidates, structure, frames, part, unknowns, state);
    DropMotionless(candidates, moves);
    if (candidates.empty()) {
        free.movement.resize(moves.rows(), 0);
        return free;
    }
    const Eigen::MatrixXd combinations =
        UnfeltCombinations(candidates, structure, frames, part, unknowns, state, rowOf, moves, wanted);
    free.movement = IndependentColumns(moves * combinations);
    if (free.movement.cols() > 0)
        free.words = MovementsInWords(candidates, combinations);
    return free;
}

}  // namespace Krenn
